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

costyle_writer::costyle_writer()
{
    register_colour_table_resources();
    for (colour_table& table : tables_) {
        table.size = table_edge;
        table.entries.resize(static_cast<std::size_t>(table_edge) * table_edge * table_edge);
    }
    load_3dl(tables_[adobe_rgb], QStringLiteral(":/data/ProPhotoRGB_to_AdobeRGB1998.3dl"));
    load_3dl(tables_[srgb], QStringLiteral(":/data/ProPhotoRGB_to_sRGB.3dl"));
    load_3dl(tables_[wide_gamut_rgb], QStringLiteral(":/data/ProPhotoRGB_to_WideGamutRGB.3dl"));
    fill_identity(tables_[identity], table_edge);
}
