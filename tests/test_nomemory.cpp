// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner where one allocation fails on a thread that it has started: never the end of the
// process.

#include "faults.h"
#include "media.h"
#include "process.h"

#include <QTemporaryDir>
#include <QtTest>

class TestNoMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isAFailureOrNone_data();
    void isAFailureOrNone();

private:
    void checkOnce(const QString& library, int before, const QStringList& arguments,
                   const ProcessResult& expected);

    QTemporaryDir folder;
    QString closed; ///< is decoded in chunks
    QString single; ///< is decoded ahead
    int failures = 0;
};

void TestNoMemory::initTestCase() {
    closed = folder.filePath("closed.avi");
    single = folder.filePath("single.mp4");
    const QStringList scene = media::crossingBox(8, 2, 6, "96x64");
    QVERIFY(media::encode(scene + QStringList{"-c:v", "mjpeg", closed}));
    QVERIFY(media::encode(scene + QStringList{"-c:v", "libx264", "-g", "1000", single}));
}

void TestNoMemory::isAFailureOrNone_data() {
    QTest::addColumn<QString>("library");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("video");
    const QString standard = "libstdc++";
    const QString qt = "libQt5Core";
    for (const QString& library : {standard, qt}) {
        const auto row = [&library](const char* name, const QStringList& options,
                                    const QString& video) {
            QTest::newRow(qPrintable(library + ", " + name)) << library << options << video;
        };
        row("chunks", {"--threads", "2"}, closed);
        row("decoded ahead", {"--threads", "2"}, single);
        row("key frames", {"--threads", "2", "--quick"}, closed);
        row("cells in chunks", {"--threads", "2", "--detector", "cells"}, closed);
        row("cells decoded ahead", {"--threads", "2", "--detector", "cells"}, single);
        row("recordings", {"--threads", "1", "--jobs", "2", single}, closed);
        row("everything", {"--threads", "2", "--jobs", "2", single}, closed);
    }
}

void TestNoMemory::checkOnce(const QString& library, int before, const QStringList& arguments,
                             const ProcessResult& expected) {
    constexpr int longest = 30000; // a lock that is never given back would show
    const ProcessResult found =
        runProgramIn(faults::noMemoryOnce(library, before), "kestrova-scan", arguments, longest);
    const QString what = QString("%1 before: ").arg(before) + found.errors;
    if (found.status == 0) {
        QVERIFY2(found.output == expected.output, qPrintable(what));
        return;
    }
    QVERIFY2(found.status == 1, qPrintable(what));
    QVERIFY2(found.errors.contains("out of memory\n"), qPrintable(what));
    ++failures;
}

void TestNoMemory::isAFailureOrNone() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("the sanitizers allocate by themselves");
#endif
    QFETCH(QString, library);
    QFETCH(QStringList, options);
    QFETCH(QString, video);
    const QStringList arguments = QStringList{"--quiet", "--format", "jsonl", "--minimum", "2"} +
                                  options + QStringList{video};
    const ProcessResult expected = runProgram("kestrova-scan", arguments);
    QCOMPARE(expected.status, 0);
    // The first ones are those of the threads themselves; then as they come.
    for (int before = 0; before < 1000; before += 1 + before / 3) {
        checkOnce(library, before, arguments, expected);
        if (QTest::currentTestFailed())
            return;
    }
    qInfo("%d failures so far", failures);
}

QTEST_GUILESS_MAIN(TestNoMemory)
#include "test_nomemory.moc"
