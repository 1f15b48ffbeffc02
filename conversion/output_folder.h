// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Makes the folder (with its parents) if it is missing and checks that a file
// can be written in it, by writing one and removing it again: the only test
// that holds for every user and file system. Returns why it can't be used,
// or an empty text when it can.
QString prepare_output_folder(const QString& folder);

// The folder itself if it exists, else its nearest existing parent: where a
// file dialog can start with nothing typed into its name field.
QString nearest_existing_folder(const QString& folder);
