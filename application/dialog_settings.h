// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QSettings;

namespace vel {
class combo_box;
}

// Output format, colour space and language. Every change is stored at once
// (all three choices together); there is nothing to confirm or cancel.
class dialog_settings : public QDialog {
    Q_OBJECT

public:
    // Does not take ownership of settings.
    dialog_settings(QSettings* settings, QWidget* parent = nullptr);

public slots:
    void save_settings() const;

private:
    void select_stored_values();

    QSettings* settings;
    vel::combo_box* format_box = nullptr;
    vel::combo_box* colour_space_box = nullptr;
    vel::combo_box* language_box = nullptr;
};
