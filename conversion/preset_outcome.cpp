// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/preset_outcome.h"

#include "writer/loss_groups.h"

#include <QCoreApplication>
#include <QStringList>

outcome_counts counts_of(const QVector<preset_outcome>& outcomes)
{
    outcome_counts counts;
    for (const preset_outcome& outcome : outcomes) {
        switch (outcome.kind) {
        case outcome_kind::converted:
            ++counts.converted;
            break;
        case outcome_kind::skipped:
            ++counts.skipped;
            break;
        case outcome_kind::failed:
            ++counts.failed;
            break;
        case outcome_kind::lost:
            ++counts.lost;
            break;
        case outcome_kind::not_saved:
            ++counts.not_saved;
            break;
        }
    }
    return counts;
}

// Translated in the main window's context, like the run's other messages.

namespace conversion_messages {

QString summary_line(const outcome_counts& counts)
{
    if (counts.lost == 0 && counts.not_saved == 0)
        return QCoreApplication::translate("MainWindow", "%1 converted, %2 skipped, %3 failed")
            .arg(counts.converted)
            .arg(counts.skipped)
            .arg(counts.failed);
    QStringList parts{QCoreApplication::translate("MainWindow", "%1 converted").arg(counts.converted)};
    if (counts.lost > 0)
        parts << QCoreApplication::translate("MainWindow", "%1 lost to a later style of the same name").arg(counts.lost);
    if (counts.not_saved > 0)
        parts << QCoreApplication::translate("MainWindow", "%1 not saved").arg(counts.not_saved);
    parts << QCoreApplication::translate("MainWindow", "%1 skipped").arg(counts.skipped)
          << QCoreApplication::translate("MainWindow", "%1 failed").arg(counts.failed);
    return parts.join(QStringLiteral(", "));
}

QString restart_capture_one()
{
    return QCoreApplication::translate("MainWindow", "Restart Capture One to see the new styles.");
}

QString pack_cancelled()
{
    return QCoreApplication::translate("MainWindow", "the style pack was cancelled");
}

namespace {

// A local adjustment's kind as the record counts it ("gradient"), in words.
QString adjustments_text(const QMap<QString, int>& counts)
{
    struct kind_words {
        const char* kind;
        const char* one;
        const char* many;
    };
    static const kind_words words[] = {
        {"brush", QT_TRANSLATE_NOOP("MainWindow", "%1 brush"), QT_TRANSLATE_NOOP("MainWindow", "%1 brushes")},
        {"gradient", QT_TRANSLATE_NOOP("MainWindow", "%1 linear gradient"),
         QT_TRANSLATE_NOOP("MainWindow", "%1 linear gradients")},
        {"mask_groups", QT_TRANSLATE_NOOP("MainWindow", "%1 mask"), QT_TRANSLATE_NOOP("MainWindow", "%1 masks")},
        {"radial", QT_TRANSLATE_NOOP("MainWindow", "%1 radial gradient"),
         QT_TRANSLATE_NOOP("MainWindow", "%1 radial gradients")},
    };
    QStringList parts;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        QString text = QStringLiteral("%1 ") + it.key();
        for (const kind_words& w : words) {
            if (it.key() == QLatin1String(w.kind))
                text = QCoreApplication::translate("MainWindow", it.value() == 1 ? w.one : w.many);
        }
        parts << text.arg(it.value());
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

QString loss_group_words(loss_group group)
{
    switch (group) {
    case loss_group::white_balance:
        return QCoreApplication::translate("MainWindow", "white balance");
    case loss_group::camera_calibration:
        return QCoreApplication::translate("MainWindow", "camera calibration");
    case loss_group::lens_corrections:
        return QCoreApplication::translate("MainWindow", "lens corrections");
    case loss_group::transform:
        return QCoreApplication::translate("MainWindow", "transform");
    case loss_group::crop:
        return QCoreApplication::translate("MainWindow", "crop");
    case loss_group::texture:
        return QCoreApplication::translate("MainWindow", "texture");
    case loss_group::dehaze:
        return QCoreApplication::translate("MainWindow", "dehaze");
    case loss_group::profile_and_look:
        return QCoreApplication::translate("MainWindow", "profile and Look");
    case loss_group::local_adjustments:
        return QCoreApplication::translate("MainWindow", "local adjustments");
    case loss_group::tone_curve_details:
        return QCoreApplication::translate("MainWindow", "tone curve details");
    case loss_group::hsl_and_colour_grading:
        return QCoreApplication::translate("MainWindow", "HSL and colour grading details");
    case loss_group::detail:
        return QCoreApplication::translate("MainWindow", "detail");
    case loss_group::effects:
        return QCoreApplication::translate("MainWindow", "effects");
    case loss_group::other:
        return QCoreApplication::translate("MainWindow", "other");
    }
    return QString();
}

QString losses_text(const preset_outcome& outcome)
{
    if (outcome.empty_style)
        return QCoreApplication::translate("MainWindow", "empty style");
    const style_losses& losses = outcome.losses;
    QStringList parts;
    for (const lost_group& lost : lost_groups(losses)) {
        switch (lost.group) {
        case loss_group::local_adjustments:
            parts << (losses.local_adjustments.isEmpty()
                          ? loss_group_words(lost.group)
                          : QCoreApplication::translate("MainWindow", "local adjustments (%1)")
                                .arg(adjustments_text(losses.local_adjustments)));
            break;
        case loss_group::profile_and_look:
            parts << (losses.look.isEmpty() ? loss_group_words(lost.group)
                                            : QCoreApplication::translate("MainWindow", "profile and the Look \u201c%1\u201d")
                                                  .arg(losses.look));
            break;
        case loss_group::white_balance:
            parts << (losses.white_balance.isEmpty()
                          ? loss_group_words(lost.group)
                          : QCoreApplication::translate("MainWindow", "white balance \u201c%1\u201d").arg(losses.white_balance));
            break;
        case loss_group::other:
            parts << (lost.keys.size() == 1
                          ? QCoreApplication::translate("MainWindow", "1 other setting")
                          : QCoreApplication::translate("MainWindow", "%1 other settings").arg(lost.keys.size()));
            break;
        default:
            parts << loss_group_words(lost.group);
            break;
        }
    }
    return parts.join(QStringLiteral(", "));
}

QString losses_details(const preset_outcome& outcome)
{
    QStringList lines;
    for (const lost_group& lost : lost_groups(outcome.losses)) {
        QString words = loss_group_words(lost.group);
        words[0] = words.at(0).toUpper();
        QString line = words;
        if (lost.group == loss_group::local_adjustments && !outcome.losses.local_adjustments.isEmpty())
            line += QStringLiteral(" (") + adjustments_text(outcome.losses.local_adjustments) + QLatin1Char(')');
        if (lost.group == loss_group::profile_and_look && !outcome.losses.look.isEmpty())
            line += QStringLiteral(" (\u201c") + outcome.losses.look + QStringLiteral("\u201d)");
        if (!lost.keys.isEmpty())
            line += QStringLiteral(": ") + lost.keys.join(QStringLiteral(", "));
        lines << line;
    }
    return lines.join(QLatin1Char('\n'));
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
    case outcome_kind::lost:
        return QCoreApplication::translate("MainWindow", "lost: replaced by the style of %1 (same file name)")
            .arg(outcome.replaced_by);
    case outcome_kind::not_saved:
        return QCoreApplication::translate("MainWindow", "not saved: %1").arg(outcome.reason);
    case outcome_kind::converted: {
        const QString line = outcome.in_pack
                                 ? QCoreApplication::translate("MainWindow", "converted into the pack as %1")
                                 : outcome.written_over
                                       ? QCoreApplication::translate("MainWindow",
                                                                     "converted into %1, written over an earlier file")
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
