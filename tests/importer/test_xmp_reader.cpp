// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer_test_support.h"

#include <QTextCodec>
#include <QXmlStreamReader>

static QByteArray xmp(const QByteArray& attributes, const QByteArray& children, const QByteArray& prolog = {})
{
    return (prolog.isEmpty() ? "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" : prolog)
        + "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
          " <rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
          "  <rdf:Description rdf:about=\"\" xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\"\n   "
        + attributes + ">\n" + children + "  </rdf:Description>\n </rdf:RDF>\n</x:xmpmeta>\n";
}

static QByteArray seq(const QByteArray& element, const QByteArray& items)
{
    return "<crs:" + element + "><rdf:Seq>" + items + "</rdf:Seq></crs:" + element + ">\n";
}

static QByteArray alt(const QByteArray& element, const QByteArray& text)
{
    return "<crs:" + element + "><rdf:Alt><rdf:li>" + text + "</rdf:li></rdf:Alt></crs:" + element + ">\n";
}

static QByteArray billion_laughs()
{
    QByteArray doctype = "<?xml version=\"1.0\"?>\n<!DOCTYPE x:xmpmeta [\n <!ENTITY lol0 \"lollollollol\">\n";
    for (int i = 1; i <= 9; ++i)
        doctype += " <!ENTITY lol" + QByteArray::number(i) + " \""
            + ("&lol" + QByteArray::number(i - 1) + ";").repeated(10) + "\">\n";
    return doctype + "]>\n";
}

// What is stored and what goes wrong (a warning or critical; a trailing * matches any rest), never a crash or a hang.
TEST(xmp_reader, reads_the_description_and_survives_odd_and_bad_documents)
{
    QByteArray truncated = xmp("crs:Exposure2012=\"+0.50\"", alt("Name", "Warm"));
    truncated.truncate(truncated.indexOf("</rdf:Description>"));
    QTextEncoder utf16(QTextCodec::codecForName("UTF-16LE"), QTextCodec::IgnoreHeader);
    const QByteArray utf16_document = "\xff\xfe" + utf16.fromUnicode(QString::fromUtf8(
        xmp("crs:Exposure2012=\"1\"", alt("Name", "\xc3\x89t\xc3\xa9"),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>")));
    QTemporaryDir dir;
    const QString secret = write_file(dir, "top secret", "secret.txt");
    const QString laughs = "3 Entity expands to more characters than the entity expansion limit.";

    const struct { const char* name; QByteArray data; QString record, problem = {}; } cases[] = {
        {"full description",
         xmp("crs:Exposure2012=\"+0.50\" crs:Temperature=\"5500\" crs:ToneCurvePV2012Red=\"attr\"",
             "<crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\"></rdf:li><rdf:li xml:lang=\"de\">Warm</rdf:li>"
             "<rdf:li xml:lang=\"en\">Later</rdf:li></rdf:Alt></crs:Name>\n" + alt("Description", "A <b>bold</b> look")
                 + alt("Group", "Skipped") + "<crs:Contrast2012>+10</crs:Contrast2012>\n"
                 + seq("ToneCurvePV2012", "<rdf:li>0, 0</rdf:li><rdf:li>64, 58</rdf:li><rdf:li>255, 255</rdf:li>")
                 + seq("ToneCurvePV2012Red", "<rdf:li>0, 10</rdf:li>")
                 + seq("ToneCurvePV2012Green", "<rdf:li>1, 2</rdf:li>")
                 + seq("ToneCurvePV2012Blue", "<rdf:li>3, 4</rdf:li>")),
         "Exposure2012=+0.50; Temperature=5500; ToneCurvePV2012Red=attr; about=; master: 0,0 64,58 255,255; "
         "red: 0,10; green: 1,2; blue: 3,4; name: Warm; description: A bold look"},
        {"later master curve wins", xmp("", seq("ToneCurvePV2012", "<rdf:li>1, 1</rdf:li>")
                                                + seq("ToneCurve", "<rdf:li>2, 2</rdf:li>")), "about=; master: 2,2"},
        {"empty seq replaces", xmp("", seq("ToneCurvePV2012", "<rdf:li>1, 1</rdf:li>") + seq("ToneCurvePV2012", "")),
         "about="},
        {"prefixes and namespaces ignored",
         "<xmpmeta><a:RDF xmlns:a=\"urn:other\"><Description Exposure2012=\"1\" b:Tint=\"2\" xmlns:b=\"urn:b\">"
         "<b:Name><Alt><li>Plain</li></Alt></b:Name></Description></a:RDF></xmpmeta>",
         "Exposure2012=1; Tint=2; name: Plain"},
        {"bare RDF root",
         "<rdf:RDF xmlns:rdf=\"r\"><rdf:Description crs:Exposure2012=\"1\" xmlns:crs=\"c\"/></rdf:RDF>",
         "", "No xmpmeta element found at start of document"},
        {"Description under xmpmeta", "<x:xmpmeta xmlns:x=\"x\"><Description Exposure2012=\"1\"/></x:xmpmeta>", "",
         "No RDF element found at start of document"},
        {"other element under RDF", "<xmpmeta><RDF><Bag><Description Exposure2012=\"1\"/></Bag></RDF></xmpmeta>", "",
         "No Description element found at start of document"},
        {"case matters", "<xmpmeta><rdf><Description Exposure2012=\"1\"/></rdf></xmpmeta>", "",
         "No RDF element found at start of document"},
        {"truncated: what was read stays", truncated, "Exposure2012=+0.50; about=; name: Warm",
         "4 Premature end of document."},
        {"mismatched tag stops reading",
         xmp("crs:Tint=\"3\"", seq("ToneCurvePV2012Red", "<rdf:li>1, 1</rdf:li>") + "<crs:Name></crs:Nme>"
                                   + seq("ToneCurvePV2012Blue", "<rdf:li>2, 2</rdf:li>")),
         "Tint=3; about=; red: 1,1", "3 *"},
        {"empty", "", "", "4 *"}, {"binary", random_bytes(4096, 777), "", "*"},
        {"UTF-16 with BOM", utf16_document, "Exposure2012=1; about=; name: \u00c9t\u00e9"},
        {"billion laughs in element text", xmp("crs:Tint=\"1\"", alt("Name", "&lol9;"), billion_laughs()),
         "Tint=1; about=", laughs},
        {"billion laughs in an attribute", xmp("crs:Tint=\"1\" crs:Look=\"&lol9;\"", "", billion_laughs()), "", laughs},
        {"billion laughs in a skipped element",
         xmp("crs:Tint=\"1\"", "<crs:Group>&lol9;</crs:Group>", billion_laughs()), "Tint=1; about=", laughs},
        {"external entity not fetched",
         xmp("crs:Tint=\"1\"", alt("Name", "&ext;"),
             "<?xml version=\"1.0\"?>\n<!DOCTYPE x [ <!ENTITY ext SYSTEM \"file://" + secret.toUtf8() + "\"> ]>\n"),
         "Tint=1; about="},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const log_capture log;
        lightroom_importer record;
        record.read_xmp_data(c.data);
        EXPECT_EQ(describe(record), c.record);
        const QString problems = (log.warnings() + log.of(QtCriticalMsg)).join('\n');
        EXPECT_TRUE(c.problem.endsWith('*') ? problems.startsWith(c.problem.chopped(1)) && !problems.contains('\n')
                                            : problems == c.problem) << problems.toStdString();
    }
    const log_capture log;
    lightroom_importer record;
    record.read_xmp("/nonexistent/folder/preset.xmp");
    EXPECT_EQ(describe(record), "");
    EXPECT_TRUE(log.empty());
    record.read_xmp_data(xmp("crs:Exposure2012=\"+0.50\"", alt("Group", "Skipped")));
    EXPECT_EQ(log.of(QtDebugMsg),
              (QStringList{"\"about\" -> \"\"", "\"Exposure2012\" -> \"+0.50\"", "Skipping \"Group\""}));
}

TEST(xmp_reader, large_attribute_and_deep_skipped_element)
{
    const QByteArray table(20 * 1000 * 1000, 'A');
    const QByteArray deep = QByteArray("<a>").repeated(100000) + QByteArray("</a>").repeated(100000);
    const log_capture log(false);
    lightroom_importer record;
    record.read_xmp_data(xmp("crs:Table_1=\"" + table + "\"",
                             "<crs:Deep>" + deep + "</crs:Deep>" + seq("ToneCurve", "<rdf:li>1, 2</rdf:li>")));
    EXPECT_EQ(record.settings.value("Table_1").size(), table.size());
    EXPECT_EQ(points_text(record.tone_curve), "1,2");
    EXPECT_TRUE(log.warnings().isEmpty());
}

TEST(xmp_reader, sub_readers_take_the_first_text_and_the_first_two_fields_of_points)
{
    const std::pair<const char*, const char*> items[] = {
        {"0, 0", "0,0"}, {"64, 58", "64,58"}, {"64.5, 58", "0,58"}, {" 64 ,58 ", "64,58"}, {"+3, -4", "3,-4"},
        {"64", "64,0"},  {"1, 2, 3", "1,2"},  {"a, b", "0,0"},      {"", "0,0"}};
    for (const auto& [item, point] : items) {
        QXmlStreamReader reader("<c><Seq><li>" + QByteArray(item) + "</li></Seq></c>");
        ASSERT_TRUE(reader.readNextStartElement());
        EXPECT_EQ(points_text(lightroom_importer::get_curve(reader)), point) << item;
    }
    // Each sub-reader consumes its element, skipping what it does not know.
    QXmlStreamReader reader("<d><Name><Other><li>no</li></Other><Alt><x>skip</x><li></li><li>yes</li></Alt></Name>"
                            "<Curve><Seq><x/><li>1, 2</li></Seq><Bag><li>3, 4</li></Bag></Curve><After/></d>");
    ASSERT_TRUE(reader.readNextStartElement() && reader.readNextStartElement());
    EXPECT_EQ(lightroom_importer::get_xmp_text(reader), "yes");
    ASSERT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(points_text(lightroom_importer::get_curve(reader)), "1,2");
    ASSERT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(reader.name(), QLatin1String("After"));
}
