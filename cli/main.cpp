// SPDX-License-Identifier: GPL-3.0-or-later
// stylewright-cli: the headless converter, for batches, scripts and servers.
// It reads and writes no stored settings: everything comes from the command line.

#include "conversion/application_identity.h"
#include "cli/cli_program.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    set_application_identity();
    QCoreApplication app(argc, argv);
    return run_cli(QCoreApplication::arguments());
}
