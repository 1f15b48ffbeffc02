// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPalette>

namespace vel {

// The dark look for everything the program opens that draws with the
// palette rather than a style sheet of ours: Qt's own file dialogs and their
// confirmations, item views, drop-down lists, tool tips, the progress dialog.
// Light text sits on dark ground everywhere, so the windows' style sheets,
// which give their children a light text colour, never meet a light
// background.
QPalette dark_palette();

// Sets dark_palette() for the whole application and for tool tips. Native
// dialogs of a platform theme draw as the platform does.
void apply_dark_palette();

// The contrast ratio of two colours as WCAG 2 defines it, 1 to 21.
double contrast_ratio(const QColor& a, const QColor& b);

} // namespace vel
