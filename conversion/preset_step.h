// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/preset_source.h"
#include "importer/lightroom_importer.h"
#include "writer/carried_settings.h"

#include <QString>

#include <memory>

// The work one preset needs that asks no one: reading and checking it, and
// building its style. A run asks its questions between the two halves.
class preset_step {
public:
    // learn_losses: the style build records what the style leaves out.
    preset_step(preset_source source, QString colour_space, bool learn_losses = false);

    // Reads the preset and raises its flags; throws what a reader or the
    // writer's tables throw.
    void read_and_check();
    // Builds the style document; throws what the writer throws.
    void build_style();

    const preset_source source;
    lightroom_importer record;
    bool white_balance = false;
    bool dehaze = false;
    bool lut = false;
    bool camera_calibration = false;
    // A Lightroom profile: no develop preset, no questions, no style.
    bool profile = false;
    bool converted = false;
    QString document;
    // Learnt while building when asked for (or when debug lines are shown).
    style_losses losses;
    bool empty_style = false;

private:
    const QString colour_space_;
    const bool learn_losses_;
};

// Hands a run its presets' steps in order. Each step's log lines come out
// when the run takes that half, never earlier, so the log reads the same
// however many presets are worked on at once.
class preset_steps {
public:
    virtual ~preset_steps() = default;
    // The index-th preset, read and checked.
    virtual std::shared_ptr<preset_step> read(int index) = 0;
    // Its style built.
    virtual void build(preset_step& step) = 0;
};

// Steps worked on one at a time, as the run takes them, on the calling thread.
// jobs above 1: up to that many presets are read, checked and built ahead on
// other threads while the run goes through the earlier ones.
std::unique_ptr<preset_steps> make_preset_steps(const QVector<preset_source>& presets, const QString& colour_space,
                                                int jobs, bool learn_losses = false);
