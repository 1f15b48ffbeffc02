// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/stylepack_writer.h"
#include "support/conversion_fixtures.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace fixtures;

namespace {

QStringList logged;

// Writes a pack into a fresh folder holding a file "plain" and a folder "folder";
// returns the folder's entries afterwards, the pack's entries with their data and the lines logged.
QStringList write_pack(const QString& path, const settings_map& styles, bool category, bool expected_result,
                       const QByteArray& existing = QByteArray())
{
    QTemporaryDir dir;
    write_file(dir.path(), "plain", "x");
    QDir(dir.path()).mkdir("folder");
    if (!existing.isEmpty())
        write_file(dir.path(), path, existing);
    logged.clear();
    const auto log = [](QtMsgType type, const QMessageLogContext&, const QString& message) {
        logged << (type == QtDebugMsg ? "debug: " : type == QtWarningMsg ? "warning: " : "other: ") + message;
    };
    const QtMessageHandler previous = qInstallMessageHandler(log);
    EXPECT_EQ(write_stylepack(dir.filePath(path), styles, category), expected_result);
    qInstallMessageHandler(previous);
    EXPECT_EQ(read_file(dir.filePath("plain")), "x");
    EXPECT_TRUE(QDir(dir.filePath("folder")).isEmpty());
    EXPECT_TRUE(names_flagged_utf8(read_file(dir.filePath(path))));
    return QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name) +
           zip_entries(dir.filePath(path), true) + logged;
}

} // namespace

TEST(stylepack_writer, entries_are_named_in_name_order_and_replace_what_was_there)
{
    const settings_map two_styles = {{"b.costyle", "<b/>"}, {"a.costyle", "<a/>"}};
    const QByteArray old_pack = [] {
        QTemporaryDir dir;
        write_stylepack(dir.filePath("old"), {{"old.costyle", "<old/>"}, {"a.costyle", "<old a/>"}}, false);
        return read_file(dir.filePath("old"));
    }();
    const struct {
        const char* path;
        bool category;
        settings_map styles;
        QByteArray existing;
        QStringList after;
    } cases[] = {
        {"Looks.costylepack", false, two_styles, {},
         {"Looks.costylepack", "folder", "plain", "a.costyle: <a/>", "b.costyle: <b/>",
          "debug: Key 0: 'a.costyle' -> 'a.costyle'", "debug: Key 1: 'b.costyle' -> 'b.costyle'"}},
        {"Summer Looks.costylepack", true, {{"Warm.costyle", "<w/>"}}, {},
         {"Summer Looks.costylepack", "folder", "plain", "Summer Looks/Warm.costyle: <w/>",
          "debug: Key 0: 'Warm.costyle' -> 'Summer Looks/Warm.costyle'"}},
        // Used as given: no suffix is added.
        {"Pack", true, {{"a.costyle", "<a/>"}}, {},
         {"Pack", "folder", "plain", "Pack/a.costyle: <a/>", "debug: Key 0: 'a.costyle' -> 'Pack/a.costyle'"}},
        // Plain order of the names' code units, not the user's collation; UTF-8 names and data;
        // the folder is the complete base name.
        {"Töne.v2.costylepack", true, {{"b.costyle", "<b/>"}, {"Zürich.costyle", "<z/>"}, {"Café.costyle", "<é/>"}},
         {},
         {"Töne.v2.costylepack", "folder", "plain", "Töne.v2/Café.costyle: <é/>", "Töne.v2/Zürich.costyle: <z/>",
          "Töne.v2/b.costyle: <b/>", "debug: Key 0: 'Café.costyle' -> 'Töne.v2/Café.costyle'",
          "debug: Key 1: 'Zürich.costyle' -> 'Töne.v2/Zürich.costyle'",
          "debug: Key 2: 'b.costyle' -> 'Töne.v2/b.costyle'"}},
        {"x", false, {{"a.costyle", "<a/>"}}, old_pack,
         {"folder", "plain", "x", "a.costyle: <a/>", "debug: Key 0: 'a.costyle' -> 'a.costyle'"}},
        {"x", false, {{"a.costyle", "<a/>"}}, "not a zip",
         {"folder", "plain", "x", "a.costyle: <a/>", "debug: Key 0: 'a.costyle' -> 'a.costyle'"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(write_pack(c.path, c.styles, c.category, true, c.existing), c.after);
    }
    // No styles: nothing is written, and a file of that name stays.
    EXPECT_EQ(write_pack("x", {}, true, true, "kept"), (QStringList{"folder", "plain", "x"}));
}

TEST(stylepack_writer, failures_are_logged_and_leave_the_disk_as_it_was)
{
    const settings_map styles = {{"a.costyle", "<a/>"}};
    // libzip words a failure in its file layer's terms, which differ by system.
#ifdef Q_OS_WIN
    const QString below_a_file = "warning: libzip zip_open error 5: Read error: Unknown error";
    const QString a_folder = "warning: libzip zip_open error 11: Can't open file: Permission denied";
    // Windows refuses the missing folder at once.
    const QStringList in_a_missing_folder = {"folder", "plain",
                                             "warning: libzip zip_open error 5: Read error: Unknown error"};
#else
    const QString below_a_file = "warning: libzip zip_open error 5: Read error: Not a directory";
    const QString a_folder = "warning: libzip zip_open error 28: Operation not supported";
    // libzip opens an archive that does not exist yet without touching the
    // disk; the missing folder shows when its temporary file is made at close.
    const QStringList in_a_missing_folder = {"folder", "plain", "debug: Key 0: 'a.costyle' -> 'a.costyle'",
                                             "warning: libzip zip_close error -1: Unknown error -1"};
#endif
    // No entry is added and no close attempted after a failed open.
    EXPECT_EQ(write_pack("plain/Looks.costylepack", styles, false, false),
              (QStringList{"folder", "plain", below_a_file}));
    EXPECT_EQ(write_pack("folder", styles, false, false), (QStringList{"folder", "plain", a_folder}));
    EXPECT_EQ(write_pack("missing/Looks.costylepack", styles, false, false), in_a_missing_folder);
}
