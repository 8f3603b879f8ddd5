# Installs the Debian packages that this project needs and builds it quietly. Sourced by ./run and ./check.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 1
logs="$root/build/logs"
mkdir -p "$logs"

build_packages=(g++ cmake ninja-build ccache pkg-config
  qtbase5-dev qtscript5-dev libqt5svg5-dev
  libopenblas-dev liblapacke-dev
  fontconfig fonts-liberation2 fonts-dejavu-core)
# the last five check what an installation says of itself; without them that part is passed over
test_packages=(libgtest-dev libbenchmark-dev
  libxml2-utils desktop-file-utils shared-mime-info libglib2.0-bin man-db)
package_packages=(dpkg-dev file) # of scripts/package.sh only
compare_packages=(libqcustomplot-dev) # of bench/compare only; scripts/compare.sh installs them
all_packages=(clang-14 libclang-rt-14-dev libomp-14-dev clang-format-14 clang-tidy-14 git)

say() { printf '%s\n' "$*"; }
die() { printf '%s\n' "$*" >&2; exit 1; }

# need PACKAGE...: installs those that are missing, or says in plain words what to do.
need() {
  local missing=() package
  if ! command -v dpkg-query >/dev/null 2>&1; then
    for package in g++ cmake ninja; do
      command -v "$package" >/dev/null 2>&1 ||
        die "This is no Debian system, so nothing is installed here, and $package is missing.
Install the equivalents of: $*"
    done
    return 0
  fi
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null 2>&1 ||
      die "These packages are missing, and installing them needs root or sudo:
  apt-get install ${missing[*]}"
    as_root=(sudo)
  fi
  say "Installing: ${missing[*]}"
  if ! { "${as_root[@]}" apt-get update -qq &&
         "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
           apt-get install -y -qq --no-install-recommends "${missing[@]}"; } >"$logs/apt.log" 2>&1; then
    tail -n 15 "$logs/apt.log" >&2
    die "The packages could not be installed. Is there a network, and may you install? Missing:
  ${missing[*]}"
  fi
}

# quietly LOG COMMAND...: the output goes to a log, of which a failure shows the end.
quietly() {
  local log="$logs/$1.log"
  shift
  if ! "$@" >"$log" 2>&1; then
    grep -nE 'error|Error|FAILED' "$log" | head -n 20 >&2
    tail -n 30 "$log" >&2
    die "Failed: $* (the whole output is in ${log#"$root"/})"
  fi
}

# build PRESET [TARGET...]
build() {
  local preset=$1
  shift
  quietly "configure-$preset" cmake --preset "$preset"
  quietly "build-$preset" cmake --build --preset "$preset" ${1:+--target "$@"}
}
