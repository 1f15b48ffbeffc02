#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds Stylewright (Release) and makes the Debian
# package build/package/stylewright_<version>_<arch>.deb.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
"$root/scripts/install_dependencies.sh"

build="$root/build/package"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DSTYLEWRIGHT_BUILD_TESTS=OFF
cmake --build "$build" --parallel "$(nproc)"
rm -f "$build"/stylewright_*.deb
(cd "$build" && cpack -G DEB)

deb="$(ls "$build"/stylewright_*.deb)"
echo
dpkg-deb --field "$deb" Package Version Depends
echo
echo "Built $deb"
echo "Install it with: sudo apt install $deb"
