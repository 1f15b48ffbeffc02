#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the Debian 12 packages needed to build, run and test Stylewright.
# Safe to run again: only missing packages are installed.
set -euo pipefail

packages=(
    # build
    cmake g++ make pkg-config
    qtbase5-dev qttools5-dev-tools qttools5-dev libqt5svg5-dev qttranslations5-l10n
    libzip-dev zlib1g-dev libtiff-dev
    # resources: fonts embedded at build time, icons rendered from SVG
    fonts-freefont-ttf librsvg2-bin
    # tests and benchmarks
    libgtest-dev libgmock-dev libbenchmark-dev
    xvfb xauth libxml2-utils zip unzip
    liblcms2-dev lua5.4 libimage-exiftool-perl
    time  # /usr/bin/time -v for bench/cli_batch.sh
    clang libclang-rt-14-dev
    # packaging and its checks (file: CPack finds the programs for dpkg-shlibdeps)
    desktop-file-utils appstream dpkg-dev man-db help2man file shared-mime-info
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -eq 0 ]; then
    echo "All build and test packages are installed."
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
