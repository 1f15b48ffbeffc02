// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/tone_curve.h"
#include "color/conversion_log.h"

#include "color/c_spline.h"

#include <QDebug>
#include <QPointF>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

// Curve levels run from 0 to this value on both axes.
constexpr int level_max = 255;
// Number of samples resample_curve takes and their spacing as a fraction.
constexpr int resample_count = 9;
constexpr float resample_step = 0.125f;
// Shadow softening stops at this level; the weight falls to zero one level
// below it (the divisor is deliberately one less than the limit).
constexpr int soften_limit = 85;
constexpr float soften_divisor = -84.0f;
// Points this close to either end (but not on it) are dropped after
// compensation: the style's own end points cover them.
constexpr int edge_low = 11;
constexpr int edge_high = 244;
// Search order for an inverse-map key near a point's x.
constexpr std::array<int, 9> key_offsets = {0, 1, -1, 2, -2, 3, -3, 4, -4};

cSpline spline_of(const curve_points& curve)
{
    std::vector<double> x;
    std::vector<double> y;
    x.reserve(static_cast<std::size_t>(curve.size()));
    y.reserve(static_cast<std::size_t>(curve.size()));
    for (const QPoint& p : curve) {
        x.push_back(p.x());
        y.push_back(p.y());
    }
    return cSpline(x, y);
}

double cap_level(double v)
{
    return std::clamp(v, 0.0, static_cast<double>(level_max));
}

int round_half_up(double v)
{
    return static_cast<int>(std::trunc(v + 0.5));
}

QPointF normalised(const QPoint& p)
{
    return QPointF(p) / static_cast<qreal>(level_max);
}

bool is_first_or_last(int index, int count)
{
    return index == 0 || index == count - 1;
}

// The element of list nearest to x (earlier one on a tie); -1 when no element
// is closer than a whole level range.
int nearest_level(const QVector<int>& list, int x)
{
    int best = -1;
    int best_distance = level_max;
    for (int candidate : list) {
        const int distance = std::abs(candidate - x);
        if (distance < best_distance) {
            best = candidate;
            best_distance = distance;
        }
    }
    return best;
}

} // namespace

float map_to_points(const point_table& table, float x)
{
    QPointF p1;
    QPointF p2;
    bool found = false;
    for (int i = 0; i + 1 < table.size(); ++i) {
        p1 = table[i];
        p2 = table[i + 1];
        if (p1.x() <= x && x <= p2.x()) {
            found = true;
            break;
        }
    }
    // Tables that pass through the origin are not meant for this lookup: a
    // segment touching (0, 0) fails like a value outside the table.
    if (found && !p1.isNull() && !p2.isNull()) {
        const float x1 = static_cast<float>(p1.x());
        const float x2 = static_cast<float>(p2.x());
        const float y1 = static_cast<float>(p1.y());
        const float y2 = static_cast<float>(p2.y());
        const float xc = std::clamp(x, x1, x2);
        return (xc - x1) / (x2 - x1) * (y2 - y1) + y1;
    }
    qCWarning(conversion_log) << "map_to_points failed." << x << p1 << p2;
    return 0.0f;
}

bool curve_is_usable(const curve_points& curve)
{
    return spline_of(curve).has_segments();
}

double curve_value(const curve_points& curve, double x)
{
    return spline_of(curve).getY(x);
}

curve_points resample_curve(const curve_points& curve)
{
    curve_points out;
    if (curve.isEmpty())
        return out;
    cSpline spline = spline_of(curve);
    if (!spline.has_segments()) {
        qCWarning(conversion_log) << "resample_curve: curve" << curve << "can't be interpolated, skipped.";
        return out;
    }
    out.reserve(resample_count);
    for (int i = 0; i < resample_count; ++i) {
        const float xi = (static_cast<float>(i) * resample_step) * static_cast<float>(level_max);
        double y = spline.getY(xi);
        if (y > level_max)
            y = level_max;
        if (!(y > 0.0))
            y = 0.0;
        out.append(QPoint(static_cast<int>(xi), static_cast<int>(y)));
    }
    return out;
}

curve_points soften_shadow_points(const curve_points& curve)
{
    curve_points out;
    out.reserve(curve.size());
    for (const QPoint& p : curve) {
        if (p.x() >= soften_limit) {
            out.append(p);
            continue;
        }
        const float x = static_cast<float>(p.x());
        const float y = static_cast<float>(p.y());
        const float w = x / soften_divisor + 1.0f;
        out.append(QPoint(p.x(), static_cast<int>(y - 0.5f * w * (y - x))));
    }
    return out;
}

rgb_inverse_map build_rgb_inverse_map(const curve_points& master)
{
    rgb_inverse_map map;
    qCInfo(conversion_log) << "Rastering RGB Curve at" << master;
    cSpline spline = spline_of(master);
    if (!spline.has_segments()) {
        qCWarning(conversion_log) << "build_rgb_inverse_map: curve" << master << "can't be interpolated, no levels.";
        return map;
    }
    for (int x = 0; x <= level_max; ++x) {
        const double y = cap_level(std::round(spline.getY(x)));
        map[static_cast<int>(y)].append(x);
    }
    return map;
}

curve_points compensate_with_rgb_curve(const curve_points& channel, const curve_points& master,
                                       const rgb_inverse_map& inverse_map)
{
    if (!curve_is_usable(channel) || !curve_is_usable(master)) {
        qCWarning(conversion_log) << "compensate_with_rgb_curve: curves" << channel << master
                   << "can't be interpolated, skipped.";
        return curve_points();
    }

    curve_points out = resample_curve(channel);

    const double start_x = cap_level(curve_value(master, 0.0));
    const double start_y = cap_level(curve_value(channel, start_x));
    out.prepend(QPoint(round_half_up(start_x), round_half_up(start_y)));

    const double end_x = cap_level(curve_value(master, level_max));
    const double end_y = cap_level(curve_value(channel, end_x));
    out.append(QPoint(round_half_up(end_x), round_half_up(end_y)));

    const curve_points before_offsets = out;
    QVector<int> offsets;
    for (int i = 0; i < out.size();) {
        const QPoint p = out[i];

        int key = -1;
        for (int offset : key_offsets) {
            const int k = std::clamp(p.x() + offset, 0, level_max);
            const auto found = inverse_map.constFind(k);
            if (found != inverse_map.constEnd() && !found->isEmpty()) {
                key = k;
                break;
            }
        }
        if (key < 0) {
            qCInfo(conversion_log) << "Removing point" << p << normalised(p) << "-> No Y in range";
            out.remove(i);
            continue;
        }

        const QVector<int>& levels = inverse_map[key];
        int x_new = -1;
        if (is_first_or_last(i, out.size()))
            x_new = key <= level_max / 2 ? levels.first() : levels.last();
        else
            x_new = nearest_level(levels, p.x());
        if (x_new < 0) {
            qCWarning(conversion_log, "compensate_with_rgb_curve: Found y:%d with no matching x value", key);
            out.remove(i);
            continue;
        }

        // Both coordinates move by the same offset, so the point keeps its
        // distance from the diagonal.
        const int offset = x_new - key;
        QPoint moved(p.x() + offset, p.y() + offset);
        if (moved.y() < 0 || moved.y() > level_max) {
            qCWarning(conversion_log, "Applying offset %d at QPoint(%d,%d) is resulting in out of range value %d.", offset, p.x(),
                     p.y(), moved.y());
            moved.setY(std::clamp(moved.y(), 0, level_max));
        }
        qCInfo(conversion_log) << "Replacing point" << p << normalised(p) << "with" << moved << normalised(moved);
        offsets.append(offset);
        out[i] = moved;
        ++i;
    }
    qCInfo(conversion_log) << "Applying offsets" << offsets << "to curve" << before_offsets;

    for (int i = 0; i < out.size();) {
        const QPoint p = out[i];
        const bool near_low_edge = p.x() < edge_low && p.x() != 0;
        const bool near_high_edge = p.x() > edge_high && p.x() != level_max;
        if (near_low_edge || near_high_edge) {
            qCDebug(conversion_log) << "Removing point" << p << normalised(p) << "too close to or beyond the edge";
            out.remove(i);
            continue;
        }
        ++i;
    }

    std::stable_sort(out.begin(), out.end(), [](const QPoint& a, const QPoint& b) { return a.x() < b.x(); });

    // Of neighbours with the same x the later one survives.
    for (int i = 0; i + 1 < out.size();) {
        if (out[i].x() == out[i + 1].x()) {
            out.remove(i);
            continue;
        }
        ++i;
    }
    return out;
}
