// SPDX-License-Identifier: GPL-3.0-or-later
// Every question and failure of a run, as the window shows it (rich text, the
// name escaped) and as the command line prints it (one plain line, names as
// they are), against one record. Names and texts carry markup and "%1" so that
// neither escaping nor argument expansion can go wrong unseen.
#include "conversion/conversion_messages.h"
#include "support/golden.h"

using namespace conversion_messages;

TEST(conversion_messages, every_message_reads_as_recorded)
{
    const question_labels labels = translated_labels();
    const QString name = QStringLiteral("Warm <b>R&D</b> %1");
    const conversion_question questions[] = {
        white_balance_question(QStringLiteral("f"), name, labels),
        unsupported_parameters_question(QStringLiteral("f"), name, true, true, labels),
        unsupported_parameters_question(QStringLiteral("f"), name, false, true, labels),
        unsupported_parameters_question(QStringLiteral("f"), name, true, false, labels),
        camera_calibration_question(QStringLiteral("f"), name, labels)};
    const conversion_failure failures[] = {
        unsupported_format(QStringLiteral("/x/a&b.lrtemplate.bak")),
        unreadable_preset(QStringLiteral("/x/a<br>b %1.xmp"), QStringLiteral("line\nbreak\r\nin <%1>")),
        conversion_failed(QStringLiteral("/x/Warm.xmp")),
        write_failed(QStringLiteral("/x/a.xmp"), QStringLiteral("/out/a&b.costyle"), QStringLiteral("Disk <full>"))};
    QStringList record{labels.convert + QLatin1Char('|') + labels.skip + QLatin1Char('|') + labels.convert_all
                       + QLatin1Char('|') + labels.skip_all};
    for (const conversion_question& q : questions)
        record << QStringLiteral("== question %1").arg(int(q.kind)) << q.title << q.text << q.plain;
    for (const conversion_failure& f : failures)
        record << QStringLiteral("== failure %1").arg(int(f.kind)) << f.title << f.text << f.plain;
    test_support::expect_golden(QStringLiteral(STYLEWRIGHT_TEST_DATA_DIR "/messages.golden"), record.join(QLatin1Char('\n')));
}
