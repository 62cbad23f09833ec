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

#include <cstdint>
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
            std::uint64_t sum = 0;
            std::uint64_t count = 0;
            for (int y = top; y < bottom; ++y) {
                const int right = (column + 1) * plane.cols / grid.columns;
                for (int x = column * plane.cols / grid.columns; x < right; ++x) {
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
    void readsTheLumaOfAFrame();
    void nullWhereNothingIsReadable();
};

void TestCellReduction::isTheMeanOfEachCell() {
    const cv::Mat picture = noise(640, 360);
    const CellPicturePointer cells = reduceToCells(picture);
    QVERIFY(cells->grid == (CellGrid{160, 90}));
    QCOMPARE(cells->levels, plainLevels(picture, cells->grid));
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
