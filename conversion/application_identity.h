// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Names the program to Qt: organisation, domain, application and version.
// The settings store is found by these names, so both programs call this
// before anything reads a setting.
void set_application_identity();
