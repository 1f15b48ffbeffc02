// SPDX-License-Identifier: GPL-3.0-or-later
// Every reader over a folder of small inputs, good, odd and broken: what each makes of a file (its
// tokens, or the record with its extras, or the message it throws) and what it logs, written out as
// text that must read as data/readers.golden. The input's suffix picks the reader: .tokens the
// tokenizer, .nested and .dotted the two template readers, .lrtemplate, .xmp and .dng the file
// readers.
#include "support/golden.h"
#include "importer/lightroom_importer.h"
#include "importer/lua_tokenizer.h"
#include "importer/preset_extras.h"
#include "support/log_capture.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

const QString data = QStringLiteral(STYLEWRIGHT_TEST_DATA_DIR);

// Control characters shown as \xNN, so that the record stays a text file.
QString shown(const QString& text)
{
    QString result;
    for (const QChar c : text)
        result += c.unicode() < 0x20 ? QString::asprintf("\\x%02x", c.unicode()) : QString(c);
    return result;
}

QString points(const QVector<QPoint>& curve)
{
    QStringList xy;
    for (const QPoint& p : curve)
        xy << QStringLiteral("%1,%2").arg(p.x()).arg(p.y());
    return xy.join(QLatin1Char(' '));
}

QStringList record_lines(const lightroom_importer& record)
{
    QStringList lines;
    for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it)
        lines << shown(it.key() + QLatin1Char('=') + it.value());
    const std::pair<const char*, QString> fields[] = {
        {"master", points(record.tone_curve)},      {"red", points(record.tone_curve_red)},
        {"green", points(record.tone_curve_green)}, {"blue", points(record.tone_curve_blue)},
        {"name", record.name},                      {"description", record.description},
        {"look", record.extras.look},               {"white balance", named_white_balance(record.settings)},
        {"preset type", record.extras.preset_type}, {"group", record.extras.group}};
    for (const auto& [label, text] : fields) {
        if (!text.isEmpty())
            lines << QLatin1String(label) + QStringLiteral(": ") + shown(text);
    }
    for (auto it = record.extras.local_adjustments.cbegin(); it != record.extras.local_adjustments.cend(); ++it)
        lines << QStringLiteral("local adjustments: %1 %2").arg(it.value()).arg(it.key());
    QStringList other = record.extras.non_develop_keys.values();
    other.sort();
    if (!other.isEmpty())
        lines << QStringLiteral("not develop: ") + other.join(QStringLiteral(", "));
    return lines;
}

QStringList read_one(const QFileInfo& file)
{
    QFile input(file.filePath());
    if (!input.open(QIODevice::ReadOnly))
        return {QStringLiteral("unreadable")};
    const QString text = QString::fromUtf8(input.readAll());
    const QString kind = file.suffix();
    QStringList lines;
    const test_support::log_capture log;
    if (kind == QLatin1String("tokens")) {
        QStringList tokens;
        for (const lrtoken& token : lua_tokenizer::tokenize(text)) {
            const QString type = lrtoken::token_type_to_name(token.type).mid(12);
            tokens << type + QLatin1Char('[') + shown(token.text.toString()) + QLatin1Char(']')
                      + (token.number ? QStringLiteral("#%1").arg(token.number) : QString());
        }
        lines << tokens.join(QLatin1Char(' '));
    } else {
        lightroom_importer record;
        try {
            if (kind == QLatin1String("nested"))
                record.read_regular_lrpreset(text);
            else if (kind == QLatin1String("dotted"))
                record.read_dot_notation_lrpreset(text);
            else if (kind == QLatin1String("lrtemplate"))
                record.read_lrpreset(file.filePath());
            else if (kind == QLatin1String("dng"))
                record.read_dng(file.filePath());
            else
                record.read_xmp(file.filePath());
        } catch (const std::runtime_error& e) {
            lines << QStringLiteral("threw: ") + QString::fromUtf8(e.what());
        }
        lines << record_lines(record);
    }
    for (const QString& line : log.lines())
        lines << QStringLiteral("log: ") + shown(line);
    return lines;
}

} // namespace

TEST(readers, every_input_reads_as_recorded)
{
    QStringList record;
    for (const QFileInfo& file : QDir(data + QStringLiteral("/readers")).entryInfoList(QDir::Files, QDir::Name))
        record << QStringLiteral("== ") + file.fileName() << read_one(file) << QString();
    const QString actual = record.join(QLatin1Char('\n'));
    test_support::expect_golden(data + QStringLiteral("/readers.golden"), actual);
}

// Inputs too large for the folder: limits hold without a crash or a hang.
TEST(readers, nesting_and_size_limits)
{
    const auto nested = [](int depth) {
        return QStringLiteral("t = { ").repeated(depth) + QStringLiteral("x = 1, ") + QStringLiteral("}, ").repeated(depth);
    };
    const std::pair<QString, const char*> cases[] = {
        {nested(200), ""},
        {nested(201), "Tables nested more than 200 levels deep"},
        {nested(100000), "Tables nested more than 200 levels deep"},
        {QStringLiteral("l = { ") + QStringLiteral("{ ").repeated(100000) + QStringLiteral("} ").repeated(100000)
             + QStringLiteral("}, x = 1"),
         ""},
        {QStringLiteral("s = { title = \"") + QString(20 * 1000 * 1000, QLatin1Char('x')),
         "Unexpected token type found. Expected token_type::name, got token_type::eof"},
    };
    for (const auto& [text, message] : cases) {
        const test_support::log_capture log(false);
        lightroom_importer record;
        try {
            record.read_regular_lrpreset(text);
            EXPECT_EQ(record.settings.value(QStringLiteral("x")), QStringLiteral("1")) << text.left(40).toStdString();
            EXPECT_STREQ(message, "");
        } catch (const std::runtime_error& e) {
            EXPECT_STREQ(e.what(), message);
        }
    }
    // Tens of megabytes: a big attribute and a deep skipped element.
    const QByteArray table(20 * 1000 * 1000, 'A');
    const QByteArray deep = QByteArray("<a>").repeated(100000) + QByteArray("</a>").repeated(100000);
    const test_support::log_capture log(false);
    lightroom_importer xmp;
    xmp.read_xmp_data("<xmpmeta><RDF><Description Table_1=\"" + table + "\"><Deep>" + deep
                      + "</Deep><ToneCurve><Seq><li>1, 2</li></Seq></ToneCurve></Description></RDF></xmpmeta>");
    EXPECT_EQ(xmp.settings.value(QStringLiteral("Table_1")).size(), table.size());
    EXPECT_EQ(points(xmp.tone_curve), QStringLiteral("1,2"));
}
