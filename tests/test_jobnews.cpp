// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What jobs tell besides their clips.

#include "cellsmeasurement.h"
#include "detection.h"
#include "failuretexts.h"
#include "faults.h"
#include "files.h"
#include "hugepictures.h"
#include "jobworker.h"
#include "media.h"
#include "process.h"
#include "video.h"

#include <QElapsedTimer>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>
#include <QTranslator>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

const QStringList ffv1 = {"-c:v", "ffv1"};

/// Takes down what a job tells.
class Listener : public QObject {
    Q_OBJECT

public:
    explicit Listener(Video& job)
        : job(job) {
        connect(&job.news, SIGNAL(factsChanged()), SLOT(takeFacts()));
        connect(&job.news, SIGNAL(measured(QVector<float>, QVector<double>)),
                SLOT(takeMeasured(QVector<float>, QVector<double>)));
        connect(&job, SIGNAL(newClip(int, QImage, double, double, double)), SLOT(takeClip(int)));
        connect(&job, SIGNAL(resultReady()), SLOT(takeResult()));
    }

    QVector<JobFacts> facts;
    QVector<float> values;
    QVector<double> times;
    int batches = 0;
    QVector<int> clips;
    int factsAtResult = -1;
    int valuesAtResult = -1;
    bool isOnOwnThread = true;

public Q_SLOTS:
    void takeFacts() {
        facts.append(job.news.facts());
        isOnOwnThread = isOnOwnThread && QThread::currentThread() == thread();
    }
    void takeMeasured(const QVector<float>& some, const QVector<double>& their) {
        values += some;
        times += their;
        ++batches;
        isOnOwnThread = isOnOwnThread && QThread::currentThread() == thread();
    }
    void takeClip(int index) { clips.append(index); }
    void takeResult() {
        factsAtResult = facts.size();
        valuesAtResult = values.size();
    }

private:
    Video& job;
};

class Nobody : public DetectionProgress {
public:
    bool isCancelled() override { return false; }
    void positionChanged(qint64, bool) override {}
};

/// Knows what stands in the table of failures alone.
class Marker : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override {
        const bool isFailure = qstrcmp(context, "FailureTexts") == 0;
        return isFailure ? "<" + QString(text) + ">" : QString();
    }
};

/// Six seconds; in seconds 2 to 4 every pixel changes from picture to picture, by 100 first.
QList<QImage> burst() {
    QList<QImage> pictures;
    for (int i = 0; i < 150; ++i) {
        const bool moves = i >= 50 && i < 100;
        const int grey = moves ? (i % 2 == 0 ? 200 : 0) : 100;
        pictures.append(media::grey(64, 48, grey));
    }
    return pictures;
}

} // namespace

class TestJobNews : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void headerIsToldFirst();
    void strongestMotionIsToldAtTheEnd();
    void valuesAreThoseOfTheMean();
    void valuesAreThoseOfCells();
    void valuesComeAfterwardsWhereNothingIsDecidedBefore();
    void everythingArrivesBeforeTheResult();
    void tellsNoMoreOftenThanPromised();
    void clipsAreNumberedOn();

    void failuresAreWordedAsTheScannerDoes_data();
    void failuresAreWordedAsTheScannerDoes();
    void pipesAreNoFiles();
    void readErrorIsNamed();
    void damageIsTold();
    void cancelledIsNotReadToItsEnd();
    void failuresAreTranslated_data();
    void failuresAreTranslated();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    std::unique_ptr<Video> makeJob(const QString& name) const {
        return std::make_unique<Video>(path(name), exports.path(), 1.0, 1.0, 1.0, 0, false, nullptr,
                                       nullptr, false, QDateTime());
    }

    QTemporaryDir folder;
    QTemporaryDir exports;
};

void TestJobNews::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("test_jobnews");
    QVERIFY(folder.isValid() && exports.isValid());
    QVERIFY(media::encodeGrey(path("burst.mkv"), burst(), 25, ffv1));
    QVERIFY(media::encode(media::crossingBox(12, 3, 9) +
                          QStringList{"-c:v", "mpeg4", path("visit.mp4")}));
}

void TestJobNews::init() {
    QSettings().clear();
    QSettings().setValue("kept_values_mb", 0); // each job measures
}

void TestJobNews::headerIsToldFirst() {
    const auto job = makeJob("burst.mkv");
    const Listener listener(*job);
    job->detect();
    QVERIFY(listener.facts.size() >= 2);
    const JobFacts& first = listener.facts.first();
    QCOMPARE(first.seconds, 6.0);
    QCOMPARE(first.pictures, QSize(64, 48));
    QCOMPARE(first.strongest.value, 0.0F);
    QVERIFY(first.error.isEmpty());
}

void TestJobNews::strongestMotionIsToldAtTheEnd() {
    const auto job = makeJob("burst.mkv");
    const Listener listener(*job);
    job->detect();
    const JobFacts& last = listener.facts.last();
    // Picture 50 differs from 49 by 100, 51 from 50 by 200: it is the first of the strongest.
    QCOMPARE(last.strongest.value, 200.0F);
    QCOMPARE(last.strongestTime, 51 * 0.04);
    QCOMPARE(last.seconds, 149 * 0.04);
    QCOMPARE(last.pictures, QSize(64, 48));
    QVERIFY(last.error.isEmpty());
    QVERIFY(last.isReadToItsEnd);
    QVERIFY(!last.damage.isThere());
}

void TestJobNews::valuesAreThoseOfTheMean() {
    const auto job = makeJob("burst.mkv");
    const Listener listener(*job);
    job->detect();
    QCOMPARE(listener.values.size(), 149);
    QCOMPARE(listener.values, job->motionValues);
    QCOMPARE(listener.times, job->frameTimes); // its first picture is at 0
}

void TestJobNews::valuesAreThoseOfCells() {
    const auto job = makeJob("visit.mp4");
    DecidingOptions cells;
    cells.detector = Detector::Cells;
    job->search.deciding = cells;
    const Listener listener(*job);
    job->detect();

    Nobody nobody;
    DetectionOptions options;
    options.areMapsKept = true;
    Detection alone(options, nobody);
    QCOMPARE(alone.run(path("visit.mp4")).outcome, DetectionOutcome::Finished);
    const Measurement expected = cellsMeasurement(alone.measurement(), options, CellBits());
    QCOMPARE(listener.values.size(), expected.series.scores.size());
    float strongest = 0.0F;
    for (int i = 0; i < listener.values.size(); ++i) {
        QCOMPARE(listener.values[i], expected.series.scores[i].value);
        strongest = std::max(strongest, listener.values[i]);
    }
    QVERIFY(strongest > 0.7F);
    QCOMPARE(listener.facts.last().strongest.value, strongest);
}

void TestJobNews::valuesComeAfterwardsWhereNothingIsDecidedBefore() {
    const auto job = makeJob("visit.mp4");
    job->search.isQuick = true;
    const Listener listener(*job);
    job->detect();
    QVERIFY(listener.facts.size() >= 2);
    QCOMPARE(listener.facts.first().seconds, 12.0);
    QCOMPARE(listener.facts.first().pictures, QSize(320, 240));
    QVERIFY(listener.values.size() > 5 && listener.values.size() < 100); // key frames
    QCOMPARE(listener.values, job->motionValues);
}

void TestJobNews::everythingArrivesBeforeTheResult() {
    const auto job = makeJob("visit.mp4");
    const Listener listener(*job);
    const Worker worker(*job);
    QTRY_VERIFY_WITH_TIMEOUT(listener.factsAtResult >= 0, 60000);
    QVERIFY(listener.isOnOwnThread);
    QCOMPARE(listener.factsAtResult, listener.facts.size());
    QCOMPARE(listener.valuesAtResult, listener.values.size());
    QCOMPARE(listener.values, job->motionValues);
    QCOMPARE(job->news.facts().seconds, job->frameTimes.last());
}

void TestJobNews::tellsNoMoreOftenThanPromised() {
    QVERIFY(media::encode(
        {"-stream_loop", "20", "-i", path("visit.mp4"), "-c", "copy", path("long.mp4")}));
    const auto job = makeJob("long.mp4");
    const Listener listener(*job);
    QElapsedTimer timer;
    timer.start();
    job->detect();
    const qint64 elapsed = timer.elapsed();
    QVERIFY(elapsed > 300);                              // there is something to be told of
    QVERIFY(listener.batches > 1);                       // as it goes on
    QVERIFY(listener.batches <= elapsed / 100 + 1);      // the last one comes at the end
    QVERIFY(listener.facts.size() <= elapsed / 500 + 2); // so do facts; and at the beginning
    QCOMPARE(listener.values, job->motionValues);
}

void TestJobNews::clipsAreNumberedOn() {
    const auto job = makeJob("burst.mkv");
    job->nextClipNumber = 7;
    const Listener listener(*job);
    job->detect();
    QCOMPARE(listener.clips, QVector<int>{7});
}

void TestJobNews::failuresAreWordedAsTheScannerDoes_data() {
    QTest::addColumn<QString>("name");
    QVERIFY(writeFile(path("text.mp4"), "This is no video.\n"));
    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine=d=1", path("sound.wav")}));
    QVERIFY(media::encodeGrey(path("one.mkv"), burst().mid(0, 1), 25, ffv1));
    QVERIFY(media::writeGif(path("huge.gif"), 16000, 16000, 84));
    QVERIFY(writeFile(path("list.m3u8"), "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\na.ts\n"));
    for (const char* name :
         {"missing.mp4", "text.mp4", "sound.wav", "one.mkv", "huge.gif", "list.m3u8"})
        QTest::newRow(name) << name;
}

void TestJobNews::failuresAreWordedAsTheScannerDoes() {
    QFETCH(QString, name);
    const auto job = makeJob(name);
    const Listener listener(*job);
    job->detect();
    QCOMPARE(int(job->state), int(Video::Failed));
    const ProcessResult scan = runProgram("kestrova-scan", {"--quiet", path(name)});
    const JobFacts facts = job->news.facts();
    QVERIFY(!facts.error.isEmpty());
    const QByteArray line = (path(name) + ": " + facts.error + '\n').toUtf8();
    QVERIFY2(scan.errors.endsWith(line), scan.errors.constData());

    Marker marker;
    QVERIFY(QCoreApplication::installTranslator(&marker));
    const QString translated = translatedFailure(facts.error);
    QCoreApplication::removeTranslator(&marker);
    QVERIFY2(translated.startsWith('<'), qPrintable(translated));
}

void TestJobNews::pipesAreNoFiles() {
    const auto job = std::make_unique<Video>("/dev/null", exports.path(), 1.0, 1.0, 1.0, 0, false,
                                             nullptr, nullptr, false, QDateTime());
    job->detect();
    QCOMPARE(int(job->state), int(Video::Failed));
    QCOMPARE(job->news.facts().error, QString("no regular file"));
}

void TestJobNews::readErrorIsNamed() {
    const QString video = path("readerror.mkv");
    if (qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        QVERIFY(media::encodeGrey(video, burst(), 25, ffv1));
        QProcessEnvironment environment = faults::readError(video, QFileInfo(video).size() / 2);
        environment.insert("READ_ERROR_VIDEO", video);
        const ProcessResult result = runProgramIn(
            environment, QCoreApplication::applicationFilePath(), {"readErrorIsNamed"});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    // Here the read fails.
    Video job(qEnvironmentVariable("READ_ERROR_VIDEO"), exports.path(), 1.0, 1.0, 1.0, 0, false,
              nullptr, nullptr, false, QDateTime());
    job.detect();
    QCOMPARE(int(job.state), int(Video::Finished));
    const JobFacts facts = job.news.facts();
    QCOMPARE(facts.error, QString("cannot be read to its end: Input/output error"));
    QVERIFY(!facts.isReadToItsEnd);
    QVERIFY(facts.seconds > 0.3 && facts.seconds < 5.9);
    QCOMPARE(facts.seconds, job.frameTimes.last());
}

void TestJobNews::damageIsTold() {
    QByteArray content = readFile(path("visit.mp4"));
    for (int i = content.size() / 2; i < content.size() / 2 + 2000; ++i)
        content[i] = char(~content[i]);
    QVERIFY(writeFile(path("damaged.mp4"), content));
    const auto job = makeJob("damaged.mp4");
    job->detect();
    QCOMPARE(int(job->state), int(Video::Finished));
    const ProcessResult scan =
        runProgram("kestrova-scan", {"--quiet", "--format", "jsonl", path("damaged.mp4")});
    const QJsonObject told = jsonLines(scan.output).last()["damaged"].toObject();
    const Damage damage = job->news.facts().damage;
    QVERIFY(damage.isThere());
    QCOMPARE(double(damage.packets), told["packets"].toDouble());
    QCOMPARE(damage.promised, told["promised"].toDouble());
    QCOMPARE(damage.read, told["read"].toDouble());
}

void TestJobNews::cancelledIsNotReadToItsEnd() {
    const auto job = makeJob("visit.mp4");
    connect(
        &job->news, &JobNews::factsChanged, job.get(),
        [&job] { job->state = Video::CancelRequested; }, Qt::DirectConnection);
    job->detect();
    QCOMPARE(int(job->state), int(Video::CancelRequested));
    const JobFacts facts = job->news.facts();
    QVERIFY(!facts.isReadToItsEnd);
    QCOMPARE(facts.seconds, 12.0); // as the header says
    QVERIFY(facts.error.isEmpty());
}

void TestJobNews::failuresAreTranslated_data() {
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QString>("translated");
    QTest::newRow("plain") << "no video stream"
                           << "<no video stream>";
    QTest::newRow("one argument") << "no decoder for h264"
                                  << "<no decoder for h264>";
    QTest::newRow("two arguments") << "pictures of 16000 x 9000 are too large"
                                   << "<pictures of 16000 x 9000 are too large>";
    QTest::newRow("a failure inside") << "cannot be read to its end: Input/output error"
                                      << "<cannot be read to its end: <Input/output error>>";
    QTest::newRow("a failure behind a name")
        << "cannot write the picture a.png: Permission denied"
        << "<cannot write the picture a.png: <Permission denied>>";
    QTest::newRow("percent signs") << "no decoder for %2"
                                   << "<no decoder for %2>";
    QTest::newRow("unknown") << "Number of syllables out of range"
                             << "Number of syllables out of range";
    QTest::newRow("unknown inside") << "cannot be read to its end: Too many cooks"
                                    << "<cannot be read to its end: Too many cooks>";
    QTest::newRow("empty") << ""
                           << "";
}

void TestJobNews::failuresAreTranslated() {
    QFETCH(QString, failure);
    QFETCH(QString, translated);
    Marker marker;
    QVERIFY(QCoreApplication::installTranslator(&marker));
    const QString told = translatedFailure(failure);
    QCoreApplication::removeTranslator(&marker);
    QCOMPARE(told, translated);
    QCOMPARE(translatedFailure(failure), failure); // in English
}

QTEST_GUILESS_MAIN(TestJobNews)
#include "test_jobnews.moc"
