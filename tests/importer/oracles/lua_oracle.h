// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

// What the real Lua 5.4 interpreter makes of one template, as printed by
// flatten_template.lua: the settings and curves the nested-template reader
// should store, or the rejection it should raise.
struct lua_flattening {
    struct value {
        QChar kind; // 'S' string, 'N' number, 'B' boolean
        QString text; // the string, or Lua's tostring of the number or boolean
        QString exact; // numbers: the double with 17 significant digits
    };

    bool loaded = false; // false: Lua itself could not load or run the file
    QString load_error;
    QString rejection; // non-empty: the reader must throw ("syntax" or the exact message)
    QMap<QString, value> settings;
    QMap<QString, QString> curves; // tone_curve... -> "x,y;x,y"
    QSet<QString> order_dependent; // keys whose winner depends on the file's order
};

// Full path of the interpreter, or empty when lua5.4 is not installed.
QString lua_interpreter();

// Runs flatten_template.lua over the file.
lua_flattening flatten_with_lua(const QString& template_path);

// Reader against Lua for one file. A value counts as exact when the reader's
// text equals Lua's; as numeric when only the numbers are equal (Lua prints
// 0.10 as 0.1 and -2e-006 as -2e-06, while the reader keeps the text as
// written, on purpose).
struct oracle_comparison {
    QStringList differences; // empty: the two agree
    int exact_values = 0;
    int numeric_values = 0;
    bool both_reject = false;
    QString reader_error; // what the reader threw, empty when it read the file
};

oracle_comparison compare_reader_with_lua(const QString& template_path);
