// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "showinfolder.h"

#include "filenames.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QFileInfo>
#include <QObject>
#include <QStringList>
#include <QUrl>

#include <memory>

namespace {

constexpr int longestWaitMilliseconds = 5000; // it may have to be started

/// One file that the file manager was asked to show. Made with new; deletes itself with the answer.
class ShownFile : public QObject {
    Q_OBJECT

public:
    explicit ShownFile(const QString& path)
        : path(path) {}

    /// False if there is nobody to ask.
    bool ask() {
        QDBusMessage call = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.FileManager1"),
            QStringLiteral("/org/freedesktop/FileManager1"),
            QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
        call << QStringList{QString::fromLatin1(encodedFileUrl(path))} << QString();
        return QDBusConnection::sessionBus().callWithCallback(
            call, this, SLOT(shown(QDBusMessage)), SLOT(fail(QDBusError)), longestWaitMilliseconds);
    }

    void openFolder() const {
        QDesktopServices::openUrl(QUrl::fromEncoded(encodedFileUrl(QFileInfo(path).path())));
    }

private Q_SLOTS:
    void shown(const QDBusMessage&) { deleteLater(); }

    void fail(const QDBusError&) {
        openFolder();
        deleteLater();
    }

private:
    QString path; ///< absolute
};

} // namespace

void showInFolder(const QString& path) {
    auto file = std::make_unique<ShownFile>(QFileInfo(path).absoluteFilePath());
    if (file->ask())
        file.release(); // NOLINT(bugprone-unused-return-value): it deletes itself
    else
        file->openFolder();
}

#include "showinfolder.moc"
