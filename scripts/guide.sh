#!/bin/sh
# Draws the pictures of docs/guide and its table of keys anew, from the program: scripts/guide.sh [PICTURE...].
set -e
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target guidepictures
build/release/bin/guidepictures docs/guide "$@"
