// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/stylepack_writer.h"

#include <QByteArray>
#include <QDebug>
#include <QFileInfo>
#include <QVector>

#include <zip.h>

namespace {

// Logs libzip's text for the code and returns it.
QString warn_with_code(const char* format, int code)
{
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    const char* text = zip_error_strerror(&error);
    qWarning(format, code, text);
    const QString reason = QString::fromUtf8(text);
    zip_error_fini(&error);
    return reason;
}

} // namespace

bool write_stylepack(const QString& path, const QMap<QString, QString>& entries, bool with_category,
                     QString* reason)
{
    QString first_failure;
    const auto failed = [&first_failure](const QString& text) {
        if (first_failure.isEmpty())
            first_failure = text;
    };
    if (entries.isEmpty())
        return true;

    const QString prefix = with_category ? QFileInfo(path).completeBaseName() + QLatin1Char('/') : QString();

    // libzip reads the buffers only inside zip_close and does not copy them, so
    // they live until the archive is closed, in the map's (name) order.
    QVector<QByteArray> buffers;
    buffers.reserve(entries.size());
    for (auto it = entries.cbegin(); it != entries.cend(); ++it)
        buffers.append(it.value().toUtf8());

    // Opening the final path directly is safe: libzip writes the archive into a
    // temporary file beside it and renames that over the path in zip_close (its
    // manual lists ZIP_ER_TMPOPEN and ZIP_ER_RENAME among zip_close's errors), so a
    // failed write leaves an earlier archive of that name as it was. ZIP_TRUNCATE
    // makes an existing archive count as empty: nothing of it survives.
    int code = 0;
    zip_t* archive = zip_open(path.toUtf8().constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    bool written = true;
    if (archive == nullptr || code != 0) {
        failed(warn_with_code("libzip zip_open error %d: %s", code));
        code = 0;
        written = false;
    }
    if (archive == nullptr) {
        if (reason)
            *reason = first_failure;
        return false;
    }

    int i = 0;
    for (auto it = entries.cbegin(); it != entries.cend(); ++it, ++i) {
        const QByteArray key = it.key().toUtf8();
        const QByteArray name = (prefix + it.key()).toUtf8();
        qDebug("Key %i: '%s' -> '%s'", i, key.constData(), name.constData());
        const QByteArray& data = buffers.at(i);
        zip_source_t* source = zip_source_buffer_create(data.constData(), zip_uint64_t(data.size()), 0, nullptr);
        if (zip_file_add(archive, name.constData(), source, ZIP_FL_ENC_UTF_8) < 0) {
            qWarning("libzip zip_file_add error: %s", zip_strerror(archive));
            failed(QString::fromUtf8(zip_strerror(archive)));
            zip_source_free(source);
            written = false;
        }
        // An added source belongs to the archive now.
    }

    const int closed = zip_close(archive);
    if (closed != 0) {
        // The number logged is zip_close's own result, not the archive's detailed error.
        // The archive's own error says more than the close call's result.
        warn_with_code("libzip zip_close error %d: %s", closed);
        failed(QString::fromUtf8(zip_strerror(archive)));
        // A failed close leaves the archive open; release it without writing anything.
        zip_discard(archive);
        written = false;
    }
    if (reason)
        *reason = first_failure;
    return written;
}
