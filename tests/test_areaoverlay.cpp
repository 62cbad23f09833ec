// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "areaoverlay.h"
#include "mouse.h"

#include <QAction>
#include <QMainWindow>
#include <QPainter>
#include <QtTest>

namespace {

const QSize pictures(800, 400);

/// A window as the main one, with actions for the same keys, and a picture in it.
struct Stand {
    Stand()
        : picture(new QWidget)
        , overlay(new AreaOverlay(*picture))
        , cancel(new QAction(&window))
        , remove(new QAction(&window)) {
        window.setCentralWidget(picture);
        window.resize(400, 300);
        cancel->setShortcut(Qt::Key_Escape);
        remove->setShortcut(Qt::Key_Delete);
        window.addActions({cancel, remove});
        QImage still(pictures, QImage::Format_RGB32);
        still.fill(Qt::white);
        overlay->setStill(still);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    QImage shown() const { return overlay->grab().toImage(); }

    QMainWindow window;
    QWidget* picture;
    AreaOverlay* overlay;
    QAction* cancel;
    QAction* remove;
};

} // namespace

class TestAreaOverlay : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rectangleIsDragged();
    void rectangleIsCutAtThePicture();
    void clickChangesNothing();
    void freeShapeIsDrawn();
    void mouseGoesThroughUnlessOneDraws();
    void areaKeepsItsPixelsWhenTheWindowGrows();
    void placeOfThePlayerCounts();
    void arrowsMoveAndResize();
    void arrowsBeginInTheMiddle();
    void shapeIsMovedAsAWhole();
    void clearingKeysReachNoAction_data();
    void clearingKeysReachNoAction();
    void outsideIsDarker_data();
    void outsideIsDarker();
    void regionIsWhatWasDrawn();
};

/// The picture of 800 x 400 is shown in 400 x 200, from row 50 on.
void TestAreaOverlay::rectangleIsDragged() {
    Stand stand;
    stand.overlay->setDrawing(true);
    const QSignalSpy changes(stand.overlay, SIGNAL(areaChanged()));
    mouse::stroke(*stand.overlay, {{200, 150}, {120, 120}, {100, 100}});
    QCOMPARE(stand.overlay->area().rectangle, QRect(200, 100, 200, 100));
    QCOMPARE(stand.overlay->area().pictures, pictures);
    QVERIFY(stand.overlay->area().shape.isEmpty());
    QCOMPARE(changes.size(), 1);
}

void TestAreaOverlay::rectangleIsCutAtThePicture() {
    Stand stand;
    stand.overlay->setDrawing(true);
    mouse::stroke(*stand.overlay, {{300, 100}, {399, 299}});
    QCOMPARE(stand.overlay->area().rectangle, QRect(600, 100, 198, 300));
}

void TestAreaOverlay::clickChangesNothing() {
    Stand stand;
    stand.overlay->setDrawing(true);
    mouse::stroke(*stand.overlay, {{100, 100}, {200, 150}});
    const QSignalSpy changes(stand.overlay, SIGNAL(areaChanged()));
    mouse::stroke(*stand.overlay, {{300, 150}, {301, 151}});
    QCOMPARE(changes.size(), 0);
    QCOMPARE(stand.overlay->area().rectangle, QRect(200, 100, 200, 100));
}

void TestAreaOverlay::freeShapeIsDrawn() {
    Stand stand;
    stand.overlay->setDrawing(true);
    stand.overlay->setFreeShape(true);
    mouse::stroke(*stand.overlay, {{100, 100}, {200, 100}, {100, 200}});
    const Area& area = stand.overlay->area();
    QCOMPARE(area.rectangle, QRect(200, 100, 200, 200));
    QVERIFY(area.path().contains(QPointF(220, 120)));
    QVERIFY(!area.path().contains(QPointF(380, 280)));
}

void TestAreaOverlay::mouseGoesThroughUnlessOneDraws() {
    Stand stand;
    mouse::stroke(*stand.overlay, {{100, 100}, {200, 150}});
    QVERIFY(stand.overlay->area().isEmpty());
    QCOMPARE(stand.window.childAt(200, 150), stand.picture);
    stand.overlay->setDrawing(true);
    QCOMPARE(stand.window.childAt(200, 150), stand.overlay);
    stand.overlay->setDrawing(false);
    QCOMPARE(stand.window.childAt(200, 150), stand.picture);
}

void TestAreaOverlay::areaKeepsItsPixelsWhenTheWindowGrows() {
    Stand stand;
    stand.overlay->setDrawing(true);
    mouse::stroke(*stand.overlay, {{100, 100}, {200, 150}});
    stand.window.resize(800, 500);
    QTRY_COMPARE(stand.overlay->size(), QSize(800, 500));
    QCOMPARE(stand.overlay->area().rectangle, QRect(200, 100, 200, 100));
    mouse::stroke(*stand.overlay, {{200, 150}, {400, 250}}); // pixel for pixel, from row 50 on
    QCOMPARE(stand.overlay->area().rectangle, QRect(200, 100, 200, 100));
}

void TestAreaOverlay::placeOfThePlayerCounts() {
    Stand stand;
    stand.overlay->setPlace({100, 0, 200, 100});
    stand.overlay->setDrawing(true);
    mouse::stroke(*stand.overlay, {{150, 25}, {200, 50}});
    QCOMPARE(stand.overlay->area().rectangle, QRect(200, 100, 200, 100));
}

void TestAreaOverlay::arrowsMoveAndResize() {
    Stand stand;
    stand.overlay->setDrawing(true);
    mouse::stroke(*stand.overlay, {{100, 100}, {200, 150}});
    QTest::keyClick(stand.window.windowHandle(), Qt::Key_Right);
    QTest::keyClick(stand.window.windowHandle(), Qt::Key_Down);
    QCOMPARE(stand.overlay->area().rectangle, QRect(216, 108, 200, 100));
    QTest::keyClick(stand.window.windowHandle(), Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(stand.window.windowHandle(), Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(stand.overlay->area().rectangle, QRect(216, 108, 184, 108));
    for (int i = 0; i < 100; ++i)
        QTest::keyClick(stand.window.windowHandle(), Qt::Key_Right);
    QCOMPARE(stand.overlay->area().rectangle, QRect(616, 108, 184, 108));
    for (int i = 0; i < 100; ++i)
        QTest::keyClick(stand.window.windowHandle(), Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(stand.overlay->area().rectangle, QRect(616, 108, 184, 4));
}

void TestAreaOverlay::arrowsBeginInTheMiddle() {
    Stand stand;
    stand.overlay->setDrawing(true);
    QTest::keyClick(stand.window.windowHandle(), Qt::Key_Right);
    QCOMPARE(stand.overlay->area().rectangle, QRect(200, 100, 400, 200));
}

void TestAreaOverlay::shapeIsMovedAsAWhole() {
    const Area area = shapedArea(pictures, QPolygonF({{100, 100}, {200, 100}, {100, 200}}));
    const Area there = moved(area, 50, -20);
    QCOMPARE(there.rectangle, QRect(150, 80, 100, 100));
    QVERIFY(there.path().contains(QPointF(170, 100)));
    QVERIFY(!there.path().contains(QPointF(240, 170)));
    const Area wider = resized(area, 100, 0);
    QCOMPARE(wider.rectangle, QRect(100, 100, 200, 100));
    QVERIFY(wider.path().contains(QPointF(270, 105)));
}

void TestAreaOverlay::clearingKeysReachNoAction_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("escape") << int(Qt::Key_Escape);
    QTest::newRow("delete") << int(Qt::Key_Delete);
}

void TestAreaOverlay::clearingKeysReachNoAction() {
    QFETCH(int, key);
    Stand stand;
    const QSignalSpy cancelled(stand.cancel, SIGNAL(triggered()));
    const QSignalSpy removed(stand.remove, SIGNAL(triggered()));
    stand.overlay->setDrawing(true);
    mouse::stroke(*stand.overlay, {{100, 100}, {200, 150}});
    const QSignalSpy changes(stand.overlay, SIGNAL(areaChanged()));
    QTest::keyClick(stand.window.windowHandle(), Qt::Key(key));
    QVERIFY(stand.overlay->area().isEmpty());
    QCOMPARE(changes.size(), 1);
    QCOMPARE(cancelled.size() + removed.size(), 0);
    stand.overlay->setDrawing(false);
    QTest::keyClick(stand.window.windowHandle(), Qt::Key(key));
    QCOMPARE(cancelled.size() + removed.size(), 1);
}

void TestAreaOverlay::outsideIsDarker_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("half") << QSize(400, 300);
    QTest::newRow("as it is") << QSize(800, 400);
    QTest::newRow("larger") << QSize(1300, 900);
    QTest::newRow("narrow") << QSize(210, 500);
}

void TestAreaOverlay::outsideIsDarker() {
    QFETCH(QSize, size);
    Stand stand;
    stand.window.resize(size);
    QTRY_COMPARE(stand.overlay->size(), size);
    stand.overlay->setArea(rectangularArea(pictures, {200, 100}, {400, 200}));
    const QImage shown = stand.shown();
    const double scale = std::min(size.width() / 800.0, size.height() / 400.0);
    const auto seen = [&](double x, double y) {
        return qGray(shown.pixel(int((size.width() - 800 * scale) / 2 + x * scale),
                                 int((size.height() - 400 * scale) / 2 + y * scale)));
    };
    QCOMPARE(seen(300, 150), 255);
    for (const QPointF outside :
         {QPointF(170, 150), QPointF(430, 150), QPointF(300, 70), QPointF(300, 230)})
        QVERIFY(seen(outside.x(), outside.y()) < 200);
}

void TestAreaOverlay::regionIsWhatWasDrawn() {
    const Area area = rectangularArea(pictures, {200, 100}, {400, 200});
    const RegionOfInterest region = regionOf(area, {{1, 2, 3, 4}});
    QCOMPARE(int(region.kind), int(RegionOfInterest::Kind::Rectangle));
    QCOMPARE(region.rectangle, QRect(200, 100, 200, 100));
    QCOMPARE(region.space, pictures);
    QCOMPARE(region.excluded, QVector<QRect>({{1, 2, 3, 4}}));
    const Area shape = shapedArea(pictures, QPolygonF({{0, 0}, {800, 0}, {0, 400}}));
    const PreparedRegion prepared = prepareRegion(regionOf(shape, {}), 800, 400);
    QVERIFY(std::abs(int(prepared.maskCount) - 160000) < 1600); // half of it
}

QTEST_MAIN(TestAreaOverlay)
#include "test_areaoverlay.moc"
