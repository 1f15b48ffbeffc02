#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# test_deb_package.sh MODE BUILD_DIR DATA_DIR CORPUS_DIR CLI_BINARY [GUI_BINARY]
# Builds the Debian package with CPack and checks it as installed: its control
# fields and file list against data/, its libraries, the converter at work, the
# man pages, desktop entry, AppStream data and MIME types through the desktop's
# own validators, and the window starting under Xvfb.
# MODE scratch unpacks into a temporary root (no root needed, nothing changes);
# MODE system installs with dpkg -i and removes it again (root only).
# Exits 77 (skipped) when a tool or program is missing.
set -euo pipefail
mode="$1" build_dir="$2" data_dir="$3" corpus_dir="$4" cli_binary="$5" gui_binary="${6:-}"
skip() { echo "SKIP: $*"; exit 77; }
fail() { echo "FAIL: $*"; exit 1; }
have() { command -v "$1" >/dev/null 2>&1; }

for tool in cpack dpkg-deb; do have "$tool" || skip "$tool is not installed"; done
[ -x "$cli_binary" ] || skip "stylewright-cli is not built"
[ -z "$gui_binary" ] || [ -x "$gui_binary" ] || skip "stylewright is not built"
if [ "$mode" = system ]; then
    [ "$(id -u)" -eq 0 ] || skip "dpkg -i needs root"
    ! dpkg-query -W -f='${Status}' stylewright 2>/dev/null | grep -q "ok installed" || skip "stylewright is installed already"
fi
work="$(mktemp -d)"
installed=0
trap '[ "$installed" = 0 ] || dpkg -r stylewright >/dev/null; rm -rf "$work"' EXIT
# The programs must not see the settings of whoever runs the test.
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_RUNTIME_DIR="$work/runtime"
mkdir -p "$XDG_CONFIG_HOME" && mkdir -m 700 "$XDG_RUNTIME_DIR"

cpack --config "$build_dir/CPackConfig.cmake" -G DEB -B "$work/cpack" >"$work/cpack.log" 2>&1 \
    || { cat "$work/cpack.log"; fail "cpack could not build the package"; }
deb="$(find "$work/cpack" -maxdepth 1 -name 'stylewright_*.deb' | head -n 1)"
[ "$(basename "$deb")" = "stylewright_1.0.8_$(dpkg-deb -f "$deb" Architecture).deb" ] || fail "package name: $deb"

# Fixed fields as recorded; the dependencies come from dpkg-shlibdeps, each
# with a minimum version (Ubuntu 24.04 names some libraries ...t64), and Qt's
# own translations.
dpkg-deb -f "$deb" Package Version Maintainer Homepage Section Description | diff -u "$data_dir/control" - \
    || fail "control fields differ"
depends="$(dpkg-deb -f "$deb" Depends)"
for package in 'libc6' 'libstdc\+\+6' 'libqt5core5(a|t64)' 'libzip4(t64)?' 'libtiff6' ${gui_binary:+'libqt5widgets5(t64)?'}; do
    grep -Eq "(^|, )${package} \(>= [^)]+\)" <<<"$depends" || fail "Depends lacks a versioned $package: $depends"
done
grep -Eq "(^|, )qttranslations5-l10n(,|$)" <<<"$depends" || fail "Depends lacks qttranslations5-l10n: $depends"
# Every file, and nothing else (no headers, libraries or files outside /usr).
dpkg-deb -c "$deb" | awk '{print $6}' | sed 's|^\./|/|' | grep -v '/$' | sort >"$work/contents"
expected="$data_dir/contents"
[ -n "$gui_binary" ] || { grep -E 'bin/stylewright-cli|stylewright-cli.1|copyright' "$data_dir/contents" >"$work/expected"; expected="$work/expected"; }
diff -u "$expected" "$work/contents" || fail "the package's files differ"

if [ "$mode" = scratch ]; then root="$work/root"; dpkg-deb -x "$deb" "$root"; else root=""; installed=1; dpkg -i "$deb"; fi
cli="$root/usr/bin/stylewright-cli"
for program in "$cli" ${gui_binary:+"$root/usr/bin/stylewright"}; do
    ! ldd "$program" | grep 'not found' || fail "$program misses libraries"
done
[ "$("$cli" --version)" = "Stylewright 1.0.8" ] || fail "--version"
presets=("$data_dir/packaging_check.lrtemplate")
[ ! -f "$corpus_dir/lrtemplate/d5-post-soft-vignette-only.lrtemplate" ] \
    || presets+=("$corpus_dir/lrtemplate/d5-post-soft-vignette-only.lrtemplate")
"$cli" -q -o "$work/styles" "${presets[@]}" || fail "stylewright-cli failed to convert"
for preset in "${presets[@]}"; do
    style="$work/styles/$(basename "${preset%.*}").costyle"
    [ -s "$style" ] || fail "no style for $preset"
    ! have xmllint || xmllint --noout "$style" || fail "$style is not well-formed"
done

# The validators print hints without failing: any output is a fault.
if have man && have mandb; then
    for page in "$root"/usr/share/man/man1/stylewright*.1.gz; do
        out="$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings=w -l "$page" 2>&1 >"$work/page")"
        [ -z "$out" ] && grep -q "^NAME" "$work/page" || fail "$page: $out"
    done
fi
[ -n "$gui_binary" ] || { echo "PASS (converter only)"; exit 0; }
if have desktop-file-validate; then
    out="$(desktop-file-validate "$root/usr/share/applications/stylewright.desktop" 2>&1)"; [ -z "$out" ] || fail "$out"
fi
if [ "$mode" = scratch ] && have appstreamcli; then
    # No network; the validator does not know the reserved domain .example.
    appstreamcli validate-tree --no-net --strict --override=cid-maybe-not-rdns=pedantic "$root" || fail "appstreamcli"
fi
if have update-mime-database; then
    # A private database of the system's types plus ours must map both suffixes.
    mkdir -p "$work/share/mime/packages"
    cp /usr/share/mime/packages/freedesktop.org.xml "$root/usr/share/mime/packages/stylewright.xml" "$work/share/mime/packages/" 2>/dev/null || true
    out="$(XDG_DATA_DIRS="$work/share" update-mime-database "$work/share/mime" 2>&1)"; [ -z "$out" ] || fail "$out"
    for glob in "application/x-lightroom-template:*.lrtemplate" "application/rdf+xml:*.xmp"; do
        grep -qxF "$glob" "$work/share/mime/globs" || fail "MIME database lacks $glob"
    done
fi
if have xvfb-run; then
    # The window comes up on a real X server from the installed path and stays.
    QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x800x24" sh -c '"$1" >"$2" 2>&1 & pid=$!; sleep 3
        kill -0 "$pid" 2>/dev/null && kill "$pid" && exit 0; exit 1' sh "$root/usr/bin/stylewright" "$work/window.log" \
        || { cat "$work/window.log"; fail "the window did not stay up"; }
    ! grep -q 'Could not load the Qt platform plugin' "$work/window.log" || fail "no platform plugin"
fi
echo "PASS: the $mode installation of $(basename "$deb") works"
