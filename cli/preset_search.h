#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// One file the command line names, directly or through a folder.
struct input_file {
    QString path; // as given, or the folder as given followed by the path inside it
    bool exists;  // false for an argument that names nothing on disk
};

// Turns the arguments into files, in argument order. A file stays as given
// whatever its suffix (the conversion reports unsupported formats); a folder gives
// its .xmp and .lrtemplate files in any letter case from all its subfolders,
// sorted by path so that repeated runs see the same order. Hidden files and
// folders (such as the "._" companions macOS puts into archives) are left out.
// Folders without any preset are added to empty_folders.
QVector<input_file> find_presets(const QStringList& arguments, QStringList& empty_folders);
