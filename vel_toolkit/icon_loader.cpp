// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/icon_loader.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>

namespace vel {
namespace {

// A highlighted icon is this much brighter, plus a small lift so dark
// parts brighten too: enough to be seen at a glance, while colours keep
// their hue and saturation.
constexpr int highlight_gain_percent = 135;
constexpr int highlight_lift = 12;

int lighten(int channel, int alpha)
{
    // Premultiplied: white at this alpha is the alpha value itself.
    const int lift = highlight_lift * alpha / 255;
    return qMin(alpha, channel * highlight_gain_percent / 100 + lift);
}

} // namespace

QString double_resolution_name(const QString& path)
{
    const QFileInfo info(path);
    const QString suffix = info.suffix();
    if (suffix.isEmpty())
        return path + QStringLiteral("@2x");
    return path.left(path.size() - suffix.size() - 1) + QStringLiteral("@2x.") + suffix;
}

QIcon load_icon(const QString& path, icon_state state)
{
    QIcon icon;
    for (const QString& name : {path, double_resolution_name(path)}) {
        QImage image(name);
        if (image.isNull())
            continue;
        if (state == icon_state::highlighted)
            image = highlighted(image);
        // Both sizes in one icon: Qt picks the one that fits the screen.
        icon.addPixmap(QPixmap::fromImage(image));
    }
    return icon;
}

QPixmap load_pixmap(const QString& path, qreal device_pixel_ratio)
{
    const QString twin = double_resolution_name(path);
    if (device_pixel_ratio > 1.0 && QFile::exists(twin)) {
        QPixmap pixmap(twin);
        pixmap.setDevicePixelRatio(2.0);
        return pixmap;
    }
    return QPixmap(path);
}

QImage highlighted(const QImage& image)
{
    QImage result = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const QRgb pixel = line[x];
            const int alpha = qAlpha(pixel);
            line[x] = qRgba(lighten(qRed(pixel), alpha), lighten(qGreen(pixel), alpha),
                            lighten(qBlue(pixel), alpha), alpha);
        }
    }
    return result;
}

} // namespace vel
