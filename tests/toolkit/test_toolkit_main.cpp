// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"

#include <cstring>

// Child processes that tests start from this very program.
int crash_child(const char* how);                 // test_crash_handler.cpp
int print_language_suffix(int argc, char** argv); // test_language.cpp

// One program runs every test class of the toolkit.
int main(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--crash") == 0)
        return crash_child(argv[2]);
    if (argc == 2 && std::strcmp(argv[1], "--print-language-suffix") == 0)
        return print_language_suffix(argc, argv);
    return gui_test::run_suites(argc, argv);
}
