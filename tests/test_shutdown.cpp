// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipprobe.h"
#include "encoderstand.h"
#include "media.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Run {
    int status = -1;
    qint64 quittingMilliseconds = -1;
    QByteArray errors;
};

} // namespace

class TestShutdown : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void quitsInTheWorstMoment();
    void encoderOutlivesTheProgram();

private:
    Run run(const QString& exportFolder);

    QTemporaryDir folder;
    QString recording;
};

void TestShutdown::initTestCase() {
    // Something crosses every 20 s, for 40 minutes.
    const QString once = folder.filePath("once.mp4");
    recording = folder.filePath("garden.mp4");
    QVERIFY(
        media::encode(media::crossingBox(20, 3, 9, "160x120") +
                      QStringList{"-c:v", "libx264", "-preset", "ultrafast", "-g", "25", once}));
    QVERIFY(media::encode({"-stream_loop", "120", "-i", once, "-c", "copy", recording}));
}

Run TestShutdown::run(const QString& exportFolder) {
    Run run;
    QProcess program;
    program.start(QCoreApplication::applicationDirPath() + "/quitdriver",
                  {recording, exportFolder});
    QByteArray output;
    while (!output.contains("quit") && program.waitForReadyRead(60000))
        output += program.readAllStandardOutput();
    QElapsedTimer timer;
    timer.start();
    if (program.waitForFinished(30000) && program.exitStatus() == QProcess::NormalExit)
        run.status = program.exitCode();
    run.quittingMilliseconds = timer.elapsed();
    run.errors = program.readAllStandardError();
    program.kill();
    return run;
}

void TestShutdown::quitsInTheWorstMoment() {
    EncoderStand encoder;
    encoder.hold();
    // A few times, or as often as one who looks for rare failures wants.
    const int runs = qMax(3, qEnvironmentVariableIntValue("KESTROVA_QUITS"));
    qint64 longest = 0;
    for (int i = 1; i <= runs; ++i) {
        const Run quit = run(folder.path());
        QVERIFY2(quit.status == 0, quit.errors.constData());
        QVERIFY2(!quit.errors.contains("Sanitizer") && !quit.errors.contains("runtime error") &&
                     !quit.errors.contains("QThread") && !quit.errors.contains("QProcess"),
                 quit.errors.constData());
        QTRY_COMPARE(encoder.calls().size(), i); // none of those that waited was started
        longest = qMax(longest, quit.quittingMilliseconds);
    }
    qInfo("quit %d times, the longest took %lld ms", runs, longest);
    QVERIFY(longest < 3000);
}

void TestShutdown::encoderOutlivesTheProgram() {
    EncoderStand encoder;
    encoder.hold();
    const QTemporaryDir clips;
    QCOMPARE(run(clips.path()).status, 0);
    QTRY_COMPARE(encoder.calls().size(), 1); // it notes its call when it gets to run
    const QString file = encoder.calls()[0].last();
    QVERIFY(!QFile::exists(file));
    encoder.release();
    QTRY_VERIFY(QFile::exists(file));
}

QTEST_GUILESS_MAIN(TestShutdown)
#include "test_shutdown.moc"
