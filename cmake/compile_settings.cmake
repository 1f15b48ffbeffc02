# Compile settings shared by every target of the project. Targets link this
# INTERFACE library instead of reading global flags.
add_library(stylewright_compile_settings INTERFACE)
target_compile_features(stylewright_compile_settings INTERFACE cxx_std_17)
set_target_properties(stylewright_compile_settings PROPERTIES INTERFACE_CXX_EXTENSIONS OFF)
target_compile_options(stylewright_compile_settings INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall -Wextra>)
target_compile_definitions(stylewright_compile_settings INTERFACE
    QT_DEPRECATED_WARNINGS
    QT_NO_FOREACH
    STYLEWRIGHT_VERSION="${PROJECT_VERSION}")

if(STYLEWRIGHT_SANITIZE)
    target_compile_options(stylewright_compile_settings INTERFACE
        -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(stylewright_compile_settings INTERFACE -fsanitize=address,undefined)
endif()
