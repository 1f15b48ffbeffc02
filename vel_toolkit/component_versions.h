// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>

namespace vel {

struct component_version {
    QString name;
    QString version;
};

// The program and the libraries it runs with, in the versions actually
// loaded (for Qt also the version built against when the two differ).
QVector<component_version> component_versions();

// The operating system, its kernel and the processor architecture.
QString operating_system_description();

// Writes the component report to the debug log, one line per component.
void log_component_versions();

} // namespace vel
