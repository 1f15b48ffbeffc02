// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/translation_loader.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLibraryInfo>

std::vector<std::unique_ptr<QTranslator>> install_translators(const QString& language)
{
    const struct {
        QString file;
        QString folder;
    } translation_files[] = {
        {QStringLiteral("qt_") + language, QLibraryInfo::location(QLibraryInfo::TranslationsPath)},
        {QStringLiteral(":/translations/") + language, QString()},
        {QStringLiteral(":/translations/toolkit_") + language, QString()},
    };
    std::vector<std::unique_ptr<QTranslator>> translators;
    for (const auto& translation : translation_files) {
        auto translator = std::make_unique<QTranslator>();
        if (!translator->load(translation.file, translation.folder))
            qDebug() << "No translation" << translation.file << "in" << translation.folder;
        QCoreApplication::installTranslator(translator.get());
        translators.push_back(std::move(translator));
    }
    return translators;
}
