// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/c_spline.h"

#include <gtest/gtest.h>

static cSpline make_spline(std::vector<double> x, std::vector<double> y)
{
    return cSpline(x, y);
}

TEST(c_spline, hits_the_knots_and_extrapolates_with_the_end_cubics)
{
    const std::vector<double> line = {0, 255}, knots = {0, 128, 255}, values = {0, 192, 255};
    const struct { const std::vector<double>&x, &y; double at, expected; } cases[] = {
        {line, line, 127.5, 127.5}, {line, line, -10, -10}, {line, line, 300, 300}, {knots, values, 0, 0},
        {knots, values, 128, 192},  {knots, values, 255, 255}, {knots, values, 64, 108.09448818897638},
        {knots, values, 200, 238.88771777543556},
        {knots, values, -20, -34.91633858267716}, // first cubic, not clamped
        {knots, values, 300, 267.48527497055},    // last cubic
    };
    for (const auto& c : cases)
        EXPECT_NEAR(make_spline(c.x, c.y).getY(c.at), c.expected, 1e-9) << c.at;

    // Natural boundary: for a cubic the second difference with step 1 is the second derivative.
    cSpline spline = make_spline(knots, values);
    const auto curvature = [&](double x) { return spline.getY(x + 1) - 2 * spline.getY(x) + spline.getY(x - 1); };
    EXPECT_NEAR(curvature(0), 0.0, 1e-9);
    EXPECT_NEAR(curvature(255), 0.0, 1e-9);
    EXPECT_LT(curvature(128), -0.01);
}

TEST(c_spline, input_check_sets_the_status_and_failed_splines_evaluate_to_zero)
{
    const struct { const char* name; std::vector<double> x, y; int status; bool segments; } cases[] = {
        {"not ascending", {0, 200, 100}, {0, 1, 2}, cSpline::status_not_ascending, false},
        {"empty x", {}, {0, 1}, cSpline::status_empty, false}, {"empty y", {0, 1}, {}, cSpline::status_empty, false},
        {"too close", {0, 0.5, 255}, {0, 1, 2}, cSpline::status_too_close, false},
        {"equal neighbours", {0, 0, 255}, {0, 1, 2}, cSpline::status_too_close, false},
        {"run of close values", {0, 0.3, 0.6, 0.9, 255}, {0, 1, 2, 3, 4}, cSpline::status_too_close, false},
        {"single knot", {10}, {20}, cSpline::status_sane, false},
        {"neighbours exactly 1 apart", {0, 1, 2}, {0, 1, 2}, cSpline::status_sane, true},
    };
    for (const auto& c : cases) {
        cSpline spline = make_spline(c.x, c.y);
        EXPECT_EQ(spline.status(), c.status) << c.name;
        EXPECT_EQ(spline.has_segments(), c.segments) << c.name;
        EXPECT_TRUE(c.segments || spline.getY(10) == 0.0) << c.name;
    }
}

TEST(c_spline, draw_walks_truncated_steps_and_returns_the_first_x_past_the_end)
{
    const struct { std::vector<double> x; int steps; std::vector<double> drawn; int end; } cases[] = {
        {{0, 100}, 3, {0, 33, 66, 99}, 132}, // step 33.33: trunc(66.33) = 66
        {{0, 3}, 10, {0, 1, 2, 3}, 4},       // a step below 1 still advances
        {{10}, 4, {}, 10},                   // a single knot draws nothing
    };
    for (const auto& c : cases) {
        cSpline spline = make_spline(c.x, c.x);
        std::vector<double> drawn;
        EXPECT_EQ(spline.Draw([&](double x, double y) { drawn.push_back(x == y ? x : -1); }, c.steps), c.end);
        EXPECT_EQ(drawn, c.drawn) << c.steps;
    }
    cSpline spline = make_spline({0, 255}, {0, 255});
    EXPECT_THROW(spline.Draw(std::function<void(double, double)>(), 5), std::bad_function_call);
}
