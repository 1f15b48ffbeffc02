// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace vel {

// Keeps macOS from putting the program into App Nap (slowed timers and
// processor time) while it works, for as long as the object lives. Does
// nothing on other platforms.
class app_nap_suppressor {
public:
    explicit app_nap_suppressor(const QString& reason);
    ~app_nap_suppressor();

    app_nap_suppressor(const app_nap_suppressor&) = delete;
    app_nap_suppressor& operator=(const app_nap_suppressor&) = delete;

private:
    [[maybe_unused]] void* activity = nullptr; // the NSProcessInfo activity token on macOS
};

} // namespace vel
