// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cliplistwidget.h"

#include "captiondelegate.h"

#include <QtTest>

#include <memory>

namespace {

/// Counts what is costly: how often a caption is laid out.
class CountingDelegate : public CaptionDelegate {
public:
    using CaptionDelegate::CaptionDelegate;

    mutable int captions = 0;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        ++captions;
        CaptionDelegate::initStyleOption(option, index);
    }
};

/// As the main window's form sets it up.
template<class List>
std::unique_ptr<List> shownList() {
    auto list = std::make_unique<List>();
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setIconSize({320, 320});
    list->setMovement(QListView::Static);
    list->setResizeMode(QListView::Adjust);
    list->setSpacing(20);
    list->setViewMode(QListView::IconMode);
    list->setWordWrap(true);
    list->setItemDelegate(new CountingDelegate(list.get()));
    list->resize(1100, 700);
    list->show();
    return list;
}

QListWidgetItem* makeItem(int number, int height = 180, const QString& tail = "not exported") {
    QPixmap pixmap(320, height);
    pixmap.fill(Qt::darkGreen);
    return new QListWidgetItem(QIcon(pixmap),
                               QString("garden.mp4\n#%1 0:00:07 (%2)").arg(number).arg(tail));
}

QVector<QRect> places(const QListWidget& list) {
    QVector<QRect> rectangles;
    for (int row = 0; row < list.count(); ++row)
        rectangles.append(list.visualItemRect(list.item(row)));
    return rectangles;
}

const CountingDelegate& delegateOf(const QListWidget& list) {
    return static_cast<const CountingDelegate&>(*list.itemDelegate());
}

} // namespace

class TestClipListWidget : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void placesAreThoseOfAnyList();
    void newClipHasAPlaceWhenItIsAskedFor();
    void arrivingClipsAreMeasuredOnce();
    void changedClipsAreMeasuredOnce();
    void isNotBlankWhileClipsArrive();
    void changedSizeMovesTheOthers();
    void otherFontMovesAll();
    void firstArrowSelectsTheFirstClip_data();
    void firstArrowSelectsTheFirstClip();
    void arrowsGoOnFromAChosenClip();
    void spaceSelectsTheFirstClip();
};

void TestClipListWidget::placesAreThoseOfAnyList() {
    const auto list = shownList<ClipListWidget>();
    const auto plain = shownList<QListWidget>();
    const auto change = [&](auto action) {
        action(*list);
        action(*plain);
        QCoreApplication::processEvents();
        return places(*list) == places(*plain);
    };
    for (int i = 0; i < 40; ++i) {
        const int height = i % 7 == 3 ? 569 : 180;
        QVERIFY(change([i, height](QListWidget& list) { list.addItem(makeItem(i, height)); }));
    }
    QVERIFY(change([](QListWidget& list) { list.insertItem(5, makeItem(40, 240)); }));
    QVERIFY(change([](QListWidget& list) { delete list.takeItem(3); }));
    QVERIFY(change([](QListWidget& list) {
        delete list.takeItem(0);
        list.addItem(makeItem(41));
        list.addItem(makeItem(42));
    }));
    QVERIFY(change([](QListWidget& list) { list.resize(800, 600); }));
    QVERIFY(change([](QListWidget& list) { list.clear(); }));
    QVERIFY(change([](QListWidget& list) { list.addItem(makeItem(43)); }));
}

void TestClipListWidget::newClipHasAPlaceWhenItIsAskedFor() {
    const auto list = shownList<ClipListWidget>();
    for (int i = 0; i < 20; ++i) {
        list->addItem(makeItem(i));
        QVERIFY(list->visualItemRect(list->item(i)).isValid());
    }
}

void TestClipListWidget::arrivingClipsAreMeasuredOnce() {
    const auto list = shownList<ClipListWidget>();
    QVERIFY(QTest::qWaitForWindowExposed(list.get()));
    // The view full; what lies below it is not painted.
    for (int i = 0; i < 100; ++i)
        list->addItem(makeItem(i));
    QVERIFY(list->visualItemRect(list->item(99)).top() > list->height());
    list->setUpdatesEnabled(false);
    const int before = delegateOf(*list).captions;
    for (int i = 100; i < 400; ++i) {
        list->addItem(makeItem(i));
        QCoreApplication::processEvents();
    }
    QVERIFY(list->visualItemRect(list->item(399)).isValid());
    QCOMPARE(delegateOf(*list).captions - before, 300);
}

void TestClipListWidget::changedClipsAreMeasuredOnce() {
    const auto list = shownList<ClipListWidget>();
    for (int i = 0; i < 100; ++i)
        list->addItem(makeItem(i));
    QVERIFY(list->visualItemRect(list->item(99)).isValid());
    list->setUpdatesEnabled(false);
    const int before = delegateOf(*list).captions;
    for (int i = 0; i < 100; ++i) {
        list->item(i)->setText(QString("garden.mp4\n#%1 0:00:07 (queued...)").arg(i));
        QCoreApplication::processEvents();
    }
    QCOMPARE(delegateOf(*list).captions - before, 100);
}

void TestClipListWidget::isNotBlankWhileClipsArrive() {
    const auto list = shownList<ClipListWidget>();
    for (int i = 0; i < 3; ++i)
        list->addItem(makeItem(i));
    const QRect middle = list->visualItemRect(list->item(1));
    QCoreApplication::processEvents();
    QCOMPARE(list->viewport()->grab().toImage().pixelColor(middle.center()), QColor(Qt::darkGreen));
    // Painted before the event loop comes to anything else.
    list->addItem(makeItem(3));
    QCOMPARE(list->viewport()->grab().toImage().pixelColor(middle.center()), QColor(Qt::darkGreen));
}

void TestClipListWidget::changedSizeMovesTheOthers() {
    const auto list = shownList<ClipListWidget>();
    for (int i = 0; i < 9; ++i)
        list->addItem(makeItem(i));
    const QRect below = list->visualItemRect(list->item(8));
    list->item(0)->setText(QString("of many words ").repeated(30));
    QTRY_VERIFY(list->visualItemRect(list->item(8)).top() > below.top());
    QVERIFY(!list->visualItemRect(list->item(0)).intersects(list->visualItemRect(list->item(3))));
}

void TestClipListWidget::otherFontMovesAll() {
    const auto list = shownList<ClipListWidget>();
    const auto plain = shownList<QListWidget>();
    for (QListWidget* each : {static_cast<QListWidget*>(list.get()), plain.get()}) {
        for (int i = 0; i < 9; ++i)
            each->addItem(makeItem(i));
        QVERIFY(each->visualItemRect(each->item(8)).isValid());
        QFont font = each->font();
        font.setPointSize(24);
        each->setFont(font);
    }
    QCoreApplication::processEvents();
    QCOMPARE(places(*list), places(*plain));
}

void TestClipListWidget::firstArrowSelectsTheFirstClip_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("hasFocusFirst");
    for (const bool hasFocusFirst : {false, true}) {
        const char* when = hasFocusFirst ? "focus, then clips" : "clips, then focus";
        QTest::addRow("right, %s", when) << int(Qt::Key_Right) << hasFocusFirst;
        QTest::addRow("down, %s", when) << int(Qt::Key_Down) << hasFocusFirst;
        QTest::addRow("left, %s", when) << int(Qt::Key_Left) << hasFocusFirst;
        QTest::addRow("up, %s", when) << int(Qt::Key_Up) << hasFocusFirst;
    }
}

void TestClipListWidget::firstArrowSelectsTheFirstClip() {
    QFETCH(int, key);
    QFETCH(bool, hasFocusFirst);
    const auto list = shownList<ClipListWidget>();
    const auto giveFocus = [&list] {
        QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
        QCoreApplication::sendEvent(list.get(), &event);
    };
    if (hasFocusFirst)
        giveFocus();
    for (int i = 0; i < 12; ++i)
        list->addItem(makeItem(i));
    if (!hasFocusFirst)
        giveFocus();
    QTest::keyClick(list.get(), Qt::Key(key));
    QCOMPARE(list->selectedItems(), QList<QListWidgetItem*>{list->item(0)});
    QCOMPARE(list->currentRow(), 0);
    QTest::keyClick(list.get(), Qt::Key_Right);
    QCOMPARE(list->selectedItems(), QList<QListWidgetItem*>{list->item(1)});
}

void TestClipListWidget::arrowsGoOnFromAChosenClip() {
    const auto list = shownList<ClipListWidget>();
    for (int i = 0; i < 12; ++i)
        list->addItem(makeItem(i));
    QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(list.get(), &focus);
    // Moved without selecting, the list's second clip is where the person is.
    QTest::keyClick(list.get(), Qt::Key_Right, Qt::ControlModifier);
    QVERIFY(list->selectedItems().isEmpty());
    QTest::keyClick(list.get(), Qt::Key_Right);
    QCOMPARE(list->selectedItems(), QList<QListWidgetItem*>{list->item(2)});
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(0)).center());
    QTest::keyClick(list.get(), Qt::Key_Right);
    QCOMPARE(list->selectedItems(), QList<QListWidgetItem*>{list->item(1)});
}

void TestClipListWidget::spaceSelectsTheFirstClip() {
    const auto list = shownList<ClipListWidget>();
    for (int i = 0; i < 3; ++i)
        list->addItem(makeItem(i));
    QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(list.get(), &focus);
    QTest::keyClick(list.get(), Qt::Key_Space);
    QCOMPARE(list->selectedItems(), QList<QListWidgetItem*>{list->item(0)});
}

QTEST_MAIN(TestClipListWidget)
#include "test_cliplistwidget.moc"
