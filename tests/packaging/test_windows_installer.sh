#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# test_windows_installer.sh BUILD_DIR DATA_DIR CORPUS_DIR WINE_RUN TOOLCHAIN_PREFIX [HOST_CLI]
# Builds the NSIS installer of the cross build with CPack and checks it under
# Wine, in a Wine folder of its own: /S installs it into Program Files with
# its files, Start-menu entry and Apps & features entry; the installed
# converter writes every corpus style as recorded (UUID aside); the installed
# window program starts and stays up; the move from Lightroom finds the Wine
# user's AppData folders and puts every style into its group's folder in
# Capture One's Styles50, with the bytes the build machine's converter
# (HOST_CLI, when given) writes for the same preset, and a second run writes
# each over; /S on the uninstaller removes every
# installed file and both entries again.
# Exits 77 (skipped) when a tool is missing.
set -euo pipefail
build_dir="$1" data_dir="$2" corpus_dir="$3" wine_run="$4" toolchain_prefix="$5" host_cli="${6:-}"
skip() { echo "SKIP: $*"; exit 77; }
fail() { echo "FAIL: $*"; exit 1; }
command -v cpack >/dev/null || skip "cpack is not installed"
command -v makensis >/dev/null || skip "makensis (nsis) is not installed"
command -v wine64 >/dev/null || command -v wine >/dev/null || skip "wine is not installed"

work="$(mktemp -d)"
export STYLEWRIGHT_WINEPREFIX="$work/wine"
trap 'WINEPREFIX="$STYLEWRIGHT_WINEPREFIX" wineserver -k 2>/dev/null || true; rm -rf "$work"' EXIT
run() { "$wine_run" "--prefix=$toolchain_prefix" "$@"; }

cpack --config "$build_dir/CPackConfig.cmake" -B "$work/cpack" >"$work/cpack.log" 2>&1 \
    || { cat "$work/cpack.log"; fail "cpack could not build the installer"; }
installer="$work/cpack/Stylewright-1.0.8-win64.exe"
[ -f "$installer" ] || fail "no installer: $(ls "$work/cpack")"

run "$installer" /S || fail "the silent installation failed"
drive_c="$STYLEWRIGHT_WINEPREFIX/drive_c"
folder="$drive_c/Program Files/Stylewright"
[ -d "$folder" ] || fail "nothing in Program Files: $(ls "$drive_c/Program Files")"
(cd "$folder" && find . -type f | sed 's|^\./||' | LC_ALL=C sort) >"$work/installed"
diff -u "$data_dir/windows_files" "$work/installed" || fail "the installed files differ"
run reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Stylewright' >"$work/uninstall_entry" 2>&1 \
    || fail "no entry in Apps & features"
grep -q 'DisplayName.*Stylewright 1.0.8' "$work/uninstall_entry" || fail "Apps & features entry: $(cat "$work/uninstall_entry")"
start_menu="$drive_c/ProgramData/Microsoft/Windows/Start Menu/Programs/Stylewright"
[ -f "$start_menu/Stylewright.lnk" ] || fail "no Start-menu entry: $(ls -R "$drive_c/ProgramData/Microsoft/Windows/Start Menu" 2>&1)"

# Explorer's Properties of each program: maker, name and version.
for program in stylewright stylewright-cli; do
    properties="$(strings -el "$folder/$program.exe" | tr '\n' ' ')"
    for field in "CompanyName Quillmark" "ProductName Stylewright" "FileVersion 1.0.8" "OriginalFilename $program.exe"; do
        [[ "$properties" == *"$field"* ]] || fail "$program.exe lacks '$field' in its version resource"
    done
done

cli='C:\Program Files\Stylewright\stylewright-cli.exe'
[ "$(run "$cli" --version | tr -d '\r')" = "Stylewright 1.0.8" ] || fail "--version"
if [ -d "$corpus_dir" ]; then
    # Every corpus style for raw files, one preset at a time, against the
    # digests the Linux build recorded (the corpus record's "raw" lines).
    mkdir -p "$work/styles"
    (cd "$work/styles" && run "$cli" -j 1 -o out "$corpus_dir") >"$work/cli.log" 2>&1 || true
    (cd "$work/styles/out" && find . -type f -name '*.costyle' | sed 's|^\./||' | LC_ALL=C sort | while IFS= read -r style; do
        printf 'raw %s\t%s\n' "$style" "$(sed 's/<E K="UUID"[^>]*>//' "$style" | sha1sum | cut -d' ' -f1)"
    done) >"$work/digests"
    grep -P '^raw (?!messages)' "$data_dir/../../cli/data/corpus_golden.tsv" | LC_ALL=C sort >"$work/recorded"
    diff -u "$work/recorded" "$work/digests" || fail "the installed converter's styles differ from the record"
    echo "$(wc -l <"$work/digests") corpus styles as recorded"
fi

# The move. Windows names the user's folders; Wine keeps them below drive_c.
windows_folder() {
    run cmd /c echo "%$1%" | tr -d '\r' | sed -e "s|^[Cc]:|$drive_c|" -e 's|\\|/|g'
}
roaming="$(windows_folder APPDATA)"
local_data="$(windows_folder LOCALAPPDATA)"
[ -d "$roaming" ] && [ -d "$local_data" ] || fail "the Wine user's AppData folders: '$roaming', '$local_data'"
mkdir -p "$roaming/Adobe/Lightroom" "$local_data/CaptureOne/Styles50"
cp -r "$data_dir/move/CameraRaw" "$roaming/Adobe/"
cp -r "$data_dir/move/Develop Presets" "$roaming/Adobe/Lightroom/"
styles="$local_data/CaptureOne/Styles50"
mkdir -p "$work/move"
(cd "$work/move" && run "$cli" --from-lightroom --to-capture-one -v) >"$work/move.log" 2>&1 \
    || { cat "$work/move.log"; fail "the move ended with an error"; }
(cd "$styles" && find . -type f | sed 's|^\./||' | LC_ALL=C sort) >"$work/moved"
diff -u "$data_dir/move_styles" "$work/moved" || fail "the styles are not in their groups' folders"
grep -q 'Mono.xmp is a Lightroom profile' "$work/move.log" || fail "the profile was not named: $(cat "$work/move.log")"
grep -q 'Restart Capture One to see the new styles.' "$work/move.log" || fail "no restart line"
if [ -n "$host_cli" ] && [ -x "$host_cli" ]; then
    # The same preset converted on the build machine into a plain folder.
    while IFS= read -r style; do
        name="$(basename "$style" .costyle)"
        preset="$(find "$data_dir/move" -type f -name "$name.*" | head -n 1)"
        rm -rf "$work/host" && mkdir -p "$work/host"
        "$host_cli" -q -o "$work/host" "$preset" || true
        cmp <(sed 's/<E K="UUID"[^>]*>//' "$work/host/$name.costyle") <(sed 's/<E K="UUID"[^>]*>//' "$styles/$style") \
            || fail "$style differs from the build machine's style of $preset"
    done <"$data_dir/move_styles"
fi
(cd "$work/move" && run "$cli" --from-lightroom --to-capture-one -v) >"$work/move_again.log" 2>&1 \
    || { cat "$work/move_again.log"; fail "the second move ended with an error"; }
[ "$(grep -c 'written over an earlier file' "$work/move_again.log")" = "$(wc -l <"$data_dir/move_styles")" ] \
    || fail "the second move did not write each style over: $(cat "$work/move_again.log")"
(cd "$styles" && find . -type f | sed 's|^\./||' | LC_ALL=C sort) | diff -u "$data_dir/move_styles" - \
    || fail "the second move made copies"
echo "$(wc -l <"$data_dir/move_styles") styles moved into their groups, and written over again"

# The window program, started as a user starts it from the Start menu, must
# open its window: under Xvfb, Wine's X11 driver shows it as an X window
# named after it. Without Xvfb it must at least still run after a while (a
# missing DLL or plugin ends it at once).
window='C:\Program Files\Stylewright\stylewright.exe'
if command -v xvfb-run >/dev/null && command -v xwininfo >/dev/null; then
    WINEPREFIX="$STYLEWRIGHT_WINEPREFIX" wineserver -k 2>/dev/null || true
    export wine_run toolchain_prefix window work
    xvfb-run -a -s "-screen 0 1280x900x24" bash -c '
        "$wine_run" "--prefix=$toolchain_prefix" "$window" >"$work/window.log" 2>&1 &
        for _ in $(seq 60); do
            sleep 1
            if xwininfo -root -tree | grep -q "\"Stylewright\": (\"stylewright.exe\""; then
                xwininfo -root -tree | grep "\"Stylewright\"" >"$work/window"
                break
            fi
        done
        WINEPREFIX="$STYLEWRIGHT_WINEPREFIX" wineserver -k 2>/dev/null || true' || true
    [ -s "$work/window" ] || { cat "$work/window.log"; fail "the window program showed no window"; }
    echo "window shown:$(cat "$work/window")"
else
    run "$window" >"$work/window.log" 2>&1 &
    started=$!
    sleep 8
    kill -0 "$started" 2>/dev/null || { cat "$work/window.log"; fail "the window program ended at once"; }
    WINEPREFIX="$STYLEWRIGHT_WINEPREFIX" wineserver -k 2>/dev/null || true
    wait "$started" 2>/dev/null || true
fi

# The user's settings, as the window stores them, outlive the program.
settings='HKCU\Software\Quillmark\Stylewright'
run reg add "$settings" /v lang /d de /f >/dev/null 2>&1 || fail "could not store a setting"
run "$folder/Uninstall.exe" /S || fail "the silent uninstallation failed"
# The uninstaller copies itself away and returns at once; its copy removes
# the folder, the uninstaller included.
for _ in $(seq 60); do [ -e "$folder" ] || break; sleep 1; done
[ ! -e "$folder" ] || fail "left after uninstalling: $(cd "$folder" && find . -type f)"
[ ! -e "$start_menu" ] || fail "the Start-menu entry is left"
! run reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Stylewright' >/dev/null 2>&1 \
    || fail "the Apps & features entry is left"
run reg query "$settings" /v lang 2>/dev/null | grep -q 'lang.*de' || fail "uninstalling removed the user's settings"
echo "installed, converted, started and removed"
