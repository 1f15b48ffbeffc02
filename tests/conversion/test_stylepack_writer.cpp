#include "application/stylepack_writer.h"
#include "conversion/preset_fixtures.h"
#include "conversion/zip_reading.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/resource.h>

namespace {

// Collects the log lines written while it lives.
class log_capture {
public:
    log_capture()
    {
        previous_ = qInstallMessageHandler(&log_capture::handle);
        lines().clear();
    }
    ~log_capture() { qInstallMessageHandler(previous_); }
    static QStringList& lines()
    {
        static QStringList captured;
        return captured;
    }

private:
    static void handle(QtMsgType type, const QMessageLogContext&, const QString& message)
    {
        static const char* const names[] = {"debug", "warning", "critical", "fatal", "info"};
        lines().append(QString::fromLatin1(names[type]) + QStringLiteral(": ") + message);
    }
    QtMessageHandler previous_;
};

const QMap<QString, QString> two_styles = {{QStringLiteral("b.costyle"), QStringLiteral("<b/>")},
                                           {QStringLiteral("a.costyle"), QStringLiteral("<a/>")}};

class stylepack_writer_test : public ::testing::Test {
protected:
    QString path(const QString& name) const { return QDir(dir_.path()).filePath(name); }
    QTemporaryDir dir_;
};

TEST_F(stylepack_writer_test, entries_at_top_level_in_name_order)
{
    const QString pack = path(QStringLiteral("Looks.costylepack"));
    ASSERT_TRUE(write_stylepack(pack, two_styles, false));

    const auto entries = zip_reading::entries(pack);
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].name, QStringLiteral("a.costyle"));
    EXPECT_EQ(entries[0].data, QByteArray("<a/>"));
    EXPECT_EQ(entries[1].name, QStringLiteral("b.costyle"));
    EXPECT_EQ(entries[1].data, QByteArray("<b/>"));
}

TEST_F(stylepack_writer_test, category_folder_is_the_pack_base_name)
{
    const QString pack = path(QStringLiteral("Summer Looks.costylepack"));
    log_capture log;
    ASSERT_TRUE(write_stylepack(pack, {{QStringLiteral("Warm.costyle"), QStringLiteral("<w/>")}}, true));

    EXPECT_EQ(zip_reading::names(pack), QStringList{QStringLiteral("Summer Looks/Warm.costyle")});
    EXPECT_TRUE(
        log_capture::lines().contains(QStringLiteral("debug: Key 0: 'Warm.costyle' -> 'Summer Looks/Warm.costyle'")));
}

TEST_F(stylepack_writer_test, path_without_suffix_is_used_as_given)
{
    const QString pack = path(QStringLiteral("Pack"));
    ASSERT_TRUE(write_stylepack(pack, two_styles, true));

    EXPECT_TRUE(QFileInfo(pack).isFile());
    EXPECT_EQ(QDir(dir_.path()).entryList(QDir::Files), QStringList{QStringLiteral("Pack")});
    EXPECT_EQ(zip_reading::names(pack),
              (QStringList{QStringLiteral("Pack/a.costyle"), QStringLiteral("Pack/b.costyle")}));
}

TEST_F(stylepack_writer_test, names_are_utf8_and_flagged)
{
    const QString pack = path(QStringLiteral("Sommer Farbtöne.costylepack"));
    const QMap<QString, QString> styles = {{QStringLiteral("Café.costyle"), QStringLiteral("<é/>")},
                                           {QStringLiteral("Zürich.costyle"), QStringLiteral("<z/>")}};
    ASSERT_TRUE(write_stylepack(pack, styles, true));

    const auto entries = zip_reading::entries(pack);
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].name, QStringLiteral("Sommer Farbtöne/Café.costyle"));
    EXPECT_EQ(entries[0].data, QStringLiteral("<é/>").toUtf8());
    const auto flags = zip_reading::central_flags(preset_fixtures::read_file(pack));
    ASSERT_EQ(flags.size(), 2);
    for (const quint16 flag : flags)
        EXPECT_TRUE(flag & zip_reading::utf8_name_flag);
}

TEST_F(stylepack_writer_test, existing_archive_is_replaced_wholly)
{
    const QString pack = path(QStringLiteral("Looks.costylepack"));
    ASSERT_TRUE(write_stylepack(pack,
                                {{QStringLiteral("old.costyle"), QStringLiteral("<old/>")},
                                 {QStringLiteral("a.costyle"), QStringLiteral("<old a/>")}},
                                false));
    ASSERT_TRUE(write_stylepack(pack, {{QStringLiteral("a.costyle"), QStringLiteral("<a/>")}}, false));

    const auto entries = zip_reading::entries(pack);
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0].name, QStringLiteral("a.costyle"));
    EXPECT_EQ(entries[0].data, QByteArray("<a/>"));
}

TEST_F(stylepack_writer_test, a_file_that_is_no_archive_is_replaced)
{
    const QString pack = preset_fixtures::write_file(QDir(dir_.path()), QStringLiteral("x.costylepack"), "not a zip");
    ASSERT_TRUE(write_stylepack(pack, two_styles, false));
    EXPECT_EQ(zip_reading::names(pack).size(), 2);
}

TEST_F(stylepack_writer_test, path_below_a_file_gives_open_warning_and_nothing_more)
{
    const QString file = preset_fixtures::write_file(QDir(dir_.path()), QStringLiteral("plain"), "x");
    log_capture log;
    EXPECT_FALSE(write_stylepack(file + QStringLiteral("/Looks.costylepack"), two_styles, false));

    // No entry is added and no close attempted after a failed open.
    EXPECT_EQ(log_capture::lines(),
              QStringList{QStringLiteral("warning: libzip zip_open error 5: Read error: Not a directory")});
    EXPECT_EQ(preset_fixtures::read_file(file), QByteArray("x"));
}

TEST_F(stylepack_writer_test, folder_as_path_gives_open_warning)
{
    const QString folder = path(QStringLiteral("Looks.costylepack"));
    ASSERT_TRUE(QDir(dir_.path()).mkdir(QStringLiteral("Looks.costylepack")));
    log_capture log;
    EXPECT_FALSE(write_stylepack(folder, two_styles, false));
    EXPECT_EQ(log_capture::lines(),
              QStringList{QStringLiteral("warning: libzip zip_open error 28: Operation not supported")});
    EXPECT_TRUE(QFileInfo(folder).isDir());
}

TEST_F(stylepack_writer_test, missing_folder_fails_on_close)
{
    // libzip opens an archive that does not exist yet without touching the disk;
    // the missing folder shows when the temporary file is made at close.
    const QString pack = path(QStringLiteral("missing/Looks.costylepack"));
    log_capture log;
    EXPECT_FALSE(write_stylepack(pack, two_styles, false));

    EXPECT_EQ(log_capture::lines(),
              (QStringList{QStringLiteral("debug: Key 0: 'a.costyle' -> 'a.costyle'"),
                           QStringLiteral("debug: Key 1: 'b.costyle' -> 'b.costyle'"),
                           QStringLiteral("warning: libzip zip_close error -1: Unknown error -1")}));
    EXPECT_FALSE(QFile::exists(pack));
}

TEST_F(stylepack_writer_test, failed_close_keeps_the_earlier_archive)
{
    const QString pack = path(QStringLiteral("Looks.costylepack"));
    ASSERT_TRUE(write_stylepack(pack, {{QStringLiteral("old.costyle"), QStringLiteral("<old/>")}}, false));
    const QByteArray before = preset_fixtures::read_file(pack);
    // Incompressible data larger than the file-size limit makes the temporary
    // archive's write fail inside zip_close.
    QString noise;
    for (int i = 0; i < 4096; ++i)
        noise += QChar(0x4e00 + (i * 7919) % 20000);
    rlimit saved{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &saved), 0);
    rlimit tiny = saved;
    tiny.rlim_cur = 1024;
    auto* previous_handler = signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tiny), 0);
    const bool written = write_stylepack(pack, {{QStringLiteral("new.costyle"), noise}}, false);
    setrlimit(RLIMIT_FSIZE, &saved);
    signal(SIGXFSZ, previous_handler);

    EXPECT_FALSE(written);
    EXPECT_EQ(preset_fixtures::read_file(pack), before);
    EXPECT_EQ(QDir(dir_.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("Looks.costylepack")});
}

TEST_F(stylepack_writer_test, empty_map_writes_nothing)
{
    const QString pack = path(QStringLiteral("Looks.costylepack"));
    log_capture log;
    EXPECT_TRUE(write_stylepack(pack, {}, true));
    EXPECT_FALSE(QFile::exists(pack));
    EXPECT_TRUE(log_capture::lines().isEmpty());
}

TEST_F(stylepack_writer_test, no_temporary_file_is_left_beside_the_archive)
{
    ASSERT_TRUE(write_stylepack(path(QStringLiteral("Looks.costylepack")), two_styles, false));
    EXPECT_EQ(QDir(dir_.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("Looks.costylepack")});
}

} // namespace
