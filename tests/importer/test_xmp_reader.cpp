#include "importer/lightroom_importer.h"
#include "log_capture.h"
#include "qt_print.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace {

using settings_map = QMap<QString, QString>;
using curve = QVector<QPoint>;

QByteArray xmp(const QByteArray& description_attributes, const QByteArray& children)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
           " <rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
           "  <rdf:Description rdf:about=\"\" xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\"\n   "
        + description_attributes + ">\n" + children + "  </rdf:Description>\n </rdf:RDF>\n</x:xmpmeta>\n";
}

QByteArray seq(const QByteArray& element, const QByteArray& items)
{
    return "<crs:" + element + "><rdf:Seq>" + items + "</rdf:Seq></crs:" + element + ">\n";
}

TEST(xmp_reader, reads_attributes_texts_and_curves)
{
    const QByteArray data = xmp(
        "crs:Exposure2012=\"+0.50\" crs:Temperature=\"5500\" crs:ToneCurvePV2012Red=\"attr\"",
        "<crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\"></rdf:li><rdf:li xml:lang=\"de\">Warm</rdf:li>"
        "<rdf:li xml:lang=\"en\">Later</rdf:li></rdf:Alt></crs:Name>\n"
        "<crs:Description><rdf:Alt><rdf:li>A <b>bold</b> look</rdf:li></rdf:Alt></crs:Description>\n"
        "<crs:Group><rdf:Alt><rdf:li>Skipped</rdf:li></rdf:Alt></crs:Group>\n"
        "<crs:Contrast2012>+10</crs:Contrast2012>\n"
        + seq("ToneCurvePV2012", "<rdf:li>0, 0</rdf:li><rdf:li>64, 58</rdf:li><rdf:li>255, 255</rdf:li>")
        + seq("ToneCurvePV2012Red", "<rdf:li>0, 10</rdf:li>")
        + seq("ToneCurvePV2012Green", "<rdf:li>1, 2</rdf:li>")
        + seq("ToneCurvePV2012Blue", "<rdf:li>3, 4</rdf:li>"));
    const log_capture log;
    lightroom_importer record;
    record.read_xmp_data(data);

    EXPECT_EQ(record.settings, (settings_map{{"about", ""}, {"Exposure2012", "+0.50"}, {"Temperature", "5500"},
                                             {"ToneCurvePV2012Red", "attr"}}));
    EXPECT_EQ(record.name, QStringLiteral("Warm"));
    EXPECT_EQ(record.description, QStringLiteral("A bold look"));
    EXPECT_EQ(record.tone_curve, (curve{{0, 0}, {64, 58}, {255, 255}}));
    EXPECT_EQ(record.tone_curve_red, (curve{{0, 10}}));
    EXPECT_EQ(record.tone_curve_green, (curve{{1, 2}}));
    EXPECT_EQ(record.tone_curve_blue, (curve{{3, 4}}));

    const QVector<QString> debug = log.of_type(QtDebugMsg);
    EXPECT_TRUE(debug.contains(QStringLiteral("\"Exposure2012\" -> \"+0.50\"")));
    EXPECT_TRUE(debug.contains(QStringLiteral("Skipping \"Group\"")));
    EXPECT_TRUE(debug.contains(QStringLiteral("Skipping \"Contrast2012\"")));
    EXPECT_TRUE(log.of_type(QtWarningMsg).isEmpty());
    EXPECT_TRUE(log.of_type(QtCriticalMsg).isEmpty());
}

TEST(xmp_reader, later_master_curve_wins_and_empty_seq_replaces)
{
    const log_capture log;
    lightroom_importer record;
    record.read_xmp_data(xmp("", seq("ToneCurvePV2012", "<rdf:li>1, 1</rdf:li>") + seq("ToneCurve", "<rdf:li>2, 2</rdf:li>")));
    EXPECT_EQ(record.tone_curve, (curve{{2, 2}}));

    record.read_xmp_data(xmp("", seq("ToneCurvePV2012", "")));
    EXPECT_TRUE(record.tone_curve.isEmpty());
}

TEST(xmp_reader, prefixes_and_namespaces_are_ignored)
{
    const log_capture log;
    lightroom_importer record;
    record.read_xmp_data("<xmpmeta><a:RDF xmlns:a=\"urn:other\"><Description Exposure2012=\"1\" b:Tint=\"2\" "
                         "xmlns:b=\"urn:b\"><b:Name><Alt><li>Plain</li></Alt></b:Name></Description></a:RDF></xmpmeta>");
    EXPECT_EQ(record.settings, (settings_map{{"Exposure2012", "1"}, {"Tint", "2"}}));
    EXPECT_EQ(record.name, QStringLiteral("Plain"));
}

struct structure_case {
    const char* label;
    QByteArray data;
    const char* critical;
};

// Names the case in test listings and failure messages.
void PrintTo(const structure_case& c, std::ostream* os)
{
    *os << c.label;
}

class structure_test : public ::testing::TestWithParam<structure_case> {};

TEST_P(structure_test, logs_critical_and_stores_nothing)
{
    const structure_case& c = GetParam();
    const log_capture log;
    lightroom_importer record;
    record.read_xmp_data(c.data);
    EXPECT_TRUE(record.settings.isEmpty()) << c.label;
    EXPECT_TRUE(record.name.isEmpty()) << c.label;
    EXPECT_EQ(log.of_type(QtCriticalMsg), QVector<QString>{QLatin1String(c.critical)}) << c.label;
    EXPECT_TRUE(log.of_type(QtWarningMsg).isEmpty()) << c.label;
}

INSTANTIATE_TEST_SUITE_P(documents, structure_test, ::testing::Values(
    structure_case{"bare RDF root",
                   "<rdf:RDF xmlns:rdf=\"r\"><rdf:Description crs:Exposure2012=\"1\" xmlns:crs=\"c\"/></rdf:RDF>",
                   "No xmpmeta element found at start of document"},
    structure_case{"Description directly under xmpmeta",
                   "<x:xmpmeta xmlns:x=\"x\"><Description Exposure2012=\"1\"/></x:xmpmeta>",
                   "No RDF element found at start of document"},
    structure_case{"other element under RDF",
                   "<xmpmeta><RDF><Bag><Description Exposure2012=\"1\"/></Bag></RDF></xmpmeta>",
                   "No Description element found at start of document"},
    structure_case{"case matters", "<xmpmeta><rdf><Description Exposure2012=\"1\"/></rdf></xmpmeta>",
                   "No RDF element found at start of document"}));

struct curve_case {
    const char* item;
    QPoint point;
};

void PrintTo(const curve_case& c, std::ostream* os)
{
    *os << c.item;
}

class curve_point_test : public ::testing::TestWithParam<curve_case> {};

TEST_P(curve_point_test, converts_the_first_two_fields)
{
    QXmlStreamReader reader("<c><Seq><li>" + QByteArray(GetParam().item) + "</li></Seq></c>");
    ASSERT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(lightroom_importer::get_curve(reader), curve{GetParam().point}) << GetParam().item;
}

INSTANTIATE_TEST_SUITE_P(items, curve_point_test, ::testing::Values(
    curve_case{"0, 0", {0, 0}},
    curve_case{"64, 58", {64, 58}},
    curve_case{"64.5, 58", {0, 58}},
    curve_case{" 64 ,58 ", {64, 58}},
    curve_case{"+3, -4", {3, -4}},
    curve_case{"64", {64, 0}},
    curve_case{"1, 2, 3", {1, 2}},
    curve_case{"a, b", {0, 0}},
    curve_case{"", {0, 0}}));

TEST(xmp_reader, sub_readers_consume_their_element)
{
    QXmlStreamReader reader("<d><Name><Other><li>no</li></Other><Alt><x>skip</x><li></li><li>yes</li></Alt></Name>"
                            "<Curve><Seq><x/><li>1, 2</li></Seq><Bag><li>3, 4</li></Bag></Curve><After/></d>");
    ASSERT_TRUE(reader.readNextStartElement());
    ASSERT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(lightroom_importer::get_xmp_text(reader), QStringLiteral("yes"));
    ASSERT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(lightroom_importer::get_curve(reader), (curve{{1, 2}}));
    ASSERT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(reader.name(), QLatin1String("After"));
}

// Bad input: what happens, and that nothing crashes or hangs.

TEST(xmp_reader, malformed_xml_keeps_what_was_stored_and_warns)
{
    QByteArray data = xmp("crs:Exposure2012=\"+0.50\"", "<crs:Name><rdf:Alt><rdf:li>Warm</rdf:li></rdf:Alt></crs:Name>\n");
    data.truncate(data.indexOf("</rdf:Description>"));
    const log_capture log;
    lightroom_importer record;
    record.read_xmp_data(data);
    EXPECT_EQ(record.settings.value(QStringLiteral("Exposure2012")), QStringLiteral("+0.50"));
    EXPECT_EQ(record.name, QStringLiteral("Warm"));
    EXPECT_EQ(log.of_type(QtWarningMsg), QVector<QString>{QStringLiteral("4 Premature end of document.")});
}

TEST(xmp_reader, mismatched_tag_stops_reading)
{
    const log_capture log;
    lightroom_importer record;
    record.read_xmp_data(xmp("crs:Tint=\"3\"", seq("ToneCurvePV2012Red", "<rdf:li>1, 1</rdf:li>")
                                                  + "<crs:Name></crs:Nme>" + seq("ToneCurvePV2012Blue", "<rdf:li>2, 2</rdf:li>")));
    EXPECT_EQ(record.settings.value(QStringLiteral("Tint")), QStringLiteral("3"));
    EXPECT_EQ(record.tone_curve_red, (curve{{1, 1}}));
    EXPECT_TRUE(record.tone_curve_blue.isEmpty());
    const QVector<QString> warnings = log.of_type(QtWarningMsg);
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].startsWith(QStringLiteral("3 "))) << warnings[0].toStdString(); // NotWellFormedError
}

TEST(xmp_reader, empty_and_binary_data_warn)
{
    QByteArray binary(4096, '\0');
    quint32 state = 777;
    for (char& b : binary) {
        state = state * 1103515245u + 12345u;
        b = char(state >> 24);
    }
    for (const QByteArray& data : {QByteArray(), binary}) {
        const log_capture log;
        lightroom_importer record;
        record.read_xmp_data(data);
        EXPECT_TRUE(record.settings.isEmpty());
        EXPECT_EQ(log.of_type(QtWarningMsg).size(), 1);
    }
}

TEST(xmp_reader, missing_file_leaves_record_empty)
{
    QTemporaryDir dir;
    const log_capture log;
    lightroom_importer record;
    record.read_xmp(dir.filePath(QStringLiteral("absent.xmp")));
    EXPECT_TRUE(record.settings.isEmpty());
    EXPECT_TRUE(log.entries.isEmpty());
}

TEST(xmp_reader, utf16_file_with_bom_is_read)
{
    const QString text = QString::fromUtf8(
        xmp("crs:Exposure2012=\"1\"", "<crs:Name><rdf:Alt><rdf:li>\xc3\x89t\xc3\xa9</rdf:li></rdf:Alt></crs:Name>")
            .replace("encoding=\"UTF-8\"", "encoding=\"UTF-16\""));
    QTextEncoder encoder(QTextCodec::codecForName("UTF-16LE"), QTextCodec::IgnoreHeader);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("preset.xmp"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\xff\xfe" + encoder.fromUnicode(text));
    file.close();

    const log_capture log;
    lightroom_importer record;
    record.read_xmp(path);
    EXPECT_EQ(record.settings.value(QStringLiteral("Exposure2012")), QStringLiteral("1"));
    EXPECT_EQ(record.name, QStringLiteral("\u00c9t\u00e9"));
}

QByteArray billion_laughs(const QByteArray& attributes, const QByteArray& children)
{
    QByteArray doctype = "<?xml version=\"1.0\"?>\n<!DOCTYPE x:xmpmeta [\n <!ENTITY lol0 \"lollollollollollollollollollol\">\n";
    for (int i = 1; i <= 9; ++i) {
        doctype += " <!ENTITY lol" + QByteArray::number(i) + " \"";
        for (int j = 0; j < 10; ++j)
            doctype += "&lol" + QByteArray::number(i - 1) + ";";
        doctype += "\">\n";
    }
    doctype += "]>\n";
    return doctype + xmp(attributes, children).mid(int(qstrlen("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n")));
}

TEST(xmp_reader, billion_laughs_stops_with_an_error)
{
    const struct {
        const char* label;
        QByteArray data;
    } cases[] = {
        {"in element text", billion_laughs("crs:Tint=\"1\"", "<crs:Name><rdf:Alt><rdf:li>&lol9;</rdf:li></rdf:Alt></crs:Name>")},
        {"in an attribute", billion_laughs("crs:Tint=\"1\" crs:Look=\"&lol9;\"", "")},
        {"in a skipped element", billion_laughs("crs:Tint=\"1\"", "<crs:Group>&lol9;</crs:Group>")},
    };
    for (const auto& c : cases) {
        const log_capture log;
        QElapsedTimer timer;
        timer.start();
        lightroom_importer record;
        record.read_xmp_data(c.data);
        // A full expansion would be 3 * 10^9 characters; the limit stops it early.
        EXPECT_LT(timer.elapsed(), 5000) << c.label;
        EXPECT_TRUE(record.name.isEmpty()) << c.label;
        for (const QString& value : record.settings)
            EXPECT_LT(value.size(), 10000) << c.label;
        EXPECT_EQ(log.of_type(QtWarningMsg),
                  QVector<QString>{QStringLiteral("3 Entity expands to more characters than the entity expansion limit.")})
            << c.label;
    }
}

TEST(xmp_reader, external_entities_are_not_fetched)
{
    QTemporaryDir dir;
    QFile secret(dir.filePath(QStringLiteral("secret.txt")));
    ASSERT_TRUE(secret.open(QIODevice::WriteOnly));
    secret.write("top secret");
    secret.close();
    const QByteArray data = "<?xml version=\"1.0\"?>\n<!DOCTYPE x [ <!ENTITY ext SYSTEM \"file://"
        + secret.fileName().toUtf8() + "\"> ]>\n"
        + xmp("crs:Tint=\"1\"", "<crs:Name><rdf:Alt><rdf:li>&ext;</rdf:li></rdf:Alt></crs:Name>")
              .mid(int(qstrlen("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n")));
    const log_capture log;
    lightroom_importer record;
    record.read_xmp_data(data);
    EXPECT_EQ(record.settings.value(QStringLiteral("Tint")), QStringLiteral("1"));
    EXPECT_TRUE(record.name.isEmpty());
}

TEST(xmp_reader, large_attribute_and_deep_skipped_element)
{
    const QByteArray table(20 * 1000 * 1000, 'A');
    const int depth = 100000;
    const QByteArray deep = QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
    const log_capture log(false);
    lightroom_importer record;
    record.read_xmp_data(xmp("crs:Table_1=\"" + table + "\"", "<crs:Deep>" + deep + "</crs:Deep>"
                                                               + seq("ToneCurve", "<rdf:li>1, 2</rdf:li>")));
    EXPECT_EQ(record.settings.value(QStringLiteral("Table_1")).size(), table.size());
    EXPECT_EQ(record.tone_curve, (curve{{1, 2}}));
    EXPECT_TRUE(log.of_type(QtWarningMsg).isEmpty());
}

} // namespace
