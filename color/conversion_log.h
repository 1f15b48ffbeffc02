// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

// The category of the conversion's own log lines (each setting read, a curve
// left out, a point moved, the colour table in use): Qt's default category, so
// they read as any qDebug() or qWarning() line, but a disabled level costs
// nothing, as the message is then not even formatted. On a thread where a silent_conversion_log
// exists it is a category with every level off: a conversion made only to
// learn which settings it reads must not repeat what the real one says.
const QLoggingCategory& conversion_log();

class silent_conversion_log {
public:
    silent_conversion_log();
    ~silent_conversion_log();
    silent_conversion_log(const silent_conversion_log&) = delete;
    silent_conversion_log& operator=(const silent_conversion_log&) = delete;
};
