// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

// The styles of one run by what they are: two presets give the same style
// when their documents are equal in every entry but the style's own identity
// (its UUID), "Name" included. Only the first of each is remembered.
class same_styles {
public:
    struct first_style {
        QString file; // the preset's path as handed to the run
        QString name;   // the file or pack entry its style went to
        QString folder; // the folder it was found in (an archive's path counts as a folder)
    };

    // The first style of the run equal to document, or nullptr.
    const first_style* first_like(const QString& document) const;
    // Remembers document's style unless an equal one came first.
    void remember(const QString& document, const QString& file, const QString& name, const QString& folder);

private:
    static QByteArray identity_of(const QString& document);

    QHash<QByteArray, first_style> firsts_;
};
