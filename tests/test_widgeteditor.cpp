// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgeteditor.h"

#include "editorplacement.h"
#include "mouse.h"

#include <QSignalSpy>
#include <QtTest>

#include <random>

Q_DECLARE_METATYPE(QVector<QPolygon>)

namespace {

constexpr QRgb selected = 0xFF00FF00;

QImage picture(const QSize& size) {
    QImage image(size, QImage::Format_RGB888);
    image.fill(Qt::darkCyan);
    return image;
}

/// An editor on show with a picture in it.
struct Editor : WidgetEditor {
    Editor(const QSize& pictureSize, const QSize& widgetSize) {
        resize(widgetSize);
        show();
        setImage(picture(pictureSize));
    }

    EditorPlacement placement() {
        const QImage* image = mask();
        if (!image)
            qFatal("no mask to place");
        return {image->size(), size()};
    }

    /// A copy of the mask, whether or not it counts as a region.
    QImage pixels() {
        if (hasRoi())
            return *mask();
        invert();
        QImage copy = *mask();
        copy.invertPixels();
        clear();
        return maskOf(copy.size(), [&](int x, int y) { return qGreen(copy.pixel(x, y)) != 0; });
    }
};

/// 100x100 in a widget of 200x200: one picture pixel per widget pixel, shifted by 50.
struct SmallEditor : Editor {
    SmallEditor()
        : Editor({100, 100}, {200, 200}) {}

    void drag(const QPoint& from, const QPoint& to) {
        const QPoint shift(50, 50);
        mouse::stroke(*this, {from + shift, to + shift});
    }

    /// A closed shape around the rectangle's pixels.
    void outline(const QRect& r) {
        mouse::stroke(*this, {QPoint(50, 50) + r.topLeft(), QPoint(51, 50) + r.topRight(),
                              QPoint(51, 51) + r.bottomRight(), QPoint(50, 51) + r.bottomLeft()});
    }
};

} // namespace

class TestWidgetEditor : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutRegion();
    void rectangleFillsTheMask_data();
    void rectangleFillsTheMask();
    void freeShapeFillsTheMask_data();
    void freeShapeFillsTheMask();
    void freeShapeOnPixelBordersIsExact();
    void strokeIsUnderstoodAfterResizes();
    void newRectangleReplacesThePrevious();
    void freeShapesAddUp();
    void overlapWithinOneShapeIsLeftOut();
    void invertSwapsEveryPixel();
    void invertOfNothingSelectsEverything();
    void invertOfEverythingLeavesAnEmptyRegion();
    void invertKeepsTheRectangle();
    void coverageIsTheShareOfSelectedPixels();
    void clearDropsTheRegion();
    void modeSwitchAlwaysClears();
    void thousandthOfThePictureIsDiscarded_data();
    void thousandthOfThePictureIsDiscarded();
    void smallShapeWipesTheWholeMask();
    void clickInFreeModeLeavesNothing();
    void clickInFreeModeKeepsTheRegion();
    void regionExistsDuringTheStroke();
    void otherButtonsStartNothing();
    void anyButtonEndsTheStroke();
    void moveWithoutButtonContinuesTheStroke();
    void moveWithoutStrokeDoesNothing();
    void nextPictureEmptiesTheMaskOnly();
    void modeSwitchDuringAStrokeIsHarmless();
    void strokeIsDropped_data();
    void strokeIsDropped();
    void clearAndInvertOutlastADroppedStroke();
    void withoutPictureStrokesAreHarmless_data();
    void withoutPictureStrokesAreHarmless();
    void strokeFarOutsideIsHarmless();
};

void TestWidgetEditor::startsWithoutRegion() {
    WidgetEditor editor;
    QVERIFY(!editor.hasRoi());
    QVERIFY(!editor.mask());
    QVERIFY(!editor.roiRect());
    QCOMPARE(editor.coverage(), 0.0F);
    QCOMPARE(editor.minimumSize(), QSize(200, 200));
    QCOMPARE(WidgetEditor::staticMetaObject.methodCount() -
                 WidgetEditor::staticMetaObject.methodOffset(),
             1);
}

void TestWidgetEditor::rectangleFillsTheMask_data() {
    QTest::addColumn<QSize>("pictureSize");
    QTest::addColumn<QSize>("widgetSize");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    const QList<QPair<QSize, QSize>> sizes = {{{64, 48}, {517, 403}},     // smaller than the widget
                                              {{1920, 1080}, {640, 480}}, // larger
                                              {{3001, 211}, {457, 333}},  // wide
                                              {{97, 2003}, {601, 449}},   // tall
                                              {{333, 251}, {433, 351}},   // pixel for pixel
                                              {{500, 500}, {200, 200}}};  // the smallest widget
    for (const auto& [pictureSize, widgetSize] : sizes) {
        const QPoint near(widgetSize.width() / 3, widgetSize.height() / 3);
        const QPoint far(widgetSize.width() / 2 + 21, widgetSize.height() / 2 + 17);
        const QPoint beyond(widgetSize.width() - 1, widgetSize.height() - 1);
        const auto row = [&, pictureSize = pictureSize, widgetSize = widgetSize](
                             const char* drag, const QPoint& from, const QPoint& to) {
            QTest::addRow("%dx%d in %dx%d, %s", pictureSize.width(), pictureSize.height(),
                          widgetSize.width(), widgetSize.height(), drag)
                << pictureSize << widgetSize << from << to;
        };
        row("down right", near, far);
        row("up left", far, near);
        row("down left", {far.x(), near.y()}, {near.x(), far.y()});
        row("up right", {near.x(), far.y()}, {far.x(), near.y()});
        row("over the edges", {1, 1}, beyond);
        row("over one edge", near, beyond);
    }
}

void TestWidgetEditor::rectangleFillsTheMask() {
    QFETCH(QSize, pictureSize);
    QFETCH(QSize, widgetSize);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    Editor editor(pictureSize, widgetSize);
    QCOMPARE(editor.size(), widgetSize);
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    mouse::stroke(editor, {from, QPoint(7, 9), to});
    const QRect expected = EditorPlacement(pictureSize, widgetSize).rectangle(from, to);
    QVERIFY(editor.hasRoi());
    QCOMPARE(updates.count(), 1);
    QCOMPARE(*editor.roiRect(), expected);
    QVERIFY(editor.roiRect()->isValid());
    QCOMPARE(editor.mask()->format(), QImage::Format_ARGB32);
    QCOMPARE(*editor.mask(), maskOf(pictureSize, expected));
}

void TestWidgetEditor::freeShapeFillsTheMask_data() {
    QTest::addColumn<QSize>("pictureSize");
    QTest::addColumn<QSize>("widgetSize");
    QTest::addColumn<QPolygon>("shape"); // shares of the widget in percent
    const QPolygon triangle({{30, 30}, {70, 40}, {45, 75}});
    const QPolygon arrow({{25, 25}, {75, 30}, {50, 45}, {60, 80}});
    const QPolygon star({{50, 20}, {65, 75}, {22, 40}, {78, 42}, {33, 76}});
    const QPolygon outside({{2, 2}, {98, 5}, {60, 50}, {97, 97}, {3, 95}});
    const QList<QPair<QSize, QSize>> sizes = {{{64, 48}, {517, 403}},
                                              {{640, 360}, {480, 400}},
                                              {{901, 77}, {457, 333}},
                                              {{97, 601}, {601, 449}}};
    for (const auto& [pictureSize, widgetSize] : sizes) {
        const auto row = [&, pictureSize = pictureSize,
                          widgetSize = widgetSize](const char* name, const QPolygon& shape) {
            QTest::addRow("%s, %dx%d", name, pictureSize.width(), pictureSize.height())
                << pictureSize << widgetSize << shape;
        };
        row("triangle", triangle);
        row("arrow", arrow);
        row("star", star);
        row("over the edges", outside);
    }
}

void TestWidgetEditor::freeShapeFillsTheMask() {
    QFETCH(QSize, pictureSize);
    QFETCH(QSize, widgetSize);
    QFETCH(QPolygon, shape);
    const EditorPlacement placement(pictureSize, widgetSize);
    QVector<QPoint> points;
    QPolygon corners; // in the picture
    for (const QPoint& share : shape) {
        points.append(
            {share.x() * widgetSize.width() / 100, share.y() * widgetSize.height() / 100});
        corners.append(placement.pixel(points.last()));
    }
    Editor editor(pictureSize, widgetSize);
    editor.setRectangleMode(false);
    mouse::stroke(editor, points);
    QVERIFY(editor.hasRoi());
    QVERIFY(!editor.roiRect());
    const QImage mask = *editor.mask();
    QCOMPARE(mask.size(), pictureSize);
    int clear = 0;
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x) {
            QVERIFY(mask.pixel(x, y) == selected || mask.pixel(x, y) == 0);
            if (edgeDistance(corners, x + 0.5, y + 0.5) <= 1.0)
                continue;
            ++clear;
            const bool isSelected = isInside(corners, x + 0.5, y + 0.5);
            QVERIFY2(mask.pixel(x, y) == (isSelected ? selected : 0),
                     qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
        }
    }
    // Most pixels lie clear of an edge.
    QVERIFY(clear > mask.width() * mask.height() / 2);
}

void TestWidgetEditor::freeShapeOnPixelBordersIsExact() {
    SmallEditor editor;
    editor.setRectangleMode(false);
    editor.outline({10, 20, 31, 41});
    QCOMPARE(*editor.mask(), maskOf({100, 100}, QRect(10, 20, 31, 41)));
}

void TestWidgetEditor::strokeIsUnderstoodAfterResizes() {
    Editor editor({320, 240}, {640, 480});
    for (const QSize& size : {QSize(300, 700), QSize(900, 250), QSize(640, 480)}) {
        editor.resize(size);
        QCOMPARE(editor.size(), size);
        const QPoint from(size.width() / 3, size.height() / 3);
        const QPoint to(size.width() / 2 + 10, size.height() / 2 + 10);
        mouse::stroke(editor, {from, to});
        const QRect expected = EditorPlacement({320, 240}, size).rectangle(from, to);
        QCOMPARE(*editor.mask(), maskOf({320, 240}, expected));
    }
}

void TestWidgetEditor::newRectangleReplacesThePrevious() {
    SmallEditor editor;
    editor.drag({10, 10}, {29, 29});
    editor.drag({50, 60}, {69, 69});
    QCOMPARE(*editor.roiRect(), QRect(50, 60, 20, 10));
    QCOMPARE(*editor.mask(), maskOf({100, 100}, QRect(50, 60, 20, 10)));
}

void TestWidgetEditor::freeShapesAddUp() {
    SmallEditor editor;
    editor.setRectangleMode(false);
    const QRect first(10, 10, 30, 30);
    const QRect second(30, 30, 40, 20); // they overlap
    editor.outline(first);
    editor.outline(second);
    QCOMPARE(*editor.mask(), maskOf({100, 100}, [&](int x, int y) {
        return first.contains(x, y) || second.contains(x, y);
    }));
}

void TestWidgetEditor::overlapWithinOneShapeIsLeftOut() {
    // One line around two squares, one inside the other, joined along the row y = 10.
    SmallEditor editor;
    editor.setRectangleMode(false);
    const QPoint shift(50, 50);
    QVector<QPoint> points = {{10, 10}, {70, 10}, {70, 70}, {10, 70}, {10, 10}, {30, 10}, {30, 30},
                              {50, 30}, {50, 50}, {30, 50}, {30, 30}, {30, 10}, {10, 10}};
    for (QPoint& point : points)
        point += shift;
    mouse::stroke(editor, points);
    QCOMPARE(*editor.mask(), maskOf({100, 100}, [](int x, int y) {
        return QRect(10, 10, 60, 60).contains(x, y) && !QRect(30, 30, 20, 20).contains(x, y);
    }));
}

void TestWidgetEditor::invertSwapsEveryPixel() {
    Editor editor({333, 257}, {500, 400});
    editor.setRectangleMode(false);
    mouse::stroke(editor, {{120, 110}, {310, 150}, {200, 300}, {180, 120}});
    const QImage before = *editor.mask();
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    editor.invert();
    QCOMPARE(updates.count(), 1);
    QCOMPARE(*editor.mask(),
             maskOf(before.size(), [&](int x, int y) { return before.pixel(x, y) == 0; }));
    editor.invert();
    QCOMPARE(*editor.mask(), before);
}

void TestWidgetEditor::invertOfNothingSelectsEverything() {
    SmallEditor editor;
    editor.invert();
    QVERIFY(editor.hasRoi());
    QCOMPARE(*editor.mask(), maskOf({100, 100}, QRect(0, 0, 100, 100)));
}

void TestWidgetEditor::invertOfEverythingLeavesAnEmptyRegion() {
    SmallEditor editor;
    editor.invert();
    editor.invert();
    QVERIFY(editor.hasRoi());
    QCOMPARE(editor.coverage(), 0.0F);
    QCOMPARE(*editor.mask(), maskOf({100, 100}, QRect()));
}

void TestWidgetEditor::invertKeepsTheRectangle() {
    SmallEditor editor;
    editor.drag({10, 10}, {29, 29});
    editor.invert();
    QCOMPARE(*editor.roiRect(), QRect(10, 10, 20, 20));
}

void TestWidgetEditor::coverageIsTheShareOfSelectedPixels() {
    SmallEditor editor;
    QCOMPARE(editor.coverage(), 0.0F);
    editor.drag({0, 0}, {99, 24});
    QCOMPARE(editor.coverage(), 0.25F);
    editor.invert();
    QCOMPARE(editor.coverage(), 0.75F);
    // Any green counts, as the engine reads it; other colours do not.
    editor.mask()->fill(0xFFFF00FF);
    editor.mask()->setPixel(3, 4, 0x00000100);
    QCOMPARE(editor.coverage(), 0.0001F);
}

void TestWidgetEditor::clearDropsTheRegion() {
    SmallEditor editor;
    editor.drag({10, 10}, {59, 59});
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    editor.clear();
    QCOMPARE(updates.count(), 1);
    QVERIFY(!editor.hasRoi());
    QVERIFY(!editor.mask());
    QVERIFY(!editor.roiRect());
    QCOMPARE(editor.coverage(), 0.0F);
    editor.invert();
    QCOMPARE(*editor.roiRect(), QRect());
}

void TestWidgetEditor::modeSwitchAlwaysClears() {
    SmallEditor editor;
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    for (const bool isRectangle : {false, true, true}) {
        editor.invert();
        editor.setRectangleMode(isRectangle);
        QVERIFY(!editor.hasRoi());
        QCOMPARE(editor.coverage(), 0.0F);
    }
    QCOMPARE(updates.count(), 6);
}

void TestWidgetEditor::thousandthOfThePictureIsDiscarded_data() {
    QTest::addColumn<int>("pixels"); // in a row of a picture of 10000 pixels
    QTest::addColumn<bool>("isKept");
    QTest::addRow("none") << 0 << false;
    QTest::addRow("a tenth of it") << 1 << false;
    QTest::addRow("exactly") << 10 << false;
    QTest::addRow("one pixel more") << 11 << true;
}

void TestWidgetEditor::thousandthOfThePictureIsDiscarded() {
    QFETCH(int, pixels);
    QFETCH(bool, isKept);
    SmallEditor editor;
    editor.drag({0, 0}, {99, 99});
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    editor.drag({20, 20}, {20 + pixels - 1, 20});
    QCOMPARE(updates.count(), 1);
    QCOMPARE(editor.hasRoi(), isKept);
    const QRect expected(20, 20, isKept ? pixels : 0, 1);
    QCOMPARE(editor.pixels(), maskOf({100, 100}, expected));
}

void TestWidgetEditor::smallShapeWipesTheWholeMask() {
    // What counts is the whole mask after the stroke.
    SmallEditor editor;
    editor.setRectangleMode(false);
    editor.outline({10, 10, 5, 2});
    QVERIFY(!editor.hasRoi());
    QCOMPARE(editor.coverage(), 0.0F);
    editor.outline({40, 40, 3, 3});
    QVERIFY(!editor.hasRoi());
    editor.outline({40, 40, 3, 4});
    QVERIFY(editor.hasRoi());
    editor.outline({60, 60, 2, 2});
    QCOMPARE(editor.coverage(), 0.0016F);
}

void TestWidgetEditor::clickInFreeModeLeavesNothing() {
    SmallEditor editor;
    editor.setRectangleMode(false);
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    editor.drag({30, 30}, {30, 30});
    QCOMPARE(updates.count(), 1);
    QVERIFY(!editor.hasRoi());
    QVERIFY(!editor.mask());
    QCOMPARE(editor.coverage(), 0.0F);
}

void TestWidgetEditor::clickInFreeModeKeepsTheRegion() {
    SmallEditor editor;
    editor.setRectangleMode(false);
    editor.outline({10, 10, 30, 30});
    const QImage before = *editor.mask();
    editor.drag({70, 70}, {70, 70});
    QVERIFY(editor.hasRoi());
    QCOMPARE(*editor.mask(), before);
}

void TestWidgetEditor::regionExistsDuringTheStroke() {
    SmallEditor editor;
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    mouse::press(editor, {60, 60});
    QVERIFY(editor.hasRoi());
    QVERIFY(editor.mask());
    QCOMPARE(editor.coverage(), 0.0F);
    mouse::move(editor, {90, 90});
    QCOMPARE(editor.coverage(), 0.0F);
    QCOMPARE(updates.count(), 0);
    mouse::release(editor, {90, 90});
    QCOMPARE(editor.placement().rectangle({60, 60}, {90, 90}), *editor.roiRect());
    QCOMPARE(updates.count(), 1);
}

void TestWidgetEditor::otherButtonsStartNothing() {
    SmallEditor editor;
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        mouse::press(editor, {60, 60}, button);
        QVERIFY(!editor.hasRoi());
        mouse::move(editor, {140, 140});
        mouse::release(editor, {140, 140}, button);
    }
    QVERIFY(!editor.hasRoi());
    QCOMPARE(updates.count(), 0);
}

void TestWidgetEditor::anyButtonEndsTheStroke() {
    SmallEditor editor;
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    mouse::press(editor, {60, 60});
    mouse::press(editor, {70, 70}, Qt::RightButton);
    mouse::release(editor, {80, 80}, Qt::RightButton);
    QCOMPARE(updates.count(), 1);
    QCOMPARE(*editor.roiRect(), QRect(QPoint(10, 10), QPoint(30, 30)));
    mouse::release(editor, {140, 140});
    QCOMPARE(updates.count(), 1);
    QCOMPARE(*editor.roiRect(), QRect(QPoint(10, 10), QPoint(30, 30)));
}

void TestWidgetEditor::moveWithoutButtonContinuesTheStroke() {
    SmallEditor editor;
    editor.setRectangleMode(false);
    editor.setMouseTracking(true); // else such moves do not arrive
    mouse::press(editor, {60, 60});
    for (const QPoint& point : {QPoint(100, 60), QPoint(100, 110)}) {
        QMouseEvent move(QEvent::MouseMove, point, Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(&editor, &move);
    }
    mouse::release(editor, {60, 110});
    QCOMPARE(*editor.mask(), maskOf({100, 100}, QRect(10, 10, 40, 50)));
}

void TestWidgetEditor::moveWithoutStrokeDoesNothing() {
    SmallEditor editor;
    editor.setRectangleMode(false);
    for (const QPoint& point : {QPoint(60, 60), QPoint(100, 60), QPoint(100, 110)}) {
        QMouseEvent move(QEvent::MouseMove, point, Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&editor, &move);
    }
    mouse::release(editor, {60, 110});
    QVERIFY(!editor.hasRoi());
    // The next stroke starts afresh.
    editor.outline({10, 10, 20, 20});
    QCOMPARE(*editor.mask(), maskOf({100, 100}, QRect(10, 10, 20, 20)));
}

void TestWidgetEditor::nextPictureEmptiesTheMaskOnly() {
    SmallEditor editor;
    editor.drag({10, 10}, {59, 59});
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    editor.setImage(picture({320, 180}));
    QCOMPARE(updates.count(), 0);
    QVERIFY(editor.hasRoi());
    QCOMPARE(*editor.roiRect(), QRect(10, 10, 50, 50));
    QCOMPARE(*editor.mask(), maskOf({320, 180}, QRect()));
    // And the new picture is drawn on where it is shown.
    mouse::stroke(editor, {{80, 80}, {120, 120}});
    const QRect expected = EditorPlacement({320, 180}, {200, 200}).rectangle({80, 80}, {120, 120});
    QCOMPARE(*editor.mask(), maskOf({320, 180}, expected));
}

void TestWidgetEditor::modeSwitchDuringAStrokeIsHarmless() {
    SmallEditor editor;
    mouse::press(editor, {60, 60});
    editor.setRectangleMode(false);
    mouse::move(editor, {100, 60});
    mouse::release(editor, {100, 100});
    editor.setRectangleMode(false);
    mouse::press(editor, {60, 60});
    mouse::move(editor, {70, 70});
    editor.setRectangleMode(true);
    mouse::release(editor, {100, 100});
    QVERIFY(editor.hasRoi());
    QCOMPARE(*editor.mask(), maskOf({100, 100}, *editor.roiRect()));
}

void TestWidgetEditor::strokeIsDropped_data() {
    QTest::addColumn<bool>("isRectangle");
    QTest::addColumn<bool>("hadRegion");
    QTest::addColumn<bool>("isHidden"); // else it gets another picture
    for (const bool isRectangle : {true, false}) {
        for (const bool hadRegion : {true, false}) {
            for (const bool isHidden : {true, false})
                QTest::addRow("%s, region %d, %s", isRectangle ? "rectangle" : "free", hadRegion,
                              isHidden ? "hidden" : "next picture")
                    << isRectangle << hadRegion << isHidden;
        }
    }
}

void TestWidgetEditor::strokeIsDropped() {
    QFETCH(bool, isRectangle);
    QFETCH(bool, hadRegion);
    QFETCH(bool, isHidden);
    SmallEditor editor;
    editor.setRectangleMode(isRectangle);
    if (hadRegion)
        editor.outline({10, 20, 31, 41});
    const QImage before = editor.pixels();
    const QImage shownBefore = editor.grab().toImage();
    const QSignalSpy updates(&editor, SIGNAL(roiUpdated()));
    mouse::press(editor, {60, 60});
    mouse::move(editor, {120, 90});
    mouse::move(editor, {140, 140});
    if (isHidden)
        editor.hide();
    else
        editor.setImage(picture({100, 100}));
    QCOMPARE(editor.hasRoi(), hadRegion);
    // Whatever the window system still has to say about that button changes nothing.
    editor.show();
    for (const QEvent::Type type : {QEvent::MouseMove, QEvent::MouseButtonRelease}) {
        QMouseEvent late(type, QPoint(150, 150), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(&editor, &late);
    }
    QCOMPARE(updates.count(), 0);
    QCOMPARE(editor.hasRoi(), hadRegion);
    if (isHidden)
        QCOMPARE(editor.grab().toImage(), shownBefore);
    QCOMPARE(editor.pixels(), isHidden ? before : maskOf({100, 100}, QRect()));
}

void TestWidgetEditor::clearAndInvertOutlastADroppedStroke() {
    SmallEditor editor;
    editor.drag({10, 10}, {59, 59});
    mouse::press(editor, {60, 60});
    editor.clear();
    editor.hide();
    QVERIFY(!editor.hasRoi());
    editor.show();
    mouse::press(editor, {60, 60});
    editor.invert();
    editor.hide();
    QVERIFY(editor.hasRoi());
    QCOMPARE(*editor.mask(), maskOf({100, 100}, QRect(0, 0, 100, 100)));
}

void TestWidgetEditor::withoutPictureStrokesAreHarmless_data() {
    QTest::addColumn<bool>("isRectangle");
    QTest::addRow("rectangle") << true;
    QTest::addRow("free") << false;
}

void TestWidgetEditor::withoutPictureStrokesAreHarmless() {
    QFETCH(bool, isRectangle);
    WidgetEditor editor;
    editor.show();
    editor.setImage(QImage());
    editor.setRectangleMode(isRectangle);
    mouse::stroke(editor, {{10, 10}, {100, 50}, {100, 100}});
    QVERIFY(!editor.hasRoi());
    QCOMPARE(editor.coverage(), 0.0F);
    editor.invert();
    QVERIFY(editor.hasRoi());
    QVERIFY(editor.mask()->isNull());
}

void TestWidgetEditor::strokeFarOutsideIsHarmless() {
    Editor editor({3840, 2160}, {200, 200});
    editor.setRectangleMode(false);
    const int far = 30000;
    const QVector<QPoint> points = {{100, 100}, {-far, far}, {far, far}};
    mouse::press(editor, points[0]);
    for (const QPoint& point : points) {
        QMouseEvent move(QEvent::MouseMove, point, Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&editor, &move);
    }
    mouse::release(editor, points[0]);
    // A wedge below the centre.
    QVERIFY(editor.hasRoi());
    QCOMPARE(editor.mask()->pixel(1920, 2100), selected);
    QCOMPARE(editor.mask()->pixel(1920, 1000), QRgb(0));
}

QTEST_MAIN(TestWidgetEditor)
#include "test_widgeteditor.moc"
