// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "snapshotfolder.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

class TestSnapshotFolder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesAfterTheRecording();
    void sameNamesAreNumbered();
    void numberedNamesKeepClearOfOthers();
    void longNamesLeaveRoom_data();
    void longNamesLeaveRoom();
    void longNamesStayUnique();

private:
    QStringList namesOf(const QStringList& videos) const;

    QTemporaryDir folder;
};

/// The names of the first clips' pictures, in one call.
QStringList TestSnapshotFolder::namesOf(const QStringList& videos) const {
    SnapshotFolder pictures(folder.path());
    QStringList names;
    for (const QString& video : videos)
        names.append(QFileInfo(snapshotPath(pictures.next(video), 0)).fileName());
    return names;
}

void TestSnapshotFolder::namesAfterTheRecording() {
    SnapshotFolder pictures(folder.path());
    const QString garden = pictures.next("a/garden.mp4");
    QCOMPARE(snapshotPath(garden, 0), folder.filePath("garden.mp4-0000.png"));
    QCOMPARE(snapshotPath(garden, 12345), folder.filePath("garden.mp4-12345.png"));
    QCOMPARE(snapshotPath(pictures.next("yard %1"), 7), folder.filePath("yard %1-0007.png"));
}

void TestSnapshotFolder::sameNamesAreNumbered() {
    QCOMPARE(namesOf({"a/x.mp4", "b/x.mp4", "c/x.mp4"}),
             QStringList({"x.mp4-0000.png", "x.mp4_1-0000.png", "x.mp4_2-0000.png"}));
}

void TestSnapshotFolder::numberedNamesKeepClearOfOthers() {
    QCOMPARE(namesOf({"x_1", "x", "b/x"})[2], QString("x_2-0000.png"));
}

void TestSnapshotFolder::longNamesLeaveRoom_data() {
    QTest::addColumn<QString>("recording");
    QTest::newRow("letters") << QString(251, 'a') + ".mp4";
    QTest::newRow("megabytes") << QString(8000000, 'a') + ".mp4";
    QTest::newRow("two bytes each") << QString(127, QChar(0xe9));
    QTest::newRow("four bytes each") << QString::fromUtf8("\xf0\x9f\x8e\xa5").repeated(63);
}

void TestSnapshotFolder::longNamesLeaveRoom() {
    QFETCH(QString, recording);
    SnapshotFolder pictures(folder.path());
    for (const QString& video : {recording, "b/" + recording}) {
        const QString beginning = pictures.next(video);
        for (const int index : {0, 2147483647}) {
            QVERIFY(QFileInfo(folder.path()).isDir());
            const QString path = snapshotPath(beginning, index);
            QVERIFY(QFileInfo(path).fileName().isValidUtf16());
            QFile file(path + ".XXXXXX"); // its name while it is being written
            QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(file.errorString()));
        }
    }
    const QStringList names = namesOf({recording, "b/" + recording});
    QVERIFY(names[0].startsWith(recording.left(50)));
    QVERIFY(names[0] != names[1]);
}

void TestSnapshotFolder::longNamesStayUnique() {
    const QString same(250, 'a');
    // Also where they are scanned by calls of their own.
    const QStringList first = namesOf({same + "b.mp4"});
    QVERIFY(first != namesOf({same + "c.mp4"}));
    QCOMPARE(namesOf({same + "b.mp4"}), first);

    QStringList many;
    for (int i = 0; i < 1200; ++i)
        many.append(QStringLiteral("%1/").arg(i) + same + "b.mp4");
    const QStringList names = namesOf(many);
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), many.size());
}

QTEST_GUILESS_MAIN(TestSnapshotFolder)
#include "test_snapshotfolder.moc"
