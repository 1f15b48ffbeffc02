// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <cstdint>
#include <vector>

// One table entry: four floats in the stored order blue, green, red, alpha.
struct colour_entry {
    float b = 0.0f;
    float g = 0.0f;
    float r = 0.0f;
    float a = 0.0f;
};

// A cube of N x N x N colour entries; index = (r * N + g) * N + b.
class colour_table {
public:
    std::uint32_t size = 0;
    std::vector<colour_entry> entries;
    QByteArray title;

    // Trilinear value at an 8-bit colour (each component 0..255).
    colour_entry lookup(int r, int g, int b) const;
};

// Reads a 3DL text file (or compiled-in resource) into the table.
// Throws stk::exception ("ERROR while loading 3DL LUT: ...") on a broken file;
// a file that cannot be opened leaves the table untouched.
void load_3dl(colour_table& table, const QString& path);

// Same, from the file's bytes (used by the path overload and by the fuzzer).
void load_3dl_from_data(colour_table& table, const QByteArray& data);

// Fills the table with the identity cube of edge length n (alpha 1).
void fill_identity(colour_table& table, std::uint32_t n = 17);
