#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds Stylewright (Release) and starts the window.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
"$root/scripts/install_dependencies.sh"

build="$root/build/release"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DSTYLEWRIGHT_BUILD_TESTS=OFF
cmake --build "$build" --parallel "$(nproc)"

if [ -x "$build/application/stylewright" ]; then
    exec "$build/application/stylewright" "$@"
fi
echo "Built the command-line converter: $build/cli/stylewright-cli (the window is not part of this build yet)."
