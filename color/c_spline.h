// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

// Natural cubic spline (second derivative zero at both ends) through curve
// knots with ascending x. Values outside the knots are extrapolated with the
// first and last cubic; clamping is left to the callers.
//
// A spline whose input check failed, or that has a single knot, has no
// segments: has_segments() tells, and such a spline evaluates to 0 instead of
// reading past its segment array.
class cSpline {
public:
    enum input_status {
        status_sane = 0,
        status_not_ascending = 1,
        status_empty = 2,
        status_too_close = 3,
    };

    cSpline(std::vector<double>& x, std::vector<double>& y);

    // Checks the copied knots and sets the status. On too-close neighbours the
    // copied x array is compacted in place (its length is kept).
    bool IsInputSane();

    double getY(double X);

    // Walks the curve from trunc(x[0]) to the last knot in integer steps of
    // (last - first) / steps and hands every (x, y) to the callback. Returns
    // the first x past the last knot.
    int Draw(std::function<void(double, double)> func, int steps);

    int status() const { return status_; }
    bool has_segments() const { return !segments_.empty(); }

private:
    struct segment {
        double a;
        double b;
        double c;
        double d;
        double x;
    };

    void compute_segments();
    const segment& segment_for(double X) const;

    std::vector<double> x_;
    std::vector<double> y_;
    std::vector<segment> segments_;
    double min_spacing_ = 1.0;
    int status_ = status_sane;
};
