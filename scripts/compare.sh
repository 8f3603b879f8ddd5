#!/usr/bin/env bash
# Installs the libraries that this program is measured against, which nothing else needs, and runs the comparison of
# the plots with them. Those written in Python stand in bench/README.md.
set -u
. "$(dirname "$0")/setup.sh"

need "${build_packages[@]}" libbenchmark-dev "${compare_packages[@]}"
build release plots_qcustomplot
exec "$root/build/release/bin/plots_qcustomplot"
