// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/preset_step.h"

#include "conversion/held_log.h"
#include "conversion/preset_reading.h"
#include "writer/carried_settings.h"
#include "writer/costyle_writer.h"

#include <QDebug>
#include <QLoggingCategory>
#include <QThreadPool>

#include <deque>
#include <exception>
#include <future>
#include <stdexcept>

preset_step::preset_step(preset_source preset, QString colour_space, bool learn_losses)
    : source(std::move(preset)), colour_space_(std::move(colour_space)), learn_losses_(learn_losses)
{
}

void preset_step::read_and_check()
{
    read_preset(source, record);
    profile = is_lightroom_profile(record.extras);
    // Rendering a settings map of a hundred entries costs more than the rest of
    // the bookkeeping; only do it when someone listens.
    if (QLoggingCategory::defaultCategory()->isDebugEnabled())
        qDebug() << record.settings;
    const costyle_writer writer;
    writer.check_costyle(white_balance, dehaze, lut, camera_calibration, record);
}

void preset_step::build_style()
{
    // A writer per preset: nothing of one conversion can reach the next.
    const costyle_writer writer;
    const bool listening = QLoggingCategory::defaultCategory()->isDebugEnabled();
    const bool learning = listening || learn_losses_;
    QSet<QString> keys_read;
    converted = writer.create_costyle(record, document, colour_space_, learning ? &keys_read : nullptr);
    if (converted && learning) {
        losses = what_a_style_leaves_out(record, keys_read);
        empty_style = style_carries_nothing(record, keys_read);
        if (listening && !losses.empty())
            qDebug().noquote() << QStringLiteral("%1: the style leaves out %2").arg(source.path, losses.summary());
    }
}

namespace {

class steps_in_turn final : public preset_steps {
public:
    steps_in_turn(const QVector<preset_source>& presets, const QString& colour_space, bool learn_losses)
        : presets_(presets), colour_space_(colour_space), learn_losses_(learn_losses)
    {
    }
    std::shared_ptr<preset_step> read(int index) override
    {
        auto step = std::make_shared<preset_step>(presets_.at(index), colour_space_, learn_losses_);
        step->read_and_check();
        return step;
    }
    void build(preset_step& step) override { step.build_style(); }

private:
    const QVector<preset_source>& presets_;
    const QString colour_space_;
    const bool learn_losses_;
};

// A step worked on ahead, its log lines and whatever it threw, per half.
struct step_ahead {
    std::shared_ptr<preset_step> step;
    held_lines reading_lines;
    held_lines building_lines;
    std::exception_ptr reading_error;
    std::exception_ptr building_error;
};

class steps_ahead final : public preset_steps {
public:
    steps_ahead(const QVector<preset_source>& presets, const QString& colour_space, int jobs, bool learn_losses)
        : presets_(presets), colour_space_(colour_space), learn_losses_(learn_losses), ahead_(jobs * presets_ahead_per_job)
    {
        pool_.setMaxThreadCount(jobs);
        fill();
    }
    ~steps_ahead() override
    {
        pool_.waitForDone();
    }

    std::shared_ptr<preset_step> read(int index) override
    {
        // The run takes the presets in order, passing over those no reader takes.
        while (!started_.empty() && started_.front().first < index)
            started_.pop_front();
        Q_ASSERT(!started_.empty() && started_.front().first == index);
        current_ = started_.front().second.get();
        started_.pop_front();
        fill();
        log_holding::release(current_.reading_lines);
        if (current_.reading_error)
            std::rethrow_exception(current_.reading_error);
        return current_.step;
    }
    void build(preset_step&) override
    {
        log_holding::release(current_.building_lines);
        if (current_.building_error)
            std::rethrow_exception(current_.building_error);
    }

private:
    // A few presets per thread keep every thread busy while the run writes.
    static constexpr int presets_ahead_per_job = 4;

    void fill()
    {
        while (next_started_ < presets_.size() && int(started_.size()) < ahead_) {
            const int index = next_started_++;
            const preset_source& source = presets_.at(index);
            if (preset_format_of(source.path) == preset_format::unsupported)
                continue;
            auto work = std::make_shared<std::promise<step_ahead>>();
            started_.emplace_back(index, work->get_future());
            pool_.start([work, source, colour_space = colour_space_, learn = learn_losses_] {
                work->set_value(work_on(source, colour_space, learn));
            });
        }
    }

    static step_ahead work_on(const preset_source& source, const QString& colour_space, bool learn_losses)
    {
        step_ahead ahead;
        ahead.step = std::make_shared<preset_step>(source, colour_space, learn_losses);
        log_holding::hold_into(&ahead.reading_lines);
        try {
            ahead.step->read_and_check();
        } catch (...) {
            ahead.reading_error = std::current_exception();
        }
        log_holding::hold_into(&ahead.building_lines);
        // Built even for a preset the run may skip: the answers come later.
        try {
            if (!ahead.reading_error && !ahead.step->profile)
                ahead.step->build_style();
        } catch (...) {
            ahead.building_error = std::current_exception();
        }
        log_holding::hold_into(nullptr);
        return ahead;
    }

    const QVector<preset_source>& presets_;
    const QString colour_space_;
    const bool learn_losses_;
    const int ahead_;
    // Before the pool: the threads are done before the holding ends.
    log_holding holding_;
    QThreadPool pool_;
    // Index of the preset and its work, in preset order.
    std::deque<std::pair<int, std::future<step_ahead>>> started_;
    int next_started_ = 0;
    step_ahead current_;
};

} // namespace

std::unique_ptr<preset_steps> make_preset_steps(const QVector<preset_source>& presets, const QString& colour_space,
                                                int jobs, bool learn_losses)
{
    if (jobs <= 1)
        return std::make_unique<steps_in_turn>(presets, colour_space, learn_losses);
    return std::make_unique<steps_ahead>(presets, colour_space, jobs, learn_losses);
}
