#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs a Windows program of the cross build under Wine, as CMake's
# emulator: the test programs, gtest's test discovery, the installer checks.
#
#   wine_run.sh --prefix=<toolchain prefix> <program.exe> [arguments...]
#
# Wine finds the DLLs of Qt, libzip, libtiff, zlib and the MinGW runtime through
# WINEPATH. Everything runs in a Wine folder of its own beside the toolchain
# (STYLEWRIGHT_WINEPREFIX to choose another), never in the user's ~/.wine, so
# the registry settings a test writes stay there.
set -euo pipefail
prefix="${1#--prefix=}"
shift
triple=x86_64-w64-mingw32
gcc_runtime="$(dirname "$("$triple-g++-posix" -print-file-name=libstdc++-6.dll)")"
export WINEPATH="Z:${prefix//\//\\}\\bin;Z:\\usr\\$triple\\lib;Z:${gcc_runtime//\//\\}"
export WINEPREFIX="${STYLEWRIGHT_WINEPREFIX:-$(dirname "$prefix")/wine}"
export WINEDEBUG="${WINEDEBUG:--all}"
# No dialog asking to install Mono or Gecko, which nothing here uses.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=}"
# Wine hands no QT_* variable to Windows programs: Qt finds its plugins and
# the offscreen platform's fonts in the toolchain, and the widget tests take
# their platform and scale factor as STYLEWRIGHT_QPA_PLATFORM and
# STYLEWRIGHT_TEST_SCALE_FACTOR.
wine="$(command -v wine64 || command -v wine)"
if [ ! -d "$WINEPREFIX" ]; then
    mkdir -p "$(dirname "$WINEPREFIX")"
    "$wine" wineboot --init >/dev/null 2>&1 || true
    wineserver -w 2>/dev/null || true
fi
exec "$wine" "$@"
