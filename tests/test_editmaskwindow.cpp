// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editorplacement.h"
#include "leftoutfiles.h"
#include "media.h"
#include "modaldialog.h"
#include "setupwindow.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <pthread.h>
#include <sys/stat.h>

namespace {

constexpr int longMilliseconds = 120000;
constexpr int manyFiles = 3000;

const QStringList keys = {
    "do_export",         "export_dir", "export_minimum", "export_postrecord", "export_prerecord",
    "export_timestamps", "skip"};

bool isBusy() {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::BusyCursor;
}

/// As long as it exists no thread can be made: each asks for more stack than there are addresses.
class NoMoreThreads {
public:
    NoMoreThreads() {
        pthread_getattr_default_np(&before);
        pthread_attr_t wanted = before;
        pthread_attr_setstacksize(&wanted, std::size_t(1) << 50);
        pthread_setattr_default_np(&wanted);
    }
    ~NoMoreThreads() { pthread_setattr_default_np(&before); }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;

private:
    pthread_attr_t before = {};
};

/// Fails the export folder check; answers what the box said, or nothing if there was none.
QString messageOnClick(SetupWindow& window, const char* button) {
    QString message;
    const ModalAnswer answer([&](QDialog& dialog) {
        const auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (box && box->icon() == QMessageBox::Critical &&
            box->standardButtons() == QMessageBox::Ok && !box->parent())
            message = box->windowTitle() + ": " + box->text();
    });
    window.click(button);
    return message;
}

} // namespace

class TestEditMaskWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void showsTheFirstPictureOfAFile();
    void addMakesAJobAndShowsTheNextFile();
    void relativeExportFolderStaysWhereItIs();
    void jobCarriesTheOptions();
    void jobWithoutRegionHasNoMask();
    void jobWithARectangleHasMaskAndRectangle();
    void jobWithFreeShapesHasTheMaskOnly();
    void jobKeepsItsRegion();
    void addAllGivesEveryFileTheSameRegion();
    void nextFileStartsWithModeAndOptionsButAnEmptyMask();
    void cancelDiscardsTheNextFileToo();
    void cancelWithNothingPendingHides();
    void everythingIsDiscarded_data();
    void everythingIsDiscarded();
    void escapeDuringAStrokeDropsIt();
    void addedFileDuringAStrokeDropsIt();
    void addDuringAStrokeDropsIt();
    void escapeWorksFromEveryControl();
    void otherKeysAreLeftAlone();
    void enterAddsAtFirst();
    void addedFilesReplaceTheOneShown();
    void replacedFilesAreLeftOut();
    void queuedFilesLeaveTheOneShown();
    void filesAreCounted();
    void regionOfAnEarlierFileIsNamed_data();
    void regionOfAnEarlierFileIsNamed();
    void emptyListDropsTheFileShown();
    void emptyListGoesOnWithThePendingFiles();
    void unreadableFilesAreSkipped_data();
    void unreadableFilesAreSkipped();
    void manyUnreadableFilesNeedNoStack();
    void windowAnswersDuringALongSearch();
    void nothingIsOnShowDuringALongSearch();
    void longSearchThatFindsNothingHides();
    void longSearchNeedsNoThread();
    void filesAddedDuringALongSearchJoinIt();
    void longSearchEndsWithEverything_data();
    void longSearchEndsWithEverything();
    void longSearchWaitsForAModalDialog();
    void badExportFolderChangesNothing_data();
    void badExportFolderChangesNothing();
    void exportFolderCanBeChosen();
    void choosingNoFolderKeepsTheText();
    void regionButtonsFollowTheEditor();
    void modeSwitchClearsTheMask();
    void startTimeIsEnabledWithTimestamps();
    void uncollectedJobsAreFreed();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    QStringList unreadable() const;
    void makeRecording(const QString& name, int width, int height);

    QTemporaryDir folder;
    QString exports;
};

/// More files without a picture than can be looked at in one go.
QStringList TestEditMaskWindow::unreadable() const {
    QStringList paths;
    for (int i = 0; i < manyFiles; ++i)
        paths.append(path("text.avi"));
    return paths;
}

void TestEditMaskWindow::makeRecording(const QString& name, int width, int height) {
    const QImage picture = media::grey(width, height, 90);
    QVERIFY(media::encodeGrey(path(name), {picture, picture}, 5, {"-c:v", "mjpeg"}));
}

void TestEditMaskWindow::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    makeRecording("a.avi", 320, 240);
    makeRecording("b.avi", 160, 200);
    makeRecording("c.avi", 640, 120);
    makeRecording("d.avi", 64, 64);
    QVERIFY(QDir().mkpath(path("folder")));
    QFile text(path("text.avi"));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("no video\n");
    QFile empty(path("empty.avi"));
    QVERIFY(empty.open(QIODevice::WriteOnly));
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe.avi")).constData(), 0600), 0);
    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine", "-t", "1", path("sound.wav")}));
}

void TestEditMaskWindow::init() {
    exports = path(QStringLiteral("exports-") + QTest::currentTestFunction());
    QVERIFY(QDir().mkpath(exports));
    QSettings().clear();
    QSettings().setValue("export_dir", exports);
}

void TestEditMaskWindow::showsTheFirstPictureOfAFile() {
    SetupWindow window;
    QVERIFY(!window.isVisible());
    window.addFile(path("a.avi"));
    QVERIFY(window.isVisible());
    QCOMPARE(window.shownFile(), path("a.avi"));
    const QColor middle = window.editor().grab().toImage().pixelColor(window.editor().width() / 2,
                                                                      window.editor().height() / 2);
    QVERIFY(std::abs(middle.red() - 90) < 5 && std::abs(middle.green() - 90) < 5);
    window.editor().invert();
    QCOMPARE(window.editor().mask()->size(), QSize(320, 240));
}

void TestEditMaskWindow::addMakesAJobAndShowsTheNextFile() {
    SetupWindow window;
    const QSignalSpy accepted(&window, SIGNAL(newVideo()));
    window.addFiles({path("a.avi"), path("b.avi")});
    // By then the next file is shown.
    QString shownAtSignal;
    connect(&window, &EditMaskWindow::newVideo, this, [&] { shownAtSignal = window.shownFile(); });
    window.click("pushButtonAdd");
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(shownAtSignal, path("b.avi"));
    QVERIFY(window.isVisible());
    window.click("pushButtonAdd");
    QCOMPARE(accepted.count(), 2);
    QVERIFY(!window.isVisible());
    const auto jobs = window.takeJobs();
    QCOMPARE(int(jobs.size()), 2);
    QCOMPARE(jobs[0]->fileName, path("a.avi"));
    QCOMPARE(jobs[1]->fileName, path("b.avi"));
    QCOMPARE(jobs[1]->clipDirectory, exports + "/b_avi_0");
    QVERIFY(QDir(jobs[1]->clipDirectory).exists());
}

void TestEditMaskWindow::relativeExportFolderStaysWhereItIs() {
    const QString start = QDir(exports).filePath("start");
    QVERIFY(QDir().mkpath(start + "/out"));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(start));
    SetupWindow window;
    window.addFiles({path("a.avi"), path("b.avi")});
    window.setExportDirectory("out");
    window.click("pushButtonAdd");
    QVERIFY(QDir::setCurrent("/")); // an export goes elsewhere
    window.click("pushButtonAdd");
    QVERIFY(QDir::setCurrent(before));
    const auto jobs = window.takeJobs();
    QCOMPARE(int(jobs.size()), 2);
    QCOMPARE(jobs[0]->clipDirectory, start + "/out/a_avi_0");
    QCOMPARE(jobs[1]->clipDirectory, start + "/out/b_avi_0");
    QVERIFY(QDir(jobs[1]->clipDirectory).exists());
    QCOMPARE(QSettings().value("export_dir").toString(), QString("out"));
}

void TestEditMaskWindow::jobCarriesTheOptions() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    window.get<QDoubleSpinBox>("doubleSpinBoxPrerecord").setValue(2.5);
    window.get<QDoubleSpinBox>("doubleSpinBoxPostrecord").setValue(3.25);
    window.get<QDoubleSpinBox>("doubleSpinBoxMinimum").setValue(7.0);
    window.get<QSpinBox>("spinBoxSkip").setValue(4);
    QTest::keyClick(&window.get<QCheckBox>("checkBoxExport"), Qt::Key_Space);
    QTest::keyClick(&window.get<QCheckBox>("checkBoxExportTimestamp"), Qt::Key_Space);
    const QDateTime start({2021, 3, 28}, {2, 30, 15}, Qt::UTC);
    window.get<QDateTimeEdit>("dateTimeEdit").setDateTime(start);
    window.click("pushButtonAdd");
    const auto jobs = window.takeJobs();
    QCOMPARE(int(jobs.size()), 1);
    QCOMPARE(jobs[0]->prerecord, 2.5);
    QCOMPARE(jobs[0]->postrecord, 3.25);
    QCOMPARE(jobs[0]->minimum, 7.0);
    QCOMPARE(jobs[0]->skip, 4);
    QCOMPARE(jobs[0]->autoExport, true);
    QCOMPARE(jobs[0]->exportTimestamps, true);
    QCOMPARE(jobs[0]->startDateTime, start);
    QCOMPARE(jobs[0]->startDateTime.timeSpec(), Qt::UTC);
    QCOMPARE(QSettings().allKeys(), keys);
    QCOMPARE(QSettings().value("export_prerecord").toDouble(), 2.5);
    QCOMPARE(QSettings().value("export_postrecord").toDouble(), 3.25);
    QCOMPARE(QSettings().value("export_minimum").toDouble(), 7.0);
    QCOMPARE(QSettings().value("skip").toInt(), 4);
    QCOMPARE(QSettings().value("do_export").toBool(), true);
    QCOMPARE(QSettings().value("export_timestamps").toBool(), true);
    QCOMPARE(QSettings().value("export_dir").toString(), exports);
}

void TestEditMaskWindow::jobWithoutRegionHasNoMask() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    window.click("pushButtonAdd");
    const auto jobs = window.takeJobs();
    QVERIFY(!jobs.at(0)->mask);
    QVERIFY(!jobs.at(0)->roiRect);
    QVERIFY(!jobs.at(0)->autoExport);
    QVERIFY(!jobs.at(0)->exportTimestamps);
}

void TestEditMaskWindow::jobWithARectangleHasMaskAndRectangle() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    const EditorPlacement placement({320, 240}, window.editor().size());
    const QPoint from = placement.toWidget({40, 50});
    const QPoint to = placement.toWidget({200, 150});
    mouse::stroke(window.editor(), {from, to});
    window.click("pushButtonAdd");
    const auto jobs = window.takeJobs();
    QVERIFY(jobs.at(0)->mask && jobs[0]->roiRect);
    QCOMPARE(*jobs[0]->roiRect, placement.rectangle(from, to));
    QCOMPARE(*jobs[0]->mask, maskOf({320, 240}, *jobs[0]->roiRect));
}

void TestEditMaskWindow::jobWithFreeShapesHasTheMaskOnly() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    window.setFreeMode();
    window.draw({{300, 300}, {600, 350}, {450, 700}});
    const QImage drawn = *window.editor().mask();
    window.click("pushButtonAdd");
    const auto jobs = window.takeJobs();
    QVERIFY(jobs.at(0)->mask && !jobs[0]->roiRect);
    QCOMPARE(*jobs[0]->mask, drawn);
}

void TestEditMaskWindow::jobKeepsItsRegion() {
    SetupWindow window;
    window.addFiles({path("a.avi"), path("a.avi")});
    window.draw({{300, 300}, {600, 600}});
    const QImage drawn = *window.editor().mask();
    const QRect rectangle = *window.editor().roiRect();
    window.click("pushButtonAdd");
    window.draw({{400, 400}, {500, 500}});
    window.editor().invert();
    const auto jobs = window.takeJobs();
    QCOMPARE(*jobs.at(0)->mask, drawn);
    QCOMPARE(*jobs.at(0)->roiRect, rectangle);
}

void TestEditMaskWindow::addAllGivesEveryFileTheSameRegion() {
    SetupWindow window;
    const QSignalSpy accepted(&window, SIGNAL(newVideo()));
    window.addFiles({path("a.avi"), path("b.avi"), path("text.avi"), path("c.avi")});
    window.draw({{300, 300}, {600, 600}});
    window.get<QSpinBox>("spinBoxSkip").setValue(6);
    const QImage drawn = *window.editor().mask();
    window.click("pushButtonAddAll");
    QCOMPARE(accepted.count(), 1);
    QVERIFY(!window.isVisible());
    const auto jobs = window.takeJobs();
    QStringList names;
    for (const auto& job : jobs) {
        names.append(job->shortFileName());
        QCOMPARE(*job->mask, drawn);
        QCOMPARE(job->mask->size(), QSize(320, 240));
        QVERIFY(job->roiRect);
    }
    QCOMPARE(names, QStringList({"a.avi", "b.avi", "text.avi", "c.avi"}));
    QCOMPARE(QSettings().allKeys(), keys);
    QCOMPARE(QSettings().value("skip").toInt(), 6);
}

void TestEditMaskWindow::nextFileStartsWithModeAndOptionsButAnEmptyMask() {
    SetupWindow window;
    window.addFiles({path("a.avi"), path("b.avi")});
    window.get<QSpinBox>("spinBoxSkip").setValue(9);
    window.draw({{300, 300}, {600, 600}});
    const QRect rectangle = *window.editor().roiRect();
    window.click("pushButtonAdd");
    QCOMPARE(window.get<QSpinBox>("spinBoxSkip").value(), 9);
    QVERIFY(window.editor().hasRoi());
    QVERIFY(window.isEnabled("pushButtonClear"));
    QCOMPARE(*window.editor().mask(), maskOf({160, 200}, QRect()));
    // Who adds it untouched gets the empty mask and the rectangle of the file before.
    window.click("pushButtonAdd");
    const auto jobs = window.takeJobs();
    QCOMPARE(*jobs.at(1)->mask, maskOf({160, 200}, QRect()));
    QCOMPARE(*jobs.at(1)->roiRect, rectangle);
}

void TestEditMaskWindow::cancelDiscardsTheNextFileToo() {
    SetupWindow window;
    const QSignalSpy accepted(&window, SIGNAL(newVideo()));
    window.addFiles({path("a.avi"), path("b.avi"), path("c.avi")});
    window.click("pushButtonCancel");
    QCOMPARE(window.shownFile(), path("c.avi"));
    QVERIFY(window.isVisible());
    window.addFiles({path("a.avi"), path("b.avi")});
    window.click("pushButtonCancel");
    QVERIFY(!window.isVisible());
    QCOMPARE(accepted.count(), 0);
    QVERIFY(window.readyVideos.isEmpty());
}

void TestEditMaskWindow::cancelWithNothingPendingHides() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    window.click("pushButtonCancel");
    QVERIFY(!window.isVisible());
    QVERIFY(window.readyVideos.isEmpty());
}

void TestEditMaskWindow::everythingIsDiscarded_data() {
    QTest::addColumn<QString>("how");
    for (const char* how : {"button", "Escape", "close"})
        QTest::newRow(how) << QString(how);
}

void TestEditMaskWindow::everythingIsDiscarded() {
    QFETCH(QString, how);
    SetupWindow window;
    window.addFiles({path("a.avi"), path("b.avi"), path("c.avi")});
    if (how == "button")
        window.click("pushButtonCancelAll");
    else if (how == "Escape")
        QTest::keyClick(&window, Qt::Key_Escape);
    else
        QVERIFY(window.close());
    QVERIFY(!window.isVisible());
    QVERIFY(window.readyVideos.isEmpty());
    // Nothing of it comes back with the next file.
    window.addFile(path("d.avi"));
    window.click("pushButtonCancel");
    QVERIFY(!window.isVisible());
}

void TestEditMaskWindow::escapeDuringAStrokeDropsIt() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    const QPoint centre = window.editor().rect().center();
    mouse::press(window.editor(), centre);
    mouse::move(window.editor(), centre + QPoint(100, 100));
    QTest::keyClick(&window, Qt::Key_Escape);
    QVERIFY(!window.isVisible());
    QVERIFY(!window.editor().hasRoi());
    window.addFile(path("b.avi"));
    const QImage untouched = window.editor().grab().toImage();
    mouse::move(window.editor(), centre + QPoint(150, 150));
    mouse::release(window.editor(), centre + QPoint(150, 150));
    QCOMPARE(window.editor().grab().toImage(), untouched);
    window.click("pushButtonAdd");
    const auto jobs = window.takeJobs();
    QVERIFY(!jobs.at(0)->mask && !jobs[0]->roiRect);
}

void TestEditMaskWindow::addedFileDuringAStrokeDropsIt() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    const QPoint centre = window.editor().rect().center();
    mouse::press(window.editor(), centre);
    window.addFile(path("b.avi"));
    mouse::release(window.editor(), centre + QPoint(100, 100));
    QVERIFY(!window.editor().hasRoi());
    QVERIFY(!window.isEnabled("pushButtonClear"));
}

void TestEditMaskWindow::addDuringAStrokeDropsIt() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    mouse::press(window.editor(), window.editor().rect().center());
    window.get<QPushButton>("pushButtonAdd").click(); // with the keyboard
    const auto jobs = window.takeJobs();
    QVERIFY(!jobs.at(0)->mask && !jobs[0]->roiRect);
}

void TestEditMaskWindow::escapeWorksFromEveryControl() {
    SetupWindow window;
    int controls = 0;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (!(control->focusPolicy() & Qt::TabFocus) || control->focusProxy())
            continue;
        window.addFile(path("a.avi"));
        if (!control->isVisible())
            continue;
        control->setEnabled(true);
        QTest::keyClick(control, Qt::Key_Escape);
        QVERIFY2(!window.isVisible(), qPrintable(control->objectName()));
        ++controls;
    }
    QCOMPARE(controls, 16);
}

void TestEditMaskWindow::otherKeysAreLeftAlone() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_Escape}) {
        QKeyEvent event(QEvent::KeyPress, key, {});
        QApplication::sendEvent(&window, &event);
        QCOMPARE(event.isAccepted(), key == Qt::Key_Escape);
        QCOMPARE(window.isVisible(), key != Qt::Key_Escape);
    }
}

void TestEditMaskWindow::enterAddsAtFirst() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    QCOMPARE(int(window.takeJobs().size()), 1);
}

void TestEditMaskWindow::addedFilesReplaceTheOneShown() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    window.addFile(path("b.avi"));
    QCOMPARE(window.shownFile(), path("b.avi"));
    window.addFiles({path("c.avi"), path("d.avi")});
    QCOMPARE(window.shownFile(), path("c.avi"));
    window.addFile(path("a.avi")); // behind d.avi
    QCOMPARE(window.shownFile(), path("d.avi"));
    window.click("pushButtonAddAll");
    const auto jobs = window.takeJobs();
    QCOMPARE(int(jobs.size()), 2);
    QCOMPARE(jobs[0]->shortFileName(), QString("d.avi"));
    QCOMPARE(jobs[1]->shortFileName(), QString("a.avi"));
}

void TestEditMaskWindow::replacedFilesAreLeftOut() {
    SetupWindow window;
    const QSignalSpy changes(&window.leftOut(), SIGNAL(changed()));
    window.addFile(path("a.avi"));
    QVERIFY(window.leftOut().all().isEmpty());
    window.addFile(path("text.avi")); // has no picture: now nothing is on show
    QVERIFY(!window.isVisible());
    QCOMPARE(window.leftOut().all(), QStringList{path("a.avi")});
    window.addFiles({path("b.avi"), path("c.avi")});
    window.addFile(path("d.avi"));
    QCOMPARE(window.leftOut().all(), QStringList({path("a.avi"), path("b.avi")}));
    // Accepted, discarded, and named once more: none of these.
    window.click("pushButtonAdd");
    window.addFiles({path("a.avi"), path("d.avi")});
    QCOMPARE(window.leftOut().all(), QStringList{path("b.avi")});
    window.click("pushButtonCancelAll");
    QCOMPARE(window.leftOut().take(), QStringList{path("b.avi")});
    QVERIFY(window.leftOut().all().isEmpty());
    QVERIFY(changes.count() >= 4);
}

void TestEditMaskWindow::queuedFilesLeaveTheOneShown() {
    SetupWindow window;
    window.queueFiles({path("a.avi"), path("b.avi")});
    QCOMPARE(window.shownFile(), path("a.avi"));
    window.draw({{300, 300}, {600, 600}});
    window.queueFiles({path("c.avi")});
    QCOMPARE(window.shownFile(), path("a.avi"));
    QVERIFY(window.editor().hasRoi() && window.leftOut().all().isEmpty());
    window.click("pushButtonAddAll");
    QStringList names;
    for (const auto& job : window.takeJobs())
        names.append(job->shortFileName());
    QCOMPARE(names, QStringList({"a.avi", "b.avi", "c.avi"}));
}

void TestEditMaskWindow::filesAreCounted() {
    SetupWindow window;
    const auto& position = window.get<QLabel>("labelPosition");
    window.addFile(path("a.avi"));
    QCOMPARE(position.text(), QString());
    window.queueFiles({path("b.avi"), path("text.avi"), path("c.avi"), path("d.avi")});
    QCOMPARE(position.text(), QString("File 1 of 5"));
    window.click("pushButtonAdd");
    QCOMPARE(position.text(), QString("File 2 of 5"));
    window.click("pushButtonAdd"); // the text is skipped
    QCOMPARE(position.text(), QString("File 4 of 5"));
    window.addFile(path("b.avi"));
    QCOMPARE(position.text(), QString("File 5 of 6"));
    window.click("pushButtonCancelAll");
    window.addFiles({path("a.avi"), path("b.avi"), path("c.avi")});
    QCOMPARE(position.text(), QString("File 1 of 3"));
    window.click("pushButtonCancel"); // and the next one
    QCOMPARE(position.text(), QString("File 3 of 3"));
}

void TestEditMaskWindow::regionOfAnEarlierFileIsNamed_data() {
    QTest::addColumn<bool>("isFree");
    QTest::addColumn<QString>("text");
    QTest::newRow("rectangle") << false
                               << "The region of a.avi still applies. Draw a new one, or Clear.";
    QTest::newRow("free shape") << true
                                << "The shapes drawn on a.avi are gone, but not cleared: nothing "
                                   "would be found here. Draw new ones, or Clear.";
}

void TestEditMaskWindow::regionOfAnEarlierFileIsNamed() {
    QFETCH(bool, isFree);
    QFETCH(QString, text);
    SetupWindow window;
    const auto& line = window.get<QLabel>("labelOldRegion");
    if (isFree)
        window.setFreeMode();
    const QVector<QPoint> shape = {{300, 300}, {600, 300}, {600, 600}};
    window.addFiles({path("a.avi"), path("b.avi"), path("c.avi"), path("d.avi"), path("a.avi")});
    QVERIFY(!line.isVisible());
    window.draw(shape);
    QVERIFY(!line.isVisible());
    for (int file = 0; file < 2; ++file) {
        window.click("pushButtonAdd");
        QVERIFY(line.isVisible());
        QCOMPARE(line.text(), text);
    }
    // What is said is what a job gets.
    const auto jobs = window.takeJobs();
    QCOMPARE(bool(jobs[1]->roiRect), !isFree);
    QVERIFY(jobs[1]->mask && *jobs[1]->mask != *jobs[0]->mask);
    window.draw(shape);
    QVERIFY(!line.isVisible());
    window.click("pushButtonAdd");
    QVERIFY(line.text().contains(" c.avi ") && line.isVisible());
    window.click("pushButtonClear");
    QVERIFY(!line.isVisible());
    window.click("pushButtonAdd");
    QVERIFY(!line.isVisible());
}

void TestEditMaskWindow::emptyListDropsTheFileShown() {
    SetupWindow window;
    window.addFiles({});
    QVERIFY(!window.isVisible());
    window.addFile(path("a.avi"));
    window.addFiles({});
    QVERIFY(!window.isVisible());
    QVERIFY(window.readyVideos.isEmpty());
}

void TestEditMaskWindow::emptyListGoesOnWithThePendingFiles() {
    SetupWindow window;
    window.addFiles({path("a.avi"), path("b.avi")});
    window.addFiles({});
    QCOMPARE(window.shownFile(), path("b.avi"));
    QVERIFY(window.isVisible());
}

void TestEditMaskWindow::unreadableFilesAreSkipped_data() {
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"text.avi", "empty.avi", "folder", "missing.avi", "pipe.avi", "sound.wav", "/dev/zero"})
        QTest::newRow(name) << QString(name);
    QTest::newRow("no name") << QString("");
}

void TestEditMaskWindow::unreadableFilesAreSkipped() {
    QFETCH(QString, name);
    const bool isName = !name.isEmpty() && !name.startsWith('/');
    const QString bad = isName ? path(name) : name;
    SetupWindow window;
    const ModalAnswer answer([](QDialog&) {});
    window.addFile(bad);
    QVERIFY(!window.isVisible());
    window.addFiles({bad, bad, path("b.avi"), bad});
    QTRY_VERIFY(window.isVisible());
    QCOMPARE(window.shownFile(), path("b.avi"));
    window.click("pushButtonAdd");
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(int(window.takeJobs().size()), 1);
    QCOMPARE(answer.count(), 0);
}

void TestEditMaskWindow::manyUnreadableFilesNeedNoStack() {
    // More than a stack of 8 MiB could take if each needed 100 bytes of it.
    QStringList paths;
    for (int i = 0; i < 100000; ++i)
        paths.append(path("missing.avi"));
    for (int i = 0; i < 1000; ++i)
        paths.append(path("text.avi"));
    paths.append(path("a.avi"));
    SetupWindow window;
    window.addFiles(paths);
    QTRY_COMPARE_WITH_TIMEOUT(window.shownFile(), path("a.avi"), longMilliseconds);
}

void TestEditMaskWindow::windowAnswersDuringALongSearch() {
    SetupWindow window;
    window.addFiles(unreadable() + QStringList{path("a.avi")});
    QVERIFY(!window.isVisible());
    QVERIFY(isBusy());
    // The event loop runs round again and again before the file is found.
    int turns = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, &ticker, [&turns] { ++turns; });
    ticker.start(0);
    QTRY_VERIFY_WITH_TIMEOUT(window.isVisible(), longMilliseconds);
    QVERIFY2(turns > 3, qPrintable(QString::number(turns)));
    QCOMPARE(window.shownFile(), path("a.avi"));
    QVERIFY(!isBusy());
    QVERIFY(window.editor().isEnabled());
    window.click("pushButtonAdd");
    QCOMPARE(int(window.takeJobs().size()), 1);
}

void TestEditMaskWindow::nothingIsOnShowDuringALongSearch() {
    SetupWindow window;
    const QSignalSpy accepted(&window, SIGNAL(newVideo()));
    window.addFiles(QStringList{path("a.avi")} + unreadable() + QStringList{path("b.avi")});
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.click("pushButtonAdd");
    // The job starts at once; what is pressed now finds no file.
    QCOMPARE(accepted.count(), 1);
    QVERIFY(window.isVisible() && isBusy());
    for (const char* name : {"pushButtonAdd", "pushButtonAddAll", "pushButtonCancel", "maskEditor"})
        QVERIFY2(!window.isEnabled(name), name);
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    QVERIFY(window.isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(window.shownFile(), path("b.avi"), longMilliseconds);
    QVERIFY(window.get<QPushButton>("pushButtonAdd").hasFocus());
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    QStringList names;
    for (const auto& job : window.takeJobs())
        names.append(job->shortFileName());
    QCOMPARE(names, QStringList({"a.avi", "b.avi"}));
}

void TestEditMaskWindow::longSearchThatFindsNothingHides() {
    SetupWindow window;
    window.addFiles(QStringList{path("a.avi")} + unreadable());
    window.click("pushButtonAdd");
    QVERIFY(window.isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!window.isVisible(), longMilliseconds);
    QVERIFY(!isBusy());
    // And is ready for the next file.
    window.addFile(path("b.avi"));
    QCOMPARE(window.shownFile(), path("b.avi"));
    QVERIFY(window.isEnabled("pushButtonAdd"));
}

void TestEditMaskWindow::longSearchNeedsNoThread() {
    SetupWindow window;
    {
        const NoMoreThreads none;
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("QThread::start: .*"));
        window.addFiles(unreadable() + QStringList{path("a.avi")});
    }
    QVERIFY(!window.isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(window.shownFile(), path("a.avi"), longMilliseconds);
    QVERIFY(window.isVisible() && !isBusy());
}

void TestEditMaskWindow::filesAddedDuringALongSearchJoinIt() {
    SetupWindow window;
    window.addFiles(unreadable() + QStringList{path("a.avi")});
    window.addFile(path("b.avi"));
    window.addFiles({path("c.avi")});
    window.addFiles({});
    QVERIFY(!window.isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(window.isVisible(), longMilliseconds);
    QCOMPARE(window.shownFile(), path("a.avi"));
    window.click("pushButtonAddAll");
    QCOMPARE(int(window.takeJobs().size()), 3);
}

void TestEditMaskWindow::longSearchEndsWithEverything_data() {
    everythingIsDiscarded_data();
    QTest::newRow("destroyed") << QString("destroyed");
}

void TestEditMaskWindow::longSearchEndsWithEverything() {
    QFETCH(QString, how);
    auto window = std::make_unique<SetupWindow>();
    window->addFiles(QStringList{path("a.avi")} + unreadable() + QStringList{path("b.avi")});
    window->click("pushButtonAdd");
    QVERIFY(isBusy());
    if (how == "button")
        window->click("pushButtonCancelAll");
    else if (how == "Escape")
        QTest::keyClick(window.get(), Qt::Key_Escape);
    else if (how == "close")
        QVERIFY(window->close());
    else
        window.reset();
    QVERIFY(!isBusy());
    if (!window)
        return;
    QVERIFY(!window->isVisible());
    window->addFile(path("d.avi"));
    QCOMPARE(window->shownFile(), path("d.avi"));
    QVERIFY(window->isEnabled("pushButtonAdd"));
}

void TestEditMaskWindow::longSearchWaitsForAModalDialog() {
    SetupWindow window;
    window.addFiles(unreadable() + QStringList{path("a.avi")});
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    int turns = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, &ticker, [&turns] { ++turns; });
    ticker.start(0);
    // Far more turns than the search would need.
    QTRY_VERIFY_WITH_TIMEOUT(turns > 10 * manyFiles, longMilliseconds);
    QVERIFY(!window.isVisible());
    dialog.reject();
    QTRY_VERIFY_WITH_TIMEOUT(window.isVisible(), longMilliseconds);
    QCOMPARE(window.shownFile(), path("a.avi"));
}

void TestEditMaskWindow::badExportFolderChangesNothing_data() {
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QByteArray>("button");
    for (const char* button : {"pushButtonAdd", "pushButtonAddAll"}) {
        QTest::addRow("empty, %s", button) << QString() << QByteArray(button);
        QTest::addRow("missing, %s", button) << path("nowhere") << QByteArray(button);
        QTest::addRow("a file, %s", button) << path("a.avi") << QByteArray(button);
        QTest::addRow("read-only, %s", button) << QString("/proc/self") << QByteArray(button);
    }
}

void TestEditMaskWindow::badExportFolderChangesNothing() {
    QFETCH(QString, directory);
    QFETCH(QByteArray, button);
    if (QFileInfo(directory).isDir() && QFileInfo(directory).isWritable())
        QSKIP("whoever runs this may write everywhere");
    SetupWindow window;
    const QSignalSpy accepted(&window, SIGNAL(newVideo()));
    window.addFiles({path("a.avi"), path("b.avi")});
    window.draw({{300, 300}, {600, 600}});
    window.setExportDirectory(directory);
    window.get<QSpinBox>("spinBoxSkip").setValue(3);
    QCOMPARE(messageOnClick(window, button.constData()),
             QString("Error: Please check export dir name and permissions"));
    QCOMPARE(accepted.count(), 0);
    QVERIFY(window.readyVideos.isEmpty());
    QVERIFY(window.isVisible());
    QVERIFY(window.editor().coverage() > 0.0F);
    QCOMPARE(window.shownFile(), path("a.avi"));
    QCOMPARE(QSettings().allKeys(), QStringList{"export_dir"});
    // The pending file still waits.
    window.setExportDirectory(exports);
    QCOMPARE(messageOnClick(window, button.constData()), QString());
    QVERIFY(accepted.count() == 1);
}

void TestEditMaskWindow::exportFolderCanBeChosen() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    const QString chosen = path("folder");
    const ModalAnswer answer([&](QDialog& dialog) {
        auto* files = qobject_cast<QFileDialog*>(&dialog);
        if (!files || files->parentWidget() != &window ||
            files->windowTitle() != "Select folder to save" ||
            !files->testOption(QFileDialog::ShowDirsOnly))
            return;
        files->findChild<QLineEdit*>("fileNameEdit")->setText(chosen);
        dialog.accept();
    });
    window.click("pushButtonDir");
    QCOMPARE(answer.count(), 1);
    QCOMPARE(window.get<QLineEdit>("lineEditDir").text(), chosen);
}

void TestEditMaskWindow::choosingNoFolderKeepsTheText() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    const ModalAnswer answer([](QDialog& dialog) { dialog.reject(); });
    window.click("pushButtonDir");
    QCOMPARE(answer.count(), 1);
    QCOMPARE(window.get<QLineEdit>("lineEditDir").text(), exports);
}

void TestEditMaskWindow::regionButtonsFollowTheEditor() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    QVERIFY(!window.isEnabled("pushButtonClear"));
    QVERIFY(!window.isEnabled("pushButtonInvert"));
    window.setFreeMode();
    QVERIFY(window.isEnabled("pushButtonInvert"));
    window.draw({{500, 500}}); // a click, which leaves no region
    QVERIFY(!window.isEnabled("pushButtonClear"));
    window.draw({{300, 300}, {600, 350}, {450, 700}});
    QVERIFY(window.isEnabled("pushButtonClear"));
    const float before = window.editor().coverage();
    window.click("pushButtonInvert");
    QCOMPARE(window.editor().coverage(), 1.0F - before);
    QVERIFY(window.isEnabled("pushButtonClear"));
    window.click("pushButtonClear");
    QCOMPARE(window.editor().coverage(), 0.0F);
    QVERIFY(!window.isEnabled("pushButtonClear"));
}

void TestEditMaskWindow::modeSwitchClearsTheMask() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    auto& mode = window.get<QComboBox>("comboBoxSelectionMode");
    window.draw({{300, 300}, {600, 600}});
    QTest::keyClick(&mode, Qt::Key_Down);
    QCOMPARE(mode.currentText(), QString("Free ROI"));
    QVERIFY(!window.editor().hasRoi());
    QVERIFY(!window.isEnabled("pushButtonClear"));
    window.draw({{300, 300}, {600, 350}, {450, 700}});
    QTest::keyClick(&mode, Qt::Key_Up);
    QVERIFY(!window.editor().hasRoi());
    QVERIFY(!window.isEnabled("pushButtonInvert"));
    window.draw({{300, 300}, {600, 600}});
    QVERIFY(window.editor().roiRect());
}

void TestEditMaskWindow::startTimeIsEnabledWithTimestamps() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    for (const bool isChecked : {false, true, false}) {
        QCOMPARE(window.get<QCheckBox>("checkBoxExportTimestamp").isChecked(), isChecked);
        QCOMPARE(window.isEnabled("dateTimeEdit"), isChecked);
        QCOMPARE(window.isEnabled("labelExportTimestamps"), isChecked);
        QTest::keyClick(&window.get<QCheckBox>("checkBoxExportTimestamp"), Qt::Key_Space);
    }
}

void TestEditMaskWindow::uncollectedJobsAreFreed() {
    QPointer<Video> job;
    {
        SetupWindow window;
        window.addFile(path("a.avi"));
        window.click("pushButtonAdd");
        job = window.readyVideos.value(0);
        QVERIFY(job);
    }
    QVERIFY(!job);
}

QTEST_MAIN(TestEditMaskWindow)
#include "test_editmaskwindow.moc"
