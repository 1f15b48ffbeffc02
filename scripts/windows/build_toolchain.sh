#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Windows cross toolchain from Debian's source packages: Qt's
# qtbase, libzip, libtiff and GoogleTest for MinGW-w64, installed into a cache folder
# outside the tree (toolchain.conf says which versions, options and folder).
# Unattended; installs the Debian packages it needs (with sudo when not
# root). Each part is built once and reused while its version and options
# stay the same: the first run takes about half an hour on two cores, a later
# one a second.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
root="$(cd "$here/../.." && pwd)"
# shellcheck source=toolchain.conf
source "$here/toolchain.conf"
jobs="$(nproc)"

sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
    sudo_cmd=(sudo)
fi

"$here/install_windows_dependencies.sh"

stamp_dir="$mingw_cache/stamps"
mkdir -p "$stamp_dir" "$mingw_cache/src" "$mingw_cache/build" "$mingw_prefix"

built() { [ -f "$stamp_dir/$1" ]; }

# apt-get source needs a deb-src line for the suite this machine runs.
ensure_source_lines() {
    if grep -rqs '^[[:space:]]*\(deb-src\|Types:.*deb-src\)' /etc/apt/sources.list /etc/apt/sources.list.d/; then
        return
    fi
    # shellcheck disable=SC1091
    codename="$(. /etc/os-release && echo "$VERSION_CODENAME")"
    echo "Adding Debian's source packages for $codename to apt." >&2
    printf 'Types: deb-src\nURIs: http://deb.debian.org/debian\nSuites: %s %s-updates\nComponents: main\nSigned-By: /usr/share/keyrings/debian-archive-keyring.gpg\n' \
        "$codename" "$codename" | "${sudo_cmd[@]}" tee /etc/apt/sources.list.d/stylewright-sources.sources >/dev/null
    "${sudo_cmd[@]}" apt-get update -qq >&2
}

# Unpacks a Debian source package (with Debian's patches) once; prints its folder.
unpack_source() {
    local package="$1" version="$2"
    local folder
    folder="$(find "$mingw_cache/src" -maxdepth 1 -type d -name "${package}-${version}*" | head -n 1)"
    if [ -z "$folder" ]; then
        ensure_source_lines
        (cd "$mingw_cache/src" && apt-get source -qq "$package" >&2)
        folder="$(find "$mingw_cache/src" -maxdepth 1 -type d -name "${package}-${version}*" | head -n 1)"
    fi
    [ -n "$folder" ] || { echo "The source of $package $version could not be unpacked." >&2; exit 1; }
    echo "$folder"
}

toolchain_file="$root/cmake/mingw_w64_toolchain.cmake"
cmake_cross=(-DCMAKE_TOOLCHAIN_FILE="$toolchain_file" -DSTYLEWRIGHT_MINGW_PREFIX="$mingw_prefix"
             -DCMAKE_INSTALL_PREFIX="$mingw_prefix" -DCMAKE_BUILD_TYPE=Release)

# build_with_cmake NAME TITLE SOURCE VERSION REVISION OPTION...: a library
# built with CMake from its Debian source package and installed into the
# prefix, once per version, revision and options.
build_with_cmake() {
    local name="$1" title="$2" source="$3" version="$4" revision="$5"
    shift 5
    local stamp="$name-$version-r$revision"
    built "$stamp" && return
    echo "=== $title $version"
    local src
    src="$(unpack_source "$source" "$version")"
    rm -rf "$mingw_cache/build/$name"
    cmake -S "$src" -B "$mingw_cache/build/$name" "${cmake_cross[@]}" "$@" >/dev/null
    cmake --build "$mingw_cache/build/$name" --parallel "$jobs"
    cmake --install "$mingw_cache/build/$name" >/dev/null
    touch "$stamp_dir/$stamp"
}

build_with_cmake libzip libzip "$libzip_source" "$libzip_version" "$toolchain_revision" "${libzip_options[@]}"
# libtiff has a revision of its own: adding it rebuilt nothing else.
build_with_cmake libtiff libtiff "$libtiff_source" "$libtiff_version" "$libtiff_revision" "${libtiff_options[@]}"
build_with_cmake googletest GoogleTest "$googletest_source" "$googletest_version" "$toolchain_revision" \
    "${googletest_options[@]}"

# qtbase
stamp="qtbase-$qtbase_version-r$toolchain_revision"
if ! built "$stamp"; then
    echo "=== Qt $qtbase_version (qtbase), the longest part"
    src="$(unpack_source "$qtbase_source" "$qtbase_version")"
    build="$mingw_cache/build/qtbase"
    rm -rf "$build"
    mkdir -p "$build"
    (cd "$build" && "$src/configure" -prefix "$mingw_prefix" "${qtbase_options[@]}" >configure.log 2>&1) \
        || { tail -n 40 "$build/configure.log" >&2; exit 1; }
    make -C "$build" -j"$jobs" >"$build/make.log" 2>&1 \
        || { tail -n 60 "$build/make.log" >&2; exit 1; }
    make -C "$build" install >"$build/install.log" 2>&1 \
        || { tail -n 40 "$build/install.log" >&2; exit 1; }
    touch "$stamp_dir/$stamp"
fi

# lrelease and lupdate are host programs and their .qm files the same on every
# system: the cross Qt finds the build machine's through a link, whose real
# path tells the host's configuration to use the host's programs.
host_linguist=/usr/lib/x86_64-linux-gnu/cmake/Qt5LinguistTools
if [ -d "$host_linguist" ]; then
    ln -sfn "$host_linguist" "$mingw_prefix/lib/cmake/Qt5LinguistTools"
fi

# The offscreen platform, on which the widget tests run under Wine, draws
# with FreeType from Qt's own font folder: Debian's FreeFont, as embedded in
# the program.
ln -sfn /usr/share/fonts/truetype/freefont "$mingw_prefix/lib/fonts"

echo "The Windows toolchain is in $mingw_prefix."
