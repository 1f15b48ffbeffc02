// SPDX-License-Identifier: GPL-3.0-or-later
// The XMP reader against exiftool: every simple crs: property of the top
// rdf:Description that exiftool reports for a corpus preset must be in the
// record under its local name, with the same value.
#include "importer/lightroom_importer.h"
#include "support/log_capture.h"
#include "support/test_support.h"

#include <QDir>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace {

// Values as written: no print conversion (-n), unknown tags too (-u), every
// occurrence (-a), no guessing of numbers or dates in unknown tags. exiftool
// exits 1 when one file of many fails; only a failure to run counts.
QByteArray exiftool(const QStringList& arguments)
{
    QProcess process;
    process.start(QStandardPaths::findExecutable(QStringLiteral("exiftool")),
                  QStringList{QStringLiteral("-n"), QStringLiteral("-u"), QStringLiteral("-a"), QStringLiteral("-api"),
                              QStringLiteral("XMPAutoConv=0")} + arguments);
    return process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit
        ? process.readAllStandardOutput() : QByteArray();
}

// Per file, the properties exiftool lists, in its order, as local name ->
// value; the last of repeated ones wins, as in the record. The verbose listing
// gives each tag's property path (only a direct child of the Description is a
// simple property: no struct field, list item or language alternative); its
// values are cut short, so they come from the XML listing, matched by tag
// name and occurrence.
QHash<QString, QMap<QString, QString>> exiftool_properties(const QStringList& paths)
{
    QHash<QString, QHash<QString, QStringList>> names; // file -> tag -> local name per occurrence
    QHash<QString, QStringList>* current = paths.size() == 1 ? &names[paths.first()] : nullptr;
    const QRegularExpression file_line(QStringLiteral("^======== (.*)$")), tag_line(QStringLiteral("^  ([A-Za-z0-9_-]+) = ")),
        path_line(QStringLiteral("^  - Tag '(.*)'$")), direct(QStringLiteral("^x:xmpmeta/rdf:RDF/rdf:Description/crs:([^/]+)$"));
    QString tag;
    for (const QString& line : QString::fromUtf8(exiftool(QStringList{QStringLiteral("-v2")} + paths)).split(QLatin1Char('\n'))) {
        QRegularExpressionMatch match;
        if ((match = file_line.match(line)).hasMatch()) {
            current = &names[match.captured(1)];
        } else if ((match = tag_line.match(line)).hasMatch()) {
            tag = match.captured(1);
        } else if ((match = path_line.match(line)).hasMatch() && current && !tag.isEmpty()) {
            if (match.captured(1).contains(QLatin1String("/crs:")))
                (*current)[tag].append(direct.match(match.captured(1)).captured(1));
            tag.clear();
        }
    }
    QHash<QString, QMap<QString, QString>> properties;
    QXmlStreamReader xml(exiftool(QStringList{QStringLiteral("-X"), QStringLiteral("-XMP-crs:all")} + paths));
    QString file;
    QHash<QString, int> seen;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() == QLatin1String("RDF"))
            continue;
        if (xml.name() == QLatin1String("Description") && xml.prefix() == QLatin1String("rdf")) {
            file = xml.attributes().value(QStringLiteral("rdf:about")).toString();
            properties[file];
            seen.clear();
        } else if (xml.prefix() != QLatin1String("XMP-crs")) {
            xml.skipCurrentElement();
        } else {
            const QString name = xml.name().toString();
            const bool base64 = xml.attributes().value(QStringLiteral("rdf:datatype")).contains(QLatin1String("base64"));
            const QString value = xml.readElementText(QXmlStreamReader::SkipChildElements);
            const QString local = names.value(file).value(name).value(seen[name]++);
            if (!local.isEmpty() && !base64)
                properties[file].insert(local, value);
        }
    }
    return properties;
}

} // namespace

TEST(exiftool_oracle, every_corpus_preset_holds_the_crs_values_exiftool_reports)
{
    const QString corpus = test_support::corpus_dir();
    if (QStandardPaths::findExecutable(QStringLiteral("exiftool")).isEmpty() || corpus.isEmpty())
        GTEST_SKIP() << "exiftool or the corpus folder is missing";
    QStringList paths;
    for (const QFileInfo& file : QDir(corpus + QStringLiteral("/xmp")).entryInfoList(QDir::Files, QDir::Name))
        paths << file.absoluteFilePath();
    ASSERT_GT(paths.size(), 20);
    const QHash<QString, QMap<QString, QString>> reported = exiftool_properties(paths);
    int values = 0;
    for (const QString& path : paths) {
        ASSERT_TRUE(reported.contains(path)) << path.toStdString() << ": exiftool has no listing for it";
        lightroom_importer record;
        {
            const test_support::log_capture quiet(false);
            record.read_xmp(path);
        }
        const QMap<QString, QString>& expected = reported.value(path);
        for (auto it = expected.cbegin(); it != expected.cend(); ++it, ++values)
            EXPECT_EQ(record.settings.value(it.key(), QStringLiteral("(absent)")).toStdString(), it.value().toStdString())
                << QFileInfo(path).fileName().toStdString() << ": " << it.key().toStdString();
    }
    EXPECT_GT(values, 500) << values;
}
