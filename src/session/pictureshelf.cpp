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

namespace {

constexpr qint64 mostBytes = qint64(1) << 28;
constexpr qint64 mostPixels = qint64(1) << 28; // no larger picture is decoded

/// The same for pictures that show the same, in whatever format.
QString nameFor(const QImage& picture) {
    const bool hasAlpha = picture.hasAlphaChannel();
    const QImage plain =
        picture.convertToFormat(hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    const int lineBytes = plain.width() * (hasAlpha ? 4 : 3);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const QByteArray head = QByteArray::number(plain.width()) + 'x' +
                            QByteArray::number(plain.height()) + (hasAlpha ? 'a' : 'o');
    hash.addData(head);
    for (int y = 0; y < plain.height(); ++y)
        hash.addData(reinterpret_cast<const char*>(plain.constScanLine(y)), lineBytes);
    return QString::fromLatin1(hash.result().toHex());
}

bool isName(const QString& name) {
    static const QRegularExpression digest(QStringLiteral("\\A[0-9a-f]{64}\\z"));
    return digest.match(name).hasMatch();
}

QByteArray pngOf(const QImage& picture) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, "PNG") ? buffer.data() : QByteArray();
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

QString PictureShelf::put(const QImage& picture, QString& failure) {
    if (picture.isNull())
        return {};
    list();
    QString& name = nameOf[picture.cacheKey()];
    if (name.isEmpty())
        name = nameFor(picture);
    if (onDisk.contains(name))
        return name;
    const QString reason = writeWholeFile(pathOf(name), pngOf(picture));
    if (reason.isEmpty())
        onDisk.insert(name);
    else
        failure = reason;
    return name;
}

QImage PictureShelf::take(const QString& name) const {
    if (!isName(name))
        return {};
    const QImage picture = decoded(bytesOf(pathOf(name)));
    return !picture.isNull() && nameFor(picture) == name ? picture : QImage();
}

void PictureShelf::keepOnly(const QSet<QString>& names) {
    list();
    const QSet<QString> others = onDisk - names;
    for (const QString& name : others)
        QFile::remove(pathOf(name));
    onDisk -= others;
    for (auto it = nameOf.begin(); it != nameOf.end();)
        it = names.contains(*it) ? std::next(it) : nameOf.erase(it);
}

void PictureShelf::list() {
    if (isListed)
        return;
    isListed = true;
    const QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System);
    onDisk = QSet<QString>(names.cbegin(), names.cend());
}
