// SPDX-License-Identifier: GPL-3.0-or-later
// The colour functions over the calls listed in data/cases.txt: each call and what it returned
// (with any warning it logged) must read as in data/colours.golden.
#include "support/golden.h"
#include "color/c_spline.h"
#include "color/hcl.h"
#include "color/pixel_hsv.h"
#include "color/tint_shift.h"
#include "color/tone_curve.h"
#include "support/log_capture.h"
#include "writer/costyle_writer.h"

#include <QFile>
#include <array>
#include <gtest/gtest.h>

namespace {

const QString data = QStringLiteral(STYLEWRIGHT_TEST_DATA_DIR);

std::vector<double> numbers(const QString& text)
{
    std::vector<double> values;
    for (const QString& each : text.split(QLatin1Char(','), Qt::SkipEmptyParts))
        values.push_back(each.toDouble());
    return values;
}

curve_points points(const QString& text)
{
    curve_points result;
    for (const QString& each : text.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        result.append(QPoint(each.section(QLatin1Char(','), 0, 0).toInt(), each.section(QLatin1Char(','), 1).toInt()));
    return result;
}

template <typename list>
QString joined(const list& values, const char* separator = " ")
{
    QStringList texts;
    for (const auto& value : values)
        texts << QString::number(value, 'g', 9);
    return texts.join(QLatin1String(separator));
}

QString shown(const curve_points& curve)
{
    QStringList texts;
    for (const QPoint& p : curve)
        texts << QStringLiteral("%1,%2").arg(p.x()).arg(p.y());
    return texts.join(QLatin1Char(';'));
}

QString call(const QString& function, const QStringList& a)
{
    const auto i = [&a](int n) { return a.value(n).toInt(); };
    std::array<int, 3> out{-1, -1, -1};
    if (function == QLatin1String("rgb_to_hcl8") || function == QLatin1String("rgb_to_hsv")) {
        using u8 = unsigned char;
        (function.endsWith(QLatin1String("hsv")) ? vel::rgb_to_hsv : static_cast<void (*)(u8, u8, u8, int&, int&, int&)>(vel::rgb_to_hcl))(
            u8(i(0)), u8(i(1)), u8(i(2)), out[0], out[1], out[2]);
    } else if (function == QLatin1String("rgb_to_hcl16")) {
        using u16 = unsigned short;
        vel::rgb_to_hcl(u16(i(0)), u16(i(1)), u16(i(2)), out[0], out[1], out[2]);
    } else if (function == QLatin1String("hcl_to_rgb8")) {
        unsigned char r = 0, g = 0, b = 0;
        vel::hcl_to_rgb_8(i(0), i(1), i(2), out[0], out[1], out[2]);
        vel::hcl_to_rgb_8(i(0), i(1), i(2), r, g, b);
        return joined(out) + QStringLiteral(" (bytes %1)").arg(joined(std::array<int, 3>{r, g, b}));
    } else if (function.startsWith(QLatin1String("hcl_to_rgb16"))) {
        unsigned short r = 0, g = 0, b = 0;
        (function.endsWith(QLatin1String("adapt")) ? vel::hcl_to_rgb_16_adapt_luminance<unsigned short>
                                                   : vel::hcl_to_rgb_16<unsigned short>)(i(0), i(1), i(2), r, g, b);
        out = {r, g, b};
    } else if (function == QLatin1String("pixel_hsv")) {
        return joined(vel::pixel_hsv<std::array<unsigned char, 4>>(i(0), i(1), i(2)));
    } else if (function == QLatin1String("spline")) {
        std::vector<double> x = numbers(a.value(0)), y = numbers(a.value(1));
        cSpline spline(x, y);
        return QStringLiteral("status %1, segments %2, y %3")
            .arg(spline.status()).arg(spline.has_segments()).arg(spline.getY(a.value(2).toDouble()), 0, 'g', 9);
    } else if (function == QLatin1String("draw")) {
        std::vector<double> x = numbers(a.value(0)), y = x;
        cSpline spline(x, y);
        std::vector<double> drawn;
        const int end = spline.Draw([&drawn](double at, double y) { drawn.push_back(at == y ? at : -1); }, i(1));
        return joined(drawn) + QStringLiteral(" | end %1").arg(end);
    } else if (function == QLatin1String("map_to_points")) {
        point_table table;
        for (const QPoint& p : points(a.value(0)))
            table.append(QPointF(p));
        return QString::number(double(map_to_points(table, a.value(1).toFloat())), 'g', 9);
    } else if (function == QLatin1String("usable")) {
        return QString::number(curve_is_usable(points(a.value(0))));
    } else if (function == QLatin1String("curve_value")) {
        return QString::number(curve_value(points(a.value(0)), a.value(1).toDouble()), 'g', 9);
    } else if (function == QLatin1String("resample")) {
        return shown(resample_curve(points(a.value(0))));
    } else if (function == QLatin1String("soften")) {
        return shown(soften_shadow_points(points(a.value(0))));
    } else if (function == QLatin1String("inverse_map")) {
        QStringList levels;
        const rgb_inverse_map map = build_rgb_inverse_map(points(a.value(0)));
        for (auto it = map.cbegin(); it != map.cend(); ++it)
            levels << QString::number(it.key()) + QLatin1Char(':') + joined(it.value(), ",");
        return levels.join(QLatin1Char(' '));
    } else if (function == QLatin1String("compensate")) {
        rgb_inverse_map map;
        for (int level = 0; level <= 255; ++level)
            map[level] = {level};
        for (const QString& edit : a.value(2).split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            if (edit.startsWith(QLatin1Char('-')))
                map.remove(edit.mid(1).toInt());
            else
                map[edit.section(QLatin1Char('='), 0, 0).toInt()] = QVector<int>();
            for (double input : numbers(edit.section(QLatin1Char('='), 1)))
                map[edit.section(QLatin1Char('='), 0, 0).toInt()].append(int(input));
        }
        return shown(compensate_with_rgb_curve(points(a.value(0)), points(a.value(1)), map));
    } else if (function == QLatin1String("lookup")) {
        static const costyle_writer writer; // the shipped tables
        const auto table = a.value(0) == QLatin1String("srgb") ? costyle_writer::srgb
            : a.value(0) == QLatin1String("adobe")               ? costyle_writer::adobe_rgb
                                                                 : costyle_writer::wide_gamut_rgb;
        const colour_entry e = writer.table(table).lookup(i(1), i(2), i(3));
        return joined(std::array<float, 4>{e.r, e.g, e.b, e.a});
    } else if (function == QLatin1String("tint")) {
        const tint_curve curve = a.value(0) == QLatin1String("srgb") ? tint_curve::srgb
            : a.value(0) == QLatin1String("prophoto")                ? tint_curve::prophoto
                                                                     : tint_curve::widegamut;
        return QString::number(double(get_tint_shift(curve, a.value(1).toFloat())), 'g', 9);
    } else {
        return QStringLiteral("unknown function");
    }
    return joined(out);
}

} // namespace

TEST(colour_functions, every_call_returns_as_recorded)
{
    QFile cases(data + QStringLiteral("/cases.txt"));
    ASSERT_TRUE(cases.open(QIODevice::ReadOnly));
    QStringList record;
    for (const QString& line : QString::fromUtf8(cases.readAll()).split(QLatin1Char('\n'))) {
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QStringList words = line.split(QLatin1Char(' '));
        const test_support::log_capture log;
        record << line + QStringLiteral(" -> ") + call(words.first(), words.mid(1));
        for (const QString& logged : log.lines())
            record << QStringLiteral("    ") + logged;
    }
    const QString actual = record.join(QLatin1Char('\n'));
    test_support::expect_golden(data + QStringLiteral("/colours.golden"), actual);
}

// HCL and HSV there and back again stay within one level over the cube.
TEST(colour_functions, conversions_round_trip_within_one_level)
{
    for (int r = 0; r < 256; r += 17)
        for (int g = 0; g < 256; g += 17)
            for (int b = 0; b < 256; b += 17) {
                const auto off = [&](int r2, int g2, int b2) {
                    return std::max({std::abs(r2 - r), std::abs(g2 - g), std::abs(b2 - b)});
                };
                int h = 0, c = 0, l = 0, r2 = 0, g2 = 0, b2 = 0;
                vel::rgb_to_hcl(static_cast<unsigned char>(r), static_cast<unsigned char>(g), static_cast<unsigned char>(b), h, c, l);
                vel::hcl_to_rgb_8(h, c, l, r2, g2, b2);
                EXPECT_LE(off(r2, g2, b2), 1) << r << "," << g << "," << b;
                vel::rgb_to_hsv(static_cast<unsigned char>(r), static_cast<unsigned char>(g), static_cast<unsigned char>(b), h, c, l);
                const auto p = vel::pixel_hsv<std::array<unsigned char, 3>>(h, c, l);
                EXPECT_LE(off(p[0], p[1], p[2]), 1) << r << "," << g << "," << b;
            }
}
