#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <zip.h>

// Reading archives back in tests: entry names and data through libzip, and the
// general-purpose flags straight from the central directory, where libzip keeps
// the UTF-8 name flag out of sight.
namespace zip_reading {

struct entry {
    QString name;
    QByteArray data;
};

inline QVector<entry> entries(const QString& path)
{
    QVector<entry> result;
    int error = 0;
    zip_t* archive = zip_open(path.toUtf8().constData(), ZIP_RDONLY, &error);
    if (archive == nullptr)
        return result;
    const zip_int64_t count = zip_get_num_entries(archive, 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        zip_stat_t stat;
        zip_stat_index(archive, zip_uint64_t(i), 0, &stat);
        QByteArray data(int(stat.size), '\0');
        if (zip_file_t* file = zip_fopen_index(archive, zip_uint64_t(i), 0)) {
            zip_fread(file, data.data(), stat.size);
            zip_fclose(file);
        }
        result.append({QString::fromUtf8(zip_get_name(archive, zip_uint64_t(i), ZIP_FL_ENC_RAW)), data});
    }
    zip_discard(archive);
    return result;
}

inline QStringList names(const QString& path)
{
    QStringList result;
    for (const entry& e : entries(path))
        result.append(e.name);
    return result;
}

// General-purpose bit flags of every central directory record, in order.
inline QVector<quint16> central_flags(const QByteArray& archive)
{
    static const QByteArray signature("PK\x01\x02", 4);
    QVector<quint16> flags;
    for (int at = archive.indexOf(signature); at >= 0 && at + 10 <= archive.size();
         at = archive.indexOf(signature, at + 4)) {
        const auto low = quint8(archive.at(at + 8));
        const auto high = quint8(archive.at(at + 9));
        flags.append(quint16(low | (high << 8)));
    }
    return flags;
}

// Bit 11: the entry's name is UTF-8.
constexpr quint16 utf8_name_flag = 0x0800;

} // namespace zip_reading
