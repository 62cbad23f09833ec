// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "captiondelegate.h"
#include "files.h"
#include "recordingsdock.h"
#include "sessionindex.h"
#include "translation.h"
#include "windowtest.h"

#include <QAbstractItemView>
#include <QDeadlineTimer>
#include <QDockWidget>
#include <QSet>
#include <QTimer>
#include <QToolButton>

#include <sys/stat.h>

namespace {

/// What can be seen of a clip, and where its export goes.
struct SeenClip {
    QString text;
    QString note;
    QImage snapshot;
    int status;
    QString outputPath;
    QString folder;

    bool operator==(const SeenClip& other) const {
        return text == other.text && note == other.note && snapshot == other.snapshot &&
               status == other.status && outputPath == other.outputPath && folder == other.folder;
    }
};

} // namespace

// So long that something can be done while it is searched.
#ifdef __SANITIZE_ADDRESS__
constexpr int mediumRounds = 20;
#else
constexpr int mediumRounds = 80;
#endif

class TestSessionControl : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { close(); }

    void nothingIsOfferedAtFirst();
    void listIsAsItWas();
    void oneReturnGoesOn();
    void searchedAgainCountsOnce();
    void newSessionReplacesTheLast();
    void personMayDoWithout();
    void nothingIsExportedTwice();
    void exportsThatWaitedGoOn();
    void encoderThatOutlivesItsProgram();
    void onlyFilesOfExportsAreRemoved();
    void exportedFileThatIsGone();
    void recordingThatWasCutOffSince();
    void recordingThatWasReplacedSince();
    void strengthAndBracketComeBack();
    void cancelledWhileAnotherIsSearched();
    void whatCouldNotBeOpenedComesBack();
    void waitingRecordingsAreSearched();
    void runningRecordingIsSearchedFromItsStart();
    void clipsThatAreOnTheirWayAreFoundAgain();
    void clipsOfAnUnfinishedSearchThatAreNotFoundAgain();
    void cancelCanBeTakenBack();
    void crashLosesNothing();
    void secondWindowKeepsNone();
    void damagedSessionIsTold();
    void manyClipsComeALittleAtATime();
    void clipsAreRemovedWhileTheyCome();

private:
    void start() {
        driver.reset(); // the new one looks for its own setup window
        driver = std::make_unique<MainWindowDriver>();
        driver->window.keepSession();
        driver->window.show();
    }
    /// Until the end is heard: what has not been heard of is searched again.
    void search(Video* job) {
        QTimer heard;
        heard.setInterval(longMilliseconds);
        connect(job, SIGNAL(resultReady()), &heard, SLOT(start()));
        driver->accept(job);
        QTRY_VERIFY_WITH_TIMEOUT(heard.isActive(), longMilliseconds);
        QCoreApplication::processEvents();
    }
    QPushButton& offer() { return driver->part<QPushButton>("pushButtonGoOn"); }
    void goOn() {
        start();
        QTRY_VERIFY(offer().isVisible());
        offer().click();
    }
    QVector<SeenClip> seen();
    QVector<QPair<double, double>> spans();
    QString data(const QString& name) const { return folder->filePath("data/" + name); }
    QString index() const { return data("kestrova/kestrova/session/index"); }

    QString mediumRecording;
};

void TestSessionControl::initTestCase() {
    makeRecordings();
    speak({});
    mediumRecording = recordings.filePath("medium.mp4");
    QVERIFY(media::encode({"-stream_loop", QString::number(mediumRounds), "-i", shortRecording,
                           "-c", "copy", mediumRecording}));
}

void TestSessionControl::init() {
    open();
    QSettings().setValue("kept_values_mb", 0); // what is listed at once cannot be interrupted
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder->filePath("data")));
    driver->window.keepSession();
}

QVector<SeenClip> TestSessionControl::seen() {
    QVector<SeenClip> seen;
    for (int row = 0; row < driver->list().count(); ++row) {
        const Clip& clip = driver->clip(row);
        seen.append({clip.text(), clip.toolTip(), clip.snapshot, clip.status, clip.outputPath,
                     clip.video->clipDirectory});
    }
    return seen;
}

QVector<QPair<double, double>> TestSessionControl::spans() {
    QVector<QPair<double, double>> spans;
    for (int row = 0; row < driver->list().count(); ++row)
        spans.append({driver->clip(row).start, driver->clip(row).end});
    return spans;
}

void TestSessionControl::nothingIsOfferedAtFirst() {
    QTest::qWait(300);
    QVERIFY(!driver->part<QWidget>("sessionOffer").isVisible());
    start(); // nothing was accepted
    QTest::qWait(300);
    QVERIFY(!driver->part<QWidget>("sessionOffer").isVisible());
    QVERIFY(!QFile::exists(index()));
}

void TestSessionControl::listIsAsItWas() {
    Video* found = makeJob(shortRecording);
    search(found);
    QCOMPARE(int(found->state), int(Video::Finished));
    QTRY_COMPARE(driver->list().count(), 1);
    Video* failed = failedJob();
    announceClips(failed, 4);
    encoder->setEnd("1");
    driver->clip(2).exportClip(false);
    QTRY_COMPARE(driver->clip(2).status, int(Clip::ExportFailed));
    encoder->setEnd("0");
    driver->clip(0).exportClip(false);
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
    driver->clip(4).status = Clip::Canceled;
    driver->clip(4).updateText();
    delete driver->list().takeItem(1);
    const QVector<SeenClip> before = seen();
    QCOMPARE(before.size(), 4);
    QVERIFY(!before[1].note.isEmpty());

    goOn();
    QTRY_COMPARE(driver->list().count(), 4);
    QVERIFY(seen() == before);
    QVERIFY(!driver->part<QWidget>("sessionOffer").isVisible());
    QTRY_VERIFY(driver->action("actionRemoveAll").isEnabled());
    QVERIFY(!driver->action("actionCancel").isEnabled());
    QTest::qWait(300);
    QCOMPARE(encoder->calls().size(), 2); // nothing is asked for anew
    goOn();                               // as often as one likes
    QTRY_COMPARE(driver->list().count(), 4);
    QVERIFY(seen() == before);
}

void TestSessionControl::oneReturnGoesOn() {
    announceClips(failedJob(), 2);
    start();
    QApplication::setActiveWindow(&driver->window);
    QTRY_VERIFY(offer().hasFocus());
    QCOMPARE(offer().text(), QString("Go on with the last session: 1 recording, 2 clips"));
    QTest::keyClick(driver->window.focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(driver->list().count(), 2);
    QTRY_VERIFY(driver->list().hasFocus());
}

/// As in the recordings' dock, which the button in the status bar sums up.
void TestSessionControl::searchedAgainCountsOnce() {
    Video* first = makeJob(shortRecording);
    search(first);
    QCOMPARE(int(first->state), int(Video::Finished));
    JobRecord record = first->record();
    record.state = Video::Waiting;
    auto* again = new Video(record);
    search(again);
    QCOMPARE(int(again->state), int(Video::Finished));
    failedJob();
    const auto& button = driver->part<QToolButton>("buttonRecordings");
    QTRY_COMPARE(button.text(), QString("Recordings: 2, 1 unreadable"));
    start();
    QTRY_VERIFY(offer().isVisible());
    QVERIFY2(offer().text().contains("2 recordings"), qPrintable(offer().text()));
    QTest::keyClick(&offer(), Qt::Key_Return);
    QTRY_COMPARE(driver->part<QToolButton>("buttonRecordings").text(),
                 QString("Recordings: 2, 1 unreadable"));
}

void TestSessionControl::newSessionReplacesTheLast() {
    announceClips(failedJob(), 2);
    start();
    QTRY_VERIFY(offer().isVisible());
    announceClips(failedJob(), 3);
    QVERIFY(!offer().isVisible());
    goOn();
    QTRY_COMPARE(driver->list().count(), 3);
}

void TestSessionControl::personMayDoWithout() {
    announceClips(failedJob(), 2);
    start();
    QTRY_VERIFY(offer().isVisible());
    driver->part<QToolButton>("toolButtonDoWithout").click();
    QVERIFY(!driver->part<QWidget>("sessionOffer").isVisible());
    goOn(); // it is offered again
    QTRY_COMPARE(driver->list().count(), 2);
}

void TestSessionControl::nothingIsExportedTwice() {
    Video* job = makeJob(shortRecording, true);
    driver->accept(job);
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    QTRY_COMPARE(Clip::exportQueueLength(), 0);
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
    const int calls = encoder->calls().size();
    goOn();
    QTRY_COMPARE(driver->list().count(), 1);
    QVERIFY(driver->clip(0).video->autoExport);
    QTest::qWait(300);
    QCOMPARE(driver->clip(0).status, int(Clip::Exported));
    QCOMPARE(encoder->calls().size(), calls);
}

void TestSessionControl::exportsThatWaitedGoOn() {
    announceClips(failedJob(), 4);
    encoder->hold();
    for (int row = 0; row < 3; ++row)
        driver->clip(row).exportClip(false);
    QTRY_COMPARE(encoder->calls().size(), 1);
    goOn();
    QTRY_COMPARE(driver->list().count(), 4);
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exporting));
    QTRY_COMPARE(driver->clip(2).status, int(Clip::Queued));
    QCOMPARE(driver->clip(3).status, int(Clip::NotExported));
    encoder->release();
    for (int row = 0; row < 3; ++row)
        QTRY_COMPARE(driver->clip(row).status, int(Clip::Exported));
    QCOMPARE(encoder->calls().size(), 4);
}

/// It must not write into the file of the one that is started in its place.
void TestSessionControl::encoderThatOutlivesItsProgram() {
    encoder->hold();
    driver->accept(makeJob(shortRecording, true));
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    QTRY_COMPARE(encoder->calls().size(), 1);
    QCOMPARE(driver->clip(0).status, int(Clip::Queued));
    QFile older(driver->clip(0).outputPath);
    QVERIFY(older.open(QIODevice::ReadWrite));
    goOn();
    QTRY_COMPARE(encoder->calls().size(), 2);
    struct stat file = {};
    QCOMPARE(fstat(older.handle(), &file), 0);
    QCOMPARE(int(file.st_nlink), 0); // the new one has a file of its own
    encoder->release();
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
    QVERIFY(QFile::exists(older.fileName()));
}

void TestSessionControl::onlyFilesOfExportsAreRemoved() {
    Video* job = makeJob(shortRecording);
    job->state = Video::Finished;
    driver->accept(job);
    announceClips(job, 2);
    QFile precious(folder->filePath("precious.txt"));
    QVERIFY(precious.open(QIODevice::WriteOnly));
    driver->clip(0).outputPath = precious.fileName();
    driver->clip(1).outputPath = job->clipDirectory + "/0000.avi"; // of another clip
    QVERIFY(QFile::copy(shortRecording, driver->clip(1).outputPath));
    const QString others = driver->clip(1).outputPath;
    for (int row = 0; row < 2; ++row)
        driver->clip(row).status = Clip::Exporting;
    driver->clip(0).updateText();
    encoder->hold();
    goOn();
    QTRY_COMPARE(encoder->calls().size(), 1);
    QVERIFY(precious.exists() && QFile::exists(others));
}

void TestSessionControl::exportedFileThatIsGone() {
    announceClips(failedJob(true), 2);
    QTRY_COMPARE(Clip::exportQueueLength(), 0);
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    const int calls = encoder->calls().size();
    QVERIFY(QFile::remove(driver->clip(1).outputPath));
    goOn();
    QTRY_COMPARE(driver->list().count(), 2);
    QCOMPARE(driver->clip(0).status, int(Clip::Exported));
    QCOMPARE(driver->clip(1).status, int(Clip::NotExported));
    QVERIFY(driver->clip(1).toolTip().contains("no longer there"));
    QTest::qWait(300);
    QCOMPARE(encoder->calls().size(), calls); // a person may have removed it on purpose
}

/// Its clips would be others now.
void TestSessionControl::recordingThatWasCutOffSince() {
    QFile own(folder->filePath("own.mp4"));
    QVERIFY(QFile::copy(shortRecording, own.fileName()));
    Video* job = makeJob(own.fileName());
    search(job);
    QCOMPARE(int(job->state), int(Video::Finished));
    QTRY_COMPARE(driver->list().count(), 1);
    driver.reset();
    QVERIFY(own.resize(own.size() / 2));
    goOn();
    QTRY_COMPARE(driver->list().count(), 1);
    auto* recordings = driver->window.findChild<QDockWidget*>("dockRecordings");
    recordings->show();
    const QAbstractItemModel* rows =
        recordings->findChild<QAbstractItemView*>("recordings")->model();
    QTRY_COMPARE(rows->index(0, 1).data().toString(), QString("file has changed since, 1 clip"));
}

/// By another one that is as large, between two runs of the program.
void TestSessionControl::recordingThatWasReplacedSince() {
    const QString own = folder->filePath("own.mp4");
    QVERIFY(QFile::copy(shortRecording, own));
    search(makeJob(own));
    QCOMPARE(driver->list().count(), 1);
    driver.reset();
    QFile file(own);
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2));
    QVERIFY(file.write(QByteArray(100, 'x')) == 100);
    file.close();
    goOn();
    QTRY_COMPARE(driver->list().count(), 1);
    driver->part<QDockWidget>("dockRecordings").show();
    const auto* rows = driver->part<QAbstractItemView>("recordings").model();
    QTRY_COMPARE(rows->index(0, 1).data().toString(), QString("file has changed since, 1 clip"));
    driver->clip(0).exportClip(false);
    QTRY_COMPARE(driver->clip(0).status, int(Clip::ExportFailed));
    QCOMPARE(encoder->calls().size(), 0);
}

void TestSessionControl::strengthAndBracketComeBack() {
    Video* job = makeJob(shortRecording);
    search(job);
    QCOMPARE(driver->list().count(), 1);
    QTRY_VERIFY(driver->clip(0).strength > 0.0F);
    const float strength = driver->clip(0).strength;
    Q_EMIT job->newClip(1, {}, driver->clip(0).start + 1.0, driver->clip(0).end + 1.0, 3.0);
    driver->list().selectAll();
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == "menuClips")
            widget->findChild<QAction*>("actionExportJoined")->trigger();
    }
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    const QVariant group = driver->clip(0).data(joinedRole);
    QVERIFY(group.isValid());
    goOn();
    QTRY_COMPARE(driver->list().count(), 2);
    QCOMPARE(driver->clip(0).strength, strength);
    QCOMPARE(driver->clip(1).strength, -1.0F);
    QCOMPARE(driver->clip(0).data(joinedRole), group);
    QCOMPARE(driver->clip(1).data(joinedRole), group);
}

/// A program that crashes then does not search it in its next run.
void TestSessionControl::cancelledWhileAnotherIsSearched() {
    acceptStalled(makeJob(shortRecording));
    Video* waiting = makeJob(shortRecording);
    driver->accept(waiting);
    const auto keptState = [this] {
        QFile file(index());
        SessionIndex kept;
        if (file.open(QIODevice::ReadOnly))
            readSession(file.readAll(), kept);
        return kept.session.jobs.size() == 2 ? kept.session.jobs[1].state : -1;
    };
    QTRY_COMPARE_WITH_TIMEOUT(keptState(), int(Video::Waiting), longMilliseconds);
    QTest::qWait(1500); // until nothing is left to be written
    auto* recordings = driver->window.findChild<RecordingsDock*>();
    recordings->choose(waiting);
    QVERIFY(QMetaObject::invokeMethod(recordings, "cancelThis"));
    QTRY_COMPARE(keptState(), int(Video::CancelRequested));
    gate.unlock();
}

void TestSessionControl::whatCouldNotBeOpenedComesBack() {
    const QString broken = folder->filePath("broken.mp4");
    QVERIFY(writeFile(broken, QByteArray(5000, '\x7f')));
    driver->setup.addFiles({broken, shortRecording});
    QTRY_VERIFY(driver->setup.isVisible());
    driver->setupPart<QLineEdit>("lineEditDir").setText(folder->path());
    driver->clickSetup("pushButtonAdd");
    const auto seen = [this] { return driver->part<QToolButton>("buttonRecordings").text(); };
    QTRY_COMPARE(seen(), QString("Recordings: 2, 1 unreadable"));
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    goOn();
    QTRY_COMPARE(driver->list().count(), 1);
    QTRY_COMPARE(seen(), QString("Recordings: 2, 1 unreadable"));
}

void TestSessionControl::waitingRecordingsAreSearched() {
    driver->setup.readyVideos.append(makeJob(longRecording));
    driver->accept(makeJob(shortRecording));
    driver->setup.readyVideos.append(makeJob(shortRecording));
    driver->click("pushButtonCancel"); // all but the last one
    driver->accept(makeJob(shortRecording));
    driver.reset();

    goOn();
    // Two were cancelled, the first one perhaps with clips already, and two waited.
    const auto searchedToTheEnd = [this] {
        QSet<const Video*> jobs;
        for (int row = 0; row < driver->list().count(); ++row) {
            if (driver->clip(row).video->state == Video::Finished)
                jobs.insert(driver->clip(row).video);
        }
        return jobs.size();
    };
    QTRY_COMPARE_WITH_TIMEOUT(searchedToTheEnd(), 2, longMilliseconds);
    QTRY_VERIFY(!driver->action("actionCancel").isEnabled());
}

void TestSessionControl::runningRecordingIsSearchedFromItsStart() {
    Video* job = makeJob(mediumRecording);
    driver->accept(job);
    QTRY_VERIFY_WITH_TIMEOUT(driver->list().count() >= 5, longMilliseconds);
    QVERIFY(!job->hasEnded());
    driver->clip(1).exportClip(false);
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    const QString exported = driver->clip(1).outputPath;
    const QVector<SeenClip> before = seen();
    driver.reset();

    goOn();
    QTRY_VERIFY(driver->list().count() >= before.size());
    QVERIFY(seen().mid(0, 5) == before.mid(0, 5)); // listed at once
    tick();
    QTRY_VERIFY_WITH_TIMEOUT(!driver->action("actionCancel").isEnabled(), longMilliseconds);
    QTRY_COMPARE(int(driver->clip(0).video->state), int(Video::Finished));
    QTest::qWait(100); // what it has announced
    const auto found = spans();
    QSet<int> numbers;
    for (int row = 0; row < driver->list().count(); ++row)
        numbers.insert(driver->clip(row).index);
    QCOMPARE(numbers.size(), found.size());
    QCOMPARE(*std::max_element(numbers.cbegin(), numbers.cend()), found.size() - 1);
    QCOMPARE(driver->clip(1).outputPath, exported);
    QCOMPARE(driver->clip(1).status, int(Clip::Exported));

    // It is what one search finds.
    driver->trigger("actionRemoveAll");
    Video* fresh = makeJob(mediumRecording);
    driver->accept(fresh);
    QTRY_COMPARE_WITH_TIMEOUT(int(fresh->state), int(Video::Finished), longMilliseconds);
    QTRY_COMPARE(driver->list().count(), found.size());
    QVERIFY(spans() == found);
}

/// The search has ended, and nobody has heard of its clip yet.
void TestSessionControl::clipsThatAreOnTheirWayAreFoundAgain() {
    Video* job = makeJob(shortRecording);
    driver->accept(job);
    const QDeadlineTimer patience(longMilliseconds);
    while (job->state != Video::Finished && !patience.hasExpired())
        QTest::qSleep(5);
    QCOMPARE(int(job->state), int(Video::Finished));
    QCOMPARE(driver->list().count(), 0);
    goOn();
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
}

void TestSessionControl::clipsOfAnUnfinishedSearchThatAreNotFoundAgain() {
    Video* job = makeJob(mediumRecording);
    driver->accept(job);
    QTRY_COMPARE(int(job->state), int(Video::Running));
    QImage snapshot(320, 240, QImage::Format_RGB32);
    snapshot.fill(Qt::red);
    Q_EMIT job->newClip(1000, snapshot, 1.5, 2.5, 2.0); // as with other settings
    Q_EMIT job->newClip(1001, snapshot, 3.5, 4.5, 4.0);
    for (int row = 0; row < driver->list().count(); ++row) {
        if (driver->clip(row).index == 1001)
            driver->clip(row).exportClip(false);
    }
    QTRY_COMPARE(Clip::exportQueueLength(), 0);
    QTRY_COMPARE(encoder->calls().size(), 1);
    QVERIFY(!job->hasEnded());
    driver.reset();

    goOn();
    const auto find = [this](int index) {
        QPointer<Clip> found;
        for (int row = 0; row < driver->list().count(); ++row) {
            if (driver->clip(row).index == index)
                found = &driver->clip(row);
        }
        return found;
    };
    QTRY_VERIFY(find(1000) && find(1001));
    const QPointer<Clip> idle = find(1000);
    const QPointer<Clip> exported = find(1001);
    Video* again = exported->video;
    QTRY_COMPARE_WITH_TIMEOUT(int(again->state), int(Video::Finished), longMilliseconds);
    QTRY_VERIFY(!idle);
    QVERIFY(exported);
    QCOMPARE(exported->status, int(Clip::Exported));
    QSet<int> numbers;
    for (int row = 0; row < driver->list().count(); ++row)
        numbers.insert(driver->clip(row).index);
    QCOMPARE(numbers.size(), driver->list().count()); // no file is written twice
}

void TestSessionControl::cancelCanBeTakenBack() {
    Video* running = makeJob(mediumRecording);
    driver->setup.readyVideos.append(running);
    Video* waiting = makeJob(shortRecording);
    driver->accept(waiting);
    QTRY_VERIFY_WITH_TIMEOUT(driver->list().count() >= 3, longMilliseconds);
    driver->trigger("actionCancel");
    QVERIFY(running->hasEnded() && waiting->hasEnded());
    QMetaObject::invokeMethod(driver->window.findChild<QDockWidget*>("dockRecordings"),
                              "restAsked");
    QVERIFY(running->isSuperseded && waiting->isSuperseded);
    tick();
    QTRY_VERIFY_WITH_TIMEOUT(!driver->action("actionCancel").isEnabled(), longMilliseconds);
    QTest::qWait(100); // what they have announced
    QSet<QString> captions;
    for (int row = 0; row < driver->list().count(); ++row) {
        Clip& clip = driver->clip(row);
        QVERIFY(clip.video != running && clip.video != waiting);
        QCOMPARE(int(clip.video->state), int(Video::Finished));
        captions.insert(clip.text());
    }
    QCOMPARE(captions.size(), driver->list().count());
    const QVector<SeenClip> before = seen();
    goOn();
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), before.size(), longMilliseconds);
    QVERIFY(seen() == before);
    QVERIFY(!driver->action("actionCancel").isEnabled());
}

void TestSessionControl::crashLosesNothing() {
    announceClips(failedJob(), 3);
    const QVector<SeenClip> before = seen();
    QTRY_VERIFY(QFile::exists(index()));
    QTest::qWait(1500);
    // As it lies on the disk while the program still runs.
    QTemporaryDir copy;
    QVERIFY(QDir().mkpath(copy.filePath("kestrova")));
    QCOMPARE(QProcess::execute("cp", {"-r", data("kestrova/kestrova"), copy.filePath("kestrova")}),
             0);
    driver.reset();
    qputenv("XDG_DATA_HOME", QFile::encodeName(copy.path()));
    goOn();
    QTRY_COMPARE(driver->list().count(), 3);
    QVERIFY(seen() == before);
    driver.reset();
}

void TestSessionControl::secondWindowKeepsNone() {
    announceClips(failedJob(), 3);
    QTRY_VERIFY(QFile::exists(index()));
    MainWindow second;
    second.keepSession();
    auto* statusBar = second.findChild<QStatusBar*>("statusBar");
    QTRY_COMPARE(statusBar->currentMessage(),
                 QString("Another window of this program keeps its session; this one's is not "
                         "kept"));
    QVERIFY(second.findChild<QWidget*>("sessionOffer")->isHidden());
}

void TestSessionControl::damagedSessionIsTold() {
    announceClips(failedJob(), 3);
    driver.reset();
    QFile file(index());
    QVERIFY(file.resize(file.size() / 2));
    start();
    const QString aside = data("kestrova/kestrova/session.damaged-1");
    QTRY_COMPARE(driver->part<QStatusBar>("statusBar").currentMessage(),
                 QString("The last session is damaged, and was put aside: " + aside));
    QVERIFY(!offer().isVisible());
    QVERIFY(QFile::exists(aside + "/index"));
}

void TestSessionControl::manyClipsComeALittleAtATime() {
    announceClips(failedJob(), 3000);
    goOn();
    int steps = 0;
    int last = 0;
    connect(driver->list().model(), &QAbstractItemModel::rowsInserted, this, [&] {
        QTimer::singleShot(0, &driver->list(), [&] {
            steps += driver->list().count() > last ? 1 : 0;
            last = driver->list().count();
        });
    });
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 3000, longMilliseconds);
    QVERIFY2(steps > 1, qPrintable(QString::number(steps))); // the window answered between
    QTRY_COMPARE_WITH_TIMEOUT(last, 3000, longMilliseconds);
}

/// Of a recording that was being searched, and is searched on.
void TestSessionControl::clipsAreRemovedWhileTheyCome() {
    constexpr int many = 3000; // hundreds are listed in one go
    Video* job = makeJob(mediumRecording);
    driver->accept(job);
    QTRY_COMPARE(int(job->state), int(Video::Running));
    QImage snapshot(320, 240, QImage::Format_RGB32);
    snapshot.fill(Qt::red);
    for (int i = 0; i < many; ++i)
        Q_EMIT job->newClip(1000 + i, snapshot, 10000.0 + i, 10000.5 + i, 10000.2 + i);
    driver.reset();

    goOn();
    QSignalSpy inserted(driver->list().model(), SIGNAL(rowsInserted(QModelIndex, int, int)));
    while (driver->list().count() < 100)
        QVERIFY(inserted.wait(longMilliseconds)); // ends with the first rows, not some time later
    QVERIFY(driver->list().count() < many);
    driver->trigger("actionRemoveAll");
    const auto isSearching = [this] {
        tick();
        return driver->action("actionCancel").isEnabled();
    };
    QTRY_VERIFY_WITH_TIMEOUT(isSearching(), longMilliseconds);
    QTRY_VERIFY_WITH_TIMEOUT(!driver->action("actionCancel").isEnabled(), longMilliseconds);
    for (int row = 0; row < driver->list().count(); ++row)
        QVERIFY(driver->clip(row).start < 10000.0); // what was not found again is gone
}

QTEST_MAIN(TestSessionControl)
#include "test_sessioncontrol.moc"
