// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>

namespace stk {

// The program's own exception type: a message text for the user or the log.
class exception : public std::runtime_error {
public:
    explicit exception(const std::string& message) : std::runtime_error(message) {}
};

} // namespace stk
