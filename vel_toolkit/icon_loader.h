// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace vel {

enum class icon_state { normal, highlighted };

// The picture at path and, where present, its double-resolution twin
// ("name@2x.png"), so the icon stays sharp on high-DPI screens; highlighted
// gives the lighter pointer-over variant of both.
QIcon load_icon(const QString& path, icon_state state = icon_state::normal);

// The picture for a screen of the given device pixel ratio: the @2x twin
// above a ratio of 1 when it exists, marked with its ratio.
QPixmap load_pixmap(const QString& path, qreal device_pixel_ratio);

// Name of the double-resolution twin: "a/b.png" -> "a/b@2x.png".
QString double_resolution_name(const QString& path);

// A lighter copy of a picture for the pointer-over state: every colour
// brightened, transparency kept.
QImage highlighted(const QImage& image);

} // namespace vel
