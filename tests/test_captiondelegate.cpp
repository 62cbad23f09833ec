// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "captiondelegate.h"

#include <QListWidget>
#include <QPainter>
#include <QtTest>

namespace {

constexpr int iconSide = 320;

/// A list as the main window's, with one item.
struct ClipList : QListWidget {
    ClipList(const QString& text, const QSize& picture) {
        setViewMode(QListView::IconMode);
        setIconSize({iconSide, iconSide});
        setWordWrap(true);
        setItemDelegate(new CaptionDelegate(this));
        resize(1200, 900);
        QPixmap pixmap(picture);
        pixmap.fill(Qt::darkGreen);
        addItem(new QListWidgetItem(QIcon(pixmap), text));
        show();
    }

    QRect place() const { return visualItemRect(item(0)); }
};

/// The rows and columns of the item in which its text, black on white, is seen below its picture.
QRect inkBelow(ClipList& list, int top) {
    const QImage image = list.viewport()->grab().toImage();
    QRect ink;
    for (int y = list.place().top() + top; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 100)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

const QString secondLine = "\n#3 9:05:03 (12 sec) (queued...)";

} // namespace

class TestCaptionDelegate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shortNamesAreShownAsEver_data();
    void shortNamesAreShownAsEver();
    void longNamesAreNoWiderThanThePicture_data();
    void longNamesAreNoWiderThanThePicture();
    void allOfALongNameIsSeen();
    void spacesAreBrokenAtFirst();
    void joinedClipsHaveABracket();
};

void TestCaptionDelegate::shortNamesAreShownAsEver_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QSize>("picture");
    QTest::newRow("caption") << "garden.mp4" + secondLine << QSize(320, 180);
    QTest::newRow("portrait") << "garden.mp4" + secondLine << QSize(320, 569);
    QTest::newRow("words") << "a name of many words that needs a second line and a third.mp4"
                           << QSize(320, 240);
    QTest::newRow("empty") << QString() << QSize(320, 240);
}

void TestCaptionDelegate::shortNamesAreShownAsEver() {
    QFETCH(QString, text);
    QFETCH(QSize, picture);
    ClipList list(text, picture);
    const QRect place = list.place();
    const QImage shown = list.viewport()->grab().toImage();
    list.setItemDelegate(new QStyledItemDelegate(&list));
    QCOMPARE(place, list.place());
    QCOMPARE(shown, list.viewport()->grab().toImage());
}

void TestCaptionDelegate::longNamesAreNoWiderThanThePicture_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("letters") << QString(120, 'w') + ".mp4";
    QTest::newRow("underscores") << QString("camera_7_").repeated(12) + ".mp4";
    QTest::newRow("combined") << QString::fromUtf8("e\u0301").repeated(150);
    QTest::newRow("pairs") << QString::fromUtf8("\U0001F426").repeated(60);
    QTest::newRow("as long as can be") << QString(251, 'x') + ".mp4";
}

void TestCaptionDelegate::longNamesAreNoWiderThanThePicture() {
    QFETCH(QString, name);
    const QString text = name + secondLine;
    const ClipList list(text, {320, 180});
    const ClipList usual("garden.mp4" + secondLine, {320, 180});
    QCOMPARE(list.place().width(), usual.place().width());
    QVERIFY(list.place().height() > usual.place().height());
    QCOMPARE(list.item(0)->text(), text);
}

void TestCaptionDelegate::allOfALongNameIsSeen() {
    // As much ink as its letters have in one line, spread over several.
    ClipList list(QString(100, 'w'), {320, 180});
    const QRect ink = inkBelow(list, 190);
    QVERIFY(ink.left() >= list.place().left() && ink.right() <= list.place().right());
    const int lines =
        (list.fontMetrics().horizontalAdvance(QString(100, 'w')) + iconSide - 1) / iconSide;
    QVERIFY(lines > 2);
    QVERIFY2(ink.height() > (lines - 1) * list.fontMetrics().height(),
             qPrintable(QString::number(ink.height())));
}

void TestCaptionDelegate::spacesAreBrokenAtFirst() {
    // The long word fills lines of its own; those before and after stay whole.
    const QString longWord(90, 'w');
    const ClipList list("before " + longWord + " after", {320, 180});
    const ClipList alone(longWord, {320, 180});
    const int line = list.fontMetrics().height();
    QVERIFY(list.place().height() >= alone.place().height());
    QVERIFY(list.place().height() <= alone.place().height() + 2 * line);
}

/// Two items of one group, one of another and one of none.
void TestCaptionDelegate::joinedClipsHaveABracket() {
    ClipList list("garden.mp4" + secondLine, QSize(320, 240));
    for (int i = 0; i < 3; ++i)
        list.addItem(list.item(0)->clone());
    list.resize(1800, 500);
    list.item(0)->setData(joinedRole, 1);
    list.item(1)->setData(joinedRole, 1);
    list.item(2)->setData(joinedRole, 2);
    QCoreApplication::processEvents(); // lays them out
    const QImage shown = list.viewport()->grab().toImage();
    const QColor color = list.palette().color(QPalette::Active, QPalette::Highlight);
    const auto isBracket = [&](int row, bool isAtEnd, int down) {
        const QRect place = list.visualItemRect(list.item(row));
        return shown.pixelColor(isAtEnd ? place.right() : place.left(), place.top() + down) ==
               color;
    };
    for (int row = 0; row < 3; ++row)
        QVERIFY(isBracket(row, false, 0) && isBracket(row, true, 0));
    QVERIFY(isBracket(0, false, 10) && !isBracket(0, true, 10));
    QVERIFY(!isBracket(1, false, 10) && isBracket(1, true, 10));
    QVERIFY(isBracket(2, false, 10) && isBracket(2, true, 10));
    QVERIFY(!isBracket(3, false, 0) && !isBracket(3, true, 0));
}

QTEST_MAIN(TestCaptionDelegate)
#include "test_captiondelegate.moc"
