// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/group_folder.h"

#include <QByteArray>
#include <QRegularExpression>

namespace {

bool forbidden(QChar c)
{
    static const QString characters = QStringLiteral("<>:\"/\\|?*%");
    return c.unicode() < 0x20 || c.unicode() == 0x7f || characters.contains(c);
}

QString escaped(const QString& text)
{
    QString result;
    for (const char byte : text.toUtf8())
        result += QStringLiteral("%%1").arg(uchar(byte), 2, 16, QLatin1Char('0')).toUpper();
    return result;
}

bool reserved_on_windows(const QString& name)
{
    static const QRegularExpression reserved(QStringLiteral("^(CON|PRN|AUX|NUL|COM[1-9]|LPT[1-9])(\\..*)?$"),
                                             QRegularExpression::CaseInsensitiveOption);
    return reserved.match(name).hasMatch();
}

} // namespace

QString folder_of_group(const QString& group)
{
    QString folder;
    for (const QChar c : group) {
        if (forbidden(c))
            folder += escaped(c);
        else
            folder += c;
    }
    if (folder == QLatin1String(".") || folder == QLatin1String(".."))
        return escaped(folder);
    // Windows drops trailing dots and spaces, which would merge "Film." into "Film".
    int end = folder.size();
    while (end > 0 && (folder.at(end - 1) == QLatin1Char('.') || folder.at(end - 1) == QLatin1Char(' ')))
        --end;
    folder = folder.left(end) + escaped(folder.mid(end));
    if (reserved_on_windows(folder))
        folder = escaped(folder.left(1)) + folder.mid(1);
    return folder;
}

QString group_of_folder(const QString& folder)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(folder.toUtf8()));
}
