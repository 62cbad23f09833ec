#include "encoderprocess.h"
#include "encoderstand.h"

#include <QPointer>
#include <QtTest>

class TestEncoderProcess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsAndDeletesItself();
    void deletesItselfAfterACrash();
    void deletesItselfUnstarted();
    void isOneArgumentWhateverItsSigns();
};

void TestEncoderProcess::runsAndDeletesItself() {
    const EncoderStand encoder;
    const QPointer<EncoderProcess> process = new EncoderProcess;
    process->startEncoder({"-y", QDir::tempPath() + "/kestrova-encoderprocess"});
    QTRY_VERIFY(!process);
    QCOMPARE(encoder.calls().size(), 1);
    QVERIFY(QFile::remove(encoder.calls()[0].last()));
}

void TestEncoderProcess::deletesItselfAfterACrash() {
    EncoderStand encoder;
    encoder.setEnd("crash");
    const QPointer<EncoderProcess> process = new EncoderProcess;
    QSignalSpy errors(process, SIGNAL(errorOccurred(QProcess::ProcessError)));
    process->startEncoder({"-y", "out"});
    QTRY_VERIFY(!process);
    QCOMPARE(errors.size(), 1);
}

void TestEncoderProcess::deletesItselfUnstarted() {
    EncoderStand encoder;
    encoder.useNone();
    const QPointer<EncoderProcess> process = new EncoderProcess;
    process->startEncoder({"-y", "out"});
    QTRY_VERIFY(!process);
}

void TestEncoderProcess::isOneArgumentWhateverItsSigns() {
    EncoderStand encoder;
    encoder.setEnd("1");
    const QStringList arguments = {"", "two words", "\"quoted\"", "back\\slash", "$HOME", "out"};
    const QPointer<EncoderProcess> process = new EncoderProcess;
    process->startEncoder(arguments);
    QTRY_VERIFY(!process);
    QCOMPARE(encoder.calls(), QList<QStringList>({arguments}));
}

QTEST_GUILESS_MAIN(TestEncoderProcess)
#include "test_encoderprocess.moc"
