// SPDX-License-Identifier: GPL-3.0-or-later
// Every real preset of the corpus, converted for each colour space and inspected, against the
// digests of what an earlier, checked build wrote: one golden record of every style, report and
// message.
#include "cli_runner.h"
#include "support/conversion_fixtures.h"
#include "support/dng_writer.h"
#include "support/golden.h"
#include "support/test_support.h"
#include "writer/colour_space.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const QString golden_path = QStringLiteral(STYLEWRIGHT_TEST_DATA_DIR "/corpus_golden.tsv");

QByteArray digest(const QByteArray& data)
{
    return QCryptographicHash::hash(data, QCryptographicHash::Sha1).toHex();
}

// Key -> digest, in key order.
using digests = QMap<QString, QByteArray>;

} // namespace

TEST(corpus_golden, every_style_report_and_message_is_as_recorded)
{
    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    // Messages name the files by the path given, which differs per machine.
    const auto machine_free = [&corpus](QByteArray text) { return text.replace(corpus.toUtf8(), "corpus"); };
    QTemporaryDir work;
    work.setAutoRemove(false); // kept on a failure, to look at the outputs
    digests actual;

    // A fresh identity per style is the one thing that differs between runs.
    const QRegularExpression uuid(QStringLiteral("<E K=\"UUID\"[^>]*>"));
    // One preset at a time for raw, on every core for the others: the same
    // files and the same messages either way.
    for (const colour_space each : all_colour_spaces) {
        const QString space = colour_space_name(each);
        const QString out = work.filePath(space);
        const QString jobs = each == colour_space::raw ? QStringLiteral("1") : QStringLiteral("2");
        const process_result run = run_cli({QStringLiteral("-j"), jobs, QStringLiteral("-c"), space,
                                            QStringLiteral("-o"), out, corpus},
                                           work.path());
        ASSERT_TRUE(run.finished);
        actual.insert(QStringLiteral("%1 messages").arg(space),
                      digest(machine_free(run.err) + "exit " + QByteArray::number(run.exit_code)));
        for (QDirIterator it(out, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
            QFile style(it.next());
            ASSERT_TRUE(style.open(QIODevice::ReadOnly));
            actual.insert(QStringLiteral("%1 %2").arg(space, QDir(out).relativeFilePath(it.filePath())),
                          digest(QString::fromUtf8(style.readAll()).remove(uuid).toUtf8()));
        }
    }
    const process_result inspected = run_cli({QStringLiteral("--inspect"), corpus}, work.path());
    const process_result inspected_alone = run_cli({QStringLiteral("-j"), QStringLiteral("1"), QStringLiteral("--inspect"), corpus}, work.path());
    EXPECT_EQ(inspected.out, inspected_alone.out);
    EXPECT_EQ(inspected.err, inspected_alone.err);
    EXPECT_EQ(actual.value(QStringLiteral("raw messages")), actual.value(QStringLiteral("srgb messages")));
    // Packs made one preset at a time and on every core hold the same entries;
    // unzip, which we did not write, reads the pack, and xmllint every style.
    QStringList entries[2];
    for (const int jobs : {1, 2}) {
        const QString pack = work.filePath(QStringLiteral("%1/Corpus.costylepack").arg(jobs));
        QDir(work.path()).mkdir(QString::number(jobs));
        run_cli({QStringLiteral("-j"), QString::number(jobs), QStringLiteral("--category"), QStringLiteral("-p"), pack, corpus}, work.path());
        entries[jobs - 1] = fixtures::zip_entries(pack);
    }
    EXPECT_EQ(entries[0], entries[1]);
    EXPECT_GT(entries[0].size(), 100);
    for (const auto& [tool, arguments] : {std::pair<const char*, QStringList>{"unzip", {QStringLiteral("-tq"), work.filePath(QStringLiteral("1/Corpus.costylepack"))}},
                                          std::pair<const char*, QStringList>{"sh", {QStringLiteral("-c"), QStringLiteral("find raw -name '*.costyle' -print0 | xargs -0 xmllint --noout")}}}) {
        if (QStandardPaths::findExecutable(QLatin1String(tool)).isEmpty() || QStandardPaths::findExecutable(QStringLiteral("xmllint")).isEmpty())
            continue;
        const process_result checked = run_program(QLatin1String(tool), arguments, work.path());
        EXPECT_EQ(checked.exit_code, 0) << tool << ": " << checked.out.constData() << checked.err.constData();
    }
    actual.insert(QStringLiteral("inspect messages"), digest(machine_free(inspected.err)));
    for (const QJsonValue report : QJsonDocument::fromJson(inspected.out).array()) {
        QJsonObject object = report.toObject();
        const QString file = QDir(corpus).relativeFilePath(object.value(QStringLiteral("file")).toString());
        object.insert(QStringLiteral("file"), file);
        actual.insert(QStringLiteral("inspect ") + file, digest(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    }

    QStringList lines;
    for (auto it = actual.cbegin(); it != actual.cend(); ++it)
        lines << it.key() + QLatin1Char('\t') + QString::fromLatin1(it.value());
    EXPECT_GT(lines.size(), 500);
    test_support::expect_golden(golden_path, lines.join(QLatin1Char('\n')));
    work.setAutoRemove(!::testing::Test::HasFailure());
}

// Every corpus XMP preset sold as a DNG gives the XMP's own style, from a
// file, a folder and a zip archive: its name where the XMP has one, else
// the DNG's file name.
TEST(corpus_golden, every_xmp_preset_as_a_dng_gives_the_xmp_s_style)
{
    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    QTemporaryDir work;
    QMap<QString, QByteArray> dngs;
    int form = 0;
    for (QDirIterator it(corpus + QStringLiteral("/xmp"), {QStringLiteral("*.xmp")}, QDir::Files); it.hasNext();) {
        const QString xmp = it.next();
        const dng::options forms[] = {{dng::byte_order::little, dng::packet_type::byte, true, false},
                                      {dng::byte_order::big, dng::packet_type::undefined, false, false}};
        dngs.insert(QFileInfo(xmp).completeBaseName() + QStringLiteral(".dng"),
                    dng::make(fixtures::read_file(xmp), forms[form++ % 2]));
    }
    for (auto it = dngs.cbegin(); it != dngs.cend(); ++it)
        fixtures::write_file(work.filePath(QStringLiteral("dng")), it.key(), it.value());
    fixtures::make_zip(work.filePath(QStringLiteral("Presets.zip")), dngs);
    const QStringList first_dng = {work.filePath(QStringLiteral("dng/") + dngs.firstKey())};
    const QRegularExpression uuid(QStringLiteral("<E K=\"UUID\"[^>]*>"));
    const auto styles_of = [&](const QStringList& given, const QString& out) {
        run_cli(QStringList{QStringLiteral("-o"), out} + given, work.path());
        QMap<QString, QString> styles;
        for (QDirIterator it(out, QDir::Files); it.hasNext();) {
            const QString path = it.next();
            styles.insert(QFileInfo(path).fileName(), QString::fromUtf8(fixtures::read_file(path)).remove(uuid));
        }
        return styles;
    };
    const QMap<QString, QString> from_xmp = styles_of({corpus + QStringLiteral("/xmp")}, work.filePath(QStringLiteral("x")));
    const QMap<QString, QString> from_folder = styles_of({work.filePath(QStringLiteral("dng"))}, work.filePath(QStringLiteral("f")));
    const QMap<QString, QString> from_zip = styles_of({work.filePath(QStringLiteral("Presets.zip"))}, work.filePath(QStringLiteral("z")));
    const QMap<QString, QString> from_file = styles_of(first_dng, work.filePath(QStringLiteral("one")));
    ASSERT_GT(from_folder.size(), 30);
    EXPECT_EQ(from_folder, from_zip);
    EXPECT_EQ(from_file.first(), from_folder.value(from_file.firstKey()));
    for (auto it = from_folder.cbegin(); it != from_folder.cend(); ++it) {
        QString expected = from_xmp.value(it.key());
        expected.replace(QStringLiteral("<E K=\"Name\" V=\"\"/>"),
                         QStringLiteral("<E K=\"Name\" V=\"%1\"/>").arg(QFileInfo(it.key()).completeBaseName()));
        EXPECT_EQ(it.value(), expected) << it.key().toStdString();
    }
}
