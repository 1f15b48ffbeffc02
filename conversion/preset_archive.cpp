// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/preset_archive.h"

#include "conversion/preset_reading.h"
#include "importer/dng_packet.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <zip.h>

#include <algorithm>
#include <memory>

namespace {

const QString archive_suffix = QStringLiteral("zip");

struct archive_closer {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct entry_closer {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

QString zip_error_text(int code)
{
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    const QString text = QString::fromUtf8(zip_error_strerror(&error));
    zip_error_fini(&error);
    return text;
}

// A name that stays inside the output folder once it is joined to it on any
// system: relative, '/'-separated, without "." or ".." parts and without a
// drive letter or other colon.
bool is_safe_name(const QString& name)
{
    if (name.isEmpty() || name.startsWith(QLatin1Char('/')) || name.contains(QLatin1Char('\\')) ||
        name.contains(QLatin1Char(':')) || name.contains(QChar(0)))
        return false;
    const QStringList parts = name.split(QLatin1Char('/'));
    for (int i = 0; i < parts.size(); ++i) {
        const QString& part = parts.at(i);
        // Only a folder entry ends in '/', which leaves one empty last part.
        if (part.isEmpty() && i != parts.size() - 1)
            return false;
        if (part == QLatin1String(".") || part == QLatin1String(".."))
            return false;
    }
    return true;
}

bool is_hidden(const QString& name)
{
    const QStringList parts = name.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    return std::any_of(parts.cbegin(), parts.cend(), [](const QString& part) { return part.startsWith(QLatin1Char('.')); });
}

class archive_reader {
public:
    archive_reader(zip_t* archive, const archive_limits& limits) : archive_(archive), limits_(limits) {}

    // False once the archive's presets together passed the limit: the rest is not read.
    bool read_entry(zip_uint64_t index, archive_contents& contents)
    {
        read_one(index, contents);
        return !over_total_;
    }

    qint64 unpacked() const { return unpacked_; }
    qint64 kept() const { return total_; }

private:
    void read_one(zip_uint64_t index, archive_contents& contents)
    {
        const char* raw_name = zip_get_name(archive_, index, ZIP_FL_ENC_GUESS);
        if (raw_name == nullptr)
            return;
        const QString name = QString::fromUtf8(raw_name);
        if (name.endsWith(QLatin1Char('/')))
            return; // a folder
        if (!is_safe_name(name)) {
            refuse(contents, name, archive_problem::unsafe_name);
            return;
        }
        if (is_hidden(name))
            return;
        const bool nested = QFileInfo(name).suffix().compare(archive_suffix, Qt::CaseInsensitive) == 0;
        if (!nested && preset_format_of(name) == preset_format::unsupported) {
            const QString other = other_kind_of(name);
            if (!other.isEmpty())
                ++contents.others[other];
            return;
        }

        zip_stat_t stat;
        zip_stat_init(&stat);
        if (zip_stat_index(archive_, index, 0, &stat) != 0) {
            refuse(contents, name, archive_problem::damaged_entry, QString::fromUtf8(zip_strerror(archive_)));
            return;
        }
        const bool dng = preset_format_of(name) == preset_format::dng;
        // An archive inside may be as large as all presets together.
        const qint64 max_size = nested ? limits_.max_total_size
                                : dng  ? limits_.max_dng_entry_size
                                       : limits_.max_entry_size;
        // The stored size is only a claim; the reading below is bounded too.
        if ((stat.valid & ZIP_STAT_SIZE) != 0 && stat.size > zip_uint64_t(max_size)) {
            refuse(contents, name, archive_problem::too_large);
            return;
        }
        QByteArray data;
        if (!read_data(index, name, max_size, !dng && !nested, data, contents))
            return;
        archive_preset preset{name, data, QString()};
        if (dng)
            keep_packet_only(preset);
        if (total_ + preset.data.size() > limits_.max_total_size) {
            over_total_ = true;
            refuse(contents, name, archive_problem::total_too_large);
            return;
        }
        total_ += preset.data.size();
        // An archive inside is held whole until it is read; it counts like a preset.
        (nested ? contents.archives : contents.presets).append(std::move(preset));
    }

    // A DNG preset's photo is dropped as soon as its packet is out.
    static void keep_packet_only(archive_preset& preset)
    {
        QBuffer file(&preset.data);
        file.open(QIODevice::ReadOnly);
        QByteArray packet;
        try {
            packet = read_dng_xmp_packet(file);
        } catch (const std::exception& error) {
            preset.error = QString::fromUtf8(error.what());
        }
        file.close();
        preset.data = packet;
    }

    // kept: the whole data is kept and counts against the total as it grows.
    bool read_data(zip_uint64_t index, const QString& name, qint64 max_size, bool kept, QByteArray& data,
                   archive_contents& contents)
    {
        const std::unique_ptr<zip_file_t, entry_closer> file(zip_fopen_index(archive_, index, 0));
        if (!file) {
            refuse(contents, name, archive_problem::damaged_entry, QString::fromUtf8(zip_strerror(archive_)));
            return false;
        }
        constexpr qint64 chunk = 64 * 1024;
        for (;;) {
            if (data.size() > max_size) {
                refuse(contents, name, archive_problem::too_large);
                return false;
            }
            if ((kept && total_ + data.size() > limits_.max_total_size) ||
                unpacked_ + data.size() > limits_.max_unpacked_size) {
                over_total_ = true;
                refuse(contents, name, archive_problem::total_too_large);
                return false;
            }
            const int old_size = data.size();
            data.resize(old_size + int(chunk));
            const zip_int64_t got = zip_fread(file.get(), data.data() + old_size, zip_uint64_t(chunk));
            if (got < 0) {
                refuse(contents, name, archive_problem::damaged_entry,
                       QString::fromUtf8(zip_file_strerror(file.get())));
                return false;
            }
            data.resize(old_size + int(got));
            if (got == 0)
                break;
        }
        unpacked_ += data.size();
        return true;
    }

    static void refuse(archive_contents& contents, const QString& name, archive_problem problem,
                       const QString& detail = QString())
    {
        contents.refusals.append({name, problem, detail});
    }

    zip_t* archive_;
    const archive_limits& limits_;
    qint64 total_ = 0;
    qint64 unpacked_ = 0;
    bool over_total_ = false;
};

} // namespace

archive_limits limits_left(const archive_limits& limits, const archive_contents& contents)
{
    archive_limits left = limits;
    left.max_entries = std::max<qint64>(0, limits.max_entries - contents.entries);
    left.max_total_size = std::max<qint64>(0, limits.max_total_size - contents.kept);
    left.max_unpacked_size = std::max<qint64>(0, limits.max_unpacked_size - contents.unpacked);
    return left;
}

bool is_preset_archive(const QString& path)
{
    return QFileInfo(path).suffix().compare(archive_suffix, Qt::CaseInsensitive) == 0;
}

namespace {

archive_contents unreadable(const QString& detail)
{
    archive_contents contents;
    contents.problem = archive_problem::unreadable;
    contents.detail = detail;
    return contents;
}

archive_contents read_open_archive(zip_t* archive, const archive_limits& limits)
{
    archive_contents contents;
    const zip_int64_t count = zip_get_num_entries(archive, 0);
    if (count > limits.max_entries) {
        contents.problem = archive_problem::too_many_entries;
        return contents;
    }
    archive_reader reader(archive, limits);
    contents.entries = count;
    for (zip_int64_t i = 0; i < count; ++i) {
        if (!reader.read_entry(zip_uint64_t(i), contents))
            break;
    }
    contents.unpacked = reader.unpacked();
    contents.kept = reader.kept();
    const auto by_entry = [](const auto& a, const auto& b) { return a.entry < b.entry; };
    std::sort(contents.presets.begin(), contents.presets.end(), by_entry);
    std::sort(contents.refusals.begin(), contents.refusals.end(), by_entry);
    return contents;
}

// ZIP_CHECKCONS compares the central directory with the local headers, so a
// truncated or tampered archive is refused as a whole instead of half read.
constexpr int open_flags = ZIP_RDONLY | ZIP_CHECKCONS;

} // namespace

archive_contents read_preset_archive(const QString& path, const archive_limits& limits)
{
    int code = 0;
    const std::unique_ptr<zip_t, archive_closer> archive(
        zip_open(QFile::encodeName(path).constData(), open_flags, &code));
    if (!archive)
        return unreadable(zip_error_text(code));
    return read_open_archive(archive.get(), limits);
}

archive_contents read_preset_archive_data(const QByteArray& data, const archive_limits& limits)
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(data.constData(), zip_uint64_t(data.size()), 0, &error);
    std::unique_ptr<zip_t, archive_closer> archive(
        source == nullptr ? nullptr : zip_open_from_source(source, open_flags, &error));
    const QString detail = QString::fromUtf8(zip_error_strerror(&error));
    zip_error_fini(&error);
    if (!archive) {
        // Without an archive the source still belongs to the caller.
        zip_source_free(source);
        return unreadable(detail);
    }
    return read_open_archive(archive.get(), limits);
}

QString archive_problem_text(archive_problem problem, const QString& detail, const archive_limits& limits)
{
    const auto megabytes = [](qint64 bytes) { return QString::number(bytes / (1024 * 1024)); };
    switch (problem) {
    case archive_problem::none:
        break;
    case archive_problem::unreadable:
        return QCoreApplication::translate("MainWindow", "The archive can't be read: %1.").arg(detail);
    case archive_problem::too_many_entries:
        return QCoreApplication::translate("MainWindow", "The archive holds more than %1 entries; it was not read.")
            .arg(limits.max_entries);
    case archive_problem::unsafe_name:
        return QCoreApplication::translate("MainWindow",
                                           "The entry's name leads outside the archive; it was not read.");
    case archive_problem::nested_archive:
        return QCoreApplication::translate("MainWindow", "Archives nested more than %1 deep are not opened.")
            .arg(max_archive_depth);
    case archive_problem::too_large:
        return QCoreApplication::translate("MainWindow", "The preset is larger than %1 MB; it was not read.")
            .arg(megabytes(limits.max_entry_size));
    case archive_problem::total_too_large:
        return QCoreApplication::translate("MainWindow",
                                           "The archive's presets together are larger than %1 MB; the rest was not read.")
            .arg(megabytes(limits.max_total_size));
    case archive_problem::damaged_entry:
        return QCoreApplication::translate("MainWindow", "The entry can't be read: %1.").arg(detail);
    }
    return QString();
}
