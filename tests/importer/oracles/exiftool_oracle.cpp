// SPDX-License-Identifier: GPL-3.0-or-later
#include "exiftool_oracle.h"

#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QXmlStreamReader>

namespace {

// exiftool starts a Perl interpreter and loads its tag tables, then reads
// every file: a few seconds for the corpus, far more on a loaded machine.
constexpr int exiftool_timeout_ms = 120000;

// The options that keep values as written: no print conversion (-n), unknown
// tags too (-u), every occurrence (-a), and no guessing of numbers or dates
// in unknown tags.
const QStringList raw_options{QStringLiteral("-n"), QStringLiteral("-u"), QStringLiteral("-a"),
                              QStringLiteral("-api"), QStringLiteral("XMPAutoConv=0")};

// exiftool's exit status is 1 when one file of many fails; its output for
// the others is still good, so only a failure to run counts.
bool run(const QStringList& arguments, QByteArray& output, QString& error)
{
    QProcess exiftool;
    exiftool.start(exiftool_program(), arguments);
    if (!exiftool.waitForFinished(exiftool_timeout_ms)) {
        exiftool.kill();
        exiftool.waitForFinished();
        error = QStringLiteral("exiftool did not finish");
        return false;
    }
    output = exiftool.readAllStandardOutput();
    if (exiftool.exitStatus() != QProcess::NormalExit) {
        error = QString::fromUtf8(exiftool.readAllStandardError()).trimmed();
        return false;
    }
    return true;
}

// Per file and tag name, in order, the local name of each occurrence that
// is a simple property of the top rdf:Description, or "" for one that is
// not (a struct field, a list item, an alternative-language text).
QHash<QString, QHash<QString, QStringList>> property_names(const QByteArray& verbose, const QStringList& paths)
{
    const QRegularExpression file_line(QStringLiteral("^======== (.*)$"));
    const QRegularExpression tag_line(QStringLiteral("^  ([A-Za-z0-9_-]+) = "));
    const QRegularExpression path_line(QStringLiteral("^  - Tag '(.*)'$"));
    const QRegularExpression direct_path(QStringLiteral("^x:xmpmeta/rdf:RDF/rdf:Description/crs:([^/]+)$"));

    QHash<QString, QHash<QString, QStringList>> names;
    // Only a listing of several files has a header line before each.
    QHash<QString, QStringList>* current = paths.size() == 1 ? &names[paths.first()] : nullptr;
    QString pending_tag;
    for (const QString& line : QString::fromUtf8(verbose).split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch file = file_line.match(line);
        if (file.hasMatch()) {
            current = &names[file.captured(1)];
            continue;
        }
        const QRegularExpressionMatch tag = tag_line.match(line);
        if (tag.hasMatch()) {
            pending_tag = tag.captured(1);
            continue;
        }
        const QRegularExpressionMatch path = path_line.match(line);
        if (path.hasMatch() && current && !pending_tag.isEmpty()) {
            const QString full = path.captured(1);
            if (full.contains(QLatin1String("/crs:"))) {
                const QRegularExpressionMatch direct = direct_path.match(full);
                (*current)[pending_tag].append(direct.hasMatch() ? direct.captured(1) : QString());
            }
            pending_tag.clear();
        }
    }
    return names;
}

} // namespace

QString exiftool_program()
{
    return QStandardPaths::findExecutable(QStringLiteral("exiftool"));
}

QMap<QString, exiftool_report> exiftool_crs_properties(const QStringList& xmp_paths, QString& error)
{
    QMap<QString, exiftool_report> reports;
    // The verbose listing names each tag and then its property path, in
    // extraction order; it truncates long values, so the values come from
    // the XML listing, matched by tag name and occurrence.
    QByteArray verbose;
    QByteArray listing;
    if (!run(QStringList{QStringLiteral("-v2")} + raw_options + xmp_paths, verbose, error)
        || !run(QStringList{QStringLiteral("-X")} + raw_options + QStringList{QStringLiteral("-XMP-crs:all")} + xmp_paths,
                listing, error))
        return reports;
    const QHash<QString, QHash<QString, QStringList>> names = property_names(verbose, xmp_paths);

    QXmlStreamReader xml(listing);
    QString file;
    QHash<QString, int> seen;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("RDF"))
            continue;
        if (xml.name() == QLatin1String("Description") && xml.prefix() == QLatin1String("rdf")) {
            file = xml.attributes().value(QStringLiteral("rdf:about")).toString();
            reports[file].listed = true;
            seen.clear();
            continue;
        }
        if (xml.prefix() != QLatin1String("XMP-crs")) {
            xml.skipCurrentElement();
            continue;
        }
        const QString tag = xml.name().toString();
        const bool base64 = xml.attributes().value(QStringLiteral("rdf:datatype")).contains(QLatin1String("base64"));
        // List and struct values have child elements; only plain text is a
        // simple property.
        const QString value = xml.readElementText(QXmlStreamReader::SkipChildElements);
        const QString name = names.value(file).value(tag).value(seen[tag]++);
        if (!name.isEmpty() && !base64)
            reports[file].properties.append({name, value});
    }
    if (xml.hasError())
        error = QStringLiteral("unreadable exiftool listing: ") + xml.errorString();
    return reports;
}
