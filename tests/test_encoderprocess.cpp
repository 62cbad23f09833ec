// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "confinement.h"
#include "encoderprocess.h"
#include "encoderstand.h"
#include "files.h"

#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <sys/resource.h>

class TestEncoderProcess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsAndDeletesItself();
    void deletesItselfAfterACrash();
    void deletesItselfUnstarted();
    void isOneArgumentWhateverItsSigns();
    void opensWhatItWasGranted();
    void opensNothingElse();

    void endsAnOlderRunFirst();
    void killsAStubbornOlderRun();
    void newestOfThreeRuns();
    void runsOfOthersGoOn();
    void clientGoneBeforeTheStart();

    void failure_data();
    void failure();
    void cannotBeStarted();
    void holdsLittleOfALongLog();

private:
    QPointer<EncoderProcess> start(QObject& client, const QString& argument);
    /// How the run ended, for a person.
    static QString failureOf(EncoderProcess* process);

    QTemporaryDir folder;
};

QPointer<EncoderProcess> TestEncoderProcess::start(QObject& client, const QString& argument) {
    auto* process = new EncoderProcess(&client);
    process->startEncoder({argument, folder.filePath("out")}, {{}, {folder.path()}, {}});
    return process;
}

QString TestEncoderProcess::failureOf(EncoderProcess* process) {
    QString failure;
    const QPointer<EncoderProcess> left(process);
    connect(process, &QProcess::errorOccurred, process, [&] { failure = process->failure(); });
    connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), process,
            [&] { failure = process->failure(); });
    [&] { QTRY_VERIFY_WITH_TIMEOUT(!left, 60000); }();
    return failure;
}

void TestEncoderProcess::runsAndDeletesItself() {
    const EncoderStand encoder;
    const QPointer<EncoderProcess> process = new EncoderProcess(this);
    process->startEncoder({"-y", QDir::tempPath() + "/kestrova-encoderprocess"},
                          {{}, {QDir::tempPath()}, {}});
    QTRY_VERIFY(!process);
    QCOMPARE(encoder.calls().size(), 1);
    QVERIFY(QFile::remove(encoder.calls()[0].last()));
}

void TestEncoderProcess::deletesItselfAfterACrash() {
    EncoderStand encoder;
    encoder.setEnd("crash");
    const QPointer<EncoderProcess> process = new EncoderProcess(this);
    QSignalSpy errors(process, SIGNAL(errorOccurred(QProcess::ProcessError)));
    process->startEncoder({"-y", "out"}, {});
    QTRY_VERIFY(!process);
    QCOMPARE(errors.size(), 1);
}

void TestEncoderProcess::deletesItselfUnstarted() {
    EncoderStand encoder;
    encoder.useNone();
    const QPointer<EncoderProcess> process = new EncoderProcess(this);
    process->startEncoder({"-y", "out"}, {});
    QTRY_VERIFY(!process);
}

void TestEncoderProcess::isOneArgumentWhateverItsSigns() {
    EncoderStand encoder;
    encoder.setEnd("1");
    const QStringList arguments = {"", "two words", "\"quoted\"", "back\\slash", "$HOME", "out"};
    const QPointer<EncoderProcess> process = new EncoderProcess(this);
    process->startEncoder(arguments, {});
    QTRY_VERIFY(!process);
    QCOMPARE(encoder.calls(), QList<QStringList>({arguments}));
}

void TestEncoderProcess::opensWhatItWasGranted() {
    EncoderStand encoder;
    encoder.useScript("cat \"$1\" >\"$2\"\n");
    const QTemporaryDir clips;
    const QString copy = clips.filePath("copy");
    QVERIFY(writeFile(folder.filePath("recording"), "pictures"));
    auto* process = new EncoderProcess(this);
    process->startEncoder({folder.filePath("recording"), copy},
                          {{folder.filePath("recording")}, {clips.path()}, {}});
    failureOf(process);
    QCOMPARE(readFile(copy), QByteArray("pictures"));
}

void TestEncoderProcess::opensNothingElse() {
    if (!offeredProtections().files)
        QSKIP("this kernel has no Landlock");
    EncoderStand encoder;
    encoder.useScript("cat \"$1\"\n");
    QVERIFY(writeFile(folder.filePath("secret"), "do not tell"));
    auto* process = new EncoderProcess(this);
    process->startEncoder({folder.filePath("secret")}, {});
    const QString failure = failureOf(process);
    QVERIFY2(failure.contains("Permission denied"), qPrintable(failure));
    QCOMPARE(readFile(folder.filePath("secret")), QByteArray("do not tell"));
}

void TestEncoderProcess::endsAnOlderRunFirst() {
    EncoderStand encoder;
    encoder.hold();
    QObject client;
    const auto older = start(client, "older");
    QTRY_COMPARE(encoder.calls().size(), 1);
    const auto newer = start(client, "newer");
    QCOMPARE(newer->state(), QProcess::NotRunning); // nobody waits for the other's end
    QTRY_COMPARE(encoder.calls().size(), 2);
    QVERIFY(!older);
    QCOMPARE(encoder.calls()[1][0], QString("newer"));
    QCOMPARE(encoder.clashes(), QByteArray());
    encoder.release();
    QTRY_VERIFY(!newer);
}

void TestEncoderProcess::killsAStubbornOlderRun() {
    EncoderStand encoder;
    encoder.hold();
    encoder.beStubborn();
    QObject client;
    const auto older = start(client, "older");
    QTRY_COMPARE(encoder.calls().size(), 1);
    const auto newer = start(client, "newer");
    QTRY_COMPARE_WITH_TIMEOUT(encoder.calls().size(), 2, 20000);
    QVERIFY(!older);
    QCOMPARE(encoder.clashes(), QByteArray());
    encoder.release();
    QTRY_VERIFY(!newer);
}

void TestEncoderProcess::newestOfThreeRuns() {
    EncoderStand encoder;
    encoder.hold();
    QObject client;
    start(client, "first");
    QTRY_COMPARE(encoder.calls().size(), 1);
    const auto second = start(client, "second");
    const auto third = start(client, "third");
    QTRY_COMPARE(encoder.calls().size(), 2);
    QCOMPARE(encoder.calls()[1][0], QString("third"));
    encoder.release();
    QTRY_VERIFY(!second && !third);
    QCOMPARE(encoder.calls().size(), 2);
    QCOMPARE(encoder.clashes(), QByteArray());
}

void TestEncoderProcess::runsOfOthersGoOn() {
    EncoderStand encoder;
    encoder.hold();
    QObject one;
    QObject other;
    const auto first = start(one, "one");
    auto* second = new EncoderProcess(&other);
    second->startEncoder({"other", folder.filePath("other")}, {{}, {folder.path()}, {}});
    QTRY_COMPARE(encoder.calls().size(), 2);
    QTRY_COMPARE(first->state(), QProcess::Running);
    QTRY_COMPARE(second->state(), QProcess::Running);
    encoder.release();
    QTRY_VERIFY(!first);
    QTRY_VERIFY(QFile::exists(folder.filePath("other")));
}

void TestEncoderProcess::clientGoneBeforeTheStart() {
    EncoderStand encoder;
    encoder.hold();
    auto client = std::make_unique<QObject>();
    start(*client, "older");
    QTRY_COMPARE(encoder.calls().size(), 1);
    const auto newer = start(*client, "newer");
    client.reset();
    QTRY_VERIFY(!newer);
    QCOMPARE(encoder.calls().size(), 1);
}

void TestEncoderProcess::failure_data() {
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<QString>("failure");
    QTest::newRow("says why") << QByteArray("1") << "told to fail";
    QTest::newRow("crash") << QByteArray("crash") << "the encoder crashed";
}

void TestEncoderProcess::failure() {
    QFETCH(QByteArray, end);
    EncoderStand encoder;
    encoder.setEnd(end);
    QObject client;
    QTEST(failureOf(start(client, "-y")), "failure");
}

void TestEncoderProcess::cannotBeStarted() {
    EncoderStand encoder;
    encoder.useNone();
    QObject client;
    const QString failure = failureOf(start(client, "-y"));
    QVERIFY2(failure.startsWith("the encoder cannot be started: "), qPrintable(failure));
}

void TestEncoderProcess::holdsLittleOfALongLog() {
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the address sanitizer keeps what was freed");
#endif
    EncoderStand encoder;
    encoder.setEnd("verbose");
    rusage before{};
    rusage after{};
    getrusage(RUSAGE_SELF, &before);
    QObject client;
    QCOMPARE(failureOf(start(client, "-y")), QString("told to be verbose and to fail"));
    getrusage(RUSAGE_SELF, &after);
    QVERIFY2(after.ru_maxrss - before.ru_maxrss < 20000, "100 MB were said"); // in KiB
}

QTEST_GUILESS_MAIN(TestEncoderProcess)
#include "test_encoderprocess.moc"
