// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <gtest/gtest.h>

namespace test_support {

// Compares a whole output with the text expected and names the first line
// that differs, under the last heading ("== ..." or "$ ...") above it.
inline void expect_same_lines(const QString& expected_text, const QString& actual, const QString& where)
{
    const QStringList expected = expected_text.split(QLatin1Char('\n'));
    const QStringList got = actual.split(QLatin1Char('\n'));
    for (int i = 0, heading = 0; i < std::max(expected.size(), got.size()); ++i) {
        if (got.value(i).startsWith(QLatin1String("== ")) || got.value(i).startsWith(QLatin1Char('$')))
            heading = i;
        ASSERT_EQ(got.value(i).toStdString(), expected.value(i).toStdString())
            << "line " << i + 1 << " of " << where.toStdString() << ", under " << got.value(heading).toStdString();
    }
}

inline QString read_golden(const QString& path)
{
    QFile golden(path);
    return golden.open(QIODevice::ReadOnly) ? QString::fromUtf8(golden.readAll()) : QString();
}

// The same against a recorded file. With STYLEWRIGHT_UPDATE_GOLDEN set,
// writes the file anew instead: after a deliberate change, read its diff
// before committing it.
inline void expect_golden(const QString& path, const QString& actual)
{
    if (qEnvironmentVariableIsSet("STYLEWRIGHT_UPDATE_GOLDEN")) {
        QFile golden(path);
        ASSERT_TRUE(golden.open(QIODevice::WriteOnly | QIODevice::Truncate));
        golden.write(actual.toUtf8());
        GTEST_SKIP() << "recorded anew: " << path.toStdString();
    }
    ASSERT_TRUE(QFile::exists(path)) << path.toStdString();
    expect_same_lines(read_golden(path), actual, path);
}

} // namespace test_support
