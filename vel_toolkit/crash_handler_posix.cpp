// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/crash_handler.h"

#if defined(__has_include)
#if __has_include(<execinfo.h>) && __has_include(<signal.h>) && __has_include(<unistd.h>)
#define VEL_HAS_BACKTRACE 1
#endif
#endif

#ifdef VEL_HAS_BACKTRACE
#include <csignal>
#include <cstring>
#include <execinfo.h>
#include <unistd.h>
#endif

namespace vel {

#ifdef VEL_HAS_BACKTRACE
namespace {

// Deep enough for the program's own frames below Qt's event loop.
constexpr int max_stack_frames = 64;

// An own stack for the handler, so a stack overflow can still be reported.
constexpr size_t alternate_stack_size = 64 * 1024;
char alternate_stack[alternate_stack_size];

struct signal_name {
    int number;
    const char* name;
    const char* meaning;
};

constexpr signal_name fatal_signals[] = {
    {SIGSEGV, "SIGSEGV", "segmentation fault"}, {SIGBUS, "SIGBUS", "bus error"},
    {SIGILL, "SIGILL", "illegal instruction"},  {SIGFPE, "SIGFPE", "arithmetic error"},
    {SIGABRT, "SIGABRT", "abort"},
};

// Only async-signal-safe calls from here on: write(2), no stdio, no allocation.
void write_text(const char* text)
{
    size_t left = std::strlen(text);
    while (left > 0) {
        const ssize_t written = ::write(STDERR_FILENO, text, left);
        if (written <= 0)
            return;
        text += written;
        left -= static_cast<size_t>(written);
    }
}

void on_fatal_signal(int number)
{
    const char* name = "unknown signal";
    const char* meaning = "";
    for (const signal_name& known : fatal_signals) {
        if (known.number == number) {
            name = known.name;
            meaning = known.meaning;
        }
    }
    write_text("\nFatal signal ");
    write_text(name);
    write_text(" (");
    write_text(meaning);
    write_text("), stack trace:\n");

    void* frames[max_stack_frames];
    const int count = backtrace(frames, max_stack_frames);
    backtrace_symbols_fd(frames, count, STDERR_FILENO);

    // The handler was installed to run once (SA_RESETHAND): raising the
    // signal again ends the process with the signal's usual status and core.
    raise(number);
}

} // namespace

void install_crash_handler()
{
    // The first backtrace() loads the unwinder, which allocates; do that
    // now, where it is safe, rather than inside the handler.
    void* warm_up[1];
    backtrace(warm_up, 1);

    stack_t stack{};
    stack.ss_sp = alternate_stack;
    stack.ss_size = alternate_stack_size;
    sigaltstack(&stack, nullptr);

    struct sigaction action{};
    action.sa_handler = on_fatal_signal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESETHAND | SA_ONSTACK;
    for (const signal_name& known : fatal_signals)
        sigaction(known.number, &action, nullptr);
}

#else

void install_crash_handler() {}

#endif

} // namespace vel
