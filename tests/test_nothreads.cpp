// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner where the system has no more threads to give: slower, and nothing else.

#include "faults.h"
#include "media.h"
#include "process.h"

#include <QTemporaryDir>
#include <QtTest>

class TestNoThreads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void changesNothing_data();
    void changesNothing();

private:
    QTemporaryDir folder;
};

void TestNoThreads::changesNothing_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("codec");
    QTest::newRow("across pictures") << "a.mp4" << QStringList{"-c:v", "libx264", "-bf", "2"};
    QTest::newRow("inside pictures") << "b.mpg" << QStringList{"-c:v", "mpeg2video"};
    QTest::newRow("by the decoder itself")
        << "c.mkv" << QStringList{"-c:v", "libaom-av1", "-cpu-used", "8", "-b:v", "300k"};
    QTest::newRow("none") << "d.avi" << QStringList{"-c:v", "mjpeg"};
}

void TestNoThreads::changesNothing() {
    QFETCH(QString, name);
    QFETCH(QStringList, codec);
    if (!media::hasEncoder(codec[1]))
        QSKIP("the encoder cannot write this codec");
    const QString video = folder.filePath(name);
    QVERIFY(media::encode(media::crossingBox(8, 2, 6, "96x64") + codec + QStringList{video}));
    const QStringList common = {"--format", "jsonl", "--minimum", "2", "--threads", "4"};
    for (const QStringList& arguments :
         {common + QStringList{video}, common + QStringList{"--jobs", "3", video, video, video}}) {
        const ProcessResult expected = runProgram("kestrova-scan", arguments);
        QCOMPARE(expected.status, 0);
        QVERIFY(expected.output.contains("\"index\":0"));
        for (int started = 0; started <= 8; ++started) {
            const ProcessResult found =
                runProgramIn(faults::noThreads(started), "kestrova-scan", arguments);
            QCOMPARE(found.status, 0);
            QCOMPARE(found.output, expected.output);
            QCOMPARE(found.errors.split('\n').size(), expected.errors.split('\n').size());
        }
    }
}

QTEST_GUILESS_MAIN(TestNoThreads)
#include "test_nothreads.moc"
