// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The output spaces whose colour table casts a tint that a white balance
// written into the style has to make up for.
enum class tint_curve { srgb, prophoto, widegamut };

// Tint offset that compensates the colour table's cast at a temperature (K).
float get_tint_shift(tint_curve curve, float temperature);
