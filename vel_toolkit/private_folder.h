// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace vel {

// A folder only this user writes in, for short-lived copies (the help page):
// what another account put there cannot be in the way, nor a link it placed
// be followed. Empty when there is none.
QString private_folder();

} // namespace vel
