// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/crash_handler.h"

#include <cstdio>
#include <windows.h>

namespace vel {

namespace {

// Deep enough for the program's own frames below Qt's event loop.
constexpr USHORT max_stack_frames = 62; // CaptureStackBackTrace takes fewer than 63 on older Windows

struct exception_name {
    DWORD code;
    const char* name;
};

constexpr exception_name fatal_exceptions[] = {
    {EXCEPTION_ACCESS_VIOLATION, "access violation"},
    {EXCEPTION_STACK_OVERFLOW, "stack overflow"},
    {EXCEPTION_ILLEGAL_INSTRUCTION, "illegal instruction"},
    {EXCEPTION_INT_DIVIDE_BY_ZERO, "integer division by zero"},
    {EXCEPTION_IN_PAGE_ERROR, "page error"},
};

// No heap from here on: the crash may have come from a broken one.
void write_text(const char* text)
{
    const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
    DWORD written = 0;
    if (error != nullptr && error != INVALID_HANDLE_VALUE)
        WriteFile(error, text, static_cast<DWORD>(lstrlenA(text)), &written, nullptr);
    // A window program has no console: the debugger's channel still hears it.
    OutputDebugStringA(text);
}

LONG WINAPI on_unhandled_exception(EXCEPTION_POINTERS* info)
{
    const DWORD code = info->ExceptionRecord->ExceptionCode;
    const char* name = "unknown exception";
    for (const exception_name& known : fatal_exceptions) {
        if (known.code == code)
            name = known.name;
    }
    char line[160];
    std::snprintf(line, sizeof line, "\nFatal exception 0x%08lX (%s) at %p, stack trace:\n",
                  static_cast<unsigned long>(code), name, info->ExceptionRecord->ExceptionAddress);
    write_text(line);

    // Module and offset per frame: the same numbers addr2line reads against the map.
    void* frames[max_stack_frames];
    const USHORT count = CaptureStackBackTrace(0, max_stack_frames, frames, nullptr);
    for (USHORT i = 0; i < count; ++i) {
        HMODULE module = nullptr;
        char module_path[MAX_PATH] = "?";
        if (GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                               static_cast<LPCSTR>(frames[i]), &module))
            GetModuleFileNameA(module, module_path, MAX_PATH);
        const char* module_name = module_path;
        for (const char* c = module_path; *c != '\0'; ++c) {
            if (*c == '\\' || *c == '/')
                module_name = c + 1;
        }
        std::snprintf(line, sizeof line, "%s+0x%llx\n", module_name,
                      static_cast<unsigned long long>(static_cast<const char*>(frames[i]) - reinterpret_cast<const char*>(module)));
        write_text(line);
    }
    // Windows then ends the process as it would have, with its error report.
    return EXCEPTION_CONTINUE_SEARCH;
}

} // namespace

void install_crash_handler()
{
    SetUnhandledExceptionFilter(on_unhandled_exception);
}

} // namespace vel
