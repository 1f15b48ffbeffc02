#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# validate.sh KIND FILE: runs the validator the desktop uses for one
# installed file. KIND is desktop, metainfo, mime or man.
# Exit 0 when the file passes, 1 when it fails, 77 (skipped) when the
# validator is not installed.
set -euo pipefail

kind="$1"
file="$2"
skip_code=77

need() {
    if ! command -v "$1" >/dev/null 2>&1; then
        echo "SKIP: $1 is not installed"
        exit "$skip_code"
    fi
}

case "$kind" in
desktop)
    need desktop-file-validate
    # The validator prints hints without failing; any line at all is a fault.
    out="$(desktop-file-validate "$file" 2>&1)" || { echo "$out"; exit 1; }
    if [ -n "$out" ]; then
        echo "$out"
        exit 1
    fi
    ;;
metainfo)
    need appstreamcli
    # --no-net: the check must not depend on the network (URLs stay unchecked).
    # --strict fails on informational issues too, except that the validator
    # does not know the reserved top-level domain .example of our identifier.
    appstreamcli validate --no-net --strict --override=cid-maybe-not-rdns=pedantic "$file"
    ;;
mime)
    need update-mime-database
    # Build a private MIME database from the system's definitions plus ours:
    # the file must be accepted and must map the two suffixes to their types.
    scratch="$(mktemp -d)"
    trap 'rm -rf "$scratch"' EXIT
    database="$scratch/mime"
    mkdir -p "$database/packages"
    if [ -f /usr/share/mime/packages/freedesktop.org.xml ]; then
        cp /usr/share/mime/packages/freedesktop.org.xml "$database/packages/"
    fi
    cp "$file" "$database/packages/stylewright.xml"
    # The scratch folder is named as a data folder so that the tool has no
    # reason to print its note about folders outside the search path.
    out="$(XDG_DATA_DIRS="$scratch" update-mime-database "$database" 2>&1)"
    if [ -n "$out" ]; then
        echo "$out"
        exit 1
    fi
    for pair in "application/x-lightroom-template:*.lrtemplate" "application/rdf+xml:*.xmp"; do
        if ! grep -qxF "$pair" "$database/globs"; then
            echo "missing glob $pair in the MIME database"
            exit 1
        fi
    done
    ;;
man)
    need man
    # -l and --warnings are man-db's (which brings mandb); the man of macOS
    # and the BSDs has neither.
    need mandb
    # --warnings=w makes groff report every bad request, macro and escape on
    # standard error.
    rendered="$(mktemp)"
    trap 'rm -f "$rendered"' EXIT
    warnings="$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings=w -l "$file" 2>&1 >"$rendered")"
    if [ -n "$warnings" ]; then
        echo "$warnings"
        exit 1
    fi
    name="$(basename "$file")"
    name="${name%%.1*}"
    if ! grep -q "^NAME" "$rendered" || ! grep -q "$name" "$rendered"; then
        echo "man did not render the page of $name:"
        cat "$rendered"
        exit 1
    fi
    ;;
*)
    echo "unknown kind: $kind"
    exit 2
    ;;
esac
echo "$kind: $(basename "$file") passes"
