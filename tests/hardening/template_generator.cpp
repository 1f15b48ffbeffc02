#include "template_generator.h"

#include <QVector>
#include <algorithm>

namespace {

// Keys that real templates use, so that different tables collide on them.
const QStringList common_keys{
    QStringLiteral("Contrast2012"), QStringLiteral("Exposure2012"), QStringLiteral("ProcessVersion"),
    QStringLiteral("Saturation"),   QStringLiteral("Temperature"),  QStringLiteral("Tint"),
    QStringLiteral("ToneCurveName"), QStringLiteral("id"),          QStringLiteral("title"),
    QStringLiteral("type"),         QStringLiteral("uuid"),         QStringLiteral("version"),
};

const QStringList curve_keys{
    QStringLiteral("ToneCurve"),         QStringLiteral("ToneCurvePV2012"),     QStringLiteral("ToneCurvePV2012Red"),
    QStringLiteral("ToneCurvePV2012Green"), QStringLiteral("ToneCurvePV2012Blue"),
};

// Numbers whose text Lua prints differently from how they are written, or
// that sit at the edge of the reader's int conversion.
const QStringList awkward_numbers{
    QStringLiteral("0.10"),      QStringLiteral("-2e-006"),    QStringLiteral("1E3"),
    QStringLiteral("5.0"),       QStringLiteral(".5"),         QStringLiteral("5."),
    QStringLiteral("007"),       QStringLiteral("-0"),         QStringLiteral("2147483647"),
    QStringLiteral("-2147483648"), QStringLiteral("2147483648"), QStringLiteral("9007199254740993"),
    QStringLiteral("30.322580645161"), QStringLiteral("-0.0"), QStringLiteral("1e-300"),
};

// Characters for string values: separators the tokenizer must keep inside a
// string, and text beyond ASCII (accents, symbols, Cyrillic, right-to-left
// Hebrew, an emoji outside the basic plane). No quote, backslash or line break:
// those are where Lua's strings and the reader's part ways.
const QString string_characters = QStringLiteral(
    "abcXYZ019 ,={}'-._/&<>\t\u00e9\u00a9\u25cf\u0416\u05d0\u200f") + QString::fromUcs4(U"\U0001F600");

} // namespace

template_generator::template_generator(std::uint32_t start_value)
    : random_(start_value)
{
}

int template_generator::pick(int low, int high)
{
    return std::uniform_int_distribution<int>(low, high)(random_);
}

bool template_generator::chance(int percent)
{
    return pick(1, 100) <= percent;
}

QString template_generator::space()
{
    static const QStringList spaces{QStringLiteral(" "), QStringLiteral("  "), QStringLiteral("\t")};
    return spaces.at(pick(0, spaces.size() - 1));
}

QString template_generator::line_break()
{
    static const QStringList breaks{QStringLiteral("\n"), QStringLiteral("\r\n"), QStringLiteral("\n\t"),
                                    QStringLiteral(" ")};
    return breaks.at(pick(0, breaks.size() - 1));
}

QString template_generator::key()
{
    if (chance(50))
        return common_keys.at(pick(0, common_keys.size() - 1));
    static const QString first = QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_");
    static const QString rest = first + QStringLiteral("0123456789");
    // A prefix no Lua keyword or boolean starts with keeps the key a plain name.
    QString k = QStringLiteral("K") + first.at(pick(0, first.size() - 1));
    const int length = pick(0, 8);
    for (int i = 0; i < length; ++i)
        k += rest.at(pick(0, rest.size() - 1));
    return k;
}

QString template_generator::number()
{
    switch (pick(0, 3)) {
    case 0:
        return QString::number(pick(-5000, 5000));
    case 1:
        return QString::number(pick(-100000, 100000) / 1000.0, 'f', pick(0, 6));
    case 2:
        return QString::number(pick(-100000, 100000) / 7.0, 'g', pick(1, 15));
    default:
        return awkward_numbers.at(pick(0, awkward_numbers.size() - 1));
    }
}

QString template_generator::string_value()
{
    QString text;
    const int length = pick(0, 20);
    for (int i = 0; i < length; ++i) {
        const int index = pick(0, string_characters.size() - 1);
        // Keep surrogate pairs whole.
        if (string_characters.at(index).isLowSurrogate())
            text += string_characters.mid(index - 1, 2);
        else if (string_characters.at(index).isHighSurrogate())
            text += string_characters.mid(index, 2);
        else
            text += string_characters.at(index);
    }
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString template_generator::scalar()
{
    switch (pick(0, 9)) {
    case 0:
        return QStringLiteral("true");
    case 1:
        return QStringLiteral("false");
    case 2:
    case 3:
    case 4:
        return string_value();
    default:
        return number();
    }
}

QString template_generator::curve()
{
    QString text = QStringLiteral("{");
    const int points = pick(0, 8);
    for (int i = 0; i < 2 * points; ++i)
        text += line_break() + QString::number(chance(95) ? pick(0, 255) : pick(-70000, 70000)) + QLatin1Char(',');
    return text + line_break() + QLatin1Char('}');
}

QString template_generator::table_list(int depth)
{
    QString text = QStringLiteral("{");
    const int count = pick(1, 3);
    for (int i = 0; i < count; ++i)
        text += line_break() + table(depth + 1) + QLatin1Char(',');
    return text + line_break() + QLatin1Char('}');
}

QString template_generator::table(int depth)
{
    QVector<entry> entries;
    // Most templates have a title, the name their style carries.
    if (depth == 0 && chance(80))
        entries.append({QStringLiteral("title"), string_value()});
    const int count = pick(0, depth == 0 ? 12 : 6);
    for (int i = 0; i < count; ++i) {
        const int kind = pick(0, 99);
        if (kind < 8 && depth < 4) {
            entries.append({key(), table(depth + 1)});
        } else if (kind < 12 && depth < 4) {
            entries.append({key(), table_list(depth)});
        } else if (kind < 20) {
            entries.append({curve_keys.at(pick(0, curve_keys.size() - 1)), curve()});
        } else if (kind < 21) {
            // A point list under a name the reader has no curve for: rejected.
            entries.append({QStringLiteral("ToneCurveLegacy"), curve()});
        } else {
            const entry e{key(), scalar()};
            entries.append(e);
            // The same key again in the same table: the later value wins.
            if (chance(5))
                entries.append({e.key, scalar()});
        }
    }
    // Byte order of the keys, as Lightroom writes them; the stable sort keeps
    // repeated keys in their order. Lua forgets the order of a table, and the
    // oracle walks it sorted.
    std::stable_sort(entries.begin(), entries.end(),
                     [](const entry& a, const entry& b) { return a.key.toUtf8() < b.key.toUtf8(); });
    // A key that is a table in one entry and a scalar in another of the same
    // table would keep both in the reader but only one in Lua: drop those.
    QVector<entry> kept;
    for (const entry& e : entries) {
        const bool is_table = e.text.startsWith(QLatin1Char('{'));
        const bool clash = std::any_of(entries.cbegin(), entries.cend(), [&](const entry& other) {
            return other.key == e.key && other.text.startsWith(QLatin1Char('{')) != is_table;
        });
        const bool repeated_table = is_table && std::any_of(kept.cbegin(), kept.cend(), [&](const entry& other) {
            return other.key == e.key;
        });
        if (!clash && !repeated_table)
            kept.append(e);
    }

    QString text = QStringLiteral("{");
    for (const entry& e : kept)
        text += line_break() + e.key + space() + QLatin1Char('=') + space() + e.text + QLatin1Char(',');
    return text + line_break() + QLatin1Char('}');
}

QByteArray template_generator::make()
{
    QByteArray bytes;
    if (chance(10))
        bytes += "\xEF\xBB\xBF";
    bytes += QStringLiteral("s = ").toUtf8() + table(0).toUtf8();
    if (chance(50))
        bytes += "\n";
    return bytes;
}
