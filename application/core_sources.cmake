# Conversion steps, style-pack writer and settings keys (GUI-free).
target_sources(stylewright_core PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/settings_keys.h
    ${CMAKE_CURRENT_LIST_DIR}/settings_keys.cpp
)
