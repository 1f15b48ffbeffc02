// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class lightroom_importer;

// The text form in which the style-writer harness receives a preset record,
// so that libFuzzer mutates settings rather than file syntax:
//
//   first line          the colour space, as the stored setting would hold it
//   <number>=<value>    a setting whose key is writer_keys()[number % count]
//   <key>=<value>       a setting under any other key, taken as written
//   @<n>=x,y;x,y;...    point curve n % 4 (master, red, green, blue)
//   #name=<text>        the record's name
//
// Everything after the first "=" is the value, as the record keeps it: text.
namespace writer_input {

// Every settings key the style writer or its compatibility check reads, in
// a fixed order (the writer's own key listings fill a hash set, whose order
// changes from one process to the next).
const QStringList& writer_keys();

// Longest point curve taken from an input: real curves have a handful of
// points, and longer ones only slow the harness down.
constexpr int max_curve_points = 32;

void decode(const QByteArray& input, lightroom_importer& record, QString& colour_space);
QByteArray encode(const lightroom_importer& record, const QString& colour_space);

} // namespace writer_input
