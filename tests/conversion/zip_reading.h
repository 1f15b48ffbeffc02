#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

#include <zip.h>

// Reads an archive back: entry names and data, in archive order, through libzip.
namespace zip_reading {

inline QVector<QPair<QString, QByteArray>> entries(const QString& path)
{
    QVector<QPair<QString, QByteArray>> result;
    zip_t* archive = zip_open(path.toUtf8().constData(), ZIP_RDONLY, nullptr);
    for (zip_int64_t i = 0; archive != nullptr && i < zip_get_num_entries(archive, 0); ++i) {
        zip_stat_t stat;
        zip_stat_index(archive, zip_uint64_t(i), 0, &stat);
        QByteArray data(int(stat.size), '\0');
        if (zip_file_t* file = zip_fopen_index(archive, zip_uint64_t(i), 0)) {
            zip_fread(file, data.data(), stat.size);
            zip_fclose(file);
        }
        result.append({QString::fromUtf8(zip_get_name(archive, zip_uint64_t(i), ZIP_FL_ENC_RAW)), data});
    }
    if (archive != nullptr)
        zip_discard(archive);
    return result;
}

inline QStringList names(const QString& path)
{
    QStringList result;
    for (const auto& entry : entries(path))
        result.append(entry.first);
    return result;
}

// Whether every central directory record whose name goes beyond ASCII
// carries the UTF-8 name flag (bit 11), which libzip keeps out of sight.
inline bool names_flagged_utf8(const QByteArray& archive)
{
    static const QByteArray signature("PK\x01\x02", 4);
    for (int at = archive.indexOf(signature); at >= 0 && at + 46 <= archive.size();
         at = archive.indexOf(signature, at + 4)) {
        const QByteArray name = archive.mid(at + 46, quint8(archive.at(at + 28)) | quint8(archive.at(at + 29)) << 8);
        if (QString::fromLatin1(name).toUtf8() != name && (quint8(archive.at(at + 9)) & 0x08) == 0)
            return false;
    }
    return true;
}

} // namespace zip_reading
