// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QPoint>
#include <QPointF>
#include <QVector>

// A tone curve: integer points, input level x and output level y on 0..255.
using curve_points = QVector<QPoint>;

// Real points with strictly increasing x, looked up piecewise-linearly.
using point_table = QVector<QPointF>;

// Output level of the rastered master curve -> the input levels producing it,
// in ascending order. Levels the curve never reaches have no key.
using rgb_inverse_map = QMap<int, QVector<int>>;
