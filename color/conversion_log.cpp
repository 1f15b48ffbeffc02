// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/conversion_log.h"

namespace {

thread_local int silenced = 0;

} // namespace

const QLoggingCategory& conversion_log()
{
    if (silenced == 0)
        return *QLoggingCategory::defaultCategory();
    // Enabled from the fatal level up only, which no line of the conversion has.
    static const QLoggingCategory silent("stylewright.silent", QtFatalMsg);
    return silent;
}

silent_conversion_log::silent_conversion_log()
{
    ++silenced;
}

silent_conversion_log::~silent_conversion_log()
{
    --silenced;
}
