// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

// Writes the styles (entry file name -> style document) into the style-pack
// archive at path, used as given, replacing any file of that name. With
// with_category the entries go into a folder named after the archive's complete
// base name. Nothing is written for an empty map. Failures are logged as
// warnings; the result tells whether the archive was written with every entry,
// and reason, when given, receives libzip's text of the first failure.
bool write_stylepack(const QString& path, const QMap<QString, QString>& entries, bool with_category,
                     QString* reason = nullptr);
