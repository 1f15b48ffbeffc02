#include "color/tone_curve.h"

#include "color/message_capture.h"

#include <gtest/gtest.h>

namespace {

using test_support::message_capture;

// Inverse map of the identity master curve: every level maps to itself.
rgb_inverse_map identity_inverse_map()
{
    rgb_inverse_map map;
    for (int level = 0; level <= 255; ++level)
        map[level] = {level};
    return map;
}

const curve_points identity_curve = {{0, 0}, {255, 255}};

curve_points nine_samples(int y)
{
    curve_points points;
    for (int x : {0, 31, 63, 95, 127, 159, 191, 223, 255})
        points.append(QPoint(x, y < 0 ? x : y));
    return points;
}

struct lookup_case {
    float x;
    float expected;
    bool warns;
};

TEST(map_to_points, interpolates_inside_and_fails_outside)
{
    const point_table table = {{800, -22}, {5000, 0}};
    const lookup_case cases[] = {
        {800, -22, false}, {2900, -11, false}, {5000, 0, false}, {799, 0, true}, {5001, 0, true},
    };
    for (const lookup_case& c : cases) {
        message_capture log;
        EXPECT_FLOAT_EQ(map_to_points(table, c.x), c.expected) << c.x;
        EXPECT_EQ(log.warnings().size(), c.warns ? 1 : 0) << c.x;
    }
}

TEST(map_to_points, warning_names_the_value_and_the_last_segment)
{
    message_capture log;
    map_to_points({{800, -22}, {5000, 0}}, 799);
    EXPECT_EQ(log.warnings(), QStringList{"map_to_points failed. 799 QPointF(800,-22) QPointF(5000,0)"});
}

TEST(map_to_points, first_matching_segment_of_a_longer_table_wins)
{
    const point_table table = {{-100, -100}, {-68, -100}, {-23, -50}, {0, -25}, {40, 0}, {77, 25}, {100, 75}};
    EXPECT_FLOAT_EQ(map_to_points(table, -68), -100);
    EXPECT_FLOAT_EQ(map_to_points(table, 20), -12.5f);
    EXPECT_FLOAT_EQ(map_to_points(table, 100), 75);
}

TEST(map_to_points, a_segment_touching_the_origin_fails)
{
    const point_table through_origin[] = {
        {{0, 0}, {255, 255}},
        {{-10, 5}, {0, 0}, {10, 5}},
        {{-0.0, -0.0}, {10, 10}},
    };
    for (const point_table& table : through_origin) {
        message_capture log;
        EXPECT_EQ(map_to_points(table, 5), 0.0f);
        ASSERT_EQ(log.warnings().size(), 1);
        EXPECT_TRUE(log.warnings().first().startsWith("map_to_points failed."));
    }
}

TEST(map_to_points, tables_of_fewer_than_two_points_fail)
{
    message_capture log;
    EXPECT_EQ(map_to_points({}, 1), 0.0f);
    EXPECT_EQ(map_to_points({{1, 1}}, 1), 0.0f);
    EXPECT_EQ(log.warnings().size(), 2);
}

TEST(curve_is_usable, needs_two_ascending_points_at_least_one_apart)
{
    EXPECT_TRUE(curve_is_usable(identity_curve));
    EXPECT_TRUE(curve_is_usable({{0, 0}, {1, 5}, {255, 255}}));
    EXPECT_FALSE(curve_is_usable({}));
    EXPECT_FALSE(curve_is_usable({{0, 0}}));
    EXPECT_FALSE(curve_is_usable({{0, 0}, {0, 5}, {255, 255}}));
    EXPECT_FALSE(curve_is_usable({{0, 0}, {200, 5}, {100, 255}}));
}

TEST(curve_value, follows_the_spline_without_clamping)
{
    EXPECT_DOUBLE_EQ(curve_value(identity_curve, 300), 300);
    EXPECT_NEAR(curve_value({{0, 0}, {128, 192}, {255, 255}}, 64), 108.09448818897638, 1e-9);
}

TEST(resample_curve, takes_nine_samples_with_truncated_x)
{
    EXPECT_EQ(resample_curve(identity_curve), nine_samples(-1));
    EXPECT_TRUE(resample_curve({}).isEmpty());
}

TEST(resample_curve, caps_values_to_the_level_range)
{
    EXPECT_EQ(resample_curve({{0, 300}, {255, 300}}), nine_samples(255));
    EXPECT_EQ(resample_curve({{0, -20}, {255, -20}}), nine_samples(0));
}

TEST(resample_curve, unusable_curve_gives_nothing)
{
    message_capture log;
    EXPECT_TRUE(resample_curve({{10, 10}}).isEmpty());
    EXPECT_EQ(log.warnings().size(), 1);
}

TEST(soften_shadow_points, pulls_shadows_halfway_to_the_diagonal_at_zero)
{
    const curve_points in = {{0, 40}, {42, 80}, {84, 10}, {85, 200}, {255, 255}};
    const curve_points expected = {{0, 20}, {42, 70}, {84, 10}, {85, 200}, {255, 255}};
    EXPECT_EQ(soften_shadow_points(in), expected);
}

TEST(build_rgb_inverse_map, lists_input_levels_per_rounded_output)
{
    message_capture log;
    EXPECT_EQ(build_rgb_inverse_map(identity_curve), identity_inverse_map());
    EXPECT_TRUE(log.infos().first().startsWith("Rastering RGB Curve at"));

    // y = x / 2: halves round away from zero, so level 1 comes from inputs 1 and 2.
    const rgb_inverse_map half = build_rgb_inverse_map({{0, 0}, {254, 127}});
    EXPECT_EQ(half.value(0), QVector<int>{0});
    EXPECT_EQ(half.value(1), (QVector<int>{1, 2}));
    EXPECT_EQ(half.value(128), (QVector<int>{255}));
    EXPECT_FALSE(half.contains(129));

    // Output beyond the range lands on the capped levels.
    const rgb_inverse_map steep = build_rgb_inverse_map({{0, -100}, {255, 400}});
    EXPECT_EQ(steep.firstKey(), 0);
    EXPECT_EQ(steep.lastKey(), 255);
    EXPECT_EQ(steep.value(255).last(), 255);
}

TEST(compensate_with_rgb_curve, identity_master_keeps_the_samples_and_collapses_end_duplicates)
{
    const curve_points channel = {{0, 0}, {128, 160}, {255, 255}};
    curve_points expected = resample_curve(channel);
    EXPECT_EQ(compensate_with_rgb_curve(channel, identity_curve, identity_inverse_map()), expected);
}

TEST(compensate_with_rgb_curve, removes_points_near_the_edges)
{
    message_capture log;
    // The master lifts black to 5: the start point (5, 5) is too close to the edge.
    const curve_points out = compensate_with_rgb_curve(identity_curve, {{0, 5}, {255, 255}}, identity_inverse_map());
    EXPECT_EQ(out, nine_samples(-1));
    EXPECT_TRUE(log.debugs().contains(
        "Removing point QPoint(5,5) QPointF(0.0196078,0.0196078) too close to or beyond the edge"));
}

TEST(compensate_with_rgb_curve, drops_points_without_a_level_nearby)
{
    rgb_inverse_map map = identity_inverse_map();
    for (int level = 123; level <= 131; ++level)
        map.remove(level);
    map[122].clear(); // an empty list counts as no level

    message_capture log;
    const curve_points out = compensate_with_rgb_curve(identity_curve, identity_curve, map);
    EXPECT_FALSE(out.contains(QPoint(127, 127)));
    EXPECT_EQ(out.size(), 8);
    EXPECT_TRUE(log.infos().contains("Removing point QPoint(127,127) QPointF(0.498039,0.498039) -> No Y in range"));
}

TEST(compensate_with_rgb_curve, searches_nearby_keys_in_order)
{
    rgb_inverse_map map = identity_inverse_map();
    // No key at 63; +1 comes before -1.
    map.remove(63);
    map[64] = {80};
    map[62] = {10};
    const curve_points out = compensate_with_rgb_curve(identity_curve, identity_curve, map);
    // Offset 80 - 64 = 16 moves (63, 63) to (79, 79).
    EXPECT_TRUE(out.contains(QPoint(79, 79)));
    EXPECT_FALSE(out.contains(QPoint(63, 63)));
}

TEST(compensate_with_rgb_curve, end_points_take_the_first_or_last_level_inner_points_the_nearest)
{
    rgb_inverse_map map = identity_inverse_map();
    map[40] = {20, 45};
    map[200] = {190, 230};
    map[63] = {20, 70};
    // The master maps 0 to 40 and 255 to 200; the channel is the identity.
    const curve_points out = compensate_with_rgb_curve(identity_curve, {{0, 40}, {255, 200}}, map);
    EXPECT_TRUE(out.contains(QPoint(20, 20)));   // start point: first level (key 40 <= 127)
    EXPECT_FALSE(out.contains(QPoint(45, 45)));
    EXPECT_TRUE(out.contains(QPoint(230, 230))); // end point: last level (key 200 > 127)
    EXPECT_FALSE(out.contains(QPoint(190, 190)));
    EXPECT_TRUE(out.contains(QPoint(70, 70)));   // inner point: nearest level to 63
}

TEST(compensate_with_rgb_curve, inner_point_with_only_distant_levels_is_dropped)
{
    rgb_inverse_map map = identity_inverse_map();
    map[0] = {255};
    message_capture log;
    const curve_points out = compensate_with_rgb_curve(identity_curve, identity_curve, map);
    // The start point moves by 255; the resampled (0, 0) has no level closer than 255.
    EXPECT_TRUE(log.warnings().contains("compensate_with_rgb_curve: Found y:0 with no matching x value"));
    EXPECT_EQ(out.first(), QPoint(31, 31));
}

TEST(compensate_with_rgb_curve, clamps_a_moved_output_with_a_warning)
{
    rgb_inverse_map map = identity_inverse_map();
    map[127] = {137};
    const curve_points flat = {{0, 250}, {255, 250}};
    message_capture log;
    const curve_points out = compensate_with_rgb_curve(flat, identity_curve, map);
    EXPECT_TRUE(out.contains(QPoint(137, 255)));
    EXPECT_TRUE(log.warnings().contains(
        "Applying offset 10 at QPoint(127,250) is resulting in out of range value 260."));
}

TEST(compensate_with_rgb_curve, sorts_by_x_and_keeps_the_later_of_equal_x)
{
    rgb_inverse_map map = identity_inverse_map();
    map[31] = {100}; // (31, 100) moves past (63, 100) and (95, 100)
    map[95] = {127}; // (95, 100) lands on x 127 before the sample at 127
    const curve_points flat = {{0, 100}, {255, 100}};
    const curve_points out = compensate_with_rgb_curve(flat, identity_curve, map);
    const curve_points expected = {{0, 100},   {63, 100},  {100, 169}, {127, 100},
                                   {159, 100}, {191, 100}, {223, 100}, {255, 100}};
    EXPECT_EQ(out, expected);
}

TEST(compensate_with_rgb_curve, unusable_curves_give_nothing)
{
    message_capture log;
    EXPECT_TRUE(compensate_with_rgb_curve({}, identity_curve, identity_inverse_map()).isEmpty());
    EXPECT_TRUE(compensate_with_rgb_curve(identity_curve, {{5, 5}}, identity_inverse_map()).isEmpty());
}

} // namespace
