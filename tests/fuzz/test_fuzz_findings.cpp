// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz_targets.h"

#include <QDir>
#include <QFile>
#include <functional>
#include <gtest/gtest.h>

// Every input that once made a fuzz harness fail, and the harnesses' small
// hand-written start inputs, replayed through the harnesses' own code in the
// ordinary build and under the sanitizers. The folder of each input names its
// harness: tests/fuzz/findings/<harness>/.

namespace {

struct harness {
    const char* folder;
    std::function<void(const QByteArray&)> run;
};

const harness harnesses[] = {
    {"regular_template", fuzz_targets::regular_template},
    {"dot_notation", fuzz_targets::dot_notation},
    {"xmp", fuzz_targets::xmp},
    {"dng", fuzz_targets::dng},
    {"3dl", fuzz_targets::lut_3dl},
    {"costyle_writer", fuzz_targets::costyle_writer},
};

void PrintTo(const harness& h, std::ostream* out)
{
    *out << h.folder;
}

class fuzz_findings : public ::testing::TestWithParam<harness> {};

TEST_P(fuzz_findings, every_kept_input_runs_through_its_harness)
{
    fuzz_targets::silence_qt_messages();
    int replayed = 0;
    for (const QString& root : {QStringLiteral(STYLEWRIGHT_SOURCE_DIR "/tests/fuzz/findings"),
                                QStringLiteral(STYLEWRIGHT_SOURCE_DIR "/fuzz/inputs")}) {
        const QDir folder(QDir(root).filePath(QString::fromLatin1(GetParam().folder)));
        for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
            QFile file(folder.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
            SCOPED_TRACE(name.toStdString());
            GetParam().run(file.readAll());
            ++replayed;
        }
    }
    qInstallMessageHandler(nullptr);
    RecordProperty("replayed", replayed);
}

INSTANTIATE_TEST_SUITE_P(fuzz, fuzz_findings, ::testing::ValuesIn(harnesses),
                         [](const ::testing::TestParamInfo<harness>& info) {
                             return std::string(info.param.folder == std::string("3dl") ? "lut_3dl"
                                                                                         : info.param.folder);
                         });

} // namespace
