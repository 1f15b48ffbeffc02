#!/usr/bin/env bash
# Converts 1,000 presets with one stylewright-cli call and reports the wall time
# and the peak memory. The presets are the corpus of real presets repeated into a
# temporary folder under numbered names. Aims (Release build): under 2 s and
# under 60 MB. Exit status 0 when both aims are met, 1 when not, 2 on a setup error.
#
#   bench/cli_batch.sh [path/to/stylewright-cli] [corpus folder]
#   COUNT=5000 bench/cli_batch.sh      # another batch size
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cli="${1:-$root/build/release/cli/stylewright-cli}"
corpus="${2:-$root/../shared/corpus}"
count="${COUNT:-1000}"
max_seconds="${MAX_SECONDS:-2}"
max_megabytes="${MAX_MEGABYTES:-60}"

if [ ! -x "$cli" ]; then
    echo "No stylewright-cli at $cli; build it first (Release):" >&2
    echo "  cmake -S . -B build/release -DCMAKE_BUILD_TYPE=Release && cmake --build build/release --target stylewright-cli" >&2
    exit 2
fi
if [ ! -x /usr/bin/time ]; then
    echo "/usr/bin/time is missing; run scripts/install_dependencies.sh" >&2
    exit 2
fi

mapfile -t presets < <(find "$corpus" -type f \( -iname '*.xmp' -o -iname '*.lrtemplate' \) | LC_ALL=C sort)
if [ ${#presets[@]} -eq 0 ]; then
    echo "No presets in $corpus" >&2
    exit 2
fi

# WORK_ROOT=/dev/shm keeps the sync cost of the disk out of the figure.
work="$(mktemp -d -p "${WORK_ROOT:-${TMPDIR:-/tmp}}")"
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/in" "$work/out"
for ((i = 0; i < count; i++)); do
    source="${presets[i % ${#presets[@]}]}"
    cp "$source" "$work/in/$(printf '%05d' "$i")-$(basename "$source")"
done

# Exit status 1 is expected: the corpus holds templates the reader rejects.
set +e
/usr/bin/time -v -o "$work/time.txt" "$cli" -q -o "$work/out" "$work/in" 2> "$work/errors.txt"
status=$?
set -e
if [ "$status" -gt 1 ]; then
    echo "stylewright-cli ended with status $status:" >&2
    cat "$work/errors.txt" >&2
    exit 2
fi

wall="$(sed -n 's/.*Elapsed (wall clock) time (h:mm:ss or m:ss): //p' "$work/time.txt")"
seconds="$(echo "$wall" | awk -F: '{ s = 0; for (i = 1; i <= NF; i++) s = s * 60 + $i; printf "%.3f", s }')"
kilobytes="$(sed -n 's/.*Maximum resident set size (kbytes): //p' "$work/time.txt")"
megabytes="$(awk -v kb="$kilobytes" 'BEGIN { printf "%.1f", kb / 1024 }')"
user_seconds="$(sed -n 's/.*User time (seconds): //p' "$work/time.txt")"
system_seconds="$(sed -n 's/.*System time (seconds): //p' "$work/time.txt")"
styles="$(find "$work/out" -name '*.costyle' | wc -l)"
failures="$(grep -c '^Error: ' "$work/errors.txt" || true)"

echo "presets:     $count ($styles styles written, $failures presets rejected)"
echo "wall time:   $seconds s (aim: under $max_seconds s); processor time $user_seconds s user + $system_seconds s system"
echo "peak memory: $megabytes MB (aim: under $max_megabytes MB)"

awk -v s="$seconds" -v m="$megabytes" -v ms="$max_seconds" -v mm="$max_megabytes" \
    'BEGIN { exit !(s < ms && m < mm) }'
