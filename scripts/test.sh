#!/usr/bin/env bash
# Installs what is missing, builds Stylewright with its tests and runs every
# test through CTest.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
"$root/scripts/install_dependencies.sh"

jobs="$(nproc)"
build="$root/build/test"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DSTYLEWRIGHT_BUILD_TESTS=ON
cmake --build "$build" --parallel "$jobs"
ctest --test-dir "$build" --output-on-failure --parallel "$jobs"
