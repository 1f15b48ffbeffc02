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
        int index = -1; // its outcome's place in the run
    };

    // What two documents share when they are the same style: a digest of
    // the document without its UUID's value.
    static QByteArray identity_of(const QString& document);

    // The first style of the run with this identity, or nullptr.
    const first_style* first_like(const QByteArray& identity) const;
    // Remembers a style of this identity unless one came first.
    void remember(const QByteArray& identity, const first_style& style);
    // Forgets the first style of this identity: it was replaced by a later
    // style of its name, so the next preset of this look is written again.
    void forget(const QByteArray& identity) { firsts_.remove(identity); }

private:
    QHash<QByteArray, first_style> firsts_;
};
