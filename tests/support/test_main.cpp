// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/application_identity.h"
#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Private XDG folders for the whole run: QSettings and QStandardPaths
    // never reach the user's configuration.
    QTemporaryDir xdg_root;
    qputenv("XDG_CONFIG_HOME", (xdg_root.path() + QStringLiteral("/config")).toLocal8Bit());
    qputenv("XDG_DATA_HOME", (xdg_root.path() + QStringLiteral("/data")).toLocal8Bit());
    qputenv("XDG_CACHE_HOME", (xdg_root.path() + QStringLiteral("/cache")).toLocal8Bit());

    set_application_identity();
    QCoreApplication app(argc, argv);

    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
