#!/usr/bin/env bash
# Installs a build folder, moves what came out to another place, and works there as a user would, with nothing of the
# build in the environment. Catches what an installation lacks and what its descriptions say wrongly.
#   install.sh BUILD
set -u
build=$(cd "$1" && pwd)
work=$build/install-check
prefix=$work/moved
share=$prefix/share
failures=0

fail() { printf 'FAILED: %s\n' "$*"; failures=$((failures + 1)); }
# expect WHAT COMMAND...
expect() {
  local what=$1
  shift
  "$@" >"$work/out" 2>"$work/err" || { fail "$what"; head -n 5 "$work/out" "$work/err"; }
}
environment=(env -i PATH="$PATH" HOME="$work/home" LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$work/run")
clean() { "${environment[@]}" "$@"; }
has() { command -v "$1" >/dev/null 2>&1; }

rm -rf "$work"
mkdir -p "$work/home"
mkdir -m 700 "$work/run"
cmake --install "$build" --prefix "$work/staged" >"$work/install.log" 2>&1 ||
  { tail -n 5 "$work/install.log"; exit 1; }
mv "$work/staged" "$prefix"
cd "$work/home" || exit 1

# the libraries of this installation, and no others of that name
for program in bin/kelmora bin/zarnu lib/kelmora/plugins/libYrexPlugin.so; do
  expect "$program has all its libraries" clean ldd "$prefix/$program"
  ! grep -q 'not found' "$work/out" || fail "$program: $(grep 'not found' "$work/out")"
  others=$(grep '/libKelmora' "$work/out" | grep -v "=> $prefix/")
  [ -z "$others" ] || fail "$program takes$others"
done

# and none of the current folder, which an empty entry means, or of any other folder
check_paths() {
  local file entry paths
  while IFS= read -r file; do
    paths=$(readelf -d "$file" 2>/dev/null | sed -n 's/.*(\(RUNPATH\|RPATH\)).*\[\(.*\)\]/\2/p')
    [ -n "$paths" ] || continue
    while IFS= read -r entry; do
      case "$entry" in
        "$1"*) ;;
        *) fail "$file looks for libraries in '$entry'" ;;
      esac
    done < <(tr ':' '\n' <<<"$paths")
  done < <(find "${@:2}" -type f \( -perm -u+x -o -name '*.so*' \))
}
has readelf || fail "there is no readelf"
check_paths "\$ORIGIN" "$prefix"
for program in zarnu kelmora; do
  check_paths "\$ORIGIN" "$build/bin/$program"
done
check_paths "\$ORIGIN" "$build/lib/kelmora"

zarnu=$prefix/bin/zarnu
samples=$share/kelmora/samples
expect "zarnu --version" clean "$zarnu" --version
version=$(sed -n 's/^zarnu //p' "$work/out")
expect "kelmora --version without a display" env -i PATH="$PATH" HOME="$work/home" "$prefix/bin/kelmora" --version
[ "$(cat "$work/out")" = "kelmora $version" ] || fail "kelmora is of version $(cat "$work/out")"
expect "zarnu inspect" clean "$zarnu" inspect "$samples/polystyrene.csv"
expect "zarnu process" clean "$zarnu" process "$samples/polystyrene.csv" --orig-units cm-1:absorbance \
  --chain "$samples/clean-ir.json" -o clean.csv --plot clean.png
[ "$(wc -l <clean.csv)" = 1801 ] || fail "clean.csv has $(wc -l <clean.csv) lines"
[ -s clean.png ] || fail "no clean.png"
echo 'print(openFile(args[0]).length, args.length)' >count.js
expect "zarnu script" clean "$zarnu" script count.js "$samples/dye.csv"
[ "$(cat "$work/out")" = "1 1" ] || fail "the script printed $(cat "$work/out")"

# the desktop program ends when it is told to, so its log says when it has opened the file
log=$work/home/.local/state/kelmora/log/kelmora.log
"${environment[@]}" "$prefix/bin/kelmora" "$samples/dye.csv" >"$work/kelmora.out" 2>&1 & # no function: it has to be
kelmora=$!                                                                              # the program that is ended
trap 'kill $kelmora 2>/dev/null' EXIT
for _ in $(seq 100); do
  grep -q 'dye.csv opened' "$log" 2>/dev/null && break
  kill -0 $kelmora 2>/dev/null || break
  sleep 0.1
done
grep -q 'dye.csv opened' "$log" 2>/dev/null || { fail "kelmora did not open a sample"; cat "$log" "$work/kelmora.out"; }
kill $kelmora 2>/dev/null
wait $kelmora 2>/dev/null
for left in /proc/[0-9]*; do
  [ "$(readlink "$left/exe")" != "$prefix/bin/kelmora" ] || fail "process ${left#/proc/} still runs"
done

# what it is said to be
[ -s "$share/kelmora/docs/guide/README.md" ] || fail "no guide"
for place in "man/man1/zarnu.1:zarnu $version" "man/man1/kelmora.1:kelmora $version" \
  "metainfo/kelmora.metainfo.xml:version=\"$version\""; do
  grep -q "${place#*:}" "$share/${place%%:*}" || fail "${place%%:*} is not of version $version"
done
declared=$(sed -n 's/.*<mime-type type="\([^"]*\)".*/\1/p' "$share/mime/packages/kelmora.xml")
for type in $(sed -n 's/^MimeType=//p' "$share/applications/kelmora.desktop" | tr ';' ' '); do
  [ "$type" = text/csv ] && continue
  grep -qx "$type" <<<"$declared" || fail "kelmora.desktop opens $type, which is no type of kelmora.xml"
  grep -q "<mediatype>$type<" "$share/metainfo/kelmora.metainfo.xml" || fail "the metadata do not name $type"
done
icons=$share/icons/hicolor
for icon in apps/kelmora $(sed -n 's/.*<icon name="\([^"]*\)".*/mimetypes\/\1/p' "$share/mime/packages/kelmora.xml"); do
  for side in 16 24 32 48 64 128 256 512; do
    [ -s "$icons/${side}x$side/$icon.png" ] || fail "no icon $icon of $side pixels"
  done
  [ -s "$icons/scalable/$icon.svg" ] || fail "no drawing $icon"
done
if has xmllint; then
  expect "well-formed XML" xmllint --noout "$share"/mime/packages/*.xml "$share"/metainfo/*.xml \
    "$icons"/scalable/*/*.svg
fi
if has desktop-file-validate; then
  expect "kelmora.desktop is valid" desktop-file-validate "$share/applications/kelmora.desktop"
fi
if has man; then
  for page in "$share"/man/man1/*.1; do
    expect "$page" clean man -l --warnings "$page"
    [ ! -s "$work/err" ] || fail "$(head -n 3 "$work/err")"
  done
fi
if has update-mime-database && has gio; then
  clean "$zarnu" convert "$samples/dye.csv" -o dye.klm 2>/dev/null
  clean "$zarnu" convert "$samples/dye.csv" --orig-units nanometers:absorbance -o dye.jdx 2>/dev/null
  mv dye.klm document && mv dye.jdx jcamp
  update-mime-database "$share/mime" >/dev/null 2>&1
  for pair in document:application/x-kelmora-document jcamp:chemical/x-jcamp-dx; do
    expect "type of a file" clean XDG_DATA_DIRS="$share" gio info -a standard::content-type "${pair%%:*}"
    grep -q "content-type: ${pair#*:}\$" "$work/out" || fail "${pair%%:*} is taken for$(tail -n 1 "$work/out")"
  done
fi

[ $failures = 0 ] && rm -rf "$work"
exit $((failures > 0))
