#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Prints the tests' share of the code: lines of everything under tests/ except
# data files, against the .cpp/.h/.mm files outside tests/, bench/, fuzz/ and
# tools/. We keep it between a quarter and a third.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
code=$(git ls-files '*.cpp' '*.h' '*.mm' | grep -v -E '^(tests|bench|fuzz|tools)/' | xargs cat | wc -l)
tests=$(git ls-files tests | grep -v '/data/' | xargs cat | wc -l)
echo "tests: $tests lines, code: $code lines, share: $((100 * tests / code))%"
