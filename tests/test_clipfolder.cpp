// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipfolder.h"

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
    QTest::newRow("just fits") << QString(249, 'a') + ".mp4" << QString(249, 'a') + "_mp4_0";
}

void TestClipFolder::longNames() {
    QFETCH(QString, file);
    QFETCH(QString, name);
    QVERIFY(QFile(folder->filePath(file)).open(QIODevice::WriteOnly));
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
