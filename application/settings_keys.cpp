#include "application/settings_keys.h"

#include <QStandardPaths>

namespace {

QString pictures_folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

} // namespace

namespace settings_keys {

const key_with_default input_dir{QStringLiteral("input_dir"), pictures_folder()};
const key_with_default output_dir{QStringLiteral("output_dir"), pictures_folder()};

} // namespace settings_keys
