// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/preset_outcome.h"

#include <QCoreApplication>
#include <QStringList>

// Translated in the main window's context, like the run's other messages.

namespace conversion_messages {

QString summary_line(const outcome_counts& counts)
{
    return QCoreApplication::translate("MainWindow", "%1 converted, %2 skipped, %3 failed")
        .arg(counts.converted)
        .arg(counts.skipped)
        .arg(counts.failed);
}

QString losses_text(const preset_outcome& outcome)
{
    if (outcome.empty_style)
        return QCoreApplication::translate("MainWindow", "empty style");
    const style_losses& losses = outcome.losses;
    QStringList parts;
    QStringList adjustments;
    for (auto it = losses.local_adjustments.cbegin(); it != losses.local_adjustments.cend(); ++it)
        adjustments << QStringLiteral("%1 %2").arg(it.value()).arg(it.key());
    if (!adjustments.isEmpty())
        parts << QCoreApplication::translate("MainWindow", "local adjustments (%1)")
                     .arg(adjustments.join(QStringLiteral(", ")));
    if (!losses.look.isEmpty())
        parts << QCoreApplication::translate("MainWindow", "the Look \u201c%1\u201d").arg(losses.look);
    if (!losses.white_balance.isEmpty())
        parts << QCoreApplication::translate("MainWindow", "white balance \u201c%1\u201d").arg(losses.white_balance);
    if (!losses.settings.isEmpty())
        parts << (losses.settings.size() == 1
                      ? QCoreApplication::translate("MainWindow", "1 other setting")
                      : QCoreApplication::translate("MainWindow", "%1 other settings").arg(losses.settings.size()));
    return parts.join(QStringLiteral(", "));
}

QString skip_line(const preset_outcome& outcome)
{
    if (outcome.kind != outcome_kind::skipped)
        return QString();
    switch (outcome.skipped_as) {
    case skip_reason::profile:
        return QCoreApplication::translate("MainWindow", "%1 is a Lightroom profile, not a develop preset; Capture "
                                                         "One cannot use Lightroom profiles.")
            .arg(outcome.file);
    case skip_reason::same_style:
        return QCoreApplication::translate("MainWindow", "%1 gives the same style as %2; written once")
            .arg(outcome.file, outcome.same_as);
    case skip_reason::question:
        break;
    }
    return QString();
}

QString outcome_line(const preset_outcome& outcome)
{
    switch (outcome.kind) {
    case outcome_kind::converted: {
        const QString line = outcome.in_pack
                                 ? QCoreApplication::translate("MainWindow", "converted into the pack as %1")
                                 : QCoreApplication::translate("MainWindow", "converted into %1");
        const QString lost = losses_text(outcome);
        if (lost.isEmpty())
            return line.arg(outcome.target);
        if (outcome.empty_style)
            return line.arg(outcome.target) + QStringLiteral("; ") + lost;
        return line.arg(outcome.target) + QStringLiteral("; ") +
               QCoreApplication::translate("MainWindow", "leaves out %1").arg(lost);
    }
    case outcome_kind::skipped:
        switch (outcome.skipped_as) {
        case skip_reason::profile:
            return QCoreApplication::translate("MainWindow", "skipped: a Lightroom profile, not a develop preset; "
                                                             "Capture One cannot use Lightroom profiles");
        case skip_reason::same_style:
            return QCoreApplication::translate("MainWindow", "skipped: gives the same style as %1; written once")
                .arg(outcome.same_as);
        case skip_reason::question:
            break;
        }
        if (outcome.skipped_silently)
            return QCoreApplication::translate("MainWindow", "skipped (Skip All): %1").arg(outcome.question_title);
        return QCoreApplication::translate("MainWindow", "skipped: %1").arg(outcome.question_title);
    case outcome_kind::failed:
        return QCoreApplication::translate("MainWindow", "failed: %1").arg(outcome.reason);
    }
    return QString();
}

} // namespace conversion_messages
