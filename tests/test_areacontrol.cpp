// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "areaoverlay.h"
#include "mouse.h"
#include "windowtest.h"

#include <QDockWidget>
#include <QToolButton>

/// The area on the player's picture and the window's list: a recording with one clip at the left
/// and one at the right.
class TestAreaControl : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { close(); }

    void clipsWithoutMotionThereLeaveTheList();
    void otherRecordingsStayListed();
    void allOfTheCameraAreJudged();
    void otherSizesAreNotOfTheCamera();
    void clearShowsAll();
    void removeAllRemovesAll();
    void hiddenClipsAreNotSelected();
    void recordingWithoutMapsStaysListed();
    void recordingThatIsSearchedLaterIsJudgedThen();
    void areaStaysWithWhatIsSearchedAgain();
    void sortedListIsJudgedAsBefore();
    void dockIsLeftInTime();

private:
    void search(const QStringList& files);
    void draw(const QRect& pixels);
    QStringList shown();
    QString label() { return driver->part<QLabel>("labelArea").text(); }
    QToolButton& button(const char* name) { return driver->part<QToolButton>(name); }
    AreaOverlay& overlay() { return driver->part<AreaOverlay>("areaOverlay"); }

    QString visits;
    QString again; ///< the same at another place
};

void TestAreaControl::initTestCase() {
    makeRecordings();
    visits = recordings.filePath("visits.mkv");
    again = recordings.filePath("again.mkv");
    QVERIFY(media::encode(media::twoVisits() + QStringList{"-c:v", "ffv1", visits}));
    QVERIFY(QFile::copy(visits, again));
}

void TestAreaControl::init() {
    open();
    driver->window.activateWindow();
    driver->part<QDockWidget>("dockPlayer").show();
}

void TestAreaControl::search(const QStringList& files) {
    QList<Video*> jobs;
    for (const QString& file : files) {
        jobs.append(makeJob(file));
        driver->accept(jobs.last());
    }
    for (const Video* job : jobs)
        QTRY_VERIFY_WITH_TIMEOUT(job->hasEnded(), longMilliseconds);
    QCoreApplication::processEvents();
    driver->list().setCurrentRow(0);
}

/// As a person does once the first picture is there.
void TestAreaControl::draw(const QRect& pixels) {
    if (!overlay().isDrawing())
        button("buttonArea").click();
    QVERIFY(overlay().isDrawing());
    const auto hasPicture = [this] { // with black above and below
        return qGray(overlay().grab().toImage().pixel(overlay().width() / 2, 1)) == 0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(hasPicture(), longMilliseconds);
    const double scale = std::min(overlay().width() / 320.0, overlay().height() / 240.0);
    const QPointF corner((overlay().width() - 320 * scale) / 2,
                         (overlay().height() - 240 * scale) / 2);
    const auto at = [&](const QPoint& pixel) {
        return (corner + QPointF(pixel) * scale).toPoint();
    };
    mouse::stroke(overlay(), {at(pixels.topLeft()), at(pixels.bottomRight())});
    QVERIFY(!overlay().area().isEmpty());
}

QStringList TestAreaControl::shown() {
    QStringList names;
    for (int row = 0; row < driver->list().count(); ++row) {
        const Clip& clip = driver->clip(row);
        if (!clip.isHidden())
            names.append(clip.video->shortFileName().left(1) + QString::number(clip.index));
    }
    return names;
}

void TestAreaControl::clipsWithoutMotionThereLeaveTheList() {
    search({visits});
    QCOMPARE(shown(), QStringList({"v0", "v1"}));
    draw({170, 40, 150, 160});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1"}), longMilliseconds);
    QTRY_COMPARE(label(), QString("Area: 1 of 2 clips"));
    QTest::keyClick(driver->window.windowHandle(), Qt::Key_Delete); // the area, and no clip
    QTRY_COMPARE(shown(), QStringList({"v0", "v1"}));
    draw({0, 40, 150, 160});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v0"}), longMilliseconds);
    draw({0, 0, 320, 30});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList(), longMilliseconds);
    QTRY_COMPARE(label(), QString("Area: 0 of 2 clips"));
}

void TestAreaControl::otherRecordingsStayListed() {
    search({visits, again});
    draw({170, 40, 150, 160});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1", "a0", "a1"}), longMilliseconds);
    QCOMPARE(label(), QString("Area: 1 of 2 clips"));
}

void TestAreaControl::allOfTheCameraAreJudged() {
    search({visits, again});
    draw({170, 40, 150, 160});
    driver->part<QCheckBox>("checkBoxAllOfCamera").click();
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1", "a1"}), longMilliseconds);
    QTRY_COMPARE(label(), QString("Area: 2 of 4 clips"));
    driver->part<QCheckBox>("checkBoxAllOfCamera").click();
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1", "a0", "a1"}), longMilliseconds);
}

void TestAreaControl::otherSizesAreNotOfTheCamera() {
    search({visits, shortRecording});
    driver->part<QCheckBox>("checkBoxAllOfCamera").click();
    draw({0, 0, 320, 30});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"s0"}), longMilliseconds);
    QTRY_COMPARE(label(), QString("Area: 0 of 2 clips"));
}

void TestAreaControl::clearShowsAll() {
    search({visits});
    draw({170, 40, 150, 160});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1"}), longMilliseconds);
    button("buttonClearArea").click();
    QCOMPARE(shown(), QStringList({"v0", "v1"}));
    QVERIFY(overlay().area().isEmpty() && !overlay().isDrawing());
    QVERIFY(!button("buttonClearArea").isEnabled());
    QVERIFY(label().isEmpty());
}

void TestAreaControl::hiddenClipsAreNotSelected() {
    search({visits});
    driver->list().selectAll();
    draw({170, 40, 150, 160});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1"}), longMilliseconds);
    driver->trigger("actionRemoveSelected");
    QCOMPARE(driver->list().count(), 1);
    button("buttonClearArea").click();
    QCOMPARE(shown(), QStringList({"v0"}));
}

void TestAreaControl::recordingWithoutMapsStaysListed() {
    announceClips(failedJob(), 1);
    Video* gone = makeJob(shortRecording);
    gone->state = Video::Finished; // never searched
    driver->accept(gone);
    gone->fileName = recordings.filePath("long.mp4");
    announceClips(gone, 2);
    driver->list().setCurrentRow(1);
    draw({20, 20, 60, 60});
    QTRY_COMPARE_WITH_TIMEOUT(label(), QString("No maps of this recording are kept"),
                              longMilliseconds);
    QCOMPARE(shown().size(), 3);
}

void TestAreaControl::recordingThatIsSearchedLaterIsJudgedThen() {
    search({visits});
    driver->part<QCheckBox>("checkBoxAllOfCamera").click();
    draw({170, 40, 150, 160});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1"}), longMilliseconds);
    driver->accept(makeJob(again));
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1", "a1"}), longMilliseconds);
    QTRY_COMPARE(label(), QString("Area: 2 of 4 clips"));
}

void TestAreaControl::areaStaysWithWhatIsSearchedAgain() {
    search({visits, again});
    draw({170, 40, 150, 160});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1", "a0", "a1"}), longMilliseconds);
    JobRecord record = driver->clip(0).video->record();
    record.state = Video::Waiting;
    driver->accept(new Video(record));
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"a0", "a1", "v3"}), longMilliseconds);
    QTRY_COMPARE(label(), QString("Area: 1 of 2 clips"));
    button("buttonClearArea").click();
    QCOMPARE(shown(), QStringList({"a0", "a1", "v2", "v3"}));
}

void TestAreaControl::sortedListIsJudgedAsBefore() {
    search({visits});
    draw({170, 40, 150, 160});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1"}), longMilliseconds);
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == "menuSort")
            widget->findChild<QAction*>("actionSortLength")->trigger();
    }
    QCOMPARE(shown(), QStringList({"v1"}));
}

void TestAreaControl::removeAllRemovesAll() {
    search({visits});
    draw({170, 40, 150, 160});
    QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"v1"}), longMilliseconds);
    driver->trigger("actionRemoveAll");
    QCOMPARE(driver->list().count(), 0);
    QVERIFY(overlay().area().isEmpty());
}

/// Closed while a first picture is read and an area is looked for.
void TestAreaControl::dockIsLeftInTime() {
    search({visits});
    draw({170, 40, 150, 160});
    QElapsedTimer timer;
    timer.start();
    driver.reset();
    QVERIFY(timer.elapsed() < 3000);
    driver = std::make_unique<MainWindowDriver>();
}

QTEST_MAIN(TestAreaControl)
#include "test_areacontrol.moc"
