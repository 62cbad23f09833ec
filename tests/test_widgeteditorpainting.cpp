// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgeteditor.h"

#include "editorplacement.h"
#include "mouse.h"

#include <QPaintEvent>
#include <QtTest>

namespace {

const QColor pictureColour(200, 40, 90);

/// An editor on show that remembers what it painted.
struct Editor : WidgetEditor {
    Editor(const QSize& pictureSize, const QSize& widgetSize) {
        QImage picture(pictureSize, QImage::Format_RGB888);
        picture.fill(pictureColour);
        resize(widgetSize);
        show();
        setImage(picture);
        settle();
    }

    void settle() {
        QCoreApplication::processEvents();
        painted.clear();
    }

    QImage screen() { return grab().toImage().convertToFormat(QImage::Format_RGB32); }

    QColor colour(const QPoint& point) { return screen().pixelColor(point); }

    QVector<QRect> painted;

protected:
    void paintEvent(QPaintEvent* event) override {
        painted.append(event->rect());
        WidgetEditor::paintEvent(event);
    }
};

/// The bounding rectangle of everything that is not white.
QRect shownArea(const QImage& screen) {
    QRect area;
    for (int y = 0; y < screen.height(); ++y) {
        for (int x = 0; x < screen.width(); ++x) {
            if (screen.pixel(x, y) != 0xFFFFFFFF)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

bool isNear(const QColor& a, const QColor& b) {
    return std::abs(a.red() - b.red()) <= 2 && std::abs(a.green() - b.green()) <= 2 &&
           std::abs(a.blue() - b.blue()) <= 2;
}

/// 40 % green over the picture.
QColor washed() {
    return {pictureColour.red() * 6 / 10, pictureColour.green() * 6 / 10 + 102,
            pictureColour.blue() * 6 / 10};
}

} // namespace

class TestWidgetEditorPainting : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pictureIsFittedAndCentred_data();
    void pictureIsFittedAndCentred();
    void regionShowsAsAWash();
    void emptyRegionShowsNothing();
    void draggedRectangleIsOutlined();
    void freeStrokeIsOutlined();
    void freeStrokeRepaintsOnlyWhereItIs();
    void rectangleRepaintsEverything();
    void piecesLookLikeTheWhole();
    void withoutPictureAllIsWhite();
};

void TestWidgetEditorPainting::pictureIsFittedAndCentred_data() {
    QTest::addColumn<QSize>("pictureSize");
    QTest::addRow("smaller") << QSize(64, 48);
    QTest::addRow("larger") << QSize(1920, 1080);
    QTest::addRow("wide") << QSize(2000, 200);
    QTest::addRow("tall") << QSize(90, 900);
}

void TestWidgetEditorPainting::pictureIsFittedAndCentred() {
    QFETCH(QSize, pictureSize);
    Editor editor(pictureSize, {640, 480});
    for (const QSize& size : {QSize(640, 480), QSize(300, 600), QSize(700, 220)}) {
        editor.resize(size);
        const QRect shown = shownArea(editor.screen());
        const double scale = EditorPlacement(pictureSize, size).scale;
        QVERIFY(std::abs(shown.width() - pictureSize.width() / scale) <= 1.5);
        QVERIFY(std::abs(shown.height() - pictureSize.height() / scale) <= 1.5);
        // As far from the left as from the right, and 50 pixels where there is less room.
        const int left = shown.left();
        const int top = shown.top();
        QVERIFY(std::abs(left - (size.width() - 1 - shown.right())) <= 1);
        QVERIFY(std::abs(top - (size.height() - 1 - shown.bottom())) <= 1);
        QVERIFY(std::abs(std::min(left, top) - 50) <= 1);
        QVERIFY(isNear(editor.colour(shown.center()), pictureColour));
    }
}

void TestWidgetEditorPainting::regionShowsAsAWash() {
    Editor editor({300, 200}, {500, 400});
    mouse::stroke(editor, {{150, 150}, {240, 250}});
    QVERIFY(isNear(editor.colour({195, 200}), washed()));
    QVERIFY(isNear(editor.colour({300, 200}), pictureColour));
    QCOMPARE(editor.colour({10, 10}), QColor(Qt::white));
    editor.invert();
    QVERIFY(isNear(editor.colour({195, 200}), pictureColour));
    QVERIFY(isNear(editor.colour({300, 200}), washed()));
    editor.clear();
    QVERIFY(isNear(editor.colour({300, 200}), pictureColour));
}

void TestWidgetEditorPainting::emptyRegionShowsNothing() {
    Editor editor({300, 200}, {500, 400});
    const QImage before = editor.screen();
    editor.invert();
    editor.invert();
    QVERIFY(editor.hasRoi());
    QCOMPARE(editor.screen(), before);
}

void TestWidgetEditorPainting::draggedRectangleIsOutlined() {
    Editor editor({300, 200}, {500, 400});
    mouse::press(editor, {150, 150});
    mouse::move(editor, {240, 250});
    for (const QPoint& point : {QPoint(195, 150), QPoint(150, 200), QPoint(240, 250)})
        QCOMPARE(editor.colour(point), QColor(Qt::red));
    // Nothing is selected yet.
    QVERIFY(isNear(editor.colour({195, 200}), pictureColour));
    mouse::release(editor, {240, 250});
    QVERIFY(editor.colour({195, 150}) != QColor(Qt::red));
}

void TestWidgetEditorPainting::freeStrokeIsOutlined() {
    Editor editor({3000, 2000}, {500, 400});
    editor.setRectangleMode(false);
    mouse::press(editor, {150, 150});
    mouse::move(editor, {150, 250});
    mouse::move(editor, {240, 250});
    QCOMPARE(editor.colour({150, 200}), QColor(Qt::red));
    QCOMPARE(editor.colour({200, 250}), QColor(Qt::red));
    // It is not closed before it ends.
    QVERIFY(isNear(editor.colour({195, 200}), pictureColour));
    mouse::release(editor, {240, 250});
    QVERIFY(editor.colour({150, 200}) != QColor(Qt::red));
}

void TestWidgetEditorPainting::freeStrokeRepaintsOnlyWhereItIs() {
    Editor editor({3840, 2160}, {980, 600});
    editor.setRectangleMode(false);
    editor.settle();
    mouse::press(editor, {100, 120});
    QCOMPARE(editor.painted, QVector<QRect>());
    mouse::move(editor, {110, 117});
    // 5 pixels around the new segment, and further to the right and down than it needs.
    QCOMPARE(editor.painted, QVector<QRect>{QRect(95, 112, 115, 125)});
    editor.settle();
    mouse::move(editor, {104, 130});
    QCOMPARE(editor.painted, QVector<QRect>{QRect(99, 112, 115, 135)});
    editor.settle();
    mouse::release(editor, {104, 130});
    QCoreApplication::processEvents();
    QCOMPARE(editor.painted, QVector<QRect>{editor.rect()});
}

void TestWidgetEditorPainting::rectangleRepaintsEverything() {
    Editor editor({320, 240}, {500, 400});
    for (const QPoint& point : {QPoint(200, 200), QPoint(210, 205)}) {
        if (editor.hasRoi())
            mouse::move(editor, point);
        else
            mouse::press(editor, point);
        QCoreApplication::processEvents();
        QCOMPARE(editor.painted, QVector<QRect>{editor.rect()});
        editor.settle();
    }
    mouse::release(editor, {210, 205});
}

void TestWidgetEditorPainting::piecesLookLikeTheWhole() {
    Editor editor({320, 240}, {500, 400});
    QImage slope(320, 240, QImage::Format_RGB32);
    for (int y = 0; y < slope.height(); ++y) {
        for (int x = 0; x < slope.width(); ++x)
            slope.setPixel(x, y, qRgb(x * 255 / 320, y * 255 / 240, 90));
    }
    editor.setImage(slope);
    mouse::stroke(editor, {{150, 150}, {340, 250}});
    const QImage whole = editor.screen();
    QImage pieces(whole.size(), QImage::Format_RGB32);
    for (int y = 0; y < whole.height(); y += 37) {
        for (int x = 0; x < whole.width(); x += 53)
            editor.render(&pieces, {x, y}, QRegion(x, y, 53, 37));
    }
    int different = 0;
    for (int y = 0; y < whole.height(); ++y) {
        for (int x = 0; x < whole.width(); ++x)
            different += int(!isNear(whole.pixelColor(x, y), pieces.pixelColor(x, y)));
    }
    QCOMPARE(different, 0);
}

void TestWidgetEditorPainting::withoutPictureAllIsWhite() {
    WidgetEditor editor;
    editor.resize(300, 200);
    editor.show();
    QVERIFY(shownArea(editor.grab().toImage().convertToFormat(QImage::Format_RGB32)).isEmpty());
    editor.resize(400, 300);
    editor.invert();
    QVERIFY(shownArea(editor.grab().toImage().convertToFormat(QImage::Format_RGB32)).isEmpty());
}

QTEST_MAIN(TestWidgetEditorPainting)
#include "test_widgeteditorpainting.moc"
