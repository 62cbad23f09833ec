// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellregion.h"

#include <QtTest>

#include <random>

namespace {

constexpr QRgb selected = 0xFF00FF00;

RegionOfInterest rectangle(const QRect& rectangle, const QSize& space = {}) {
    RegionOfInterest region;
    region.kind = RegionOfInterest::Kind::Rectangle;
    region.rectangle = rectangle;
    region.space = space;
    return region;
}

RegionOfInterest mask(const QImage& picture) {
    RegionOfInterest region;
    region.kind = RegionOfInterest::Kind::Mask;
    region.mask = picture;
    return region;
}

/// The columns and rows of a set that is a filled box; null if it is none.
QRect boxOf(const CellBits& cells) {
    QRect box;
    for (int row = 0; row < cells.grid.rows; ++row) {
        for (int column = 0; column < cells.grid.columns; ++column) {
            if (cells.has(column, row))
                box |= QRect(column, row, 1, 1);
        }
    }
    return box.width() * box.height() == cells.count() ? box : QRect();
}

bool isSelected(const PreparedRegion& region, int x, int y) {
    if (region.kind == RegionOfInterest::Kind::Mask)
        return region.maskMat.at<uchar>(y, x) != 0;
    return region.kind == RegionOfInterest::Kind::WholeFrame || region.roi.contains({x, y});
}

/// Each pixel by itself is counted in the cell whose borders it lies between.
CellBits slowCellsOf(const RegionOfInterest& region, QSize pictures) {
    const CellGrid grid = cellGridOf(pictures.width(), pictures.height());
    const PreparedRegion prepared = prepareRegion(region, pictures.width(), pictures.height());
    QVector<int> pixels(grid.count());
    QVector<int> chosen(grid.count());
    for (int y = 0; y < pictures.height(); ++y) {
        for (int x = 0; x < pictures.width(); ++x) {
            // The last cell that begins at the pixel or before it.
            const int column = ((x + 1) * grid.columns - 1) / pictures.width();
            const int row = ((y + 1) * grid.rows - 1) / pictures.height();
            ++pixels[row * grid.columns + column];
            chosen[row * grid.columns + column] += isSelected(prepared, x, y) ? 1 : 0;
        }
    }
    CellBits half(grid);
    CellBits touched(grid);
    for (int i = 0; i < grid.count(); ++i) {
        if (chosen[i] > 0 && chosen[i] * 2 >= pixels[i])
            half.add(i % grid.columns, i / grid.columns);
        if (chosen[i] > 0)
            touched.add(i % grid.columns, i / grid.columns);
    }
    return half.count() > 0 ? half : touched;
}

QRect randomRectangle(QSize size, std::mt19937& random) {
    const auto below = [&random](int end) { return int(random() % unsigned(end)); };
    return {below(size.width()) - 3, below(size.height()) - 3, 1 + below(size.width()),
            1 + below(size.height())};
}

QImage randomMask(QSize size, std::mt19937& random) {
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(0u);
    const unsigned density = 1 + random() % 5;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            if (random() % density == 0)
                picture.setPixel(x, y, selected);
        }
    }
    return picture;
}

} // namespace

class TestCellRegion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wholePictureIsAllCells();
    void cellsThatAreHalfSelected();
    void cellsThatAreTouchedWhereNoneIsHalfSelected();
    void rectanglesAreLeftOut();
    void nothingSelectedIsNoCell();
    void picturesOfAnotherSize();
    void picturesOfUnknownSize();
    void hugePicturesCostNoMemory();
    void likePixelsOneByOne();
    void smallRegionsAreMoreSensitive();
    void boxesInPixels();
};

void TestCellRegion::wholePictureIsAllCells() {
    QCOMPARE(cellsOf({}, {1920, 1080}, {160, 90}).count(), 160 * 90);
    QCOMPARE(cellsOf({}, {1920, 1080}, {}).count(), 0);
}

void TestCellRegion::cellsThatAreHalfSelected() {
    // Cells of 10 x 10 pixels; those at the left are covered by 5 columns, at the right by 4.
    QCOMPARE(boxOf(cellsOf(rectangle({5, 20, 29, 30}), {1600, 1000}, {160, 100})),
             QRect(0, 2, 3, 3));
}

void TestCellRegion::cellsThatAreTouchedWhereNoneIsHalfSelected() {
    QCOMPARE(boxOf(cellsOf(rectangle({18, 18, 4, 4}), {1600, 1000}, {160, 100})),
             QRect(1, 1, 2, 2));
}

void TestCellRegion::rectanglesAreLeftOut() {
    RegionOfInterest region;
    region.excluded = {{0, 0, 1600, 985}};
    QCOMPARE(boxOf(cellsOf(region, {1600, 1000}, {160, 100})), QRect(0, 98, 160, 2));
    region.excluded = {{0, 0, 1600, 986}};
    QCOMPARE(boxOf(cellsOf(region, {1600, 1000}, {160, 100})), QRect(0, 99, 160, 1));
}

void TestCellRegion::nothingSelectedIsNoCell() {
    QCOMPARE(cellsOf(rectangle({2000, 0, 9, 9}), {1600, 1000}, {160, 100}).count(), 0);
    QImage black(16, 10, QImage::Format_ARGB32);
    black.fill(0u);
    QCOMPARE(cellsOf(mask(black), {1600, 1000}, {160, 100}).count(), 0);
    RegionOfInterest region;
    region.excluded = {{0, 0, 1600, 1000}};
    QCOMPARE(cellsOf(region, {1600, 1000}, {160, 100}).count(), 0);
}

void TestCellRegion::picturesOfAnotherSize() {
    // The left half of the first pictures is the left half of all, whichever space it is told in.
    const CellGrid other{160, 120};
    QCOMPARE(boxOf(cellsOf(rectangle({0, 0, 800, 1000}), {1600, 1000}, other)),
             QRect(0, 0, 80, 120));
    QCOMPARE(boxOf(cellsOf(rectangle({0, 0, 50, 100}, {100, 100}), {1600, 1000}, other)),
             QRect(0, 0, 80, 120));
    QImage left(2, 1, QImage::Format_ARGB32);
    left.fill(0u);
    left.setPixel(0, 0, selected);
    QCOMPARE(boxOf(cellsOf(mask(left), {1600, 1000}, other)), QRect(0, 0, 80, 120));
}

void TestCellRegion::picturesOfUnknownSize() {
    QCOMPARE(boxOf(cellsOf(rectangle({0, 0, 50, 100}, {100, 100}), {}, {160, 120})),
             QRect(0, 0, 80, 120));
}

void TestCellRegion::hugePicturesCostNoMemory() {
    // As pixels this mask would be more than can be had.
    RegionOfInterest region;
    region.excluded = {{0, 0, 1000000000, 2000000000}};
    const QSize huge(2000000000, 2000000000);
    QCOMPARE(boxOf(cellsOf(region, huge, {160, 160})), QRect(80, 0, 80, 160));
}

void TestCellRegion::likePixelsOneByOne() {
    std::mt19937 random(1);
    const QVector<QSize> sizes{{1, 1}, {7, 300}, {159, 90}, {161, 100}, {333, 187}, {640, 36}};
    for (int i = 0; i < 300; ++i) {
        const QSize size = sizes[i % sizes.size()];
        RegionOfInterest region = rectangle(randomRectangle(size, random));
        if (i % 3 == 1)
            region = mask(randomMask(size, random));
        if (i % 3 != 0)
            region.excluded = {randomRectangle(size, random)};
        const CellBits cells = cellsOf(region, size, cellGridOf(size.width(), size.height()));
        QCOMPARE(cells.words, slowCellsOf(region, size).words);
    }
}

void TestCellRegion::smallRegionsAreMoreSensitive() {
    const QSize size(1600, 1000);
    const CellGrid grid{160, 100};
    QCOMPARE(wholeOf(cellsOf({}, size, grid)), 16000);
    QCOMPARE(wholeOf(cellsOf(rectangle({0, 0, 800, 500}), size, grid)), 16000);
    QCOMPARE(wholeOf(cellsOf(rectangle({0, 0, 400, 500}), size, grid)), 8000);
    QCOMPARE(wholeOf(cellsOf(rectangle({0, 0, 10, 10}), size, grid)), 4);
    QCOMPARE(wholeOf(CellBits(grid)), 0);
}

void TestCellRegion::boxesInPixels() {
    CellBits cells({160, 90});
    cells.add(0, 0);
    cells.add(1, 1);
    cells.add(159, 89);
    const QVector<QRect> boxes = boxesOf(cells, {1920, 1080});
    QCOMPARE(boxes.size(), 2);
    QCOMPARE(boxes[0], QRect(0, 0, 24, 24));
    QCOMPARE(boxes[1], QRect(1908, 1068, 12, 12));
}

QTEST_APPLESS_MAIN(TestCellRegion)
#include "test_cellregion.moc"
