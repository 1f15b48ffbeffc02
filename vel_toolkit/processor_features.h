// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace vel {

// The processor's name as it reports it, or its architecture where it does not.
QString processor_name();

// The vector and bit-manipulation extensions the processor offers, by their
// usual lower-case names ("sse4.2", "avx2", ...); empty where the program
// cannot ask the processor.
QStringList processor_features();

// Writes the processor report to the debug log.
void log_processor_features();

} // namespace vel
