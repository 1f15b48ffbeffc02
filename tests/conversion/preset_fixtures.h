#pragma once

#include <QDir>
#include <QFile>
#include <QMap>
#include <QString>

#include <functional>
#include <ostream>
#include <signal.h>
#include <sys/resource.h>

// Readable failure messages for Qt strings in GoogleTest assertions.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QByteArray& bytes, std::ostream* os) { *os << '"' << bytes.toStdString() << '"'; }
QT_END_NAMESPACE

// Small preset files written on the fly, for tests that run whole conversions.
namespace preset_fixtures {

using settings_map = QMap<QString, QString>;

inline QByteArray xmp_text(const QString& name, const settings_map& settings)
{
    QString attributes;
    for (auto it = settings.cbegin(); it != settings.cend(); ++it)
        attributes += QStringLiteral(" crs:%1=\"%2\"").arg(it.key(), it.value().toHtmlEscaped());
    return QStringLiteral("<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">"
                          "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
                          "<rdf:Description xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\"%1>\n"
                          "<crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\">%2</rdf:li></rdf:Alt></crs:Name>\n"
                          "</rdf:Description></rdf:RDF></x:xmpmeta>\n")
        .arg(attributes, name.toHtmlEscaped())
        .toUtf8();
}

// A template in the nested form.
inline QByteArray lrtemplate_text(const QString& title, const settings_map& settings)
{
    QString entries;
    for (auto it = settings.cbegin(); it != settings.cend(); ++it)
        entries += QStringLiteral("%1 = %2,\n").arg(it.key(), it.value());
    return QStringLiteral("s = {\ntitle = \"%1\",\ntype = \"Develop\",\nvalue = {\nsettings = {\n%2},\n},\n"
                          "version = 0,\n}\n")
        .arg(title, entries)
        .toUtf8();
}

inline QString write_file(const QString& folder, const QString& file_name, const QByteArray& bytes)
{
    const QString path = QDir(folder).filePath(file_name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

inline QByteArray read_file(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Settings that raise the compatibility check's flags, named by the words of
// flags ("wb", "lut", "dehaze", "cal"; "colourful" makes a style over a
// kilobyte); no word gives a plain exposure change.
inline settings_map flagged(const QString& flags = QString())
{
    static const QMap<QString, settings_map> parts = {
        {"wb", {{"Temperature", "5000"}}},
        {"lut", {{"RGBTable", "ABC"}}},
        {"dehaze", {{"Dehaze", "12"}}},
        {"cal", {{"RedHue", "10"}}},
        {"colourful", {{"HueAdjustmentRed", "10"}, {"SaturationAdjustmentBlue", "-20"}}}};
    settings_map all = {{"Exposure2012", "0.50"}};
    for (const QString& flag : flags.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        all.insert(parts.value(flag));
    return all;
}

// Runs work under a file-size limit, with the limit's signal ignored so that a
// write beyond it fails with an error whoever runs the test.
inline void with_file_size_limit(rlim_t bytes, const std::function<void()>& work)
{
    rlimit saved{};
    getrlimit(RLIMIT_FSIZE, &saved);
    rlimit tiny = saved;
    tiny.rlim_cur = bytes;
    auto* previous_handler = signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &tiny);
    work();
    setrlimit(RLIMIT_FSIZE, &saved);
    signal(SIGXFSZ, previous_handler);
}

} // namespace preset_fixtures
