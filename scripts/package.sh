#!/usr/bin/env bash
# Builds a release of the programs and packs it as a Debian package. The name in it of who answers for it is a setting of
# the build: cmake --preset release -DKELMORA_MAINTAINER='Name <address>'.
set -u
. "$(dirname "$0")/setup.sh"

need "${build_packages[@]}" "${package_packages[@]}"
build release kelmora zarnu YrexPlugin
cd build/release || exit 1
quietly package cpack
deb=$(sed -n 's/.*package: \(.*\) generated\.$/\1/p' "$logs/package.log")
say "Package: ${deb#"$root"/}"
say "Install it with: apt install ./${deb#"$root"/}"
