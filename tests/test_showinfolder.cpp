// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "showinfolder.h"

#include <QDBusConnection>
#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <QtTest>

/// Shows what a file manager is asked for.
class FileManagerStand : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;

public Q_SLOTS:
    void ShowItems(const QStringList& files, const QString&) { shown += files; } // NOLINT
};

/// Has a bus of its own, so that no file manager of a person's desktop is asked.
class TestShowInFolder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void folderIsOpenedWhereNobodyAnswers();
    void fileManagerIsAsked();
    void relativeNamesAreMadeAbsolute();

public Q_SLOTS:
    void noteUrl(const QUrl& url) { opened.append(url); }

private:
    QProcess bus;
    QByteArray address;
    QList<QUrl> opened;
};

void TestShowInFolder::initTestCase() {
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/none");
    QDesktopServices::setUrlHandler("file", this, "noteUrl");
    if (QStandardPaths::findExecutable("dbus-daemon").isEmpty())
        return;
    bus.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    QVERIFY(bus.waitForReadyRead(10000));
    address = bus.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
}

void TestShowInFolder::cleanupTestCase() {
    QDesktopServices::unsetUrlHandler("file");
    bus.terminate();
    bus.waitForFinished();
}

void TestShowInFolder::folderIsOpenedWhereNobodyAnswers() {
    showInFolder("/somewhere else/50 %/garden.mp4");
    QTRY_COMPARE(opened.size(), 1);
    QCOMPARE(opened[0].path(), QString("/somewhere else/50 %"));
}

void TestShowInFolder::fileManagerIsAsked() {
    if (address.isEmpty())
        QSKIP("no dbus-daemon to ask a file manager through");
    opened.clear();
    FileManagerStand stand;
    QDBusConnection connection = QDBusConnection::connectToBus(address, "stand");
    QVERIFY(connection.registerObject("/org/freedesktop/FileManager1", &stand,
                                      QDBusConnection::ExportAllSlots));
    QVERIFY(connection.registerService("org.freedesktop.FileManager1"));
    showInFolder("/somewhere else/50 %/garden.mp4");
    QTRY_COMPARE(stand.shown, QStringList{"file:///somewhere%20else/50%20%25/garden.mp4"});
    QVERIFY(opened.isEmpty());
    QVERIFY(connection.unregisterService("org.freedesktop.FileManager1"));
}

void TestShowInFolder::relativeNamesAreMadeAbsolute() {
    opened.clear();
    showInFolder("garden.mp4");
    QTRY_COMPARE(opened.size(), 1);
    QCOMPARE(opened[0].path(), QDir::currentPath());
}

QTEST_MAIN(TestShowInFolder)
#include "test_showinfolder.moc"
