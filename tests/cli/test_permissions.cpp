// SPDX-License-Identifier: GPL-3.0-or-later
// What the file system refuses: a preset that cannot be read, an output folder
// that cannot be written, a full disk. Each run says why, exits 1 and leaves
// the earlier style as it was. As root, permissions bind only for another
// user, and only root can mount a small file system: a case that this machine
// cannot show is skipped.
#include "cli_runner.h"
#include "support/conversion_fixtures.h"

#include <QFileDevice>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace fixtures;

namespace {

const QByteArray earlier_style = "<?xml version=\"1.0\"?>\n<SL Engine=\"900\">\n</SL>\n";

// Runs the converter as nobody when root; says why not when it cannot.
QString as_other_user_when_root(const QString& work, run_mode& mode)
{
    if (geteuid() != 0)
        return QString();
    const process_result probe = run_cli({QStringLiteral("--version")}, QStringLiteral("/"), run_mode::other_user);
    if (probe.exit_code != 0)
        return QStringLiteral("the user nobody cannot run the converter from this build folder");
    mode = run_mode::other_user;
    QFile::setPermissions(work, QFileDevice::Permissions(0x7777));
    return QString();
}

struct refusal {
    const char* name;
    std::function<QString(const QString& work, run_mode& mode)> prepare; // why it cannot be shown, or empty
    QStringList arguments;
    QStringList messages;
};

const refusal refusals[] = {
    {"preset_that_cannot_be_read",
     [](const QString& work, run_mode& mode) {
         write_file(work, QStringLiteral("locked.xmp"), "x");
         QFile::setPermissions(work + QStringLiteral("/locked.xmp"), QFileDevice::Permissions());
         return as_other_user_when_root(work, mode);
     },
     {QStringLiteral("-o"), QStringLiteral("out"), QStringLiteral("locked.xmp")},
     {QStringLiteral("Error: locked.xmp: Can't open the file: Permission denied."),
      QStringLiteral("0 converted, 0 skipped, 1 failed")}},
    {"output_folder_not_writable",
     [](const QString& work, run_mode& mode) {
         const QString why = as_other_user_when_root(work, mode);
         QFile::setPermissions(work + QStringLiteral("/out"), QFileDevice::Permissions(0x5555));
         return why;
     },
     {QStringLiteral("-o"), QStringLiteral("out"), QStringLiteral("a.xmp")},
     {QStringLiteral("Error: a.xmp: Can't write style: The style out/a.costyle could not be written. Permission denied"),
      QStringLiteral("0 converted, 0 skipped, 1 failed")}},
    // A 64 KiB file system filled up but for a few hundred bytes.
    {"full_disk_for_a_style",
     [](const QString& work, run_mode&) {
         if (geteuid() != 0)
             return QStringLiteral("mounting a small file system needs root");
         const process_result mounted = run_program(
             QStringLiteral("mount"), {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                                       QStringLiteral("size=64k"), QStringLiteral("tmpfs"), work + QStringLiteral("/out")},
             work);
         if (mounted.exit_code != 0)
             return QStringLiteral("cannot mount a tmpfs here");
         write_file(work, QStringLiteral("out/keep.costyle"), earlier_style);
         QFile filler(work + QStringLiteral("/out/filler"));
         filler.open(QIODevice::WriteOnly);
         while (filler.write(QByteArray(4096, 'f')) == 4096 && filler.flush()) {
         }
         filler.resize(filler.size() - 2 * 4096);
         return QString();
     },
     {QStringLiteral("-o"), QStringLiteral("out"), QStringLiteral("a.xmp")},
     {QStringLiteral("Error: a.xmp: Can't write style: The style out/a.costyle could not be written. No space left on "
                     "device"),
      QStringLiteral("0 converted, 0 skipped, 1 failed")}},
};

class refused : public ::testing::TestWithParam<refusal> {};

TEST_P(refused, the_converter_says_why_and_keeps_the_earlier_style)
{
    const refusal& c = GetParam();
    QTemporaryDir work;
    write_file(work.path(), QStringLiteral("a.xmp"), read_file(QStringLiteral(STYLEWRIGHT_TEST_DATA_DIR "/work/a.xmp")));
    write_file(work.path(), QStringLiteral("out/keep.costyle"), earlier_style);
    run_mode mode = run_mode::plain;
    const QString why_not = c.prepare(work.path(), mode);
    const process_result result = why_not.isEmpty() ? run_cli(c.arguments, work.path(), mode) : process_result();
    const QByteArray kept = read_file(work.filePath(QStringLiteral("out/keep.costyle")));
    if (QString::fromLatin1(c.name).startsWith(QLatin1String("full_disk")))
        run_program(QStringLiteral("umount"), {work.filePath(QStringLiteral("out"))}, QStringLiteral("/"));
    if (!why_not.isEmpty())
        GTEST_SKIP() << why_not.toStdString();
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.error_lines().mid(result.error_lines().size() - c.messages.size()), c.messages) << result.err.constData();
    EXPECT_EQ(kept, earlier_style);
}

INSTANTIATE_TEST_SUITE_P(cli, refused, ::testing::ValuesIn(refusals),
                         [](const ::testing::TestParamInfo<refusal>& info) { return std::string(info.param.name); });

} // namespace
