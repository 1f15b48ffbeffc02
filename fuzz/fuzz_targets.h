// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

// What each fuzz harness does with one input, kept apart from libFuzzer so
// that the regression test replays inputs through exactly the same code.
// A target returns normally for any input; a crash, a hang, a sanitizer
// report or an exception other than the reader's documented one is a finding.
namespace fuzz_targets {

// The readers log every setting at debug level; written to the terminal, that
// would cost more than the reading and bury libFuzzer's own report.
void silence_qt_messages();

// The nested-template reader over the input decoded as a file is decoded;
// std::runtime_error is its answer to bad syntax.
void regular_template(const QByteArray& input);
// The dotted-template reader, which has no failure path at all.
void dot_notation(const QByteArray& input);
// The XMP reader over raw bytes; it logs and goes on instead of failing.
void xmp(const QByteArray& input);
// The DNG reader over a file's bytes, as an archive's entry comes: libtiff
// takes the packet out of the first directory and the XMP reader reads it;
// std::runtime_error (no_develop_settings among them) is its answer to a
// damaged file or one that is no preset.
void dng(const QByteArray& input);
// The 3DL reader, then lookups in whatever table it accepted;
// stk::exception is its answer to a broken file.
void lut_3dl(const QByteArray& input);
// The style writer over a record decoded from the input (writer_input.h); it
// must return true with a well-formed document for any record.
void costyle_writer(const QByteArray& input);

// The archive reader over raw bytes, with small bounds so that a found bomb
// is refused quickly; every preset it accepts goes through its reader.
void preset_archive(const QByteArray& input);

} // namespace fuzz_targets
