// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/application_identity.h"
#include <QApplication>
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>


// Shared set-up of the widget tests: private XDG folders and temporary
// folder (so no test reads or writes the user's settings or leaves files
// behind), the program's identity, and the off-screen platform unless
// another one is asked for.
namespace gui_test {

// Windows keeps settings in the registry, which no folder redirects: an INI
// file in the private configuration folder stands in for it, here and in
// the child processes a test starts.
inline void use_private_settings()
{
#ifdef Q_OS_WIN
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, qEnvironmentVariable("XDG_CONFIG_HOME"));
#endif
}

inline void use_private_folders(const QString& root)
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(root + QStringLiteral("/config")));
    qputenv("XDG_DATA_HOME", QFile::encodeName(root + QStringLiteral("/data")));
    qputenv("XDG_CACHE_HOME", QFile::encodeName(root + QStringLiteral("/cache")));
    qputenv("TMPDIR", QFile::encodeName(root));
    const QString runtime = root + QStringLiteral("/runtime");
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
    use_private_settings();
    // Wine hands no QT_* variable to a Windows program; these names pass.
    if (!qEnvironmentVariableIsEmpty("STYLEWRIGHT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", qgetenv("STYLEWRIGHT_QPA_PLATFORM"));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsEmpty("STYLEWRIGHT_TEST_SCALE_FACTOR"))
        qputenv("QT_SCALE_FACTOR", qgetenv("STYLEWRIGHT_TEST_SCALE_FACTOR"));
}

inline void set_identity()
{
    set_application_identity();
}

// Runs a test class in the shared set-up; returns the number of failures.
template <class test_class>
int run(int argc, char** argv)
{
    QTemporaryDir private_root;
    use_private_folders(private_root.path());
    set_identity();
    QApplication application(argc, argv);
    // Closing a test's last window must not end anything.
    QApplication::setQuitOnLastWindowClosed(false);
    test_class tests;
    return QTest::qExec(&tests, argc, argv);
}

} // namespace gui_test

#define STYLEWRIGHT_GUI_TEST_MAIN(test_class)                                                                \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        return gui_test::run<test_class>(argc, argv);                                                        \
    }
