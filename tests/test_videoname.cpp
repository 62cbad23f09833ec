// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenames.h"
#include "files.h"

#include <QtTest>

class TestVideoName : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void extensionDecides_data();
    void extensionDecides();
    void pageListsThem();
};

void TestVideoName::extensionDecides_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isVideo");
    const auto row = [](const QByteArray& name, bool isVideo) {
        QTest::newRow(name.toPercentEncoding().constData()) << name << isVideo;
    };
    for (const char* name : {"a.mp4", "a.MP4", "a.Mkv", "/b.txt/a.avi", "a.txt.ts", ".mp4",
                             "\xe9.mov", "a.264", "a b.h265"})
        row(name, true);
    for (const char* name : {"a.txt", "mp4", "a.mp4.part", "/b.mp4/a", "a.", "", "a.mp", "a.mp44",
                             "a.mp4 ", "a.jpg", "a.mp3", "a.\xe9"})
        row(name, false);
}

void TestVideoName::extensionDecides() {
    QFETCH(QByteArray, name);
    QTEST(isVideoName(name.toStdString()), "isVideo");
}

void TestVideoName::pageListsThem() {
    const QString page = QString::fromUtf8(readFile(KESTROVA_SOURCE "/docs/scanner.md"));
    const QRegularExpression list("Named like a video means ending in `([^`]+)`");
    const QStringList extensions = list.match(page).captured(1).simplified().split(' ');
    QVERIFY(extensions.size() > 30);
    for (const QString& extension : extensions)
        QVERIFY2(isVideoName(("a" + extension).toStdString()), qPrintable(extension));
}

QTEST_GUILESS_MAIN(TestVideoName)
#include "test_videoname.moc"
