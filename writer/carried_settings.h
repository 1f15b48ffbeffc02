#pragma once

#include <QStringList>

class lightroom_importer;

// The preset's settings keys that no mapping of the style writer reads, in
// key order: what a style made from this preset will lack. Bookkeeping keys
// that are not develop settings (title, identifiers, versions, preset-type
// and support flags, curve names) are left out; the point curves are not
// settings and never appear.
QStringList not_carried_over(const lightroom_importer& preset);
