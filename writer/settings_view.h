// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "writer/costyle_entries.h"

#include <QSet>
#include <QString>

// The preset's settings as the mapping reads them. When given a set, it
// records every key looked up, present or not: what a style leaves out is
// then the preset's keys minus the recorded ones, with no list to keep in
// step with the mapping.
class settings_view {
public:
    explicit settings_view(const preset_settings& settings, QSet<QString>* keys_read = nullptr)
        : settings_(settings), keys_read_(keys_read)
    {
    }

    bool contains(const QString& key) const
    {
        record(key);
        return settings_.contains(key);
    }
    QString value(const QString& key, const QString& fallback = QString()) const
    {
        record(key);
        return settings_.value(key, fallback);
    }
    // The key's text, or nullptr when the preset lacks the key.
    const QString* find(const QString& key) const
    {
        record(key);
        const auto found = settings_.constFind(key);
        return found == settings_.constEnd() ? nullptr : &*found;
    }

private:
    void record(const QString& key) const
    {
        if (keys_read_ != nullptr)
            keys_read_->insert(key);
    }

    const preset_settings& settings_;
    QSet<QString>* keys_read_;
};
