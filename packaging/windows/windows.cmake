# SPDX-License-Identifier: GPL-3.0-or-later
# Windows: the programs' icon and version resource, everything they need
# beside them (Qt's, libzip's, libtiff's, zlib's and the MinGW runtime's DLLs, Qt's
# platform and style plugins, Qt's German texts) and the NSIS installer.
# Included by packaging/CMakeLists.txt when building for Windows, natively
# (MSYS2) or cross-compiled with cmake/mingw_w64_toolchain.cmake.

# ------------------------------------------------------------------- icon

# One .ico holding the sizes Explorer, the taskbar and the Start menu ask
# for, drawn from the same picture as the window's own icon. 256 is stored
# as PNG inside the .ico, which every Windows since Vista reads.
# icotool (icoutils) packs the sizes; where it is missing (MSYS2),
# ImageMagick's magick does the same.
find_program(STYLEWRIGHT_RSVG_CONVERT rsvg-convert REQUIRED)
find_program(STYLEWRIGHT_ICOTOOL icotool)
find_program(STYLEWRIGHT_MAGICK magick)
if(NOT STYLEWRIGHT_ICOTOOL AND NOT STYLEWRIGHT_MAGICK)
    message(FATAL_ERROR "The Windows icon needs icotool (icoutils) or magick (ImageMagick).")
endif()
set(STYLEWRIGHT_ICO "${CMAKE_CURRENT_BINARY_DIR}/windows/stylewright.ico")
set(ico_sizes 16 24 32 48 64 128 256)
set(ico_pngs)
set(ico_commands)
foreach(size IN LISTS ico_sizes)
    set(png "${CMAKE_CURRENT_BINARY_DIR}/windows/icon_${size}.png")
    list(APPEND ico_pngs "${png}")
    list(APPEND ico_commands COMMAND "${STYLEWRIGHT_RSVG_CONVERT}" --width=${size} --height=${size}
                                     --keep-aspect-ratio --output "${png}" "${STYLEWRIGHT_ICON_SVG}")
endforeach()
if(STYLEWRIGHT_ICOTOOL)
    set(ico_bitmaps ${ico_pngs})
    list(REMOVE_ITEM ico_bitmaps "${CMAKE_CURRENT_BINARY_DIR}/windows/icon_256.png")
    set(ico_pack_command "${STYLEWRIGHT_ICOTOOL}" --create --raw=${CMAKE_CURRENT_BINARY_DIR}/windows/icon_256.png
                         --output "${STYLEWRIGHT_ICO}" ${ico_bitmaps})
else()
    set(ico_pack_command "${STYLEWRIGHT_MAGICK}" ${ico_pngs} "${STYLEWRIGHT_ICO}")
endif()
add_custom_command(OUTPUT "${STYLEWRIGHT_ICO}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${CMAKE_CURRENT_BINARY_DIR}/windows"
    ${ico_commands}
    COMMAND ${ico_pack_command}
    DEPENDS "${STYLEWRIGHT_ICON_SVG}"
    COMMENT "Drawing the Windows icon"
    VERBATIM)
add_custom_target(stylewright_windows_icon DEPENDS "${STYLEWRIGHT_ICO}")

# ------------------------------------------------------ version resources

# stylewright_add_version_resource(<program> <description>)
function(stylewright_add_version_resource program description)
    if(NOT TARGET ${program})
        return()
    endif()
    set(STYLEWRIGHT_RC_FILE_NAME "${program}.exe")
    set(STYLEWRIGHT_RC_DESCRIPTION "${description}")
    set(rc "${CMAKE_CURRENT_BINARY_DIR}/windows/${program}.rc")
    configure_file("${CMAKE_CURRENT_SOURCE_DIR}/windows/program.rc.in" "${rc}" @ONLY)
    set_source_files_properties("${rc}" PROPERTIES OBJECT_DEPENDS "${STYLEWRIGHT_ICO}")
    target_sources(${program} PRIVATE "${rc}")
    add_dependencies(${program} stylewright_windows_icon)
endfunction()

stylewright_add_version_resource(stylewright "Stylewright: Lightroom presets into Capture One styles")
stylewright_add_version_resource(stylewright-cli "Stylewright command-line converter")

# ------------------------------------------------- what the programs need

# stylewright_find_runtime_dll(<variable> <dll>): a DLL of the compiler's
# runtime or of a library found beside it. The cross compiler names its own
# files; MSYS2 keeps them in the compiler's folder.
function(stylewright_find_runtime_dll variable dll)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${dll}
                    OUTPUT_VARIABLE printed OUTPUT_STRIP_TRAILING_WHITESPACE)
    get_filename_component(compiler_folder "${CMAKE_CXX_COMPILER}" DIRECTORY)
    if(IS_ABSOLUTE "${printed}" AND EXISTS "${printed}")
        set(found "${printed}")
    else()
        find_file(found_${variable} ${dll}
            HINTS "${STYLEWRIGHT_MINGW_PREFIX}" "${compiler_folder}/.."
            PATH_SUFFIXES bin lib
            NO_CACHE NO_CMAKE_FIND_ROOT_PATH)
        set(found "${found_${variable}}")
    endif()
    if(NOT found)
        message(FATAL_ERROR "${dll}, which the programs need on Windows, was not found.")
    endif()
    set(${variable} "${found}" PARENT_SCOPE)
endfunction()

set(runtime_dlls)
foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll zlib1.dll libzip.dll)
    string(MAKE_C_IDENTIFIER "${dll}" dll_variable)
    stylewright_find_runtime_dll(${dll_variable} ${dll})
    list(APPEND runtime_dlls "${${dll_variable}}")
endforeach()
# libtiff, for DNG presets: the DLL of the imported library found (libtiff.dll
# from the cross toolchain, libtiff-6.dll from MSYS2).
set(tiff_import_library "${TIFF_LIBRARY_RELEASE}")
if(NOT tiff_import_library)
    set(tiff_import_library "${TIFF_LIBRARY}")
endif()
get_filename_component(tiff_library_folder "${tiff_import_library}" DIRECTORY)
file(GLOB tiff_dll "${tiff_library_folder}/../bin/libtiff*.dll")
if(NOT tiff_dll)
    message(FATAL_ERROR "libtiff's DLL, which the programs need on Windows, was not found beside ${tiff_library_folder}.")
endif()
list(GET tiff_dll 0 tiff_dll)
list(APPEND runtime_dlls "${tiff_dll}")
set(qt_modules Qt5::Core)
if(TARGET stylewright)
    list(APPEND qt_modules Qt5::Gui Qt5::Widgets)
endif()
foreach(module IN LISTS qt_modules)
    get_target_property(location ${module} IMPORTED_LOCATION_RELEASE)
    if(NOT location)
        get_target_property(location ${module} LOCATION)
    endif()
    list(APPEND runtime_dlls "${location}")
endforeach()
install(FILES ${runtime_dlls} DESTINATION .)
# Debian's MinGW runtime keeps its symbols (libstdc++ alone is 23 MB with
# them); a stripped installation (cpack, cmake --install --strip) drops them
# as it does from the programs.
if(CMAKE_STRIP)
    foreach(dll IN LISTS runtime_dlls)
        get_filename_component(dll_name "${dll}" NAME)
        install(CODE "
            if(CMAKE_INSTALL_DO_STRIP)
                execute_process(COMMAND \"${CMAKE_STRIP}\" --strip-unneeded
                                \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${dll_name}\")
            endif()")
    endforeach()
endif()

if(TARGET stylewright)
    # Qt finds both plugins and its translations through qt.conf.
    install(FILES "${CMAKE_CURRENT_SOURCE_DIR}/windows/qt.conf" DESTINATION .)
    foreach(plugin_folder_and_target platforms=Qt5::QWindowsIntegrationPlugin styles=Qt5::QWindowsVistaStylePlugin)
        string(REPLACE "=" ";" pair "${plugin_folder_and_target}")
        list(GET pair 0 plugin_folder)
        list(GET pair 1 plugin_target)
        get_target_property(location ${plugin_target} IMPORTED_LOCATION_RELEASE)
        if(NOT location)
            get_target_property(location ${plugin_target} LOCATION)
        endif()
        install(FILES "${location}" DESTINATION plugins/${plugin_folder})
    endforeach()

    # Qt's own dialog texts in German: qt_de.qm gathers the catalogues below.
    find_path(STYLEWRIGHT_QT_TRANSLATIONS qtbase_de.qm
        PATHS /usr/share/qt5/translations "${STYLEWRIGHT_MINGW_PREFIX}/translations"
              "${Qt5_DIR}/../../../share/qt5/translations" "${Qt5_DIR}/../../../translations"
        NO_CMAKE_FIND_ROOT_PATH)
    if(NOT STYLEWRIGHT_QT_TRANSLATIONS)
        message(FATAL_ERROR "Qt's German translations (qtbase_de.qm) were not found.")
    endif()
    set(qt_catalogues)
    foreach(catalogue qt qtbase qtscript qtmultimedia qtxmlpatterns)
        if(EXISTS "${STYLEWRIGHT_QT_TRANSLATIONS}/${catalogue}_de.qm")
            list(APPEND qt_catalogues "${STYLEWRIGHT_QT_TRANSLATIONS}/${catalogue}_de.qm")
        endif()
    endforeach()
    install(FILES ${qt_catalogues} DESTINATION translations)
endif()

install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION . RENAME LICENSE.txt)

# -------------------------------------------------------------- installer

# A per-machine installation into Program Files\Stylewright with a
# Start-menu entry and an uninstaller listed in Apps & features; /S installs
# and uninstalls silently. The user's settings (in the registry under
# HKEY_CURRENT_USER\Software\Quillmark\Stylewright) stay when it is removed.
set(CPACK_GENERATOR "NSIS")
set(CPACK_PACKAGE_FILE_NAME "Stylewright-${PROJECT_VERSION}-win64")
set(CPACK_PACKAGE_INSTALL_DIRECTORY "Stylewright")
set(CPACK_PACKAGE_INSTALL_REGISTRY_KEY "Stylewright")
set(CPACK_NSIS_INSTALL_ROOT "$PROGRAMFILES64")
set(CPACK_NSIS_PACKAGE_NAME "Stylewright")
set(CPACK_NSIS_DISPLAY_NAME "Stylewright ${PROJECT_VERSION}")
set(CPACK_NSIS_PUBLISHER "${STYLEWRIGHT_VENDOR}")
set(CPACK_NSIS_URL_INFO_ABOUT "${STYLEWRIGHT_HOMEPAGE}")
set(CPACK_NSIS_CONTACT "${STYLEWRIGHT_MAINTAINER}")
set(CPACK_NSIS_MUI_ICON "${STYLEWRIGHT_ICO}")
set(CPACK_NSIS_MUI_UNIICON "${STYLEWRIGHT_ICO}")
set(CPACK_NSIS_INSTALLED_ICON_NAME "stylewright.exe")
set(CPACK_NSIS_EXECUTABLES_DIRECTORY ".")
set(CPACK_PACKAGE_EXECUTABLES "stylewright" "Stylewright")
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
set(CPACK_NSIS_MODIFY_PATH OFF)
set(CPACK_NSIS_MANIFEST_DPI_AWARE ON)
# A 64-bit installer for a 64-bit program: it runs wherever the program does
# (also under a Wine without its 32-bit half) and sees the real Program
# Files and registry, not their 32-bit stand-ins.
set(CPACK_NSIS_DEFINES "Target amd64-unicode")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_STRIP_FILES ON)
