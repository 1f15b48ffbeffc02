#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds Stylewright with its tests and runs every
# test through CTest, three times over:
#   build/test   the normal build and the whole test suite;
#   build/asan   the same suite built with AddressSanitizer and
#                UndefinedBehaviorSanitizer (leak checking on), which must stay
#                free of reports;
#   build/fuzz   the libFuzzer harnesses built with clang, each run briefly
#                over its corpus (skipped when clang or its fuzzer runtime is
#                missing);
#   build/windows the program cross-built for Windows with its tests run
#                under Wine and its installer checked there
#                (scripts/package_windows.sh; the first run on a machine also
#                builds Qt for Windows, about 25 minutes on two cores).
#                STYLEWRIGHT_SKIP_WINDOWS=1 leaves it out.
# Every stage runs even when an earlier one failed; the exit status says
# whether all passed.
set -uo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
"$root/scripts/install_dependencies.sh" || exit 1

jobs="$(nproc)"
failed=()

stage() {
    echo
    echo "=== $1"
}

# 1. Normal build.
stage "normal build and tests (build/test)"
build="$root/build/test"
if cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DSTYLEWRIGHT_BUILD_TESTS=ON \
    && cmake --build "$build" --parallel "$jobs"; then
    ctest --test-dir "$build" --output-on-failure --parallel "$jobs" || failed+=("tests")
else
    failed+=("build")
fi

# 2. Sanitizers. -O1 keeps the instrumented suite fast enough; the window
# program and its widget tests are left out: they exercise Qt's widgets far
# more than our code and triple the build time under the sanitizers.
stage "AddressSanitizer and UndefinedBehaviorSanitizer build and tests (build/asan)"
asan="$root/build/asan"
if cmake -S "$root" -B "$asan" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g" \
        -DSTYLEWRIGHT_SANITIZE=ON -DSTYLEWRIGHT_BUILD_GUI=OFF -DSTYLEWRIGHT_BUILD_TESTS=ON \
    && cmake --build "$asan" --parallel "$jobs"; then
    ASAN_OPTIONS="detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1" \
    UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1" \
        ctest --test-dir "$asan" --output-on-failure --parallel "$jobs" || failed+=("sanitizer tests")
else
    failed+=("sanitizer build")
fi

# 3. Fuzzing, only where clang can link a libFuzzer program.
stage "libFuzzer harnesses, short runs (build/fuzz)"
probe_dir="$(mktemp -d)"
printf 'extern "C" int LLVMFuzzerTestOneInput(const unsigned char*, unsigned long) { return 0; }\n' \
    > "$probe_dir/probe.cpp"
if command -v clang++ >/dev/null 2>&1 \
    && clang++ -fsanitize=fuzzer,address,undefined "$probe_dir/probe.cpp" -o "$probe_dir/probe" 2>/dev/null; then
    fuzz="$root/build/fuzz"
    if CC=clang CXX=clang++ cmake -S "$root" -B "$fuzz" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
            -DSTYLEWRIGHT_BUILD_FUZZERS=ON -DSTYLEWRIGHT_BUILD_TESTS=OFF -DSTYLEWRIGHT_BUILD_GUI=OFF \
        && cmake --build "$fuzz" --parallel "$jobs" --target stylewright_fuzzers; then
        ctest --test-dir "$fuzz/fuzz" -L fuzz --output-on-failure --parallel "$jobs" || failed+=("fuzz runs")
    else
        failed+=("fuzz build")
    fi
else
    echo "Skipped: clang++ with the libFuzzer runtime (libclang-rt-14-dev) is not available."
fi
rm -rf "$probe_dir"

# 4. Windows, cross-built and run under Wine.
stage "Windows cross build, tests under Wine, installer (build/windows)"
if [ "${STYLEWRIGHT_SKIP_WINDOWS:-0}" = 1 ]; then
    echo "Skipped: STYLEWRIGHT_SKIP_WINDOWS=1."
else
    "$root/scripts/package_windows.sh" || failed+=("windows")
fi

echo
if [ ${#failed[@]} -ne 0 ]; then
    echo "FAILED: ${failed[*]}"
    exit 1
fi
echo "All stages passed."
