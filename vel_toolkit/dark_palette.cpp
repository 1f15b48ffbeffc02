// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/dark_palette.h"

#include <QApplication>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace vel {

namespace {

// The window's own colours: its grey, the darker field grey and its text.
const QColor window_grey(47, 47, 47);
const QColor field_grey(30, 30, 30);
const QColor raised_grey(64, 64, 64);
const QColor text_grey(198, 213, 210);
const QColor dimmed_text(140, 150, 148);
const QColor selection(70, 105, 130);

double relative_luminance(const QColor& colour)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

QPalette dark_palette()
{
    QPalette palette;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor& text = group == QPalette::Disabled ? dimmed_text : text_grey;
        palette.setColor(group, QPalette::Window, window_grey);
        palette.setColor(group, QPalette::WindowText, text);
        palette.setColor(group, QPalette::Base, field_grey);
        palette.setColor(group, QPalette::AlternateBase, window_grey);
        palette.setColor(group, QPalette::Text, text);
        palette.setColor(group, QPalette::Button, raised_grey);
        palette.setColor(group, QPalette::ButtonText, text);
        palette.setColor(group, QPalette::BrightText, Qt::white);
        palette.setColor(group, QPalette::ToolTipBase, field_grey);
        palette.setColor(group, QPalette::ToolTipText, text_grey);
        palette.setColor(group, QPalette::PlaceholderText, dimmed_text);
        palette.setColor(group, QPalette::Highlight, selection);
        palette.setColor(group, QPalette::HighlightedText, Qt::white);
        palette.setColor(group, QPalette::Link, QColor(130, 180, 230));
        palette.setColor(group, QPalette::LinkVisited, QColor(170, 150, 220));
        palette.setColor(group, QPalette::Light, QColor(90, 90, 90));
        palette.setColor(group, QPalette::Midlight, QColor(75, 75, 75));
        palette.setColor(group, QPalette::Mid, QColor(55, 55, 55));
        palette.setColor(group, QPalette::Dark, QColor(25, 25, 25));
        palette.setColor(group, QPalette::Shadow, Qt::black);
    }
    return palette;
}

void apply_dark_palette()
{
    QApplication::setPalette(dark_palette());
    QToolTip::setPalette(dark_palette());
}

double contrast_ratio(const QColor& a, const QColor& b)
{
    const double la = relative_luminance(a);
    const double lb = relative_luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

} // namespace vel
