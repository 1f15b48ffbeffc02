// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/lightroom_importer.h"
#include "color/conversion_log.h"

#include <QDebug>
#include <QLatin1String>
#include <QRegularExpression>
#include <QVector>

namespace {

// Removes the pattern's match from the start of the line (the patterns are
// anchored, so there is at most one).
void strip_prefix(QString& line, const QRegularExpression& pattern)
{
    const QRegularExpressionMatch match = pattern.match(line);
    if (match.hasMatch())
        line.remove(0, match.capturedEnd());
}

} // namespace

void lightroom_importer::read_dot_notation_lrpreset(const QString& text)
{
    const QRegularExpression root_prefix(QStringLiteral("^\\s+s\\."));
    const QRegularExpression value_prefix(QStringLiteral("^value\\."));
    const QRegularExpression settings_prefix(QStringLiteral("^settings\\."));
    const QRegularExpression array_index(QStringLiteral("\\[(\\d+)\\]"));

    // Shared by all curves for the whole file: an x waits here for its y.
    int pending_x = 0;

    const QVector<QStringRef> lines = text.splitRef(QLatin1Char('\n'));
    for (const QStringRef& line_ref : lines) {
        // A Lua comment line says nothing about the preset.
        if (line_ref.trimmed().startsWith(QLatin1String("--")))
            continue;
        QString line = line_ref.toString();
        // Only indented lines lose their table path; an unindented
        // "s.title = ..." keeps its "s." in the key.
        strip_prefix(line, root_prefix);
        strip_prefix(line, value_prefix);
        strip_prefix(line, settings_prefix);

        // Whatever follows a second "=" is dropped, even inside quotes.
        QString key;
        QString value;
        const int first_equals = line.indexOf(QLatin1Char('='));
        if (first_equals < 0) {
            key = line.trimmed();
        } else {
            key = line.left(first_equals).trimmed();
            const int second_equals = line.indexOf(QLatin1Char('='), first_equals + 1);
            const int value_length = second_equals < 0 ? -1 : second_equals - first_equals - 1;
            value = line.mid(first_equals + 1, value_length).trimmed();
        }
        qCDebug(conversion_log, "'%s' -> '%s'", key.toUtf8().constData(), value.toUtf8().constData());

        if (value == QLatin1String("{}"))
            continue; // a table declaration, nothing to store

        if (!key.startsWith(QLatin1String("ToneCurve")) || key.startsWith(QLatin1String("ToneCurveName"))) {
            // Quotes stay on string values: this reader does no unquoting.
            settings.insert(key, value);
            continue;
        }

        const QRegularExpressionMatch index_match = array_index.match(key);
        const int index = index_match.hasMatch() ? index_match.captured(1).toInt() : 0;
        const int v = value.toInt(nullptr, 10);

        QVector<QPoint>* curve = &tone_curve;
        if (key.contains(QLatin1String("Red")))
            curve = &tone_curve_red;
        else if (key.contains(QLatin1String("Green")))
            curve = &tone_curve_green;
        else if (key.contains(QLatin1String("Blue")))
            curve = &tone_curve_blue;

        // Lua counts from 1: elements 1, 3, 5 ... are x values, the even
        // ones complete a point.
        if (index % 2 != 0)
            pending_x = v;
        else
            curve->append(QPoint(pending_x, v));
    }
}
