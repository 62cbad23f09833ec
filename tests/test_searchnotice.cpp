// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "searchnotice.h"

#include "endedjobs.h"

#include <QApplication>
#include <QDBusConnection>
#include <QProcess>
#include <QStandardPaths>
#include <QWidget>
#include <QtTest>

/// Shows what the desktop is asked to tell.
class NotificationStand : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    QStringList told;

public Q_SLOTS:
    uint Notify(const QString&, uint, const QString&, const QString& title, const QString& text,
                const QStringList&, const QVariantMap&, int) { // NOLINT
        told += title + ": " + text;
        return 1;
    }
};

/// Has a bus of its own, so that nothing is told on a person's desktop.
class TestSearchNotice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { stand.told.clear(); }
    void cleanupTestCase();
    void longSearchIsTold();
    void shortSearchIsNot();
    void whoLooksNeedsNotBeTold();

private:
    void search(int leastMilliseconds);

    QProcess bus;
    NotificationStand stand;
};

void TestSearchNotice::initTestCase() {
    if (QStandardPaths::findExecutable("dbus-daemon").isEmpty())
        QSKIP("no dbus-daemon to tell anything through");
    bus.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    QVERIFY(bus.waitForReadyRead(10000));
    const QByteArray address = bus.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    QDBusConnection connection = QDBusConnection::connectToBus(address, "stand");
    QVERIFY(connection.registerObject("/org/freedesktop/Notifications", &stand,
                                      QDBusConnection::ExportAllSlots));
    QVERIFY(connection.registerService("org.freedesktop.Notifications"));
}

void TestSearchNotice::cleanupTestCase() {
    bus.terminate();
    bus.waitForFinished();
}

/// Two recordings that are not there, and so end at once.
void TestSearchNotice::search(int leastMilliseconds) {
    EndedJobs jobs;
    const SearchNotice notice(jobs.queue, leastMilliseconds);
    Video* first = jobs.make("a.mp4", Video::Waiting);
    Video* last = jobs.make("b.mp4", Video::Waiting);
    QSignalSpy end(last, SIGNAL(resultReady()));
    jobs.queue.add({first, last, jobs.make("c.mp4", Video::Finished)});
    first->nextClipNumber = 3; // of clips that it would have found
    QTRY_COMPARE(end.size(), 1);
}

void TestSearchNotice::longSearchIsTold() {
    search(0);
    QTRY_COMPARE(stand.told, QStringList("Search finished: 2 recordings, 3 clips"));
}

void TestSearchNotice::shortSearchIsNot() {
    search(60000);
    search(0);
    QTRY_COMPARE(stand.told.size(), 1); // the second one's alone, and signals come in their order
}

void TestSearchNotice::whoLooksNeedsNotBeTold() {
    {
        QWidget window;
        window.show();
        window.activateWindow();
        QTRY_VERIFY(QApplication::activeWindow());
        search(0);
    }
    QTRY_VERIFY(!QApplication::activeWindow());
    search(0);
    QTRY_COMPARE(stand.told.size(), 1);
}

QTEST_MAIN(TestSearchNotice)
#include "test_searchnotice.moc"
