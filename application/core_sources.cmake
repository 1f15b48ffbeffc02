# Conversion steps, style-pack writer and settings keys (GUI-free).
target_sources(stylewright_core PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/output_format.h
    ${CMAKE_CURRENT_LIST_DIR}/output_format.cpp
    ${CMAKE_CURRENT_LIST_DIR}/settings_keys.h
    ${CMAKE_CURRENT_LIST_DIR}/settings_keys.cpp
    ${CMAKE_CURRENT_LIST_DIR}/preset_reading.h
    ${CMAKE_CURRENT_LIST_DIR}/preset_reading.cpp
    ${CMAKE_CURRENT_LIST_DIR}/preset_archive.h
    ${CMAKE_CURRENT_LIST_DIR}/preset_archive.cpp
    ${CMAKE_CURRENT_LIST_DIR}/preset_source.h
    ${CMAKE_CURRENT_LIST_DIR}/preset_source.cpp
    ${CMAKE_CURRENT_LIST_DIR}/pack_entry_names.h
    ${CMAKE_CURRENT_LIST_DIR}/pack_entry_names.cpp
    ${CMAKE_CURRENT_LIST_DIR}/preset_folder.h
    ${CMAKE_CURRENT_LIST_DIR}/preset_folder.cpp
    ${CMAKE_CURRENT_LIST_DIR}/conversion_messages.h
    ${CMAKE_CURRENT_LIST_DIR}/conversion_messages.cpp
    ${CMAKE_CURRENT_LIST_DIR}/conversion_run.h
    ${CMAKE_CURRENT_LIST_DIR}/conversion_run.cpp
    ${CMAKE_CURRENT_LIST_DIR}/stylepack_writer.h
    ${CMAKE_CURRENT_LIST_DIR}/stylepack_writer.cpp
)
