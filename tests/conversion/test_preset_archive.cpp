// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/preset_archive.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <zip.h>

#include <utility>
#include <vector>

namespace {

using entry_list = std::vector<std::pair<const char*, QByteArray>>;

// Writes an archive with exactly these entries (names stored as given) and returns its path.
QString make_archive(const QTemporaryDir& dir, const entry_list& entries)
{
    const QString path = dir.filePath(QStringLiteral("pack.zip"));
    int code = 0;
    zip_t* archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    for (const auto& [name, data] : entries) {
        zip_source_t* source = zip_source_buffer(archive, data.constData(), zip_uint64_t(data.size()), 0);
        zip_file_add(archive, name, source, ZIP_FL_ENC_UTF_8);
    }
    EXPECT_EQ(zip_close(archive), 0);
    return path;
}

QStringList summary(const archive_contents& contents, const archive_limits& limits = {})
{
    QStringList lines;
    if (contents.problem != archive_problem::none)
        lines << archive_problem_text(contents.problem, contents.detail, limits);
    for (const archive_preset& preset : contents.presets)
        lines << preset.entry + QStringLiteral(" = ") + QString::fromUtf8(preset.data);
    for (const archive_preset& archive : contents.archives)
        lines << archive.entry + QStringLiteral(": an archive of %1 bytes").arg(archive.data.size());
    for (const archive_refusal& refusal : contents.refusals)
        lines << refusal.entry + QStringLiteral(": ") + archive_problem_text(refusal.problem, refusal.detail, limits);
    return lines;
}

} // namespace

TEST(preset_archive, reads_presets_at_any_depth_and_refuses_what_could_escape_or_nest)
{
    QTemporaryDir dir;
    const QByteArray inner_zip = QByteArrayLiteral("PK\x05\x06") + QByteArray(18, '\0');
    const QString path = make_archive(dir, {{"Film/Portra.XMP", "p"},
                                            {"b.lrtemplate", "b"},
                                            {"Film/", ""},
                                            {"readme.txt", "ignored"},
                                            {"__MACOSX/Film/._Portra.XMP", "apple double"},
                                            {".hidden/a.xmp", "hidden"},
                                            {"../evil.xmp", "x"},
                                            {"/etc/abs.xmp", "x"},
                                            {"C:/drive.xmp", "x"},
                                            {"a\\b.xmp", "x"},
                                            {"Film/./dot.xmp", "x"},
                                            {"more/inner.ZIP", inner_zip}});
    EXPECT_EQ(summary(read_preset_archive(path)),
              QStringList({"Film/Portra.XMP = p", "b.lrtemplate = b", "more/inner.ZIP: an archive of 22 bytes",
                           "../evil.xmp: The entry's name leads outside the archive; it was not read.",
                           "/etc/abs.xmp: The entry's name leads outside the archive; it was not read.",
                           "C:/drive.xmp: The entry's name leads outside the archive; it was not read.",
                           "Film/./dot.xmp: The entry's name leads outside the archive; it was not read.",
                           "a\\b.xmp: The entry's name leads outside the archive; it was not read."}));
}

TEST(preset_archive, bounds_entries_and_sizes)
{
    QTemporaryDir dir;
    archive_limits limits;
    limits.max_entries = 3;
    limits.max_entry_size = 1000;
    limits.max_total_size = 1500;
    const QByteArray big(1001, 'z'); // compresses to almost nothing: only reading tells its size
    const QByteArray half(800, 'h');
    // Sizes: one over the entry limit; then two that pass alone but not together.
    QString path = make_archive(dir, {{"a.xmp", big}, {"b.xmp", half}, {"c.xmp", half}});
    EXPECT_EQ(summary(read_preset_archive(path, limits), limits),
              QStringList({"b.xmp = " + QString::fromLatin1(half),
                           "a.xmp: The preset is larger than 0 MB; it was not read.",
                           "c.xmp: The archive's presets together are larger than 0 MB; the rest was not read."}));
    path = make_archive(dir, {{"a.xmp", "1"}, {"b.xmp", "2"}, {"c.xmp", "3"}, {"d.xmp", "4"}});
    EXPECT_EQ(summary(read_preset_archive(path, limits), limits),
              QStringList({"The archive holds more than 3 entries; it was not read."}));
}

TEST(preset_archive, a_damaged_or_missing_archive_is_one_problem)
{
    QTemporaryDir dir;
    const QString path = make_archive(dir, {{"a.xmp", QByteArray(5000, 'a')}, {"b.xmp", "b"}});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.resize(file.size() / 2));
    file.close();
    for (const QString& broken : {path, dir.filePath("missing.zip"), dir.path()}) {
        const archive_contents contents = read_preset_archive(broken);
        EXPECT_EQ(contents.problem, archive_problem::unreadable) << broken.toStdString();
        EXPECT_TRUE(contents.presets.isEmpty() && contents.refusals.isEmpty());
        EXPECT_FALSE(contents.detail.isEmpty());
    }
}
