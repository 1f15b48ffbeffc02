# SPDX-License-Identifier: GPL-3.0-or-later
# Runs lupdate over the program's and the toolkit's sources into copies of
# their translation files and fails when a text is new (unfinished), gone
# (vanished or obsolete) or lacks a translation.
# Arguments: LUPDATE, SOURCE_DIR, WORK_DIR.
file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}")

set(failed "")
foreach(pair "application conversion;de.ts" "vel_toolkit;toolkit_de.ts")
    list(GET pair 0 folders)
    separate_arguments(folders)
    list(TRANSFORM folders PREPEND "${SOURCE_DIR}/" OUTPUT_VARIABLE folder_paths)
    list(GET pair 1 ts)
    file(COPY "${SOURCE_DIR}/resources/translations/${ts}" DESTINATION "${WORK_DIR}")
    execute_process(
        COMMAND "${LUPDATE}" -locations none -I "${SOURCE_DIR}" ${folder_paths} -ts "${WORK_DIR}/${ts}"
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "lupdate failed on ${folders}:\n${output}")
    endif()
    file(READ "${WORK_DIR}/${ts}" content)
    string(REGEX MATCHALL "<source>[^<]*</source>[^<]*<translation type=\"(unfinished|vanished|obsolete)\"" open "${content}")
    string(REGEX MATCHALL "<translation>[ \t\r\n]*</translation>" empty "${content}")
    if(open OR empty)
        string(REPLACE ";" "\n" open "${open}")
        list(APPEND failed "${ts} (from ${folders}):\n${open}\n${empty}")
    endif()
endforeach()

if(failed)
    message(FATAL_ERROR "Translations are not complete:\n${failed}")
endif()
message(STATUS "All texts are translated.")
