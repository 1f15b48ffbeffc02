// SPDX-License-Identifier: GPL-3.0-or-later
#include "exiftool_oracle.h"
#include "importer/lightroom_importer.h"
#include "support/quiet_log.h"
#include "support/test_support.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

// The XMP reader checked against exiftool: every simple crs: property of the
// rdf:Description that exiftool reports must be in the record under its local
// name, with the same value.

namespace {

struct agreement {
    int files = 0;
    int agreeing_files = 0;
    int values = 0;
    int record_only = 0; // record entries exiftool does not list (rdf:about, other namespaces)
};

// Compares every file with exiftool's view and counts; failures name the file.
agreement compare_with_exiftool(const QStringList& paths)
{
    agreement result;
    QString error;
    const QMap<QString, exiftool_report> reports = exiftool_crs_properties(paths, error);
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    for (const QString& path : paths) {
        const exiftool_report report = reports.value(path);
        EXPECT_TRUE(report.listed) << path.toStdString() << ": exiftool has no listing for it";
        lightroom_importer record;
        {
            const quiet_log quiet;
            record.read_xmp(path);
        }
        // The record holds the last of repeated attributes; so does exiftool's
        // list when read in order.
        QMap<QString, QString> expected;
        for (const exiftool_property& p : report.properties)
            expected.insert(p.name, p.value);
        bool all_equal = true;
        for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
            const bool equal = record.settings.contains(it.key()) && record.settings.value(it.key()) == it.value();
            EXPECT_TRUE(equal) << QFileInfo(path).fileName().toStdString() << ": " << it.key().toStdString()
                               << ": exiftool \"" << it.value().toStdString() << "\", record "
                               << (record.settings.contains(it.key())
                                       ? "\"" + record.settings.value(it.key()).toStdString() + "\""
                                       : std::string("has no such key"));
            all_equal = all_equal && equal;
            result.values += equal ? 1 : 0;
        }
        for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it)
            result.record_only += expected.contains(it.key()) ? 0 : 1;
        ++result.files;
        result.agreeing_files += all_equal ? 1 : 0;
    }
    return result;
}

class exiftool_oracle : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (exiftool_program().isEmpty())
            GTEST_SKIP() << "exiftool not installed";
    }
};

TEST_F(exiftool_oracle, every_corpus_preset_holds_the_crs_values_exiftool_reports)
{
    if (test_support::corpus_dir().isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    const QDir folder(QDir(test_support::corpus_dir()).filePath(QStringLiteral("xmp")));
    QStringList paths;
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Name))
        paths << file.absoluteFilePath();
    ASSERT_FALSE(paths.isEmpty());

    const agreement a = compare_with_exiftool(paths);
    std::cout << a.files << " XMP presets against exiftool: " << a.agreeing_files << " agree on all " << a.values
              << " crs values exiftool reports; " << a.record_only
              << " record entries from other namespaces or rdf:about, which exiftool lists elsewhere\n";
    EXPECT_EQ(a.agreeing_files, a.files);
}

// Where exiftool and the reader part ways, each for a stated reason; the
// files are written here, so the reasons are pinned down exactly.
} // namespace
