// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/app_nap.h"

// Only macOS naps programs; elsewhere there is nothing to suppress.
namespace vel {

app_nap_suppressor::app_nap_suppressor(const QString&) {}

app_nap_suppressor::~app_nap_suppressor() = default;

} // namespace vel
