#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Whole runs of stylewright-cli against a floor measured in the same run, as
# ratios (median of 5 pairs, each pair run back to back):
#   1. 1,000 presets (the corpus repeated) into separate styles, --jobs 1 and
#      --jobs N, against cp of the same files into a folder;
#   2. --inspect over the corpus's templates repeated 20 times, against lua5.4
#      loading the same files with its own parser, and exiftool -j reading the
#      corpus's XMP presets repeated 20 times against --inspect of them;
#   3. --inspect of 1,000 DNG presets against the same 1,000 presets as XMP
#      (tools/make_dng_presets wraps them), and of 20 DNG presets carrying a
#      50 MB photo against 20 carrying none;
#   4. CPU time per preset of the --jobs 1 run (user and system, median of 5,
#      the process's start included) and peak memory of the 1,000-preset run.
#
# Put the work folder in memory (WORK_ROOT=/dev/shm), so no disk state blurs
# the floor.
#
#   bench/cli_batch.sh [path/to/stylewright-cli] [corpus folder]
#   COUNT=5000 JOBS=4 bench/cli_batch.sh
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cli="${1:-$root/build/release/cli/stylewright-cli}"
make_dng="${MAKE_DNG:-$(dirname "$cli")/../tools/make_dng_presets}"
corpus="${2:-$root/../shared/corpus}"
count="${COUNT:-1000}"
jobs="${JOBS:-$(nproc)}"
pairs=5

[ -x "$cli" ] || { echo "No stylewright-cli at $cli; build it first (Release)." >&2; exit 2; }
mapfile -t presets < <(find "$corpus" -type f \( -iname '*.xmp' -o -iname '*.lrtemplate' \) | LC_ALL=C sort)
[ ${#presets[@]} -gt 0 ] || { echo "No presets in $corpus" >&2; exit 2; }

work="$(mktemp -d -p "${WORK_ROOT:-${TMPDIR:-/tmp}}")"
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/in" "$work/templates" "$work/xmp"
for ((i = 0; i < count; i++)); do
    source="${presets[i % ${#presets[@]}]}"
    cp "$source" "$work/in/$(printf '%05d' "$i")-$(basename "$source")"
done
for ((i = 0; i < 20; i++)); do
    for source in "$corpus"/lrtemplate/*.lrtemplate; do
        cp "$source" "$work/templates/$i-$(basename "$source")"
    done
    for source in "$corpus"/xmp/*.xmp; do
        cp "$source" "$work/xmp/$i-$(basename "$source")"
    done
done

seconds() { # seconds of wall time of a command, output thrown away
    local start end
    start=$(date +%s.%N)
    "$@" > /dev/null 2>&1 || true
    end=$(date +%s.%N)
    awk -v a="$start" -v b="$end" 'BEGIN { printf "%.4f", b - a }'
}
median() { sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

# ratio NAME FLOOR-COMMAND... -- COMMAND...: median of the pairs' ratios.
ratio() {
    local name="$1"; shift
    local floor=() command=()
    while [ "$1" != "--" ]; do floor+=("$1"); shift; done
    shift; command=("$@")
    local ratios=() i f c
    for ((i = 0; i < pairs; i++)); do
        rm -rf "$work/out" "$work/copy"; mkdir -p "$work/out" "$work/copy"
        f=$(seconds "${floor[@]}")
        c=$(seconds "${command[@]}")
        ratios+=("$(awk -v f="$f" -v c="$c" 'BEGIN { printf "%.3f %.3f %.3f", c / f, c, f }')")
    done
    printf '%s\n' "${ratios[@]}" | sort -g | awk -v n="$name" 'NR == 3 { printf "%-34s %6.2fx  (%.3f s against %.3f s)\n", n, $1, $2, $3 }'
}

copy_floor=(cp -r "$work/in" "$work/copy/in")
ratio "separate styles, --jobs 1 / cp" "${copy_floor[@]}" -- "$cli" -q --jobs 1 -o "$work/out" "$work/in"
ratio "separate styles, --jobs $jobs / cp" "${copy_floor[@]}" -- "$cli" -q --jobs "$jobs" -o "$work/out" "$work/in"
if command -v lua5.4 > /dev/null; then
    # Every template loaded and run; the few that are no Lua (print and web
    # templates, an AppleDouble file) fail in Lua too and are passed over.
    lua_floor=(lua5.4 -e "for _, f in ipairs(arg) do local chunk = loadfile(f); if chunk then pcall(chunk) end end" "$work"/templates/*)
    ratio "--inspect, --jobs 1 / lua5.4" "${lua_floor[@]}" -- "$cli" -q --jobs 1 --inspect "$work/templates"
    ratio "--inspect, --jobs $jobs / lua5.4" "${lua_floor[@]}" -- "$cli" -q --jobs "$jobs" --inspect "$work/templates"
else
    echo "lua5.4 missing: no --inspect ratio"
fi
if command -v exiftool > /dev/null; then
    # Read the other way round: exiftool is the slower one, the aim is its share.
    ratio "exiftool -j / --inspect of XMP presets" "$cli" -q --jobs 1 --inspect "$work/xmp" -- exiftool -j "$work/xmp"
fi
if [ -x "$make_dng" ]; then
    mapfile -t xmp_presets < <(find "$corpus" -type f -iname '*.xmp' | LC_ALL=C sort)
    mkdir -p "$work/xmp1000" "$work/small" "$work/photos"
    for ((i = 0; i < count; i++)); do
        source="${xmp_presets[i % ${#xmp_presets[@]}]}"
        cp "$source" "$work/xmp1000/$(printf '%05d' "$i")-$(basename "$source")"
    done
    "$make_dng" "$work/dng1000" "$work/xmp1000"/*.xmp
    "$make_dng" "$work/small" "${xmp_presets[@]:0:20}"
    "$make_dng" --photo $((50 * 1024 * 1024)) "$work/photos" "${xmp_presets[@]:0:20}"
    ratio "--inspect, DNG / XMP presets" "$cli" -q --inspect "$work/xmp1000" -- "$cli" -q --inspect "$work/dng1000"
    ratio "--inspect, 50 MB / bare DNG presets" "$cli" -q --inspect "$work/small" -- "$cli" -q --inspect "$work/photos"
else
    echo "make_dng_presets missing (build tools/): no DNG ratios"
fi
cpu=()
for ((i = 0; i < pairs; i++)); do
    rm -rf "$work/out"; mkdir -p "$work/out"
    /usr/bin/time -f "%U %S" -o "$work/cpu" "$cli" -q --jobs 1 -o "$work/out" "$work/in" > /dev/null 2>&1 || true
    cpu+=("$(tail -n 1 "$work/cpu" | awk -v n="$count" '{ printf "%.1f", ($1 + $2) * 1e6 / n }')")
done
echo "CPU per preset, --jobs 1:            $(printf '%s\n' "${cpu[@]}" | median) µs"
rm -rf "$work/out"; mkdir -p "$work/out"
/usr/bin/time -f "%M" -o "$work/peak" "$cli" -q -o "$work/out" "$work/in" 2> /dev/null || true
echo "peak memory, $count presets:          $(tail -n 1 "$work/peak" | awk '{ printf "%.1f MB", $1 / 1024 }')"
