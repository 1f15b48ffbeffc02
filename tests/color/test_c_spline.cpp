#include "color/c_spline.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

cSpline make_spline(std::vector<double> x, std::vector<double> y)
{
    return cSpline(x, y);
}

struct value_case {
    double x;
    double y;
};

TEST(c_spline, straight_line_is_exact_inside_and_beyond_the_ends)
{
    cSpline spline = make_spline({0, 255}, {0, 255});
    ASSERT_EQ(spline.status(), cSpline::status_sane);
    ASSERT_TRUE(spline.has_segments());
    for (const value_case& c : {value_case{127.5, 127.5}, value_case{-10, -10}, value_case{300, 300}})
        EXPECT_DOUBLE_EQ(spline.getY(c.x), c.y) << "at " << c.x;
}

TEST(c_spline, three_knots_hit_knots_between_and_extrapolate_with_end_cubics)
{
    cSpline spline = make_spline({0, 128, 255}, {0, 192, 255});
    const value_case cases[] = {
        {0, 0},   {128, 192}, {255, 255}, // knots exactly
        {64, 108.09448818897638},         // first cubic
        {200, 238.88771777543556},        // last cubic
        {-20, -34.91633858267716},        // below the first knot: first cubic, not clamped
        {300, 267.48527497055},           // beyond the last knot: last cubic
    };
    for (const value_case& c : cases)
        EXPECT_NEAR(spline.getY(c.x), c.y, 1e-9) << "at " << c.x;
}

TEST(c_spline, natural_boundary_has_no_curvature_at_the_ends)
{
    cSpline spline = make_spline({0, 128, 255}, {0, 192, 255});
    // For a cubic the central second difference with step 1 is the second derivative.
    const auto second_difference = [&](double x) {
        return spline.getY(x + 1) - 2 * spline.getY(x) + spline.getY(x - 1);
    };
    EXPECT_NEAR(second_difference(0), 0.0, 1e-9);
    EXPECT_NEAR(second_difference(255), 0.0, 1e-9);
    EXPECT_LT(second_difference(128), -0.01);
}

struct status_case {
    const char* name;
    std::vector<double> x;
    std::vector<double> y;
    int status;
};

TEST(c_spline, input_check_sets_each_status_and_failed_splines_have_no_segments)
{
    const status_case cases[] = {
        {"not ascending", {0, 200, 100}, {0, 1, 2}, cSpline::status_not_ascending},
        {"empty x", {}, {0, 1}, cSpline::status_empty},
        {"empty y", {0, 1}, {}, cSpline::status_empty},
        {"too close", {0, 0.5, 255}, {0, 1, 2}, cSpline::status_too_close},
        {"equal neighbours", {0, 0, 255}, {0, 1, 2}, cSpline::status_too_close},
        {"run of close values", {0, 0.3, 0.6, 0.9, 255}, {0, 1, 2, 3, 4}, cSpline::status_too_close},
    };
    for (const status_case& c : cases) {
        cSpline spline = make_spline(c.x, c.y);
        EXPECT_EQ(spline.status(), c.status) << c.name;
        EXPECT_FALSE(spline.has_segments()) << c.name;
        EXPECT_EQ(spline.getY(100), 0.0) << c.name;
    }
}

TEST(c_spline, single_knot_is_sane_but_never_evaluated)
{
    cSpline spline = make_spline({10}, {20});
    EXPECT_EQ(spline.status(), cSpline::status_sane);
    EXPECT_FALSE(spline.has_segments());
    EXPECT_EQ(spline.getY(10), 0.0);
    int calls = 0;
    spline.Draw([&](double, double) { ++calls; }, 4);
    EXPECT_EQ(calls, 0);
}

TEST(c_spline, neighbours_exactly_one_apart_are_accepted)
{
    cSpline spline = make_spline({0, 1, 2}, {0, 1, 2});
    EXPECT_EQ(spline.status(), cSpline::status_sane);
    EXPECT_TRUE(spline.has_segments());
}

TEST(c_spline, draw_walks_truncated_steps_and_returns_first_x_past_the_end)
{
    cSpline spline = make_spline({0, 100}, {0, 100});
    std::vector<std::pair<double, double>> seen;
    const int end = spline.Draw([&](double x, double y) { seen.emplace_back(x, y); }, 3);
    // Step 33.33: 0, 33, trunc(66.33) = 66, trunc(99.33) = 99, then 132.
    const std::vector<std::pair<double, double>> expected = {{0, 0}, {33, 33}, {66, 66}, {99, 99}};
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(end, 132);
}

TEST(c_spline, draw_with_a_step_below_one_still_ends)
{
    cSpline spline = make_spline({0, 3}, {0, 3});
    int calls = 0;
    EXPECT_EQ(spline.Draw([&](double, double) { ++calls; }, 10), 4);
    EXPECT_EQ(calls, 4);
}

TEST(c_spline, draw_with_an_empty_callback_throws)
{
    cSpline spline = make_spline({0, 255}, {0, 255});
    EXPECT_THROW(spline.Draw(std::function<void(double, double)>(), 5), std::bad_function_call);
}

} // namespace
