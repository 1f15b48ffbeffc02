#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>

// The files a drop onto the main window hands to a conversion run, in the
// order of the dropped items. A dropped file is taken whatever its suffix,
// as the open dialog takes a typed name (the run reports what it can't
// read); a dropped folder gives its presets from all its subfolders, sorted
// by path, leaving hidden files and folders out. Urls that are not local
// files are ignored.
QStringList dropped_presets(const QList<QUrl>& urls);
