// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "translation.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

#include <memory>

// Outside any namespace and called from here: a static library's resources are linked only if
// something names them.
static void initTranslations() {
    Q_INIT_RESOURCE(translations);
}

namespace {

const char* const folder = ":/translations";

void install(const QString& name, const QString& directory) {
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (translator->load(name, directory))
        QCoreApplication::installTranslator(translator.release());
}

} // namespace

QStringList translatedLanguages() {
    initTranslations();
    QStringList languages;
    const QStringList files = QDir(QLatin1String(folder)).entryList();
    for (const QString& file : files) // kestrova_de.qm
        languages.append(file.section('_', 1).section('.', 0, 0));
    return languages;
}

QString spokenLanguage(const QStringList& wanted) {
    const QStringList translated = translatedLanguages();
    for (const QString& name : wanted) {
        QString language = name.section('-', 0, 0);
        // A person who wants English before German gets no German, although English has no file.
        if (language == QLatin1String("en") || language == QLatin1String("C"))
            return {};
        if (translated.contains(language))
            return language;
    }
    return {};
}

void speak(const QString& language) {
    if (language.isEmpty())
        return;
    install(QStringLiteral("qtbase_") + language,
            QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    install(QStringLiteral("kestrova_") + language, QLatin1String(folder));
}
