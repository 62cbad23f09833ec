// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jobmodel.h"

#include "endedjobs.h"
#include "jobfilter.h"

#include <QtTest>

/// What the rows of recordings say, and which of them are told of when something changes.
class TestJobModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void statesInWords_data();
    void statesInWords();
    void clipsAreThoseThatAreListed();
    void removedClipsAreNoAbsenceOfMotion();
    void unreadableOnesSayWhy();
    void whatIsKnownOfTheRecording();
    void oneThatIsSearchedAgainStepsBack();
    void filesThatAreGone();
    void totals();
    void onlyOtherRowsAreTold();
    void sortedByValues_data();
    void sortedByValues();
    void namesAreSortedByTheirNumbers();
    void filteredByNameAndKind();

private:
    static QString text(const JobModel& model, int row, JobModel::Column column) {
        return model.index(row, column).data().toString();
    }
};

void TestJobModel::initTestCase() {
    QLocale::setDefault(QLocale::c());
}

void TestJobModel::statesInWords_data() {
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("clips");
    QTest::addColumn<bool>("isWhole");
    QTest::addColumn<QString>("words");
    QTest::newRow("nothing") << int(Video::Finished) << 0 << true << "no motion";
    QTest::newRow("one clip") << int(Video::Finished) << 1 << true << "1 clip";
    QTest::newRow("clips") << int(Video::Finished) << 7 << true << "7 clips";
    QTest::newRow("cut") << int(Video::Finished) << 2 << false << "2 clips, not read to its end";
    QTest::newRow("unreadable") << int(Video::Failed) << 0 << true << "unreadable";
    QTest::newRow("cancelled") << int(Video::CancelRequested) << 3 << false << "cancelled";
}

void TestJobModel::statesInWords() {
    QFETCH(int, state);
    QFETCH(int, clips);
    QFETCH(bool, isWhole);
    EndedJobs jobs;
    JobFacts facts = factsOf(10.0, 1.0F);
    facts.isReadToItsEnd = isWhole;
    const Video* job = jobs.add("garden.mp4", state, facts);
    JobModel model(jobs.queue);
    model.setClipCounts({{job, clips}});
    QTEST(text(model, 0, JobModel::State), "words");
    QCOMPARE(text(model, 0, JobModel::Clips), clips > 0 ? QString::number(clips) : QString());
}

void TestJobModel::clipsAreThoseThatAreListed() {
    EndedJobs jobs;
    const Video* job = jobs.add("garden.mp4", Video::Finished);
    JobModel model(jobs.queue);
    QSignalSpy changes(&model, SIGNAL(dataChanged(QModelIndex, QModelIndex)));
    model.setClipCounts({{job, 2}});
    QCOMPARE(text(model, 0, JobModel::State), QString("2 clips"));
    model.setClipCounts({{job, 2}});
    QCOMPARE(changes.size(), 1);
}

void TestJobModel::removedClipsAreNoAbsenceOfMotion() {
    EndedJobs jobs;
    Video* job = jobs.add("garden.mp4", Video::Finished);
    job->nextClipNumber = 4;
    const JobModel model(jobs.queue);
    QCOMPARE(text(model, 0, JobModel::State), QString("clips removed"));
}

void TestJobModel::unreadableOnesSayWhy() {
    EndedJobs jobs;
    Video* job = jobs.add("broken.avi", Video::Failed);
    JobModel model(jobs.queue);
    QSignalSpy changes(&model, SIGNAL(dataChanged(QModelIndex, QModelIndex)));
    job->news.setFacts(factsOf(0.0, 0.0F, "Invalid data found when processing input"));
    QCOMPARE(changes.size(), 1);
    const QString said = text(model, 0, JobModel::State);
    QVERIFY2(said.startsWith("unreadable: "), qPrintable(said));
    QCOMPARE(model.index(0, JobModel::State).data(Qt::ToolTipRole).toString(), said);
}

void TestJobModel::whatIsKnownOfTheRecording() {
    EndedJobs jobs;
    Video* job = jobs.make("garden.mp4", Video::Finished, factsOf(3723.5, 2.347F));
    job->exportTimestamps = true;
    job->startDateTime = QDateTime(QDate(2026, 3, 1), QTime(22, 15));
    jobs.queue.add({job, jobs.make("gate.avi", Video::Finished)});
    const JobModel model(jobs.queue);
    QCOMPARE(text(model, 0, JobModel::Name), QString("garden.mp4"));
    QCOMPARE(model.index(0, JobModel::Name).data(Qt::ToolTipRole).toString(), jobs.folder.path());
    QCOMPARE(text(model, 0, JobModel::Length), QString("1:02:03"));
    QCOMPARE(text(model, 0, JobModel::Strongest), QString("2.35"));
    QVERIFY(text(model, 0, JobModel::Start).contains("22:15"));
    for (const auto column : {JobModel::Length, JobModel::Strongest, JobModel::Start})
        QCOMPARE(text(model, 1, column), QString());
}

void TestJobModel::oneThatIsSearchedAgainStepsBack() {
    EndedJobs jobs;
    const Video* first = jobs.add("garden.mp4", Video::Finished);
    JobModel model(jobs.queue);
    Video* second = jobs.add("garden.mp4", Video::CancelRequested);
    QCOMPARE(text(model, 0, JobModel::State), QString("no motion"));
    second->state = Video::Finished;
    model.refresh();
    QCOMPARE(text(model, 0, JobModel::State), QString("searched again"));
    QCOMPARE(text(model, 1, JobModel::State), QString("no motion"));
    QCOMPARE(model.totals().all, 1);
    QCOMPARE(model.row(first), 0);
    QCOMPARE(model.row(second), 1);
}

void TestJobModel::filesThatAreGone() {
    EndedJobs jobs;
    jobs.add("gate.avi", Video::Finished);
    const Video* job = jobs.add("garden.mp4", Video::Finished);
    JobModel model(jobs.queue);
    QSignalSpy changes(&model, SIGNAL(dataChanged(QModelIndex, QModelIndex)));
    QSignalSpy told(&model, SIGNAL(changed()));
    model.setPresence(job, FilePresence::Gone);
    model.setPresence(job, FilePresence::Gone);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes[0][0].toModelIndex().row(), 1);
    QCOMPARE(told.size(), 1);
    QCOMPARE(text(model, 0, JobModel::State), QString("no motion"));
    QCOMPARE(text(model, 1, JobModel::State), QString("file is gone, no motion"));
    model.setPresence(job, FilePresence::Changed);
    QCOMPARE(text(model, 1, JobModel::State), QString("file has changed since, no motion"));
    model.setPresence(job, FilePresence::Same);
    QCOMPARE(text(model, 1, JobModel::State), QString("no motion"));
}

void TestJobModel::totals() {
    EndedJobs jobs;
    JobModel model(jobs.queue);
    QCOMPARE(model.totals().text(), QString());
    const Video* found = jobs.add("a.mp4", Video::Finished);
    jobs.add("b.mp4", Video::Finished);
    jobs.add("c.mp4", Video::Failed);
    jobs.add("d.mp4", Video::Failed);
    model.setClipCounts({{found, 3}});
    QCOMPARE(model.totals().text(), QString("4: 1 with clips, 1 without, 2 unreadable"));
    jobs.add("e.mp4", Video::CancelRequested);
    QCOMPARE(model.totals().text(),
             QString("5: 1 with clips, 1 without, 2 unreadable, 1 cancelled"));
}

void TestJobModel::onlyOtherRowsAreTold() {
    EndedJobs jobs;
    QList<Video*> many;
    for (int i = 0; i < 500; ++i)
        many.append(jobs.make(QString::number(i), Video::Finished));
    jobs.queue.add(many);
    JobModel model(jobs.queue);
    QSignalSpy changes(&model, SIGNAL(dataChanged(QModelIndex, QModelIndex)));
    QSignalSpy told(&model, SIGNAL(changed()));
    model.refresh();
    QCOMPARE(changes.size(), 0);
    many[17]->state = Video::CancelRequested;
    many[400]->state = Video::Running;
    many[400]->fileSize = 200;
    many[400]->bytesRead = 86;
    model.refresh();
    QCOMPARE(changes.size(), 2);
    QCOMPARE(changes[0][0].toModelIndex().row(), 17);
    QCOMPARE(changes[1][0].toModelIndex().row(), 400);
    QCOMPARE(told.size(), 1);
    QCOMPARE(text(model, 400, JobModel::State), QString("searching 43 %"));
    many[400]->state = Video::Finished;
}

void TestJobModel::sortedByValues_data() {
    QTest::addColumn<int>("column");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("name") << int(JobModel::Name) << QStringList{"a", "b", "c"};
    QTest::newRow("clips") << int(JobModel::Clips) << QStringList{"c", "a", "b"};
    QTest::newRow("length") << int(JobModel::Length) << QStringList{"b", "c", "a"};
    QTest::newRow("strongest") << int(JobModel::Strongest) << QStringList{"a", "c", "b"};
    QTest::newRow("as they came") << -1 << QStringList{"c", "a", "b"};
}

/// As texts, 10 comes before 9, and 10:00:00 before 9:00:00.
void TestJobModel::sortedByValues() {
    QFETCH(int, column);
    EndedJobs jobs;
    jobs.add("c", Video::Finished, factsOf(9 * 3600.0, 9.5F));
    const Video* a = jobs.add("a", Video::Finished, factsOf(10 * 3600.0, 1.0F));
    const Video* b = jobs.add("b", Video::Finished, factsOf(30.0, 10.0F));
    JobModel model(jobs.queue);
    model.setClipCounts({{a, 9}, {b, 10}});
    JobFilter filter;
    filter.setSourceModel(&model);
    filter.sort(column < 0 ? int(JobModel::Name) : -1);
    filter.sort(column);
    QStringList names;
    for (int row = 0; row < filter.rowCount(); ++row)
        names += filter.index(row, JobModel::Name).data().toString();
    QTEST(names, "names");
}

void TestJobModel::namesAreSortedByTheirNumbers() {
    EndedJobs jobs;
    jobs.add("camera 10.mp4", Video::Finished);
    jobs.add("Camera 9.mp4", Video::Finished);
    JobModel model(jobs.queue);
    JobFilter filter;
    filter.setSourceModel(&model);
    filter.sort(JobModel::Name);
    QCOMPARE(filter.index(0, JobModel::Name).data().toString(), QString("Camera 9.mp4"));
}

void TestJobModel::filteredByNameAndKind() {
    EndedJobs jobs;
    const Video* garden = jobs.add("garden.mp4", Video::Finished);
    jobs.add("GARAGE.mp4", Video::Finished);
    jobs.add("broken.avi", Video::Failed);
    JobModel model(jobs.queue);
    model.setClipCounts({{garden, 1}});
    JobFilter filter;
    filter.setSourceModel(&model);
    filter.setText(" gar ");
    QCOMPARE(filter.rowCount(), 2);
    filter.setShown(JobFilter::Without);
    QCOMPARE(filter.rowCount(), 1);
    QCOMPARE(filter.index(0, 0).data().toString(), QString("GARAGE.mp4"));
    model.setClipCounts({{garden, 1}, {model.job(1), 2}});
    QCOMPARE(filter.rowCount(), 0);
    filter.setShown(JobFilter::WithClips);
    QCOMPARE(filter.rowCount(), 2);
    filter.setText({});
    filter.setShown(JobFilter::Unreadable);
    QCOMPARE(filter.index(0, 0).data().toString(), QString("broken.avi"));
}

QTEST_MAIN(TestJobModel)
#include "test_jobmodel.moc"
