# The window program. Its windows live in a library of their own so the
# tests can drive the very same MainWindow and dialog_settings.
add_library(stylewright_window STATIC
    ${CMAKE_CURRENT_LIST_DIR}/application_icon.cpp
    ${CMAKE_CURRENT_LIST_DIR}/application_icon.h
    ${CMAKE_CURRENT_LIST_DIR}/dialog_settings.cpp
    ${CMAKE_CURRENT_LIST_DIR}/dialog_settings.h
    ${CMAKE_CURRENT_LIST_DIR}/main_window.cpp
    ${CMAKE_CURRENT_LIST_DIR}/main_window.h
    ${CMAKE_CURRENT_LIST_DIR}/translation_loader.cpp
    ${CMAKE_CURRENT_LIST_DIR}/translation_loader.h
)
set_target_properties(stylewright_window PROPERTIES AUTOMOC ON)
target_link_libraries(stylewright_window PUBLIC stylewright_core vel_toolkit Qt5::Widgets stylewright_compile_settings)

add_executable(stylewright ${CMAKE_CURRENT_LIST_DIR}/main.cpp)
# The compiled-in help pages, translations, pictures and fonts come with
# stylewright_gui_resources (an object library, so nothing drops them).
target_link_libraries(stylewright PRIVATE stylewright_window stylewright_gui_resources stylewright_core vel_toolkit)
# A window program: no console window of its own on Windows.
set_target_properties(stylewright PROPERTIES WIN32_EXECUTABLE ON)
# Exported symbols give the crash handler's stack traces function names.
set_target_properties(stylewright PROPERTIES ENABLE_EXPORTS ON)
