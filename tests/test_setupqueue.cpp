// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "leftoutfiles.h"
#include "setuprecordings.h"
#include "setupwindow.h"

#include <QSignalSpy>
#include <QtTest>

class TestSetupQueue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(recordings.make()); }
    void init() { recordings.startAnew(); }
    void cancelDiscardsTheNextFileToo();
    void cancelWithNothingPendingHides();
    void everythingIsDiscarded_data();
    void everythingIsDiscarded();
    void escapeDuringAStrokeDropsIt();
    void addedFileDuringAStrokeDropsIt();
    void escapeWorksFromEveryControl();
    void otherKeysAreLeftAlone();
    void addedFilesReplaceTheOneShown();
    void replacedFilesAreLeftOut();
    void queuedFilesLeaveTheOneShown();
    void filesAreCounted();
    void regionOfAnEarlierFileIsNamed_data();
    void regionOfAnEarlierFileIsNamed();
    void emptyListDropsTheFileShown();
    void emptyListGoesOnWithThePendingFiles();

private:
    QString path(const QString& name) const { return recordings.path(name); }

    SetupRecordings recordings;
};

void TestSetupQueue::cancelDiscardsTheNextFileToo() {
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

void TestSetupQueue::cancelWithNothingPendingHides() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    window.click("pushButtonCancel");
    QVERIFY(!window.isVisible());
    QVERIFY(window.readyVideos.isEmpty());
}

void TestSetupQueue::everythingIsDiscarded_data() {
    QTest::addColumn<QString>("how");
    for (const char* how : {"button", "Escape", "close"})
        QTest::newRow(how) << QString(how);
}

void TestSetupQueue::everythingIsDiscarded() {
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

void TestSetupQueue::escapeDuringAStrokeDropsIt() {
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

void TestSetupQueue::addedFileDuringAStrokeDropsIt() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    const QPoint centre = window.editor().rect().center();
    mouse::press(window.editor(), centre);
    window.addFile(path("b.avi"));
    mouse::release(window.editor(), centre + QPoint(100, 100));
    QVERIFY(!window.editor().hasRoi());
    QVERIFY(!window.isEnabled("pushButtonClear"));
}

void TestSetupQueue::escapeWorksFromEveryControl() {
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

void TestSetupQueue::otherKeysAreLeftAlone() {
    SetupWindow window;
    window.addFile(path("a.avi"));
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_Escape}) {
        QKeyEvent event(QEvent::KeyPress, key, {});
        QApplication::sendEvent(&window, &event);
        QCOMPARE(event.isAccepted(), key == Qt::Key_Escape);
        QCOMPARE(window.isVisible(), key != Qt::Key_Escape);
    }
}

void TestSetupQueue::addedFilesReplaceTheOneShown() {
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

void TestSetupQueue::replacedFilesAreLeftOut() {
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

void TestSetupQueue::queuedFilesLeaveTheOneShown() {
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

void TestSetupQueue::filesAreCounted() {
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

void TestSetupQueue::regionOfAnEarlierFileIsNamed_data() {
    QTest::addColumn<bool>("isFree");
    QTest::addColumn<QString>("text");
    QTest::newRow("rectangle") << false
                               << "The region of a.avi still applies. Draw a new one, or Clear.";
    QTest::newRow("free shape") << true
                                << "The shapes drawn on a.avi are gone, but not cleared: nothing "
                                   "would be found here. Draw new ones, or Clear.";
}

void TestSetupQueue::regionOfAnEarlierFileIsNamed() {
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

void TestSetupQueue::emptyListDropsTheFileShown() {
    SetupWindow window;
    window.addFiles({});
    QVERIFY(!window.isVisible());
    window.addFile(path("a.avi"));
    window.addFiles({});
    QVERIFY(!window.isVisible());
    QVERIFY(window.readyVideos.isEmpty());
}

void TestSetupQueue::emptyListGoesOnWithThePendingFiles() {
    SetupWindow window;
    window.addFiles({path("a.avi"), path("b.avi")});
    window.addFiles({});
    QCOMPARE(window.shownFile(), path("b.avi"));
    QVERIFY(window.isVisible());
}

QTEST_MAIN(TestSetupQueue)
#include "test_setupqueue.moc"
