// libFuzzer harness: the style writer fed with preset records decoded from
// the input (see writer_input.h). Style writing has no failure path: it must
// return true with a well-formed document for any record, and every
// exception or sanitizer report is a finding.
#include "fuzz_support.h"
#include "importer/lightroom_importer.h"
#include "writer/carried_settings.h"
#include "writer/costyle_writer.h"
#include "writer_input.h"

#include <QXmlStreamReader>
#include <cstdlib>

namespace {

// Built once: the constructor reads three colour tables.
const costyle_writer* writer = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz_support::silence_qt_messages();
    writer = new costyle_writer;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    lightroom_importer record;
    QString colour_space;
    writer_input::decode(QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size)), record,
                         colour_space);

    bool white_balance = false, dehaze = false, lut = false, camera_calibration = false;
    writer->check_costyle(white_balance, dehaze, lut, camera_calibration, record);
    (void)not_carried_over(record);

    QString document;
    if (!writer->create_costyle(record, document, colour_space))
        std::abort();
    QXmlStreamReader xml(document);
    while (!xml.atEnd())
        xml.readNext();
    if (xml.hasError())
        std::abort(); // a style file Capture One could not read
    return 0;
}
