# SPDX-License-Identifier: GPL-3.0-or-later
# The macOS application bundle Stylewright.app: Info.plist, icon and the
# minimum system version. Included from packaging/CMakeLists.txt on Apple
# only, when the window program is part of the build.
#
# Qt itself is put into the bundle after installation with macdeployqt (see
# README.md), which also signs it ad hoc.

set(STYLEWRIGHT_BUNDLE_NAME "Stylewright")

# Qt 5.15 runs on macOS 10.13 and later; a deployment target given at
# configure time (-DCMAKE_OSX_DEPLOYMENT_TARGET=...) wins, so the compiler
# and Info.plist always agree.
if(CMAKE_OSX_DEPLOYMENT_TARGET)
    set(STYLEWRIGHT_MACOS_MINIMUM "${CMAKE_OSX_DEPLOYMENT_TARGET}")
else()
    set(STYLEWRIGHT_MACOS_MINIMUM "10.13")
endif()

configure_file("${CMAKE_CURRENT_LIST_DIR}/Info.plist.in"
    "${CMAKE_CURRENT_BINARY_DIR}/Info.plist" @ONLY)

set_target_properties(stylewright PROPERTIES
    MACOSX_BUNDLE TRUE
    OUTPUT_NAME "${STYLEWRIGHT_BUNDLE_NAME}"
    MACOSX_BUNDLE_INFO_PLIST "${CMAKE_CURRENT_BINARY_DIR}/Info.plist"
    MACOSX_BUNDLE_GUI_IDENTIFIER "${STYLEWRIGHT_APP_ID}"
    MACOSX_BUNDLE_BUNDLE_NAME "${STYLEWRIGHT_BUNDLE_NAME}"
    MACOSX_BUNDLE_BUNDLE_VERSION "${PROJECT_VERSION}"
    MACOSX_BUNDLE_SHORT_VERSION_STRING "${PROJECT_VERSION}"
    MACOSX_BUNDLE_ICON_FILE "stylewright.icns"
    XCODE_ATTRIBUTE_PRODUCT_BUNDLE_IDENTIFIER "${STYLEWRIGHT_APP_ID}")

# App Nap: macOS slows a bundled program down as soon as its window is
# hidden, which would stall a long conversion. The toolkit's Objective-C++
# suppressor (NSProcessInfo activity, with Foundation) keeps it awake; a
# bundle built without it would nap, so the configuration warns.
if(TARGET vel_toolkit)
    get_target_property(toolkit_sources vel_toolkit SOURCES)
    list(FILTER toolkit_sources INCLUDE REGEX "app_nap_mac\\.mm$")
    if(NOT toolkit_sources)
        message(WARNING "vel_toolkit has no app_nap_mac.mm: the bundle will nap while it converts.")
    endif()
endif()

# The icon: the application SVG rendered into an iconset and packed by
# iconutil, which comes with every macOS.
find_program(STYLEWRIGHT_RSVG_CONVERT rsvg-convert)
find_program(STYLEWRIGHT_ICONUTIL iconutil)
if(STYLEWRIGHT_RSVG_CONVERT AND STYLEWRIGHT_ICONUTIL)
    set(iconset "${CMAKE_CURRENT_BINARY_DIR}/stylewright.iconset")
    set(icns "${CMAKE_CURRENT_BINARY_DIR}/stylewright.icns")
    # iconutil wants exactly these names: each size once and once at twice
    # the pixels for Retina screens.
    set(render_commands)
    foreach(size 16 32 128 256 512)
        math(EXPR double "${size} * 2")
        list(APPEND render_commands
            COMMAND "${STYLEWRIGHT_RSVG_CONVERT}" --width=${size} --height=${size}
                    --output "${iconset}/icon_${size}x${size}.png" "${STYLEWRIGHT_ICON_SVG}"
            COMMAND "${STYLEWRIGHT_RSVG_CONVERT}" --width=${double} --height=${double}
                    --output "${iconset}/icon_${size}x${size}@2x.png" "${STYLEWRIGHT_ICON_SVG}")
    endforeach()
    add_custom_command(OUTPUT "${icns}"
        COMMAND ${CMAKE_COMMAND} -E rm -rf "${iconset}"
        COMMAND ${CMAKE_COMMAND} -E make_directory "${iconset}"
        ${render_commands}
        COMMAND "${STYLEWRIGHT_ICONUTIL}" --convert icns --output "${icns}" "${iconset}"
        DEPENDS "${STYLEWRIGHT_ICON_SVG}"
        COMMENT "Making the bundle icon stylewright.icns"
        VERBATIM)
    # Installed into the bundle, which is what macdeployqt and the disk image
    # take; the bundle in the build folder shows the generic icon.
    add_custom_target(stylewright_icns ALL DEPENDS "${icns}")
    install(FILES "${icns}"
        DESTINATION "${STYLEWRIGHT_BUNDLE_NAME}.app/Contents/Resources")
else()
    message(WARNING "rsvg-convert (brew install librsvg) or iconutil not found: "
                    "Stylewright.app is built without its icon.")
endif()

# The command-line converter goes inside the bundle, next to the window
# program, so that macdeployqt gives it the same Qt; link it into a folder of
# your PATH to use it from a terminal.
if(TARGET stylewright-cli)
    install(TARGETS stylewright-cli
        RUNTIME DESTINATION "${STYLEWRIGHT_BUNDLE_NAME}.app/Contents/MacOS")
endif()
