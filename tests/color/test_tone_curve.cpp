// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/tone_curve.h"

#include "support/log_capture.h"

#include <gtest/gtest.h>
#include <vector>

using test_support::log_capture;

const curve_points identity_curve = {{0, 0}, {255, 255}};

// The nine resampling positions with the given y (-1: y = x).
static curve_points nine_samples(int y = -1)
{
    curve_points points;
    for (int x : {0, 31, 63, 95, 127, 159, 191, 223, 255})
        points.append(QPoint(x, y < 0 ? x : y));
    return points;
}

static rgb_inverse_map identity_inverse_map()
{
    rgb_inverse_map map;
    for (int level = 0; level <= 255; ++level)
        map[level] = {level};
    return map;
}

TEST(map_to_points, interpolates_inside_and_fails_outside_or_at_the_origin)
{
    const point_table kelvin = {{800, -22}, {5000, 0}};
    const struct { point_table table; float x, expected; bool fails; } cases[] = {
        {kelvin, 800, -22, false}, {kelvin, 2900, -11, false}, {kelvin, 5000, 0, false}, {kelvin, 799, 0, true},
        {kelvin, 5001, 0, true}, {{{0, 0}, {255, 255}}, 5, 0, true}, {{{-10, 5}, {0, 0}, {10, 5}}, 5, 0, true},
        {{{-0.0, -0.0}, {10, 10}}, 5, 0, true}, {{}, 1, 0, true}, {{{1, 1}}, 1, 0, true},
    };
    for (const auto& c : cases) {
        const log_capture log;
        EXPECT_FLOAT_EQ(map_to_points(c.table, c.x), c.expected) << c.x;
        EXPECT_EQ(log.warnings().size(), c.fails ? 1 : 0) << c.x;
    }
    const log_capture log;
    map_to_points(kelvin, 799);
    EXPECT_EQ(log.warnings(), QStringList{"map_to_points failed. 799 QPointF(800,-22) QPointF(5000,0)"});
}

TEST(tone_curve, spline_helpers_need_two_ascending_points_at_least_one_apart)
{
    const std::pair<curve_points, bool> cases[] = {
        {identity_curve, true}, {{{0, 0}, {1, 5}, {255, 255}}, true}, {{}, false}, {{{0, 0}}, false},
        {{{0, 0}, {0, 5}, {255, 255}}, false}, {{{0, 0}, {200, 5}, {100, 255}}, false}};
    for (const auto& [curve, usable] : cases)
        EXPECT_EQ(curve_is_usable(curve), usable) << curve.size();
    EXPECT_DOUBLE_EQ(curve_value(identity_curve, 300), 300); // no clamp
    EXPECT_NEAR(curve_value({{0, 0}, {128, 192}, {255, 255}}, 64), 108.09448818897638, 1e-9);

    // Nine samples at truncated x, capped to the level range.
    EXPECT_EQ(resample_curve(identity_curve), nine_samples());
    EXPECT_EQ(resample_curve({{0, 300}, {255, 300}}), nine_samples(255));
    EXPECT_EQ(resample_curve({{0, -20}, {255, -20}}), nine_samples(0));
    EXPECT_TRUE(resample_curve({}).isEmpty());
    const log_capture log;
    EXPECT_TRUE(resample_curve({{10, 10}}).isEmpty());
    EXPECT_EQ(log.warnings().size(), 1);

    // Shadows (x < 85) are pulled towards the diagonal, halfway at 0.
    EXPECT_EQ(soften_shadow_points({{0, 40}, {42, 80}, {84, 10}, {85, 200}, {255, 255}}),
              (curve_points{{0, 20}, {42, 70}, {84, 10}, {85, 200}, {255, 255}}));
}

TEST(build_rgb_inverse_map, lists_input_levels_per_rounded_output)
{
    const log_capture log;
    EXPECT_EQ(build_rgb_inverse_map(identity_curve), identity_inverse_map());
    EXPECT_TRUE(log.of(QtInfoMsg).first().startsWith("Rastering RGB Curve at"));

    // y = x / 2: halves round away from zero, so level 1 comes from inputs 1 and 2.
    const rgb_inverse_map half = build_rgb_inverse_map({{0, 0}, {254, 127}});
    EXPECT_EQ(half.value(0), QVector<int>{0});
    EXPECT_EQ(half.value(1), (QVector<int>{1, 2}));
    EXPECT_EQ(half.value(128), QVector<int>{255});
    EXPECT_FALSE(half.contains(129));

    // Output beyond the range lands on the capped levels.
    const rgb_inverse_map steep = build_rgb_inverse_map({{0, -100}, {255, 400}});
    EXPECT_EQ(steep.firstKey(), 0);
    EXPECT_EQ(steep.lastKey(), 255);
    EXPECT_EQ(steep.value(255).last(), 255);
}

TEST(compensate_with_rgb_curve, moves_points_by_the_inverse_map_and_tidies_the_result)
{
    const curve_points flat_100 = {{0, 100}, {255, 100}}, flat_250 = {{0, 250}, {255, 250}};
    const struct {
        const char* name;
        curve_points channel, master;
        std::vector<std::pair<int, QVector<int>>> levels; // replaced entries of the identity map
        std::vector<int> removed;                         // keys taken out of it
        curve_points expected;
        QtMsgType type;
        const char* message;
    } cases[] = {
        {"identity master: samples kept, end duplicates collapsed", {{0, 0}, {128, 160}, {255, 255}}, identity_curve,
         {}, {}, resample_curve({{0, 0}, {128, 160}, {255, 255}}), QtInfoMsg, "Applying offsets"},
        {"points near the edges go", identity_curve, {{0, 5}, {255, 255}}, {}, {}, nine_samples(), QtDebugMsg,
         "Removing point QPoint(5,5) QPointF(0.0196078,0.0196078) too close to or beyond the edge"},
        {"no level within 4 of x (an empty list counts as none)", identity_curve, identity_curve, {{122, {}}},
         {123, 124, 125, 126, 127, 128, 129, 130, 131},
         {{0, 0}, {31, 31}, {63, 63}, {95, 95}, {159, 159}, {191, 191}, {223, 223}, {255, 255}}, QtInfoMsg,
         "Removing point QPoint(127,127) QPointF(0.498039,0.498039) -> No Y in range"},
        {"nearby keys searched +1 before -1", identity_curve, identity_curve, {{64, {80}}, {62, {10}}}, {63},
         {{0, 0}, {31, 31}, {79, 79}, {95, 95}, {127, 127}, {159, 159}, {191, 191}, {223, 223}, {255, 255}},
         QtInfoMsg, "Replacing point QPoint(63,63)"},
        {"end points take the first or last level, inner ones the nearest", identity_curve, {{0, 40}, {255, 200}},
         {{40, {20, 45}}, {200, {190, 230}}, {63, {20, 70}}}, {},
         {{0, 0}, {20, 20}, {31, 31}, {70, 70}, {95, 95}, {127, 127}, {159, 159}, {191, 191}, {223, 223}, {230, 230},
          {255, 255}}, QtInfoMsg, "Replacing point"},
        {"inner point with only distant levels dropped", identity_curve, identity_curve, {{0, {255}}}, {},
         {{31, 31}, {63, 63}, {95, 95}, {127, 127}, {159, 159}, {191, 191}, {223, 223}, {255, 255}}, QtWarningMsg,
         "compensate_with_rgb_curve: Found y:0 with no matching x value"},
        {"moved output clamped", flat_250, identity_curve, {{127, {137}}}, {},
         {{0, 250}, {31, 250}, {63, 250}, {95, 250}, {137, 255}, {159, 250}, {191, 250}, {223, 250}, {255, 250}},
         QtWarningMsg, "Applying offset 10 at QPoint(127,250) is resulting in out of range value 260."},
        {"sorted by x, the later of equal x kept", flat_100, identity_curve, {{31, {100}}, {95, {127}}}, {},
         {{0, 100}, {63, 100}, {100, 169}, {127, 100}, {159, 100}, {191, 100}, {223, 100}, {255, 100}}, QtInfoMsg,
         "Applying offsets"},
        {"unusable channel", {}, identity_curve, {}, {}, {}, QtWarningMsg, "can't be interpolated, skipped."},
        {"unusable master", identity_curve, {{5, 5}}, {}, {}, {}, QtWarningMsg, "can't be interpolated, skipped."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        rgb_inverse_map map = identity_inverse_map();
        for (const auto& [level, inputs] : c.levels)
            map[level] = inputs;
        for (int key : c.removed)
            map.remove(key);
        const log_capture log;
        EXPECT_EQ(compensate_with_rgb_curve(c.channel, c.master, map), c.expected);
        EXPECT_TRUE(log.of(c.type).join('\n').contains(c.message)) << log.of(c.type).join('\n').toStdString();
    }
}
