#!/bin/sh
# Draws docs/gallery anew: scripts/gallery.sh [NAME], NAME the beginning of a picture's name.
set -e
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target gallery
build/release/bin/gallery docs/gallery "$@"
