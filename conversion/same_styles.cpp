// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/same_styles.h"

#include <QCryptographicHash>

namespace {

// How the style document writes its identity entry; its value is a fresh
// UUID on every conversion, so it is left out of the comparison.
const QString uuid_entry = QStringLiteral("K=\"UUID\" V=\"");

} // namespace

QByteArray same_styles::identity_of(const QString& document)
{
    QString rest = document;
    const int start = rest.indexOf(uuid_entry);
    if (start >= 0) {
        const int value = start + uuid_entry.size();
        const int end = rest.indexOf(QLatin1Char('"'), value);
        rest.remove(value, (end < 0 ? rest.size() : end) - value);
    }
    // A digest instead of the text: a run of thousands of styles keeps
    // thirty-two bytes of each.
    return QCryptographicHash::hash(rest.toUtf8(), QCryptographicHash::Sha256);
}

const same_styles::first_style* same_styles::first_like(const QByteArray& identity) const
{
    const auto found = firsts_.constFind(identity);
    return found == firsts_.cend() ? nullptr : &found.value();
}

void same_styles::remember(const QByteArray& identity, const first_style& style)
{
    if (!firsts_.contains(identity))
        firsts_.insert(identity, style);
}
