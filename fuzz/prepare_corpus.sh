#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Gathers the start inputs of every fuzz harness into working corpus folders
# in the build tree: the shared preset corpus, the shipped colour tables, the
# small hand-written inputs in fuzz/inputs and every input that once made a
# harness fail (kept as regression tests). Files already there are kept, so
# what libFuzzer has found in earlier runs stays.
# The style-writer harness takes records, not files: make_writer_inputs turns
# the presets into its input form.
# Usage: prepare_corpus.sh SOURCE_DIR PRESET_CORPUS_DIR WORK_DIR MAKE_WRITER_INPUTS
set -euo pipefail
source_dir="$1"
preset_corpus="$2"
work="$3"
make_writer_inputs="$4"

copy_into() {
    local harness="$1"; shift
    mkdir -p "$work/$harness"
    local f
    for f in "$@"; do
        [ -f "$f" ] && cp -n "$f" "$work/$harness/" || true
    done
}

shopt -s nullglob
findings="$source_dir/tests/fuzz/findings"
copy_into regular_template "$preset_corpus"/lrtemplate/* "$findings"/regular_template/*
copy_into dot_notation "$source_dir"/fuzz/inputs/dot_notation/* "$findings"/dot_notation/*
copy_into xmp "$preset_corpus"/xmp/* "$findings"/xmp/*
copy_into dng "$source_dir"/fuzz/inputs/dng/* "$findings"/dng/*
copy_into 3dl "$source_dir"/resources/data/*.3dl "$source_dir"/fuzz/inputs/3dl/* "$findings"/3dl/*
copy_into costyle_writer "$source_dir"/fuzz/inputs/costyle_writer/* "$findings"/costyle_writer/*
copy_into preset_archive "$findings"/preset_archive/*
# Archives start from a few real presets, zipped with and without folders.
if command -v zip >/dev/null 2>&1 && [ -d "$preset_corpus/xmp" ]; then
    (cd "$preset_corpus" && zip -q -r "$work/preset_archive/two_folders.zip" lrtemplate/d5-wedding* xmp/vtd-* 2>/dev/null || true)
fi
presets=("$preset_corpus"/lrtemplate/* "$preset_corpus"/xmp/*)
if [ ${#presets[@]} -gt 0 ]; then
    "$make_writer_inputs" "$work/costyle_writer" "${presets[@]}"
fi
