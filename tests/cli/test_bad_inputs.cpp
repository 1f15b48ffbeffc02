// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_runner.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileDevice>
#include <QMap>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <functional>
#include <gtest/gtest.h>
#include <unistd.h>

// Bad input for the command-line converter, one row per kind: what it must
// say, how it must exit, and that nothing but the expected files changed. A
// separate style written earlier (and, where a write fails, the earlier file
// of the failing style itself) must survive byte for byte.

namespace {

// The style every case finds in the output folder beforehand.
const QByteArray earlier_style = "<?xml version=\"1.0\"?>\n<SL Engine=\"900\">\n    <E K=\"Name\" V=\"Earlier\"/>\n</SL>\n";

QByteArray read_all(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool write_all(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Relative path -> content digest of every file below the folder.
QMap<QString, QByteArray> snapshot(const QString& folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    const QDir root(folder);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile file(path);
        QCryptographicHash hash(QCryptographicHash::Sha1);
        if (file.open(QIODevice::ReadOnly))
            hash.addData(&file);
        files.insert(root.relativeFilePath(path), hash.result());
    }
    return files;
}

// The files that appeared or changed between two snapshots, and those that went.
QStringList changes(const QMap<QString, QByteArray>& before, const QMap<QString, QByteArray>& after)
{
    QStringList changed;
    for (auto it = after.cbegin(); it != after.cend(); ++it)
        if (before.value(it.key()) != it.value())
            changed << it.key();
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        if (!after.contains(it.key()))
            changed << QStringLiteral("removed ") + it.key();
    changed.sort();
    return changed;
}

QString style_name(const QByteArray& style)
{
    QXmlStreamReader xml(style);
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("E") && xml.attributes().value(QStringLiteral("K")) == QLatin1String("Name"))
            return xml.attributes().value(QStringLiteral("V")).toString();
        if (xml.name() != QLatin1String("SL"))
            xml.skipCurrentElement();
    }
    return QStringLiteral("(no name: %1)").arg(xml.errorString());
}

QByteArray nested_template(const QString& title, const QString& settings)
{
    return QStringLiteral("s = {\n\ttitle = \"%1\",\n\tvalue = {\n\t\tsettings = {\n%2\t\t},\n\t},\n}\n")
        .arg(title, settings)
        .toUtf8();
}

QByteArray xmp_preset(const QByteArray& prolog, const QByteArray& attributes, const QByteArray& name)
{
    return prolog + "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
                    "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
                    "xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" "
           + attributes + "><crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\">" + name
           + "</rdf:li></rdf:Alt></crs:Name></rdf:Description></rdf:RDF></x:xmpmeta>\n";
}

QByteArray billion_laughs()
{
    QByteArray doctype = "<?xml version=\"1.0\"?>\n<!DOCTYPE x:xmpmeta [\n<!ENTITY l0 \"ha\">\n";
    for (int i = 1; i <= 30; ++i) {
        doctype += "<!ENTITY l" + QByteArray::number(i) + " \"";
        for (int k = 0; k < 10; ++k)
            doctype += "&l" + QByteArray::number(i - 1) + ";";
        doctype += "\">\n";
    }
    doctype += "]>\n";
    return xmp_preset(doctype, "crs:Exposure2012=\"+1.00\" crs:Tint=\"&l30;\"", "Laughs");
}

// Everything one case needs: its files go into the work folder, the
// converter runs there with the given arguments.
struct case_setup {
    QString work;
    QStringList arguments;
    run_mode mode = run_mode::plain;
    QString skip_reason; // set when this machine cannot show the case
    std::function<void()> tear_down;

    QString path(const QString& relative) const { return QDir(work).filePath(relative); }
    void file(const QString& relative, const QByteArray& bytes) const { ASSERT_TRUE(write_all(path(relative), bytes)); }
};

struct bad_input {
    const char* name;
    std::function<void(case_setup&)> make;
    int exit_code;
    // Lines standard error must hold, in order (other lines may come between).
    QStringList messages;
    // Files below the work folder that must appear or change; nothing else may.
    QStringList written;
    // For each written style, the name it must carry.
    QStringList style_names;
};

void PrintTo(const bad_input& c, std::ostream* out)
{
    *out << c.name;
}

bool running_as_root()
{
    return geteuid() == 0;
}

// Runs the converter as another user when root; says why not when it cannot.
QString use_other_user_when_root(case_setup& s)
{
    if (!running_as_root())
        return QString();
    if (QStandardPaths::findExecutable(QStringLiteral("setpriv")).isEmpty())
        return QStringLiteral("running as root without setpriv: permissions do not bind");
    // The build may sit where the other user cannot reach the converter.
    const process_result probe = run_cli({QStringLiteral("--version")}, QStringLiteral("/"), run_mode::other_user);
    if (probe.exit_code != 0 || !probe.out.startsWith("Stylewright"))
        return QStringLiteral("the user nobody cannot run the converter from this build folder");
    s.mode = run_mode::other_user;
    // The other user must reach the work folder and write the output folder.
    QFile::setPermissions(s.work, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner
                                      | QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther
                                      | QFileDevice::ReadGroup | QFileDevice::ExeGroup);
    return QString();
}

// A 64 KiB tmpfs filled up to a few hundred bytes; only root can mount one.
QString mount_small_file_system(case_setup& s, const QString& relative)
{
    if (!running_as_root())
        return QStringLiteral("mounting a small file system needs root");
    const QString mount_point = s.path(relative);
    QDir().mkpath(mount_point);
    const process_result mounted = run_program(
        QStringLiteral("mount"), {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                                  QStringLiteral("size=64k"), QStringLiteral("tmpfs"), mount_point},
        s.work);
    if (!mounted.finished || mounted.exit_code != 0)
        return QStringLiteral("cannot mount a tmpfs here: ") + QString::fromUtf8(mounted.err).trimmed();
    s.tear_down = [mount_point] { run_program(QStringLiteral("umount"), {mount_point}, QStringLiteral("/")); };
    // Fill it with a file that grows until the disk is full, then shrink it a
    // little so that the earlier files fit but a new style does not.
    QFile filler(QDir(mount_point).filePath(QStringLiteral("filler")));
    if (filler.open(QIODevice::WriteOnly)) {
        const QByteArray block(4096, 'f');
        while (filler.write(block) == block.size() && filler.flush()) {
        }
        filler.close();
        filler.resize(qMax<qint64>(0, filler.size() - 2 * 4096));
    }
    return QString();
}

const QString ok_xmp_settings = QStringLiteral("crs:Exposure2012=\"+0.50\" crs:Contrast2012=\"+20\"");

QByteArray good_xmp(const QByteArray& name)
{
    return xmp_preset(QByteArray(), ok_xmp_settings.toUtf8(), name);
}

const bad_input bad_inputs[] = {
    // Expansion stops at the reader's limit; the element that held the entity
    // is lost, the rest of the document is not read.
    {"xmp_exponential_entity_expansion",
     [](case_setup& s) {
         s.file(QStringLiteral("laughs.xmp"), billion_laughs());
         s.arguments = QStringList{QStringLiteral("-o"), QStringLiteral("out"), QStringLiteral("laughs.xmp")};
     },
     0,
     {QStringLiteral("Warning: 3 Entity expands to more characters than the entity expansion limit."),
      QStringLiteral("1 converted, 0 skipped, 0 failed")},
     {QStringLiteral("out/laughs.costyle")},
     {QString()}},
    // An external entity is never fetched: nothing of the named file arrives.
    {"xmp_external_entity",
     [](case_setup& s) {
         s.file(QStringLiteral("secret.txt"), "SECRET");
         s.file(QStringLiteral("external.xmp"),
                xmp_preset("<?xml version=\"1.0\"?>\n<!DOCTYPE x:xmpmeta [<!ENTITY e SYSTEM \"secret.txt\">]>\n",
                           ok_xmp_settings.toUtf8(), "Before &e; after"));
         s.arguments = QStringList{QStringLiteral("-o"), QStringLiteral("out"), QStringLiteral("external.xmp")};
     },
     0,
     {QStringLiteral("1 converted, 0 skipped, 0 failed")},
     {QStringLiteral("out/external.costyle")},
     {QStringLiteral("Before  after")}},
    {"preset_that_cannot_be_read",
     [](case_setup& s) {
         s.skip_reason = use_other_user_when_root(s);
         s.file(QStringLiteral("locked.lrtemplate"), nested_template(QStringLiteral("Locked"), QString()));
         QFile::setPermissions(s.path(QStringLiteral("locked.lrtemplate")), QFileDevice::Permissions());
         s.file(QStringLiteral("out/locked.costyle"), earlier_style);
         QFile::setPermissions(s.path(QStringLiteral("out")), QFileDevice::Permissions(0x7777));
         s.arguments = QStringList{QStringLiteral("-o"), QStringLiteral("out"), QStringLiteral("locked.lrtemplate")};
     },
     1,
     {QStringLiteral("Error: locked.lrtemplate: Can't open the file: Permission denied."),
      QStringLiteral("0 converted, 0 skipped, 1 failed")},
     {},
     {}},
    // A missing output folder is made, as the converter's help says.
    {"output_folder_below_a_file",
     [](case_setup& s) {
         s.file(QStringLiteral("a.xmp"), good_xmp("A"));
         s.file(QStringLiteral("plain-file"), "not a folder");
         s.arguments = QStringList{QStringLiteral("-o"), QStringLiteral("plain-file/out"), QStringLiteral("a.xmp")};
     },
     1,
     {QStringLiteral("Error: Can't create the output folder plain-file/out.")},
     {},
     {}},
    {"output_folder_not_writable",
     [](case_setup& s) {
         s.skip_reason = use_other_user_when_root(s);
         s.file(QStringLiteral("a.xmp"), good_xmp("A"));
         QFile::setPermissions(s.path(QStringLiteral("out")),
                               QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadOther
                                   | QFileDevice::ExeOther | QFileDevice::ReadGroup | QFileDevice::ExeGroup);
         s.arguments = QStringList{QStringLiteral("-o"), QStringLiteral("out"), QStringLiteral("a.xmp")};
     },
     1,
     {QStringLiteral("Error: a.xmp: Can't write style: The style out/a.costyle could not be written. Permission denied"),
      QStringLiteral("0 converted, 0 skipped, 1 failed")},
     {},
     {}},
    {"full_disk_on_standard_output",
     [](case_setup& s) {
         s.file(QStringLiteral("a.xmp"), good_xmp("A"));
         s.mode = run_mode::stdout_to_full_device;
         s.arguments = QStringList{QStringLiteral("--stdout"), QStringLiteral("a.xmp")};
     },
     1,
     {QStringLiteral("Error: Can't write to standard output: No space left on device."),
      QStringLiteral("0 converted, 0 skipped, 1 failed")},
     {},
     {}},
    {"full_disk_for_a_style",
     [](case_setup& s) {
         s.file(QStringLiteral("a.xmp"), good_xmp("A"));
         s.skip_reason = mount_small_file_system(s, QStringLiteral("disk"));
         s.file(QStringLiteral("disk/a.costyle"), earlier_style);
         s.arguments = QStringList{QStringLiteral("-o"), QStringLiteral("disk"), QStringLiteral("a.xmp")};
     },
     1,
     {QStringLiteral("Error: a.xmp: Can't write style: The style disk/a.costyle could not be written. No space left "
                     "on device"),
      QStringLiteral("0 converted, 0 skipped, 1 failed")},
     {},
     {}},
    {"file_size_limit",
     [](case_setup& s) {
         s.file(QStringLiteral("a.xmp"), good_xmp("A"));
         s.file(QStringLiteral("out/a.costyle"), earlier_style);
         s.mode = run_mode::no_file_size;
         s.arguments = QStringList{QStringLiteral("-o"), QStringLiteral("out"), QStringLiteral("a.xmp")};
     },
     1,
     {QStringLiteral("Error: a.xmp: Can't write style: The style out/a.costyle could not be written. File too large"),
      QStringLiteral("0 converted, 0 skipped, 1 failed")},
     {},
     {}},
    {"pack_in_a_folder_that_does_not_exist",
     [](case_setup& s) {
         s.file(QStringLiteral("a.xmp"), good_xmp("A"));
         s.arguments = QStringList{QStringLiteral("-p"), QStringLiteral("missing/p.costylepack"), QStringLiteral("a.xmp")};
     },
     1,
     {QStringLiteral("Error: missing/p.costylepack: The style pack could not be written: Failure to create temporary file: No such file or directory."),
      QStringLiteral("0 converted, 0 skipped, 1 failed")},
     {},
     {}},
    // Preset titles never become paths; file names become style names as they
    // are, inside the output folder; XML escapes what it must.
    {"awkward_preset_names",
     [](case_setup& s) {
         s.file(QStringLiteral("dots.xmp"), good_xmp("../../escaped"));
         s.file(QStringLiteral("a&b.xmp"), good_xmp("a &amp; b &lt;c&gt;"));
         s.file(QStringLiteral("say \"cheese\".xmp"), good_xmp("\"quoted\" 'single'"));
         s.file(QStringLiteral("smile \U0001F600.xmp"), good_xmp("smile \xF0\x9F\x98\x80"));
         s.file(QStringLiteral("\u05e2\u05d1\u05e8\u05d9\u05ea.lrtemplate"),
                nested_template(QStringLiteral("\u05e9\u05dc\u05d5\u05dd \u200fRTL"), QString()));
         s.file(QStringLiteral("..xmp"), good_xmp("Dot"));
         s.arguments = QStringList{QStringLiteral("-o"), QStringLiteral("out"), QStringLiteral("dots.xmp"),
                                   QStringLiteral("a&b.xmp"), QStringLiteral("say \"cheese\".xmp"),
                                   QStringLiteral("smile \U0001F600.xmp"),
                                   QStringLiteral("\u05e2\u05d1\u05e8\u05d9\u05ea.lrtemplate"), QStringLiteral("..xmp")};
     },
     0,
     {QStringLiteral("6 converted, 0 skipped, 0 failed")},
     {QStringLiteral("out/..costyle"), QStringLiteral("out/a&b.costyle"), QStringLiteral("out/dots.costyle"),
      QStringLiteral("out/say \"cheese\".costyle"), QStringLiteral("out/smile \U0001F600.costyle"),
      QStringLiteral("out/\u05e2\u05d1\u05e8\u05d9\u05ea.costyle")},
     {QStringLiteral("Dot"), QStringLiteral("a & b <c>"), QStringLiteral("../../escaped"),
      QStringLiteral("\"quoted\" 'single'"), QStringLiteral("smile \U0001F600"),
      QStringLiteral("\u05e9\u05dc\u05d5\u05dd \u200fRTL")}},
};

class bad_input_table : public ::testing::TestWithParam<bad_input> {};

TEST_P(bad_input_table, the_converter_answers_as_stated_and_changes_nothing_else)
{
    const bad_input& c = GetParam();
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    case_setup s;
    s.work = dir.path();
    // An earlier style of another preset, in every output folder a case uses.
    s.file(QStringLiteral("out/keep.costyle"), earlier_style);
    c.make(s);
    if (!s.skip_reason.isEmpty()) {
        if (s.tear_down)
            s.tear_down();
        GTEST_SKIP() << s.skip_reason.toStdString();
    }
    if (QDir(s.path(QStringLiteral("disk"))).exists())
        s.file(QStringLiteral("disk/keep.costyle"), earlier_style);

    const QMap<QString, QByteArray> before = snapshot(s.work);
    const process_result r = run_cli(s.arguments, s.work, s.mode);
    const QMap<QString, QByteArray> after = snapshot(s.work);
    const QByteArray kept = read_all(s.path(QStringLiteral("out/keep.costyle")));
    QStringList styles;
    for (const QString& written : c.written)
        styles << style_name(read_all(s.path(written)));
    if (s.tear_down)
        s.tear_down();

    ASSERT_TRUE(r.finished) << "crashed or hung: " << r.err.constData();
    EXPECT_EQ(r.exit_code, c.exit_code) << r.err.constData();
    const QStringList lines = r.error_lines();
    int from = 0;
    for (const QString& message : c.messages) {
        const int at = lines.indexOf(message, from);
        EXPECT_GE(at, 0) << "missing: " << message.toStdString() << "\nstderr:\n" << r.err.constData();
        from = at < 0 ? from : at + 1;
    }
    EXPECT_EQ(changes(before, after), c.written);
    EXPECT_EQ(kept, earlier_style);
    EXPECT_EQ(styles, c.style_names);
}

INSTANTIATE_TEST_SUITE_P(cli, bad_input_table, ::testing::ValuesIn(bad_inputs),
                         [](const ::testing::TestParamInfo<bad_input>& info) { return std::string(info.param.name); });

} // namespace
