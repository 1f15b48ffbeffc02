#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds (or reuses) the Windows cross toolchain,
# cross-builds Stylewright in build/windows, runs its tests under Wine and
# leaves the installer build/windows/Stylewright-<version>-win64.exe.
#
#   ./scripts/package_windows.sh            everything
#   ./scripts/package_windows.sh --no-tests the installer only
#
# The first run builds Qt from Debian's source, about 25 minutes on two cores;
# later runs reuse it from ~/.cache/stylewright/mingw-w64.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
run_tests=1
[ "${1:-}" != "--no-tests" ] || run_tests=0
# shellcheck source=windows/toolchain.conf
source "$root/scripts/windows/toolchain.conf"

"$root/scripts/install_dependencies.sh"
"$root/scripts/windows/build_toolchain.sh"

build="$root/build/windows"
# The Linux converter of ./scripts/test.sh, when built, holds the Windows
# styles of the move from Lightroom to its own.
host_cli="$root/build/test/cli/stylewright-cli"
[ -x "$host_cli" ] || host_cli=""
cmake -S "$root" -B "$build" --toolchain "$root/cmake/mingw_w64_toolchain.cmake" \
    -DSTYLEWRIGHT_MINGW_PREFIX="$mingw_prefix" -DCMAKE_BUILD_TYPE=Release -DSTYLEWRIGHT_BUILD_TESTS=ON \
    -DSTYLEWRIGHT_HOST_CLI="$host_cli"
cmake --build "$build" --parallel "$(nproc)"

status=0
if [ "$run_tests" = 1 ]; then
    ctest --test-dir "$build" --output-on-failure --parallel "$(nproc)" || status=1
fi

rm -f "$build"/Stylewright-*-win64.exe
(cd "$build" && cpack -G NSIS >/dev/null)
installer="$(ls "$build"/Stylewright-*-win64.exe)"
echo
echo "Built $installer"
exit "$status"
