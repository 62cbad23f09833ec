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
    QString name(const SnapshotFolder& folder, int recording, int index = 0) const {
        return QFileInfo(folder.pathOf(recording, index)).fileName();
    }

    QTemporaryDir folder;
};

void TestSnapshotFolder::namesAfterTheRecording() {
    const SnapshotFolder pictures(folder.path(), {"a/garden.mp4", "yard %1"});
    QCOMPARE(pictures.pathOf(0, 0), folder.filePath("garden.mp4-0000.png"));
    QCOMPARE(pictures.pathOf(0, 12345), folder.filePath("garden.mp4-12345.png"));
    QCOMPARE(pictures.pathOf(1, 7), folder.filePath("yard %1-0007.png"));
}

void TestSnapshotFolder::sameNamesAreNumbered() {
    const SnapshotFolder pictures(folder.path(), {"a/x.mp4", "b/x.mp4", "c/x.mp4"});
    QCOMPARE(name(pictures, 0), QString("x.mp4-0000.png"));
    QCOMPARE(name(pictures, 1), QString("x.mp4_1-0000.png"));
    QCOMPARE(name(pictures, 2), QString("x.mp4_2-0000.png"));
}

void TestSnapshotFolder::numberedNamesKeepClearOfOthers() {
    const SnapshotFolder pictures(folder.path(), {"x_1", "x", "b/x"});
    QCOMPARE(name(pictures, 2), QString("x_2-0000.png"));
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
    const SnapshotFolder pictures(folder.path(), {recording, "b/" + recording});
    for (const int video : {0, 1}) {
        for (const int index : {0, 2147483647}) {
            QVERIFY(QFileInfo(folder.path()).isDir());
            const QString path = pictures.pathOf(video, index);
            QVERIFY(QFileInfo(path).fileName().isValidUtf16());
            QFile file(path + ".XXXXXX"); // its name while it is being written
            QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(file.errorString()));
        }
    }
    QVERIFY(name(pictures, 0).startsWith(recording.left(50)));
    QVERIFY(name(pictures, 0) != name(pictures, 1));
}

void TestSnapshotFolder::longNamesStayUnique() {
    const QString same(250, 'a');
    // Also where they are scanned by calls of their own.
    const SnapshotFolder first(folder.path(), {same + "b.mp4"});
    const SnapshotFolder second(folder.path(), {same + "c.mp4"});
    QVERIFY(name(first, 0) != name(second, 0));
    QCOMPARE(name(SnapshotFolder(folder.path(), {same + "b.mp4"}), 0), name(first, 0));

    QStringList many;
    for (int i = 0; i < 1200; ++i)
        many.append(QStringLiteral("%1/").arg(i) + same + "b.mp4");
    const SnapshotFolder pictures(folder.path(), many);
    QSet<QString> names;
    for (int i = 0; i < many.size(); ++i)
        names.insert(name(pictures, i));
    QCOMPARE(names.size(), many.size());
}

QTEST_GUILESS_MAIN(TestSnapshotFolder)
#include "test_snapshotfolder.moc"
