// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "color/colour_table.h"
#include "writer/costyle_entries.h"

#include <QSet>
#include <QString>
#include <array>

class lightroom_importer;

// Turns preset records into Capture One style documents. The first writer of
// the process loads the colour tables from the compiled-in resources (throws
// stk::exception on a broken table); every writer shares them read-only and can
// convert any number of presets.
class costyle_writer {
public:
    enum table_index { adobe_rgb = 0, srgb = 1, wide_gamut_rgb = 2, identity = 3 };
    using table_set = std::array<colour_table, 4>;

    costyle_writer();

    // Converts for the images of a colour space, named as the settings store
    // and the command line name it ("raw", "srgb", ...; see colour_space.h).
    // An unknown name converts without a colour table. Always true. With
    // keys_read, every settings key the conversion looked up is added to it.
    bool create_costyle(const lightroom_importer& preset, QString& out, const QString& colour_space,
                        QSet<QString>* keys_read = nullptr) const;
    // The settings keys a conversion of the preset looks up (the same for
    // every colour space), learnt without making the style.
    QSet<QString> settings_read(const lightroom_importer& preset) const;

    // Raises the flags for what needs the user's attention. white_balance, dehaze
    // and lut are always assigned; camera_calibration is only ever raised.
    void check_costyle(bool& white_balance, bool& dehaze, bool& lut, bool& camera_calibration,
                       const lightroom_importer& preset) const;

    const colour_table& table(table_index index) const { return (*tables_)[index]; }

private:
    costyle_entries map_settings(const lightroom_importer& preset, const QString& colour_space,
                                 QSet<QString>* keys_read, bool with_point_curves) const;

    const table_set* tables_;
};
