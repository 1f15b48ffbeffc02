# SPDX-License-Identifier: GPL-3.0-or-later
# Compile settings shared by every target of the project. Targets link these
# INTERFACE libraries instead of reading global flags.
include(CheckCXXCompilerFlag)

add_library(stylewright_compile_settings INTERFACE)
target_compile_features(stylewright_compile_settings INTERFACE cxx_std_17)
set_target_properties(stylewright_compile_settings PROPERTIES INTERFACE_CXX_EXTENSIONS OFF)
target_compile_options(stylewright_compile_settings INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall -Wextra>)
target_compile_definitions(stylewright_compile_settings INTERFACE
    QT_DEPRECATED_WARNINGS
    QT_NO_FOREACH)

# The program's own targets hold to more: no shadowed names, no C casts, and
# no text turned into a QString without saying its encoding. Tests, tools and
# benchmarks build with the shared settings only.
add_library(stylewright_program_settings INTERFACE)
target_link_libraries(stylewright_program_settings INTERFACE stylewright_compile_settings)
target_compile_options(stylewright_program_settings INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang>:-Wshadow -Wold-style-cast>)
target_compile_definitions(stylewright_program_settings INTERFACE QT_NO_CAST_FROM_ASCII)

if(STYLEWRIGHT_SANITIZE)
    set(stylewright_sanitizers address,undefined)
    # A float converted to an integer it does not fit is undefined; UBSan only
    # checks it when asked to.
    check_cxx_compiler_flag(-fsanitize=float-cast-overflow stylewright_has_float_cast_overflow)
    if(stylewright_has_float_cast_overflow)
        string(APPEND stylewright_sanitizers ",float-cast-overflow")
    endif()
    target_compile_options(stylewright_compile_settings INTERFACE
        -fsanitize=${stylewright_sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=undefined,float-cast-overflow)
    target_link_options(stylewright_compile_settings INTERFACE -fsanitize=${stylewright_sanitizers})
endif()
