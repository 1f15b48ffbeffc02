#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# test_deb_package.sh MODE BUILD_DIR DATA_DIR CORPUS_DIR CLI_BINARY [GUI_BINARY]
#
# Builds the Debian package from BUILD_DIR with CPack, checks its control
# fields and contents, installs it and runs the installed programs: the
# converter's version, a conversion of the packaged test preset (and of one
# preset of the corpus when it is there), the man page, the desktop file and,
# with the window program, a start of the window under Xvfb.
#
# MODE scratch: unpack with dpkg-deb -x into a temporary root; changes nothing
#               on the machine and needs no root.
# MODE system:  dpkg -i into the machine and dpkg -r afterwards; needs root.
#
# CLI_BINARY / GUI_BINARY are the programs of the build (empty when the build
# has no such program). Exit 77 (skipped) when a tool or program is missing.
set -euo pipefail

mode="$1"
build_dir="$2"
data_dir="$3"
corpus_dir="$4"
cli_binary="$5"
gui_binary="${6:-}"
skip_code=77
version="1.0.8"

skip() { echo "SKIP: $*"; exit "$skip_code"; }
fail() { echo "FAIL: $*"; exit 1; }

for tool in cpack dpkg-deb; do
    command -v "$tool" >/dev/null 2>&1 || skip "$tool is not installed"
done
[ -n "$cli_binary" ] || skip "stylewright-cli is not part of this build"
[ -x "$cli_binary" ] || skip "stylewright-cli is not built ($cli_binary)"
if [ -n "$gui_binary" ] && [ ! -x "$gui_binary" ]; then
    skip "stylewright is not built ($gui_binary)"
fi
case "$mode" in
scratch) ;;
system)
    [ "$(id -u)" -eq 0 ] || skip "installing with dpkg -i needs root"
    command -v dpkg >/dev/null 2>&1 || skip "dpkg is not installed"
    if dpkg-query -W -f='${Status}' stylewright 2>/dev/null | grep -q "install ok installed"; then
        skip "a stylewright package is already installed; leaving it alone"
    fi
    ;;
*) fail "unknown mode $mode" ;;
esac

work="$(mktemp -d)"
installed_into_system=0
cleanup() {
    if [ "$installed_into_system" = 1 ]; then
        dpkg -r stylewright >/dev/null || echo "warning: dpkg -r stylewright failed"
    fi
    rm -rf "$work"
}
trap cleanup EXIT

# The programs must not see the settings or folders of whoever runs the test.
export HOME="$work/home"
export XDG_CONFIG_HOME="$HOME/.config" XDG_DATA_HOME="$HOME/.local/share"
export XDG_CACHE_HOME="$HOME/.cache" XDG_RUNTIME_DIR="$work/runtime"
mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME"
mkdir -m 700 "$XDG_RUNTIME_DIR"

# ------------------------------------------------------------ the package
echo "== building the package"
cpack --config "$build_dir/CPackConfig.cmake" -G DEB -B "$work/cpack" >"$work/cpack.log" 2>&1 \
    || { cat "$work/cpack.log"; fail "cpack could not build the package"; }
deb="$(find "$work/cpack" -maxdepth 1 -name 'stylewright_*.deb' | head -n 1)"
[ -n "$deb" ] || { cat "$work/cpack.log"; fail "cpack made no stylewright_*.deb"; }
echo "package: $(basename "$deb")"
[ "$(basename "$deb")" = "stylewright_${version}_$(dpkg-deb -f "$deb" Architecture).deb" ] \
    || fail "unexpected package file name $(basename "$deb")"

echo "== control fields"
dpkg-deb -f "$deb"
expect_field() {
    local actual
    actual="$(dpkg-deb -f "$deb" "$1")"
    [ "$actual" = "$2" ] || fail "field $1 is '$actual', expected '$2'"
}
expect_field Package stylewright
expect_field Version "$version"
expect_field Maintainer "Quillmark <support@quillmark.example>"
expect_field Homepage "https://quillmark.example"
expect_field Section graphics
depends="$(dpkg-deb -f "$deb" Depends)"
# Package names as extended regular expressions: Ubuntu 24.04 renamed the Qt
# and libzip libraries for its 64-bit time_t (libqt5core5t64, libzip4t64).
expected_depends=('libc6' 'libstdc\+\+6' 'libqt5core5(a|t64)' 'libzip4(t64)?')
if [ -n "$gui_binary" ]; then
    expected_depends+=('libqt5widgets5(t64)?')
fi
for package in "${expected_depends[@]}"; do
    # Every dependency comes from dpkg-shlibdeps with a minimum version.
    grep -Eq "(^|, )${package} \(>= [^)]+\)" <<<"$depends" \
        || fail "Depends lacks a versioned $package: $depends"
done
# Qt's own dialogs speak the program's languages.
grep -Eq "(^|, )qttranslations5-l10n(,|$)" <<<"$depends" || fail "Depends lacks qttranslations5-l10n: $depends"

echo "== contents"
dpkg-deb -c "$deb" | awk '{print $6}' | sed 's|^\./|/|' | sort >"$work/contents"
expected_files=(/usr/bin/stylewright-cli /usr/share/man/man1/stylewright-cli.1.gz /usr/share/doc/stylewright/copyright)
if [ -n "$gui_binary" ]; then
    expected_files+=(
        /usr/bin/stylewright
        /usr/share/man/man1/stylewright.1.gz
        /usr/share/applications/stylewright.desktop
        /usr/share/metainfo/example.quillmark.stylewright.metainfo.xml
        /usr/share/mime/packages/stylewright.xml
        /usr/share/icons/hicolor/scalable/apps/stylewright.svg)
    for size in 16 24 32 48 64 128 256 512; do
        expected_files+=("/usr/share/icons/hicolor/${size}x${size}/apps/stylewright.png")
    done
fi
for file in "${expected_files[@]}"; do
    grep -qxF "$file" "$work/contents" || fail "the package lacks $file"
done
# Nothing but the programs and their desktop files: no headers, static
# libraries or files outside /usr from other install rules.
stray="$(grep -v -E '^/$|^/usr/$|^/usr/(bin|share)/' "$work/contents" || true)"
[ -z "$stray" ] || fail "unexpected files in the package:
$stray"
grep -E '\.(a|h|cmake)$' "$work/contents" && fail "development files in the package"

# ------------------------------------------------------------- install it
if [ "$mode" = scratch ]; then
    root="$work/root"
    echo "== unpacking into $root"
    dpkg-deb -x "$deb" "$root"
else
    root=""
    echo "== dpkg -i"
    installed_into_system=1
    dpkg -i "$deb"
fi
cli="$root/usr/bin/stylewright-cli"

echo "== libraries"
for program in "$cli" ${gui_binary:+"$root/usr/bin/stylewright"}; do
    missing="$(ldd "$program" | grep 'not found' || true)"
    [ -z "$missing" ] || fail "$program misses libraries: $missing"
done

echo "== stylewright-cli --version"
out="$("$cli" --version)"
echo "$out"
[ "$out" = "Stylewright $version" ] || fail "--version printed '$out'"

echo "== converting presets"
presets=("$data_dir/packaging_check.lrtemplate")
corpus_preset="$corpus_dir/lrtemplate/d5-post-soft-vignette-only.lrtemplate"
if [ -f "$corpus_preset" ]; then
    presets+=("$corpus_preset")
else
    echo "(corpus preset absent: converting the packaged test preset only)"
fi
"$cli" -o "$work/styles" "${presets[@]}" || fail "stylewright-cli failed to convert"
for preset in "${presets[@]}"; do
    name="$(basename "$preset")"
    style="$work/styles/${name%.*}.costyle"
    [ -s "$style" ] || fail "no style written for $name"
    if command -v xmllint >/dev/null 2>&1; then
        xmllint --noout "$style" || fail "$style is not well-formed XML"
    fi
    echo "$name -> $(basename "$style") ($(wc -c <"$style") bytes)"
done

echo "== man page"
if command -v man >/dev/null 2>&1; then
    if [ "$mode" = system ]; then
        page="$(MANWIDTH=80 man stylewright-cli 2>&1)"
    else
        page="$(MANWIDTH=80 man -l "$root/usr/share/man/man1/stylewright-cli.1.gz" 2>&1)"
    fi
    grep -q 'stylewright-cli - convert Lightroom presets' <<<"$page" \
        || fail "the installed man page does not render: $page"
    echo "renders"
else
    echo "(man is not installed)"
fi

if [ -n "$gui_binary" ]; then
    echo "== desktop entry"
    if command -v desktop-file-validate >/dev/null 2>&1; then
        desktop-file-validate "$root/usr/share/applications/stylewright.desktop"
        echo "valid"
    fi
    grep -qx 'Icon=stylewright' "$root/usr/share/applications/stylewright.desktop" \
        || fail "the desktop entry does not name the stylewright icon"
    if [ "$mode" = scratch ] && command -v appstreamcli >/dev/null 2>&1; then
        # The metainfo together with the desktop entry and icons it refers to.
        appstreamcli validate-tree --no-net --strict --override=cid-maybe-not-rdns=pedantic "$root" \
            || fail "appstreamcli rejects the installed tree"
    fi

    echo "== starting the window under Xvfb"
    if command -v xvfb-run >/dev/null 2>&1; then
        # The window has to come up on a real X server from the installed
        # path and still be running after a few seconds.
        QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x800x24" \
            sh -c '"$1" >"$2" 2>&1 & pid=$!
                   sleep 3
                   if kill -0 "$pid" 2>/dev/null; then kill "$pid"; wait "$pid" 2>/dev/null || true; exit 0; fi
                   wait "$pid"; echo "the window ended early with status $?"; exit 1' \
            sh "$root/usr/bin/stylewright" "$work/window.log" \
            || { cat "$work/window.log"; fail "the installed window program did not stay up"; }
        if grep -q 'Could not load the Qt platform plugin' "$work/window.log"; then
            cat "$work/window.log"
            fail "the installed window program found no platform plugin"
        fi
        echo "the window ran for 3 s"
    else
        echo "(xvfb-run is not installed)"
    fi
fi

echo "PASS: the $mode installation of $(basename "$deb") works"
