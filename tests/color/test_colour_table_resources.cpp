#include "writer/costyle_writer.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QResource>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

constexpr std::size_t cube = 17 * 17 * 17;

const char* const table_files[] = {
    "ProPhotoRGB_to_AdobeRGB1998.3dl",
    "ProPhotoRGB_to_sRGB.3dl",
    "ProPhotoRGB_to_WideGamutRGB.3dl",
};

// The shipped tables are read once per writer; share one for all tests here.
const costyle_writer& writer()
{
    static const costyle_writer shared;
    return shared;
}

TEST(colour_table_resources, constructor_loads_three_tables_and_the_identity)
{
    for (auto index : {costyle_writer::adobe_rgb, costyle_writer::srgb, costyle_writer::wide_gamut_rgb}) {
        const colour_table& table = writer().table(index);
        EXPECT_EQ(table.size, 17u) << index;
        ASSERT_EQ(table.entries.size(), cube) << index;
        const colour_entry& black = table.entries.front();
        EXPECT_EQ(black.r + black.g + black.b + black.a, 0.0f) << index;
        const colour_entry& white = table.entries.back();
        EXPECT_FLOAT_EQ(white.r, 1023.0f / 1024.0f) << index;
        EXPECT_FLOAT_EQ(white.g, 1023.0f / 1024.0f) << index;
        EXPECT_FLOAT_EQ(white.b, 1023.0f / 1024.0f) << index;
    }
    const colour_table& identity = writer().table(costyle_writer::identity);
    ASSERT_EQ(identity.entries.size(), cube);
    EXPECT_EQ(identity.entries.back().a, 1.0f);
}

TEST(colour_table_resources, srgb_table_meets_its_anchors)
{
    const colour_table& srgb = writer().table(costyle_writer::srgb);
    // Grid index of the blue axis -> expected 10-bit blue output at (0, 0, b).
    const std::pair<int, int> anchors[] = {{1, 88}, {2, 185}, {3, 273}, {15, 1023}, {16, 1023}};
    for (const auto& [index, expected] : anchors) {
        const colour_entry& e = srgb.entries[static_cast<std::size_t>(index)];
        EXPECT_EQ(e.r, 0.0f) << index;
        EXPECT_EQ(e.g, 0.0f) << index;
        EXPECT_NEAR(e.b * 1024.0f, expected, 2.0f) << index;
    }
}

TEST(colour_table_resources, tables_are_zlib_compressed_resources)
{
    writer();
    for (const char* name : table_files) {
        QResource resource(QStringLiteral(":/data/") + QLatin1String(name));
        ASSERT_TRUE(resource.isValid()) << name;
        EXPECT_EQ(resource.compressionAlgorithm(), QResource::ZlibCompression) << name;
    }
}

TEST(colour_table_resources, generator_reproduces_the_shipped_tables)
{
#ifndef STYLEWRIGHT_TABLE_GENERATOR
    GTEST_SKIP() << "the table generator was not built (LittleCMS 2 missing)";
#else
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    QProcess generator;
    generator.start(QStringLiteral(STYLEWRIGHT_TABLE_GENERATOR), {dir.path()});
    ASSERT_TRUE(generator.waitForFinished(60000));
    ASSERT_EQ(generator.exitStatus(), QProcess::NormalExit);
    ASSERT_EQ(generator.exitCode(), 0) << generator.readAllStandardError().toStdString();

    const QDir shipped(QStringLiteral(STYLEWRIGHT_SOURCE_DIR "/resources/data"));
    for (const char* name : table_files) {
        QFile fresh(dir.filePath(QLatin1String(name)));
        QFile committed(shipped.filePath(QLatin1String(name)));
        QFile compiled_in(QStringLiteral(":/data/") + QLatin1String(name));
        ASSERT_TRUE(fresh.open(QIODevice::ReadOnly)) << name;
        ASSERT_TRUE(committed.open(QIODevice::ReadOnly)) << name;
        ASSERT_TRUE(compiled_in.open(QIODevice::ReadOnly)) << name;
        const QByteArray generated = fresh.readAll();
        EXPECT_TRUE(generated == committed.readAll()) << name << " differs from the committed table";
        EXPECT_TRUE(generated == compiled_in.readAll()) << name << " differs from the compiled-in table";
    }
#endif
}

} // namespace
