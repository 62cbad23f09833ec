// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs.h"
#include "editorplacement.h"
#include "setuprecordings.h"
#include "setupwindow.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QSettings>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QStringList keys = {
    "do_export",         "export_dir", "export_minimum", "export_postrecord", "export_prerecord",
    "export_timestamps", "skip"};

/// Fails the export folder check; answers what the box said, or nothing if there was none.
QString messageOnClick(SetupWindow& window, const char* button) {
    QString message;
    const DialogAnswer<> answer([&](QDialog& dialog) {
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
    void initTestCase() { QVERIFY(recordings.make()); }
    void init() { exports = recordings.startAnew(); }
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
    void addDuringAStrokeDropsIt();
    void enterAddsAtFirst();
    void badExportFolderChangesNothing_data();
    void badExportFolderChangesNothing();
    void exportFolderCanBeChosen();
    void choosingNoFolderKeepsTheText();
    void regionButtonsFollowTheEditor();
    void modeSwitchClearsTheMask();
    void startTimeIsEnabledWithTimestamps();
    void uncollectedJobsAreFreed();

private:
    QString path(const QString& name) const { return recordings.path(name); }

    SetupRecordings recordings;
    QString exports;
};

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

void TestEditMaskWindow::addDuringAStrokeDropsIt() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    mouse::press(window.editor(), window.editor().rect().center());
    window.get<QPushButton>("pushButtonAdd").click(); // with the keyboard
    const auto jobs = window.takeJobs();
    QVERIFY(!jobs.at(0)->mask && !jobs[0]->roiRect);
}

void TestEditMaskWindow::enterAddsAtFirst() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    QCOMPARE(int(window.takeJobs().size()), 1);
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
    const DialogAnswer<> answer([&](QDialog& dialog) {
        auto* files = qobject_cast<QFileDialog*>(&dialog);
        if (!files || files->parentWidget() != &window ||
            files->windowTitle() != "Select folder to save" ||
            !files->testOption(QFileDialog::ShowDirsOnly))
            return;
        files->findChild<QLineEdit*>("fileNameEdit")->setText(chosen);
        dialog.accept();
    });
    window.click("pushButtonDir");
    QVERIFY(answer.wasShown());
    QCOMPARE(window.get<QLineEdit>("lineEditDir").text(), chosen);
}

void TestEditMaskWindow::choosingNoFolderKeepsTheText() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    const DialogAnswer<> answer([](QDialog& dialog) { dialog.reject(); });
    window.click("pushButtonDir");
    QVERIFY(answer.wasShown());
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
