# SPDX-License-Identifier: GPL-3.0-or-later
# Cross-builds for 64-bit Windows with Debian's MinGW-w64 (POSIX threads),
# against the Qt, libzip, libtiff and GoogleTest that scripts/windows/build_toolchain.sh
# installs, and runs what it builds (tests, gtest's discovery) under Wine.
#
#   cmake -S . -B build/windows --toolchain cmake/mingw_w64_toolchain.cmake
#
# STYLEWRIGHT_MINGW_PREFIX (environment or cache) names the toolchain's
# prefix; by default the one build_toolchain.sh fills.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(stylewright_mingw_triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${stylewright_mingw_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${stylewright_mingw_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${stylewright_mingw_triple}-windres)
# The compilers' "-posix" ending hides the tools' common prefix from CMake.
set(CMAKE_AR ${stylewright_mingw_triple}-gcc-ar-posix)
set(CMAKE_RANLIB ${stylewright_mingw_triple}-gcc-ranlib-posix)
set(CMAKE_STRIP ${stylewright_mingw_triple}-strip)
set(CMAKE_OBJDUMP ${stylewright_mingw_triple}-objdump)

if(NOT STYLEWRIGHT_MINGW_PREFIX)
    if(DEFINED ENV{STYLEWRIGHT_MINGW_PREFIX})
        set(STYLEWRIGHT_MINGW_PREFIX "$ENV{STYLEWRIGHT_MINGW_PREFIX}")
    elseif(DEFINED ENV{XDG_CACHE_HOME})
        set(STYLEWRIGHT_MINGW_PREFIX "$ENV{XDG_CACHE_HOME}/stylewright/mingw-w64/prefix")
    else()
        set(STYLEWRIGHT_MINGW_PREFIX "$ENV{HOME}/.cache/stylewright/mingw-w64/prefix")
    endif()
endif()
# try_compile projects read the toolchain file again; hand them the prefix.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES STYLEWRIGHT_MINGW_PREFIX)
set(ENV{STYLEWRIGHT_MINGW_PREFIX} "${STYLEWRIGHT_MINGW_PREFIX}")

# Libraries and headers only from the MinGW sysroot and the toolchain;
# programs (moc, rcc, lrelease, rsvg-convert) from the build machine.
set(CMAKE_FIND_ROOT_PATH "/usr/${stylewright_mingw_triple}" "${STYLEWRIGHT_MINGW_PREFIX}")
set(CMAKE_PREFIX_PATH "${STYLEWRIGHT_MINGW_PREFIX}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# pkg-config must not answer with the build machine's libraries.
set(ENV{PKG_CONFIG_LIBDIR} "${STYLEWRIGHT_MINGW_PREFIX}/lib/pkgconfig")
set(ENV{PKG_CONFIG_PATH} "")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "")

# Test programs run under Wine, in a Wine folder of its own, finding the DLLs
# of Qt, libzip, zlib and the MinGW runtime (scripts/windows/wine_run.sh).
find_program(STYLEWRIGHT_WINE NAMES wine64 wine)
if(STYLEWRIGHT_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR
        "${CMAKE_CURRENT_LIST_DIR}/../scripts/windows/wine_run.sh;--prefix=${STYLEWRIGHT_MINGW_PREFIX}")
endif()
