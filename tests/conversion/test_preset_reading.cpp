#include "application/preset_reading.h"
#include "conversion/preset_fixtures.h"
#include "importer/lightroom_importer.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct suffix_case {
    const char* path;
    preset_format format;
};

void PrintTo(const suffix_case& c, std::ostream* os)
{
    *os << c.path;
}

class preset_format_test : public ::testing::TestWithParam<suffix_case> {};

TEST_P(preset_format_test, by_last_suffix_in_any_case)
{
    EXPECT_EQ(preset_format_of(QString::fromUtf8(GetParam().path)), GetParam().format);
}

INSTANTIATE_TEST_SUITE_P(suffixes, preset_format_test,
                         ::testing::Values(suffix_case{"/x/a.lrtemplate", preset_format::lrtemplate},
                                           suffix_case{"/x/a.LRTemplate", preset_format::lrtemplate},
                                           suffix_case{"Preset.XMP", preset_format::xmp},
                                           suffix_case{"My.Look.xmp", preset_format::xmp},
                                           suffix_case{"a.lrtemplate.bak", preset_format::unsupported},
                                           suffix_case{"a.agtemplate", preset_format::unsupported},
                                           suffix_case{"xmp", preset_format::unsupported},
                                           suffix_case{"/x.xmp/a", preset_format::unsupported}));

TEST(read_preset, dispatches_by_suffix)
{
    QTemporaryDir dir;
    const QMap<QString, QString> settings = {{QStringLiteral("Exposure2012"), QStringLiteral("+0.50")}};
    // The same XMP text under a template suffix would not be read as XMP.
    const QString xmp = preset_fixtures::write_file(QDir(dir.path()), QStringLiteral("a.Xmp"),
                                                    preset_fixtures::xmp_text(QStringLiteral("X"), settings));
    const QString lrtemplate =
        preset_fixtures::write_file(QDir(dir.path()), QStringLiteral("b.lrTemplate"),
                                    preset_fixtures::lrtemplate_text(QStringLiteral("T"), settings));

    lightroom_importer from_xmp;
    EXPECT_TRUE(read_preset(xmp, from_xmp));
    EXPECT_EQ(from_xmp.name, QStringLiteral("X"));
    EXPECT_EQ(from_xmp.settings.value(QStringLiteral("Exposure2012")), QStringLiteral("+0.50"));

    lightroom_importer from_template;
    EXPECT_TRUE(read_preset(lrtemplate, from_template));
    EXPECT_EQ(from_template.name, QStringLiteral("T"));
    EXPECT_EQ(from_template.settings.value(QStringLiteral("Exposure2012")), QStringLiteral("+0.50"));
}

TEST(read_preset, unsupported_suffix_leaves_record_untouched)
{
    lightroom_importer record;
    record.name = QStringLiteral("kept");
    EXPECT_FALSE(read_preset(QStringLiteral("/x/a.txt"), record));
    EXPECT_EQ(record.name, QStringLiteral("kept"));
    EXPECT_TRUE(record.settings.isEmpty());
}

} // namespace
