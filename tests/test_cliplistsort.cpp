// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "captiondelegate.h"
#include "clip.h"
#include "cliplistwidget.h"
#include "cliporder.h"
#include "video.h"

#include <QScrollBar>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

QSet<Clip*> asSet(const QList<Clip*>& clips) {
    return {clips.begin(), clips.end()};
}

} // namespace

/// A list as the main window's, with clips of two recordings, the second of which began at nine in
/// the morning.
class TestClipListSort : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void sorts_data();
    void sorts();
    void equalOnesKeepTheirOrder();
    void clipsOfNoJobComeLast();
    void selectionStays();
    void placeStays();
    void nothingIsTold();
    void laterClipsAppend();
    void sizesStay();

private:
    Video* makeJob(const QString& name, bool isTimed);
    void add(Video* job, int index, double start, double end, float strength);
    QStringList labels() const;
    void sort(ClipOrder order) { reorder(*list, ordered(list->clips(), order, jobs)); }

    QTemporaryDir folder;
    QList<Video*> jobs;
    std::unique_ptr<ClipListWidget> list;
};

Video* TestClipListSort::makeJob(const QString& name, bool isTimed) {
    return new Video(name, folder.path(), 1.0, 2.0, 2.0, 0, false, nullptr, nullptr, isTimed,
                     QDateTime({2026, 11, 22}, {9, 0}, Qt::UTC));
}

void TestClipListSort::add(Video* job, int index, double start, double end, float strength) {
    QImage snapshot(320, 240, QImage::Format_RGB32);
    snapshot.fill(Qt::green);
    auto* clip = new Clip(job, index, snapshot, start, end, start);
    clip->strength = strength;
    list->addItem(clip);
}

void TestClipListSort::init() {
    jobs = {makeJob("b.mp4", false), makeJob("a.mp4", true)};
    list = std::make_unique<ClipListWidget>();
    list->setViewMode(QListView::IconMode);
    list->setIconSize({320, 320});
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setItemDelegate(new CaptionDelegate(list.get()));
    list->resize(800, 600);
    list->show();
    add(jobs[1], 0, 5.0, 9.0, 3.0F); // at 9:00:05
    add(jobs[0], 7, 1.0, 2.0, 2.0F);
    add(jobs[0], 1, 50.0, 58.0, -1.0F);
    add(jobs[0], 2, 40.0, 42.0, 9.0F);
    add(jobs[1], 1, 3.0, 4.5, 2.5F);
}

void TestClipListSort::cleanup() {
    list.reset();
    qDeleteAll(jobs);
}

QStringList TestClipListSort::labels() const {
    QStringList found;
    for (const Clip* clip : list->clips())
        found.append(clip->video->fileName.left(1) + QString::number(clip->index));
    return found;
}

void TestClipListSort::sorts_data() {
    QTest::addColumn<int>("order");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("found") << int(ClipOrder::Found) << QStringList{"b7", "b2", "b1", "a1", "a0"};
    QTest::newRow("strength") << int(ClipOrder::Strength)
                              << QStringList{"b2", "a0", "a1", "b7", "b1"};
    QTest::newRow("length") << int(ClipOrder::Length) << QStringList{"b1", "a0", "b2", "a1", "b7"};
    QTest::newRow("time") << int(ClipOrder::TimeOfDay) << QStringList{"b7", "b2", "b1", "a1", "a0"};
}

void TestClipListSort::sorts() {
    QFETCH(int, order);
    QFETCH(QStringList, expected);
    const QList<Clip*> before = list->clips();
    sort(ClipOrder(order));
    QCOMPARE(labels(), expected);
    QCOMPARE(asSet(list->clips()), asSet(before)); // the same objects
}

void TestClipListSort::equalOnesKeepTheirOrder() {
    for (Clip* clip : list->clips())
        clip->strength = 1.0F;
    const QStringList before = labels();
    sort(ClipOrder::Strength);
    QCOMPARE(labels(), before);
}

void TestClipListSort::clipsOfNoJobComeLast() {
    const QList<Clip*> clips = ordered(list->clips(), ClipOrder::Found, {jobs[1]});
    QCOMPARE(clips[0]->video.data(), jobs[1]);
    QCOMPARE(clips[4]->video.data(), jobs[0]);
}

void TestClipListSort::selectionStays() {
    list->item(0)->setSelected(true);
    list->item(3)->setSelected(true);
    list->setCurrentRow(3, QItemSelectionModel::NoUpdate);
    const QList<Clip*> selected = list->selectedClips();
    QListWidgetItem* current = list->currentItem();
    sort(ClipOrder::Length);
    QCOMPARE(asSet(list->selectedClips()), asSet(selected));
    QCOMPARE(list->currentItem(), current);
}

void TestClipListSort::placeStays() {
    for (int i = 0; i < 30; ++i)
        add(jobs[0], 10 + i, 100.0 + i, 110.0 + 2 * i, 1.0F);
    list->doItemsLayout();
    list->verticalScrollBar()->setValue(1000);
    QCOMPARE(list->verticalScrollBar()->value(), 1000);
    sort(ClipOrder::Length);
    QCOMPARE(list->verticalScrollBar()->value(), 1000);
    QTest::qWait(700); // longer than a layout can be put off
    QCOMPARE(list->verticalScrollBar()->value(), 1000);
}

/// What listens would take a clip for chosen that is only passed by.
void TestClipListSort::nothingIsTold() {
    list->setCurrentRow(2);
    const QSignalSpy current(list.get(),
                             SIGNAL(currentItemChanged(QListWidgetItem*, QListWidgetItem*)));
    const QSignalSpy selection(list.get(), SIGNAL(itemSelectionChanged()));
    sort(ClipOrder::Length);
    QCOMPARE(current.size() + selection.size(), 0);
}

void TestClipListSort::laterClipsAppend() {
    sort(ClipOrder::Strength);
    add(jobs[0], 8, 60.0, 99.0, 100.0F);
    QCOMPARE(labels(), QStringList({"b2", "a0", "a1", "b7", "b1", "b8"}));
}

void TestClipListSort::sizesStay() {
    const QSize before = list->visualItemRect(list->item(0)).size();
    sort(ClipOrder::Length);
    for (int row = 0; row < list->count(); ++row)
        QCOMPARE(list->visualItemRect(list->item(row)).size(), before);
    QVERIFY(!list->visualItemRect(list->item(0)).intersects(list->visualItemRect(list->item(1))));
}

QTEST_MAIN(TestClipListSort)
#include "test_cliplistsort.moc"
