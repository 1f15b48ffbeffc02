// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/colour_table.h"

#include "color/stk_exception.h"

#include <QFile>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {

// A file without an input-grid line is read as the usual 17-point, 10-bit cube.
constexpr std::uint32_t default_edge = 17;
constexpr double default_minimum = 0.0;
constexpr double default_maximum = 1023.0;
// Every data line holds at least three one-digit values, two separators and
// a line end: a quick bound on how many entries the bytes can carry.
constexpr std::size_t min_bytes_per_entry = 6;
// A cube with 256 points per axis holds every 8-bit colour: no interpolation.
constexpr std::uint32_t full_8_bit_edge = 256;
constexpr int channel_max = 255;

[[noreturn]] void fail(const char* reason)
{
    throw stk::exception(std::string("ERROR while loading 3DL LUT: ") + reason);
}

// Walks the bytes line by line without copying; a "\r\n" ending counts as "\n".
class line_reader {
public:
    line_reader(const char* begin, const char* end) : pos_(begin), end_(end)
    {
        static const char utf8_bom[] = "\xEF\xBB\xBF";
        if (end_ - pos_ >= 3 && std::memcmp(pos_, utf8_bom, 3) == 0)
            pos_ += 3;
    }

    bool at_end() const { return pos_ >= end_; }
    std::size_t remaining() const { return static_cast<std::size_t>(end_ - pos_); }

    bool next(const char*& begin, const char*& end)
    {
        if (at_end())
            return false;
        begin = pos_;
        const void* newline = std::memchr(pos_, '\n', static_cast<std::size_t>(end_ - pos_));
        end = newline ? static_cast<const char*>(newline) : end_;
        pos_ = newline ? end + 1 : end_;
        if (end > begin && end[-1] == '\r')
            --end;
        return true;
    }

private:
    const char* pos_;
    const char* end_;
};

bool is_separator(char c)
{
    return c == ' ' || c == '\t';
}

// A decimal number; a piece that is not one in full reads as 0.
double parse_number(const char* begin, const char* end)
{
    const char* p = begin;
    bool negative = false;
    if (p < end && (*p == '-' || *p == '+')) {
        negative = *p == '-';
        ++p;
    }
    // The shipped tables hold only small integers: take them without the
    // general conversion.
    if (p < end && end - p <= 9) {
        long value = 0;
        const char* q = p;
        while (q < end && *q >= '0' && *q <= '9')
            value = value * 10 + (*q++ - '0');
        if (q == end)
            return negative ? -static_cast<double>(value) : static_cast<double>(value);
    }
    if (p < end && *p == '-')
        return 0.0; // a second sign
    double value = 0.0;
    const auto result = std::from_chars(p, end, value);
    if (result.ec != std::errc() || result.ptr != end)
        return 0.0;
    return negative ? -value : value;
}

// Splits a line at spaces (runs of separators count as one) and hands each
// piece to the callback until it returns false; returns the number of pieces seen.
template <typename callback> std::size_t for_each_piece(const char* begin, const char* end, callback&& piece)
{
    std::size_t count = 0;
    const char* p = begin;
    while (p < end) {
        while (p < end && is_separator(*p))
            ++p;
        if (p == end)
            break;
        const char* start = p;
        while (p < end && !is_separator(*p))
            ++p;
        ++count;
        if (!piece(start, p, count))
            break;
    }
    return count;
}

// The header scan stops at the first line that begins with a number; "3DMESH"
// begins with a digit too but is a header keyword.
bool starts_grid_or_data(const char* begin, const char* end)
{
    static const char mesh_keyword[] = "3DMESH";
    constexpr std::ptrdiff_t keyword_length = sizeof(mesh_keyword) - 1;
    if (begin == end)
        return false;
    if (end - begin >= keyword_length && std::memcmp(begin, mesh_keyword, keyword_length) == 0)
        return false;
    const char c = *begin;
    return (c >= '0' && c <= '9') || c == '-' || c == '+';
}

struct grid {
    std::uint32_t edge = default_edge;
    double minimum = default_minimum;
    double maximum = default_maximum;
};

// Reads one data line into r, g, b; false when it has fewer than three
// pieces. Small unsigned integers, all the shipped tables hold, are taken in
// the same pass that finds the pieces: this runs for every line of every
// table each time a writer is built.
bool read_data_line(const char* begin, const char* end, double (&rgb)[3])
{
    const char* p = begin;
    for (int n = 0; n < 3; ++n) {
        while (p < end && is_separator(*p))
            ++p;
        if (p == end)
            return false;
        const char* start = p;
        unsigned value = 0;
        int digits = 0;
        while (p < end && *p >= '0' && *p <= '9' && digits < 9) {
            value = value * 10 + static_cast<unsigned>(*p - '0');
            ++p;
            ++digits;
        }
        if (digits > 0 && (p == end || is_separator(*p))) {
            rgb[n] = value;
            continue;
        }
        while (p < end && !is_separator(*p))
            ++p;
        rgb[n] = parse_number(start, p);
    }
    return true;
}

} // namespace

colour_entry colour_table::lookup(int r, int g, int b) const
{
    const std::size_t n = size;
    if (n < 2 || entries.size() < n * n * n)
        return colour_entry{};
    r = std::clamp(r, 0, channel_max);
    g = std::clamp(g, 0, channel_max);
    b = std::clamp(b, 0, channel_max);

    if (size == full_8_bit_edge)
        return entries[(static_cast<std::size_t>(r) * full_8_bit_edge + g) * full_8_bit_edge + b];

    const float scale = static_cast<float>(n - 1) / static_cast<float>(channel_max);
    const float cell_width = static_cast<float>(channel_max) / static_cast<float>(n - 1);
    const int last_cell = static_cast<int>(n) - 2;
    const auto cell = [&](int v, int& index, float& t) {
        const float vf = static_cast<float>(v);
        index = std::min(static_cast<int>(vf * scale), last_cell);
        t = vf / cell_width - static_cast<float>(index);
    };
    int ir = 0, ig = 0, ib = 0;
    float tr = 0.0f, tg = 0.0f, tb = 0.0f;
    cell(r, ir, tr);
    cell(g, ig, tg);
    cell(b, ib, tb);

    const auto at = [&](int dr, int dg, int db) -> const colour_entry& {
        return entries[(static_cast<std::size_t>(ir + dr) * n + static_cast<std::size_t>(ig + dg)) * n +
                       static_cast<std::size_t>(ib + db)];
    };
    // Each step is done in double and kept as float.
    const auto mix = [](const colour_entry& a, const colour_entry& c, float t) {
        const double td = t;
        const auto one = [td](float x, float y) {
            return static_cast<float>(static_cast<double>(x) * (1.0 - td) + static_cast<double>(y) * td);
        };
        return colour_entry{one(a.b, c.b), one(a.g, c.g), one(a.r, c.r), one(a.a, c.a)};
    };

    const colour_entry r00 = mix(at(0, 0, 0), at(1, 0, 0), tr);
    const colour_entry r01 = mix(at(0, 0, 1), at(1, 0, 1), tr);
    const colour_entry r10 = mix(at(0, 1, 0), at(1, 1, 0), tr);
    const colour_entry r11 = mix(at(0, 1, 1), at(1, 1, 1), tr);
    const colour_entry g0 = mix(r00, r10, tg);
    const colour_entry g1 = mix(r01, r11, tg);
    return mix(g0, g1, tb);
}

void load_3dl(colour_table& table, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    load_3dl_from_data(table, file.readAll());
}

void load_3dl_from_data(colour_table& table, const QByteArray& data)
{
    line_reader lines(data.constData(), data.constData() + data.size());
    table.title.clear();

    const char* begin = nullptr;
    const char* end = nullptr;
    bool have_grid_line = false;
    while (lines.next(begin, end)) {
        if (starts_grid_or_data(begin, end)) {
            have_grid_line = true;
            break;
        }
    }

    grid g;
    // A first numeric line of exactly three values is already data: the file
    // has no grid line and keeps the defaults.
    bool first_line_is_data = false;
    if (have_grid_line) {
        const char* last_begin = nullptr;
        const char* last_end = nullptr;
        const std::size_t pieces = for_each_piece(begin, end, [&](const char* b, const char* e, std::size_t n) {
            if (n == 1)
                g.minimum = parse_number(b, e);
            last_begin = b;
            last_end = e;
            return true;
        });
        if (pieces == 3) {
            first_line_is_data = true;
            g = grid{};
        } else if (pieces < 2) {
            fail("Edge length is less than 2.");
        } else {
            g.edge = static_cast<std::uint32_t>(std::min<std::size_t>(pieces, UINT32_MAX));
            g.maximum = parse_number(last_begin, last_end);
        }
    }

    table.size = g.edge;
    table.entries.clear();
    const std::uint64_t edge = g.edge;
    // Refuse a cube the remaining bytes cannot fill before reserving memory for it.
    const std::uint64_t available = (lines.remaining() + (first_line_is_data ? (end - begin) + 1 : 0)) /
                                        min_bytes_per_entry + 1;
    if (edge > available || edge * edge > available || edge * edge * edge > available)
        fail("Less values than needed.");
    const std::size_t needed = static_cast<std::size_t>(edge * edge * edge);
    // Filled through a plain pointer and cut back to what was read at the end.
    table.entries.resize(needed);
    colour_entry* const out = table.entries.data();
    std::size_t stored = 0;

    const double divisor = (g.maximum - g.minimum) + 1.0;
    // Dividing by a power of two (1024 for the shipped tables) is exactly a
    // multiplication by its reciprocal, and much cheaper.
    int exponent = 0;
    const double reciprocal = 1.0 / divisor;
    const bool exact_reciprocal = std::frexp(divisor, &exponent) == 0.5 && std::isfinite(reciprocal);
    const double minimum = g.minimum;
    const double maximum = g.maximum;
    const auto scaled = [=](double v) {
        double x = (exact_reciprocal ? v * reciprocal : v / divisor) - minimum;
        // Capped after the division, on purpose: with 10-bit data the caps never bite.
        x = std::min(x, maximum);
        x = std::max(x, minimum);
        return static_cast<float>(x);
    };
    const auto store = [&](const double (&rgb)[3]) {
        out[stored++] = colour_entry{scaled(rgb[2]), scaled(rgb[1]), scaled(rgb[0]), 0.0f};
    };

    double rgb[3] = {0.0, 0.0, 0.0};
    if (first_line_is_data && read_data_line(begin, end, rgb))
        store(rgb);
    while (stored < needed && lines.next(begin, end)) {
        if (read_data_line(begin, end, rgb))
            store(rgb);
    }
    if (stored < needed) {
        table.entries.resize(stored);
        fail("Less values than needed.");
    }
}

void fill_identity(colour_table& table, std::uint32_t n)
{
    table.size = n;
    const std::size_t edge = n;
    table.entries.assign(edge * edge * edge, colour_entry{});
    // A single-point cube has no steps to divide by: its only entry is black.
    const float steps = n > 1 ? static_cast<float>(n - 1) : 1.0f;
    const auto fraction = [steps](std::size_t i) { return std::min(static_cast<float>(i) / steps, 1.0f); };
    std::size_t index = 0;
    for (std::size_t r = 0; r < edge; ++r)
        for (std::size_t g = 0; g < edge; ++g)
            for (std::size_t b = 0; b < edge; ++b)
                table.entries[index++] = colour_entry{fraction(b), fraction(g), fraction(r), 1.0f};
}
