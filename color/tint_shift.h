#pragma once

#include <QString>

// The current colour-space value and the four names it is compared with.
struct colour_space_names {
    const QString& current;
    const QString& srgb;
    const QString& prophoto;
    const QString& widegamut;
    const QString& raw;
};

// Tint offset that compensates the colour table's cast at a temperature (K).
float get_tint_shift(const colour_space_names& names, float temperature);
