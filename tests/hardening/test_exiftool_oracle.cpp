#include "exiftool_oracle.h"
#include "importer/lightroom_importer.h"
#include "quiet_log.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

// The XMP reader checked against exiftool: every simple crs: property of the
// rdf:Description that exiftool reports must be in the record under its local
// name, with the same value.

namespace {

struct agreement {
    int files = 0;
    int agreeing_files = 0;
    int values = 0;
    int record_only = 0; // record entries exiftool does not list (rdf:about, other namespaces)
};

// Compares every file with exiftool's view and counts; failures name the file.
agreement compare_with_exiftool(const QStringList& paths)
{
    agreement result;
    QString error;
    const QMap<QString, exiftool_report> reports = exiftool_crs_properties(paths, error);
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    for (const QString& path : paths) {
        const exiftool_report report = reports.value(path);
        EXPECT_TRUE(report.listed) << path.toStdString() << ": exiftool has no listing for it";
        lightroom_importer record;
        {
            const quiet_log quiet;
            record.read_xmp(path);
        }
        // The record holds the last of repeated attributes; so does exiftool's
        // list when read in order.
        QMap<QString, QString> expected;
        for (const exiftool_property& p : report.properties)
            expected.insert(p.name, p.value);
        bool all_equal = true;
        for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
            const bool equal = record.settings.contains(it.key()) && record.settings.value(it.key()) == it.value();
            EXPECT_TRUE(equal) << QFileInfo(path).fileName().toStdString() << ": " << it.key().toStdString()
                               << ": exiftool \"" << it.value().toStdString() << "\", record "
                               << (record.settings.contains(it.key())
                                       ? "\"" + record.settings.value(it.key()).toStdString() + "\""
                                       : std::string("has no such key"));
            all_equal = all_equal && equal;
            result.values += equal ? 1 : 0;
        }
        for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it)
            result.record_only += expected.contains(it.key()) ? 0 : 1;
        ++result.files;
        result.agreeing_files += all_equal ? 1 : 0;
    }
    return result;
}

class exiftool_oracle : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (exiftool_program().isEmpty())
            GTEST_SKIP() << "exiftool not installed";
    }
};

TEST_F(exiftool_oracle, every_corpus_preset_holds_the_crs_values_exiftool_reports)
{
    if (test_support::corpus_dir().isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    const QDir folder(QDir(test_support::corpus_dir()).filePath(QStringLiteral("xmp")));
    QStringList paths;
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Name))
        paths << file.absoluteFilePath();
    ASSERT_FALSE(paths.isEmpty());

    const agreement a = compare_with_exiftool(paths);
    std::cout << a.files << " XMP presets against exiftool: " << a.agreeing_files << " agree on all " << a.values
              << " crs values exiftool reports; " << a.record_only
              << " record entries from other namespaces or rdf:about, which exiftool lists elsewhere\n";
    EXPECT_EQ(a.agreeing_files, a.files);
}

// Where exiftool and the reader part ways, each for a stated reason; the
// files are written here, so the reasons are pinned down exactly.
struct difference_case {
    const char* name;
    const char* attributes; // of the rdf:Description, after its namespace declarations
    const char* key;
    const char* exiftool_value;
    const char* record_value;
};

void PrintTo(const difference_case& c, std::ostream* out)
{
    *out << c.name;
}

class exiftool_difference : public exiftool_oracle, public ::testing::WithParamInterface<difference_case> {};

TEST_P(exiftool_difference, exiftool_and_the_record_disagree_as_stated)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("case.xmp"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
                          "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
                          "xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" "
                          "xmlns:other=\"http://example.com/other/1.0/\" ")
               + GetParam().attributes + "/></rdf:RDF></x:xmpmeta>");
    file.close();

    QString error;
    const exiftool_report report = exiftool_crs_properties({path}, error).value(path);
    ASSERT_TRUE(error.isEmpty()) << error.toStdString();
    QString reported;
    for (const exiftool_property& p : report.properties)
        if (p.name == QLatin1String(GetParam().key))
            reported = p.value;
    lightroom_importer record;
    {
        const quiet_log quiet;
        record.read_xmp(path);
    }
    EXPECT_EQ(reported.toStdString(), GetParam().exiftool_value);
    EXPECT_EQ(record.settings.value(QLatin1String(GetParam().key)).toStdString(), GetParam().record_value);
}

INSTANTIATE_TEST_SUITE_P(
    hardening, exiftool_difference,
    ::testing::Values(
        // XML turns a literal tab or line break in an attribute value into a
        // space (a character reference stays what it names); Qt's reader
        // follows XML, exiftool keeps the literal character.
        difference_case{"attribute_value_normalisation", "crs:Tint=\"a\tb&#9;c\nd\"", "Tint", "a\tb\tc\nd",
                        "a b\tc d"},
        // The reader compares local names only, by design: an attribute of
        // another namespace with the same local name replaces the crs value.
        difference_case{"same_local_name_in_another_namespace", "crs:Exposure2012=\"+1.00\" other:Exposure2012=\"x\"",
                        "Exposure2012", "+1.00", "x"}),
    [](const ::testing::TestParamInfo<difference_case>& info) { return std::string(info.param.name); });

// Random presets with what XML allows in an attribute value and a preset
// rarely shows: character and entity references, white space that XML
// normalises, text beyond ASCII, any namespace prefix bound to the crs URI.
class xmp_generator {
public:
    explicit xmp_generator(std::uint32_t start_value) : random_(start_value) {}

    QByteArray make()
    {
        static const QStringList prefixes{QStringLiteral("crs"), QStringLiteral("c"), QStringLiteral("cameraRaw")};
        const QString prefix = prefixes.at(pick(0, prefixes.size() - 1));
        QString text = QStringLiteral("<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
                                      " <rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
                                      "  <rdf:Description rdf:about=\"\"\n"
                                      "    xmlns:%1=\"http://ns.adobe.com/camera-raw-settings/1.0/\"\n"
                                      "    xmlns:other=\"http://example.com/other/1.0/\"")
                           .arg(prefix);
        QStringList used;
        const int count = pick(1, 25);
        for (int i = 0; i < count; ++i) {
            QString name = key();
            if (used.contains(name))
                continue; // a repeated attribute is not well-formed XML
            used << name;
            text += QStringLiteral("\n    %1:%2=\"%3\"").arg(chance(90) ? prefix : QStringLiteral("other"), name, value());
        }
        text += QStringLiteral(">\n   <%1:Name><rdf:Alt><rdf:li xml:lang=\"x-default\">Generated</rdf:li></rdf:Alt></%1:Name>\n"
                               "  </rdf:Description>\n </rdf:RDF>\n</x:xmpmeta>\n")
                    .arg(prefix);
        return text.toUtf8();
    }

private:
    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
    bool chance(int percent) { return pick(1, 100) <= percent; }

    QString key()
    {
        static const QStringList common{
            QStringLiteral("Exposure2012"), QStringLiteral("Contrast2012"), QStringLiteral("Temperature"),
            QStringLiteral("Tint"),         QStringLiteral("ProcessVersion"), QStringLiteral("LookTable"),
            QStringLiteral("HueAdjustmentRed"), QStringLiteral("SplitToningShadowHue"), QStringLiteral("Dehaze"),
        };
        if (chance(60))
            return common.at(pick(0, common.size() - 1));
        QString name = QStringLiteral("Gen");
        const int length = pick(1, 8);
        for (int i = 0; i < length; ++i)
            name += QLatin1Char(static_cast<char>(chance(80) ? 'a' + pick(0, 25) : '0' + pick(0, 9)));
        return name;
    }

    QString value()
    {
        static const QStringList pieces{
            QStringLiteral("+0.50"), QStringLiteral("-12"), QStringLiteral("0"), QStringLiteral("True"),
            QStringLiteral("6.7"), QStringLiteral("As Shot"), QStringLiteral("&amp;"), QStringLiteral("&lt;"),
            QStringLiteral("&gt;"), QStringLiteral("&quot;"), QStringLiteral("&apos;"), QStringLiteral("&#x263A;"),
            QStringLiteral("&#233;"), QStringLiteral("\u00e9"), QStringLiteral("\u0416"), QStringLiteral("\u05d0"),
            QStringLiteral("\u25cf"), QStringLiteral(" "), QStringLiteral("  "), QStringLiteral(","), QStringLiteral("&#10;"),
            QStringLiteral("&#9;"),
            QStringLiteral("'"), QStringLiteral("1/3"), QStringLiteral("2024:01:02"), QStringLiteral("x"),
        };
        QString text;
        const int count = pick(0, 6);
        for (int i = 0; i < count; ++i)
            text += pieces.at(pick(0, pieces.size() - 1));
        return text;
    }

    std::mt19937 random_;
};

TEST_F(exiftool_oracle, generated_presets_hold_the_crs_values_exiftool_reports)
{
    // Enough files to meet every piece of the generator many times in two
    // exiftool runs.
    constexpr int preset_count = 200;
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    QStringList paths;
    for (int i = 0; i < preset_count; ++i) {
        const QString path = dir.filePath(QStringLiteral("generated-%1.xmp").arg(i));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(xmp_generator(static_cast<std::uint32_t>(i)).make());
        paths << path;
    }
    const agreement a = compare_with_exiftool(paths);
    std::cout << a.files << " generated XMP presets against exiftool: " << a.agreeing_files << " agree on all "
              << a.values << " crs values\n";
    EXPECT_EQ(a.agreeing_files, a.files);
}

} // namespace
