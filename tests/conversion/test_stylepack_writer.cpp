#include "application/stylepack_writer.h"
#include "conversion/preset_fixtures.h"
#include "conversion/zip_reading.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace preset_fixtures;

namespace {

// Collects the log lines written while it lives.
class log_capture {
public:
    log_capture() : previous_(qInstallMessageHandler(&log_capture::handle)) { lines().clear(); }
    ~log_capture() { qInstallMessageHandler(previous_); }
    static QStringList& lines()
    {
        static QStringList captured;
        return captured;
    }

private:
    static void handle(QtMsgType type, const QMessageLogContext&, const QString& message)
    {
        lines() << (type == QtDebugMsg ? "debug: " : type == QtWarningMsg ? "warning: " : "other: ") + message;
    }
    QtMessageHandler previous_;
};

const settings_map two_styles = {{"b.costyle", "<b/>"}, {"a.costyle", "<a/>"}};

} // namespace

TEST(stylepack_writer, entries_are_named_in_name_order_flagged_utf8_and_replace_what_was_there)
{
    const QByteArray old_archive = [] {
        QTemporaryDir dir;
        write_stylepack(dir.filePath("old"), {{"old.costyle", "<old/>"}, {"a.costyle", "<old a/>"}}, false);
        return read_file(dir.filePath("old"));
    }();
    const struct {
        const char* file;
        bool category;
        settings_map styles;
        QByteArray existing;
        QStringList names;
    } cases[] = {
        {"Looks.costylepack", false, two_styles, {}, {"a.costyle", "b.costyle"}},
        {"Summer Looks.costylepack", true, {{"Warm.costyle", "<w/>"}}, {}, {"Summer Looks/Warm.costyle"}},
        // Used as given: no suffix is added.
        {"Pack", true, two_styles, {}, {"Pack/a.costyle", "Pack/b.costyle"}},
        // Plain order of the names' code units, not the user's collation.
        {"Sommer Farbtöne.costylepack", true, {{"b.costyle", "<b/>"}, {"Zürich.costyle", "<z/>"}, {"Café.costyle", "<é/>"}},
         {}, {"Sommer Farbtöne/Café.costyle", "Sommer Farbtöne/Zürich.costyle", "Sommer Farbtöne/b.costyle"}},
        {"Looks.costylepack", false, {{"a.costyle", "<a/>"}}, old_archive, {"a.costyle"}},
        {"Looks.costylepack", false, two_styles, "not a zip", {"a.costyle", "b.costyle"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        QTemporaryDir dir;
        const QString pack = dir.filePath(c.file);
        if (!c.existing.isEmpty())
            write_file(dir.path(), c.file, c.existing);
        log_capture log;
        ASSERT_TRUE(write_stylepack(pack, c.styles, c.category));

        const auto entries = zip_reading::entries(pack);
        EXPECT_EQ(zip_reading::names(pack), c.names);
        for (int i = 0; i < entries.size() && i < c.styles.size(); ++i)
            EXPECT_EQ(entries[i].second, c.styles.values().at(i).toUtf8());
        EXPECT_TRUE(zip_reading::names_flagged_utf8(read_file(pack)));
        EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{c.file});
        EXPECT_EQ(log_capture::lines().filter("warning").size(), 0);
    }
}

TEST(stylepack_writer, failures_are_logged_and_leave_the_disk_as_it_was)
{
    const struct {
        const char* path;
        QStringList log;
    } cases[] = {
        // No entry is added and no close attempted after a failed open.
        {"plain/Looks.costylepack", {"warning: libzip zip_open error 5: Read error: Not a directory"}},
        {"folder", {"warning: libzip zip_open error 28: Operation not supported"}},
        // libzip opens an archive that does not exist yet without touching the
        // disk; the missing folder shows when its temporary file is made at close.
        {"missing/Looks.costylepack",
         {"debug: Key 0: 'a.costyle' -> 'Looks/a.costyle'", "debug: Key 1: 'b.costyle' -> 'Looks/b.costyle'",
          "warning: libzip zip_close error -1: Unknown error -1"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        QTemporaryDir dir;
        write_file(dir.path(), "plain", "x");
        QDir(dir.path()).mkdir("folder");
        log_capture log;
        EXPECT_FALSE(write_stylepack(dir.filePath(c.path), two_styles, true));
        EXPECT_EQ(log_capture::lines(), c.log);
        EXPECT_EQ(read_file(dir.filePath("plain")), "x");
        EXPECT_EQ(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                  (QStringList{"folder", "plain"}));
        EXPECT_TRUE(QDir(dir.filePath("folder")).isEmpty());
    }
}

TEST(stylepack_writer, failed_close_keeps_the_earlier_archive)
{
    QTemporaryDir dir;
    const QString pack = dir.filePath("Looks.costylepack");
    ASSERT_TRUE(write_stylepack(pack, {{"old.costyle", "<old/>"}}, false));
    const QByteArray before = read_file(pack);
    // Incompressible data beyond the file-size limit makes the write inside zip_close fail.
    QString noise;
    for (int i = 0; i < 4096; ++i)
        noise += QChar(0x4e00 + (i * 7919) % 20000);
    bool written = true;
    with_file_size_limit(1024, [&] { written = write_stylepack(pack, {{"new.costyle", noise}}, false); });

    EXPECT_FALSE(written);
    EXPECT_EQ(read_file(pack), before);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"Looks.costylepack"});
}

TEST(stylepack_writer, no_styles_write_nothing)
{
    QTemporaryDir dir;
    log_capture log;
    EXPECT_TRUE(write_stylepack(dir.filePath("Looks.costylepack"), {}, true));
    EXPECT_TRUE(QDir(dir.path()).isEmpty());
    EXPECT_TRUE(log_capture::lines().isEmpty());
}
