// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTranslator>

#include <memory>
#include <vector>

// Installs the translators for language (a two-letter code), in this order:
// Qt's own texts, the program's, the toolkit's; for the same text a later
// one wins. Each is installed even when its file is missing, which leaves
// its texts in English. The translators must live as long as they are used.
std::vector<std::unique_ptr<QTranslator>> install_translators(const QString& language);
