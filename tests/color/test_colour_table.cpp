// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/colour_table.h"
#include "color/stk_exception.h"
#include "writer/costyle_writer.h"

#include <QProcess>
#include <QResource>
#include <QTemporaryDir>
#include <gtest/gtest.h>

constexpr std::size_t cube = 17 * 17 * 17;
constexpr float top = 1023.0f / 1024.0f; // 10-bit 1023 reads as 1023/1024, not 1

static QByteArray lines_of(std::size_t count, int v)
{
    return (QByteArray::number(v) + ' ' + QByteArray::number(v) + ' ' + QByteArray::number(v) + '\n')
        .repeated(static_cast<int>(count));
}

TEST(load_3dl, reads_tables_blue_first_with_10_bit_scaling_or_throws_the_reason)
{
    const QByteArray header = "# t\n3DMESH\nMesh 4 10\n0 64 128 192 256 320 384 448 512 576 640 704 768 832 896 960 "
                              "1023\n";
    const std::string too_few = "ERROR while loading 3DL LUT: Less values than needed.";
    // On success: the edge length, one entry (by index) and its red, green and blue.
    const struct { const char* name; QByteArray data; std::string error; std::uint32_t size = 0; std::size_t index = 0;
                   float r = 0, g = 0, b = 0; } cases[] = {
        {"full table", header + lines_of(cube - 1, 512) + "1023 1023 1023\n", "", 17, cube - 1, top, top, top},
        {"values are red green blue", "0 1023\n256 512 768\n" + lines_of(7, 0), "", 2, 0, 0.25f, 0.5f, 0.75f},
        {"signed values, below 0 clamped", "0 1023\n+256 -512 768\n" + lines_of(7, 0), "", 2, 0, 0.25f, 0.0f, 0.75f},
        {"no grid line: 17 points", "3DMESH\n" + lines_of(cube - 1, 0) + "1023 512 0\n", "", 17, cube - 1, top, 0.5f},
        {"first data line without grid line", "1023 0 0\n" + lines_of(cube - 1, 0), "", 17, 0, top},
        {"short lines skipped, extra ignored", "0 1023\n# c\n\n1 2\n" + lines_of(8, 256) + "x\n", "", 2, 0, .25f, .25f,
         .25f},
        {"CRLF and byte order mark", "\xEF\xBB\xBF# t\r\n3DMESH\r\n0 1023\r\n" + lines_of(8, 512).replace("\n", "\r\n"),
         "", 2, 7, 0.5f, 0.5f, 0.5f},
        {"single grid value", "# t\n17\n" + lines_of(cube, 0),
         "ERROR while loading 3DL LUT: Edge length is less than 2."},
        {"one line short", header + lines_of(cube - 1, 0), too_few}, {"empty", "", too_few},
        {"header only", "# t\n3DMESH\nMesh 4 10\n", too_few},
        {"huge grid", "0 " + QByteArray("1 ").repeated(20000) + "\n" + lines_of(8, 0), too_few},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        colour_table table;
        table.title = "old";
        try {
            load_3dl_from_data(table, c.data);
        } catch (const stk::exception& e) {
            EXPECT_EQ(e.what(), c.error);
            continue;
        }
        ASSERT_TRUE(c.error.empty()) << "no error";
        EXPECT_TRUE(table.title.isEmpty());
        EXPECT_EQ(table.size, c.size);
        ASSERT_EQ(table.entries.size(), std::size_t(c.size) * c.size * c.size);
        const colour_entry& e = table.entries[c.index];
        EXPECT_EQ(std::make_tuple(e.r, e.g, e.b, e.a), std::make_tuple(c.r, c.g, c.b, 0.0f));
    }

    // From a file; one that cannot be read leaves the table alone.
    QTemporaryDir dir;
    QFile file(dir.filePath("table.3dl"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("0 1023\n" + lines_of(8, 256));
    file.close();
    colour_table table;
    load_3dl(table, file.fileName());
    load_3dl(table, dir.filePath("absent.3dl"));
    ASSERT_EQ(table.entries.size(), 8u);
    EXPECT_EQ(table.entries.front().r, 0.25f);
}

// The tables shipped as resources, as the writer loads them.
const char* const table_files[] = {"ProPhotoRGB_to_AdobeRGB1998.3dl", "ProPhotoRGB_to_sRGB.3dl",
                                   "ProPhotoRGB_to_WideGamutRGB.3dl"};

// The identity table passes colours through; the shipped ones are stored compressed.
TEST(colour_table_resources, identity_and_compressed_tables)
{
    colour_table table;
    fill_identity(table);
    ASSERT_EQ(table.entries.size(), cube);
    EXPECT_FLOAT_EQ(table.lookup(51, 102, 204).g, 0.4f);
    EXPECT_EQ(colour_table().lookup(10, 10, 10).r, 0.0f); // an incomplete table gives black
    for (const char* name : table_files)
        EXPECT_EQ(QResource(QStringLiteral(":/data/") + name).compressionAlgorithm(), QResource::ZlibCompression)
            << name;
}

TEST(colour_table_resources, generator_reproduces_the_shipped_tables)
{
#ifndef STYLEWRIGHT_TABLE_GENERATOR
    GTEST_SKIP() << "the table generator was not built (LittleCMS 2 missing)";
#else
    const costyle_writer writer; // registers the compiled-in tables
    QTemporaryDir dir;
    QProcess generator;
    generator.start(QStringLiteral(STYLEWRIGHT_TABLE_GENERATOR), {dir.path()});
    ASSERT_TRUE(generator.waitForFinished(60000));
    ASSERT_EQ(generator.exitCode(), 0) << generator.readAllStandardError().toStdString();
    for (const char* name : table_files) {
        QFile fresh(dir.filePath(name)), committed(STYLEWRIGHT_SOURCE_DIR "/resources/data/" + QString(name)),
            compiled_in(":/data/" + QString(name));
        ASSERT_TRUE(fresh.open(QIODevice::ReadOnly) && committed.open(QIODevice::ReadOnly)
                    && compiled_in.open(QIODevice::ReadOnly)) << name;
        const QByteArray generated = fresh.readAll();
        EXPECT_TRUE(generated == committed.readAll()) << name << " differs from the committed table";
        EXPECT_TRUE(generated == compiled_in.readAll()) << name << " differs from the compiled-in table";
    }
#endif
}
