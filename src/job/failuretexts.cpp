// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "failuretexts.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace {

constexpr char context[] = "FailureTexts";

/// As those who fail word them; %1 and %2 stand for numbers, names or another failure.
constexpr const char* failures[] = {
    // Of opening and decoding.
    QT_TRANSLATE_NOOP("FailureTexts", "no regular file"),
    QT_TRANSLATE_NOOP("FailureTexts", "no video stream"),
    QT_TRANSLATE_NOOP("FailureTexts", "no decoder for %1"),
    QT_TRANSLATE_NOOP("FailureTexts", "its headers hold too many parameter sets"),
    QT_TRANSLATE_NOOP("FailureTexts", "a playlist, not a recording"),
    QT_TRANSLATE_NOOP("FailureTexts", "the address of a stream, not a recording"),
    QT_TRANSLATE_NOOP("FailureTexts", "a script, not a recording"),
    QT_TRANSLATE_NOOP("FailureTexts", "text, not a recording"),
    QT_TRANSLATE_NOOP("FailureTexts", "the index of another file, not a recording"),
    QT_TRANSLATE_NOOP("FailureTexts", "no picture could be decoded"),
    QT_TRANSLATE_NOOP("FailureTexts", "only one picture could be decoded"),
    QT_TRANSLATE_NOOP("FailureTexts", "a quick look compares key frames, and only one was found"),
    QT_TRANSLATE_NOOP("FailureTexts", "no usable times"),
    QT_TRANSLATE_NOOP("FailureTexts", "pictures of %1 x %2 are too large"),
    QT_TRANSLATE_NOOP("FailureTexts", "its pictures become too large"),
    QT_TRANSLATE_NOOP("FailureTexts", "out of memory"),
    QT_TRANSLATE_NOOP("FailureTexts", "cannot be read to its end: %1"),
    // Of what others did to it meanwhile.
    QT_TRANSLATE_NOOP("FailureTexts", "it was removed while it was searched"),
    QT_TRANSLATE_NOOP("FailureTexts", "it was changed while it was searched"),
    QT_TRANSLATE_NOOP("FailureTexts",
                      "it grew while it was searched; what came behind %1 is left out"),
    // Of a report's files.
    QT_TRANSLATE_NOOP("FailureTexts", "it is a symbolic link"),
    QT_TRANSLATE_NOOP("FailureTexts", "it is a symbolic link of another user"),
    QT_TRANSLATE_NOOP("FailureTexts", "it cannot be encoded"),
    QT_TRANSLATE_NOOP("FailureTexts", "its pictures cannot be scaled"),
    QT_TRANSLATE_NOOP("FailureTexts", "cannot write the picture %1: %2"),
    // Of the library that plays.
    QT_TRANSLATE_NOOP("FailureTexts", "loading failed"),
    QT_TRANSLATE_NOOP("FailureTexts", "no audio or video data played"),
    QT_TRANSLATE_NOOP("FailureTexts", "unrecognized file format"),
    // Of the media libraries and the system.
    QT_TRANSLATE_NOOP("FailureTexts", "Invalid data found when processing input"),
    QT_TRANSLATE_NOOP("FailureTexts", "End of file"),
    QT_TRANSLATE_NOOP("FailureTexts", "No such file or directory"),
    QT_TRANSLATE_NOOP("FailureTexts", "Permission denied"),
    QT_TRANSLATE_NOOP("FailureTexts", "Is a directory"),
    QT_TRANSLATE_NOOP("FailureTexts", "Input/output error"),
    QT_TRANSLATE_NOOP("FailureTexts", "Stale file handle"),
};

/// What %1 and %2 stand for in a failure that is worded so, behind all of it; empty where it is
/// another one.
QStringList partsOf(const QString& failure, const char* wording) {
    if (failure == QLatin1String(wording))
        return {failure};
    QString pattern = QRegularExpression::escape(QLatin1String(wording));
    if (!pattern.contains('%'))
        return {};
    pattern.replace(QRegularExpression("\\\\%\\d"), QStringLiteral("(.+?)"));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern))
        .match(failure)
        .capturedTexts();
}

} // namespace

QString translatedFailure(const QString& failure) {
    for (const char* known : failures) {
        const QStringList parts = partsOf(failure, known);
        if (parts.isEmpty())
            continue;
        const QString text = QCoreApplication::translate(context, known);
        if (parts.size() == 3)
            return text.arg(translatedFailure(parts[1]), translatedFailure(parts[2]));
        return parts.size() == 2 ? text.arg(translatedFailure(parts[1])) : text;
    }
    return failure;
}
