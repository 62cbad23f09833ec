// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictureshelf.h"

#include "regularfile.h"
#include "writing.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QImageReader>
#include <QRegularExpression>
#include <QVector>

#include <algorithm>

namespace {

constexpr qint64 mostBytes = qint64(1) << 28;
constexpr qint64 mostPixels = qint64(1) << 28; // no larger picture is decoded
constexpr int quickQuality = 80;               // a quarter of the time for a quarter more bytes
constexpr QRgb opaque = 0xff000000;

/// One line, each pixel as `QImage::pixel` tells it.
void readLine(const QImage& picture, int y, QVector<QRgb>& line) {
    const auto* pixels = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    if (picture.format() == QImage::Format_RGB32)
        std::transform(pixels, pixels + line.size(), line.begin(),
                       [](QRgb pixel) { return pixel | opaque; });
    else if (picture.format() == QImage::Format_ARGB32)
        std::copy_n(pixels, line.size(), line.begin());
    else
        for (int x = 0; x < line.size(); ++x)
            line[x] = picture.pixel(x, y);
}

/// The same for pictures that show the same, in whatever format. Nothing is converted: the toolkit
/// would do that on threads that may not be there.
QString nameFor(const QImage& picture) {
    QCryptographicHash hash(QCryptographicHash::Sha1); // a fifth of the time of its successors
    hash.addData(QByteArray::number(picture.width()) + 'x' + QByteArray::number(picture.height()) +
                 (picture.hasAlphaChannel() ? 'a' : 'o'));
    QVector<QRgb> line(picture.width());
    for (int y = 0; y < picture.height(); ++y) {
        readLine(picture, y, line);
        hash.addData(reinterpret_cast<const char*>(line.constData()),
                     line.size() * int(sizeof(QRgb)));
    }
    return QString::fromLatin1(hash.result().toHex());
}

bool isName(const QString& name) {
    static const QRegularExpression digest(QStringLiteral("\\A[0-9a-f]{40}\\z"));
    return digest.match(name).hasMatch();
}

QByteArray pngOf(const QImage& picture) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, "PNG", quickQuality) ? buffer.data() : QByteArray();
}

/// Empty if it cannot be read.
QByteArray bytesOf(const QString& path) {
    QFile file;
    QString flaw;
    if (!openRegularFile(path, file, flaw) || file.size() > mostBytes)
        return {};
    return file.readAll();
}

QImage decoded(QByteArray png) {
    QBuffer buffer(&png);
    QImageReader reader(&buffer, "PNG");
    const QSize size = reader.size();
    if (!size.isValid() || qint64(size.width()) * size.height() > mostPixels)
        return {};
    return reader.read();
}

} // namespace

PictureShelf::PictureShelf(const QString& folder)
    : folder(folder) {}

QString PictureShelf::nameOf(const QImage& picture) {
    if (picture.isNull())
        return {};
    QString& name = names[picture.cacheKey()];
    if (name.isEmpty())
        name = nameFor(picture);
    return name;
}

QString PictureShelf::put(const QImage& picture) {
    list();
    const QString name = nameOf(picture);
    if (name.isEmpty() || onDisk.contains(name))
        return {};
    QString failure =
        writeWholeFile(pathOf(name), pngOf(picture), FolderLink::Refused, FileAccess::OwnersAlone);
    if (failure.isEmpty())
        onDisk.insert(name);
    return failure;
}

QImage PictureShelf::take(const QString& name) {
    if (!isName(name))
        return {};
    QImage picture = decoded(bytesOf(pathOf(name)));
    if (picture.isNull() || nameFor(picture) != name)
        return {};
    names[picture.cacheKey()] = name;
    return picture;
}

void PictureShelf::keepOnly(const QSet<QString>& wanted, const std::atomic<bool>& isGivenUp) {
    list();
    const QSet<QString> others = onDisk - wanted;
    for (const QString& name : others) {
        if (isGivenUp)
            break;
        QFile::remove(pathOf(name));
        onDisk.remove(name);
    }
    for (auto it = names.begin(); it != names.end();)
        it = wanted.contains(*it) ? std::next(it) : names.erase(it);
}

void PictureShelf::list() {
    if (isListed)
        return;
    isListed = true;
    const QStringList found = QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System);
    onDisk = QSet<QString>(found.cbegin(), found.cend());
}
