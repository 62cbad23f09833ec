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
const char* const english = "en"; // its file has but the texts that count

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
    languages.removeOne(QLatin1String(english));
    return languages;
}

QString spokenLanguage(const QStringList& wanted) {
    const QStringList translated = translatedLanguages();
    for (const QString& name : wanted) {
        QString language = name.section('-', 0, 0);
        // A person who wants English before German gets no German.
        if (language == QLatin1String(english) || language == QLatin1String("C"))
            return {};
        if (translated.contains(language))
            return language;
    }
    return {};
}

void speak(const QString& language) {
    initTranslations();
    const QString spoken = language.isEmpty() ? QString(QLatin1String(english)) : language;
    install(QStringLiteral("qtbase_") + spoken,
            QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    install(QStringLiteral("kestrova_") + spoken, QLatin1String(folder));
}
