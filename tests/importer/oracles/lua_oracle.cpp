// SPDX-License-Identifier: GPL-3.0-or-later
#include "lua_oracle.h"

#include "importer/lightroom_importer.h"
#include "support/quiet_log.h"

#include <QPoint>
#include <QProcess>
#include <QStandardPaths>
#include <QVector>
#include <stdexcept>

namespace {

// Generous for a file of a few kilobytes; a hung interpreter fails the test
// instead of blocking the suite.
constexpr int lua_timeout_ms = 30000;

QString flatten_script()
{
    return QStringLiteral(STYLEWRIGHT_SOURCE_DIR "/tests/importer/oracles/flatten_template.lua");
}

QString unescape(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\\') || i + 1 == text.size()) {
            result += text.at(i);
            continue;
        }
        const QChar next = text.at(++i);
        if (next == QLatin1Char('t'))
            result += QLatin1Char('\t');
        else if (next == QLatin1Char('n'))
            result += QLatin1Char('\n');
        else if (next == QLatin1Char('r'))
            result += QLatin1Char('\r');
        else
            result += next;
    }
    return result;
}

QString curve_text(const QVector<QPoint>& curve)
{
    QStringList points;
    for (const QPoint& p : curve)
        points << QStringLiteral("%1,%2").arg(p.x()).arg(p.y());
    return points.join(QLatin1Char(';'));
}

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

QString lua_interpreter()
{
    return QStandardPaths::findExecutable(QStringLiteral("lua5.4"));
}

lua_flattening flatten_with_lua(const QString& template_path)
{
    lua_flattening result;
    QProcess lua;
    lua.start(lua_interpreter(), {flatten_script(), template_path});
    if (!lua.waitForFinished(lua_timeout_ms)) {
        lua.kill();
        lua.waitForFinished();
        result.load_error = QStringLiteral("lua5.4 did not finish");
        return result;
    }
    if (lua.exitStatus() != QProcess::NormalExit || lua.exitCode() != 0) {
        result.load_error = QString::fromUtf8(lua.readAllStandardError()).trimmed();
        return result;
    }
    result.loaded = true;

    const QStringList lines = QString::fromUtf8(lua.readAllStandardOutput()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        const QString tag = fields.value(0);
        if (tag == QLatin1String("S") || tag == QLatin1String("B") || tag == QLatin1String("N")) {
            result.settings.insert(unescape(fields.value(1)),
                                   {tag.at(0), unescape(fields.value(2)), fields.value(3)});
        } else if (tag == QLatin1String("C")) {
            result.curves.insert(fields.value(1), fields.value(2));
        } else if (tag == QLatin1String("K")) {
            result.order_dependent.insert(unescape(fields.value(1)));
        } else if (tag == QLatin1String("E")) {
            result.rejection = unescape(fields.value(1));
        }
    }
    return result;
}

oracle_comparison compare_reader_with_lua(const QString& template_path)
{
    oracle_comparison comparison;
    const lua_flattening lua = flatten_with_lua(template_path);

    lightroom_importer record;
    QString& reader_error = comparison.reader_error;
    {
        const quiet_log quiet;
        try {
            record.read_lrpreset(template_path);
        } catch (const std::runtime_error& e) {
            reader_error = QString::fromUtf8(e.what());
            if (reader_error.isEmpty())
                reader_error = QStringLiteral("(empty message)");
        }
    }

    if (!lua.loaded) {
        comparison.differences << QStringLiteral("Lua cannot load the file: %1").arg(lua.load_error);
        return comparison;
    }
    if (!lua.rejection.isEmpty()) {
        if (reader_error.isEmpty())
            comparison.differences << QStringLiteral("Lua's walk rejects the file (%1), the reader accepts it")
                                          .arg(lua.rejection);
        else if (lua.rejection != QLatin1String("syntax") && lua.rejection != reader_error)
            comparison.differences << QStringLiteral("rejected with \"%1\", expected \"%2\"")
                                          .arg(reader_error, lua.rejection);
        else
            comparison.both_reject = true;
        return comparison;
    }
    if (!reader_error.isEmpty()) {
        comparison.differences << QStringLiteral("the reader rejects the file: %1").arg(reader_error);
        return comparison;
    }

    const auto order_note = [&lua](const QString& key) {
        return lua.order_dependent.contains(key) ? QStringLiteral(" (set in several places; the file's order decides)")
                                                 : QString();
    };
    for (auto it = lua.settings.cbegin(); it != lua.settings.cend(); ++it) {
        const QString& key = it.key();
        if (!record.settings.contains(key)) {
            comparison.differences << QStringLiteral("%1: missing, Lua has %2").arg(key, quoted(it->text));
            continue;
        }
        const QString stored = record.settings.value(key);
        if (stored == it->text) {
            ++comparison.exact_values;
            continue;
        }
        bool stored_is_number = false;
        bool exact_is_number = false;
        const double stored_number = stored.toDouble(&stored_is_number);
        const double lua_number = it->exact.toDouble(&exact_is_number);
        if (it->kind == QLatin1Char('N') && stored_is_number && exact_is_number && stored_number == lua_number) {
            ++comparison.numeric_values;
            continue;
        }
        comparison.differences << QStringLiteral("%1: reader %2, Lua %3%4")
                                      .arg(key, quoted(stored), quoted(it->text), order_note(key));
    }
    for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it) {
        if (!lua.settings.contains(it.key()))
            comparison.differences << QStringLiteral("%1: reader stored %2, Lua has no such value")
                                          .arg(it.key(), quoted(it.value()));
    }

    const QMap<QString, const QVector<QPoint>*> curves{
        {QStringLiteral("tone_curve"), &record.tone_curve},
        {QStringLiteral("tone_curve_red"), &record.tone_curve_red},
        {QStringLiteral("tone_curve_green"), &record.tone_curve_green},
        {QStringLiteral("tone_curve_blue"), &record.tone_curve_blue},
    };
    for (auto it = curves.cbegin(); it != curves.cend(); ++it) {
        const QString stored = curve_text(**it);
        const QString expected = lua.curves.value(it.key());
        if (stored == expected)
            ++comparison.exact_values;
        else
            comparison.differences << QStringLiteral("%1: reader %2, Lua %3%4")
                                          .arg(it.key(), quoted(stored), quoted(expected), order_note(it.key()));
    }
    return comparison;
}
