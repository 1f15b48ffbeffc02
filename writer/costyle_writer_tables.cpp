// SPDX-License-Identifier: GPL-3.0-or-later
#include "writer/costyle_writer.h"

#include <mutex>

namespace {

// All four tables are 17-point cubes.
constexpr std::uint32_t table_edge = 17;

} // namespace

// The colour tables are compiled into the static core library; without an
// explicit registration the linker would drop them from programs that link
// the core. Q_INIT_RESOURCE must be used outside any namespace.
static void register_colour_table_resources()
{
    static std::once_flag registered;
    std::call_once(registered, [] { Q_INIT_RESOURCE(colour_tables); });
}

namespace {

costyle_writer::table_set load_tables()
{
    register_colour_table_resources();
    costyle_writer::table_set tables;
    for (colour_table& table : tables) {
        table.size = table_edge;
        table.entries.resize(static_cast<std::size_t>(table_edge) * table_edge * table_edge);
    }
    load_3dl(tables[costyle_writer::adobe_rgb], QStringLiteral(":/data/ProPhotoRGB_to_AdobeRGB1998.3dl"));
    load_3dl(tables[costyle_writer::srgb], QStringLiteral(":/data/ProPhotoRGB_to_sRGB.3dl"));
    load_3dl(tables[costyle_writer::wide_gamut_rgb], QStringLiteral(":/data/ProPhotoRGB_to_WideGamutRGB.3dl"));
    fill_identity(tables[costyle_writer::identity], table_edge);
    return tables;
}

// The tables are the same for every preset and never written after loading,
// so one set serves every writer of the process, on any thread. A load that
// throws leaves the set unmade; the next writer tries again and throws too.
const costyle_writer::table_set& shared_tables()
{
    static const costyle_writer::table_set tables = load_tables();
    return tables;
}

} // namespace

costyle_writer::costyle_writer() : tables_(&shared_tables()) {}
