// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The program's look for every window it opens, Qt's own dialogs included:
// its widget style (with the tool tip delay), the dark palette and the window
// icon. Called once the QApplication exists.
void apply_application_look();
