// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipnames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

class TestClipFolder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { folder = std::make_unique<QTemporaryDir>(); }
    void name_data();
    void name();
    void takesTheFirstFreeNumber();
    void manyOfOneName();
    void manyNamesAtOnce();
    void folderThatCannotBeMadeTakesNoNumber();
    void longNames_data();
    void longNames();
    void longNamesStayUnique();

private:
    std::unique_ptr<QTemporaryDir> folder;
};

void TestClipFolder::name_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::newRow("ordinary") << "/a/garden.mp4"
                              << "garden_mp4_0";
    QTest::newRow("two dots") << "/a/garden.cam.mp4"
                              << "garden_mp4_0";
    QTest::newRow("no dot") << "/a/clip"
                            << "clip__0";
    QTest::newRow("placeholders") << "/a/%3%2.%1"
                                  << "%3%2_%1_0";
}

void TestClipFolder::name() {
    QFETCH(QString, file);
    QFETCH(QString, name);
    QCOMPARE(makeClipFolder(file, folder->path()), folder->filePath(name));
    QVERIFY(QFileInfo(folder->filePath(name)).isDir());
}

void TestClipFolder::takesTheFirstFreeNumber() {
    QVERIFY(QDir(folder->path()).mkpath("garden_mp4_0") &&
            QDir(folder->path()).mkpath("garden_mp4_2"));
    QCOMPARE(makeClipFolder("garden.mp4", folder->path()), folder->filePath("garden_mp4_1"));
    QCOMPARE(makeClipFolder("garden.mp4", folder->path()), folder->filePath("garden_mp4_3"));
}

void TestClipFolder::manyOfOneName() {
    const QDir directory(folder->path());
    QVERIFY(directory.mkpath("garden_mp4_1") && directory.mkpath("garden_mp4_4"));
    ClipFolderNumbers numbers;
    for (const char* name : {"garden_mp4_0", "garden_mp4_2", "garden_mp4_3", "garden_mp4_5"})
        QCOMPARE(makeClipFolder("garden.mp4", folder->path(), &numbers), folder->filePath(name));
    // Those that were found taken are not looked at again.
    QVERIFY(directory.rmdir("garden_mp4_0"));
    QCOMPARE(makeClipFolder("garden.mp4", folder->path(), &numbers),
             folder->filePath("garden_mp4_6"));
    QCOMPARE(makeClipFolder("garden.mp4", folder->path()), folder->filePath("garden_mp4_0"));
}

void TestClipFolder::manyNamesAtOnce() {
    ClipFolderNumbers numbers;
    const QString longBase(251, 'a');
    for (int number = 0; number < 12; ++number) {
        const QString tail = QString::number(number);
        QCOMPARE(makeClipFolder("a/yard.mp4", folder->path(), &numbers),
                 folder->filePath("yard_mp4_" + tail));
        QCOMPARE(makeClipFolder("b/yard.avi", folder->path(), &numbers),
                 folder->filePath("yard_avi_" + tail));
        const QString made = makeClipFolder(longBase + ".mp4", folder->path(), &numbers);
        QVERIFY(made.endsWith("a_mp4_" + tail) && QFileInfo(made).isDir());
    }
}

void TestClipFolder::folderThatCannotBeMadeTakesNoNumber() {
    const QString nowhere = folder->filePath("file");
    QVERIFY(QFile(nowhere).open(QIODevice::WriteOnly));
    ClipFolderNumbers numbers;
    for (int time = 0; time < 2; ++time)
        QCOMPARE(makeClipFolder("garden.mp4", nowhere, &numbers), nowhere + "/garden_mp4_0");
}

void TestClipFolder::longNames_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    // The longest name that Linux takes has 255 bytes; these would need 257.
    QTest::newRow("long base name") << QString(251, 'a') + ".mp4" << QString(249, 'a') + "_mp4_0";
    QTest::newRow("long suffix") << "a." + QString(253, 'b') << '_' + QString(252, 'b') + "_0";
    const QString camera = QString::fromUtf8("\xf0\x9f\x8e\xa5"); // four bytes
    QTest::newRow("whole characters")
        << camera.repeated(62) + "abc.mp4" << camera.repeated(62) + "a_mp4_0";
    QTest::newRow("characters of four bytes") << "abc" + camera.repeated(62) + ".mp4"
                                              << "abc" + camera.repeated(61) + "_mp4_0";
    QTest::newRow("no file at all")
        << QString(15000, 'a') + "." + QString(15000, 'b') << "_" + QString(252, 'b') + "_0";
    QTest::newRow("just fits") << QString(249, 'a') + ".mp4" << QString(249, 'a') + "_mp4_0";
}

void TestClipFolder::longNames() {
    QFETCH(QString, file);
    QFETCH(QString, name);
    QCOMPARE(makeClipFolder(folder->filePath(file), folder->path()), folder->filePath(name));
    QVERIFY(QFileInfo(folder->filePath(name)).isDir());
}

void TestClipFolder::longNamesStayUnique() {
    const QString base(251, 'a');
    for (int number = 0; number < 12; ++number) {
        const QString made = makeClipFolder(base + ".mp4", folder->path());
        QVERIFY(made.endsWith(QString("a_mp4_%1").arg(number)));
        QCOMPARE(QFileInfo(made).fileName().size(), 255);
        QVERIFY(QFileInfo(made).isDir());
    }
}

QTEST_GUILESS_MAIN(TestClipFolder)
#include "test_clipfolder.moc"
