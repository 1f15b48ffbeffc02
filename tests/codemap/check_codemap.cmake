# SPDX-License-Identifier: GPL-3.0-or-later
# Fails when ARCHITECTURE.md names a path or a symbol that no longer exists:
# every backticked token with a '/' or a source suffix must be a path in the
# tree; every token shaped like a call, name(), or a qualified name, a::b,
# must be defined somewhere in the sources. Other tokens are words.
# Arguments: SOURCE_DIR.
file(READ "${SOURCE_DIR}/ARCHITECTURE.md" map)
# Fenced blocks draw pictures; list separators would split tokens.
string(REGEX REPLACE "```[^`]*```" "" map "${map}")
string(REPLACE ";" "," map "${map}")
string(REGEX MATCHALL "`[^`\n]+`" tokens "${map}")

file(GLOB_RECURSE sources
    "${SOURCE_DIR}/application/*.cpp" "${SOURCE_DIR}/application/*.h"
    "${SOURCE_DIR}/cli/*.cpp" "${SOURCE_DIR}/cli/*.h"
    "${SOURCE_DIR}/color/*.cpp" "${SOURCE_DIR}/color/*.h"
    "${SOURCE_DIR}/conversion/*.cpp" "${SOURCE_DIR}/conversion/*.h"
    "${SOURCE_DIR}/importer/*.cpp" "${SOURCE_DIR}/importer/*.h"
    "${SOURCE_DIR}/vel_toolkit/*.cpp" "${SOURCE_DIR}/vel_toolkit/*.h" "${SOURCE_DIR}/vel_toolkit/*.mm"
    "${SOURCE_DIR}/writer/*.cpp" "${SOURCE_DIR}/writer/*.h")
set(code "")
foreach(source IN LISTS sources)
    file(READ "${source}" text)
    string(APPEND code "${text}\n")
endforeach()

set(missing "")
set(checked 0)
foreach(token IN LISTS tokens)
    string(REGEX REPLACE "^`(.*)`$" "\\1" token "${token}")
    if(token MATCHES "<|\\*|=| ")
        continue() # a pattern, a setting or a phrase, not a name
    endif()
    if(token MATCHES "^(std::|Q[A-Z])")
        continue() # the standard library's and Qt's names are theirs
    endif()
    if(token MATCHES "/" OR token MATCHES "\\.(cpp|h|mm|md|sh|txt|golden|tsv|html|ts|cmake)$")
        string(REGEX REPLACE "/$" "" path "${token}")
        math(EXPR checked "${checked} + 1")
        if(NOT EXISTS "${SOURCE_DIR}/${path}")
            list(APPEND missing "path ${token}")
        endif()
    elseif(token MATCHES "^[A-Za-z_][A-Za-z0-9_:]*(\\(\\))?$" AND (token MATCHES "\\(\\)$" OR token MATCHES "::"))
        string(REGEX REPLACE "\\(\\)$" "" name "${token}")
        string(REGEX REPLACE "^.*::" "" last "${name}")
        math(EXPR checked "${checked} + 1")
        # Defined: declared as a type or namespace, or a function or
        # constant of that name written with its body or value.
        set(found FALSE)
        foreach(shape "(class|struct|namespace|enum class|enum) ${last}[ \n{:]" "[ :*&]${last}\\(" "[ :]${last} = "
                      "[ ]${last}[,\n ]*[}]?[,]" "  ${last},")
            if(code MATCHES "${shape}")
                set(found TRUE)
                break()
            endif()
        endforeach()
        if(found AND name MATCHES "::")
            string(REGEX REPLACE "::[^:]*$" "" owner "${name}")
            string(REGEX REPLACE "^.*::" "" owner "${owner}")
            if(NOT code MATCHES "(class|struct|namespace) ${owner}[ \n{:]")
                set(found FALSE)
            endif()
        endif()
        if(NOT found)
            list(APPEND missing "symbol ${token}")
        endif()
    endif()
endforeach()

if(missing)
    string(REPLACE ";" "\n  " missing "${missing}")
    message(FATAL_ERROR "ARCHITECTURE.md names what the tree does not hold:\n  ${missing}")
endif()
if(checked LESS 20)
    message(FATAL_ERROR "Only ${checked} names were checked in ARCHITECTURE.md; the check reads it wrongly.")
endif()
message(STATUS "ARCHITECTURE.md: all ${checked} paths and symbols exist.")
