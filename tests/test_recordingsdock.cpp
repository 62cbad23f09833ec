// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingsdock.h"

#include "dialogs.h"
#include "endedjobs.h"
#include "jobmodel.h"
#include "recordingmenu.h"
#include "recordingswatch.h"
#include "searchagaindialog.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(FilePresence)
Q_DECLARE_METATYPE(Video*)

/// The dock of the recordings, driven as a person does.
class TestRecordingsDock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void summaryIsThatOfTheButton();
    void rowIsChosen();
    void choosingByTheProgramTellsOnce();
    void choiceOutlivesTheFilter();
    void filterLineAndChoice();
    void clicksOnAHeadSort();
    void menuSorts();
    void keysOfTheWindowStayInTheTable();
    void returnAndEscapeInTheFilterLine();
    void menuOfARecording();
    void menuOffersWhatCanBeDone();
    void oneIsCancelled();
    void searchedAgainWithWhatTheDialogSays();
    void restIsOfferedWhereSomethingWasCancelled();
    void keptValuesAreASetting();
    void likeliestFirstIsASetting();
    void filesAreLookedAt();
    void fitsIntoLittleRoom();

private:
    template<class T>
    T& part(const char* name) {
        return *dock->findChild<T*>(name);
    }

    QStringList names() {
        QStringList names;
        const QAbstractItemModel& rows = *table().model();
        for (int row = 0; row < rows.rowCount(); ++row)
            names += rows.index(row, JobModel::Name).data().toString();
        return names;
    }

    QTableView& table() { return part<QTableView>("recordings"); }
    void clickRow(int row) {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                          table().visualRect(table().model()->index(row, 0)).center());
    }
    RecordingMenu& openMenu();

    std::unique_ptr<EndedJobs> jobs;
    std::unique_ptr<QMainWindow> window;
    RecordingsDock* dock = nullptr;
};

void TestRecordingsDock::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    qRegisterMetaType<Video*>();
    qRegisterMetaType<FilePresence>("FilePresence");
}

void TestRecordingsDock::init() {
    QSettings().clear();
    jobs = std::make_unique<EndedJobs>();
    window = std::make_unique<QMainWindow>();
    dock = new RecordingsDock(jobs->queue, window.get());
    window->addDockWidget(Qt::RightDockWidgetArea, dock);
    window->resize(900, 500);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

void TestRecordingsDock::cleanup() {
    window.reset();
    jobs.reset();
}

RecordingMenu& TestRecordingsDock::openMenu() {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {});
    QCoreApplication::sendEvent(&table(), &event);
    return part<RecordingMenu>("menuRecording");
}

void TestRecordingsDock::summaryIsThatOfTheButton() {
    QSignalSpy told(dock, SIGNAL(summaryChanged(QString)));
    QCOMPARE(dock->summary(), QString("Recordings"));
    jobs->add("a.mp4", Video::Finished);
    QCOMPARE(dock->summary(), QString("Recordings: 1"));
    jobs->add("b.mp4", Video::Failed);
    QCOMPARE(told.last()[0].toString(), QString("Recordings: 2, 1 unreadable"));
    QCOMPARE(part<QLabel>("labelRecordings").text(), QString("2: 1 without, 1 unreadable"));
}

void TestRecordingsDock::rowIsChosen() {
    jobs->add("a.mp4", Video::Finished);
    Video* second = jobs->add("b.mp4", Video::Finished);
    QSignalSpy chosen(dock, SIGNAL(chosen(Video*)));
    clickRow(1);
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen[0][0].value<Video*>(), second);
    QCOMPARE(dock->chosenJob(), second);
    QSignalSpy entered(dock, SIGNAL(entered(Video*)));
    QTest::keyClick(&table(), Qt::Key_Return);
    QCOMPARE(entered.size(), 1);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {},
                       table().visualRect(table().currentIndex()).center());
    QCOMPARE(entered.size(), 2);
}

void TestRecordingsDock::choosingByTheProgramTellsOnce() {
    Video* first = jobs->add("a.mp4", Video::Finished);
    QSignalSpy chosen(dock, SIGNAL(chosen(Video*)));
    dock->choose(first);
    dock->choose(first);
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(table().currentIndex().row(), 0);
    QVERIFY(table().selectionModel()->isRowSelected(0, {}));
}

void TestRecordingsDock::choiceOutlivesTheFilter() {
    Video* first = jobs->add("a.mp4", Video::Finished);
    jobs->add("b.mp4", Video::Finished);
    dock->choose(first);
    QSignalSpy chosen(dock, SIGNAL(chosen(Video*)));
    part<QLineEdit>("lineEditFilter").setText("b.mp4");
    QCOMPARE(names(), QStringList("b.mp4"));
    QCOMPARE(dock->chosenJob(), first);
    part<QLineEdit>("lineEditFilter").clear();
    QCOMPARE(dock->chosenJob(), first);
    QCOMPARE(chosen.size(), 0);
}

void TestRecordingsDock::filterLineAndChoice() {
    jobs->add("garden.mp4", Video::Finished);
    jobs->add("gate.mp4", Video::Failed);
    part<QLineEdit>("lineEditFilter").setText("gat");
    QCOMPARE(names(), QStringList("gate.mp4"));
    part<QComboBox>("comboBoxShown").setCurrentIndex(2);
    QCOMPARE(names(), QStringList());
    part<QLineEdit>("lineEditFilter").clear();
    QCOMPARE(names(), QStringList("garden.mp4"));
}

void TestRecordingsDock::clicksOnAHeadSort() {
    for (const char* name : {"b.mp4", "a.mp4", "c.mp4"})
        jobs->add(name, Video::Finished);
    QHeaderView* head = table().horizontalHeader();
    const QPoint place(head->sectionViewportPosition(JobModel::Name) + 10, head->height() / 2);
    QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(names(), QStringList({"a.mp4", "b.mp4", "c.mp4"}));
    QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(names(), QStringList({"c.mp4", "b.mp4", "a.mp4"}));
    QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(names(), QStringList({"b.mp4", "a.mp4", "c.mp4"}));
    QVERIFY(!head->isSortIndicatorShown());
}

void TestRecordingsDock::menuSorts() {
    jobs->add("b.mp4", Video::Finished);
    jobs->add("a.mp4", Video::Finished);
    QMenu& menu = *part<QToolButton>("toolButtonMenu").menu();
    const auto choose = [&menu](int entry) {
        Q_EMIT menu.aboutToShow();
        menu.actions()[0]->menu()->actions()[entry]->trigger();
    };
    choose(1);
    QCOMPARE(names(), QStringList({"a.mp4", "b.mp4"}));
    choose(0);
    QCOMPARE(names(), QStringList({"b.mp4", "a.mp4"}));
}

/// The window's Return and Delete are meant for clips.
void TestRecordingsDock::keysOfTheWindowStayInTheTable() {
    jobs->add("a.mp4", Video::Finished);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Delete, Qt::Key_Escape}) {
        QAction action;
        action.setShortcut(key);
        window->addAction(&action);
        QSignalSpy triggered(&action, SIGNAL(triggered()));
        window->activateWindow();
        table().setFocus();
        QTest::keyClick(&table(), key);
        QCOMPARE(triggered.size(), key == Qt::Key_Escape ? 1 : 0);
        window->removeAction(&action);
    }
}

void TestRecordingsDock::returnAndEscapeInTheFilterLine() {
    jobs->add("a.mp4", Video::Finished);
    auto& line = part<QLineEdit>("lineEditFilter");
    QAction action;
    action.setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Escape)});
    window->addAction(&action);
    QSignalSpy triggered(&action, SIGNAL(triggered()));
    window->activateWindow();
    line.setFocus();
    QTest::keyClicks(&line, "a.m");
    QTest::keyClick(&line, Qt::Key_Return);
    QVERIFY(table().hasFocus());
    line.setFocus();
    QTest::keyClick(&line, Qt::Key_Escape);
    QCOMPARE(line.text(), QString());
    QCOMPARE(triggered.size(), 0);
    QTest::keyClick(&line, Qt::Key_Escape); // there is nothing to clear
    QCOMPARE(triggered.size(), 1);
}

void TestRecordingsDock::menuOfARecording() {
    Video* job = jobs->add("a.mp4", Video::Finished);
    dock->setClipCounts({{job, 2}});
    dock->choose(job);
    QSignalSpy folder(dock, SIGNAL(folderAsked(Video*)));
    QSignalSpy only(dock, SIGNAL(onlyThisAsked(Video*)));
    QSignalSpy removal(dock, SIGNAL(clipsRemovalAsked(Video*)));
    RecordingMenu& menu = openMenu();
    menu.findChild<QAction*>("actionShowInFolder")->trigger();
    menu.findChild<QAction*>("actionCopyName")->trigger();
    menu.findChild<QAction*>("actionOnlyThis")->trigger();
    menu.findChild<QAction*>("actionRemoveClips")->trigger();
    menu.close();
    QCOMPARE(folder[0][0].value<Video*>(), job);
    QCOMPARE(QApplication::clipboard()->text(), QString("a.mp4"));
    QCOMPARE(only[0][0].value<Video*>(), job);
    QCOMPARE(removal[0][0].value<Video*>(), job);
    QTRY_VERIFY(!dock->findChild<RecordingMenu*>());
    dock->setAlone(job);
    RecordingMenu& second = openMenu();
    QVERIFY(second.findChild<QAction*>("actionOnlyThis")->isChecked());
    second.findChild<QAction*>("actionOnlyThis")->trigger();
    QVERIFY(!only[1][0].value<Video*>());
    second.close();
}

void TestRecordingsDock::menuOffersWhatCanBeDone() {
    dock->choose(jobs->add("a.mp4", Video::Finished));
    RecordingMenu& menu = openMenu();
    QVERIFY(menu.findChild<QAction*>("actionSearchAgain")->isEnabled());
    QVERIFY(!menu.findChild<QAction*>("actionCancelThis")->isEnabled());
    QVERIFY(!menu.findChild<QAction*>("actionRemoveClips")->isEnabled());
    menu.close();
}

void TestRecordingsDock::oneIsCancelled() {
    Video* job = jobs->add("a.mp4", Video::Finished);
    Video* other = jobs->add("b.mp4", Video::Finished);
    job->state = other->state = Video::Running; // of a worker that never ends
    QMetaObject::invokeMethod(dock, "refresh");
    dock->choose(job);
    RecordingMenu& menu = openMenu();
    QVERIFY(!menu.findChild<QAction*>("actionSearchAgain")->isEnabled());
    menu.findChild<QAction*>("actionCancelThis")->trigger();
    QCOMPARE(int(job->state), int(Video::CancelRequested));
    QCOMPARE(int(other->state), int(Video::Running));
    QCOMPARE(table().model()->index(0, JobModel::State).data().toString(), QString("cancelled"));
    other->state = Video::Finished;
}

void TestRecordingsDock::searchedAgainWithWhatTheDialogSays() {
    Video* job = jobs->add("a.mp4", Video::Finished);
    QFile recording(job->fileName);
    QVERIFY(recording.open(QIODevice::WriteOnly));
    dock->choose(job);
    QSignalSpy asked(dock, SIGNAL(searchAsked(Video*)));
    {
        DialogAnswer<SearchAgainDialog> answer([](SearchAgainDialog& dialog) { dialog.reject(); });
        openMenu().findChild<QAction*>("actionSearchAgain")->trigger();
    }
    QCOMPARE(asked.size(), 0);
    {
        DialogAnswer<SearchAgainDialog> answer([](SearchAgainDialog& dialog) {
            dialog.findChild<QLineEdit*>("lineEditExcluded")->setText("1,2,3x4");
            dialog.accept();
        });
        openMenu().findChild<QAction*>("actionSearchAgain")->trigger();
    }
    QCOMPARE(asked.size(), 1);
    const std::unique_ptr<Video> again(asked[0][0].value<Video*>());
    QCOMPARE(again->clipDirectory, job->clipDirectory);
    QCOMPARE(again->search.excluded, QVector<QRect>({{1, 2, 3, 4}}));
}

void TestRecordingsDock::restIsOfferedWhereSomethingWasCancelled() {
    auto& rest = part<QPushButton>("pushButtonRest");
    auto& report = part<QPushButton>("pushButtonReport");
    QVERIFY(!rest.isVisible());
    QVERIFY(!report.isEnabled());
    jobs->add("a.mp4", Video::CancelRequested);
    QVERIFY(rest.isVisible());
    QVERIFY(report.isEnabled());
    QSignalSpy restAsked(dock, SIGNAL(restAsked()));
    QSignalSpy reportAsked(dock, SIGNAL(reportAsked()));
    rest.click();
    report.click();
    QCOMPARE(restAsked.size(), 1);
    QCOMPARE(reportAsked.size(), 1);
}

void TestRecordingsDock::keptValuesAreASetting() {
    QMenu& menu = *part<QToolButton>("toolButtonMenu").menu();
    const auto choices = [&menu] {
        Q_EMIT menu.aboutToShow();
        return menu.actions()[1]->menu()->actions();
    };
    QStringList texts;
    for (const QAction* action : choices())
        texts += action->text();
    QCOMPARE(texts, QStringList({"Off", "250 MB", "1 GB", "4 GB"}));
    QVERIFY(choices()[2]->isChecked());
    choices()[0]->trigger();
    QCOMPARE(QSettings().value("kept_values_mb").toInt(), 0);
    QVERIFY(choices()[0]->isChecked());
}

void TestRecordingsDock::likeliestFirstIsASetting() {
    QMenu& menu = *part<QToolButton>("toolButtonMenu").menu();
    const auto action = [&menu] {
        Q_EMIT menu.aboutToShow();
        return menu.findChild<QAction*>("actionLikeliestFirst");
    };
    QSignalSpy asked(dock, SIGNAL(likeliestFirstAsked(bool)));
    QVERIFY(!action()->isChecked());
    QVERIFY(menu.toolTipsVisible());
    action()->trigger();
    QVERIFY(QSettings().value("likeliest_first").toBool());
    QVERIFY(action()->isChecked());
    action()->trigger();
    QVERIFY(!QSettings().value("likeliest_first").toBool());
    QCOMPARE(asked, (QList<QVariantList>{{true}, {false}}));
}

void TestRecordingsDock::filesAreLookedAt() {
    const auto state = [this](int row) {
        return table().model()->index(row, JobModel::State).data().toString();
    };
    Video* gone = jobs->add("gone.mp4", Video::Finished);
    Video* changed = jobs->make("changed.mp4", Video::Finished);
    QFile recording(changed->fileName);
    QVERIFY(recording.open(QIODevice::WriteOnly));
    recording.write("what it was");
    recording.flush();
    jobs->queue.add({changed});
    dock->choose(gone);
    QTRY_COMPARE(state(0), QString("file is gone, no motion"));
    QSignalSpy found(dock->findChild<RecordingsWatch*>(), SIGNAL(found(Video*, FilePresence)));
    dock->choose(changed);
    QTRY_COMPARE(found.size(), 1);
    QCOMPARE(state(1), QString("no motion"));
    dock->choose(gone);
    recording.write(" is no more");
    recording.flush();
    dock->choose(changed);
    QTRY_COMPARE(state(1), QString("file has changed since, no motion"));
}

void TestRecordingsDock::fitsIntoLittleRoom() {
    QVERIFY2(dock->minimumSizeHint().width() <= 320,
             qPrintable(QString::number(dock->minimumSizeHint().width())));
    QVERIFY2(dock->minimumSizeHint().height() <= 220,
             qPrintable(QString::number(dock->minimumSizeHint().height())));
}

QTEST_MAIN(TestRecordingsDock)
#include "test_recordingsdock.moc"
