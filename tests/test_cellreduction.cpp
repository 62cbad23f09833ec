// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellreduction.h"

#include "frames.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <opencv2/core.hpp>

#include <QtTest>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace {

using media::HandMadeFrame;

/// The definition, pixel by pixel.
std::vector<std::uint16_t> plainLevels(const cv::Mat& plane, CellGrid grid) {
    std::vector<std::uint16_t> levels;
    for (int row = 0; row < grid.rows; ++row) {
        const int top = row * plane.rows / grid.rows;
        const int bottom = (row + 1) * plane.rows / grid.rows;
        for (int column = 0; column < grid.columns; ++column) {
            const int left = column * plane.cols / grid.columns;
            const int right = (column + 1) * plane.cols / grid.columns;
            std::uint64_t sum = 0;
            std::uint64_t count = 0;
            for (int y = top; y < bottom; ++y) {
                for (int x = left; x < right; ++x) {
                    sum += plane.at<std::uint8_t>(y, x);
                    ++count;
                }
            }
            levels.push_back(std::uint16_t((2 * 16 * sum + count) / (2 * count)));
        }
    }
    return levels;
}

cv::Mat noise(int width, int height) {
    cv::Mat picture(height, width, CV_8UC1);
    cv::RNG random(std::uint64_t(width * 1000 + height));
    random.fill(picture, cv::RNG::UNIFORM, 0, 256);
    return picture;
}

} // namespace

class TestCellReduction : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isTheMeanOfEachCell();
    void everySizeIsExact();
    void cellsOfManyRows();
    void subImagesWithAStride();
    void extremeSizesAndLevels_data();
    void extremeSizesAndLevels();
    void readsNothingBesideThePlane();
    void meansAreRounded();
    void readsTheLumaOfAFrame();
    void nullWhereNothingIsReadable();
};

void TestCellReduction::isTheMeanOfEachCell() {
    const cv::Mat picture = noise(640, 360);
    const CellPicturePointer cells = reduceToCells(picture);
    QVERIFY(cells->grid == (CellGrid{160, 90}));
    QCOMPARE(cells->levels, plainLevels(picture, cells->grid));
}

void TestCellReduction::everySizeIsExact() {
    const cv::Mat picture = noise(400, 400);
    cv::RNG random(3);
    for (int width = 1; width <= 400; ++width) {
        // Every width, every height, and each width with four heights.
        for (const int height :
             {401 - width, width, random.uniform(1, 401), random.uniform(1, 30)}) {
            const cv::Mat part = picture(cv::Rect(400 - width, 400 - height, width, height));
            const CellPicturePointer cells = reduceToCells(part);
            QVERIFY(cells->grid == cellGridOf(width, height));
            QCOMPARE(cells->levels, plainLevels(part, cells->grid));
        }
    }
}

void TestCellReduction::cellsOfManyRows() {
    for (const int rowsOfACell : {127, 128, 129, 256, 257, 400}) {
        const cv::Mat picture = noise(20, mostCellRows * rowsOfACell);
        const CellPicturePointer cells = reduceToCells(picture);
        QCOMPARE(cells->grid.rows, mostCellRows);
        QCOMPARE(cells->levels, plainLevels(picture, cells->grid));
    }
}

void TestCellReduction::subImagesWithAStride() {
    const cv::Mat picture = noise(1023, 300);
    cv::RNG random(12);
    for (int i = 0; i < 100; ++i) {
        const int x = random.uniform(0, 1000);
        const int y = random.uniform(0, 290);
        const cv::Rect part(x, y, random.uniform(1, 1024 - x), random.uniform(1, 301 - y));
        const CellPicturePointer cells = reduceToCells(picture(part));
        QCOMPARE(cells->levels, plainLevels(picture(part), cells->grid));
    }
}

void TestCellReduction::extremeSizesAndLevels_data() {
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("one pixel") << 1 << 1;
    QTest::newRow("one column") << 1 << 100'000;
    QTest::newRow("one row") << 2'000'000 << 1;
    QTest::newRow("higher than four times its width") << 200 << 3000;
    QTest::newRow("4320p") << 7680 << 4320;
}

void TestCellReduction::extremeSizesAndLevels() {
    QFETCH(int, width);
    QFETCH(int, height);
    for (const int level : {0, 1, 128, 255}) {
        const cv::Mat plane(height, width, CV_8UC1, cv::Scalar(level));
        const CellPicturePointer cells = reduceToCells(plane);
        QVERIFY(cells->grid == cellGridOf(width, height));
        QCOMPARE(cells->levels, std::vector<std::uint16_t>(std::size_t(cells->grid.count()),
                                                           std::uint16_t(16 * level)));
    }
}

void TestCellReduction::readsNothingBesideThePlane() {
    // Each row in memory of its own size, which ends where the plane does.
    for (const int width : {1, 7, 8, 15, 16, 17, 63, 64, 65, 79, 160, 161, 333}) {
        const std::unique_ptr<std::uint8_t[]> bytes(new std::uint8_t[std::size_t(width) * 5]);
        std::fill_n(bytes.get(), width * 5, std::uint8_t(9));
        const CellPicturePointer cells = reduceToCells(cv::Mat(5, width, CV_8UC1, bytes.get()));
        for (const int level : cells->levels)
            QCOMPARE(level, 9 * 16);
    }
}

void TestCellReduction::meansAreRounded() {
    // 320 columns make cells of 2 x 2 pixels; 32 x 32 make one of a 5120 wide picture.
    cv::Mat quarter = cv::Mat::zeros(2, 320, CV_8UC1);
    quarter.at<std::uint8_t>(0, 0) = 1;
    QCOMPARE(int(reduceToCells(quarter)->levels[0]), 4);
    for (const auto& [pixels, level] : {std::pair(31, 0), {32, 1}, {95, 1}, {96, 2}}) {
        cv::Mat plane = cv::Mat::zeros(32, 5120, CV_8UC1);
        for (int i = 0; i < pixels; ++i)
            plane.at<std::uint8_t>(i / 32, i % 32) = 1;
        QCOMPARE(int(reduceToCells(plane)->levels[0]), level);
    }
}

void TestCellReduction::readsTheLumaOfAFrame() {
    const cv::Mat picture = noise(31, 17);
    LumaPlane plane;
    for (const bool isBottomUp : {false, true}) {
        const CellPicturePointer cells = cellsOf(HandMadeFrame(picture, isBottomUp), plane);
        QVERIFY(cells);
        QCOMPARE(cells->levels, reduceToCells(picture)->levels);
    }
}

void TestCellReduction::nullWhereNothingIsReadable() {
    HandMadeFrame frame(AV_PIX_FMT_GRAY8, 4, 4, 4);
    frame.record().frame->data[0] = nullptr;
    LumaPlane plane;
    QVERIFY(!cellsOf(frame, plane));
}

QTEST_GUILESS_MAIN(TestCellReduction)
#include "test_cellreduction.moc"
