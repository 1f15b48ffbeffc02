#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the Debian 12 packages that cross-build Stylewright for Windows,
# run its tests under Wine and make its installer. Only missing packages are
# installed.
set -euo pipefail

packages=(
    # the cross compilers and Windows' zlib
    g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
    libz-mingw-w64-dev
    # building Qt, libzip and GoogleTest from Debian's source packages
    dpkg-dev make cmake perl python3 pkg-config ca-certificates
    # running Windows programs, also without a screen
    wine wine64 xvfb xauth x11-utils
    # the installer
    nsis
    # host tools the cross build uses: moc comes with Qt, the rest from here
    qttools5-dev-tools qttranslations5-l10n fonts-freefont-ttf librsvg2-bin icoutils
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
    sudo_cmd=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
