// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class lightroom_importer;

// The logic of costyle_writer::check_costyle, free of any writer state so it
// can be used (and tested) without loading the colour tables. white_balance,
// dehaze and lut are always assigned; camera_calibration is only ever raised,
// the caller clears it beforehand.
void check_preset_flags(bool& white_balance, bool& dehaze, bool& lut, bool& camera_calibration,
                        const lightroom_importer& preset);
