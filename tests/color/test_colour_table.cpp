#include "color/colour_table.h"

#include "color/stk_exception.h"

#include <QTemporaryDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

constexpr int cube = 17 * 17 * 17;

// A 3DL body of `lines` data lines counting up from 0 in red, green, blue.
QByteArray data_lines(int lines, int value = -1)
{
    QByteArray text;
    for (int i = 0; i < lines; ++i) {
        const int v = value < 0 ? i % 1024 : value;
        text += QByteArray::number(v) + ' ' + QByteArray::number(v) + ' ' + QByteArray::number(v) + '\n';
    }
    return text;
}

const QByteArray header = "# title\n3DMESH\nMesh 4 10\n0 64 128 192 256 320 384 448 512 576 640 704 768 832 896 960 1023\n";

std::string load_error(const QByteArray& data)
{
    colour_table table;
    try {
        load_3dl_from_data(table, data);
    } catch (const stk::exception& e) {
        return e.what();
    }
    return "no error";
}

TEST(load_3dl, reads_a_full_table_with_10_bit_scaling)
{
    colour_table table;
    table.title = "old";
    QByteArray body = "0 0 0\n" + data_lines(cube - 2, 512) + "1023 1023 1023\n";
    load_3dl_from_data(table, header + body);
    EXPECT_EQ(table.size, 17u);
    ASSERT_EQ(table.entries.size(), static_cast<std::size_t>(cube));
    EXPECT_TRUE(table.title.isEmpty());
    const colour_entry& first = table.entries.front();
    EXPECT_EQ(first.b, 0.0f);
    EXPECT_EQ(first.a, 0.0f);
    const colour_entry& last = table.entries.back();
    // 10-bit 1023 is 1023/1024, not 1.
    EXPECT_FLOAT_EQ(last.r, 1023.0f / 1024.0f);
    EXPECT_FLOAT_EQ(last.g, 1023.0f / 1024.0f);
    EXPECT_FLOAT_EQ(last.b, 1023.0f / 1024.0f);
    EXPECT_EQ(last.a, 0.0f);
}

TEST(load_3dl, stores_blue_first)
{
    colour_table table;
    load_3dl_from_data(table, "0 1023\n" + QByteArray("256 512 768\n") + data_lines(7));
    ASSERT_EQ(table.size, 2u);
    EXPECT_FLOAT_EQ(table.entries[0].r, 0.25f);
    EXPECT_FLOAT_EQ(table.entries[0].g, 0.5f);
    EXPECT_FLOAT_EQ(table.entries[0].b, 0.75f);
}

TEST(load_3dl, file_without_grid_line_uses_the_17_point_default)
{
    colour_table table;
    load_3dl_from_data(table, "# no grid\n3DMESH\n" + data_lines(cube - 1, 0) + "1023 512 0\n");
    EXPECT_EQ(table.size, 17u);
    ASSERT_EQ(table.entries.size(), static_cast<std::size_t>(cube));
    EXPECT_FLOAT_EQ(table.entries.back().r, 1023.0f / 1024.0f);
    EXPECT_FLOAT_EQ(table.entries.back().g, 0.5f);
}

TEST(load_3dl, first_data_line_of_a_file_without_grid_line_counts)
{
    colour_table table;
    load_3dl_from_data(table, "1023 0 0\n" + data_lines(cube - 1, 0));
    ASSERT_EQ(table.entries.size(), static_cast<std::size_t>(cube));
    EXPECT_FLOAT_EQ(table.entries.front().r, 1023.0f / 1024.0f);
}

TEST(load_3dl, skips_short_body_lines_and_ignores_extra_lines)
{
    colour_table table;
    QByteArray body = "# comment\n\n1 2\n" + data_lines(8, 1023) + "not read at all\n";
    load_3dl_from_data(table, "0 1023\n" + body);
    EXPECT_EQ(table.entries.size(), 8u);
}

TEST(load_3dl, accepts_crlf_line_ends_and_a_byte_order_mark)
{
    QByteArray text = "\xEF\xBB\xBF# title\r\n3DMESH\r\nMesh 4 10\r\n0 1023\r\n";
    for (int i = 0; i < 8; ++i)
        text += "512 512 512\r\n";
    colour_table table;
    load_3dl_from_data(table, text);
    EXPECT_EQ(table.size, 2u);
    ASSERT_EQ(table.entries.size(), 8u);
    EXPECT_FLOAT_EQ(table.entries.back().b, 0.5f);
}

TEST(load_3dl, broken_files_throw_with_the_reason)
{
    struct error_case {
        const char* name;
        QByteArray data;
        std::string message;
    };
    const error_case cases[] = {
        {"single grid value", "# t\n17\n" + data_lines(cube), "ERROR while loading 3DL LUT: Edge length is less than 2."},
        {"one line short", header + data_lines(cube - 1), "ERROR while loading 3DL LUT: Less values than needed."},
        {"empty", "", "ERROR while loading 3DL LUT: Less values than needed."},
        {"header only", "# t\n3DMESH\nMesh 4 10\n", "ERROR while loading 3DL LUT: Less values than needed."},
        {"huge grid", "0 " + QByteArray(20000, '1').replace("1", "1 ") + "\n" + data_lines(8),
         "ERROR while loading 3DL LUT: Less values than needed."},
    };
    for (const error_case& c : cases)
        EXPECT_EQ(load_error(c.data), c.message) << c.name;
}

TEST(load_3dl, unreadable_file_leaves_the_table_alone)
{
    colour_table table;
    table.size = 17;
    table.entries.resize(cube);
    table.title = "kept";
    load_3dl(table, QStringLiteral("/nonexistent/folder/table.3dl"));
    EXPECT_EQ(table.size, 17u);
    EXPECT_EQ(table.entries.size(), static_cast<std::size_t>(cube));
    EXPECT_EQ(table.title, "kept");
}

TEST(load_3dl, reads_from_a_file)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    QFile file(dir.filePath("table.3dl"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("0 1023\n" + data_lines(8, 256));
    file.close();
    colour_table table;
    load_3dl(table, file.fileName());
    ASSERT_EQ(table.entries.size(), 8u);
    EXPECT_FLOAT_EQ(table.entries.front().r, 0.25f);
}

TEST(colour_table, identity_table_and_its_lookups)
{
    colour_table table;
    fill_identity(table);
    EXPECT_EQ(table.size, 17u);
    ASSERT_EQ(table.entries.size(), static_cast<std::size_t>(cube));
    const colour_entry& red = table.entries[16 * 17 * 17];
    EXPECT_EQ(red.r, 1.0f);
    EXPECT_EQ(red.g, 0.0f);
    EXPECT_EQ(red.a, 1.0f);

    const colour_entry white = table.lookup(255, 255, 255);
    EXPECT_FLOAT_EQ(white.b, 1.0f);
    EXPECT_FLOAT_EQ(white.g, 1.0f);
    EXPECT_FLOAT_EQ(white.r, 1.0f);
    EXPECT_FLOAT_EQ(white.a, 1.0f);
    const colour_entry black = table.lookup(0, 0, 0);
    EXPECT_EQ(black.b, 0.0f);
    EXPECT_EQ(black.g, 0.0f);
    EXPECT_EQ(black.r, 0.0f);
    EXPECT_EQ(black.a, 1.0f);
    EXPECT_NEAR(table.lookup(128, 0, 0).r, 128.0f / 255.0f, 1e-6);
}

TEST(colour_table, trilinear_lookup_reproduces_the_identity_everywhere)
{
    colour_table table;
    fill_identity(table);
    for (int r = 0; r < 256; r += 37)
        for (int g = 3; g < 256; g += 41)
            for (int b = 7; b < 256; b += 29) {
                const colour_entry e = table.lookup(r, g, b);
                EXPECT_NEAR(e.r, r / 255.0f, 1e-5) << r << "," << g << "," << b;
                EXPECT_NEAR(e.g, g / 255.0f, 1e-5) << r << "," << g << "," << b;
                EXPECT_NEAR(e.b, b / 255.0f, 1e-5) << r << "," << g << "," << b;
                EXPECT_FLOAT_EQ(e.a, 1.0f);
            }
}

TEST(colour_table, lookup_is_safe_on_incomplete_tables_and_wild_input)
{
    colour_table empty;
    const colour_entry none = empty.lookup(10, 10, 10);
    EXPECT_EQ(none.r, 0.0f);

    colour_table table;
    fill_identity(table);
    const colour_entry clamped = table.lookup(-20, 999, 128);
    EXPECT_EQ(clamped.r, 0.0f);
    EXPECT_FLOAT_EQ(clamped.g, 1.0f);
}

} // namespace
