// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mediapath.h"

#include "escaping.h"
#include "filenames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace {

/// Whether a path can stand in the table as it is.
bool isPlain(const QString& path) {
    const bool hasOddStart = path.startsWith('.') || path.startsWith('/') || path.startsWith('~');
    const auto isOdd = [](QChar character) { return isSteering(character); };
    return path.isValidUtf16() && !hasOddStart && !path.contains(QLatin1String("..")) &&
           std::none_of(path.cbegin(), path.cend(), isOdd);
}

QString fileUrlOf(const QString& path) {
    return QString::fromLatin1(encodedFileUrl(path).replace("..", "%2E%2E"));
}

} // namespace

QString mediaPath(const QString& file, const QString& folder) {
    const QString path = QDir::cleanPath(file);
    const QString beginning = QDir::cleanPath(folder) + '/';
    const QString below = path.startsWith(beginning) ? path.mid(beginning.size()) : QString();
    return !below.isEmpty() && isPlain(below) ? below : fileUrlOf(path);
}

QString mediaType(const QString& file) {
    // Those that are registered, or widely used without.
    static const QHash<QString, QString> types = {
        {"264", "video/H264"},      {"265", "video/H265"},       {"3g2", "video/3gpp2"},
        {"3gp", "video/3gpp"},      {"asf", "video/x-ms-asf"},   {"avc", "video/H264"},
        {"avi", "video/x-msvideo"}, {"divx", "video/x-msvideo"}, {"f4v", "video/mp4"},
        {"flv", "video/x-flv"},     {"h264", "video/H264"},      {"h265", "video/H265"},
        {"hevc", "video/H265"},     {"m1v", "video/mpeg"},       {"m2ts", "video/MP2T"},
        {"m2v", "video/mpeg"},      {"m4v", "video/mp4"},        {"mkv", "video/matroska"},
        {"mov", "video/quicktime"}, {"mp4", "video/mp4"},        {"mpe", "video/mpeg"},
        {"mpeg", "video/mpeg"},     {"mpg", "video/mpeg"},       {"mts", "video/MP2T"},
        {"ogm", "video/ogg"},       {"ogv", "video/ogg"},        {"png", "image/png"},
        {"qt", "video/quicktime"},  {"ts", "video/MP2T"},        {"vob", "video/mpeg"},
        {"webm", "video/webm"},     {"wmv", "video/x-ms-wmv"}};
    static const QRegularExpression plain(QStringLiteral("^[a-z0-9]+$"));
    const QString ending = QFileInfo(file).suffix().toLower();
    const bool isPlainEnding = plain.match(ending).hasMatch();
    const QString other = isPlainEnding ? ending : QStringLiteral("unknown");
    return types.value(ending, QStringLiteral("video/x-") + other);
}
