// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/c_spline.h"

#include <algorithm>
#include <climits>
#include <cmath>

cSpline::cSpline(std::vector<double>& x, std::vector<double>& y) : x_(x), y_(y), min_spacing_(1.0)
{
    if (!IsInputSane())
        return;
    compute_segments();
}

bool cSpline::IsInputSane()
{
    if (x_.empty() || y_.empty()) {
        status_ = status_empty;
        return false;
    }
    for (std::size_t i = 0; i + 1 < x_.size(); ++i) {
        if (x_[i] > x_[i + 1]) {
            status_ = status_not_ascending;
            return false;
        }
    }
    const auto too_close = [this](double a, double b) { return std::fabs(a - b) < min_spacing_; };
    if (std::adjacent_find(x_.begin(), x_.end(), too_close) != x_.end()) {
        // Keep the first of each run of too-close values; the tail keeps its
        // old contents, as the array is never shortened.
        std::unique(x_.begin(), x_.end(), too_close);
        status_ = status_too_close;
        return false;
    }
    status_ = status_sane;
    return true;
}

void cSpline::compute_segments()
{
    // Knots pair x with y by index; a shorter y would leave knots without a value.
    const std::size_t knots = std::min(x_.size(), y_.size());
    if (knots < 2)
        return;
    const std::size_t n = knots - 1;
    const std::vector<double>& a = y_;

    std::vector<double> h(n);
    for (std::size_t i = 0; i < n; ++i)
        h[i] = x_[i + 1] - x_[i];

    std::vector<double> alpha(n, 0.0);
    for (std::size_t i = 1; i < n; ++i)
        alpha[i] = 3.0 * (a[i + 1] - a[i]) / h[i] - 3.0 * (a[i] - a[i - 1]) / h[i - 1];

    std::vector<double> l(n + 1), mu(n + 1), z(n + 1);
    l[0] = 1.0;
    mu[0] = 0.0;
    z[0] = 0.0;
    for (std::size_t i = 1; i < n; ++i) {
        l[i] = 2.0 * (x_[i + 1] - x_[i - 1]) - h[i - 1] * mu[i - 1];
        mu[i] = h[i] / l[i];
        z[i] = (alpha[i] - h[i - 1] * z[i - 1]) / l[i];
    }
    l[n] = 1.0;
    z[n] = 0.0;

    std::vector<double> b(n), c(n + 1), d(n);
    c[n] = 0.0;
    for (std::size_t j = n; j-- > 0;) {
        c[j] = z[j] - mu[j] * c[j + 1];
        b[j] = (a[j + 1] - a[j]) / h[j] - h[j] * (c[j + 1] + 2.0 * c[j]) / 3.0;
        d[j] = (c[j + 1] - c[j]) / 3.0 / h[j];
    }

    segments_.resize(n);
    for (std::size_t j = 0; j < n; ++j)
        segments_[j] = segment{a[j], b[j], c[j], d[j], x_[j]};
}

const cSpline::segment& cSpline::segment_for(double X) const
{
    const auto above = std::find_if(segments_.begin(), segments_.end(),
                                    [X](const segment& s) { return s.x > X; });
    if (above == segments_.begin())
        return segments_.front();
    return *(above - 1);
}

double cSpline::getY(double X)
{
    if (segments_.empty())
        return 0.0;
    const segment& s = segment_for(X);
    const double t = X - s.x;
    return s.a + s.b * t + s.c * t * t + s.d * t * t * t;
}

int cSpline::Draw(std::function<void(double, double)> func, int steps)
{
    if (!func)
        throw std::bad_function_call();
    const std::size_t knots = std::min(x_.size(), y_.size());
    if (segments_.empty() || knots < 2)
        return x_.empty() ? 0 : static_cast<int>(std::trunc(x_.front()));

    const double first = x_.front();
    const double last = x_[knots - 1];
    const double step = (last - first) / steps;
    double X = std::trunc(first);
    while (X <= last) {
        func(X, getY(X));
        double next = std::trunc(X + step);
        // A step below 1 would never advance; walk at least one level so the
        // loop always ends.
        if (!(next > X))
            next = X + 1.0;
        X = next;
    }
    return X >= static_cast<double>(INT_MAX) ? INT_MAX : static_cast<int>(X);
}
