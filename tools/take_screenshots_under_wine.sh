#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Pictures of the Windows build's windows as Wine draws them (Windows'
# platform plugin, Windows' fonts), in English and German, at 1x and 2x:
#   tools/take_screenshots_under_wine.sh <folder> [build folder]
# The build folder (default build/windows) is a cross build with its tests,
# as scripts/package_windows.sh leaves it.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
folder="$(mkdir -p "$1" && cd "$1" && pwd)"
build="${2:-$root/build/windows}"
# shellcheck source=../scripts/windows/toolchain.conf
source "$root/scripts/windows/toolchain.conf"
tool="$build/tools/take_screenshots.exe"
[ -f "$tool" ] || { echo "no $tool: build the Windows tests first" >&2; exit 1; }
for scale in 1 2; do
    mkdir -p "$folder/${scale}x"
    for language in en de; do
        # A fresh Wine server, so the windows go to this X server.
        wineserver -k 2>/dev/null || true
        STYLEWRIGHT_QPA_PLATFORM=windows STYLEWRIGHT_TEST_SCALE_FACTOR=$scale \
            xvfb-run -a -s "-screen 0 2600x1800x24" \
            "$root/scripts/windows/wine_run.sh" "--prefix=$mingw_prefix" "$tool" "Z:${folder//\//\\}\\${scale}x" "$language" \
            >/dev/null 2>&1 || echo "take_screenshots $language at ${scale}x failed" >&2
    done
done
ls "$folder"/*x
