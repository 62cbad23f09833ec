// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "lumaplane.h"

#include "frames.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <opencv2/core.hpp>

#include <QtTest>

#include <climits>
#include <cstdint>

namespace {

using media::HandMadeFrame;

bool areEqual(const cv::Mat& a, const cv::Mat& b) {
    return a.size() == b.size() && a.type() == b.type() && cv::norm(a, b, cv::NORM_INF) == 0.0;
}

cv::Mat noise(int width, int height) {
    cv::Mat picture(height, width, CV_8UC1);
    cv::RNG(7).fill(picture, cv::RNG::UNIFORM, 0, 256);
    return picture;
}

} // namespace

class TestLumaPlane : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wrapsWithoutCopying();
    void keepsToTheStride();
    void takesPlaneZeroWhateverItHolds();
    void bottomUpIsTurned();
    void shortRowsAreNotReadPastTheirEnd_data();
    void shortRowsAreNotReadPastTheirEnd();
    void strideShorterThanTheRow();
    void leavesNothingOfThePictureBefore();
    void followsASizeChange();
    void emptyWhereNothingIsReadable_data();
    void emptyWhereNothingIsReadable();
};

void TestLumaPlane::wrapsWithoutCopying() {
    const cv::Mat picture = noise(31, 17);
    HandMadeFrame frame(picture);
    LumaPlane plane;
    const cv::Mat wrapped = plane.wrap(frame);
    QVERIFY(areEqual(wrapped, picture));
    QVERIFY(wrapped.data == frame.row(0));
}

void TestLumaPlane::keepsToTheStride() {
    HandMadeFrame frame(AV_PIX_FMT_GRAY8, 3, 2, 64);
    frame.row(0)[2] = 9;
    frame.row(0)[3] = 77; // beside the picture
    frame.row(1)[0] = 5;
    LumaPlane plane;
    QVERIFY(areEqual(plane.wrap(frame), (cv::Mat_<uchar>(2, 3) << 0, 0, 9, 5, 0, 0)));
}

void TestLumaPlane::takesPlaneZeroWhateverItHolds() {
    // Of packed RGB that is the first third of each row.
    HandMadeFrame frame(AV_PIX_FMT_RGB24, 3, 1, 9);
    for (int i = 0; i < 9; ++i)
        frame.row(0)[i] = std::uint8_t(10 + i);
    LumaPlane plane;
    QVERIFY(areEqual(plane.wrap(frame), (cv::Mat_<uchar>(1, 3) << 10, 11, 12)));
}

void TestLumaPlane::bottomUpIsTurned() {
    const cv::Mat picture = noise(31, 17);
    HandMadeFrame frame(picture, true);
    LumaPlane plane;
    QVERIFY(frame.record().stride() < 0);
    QVERIFY(areEqual(plane.wrap(frame), picture));
}

void TestLumaPlane::shortRowsAreNotReadPastTheirEnd_data() {
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("stride");
    QTest::newRow("white is 0") << int(AV_PIX_FMT_MONOWHITE) << 3;
    QTest::newRow("black is 0") << int(AV_PIX_FMT_MONOBLACK) << 3;
    QTest::newRow("stored bottom-up") << int(AV_PIX_FMT_MONOBLACK) << -3;
    QTest::newRow("padded rows") << int(AV_PIX_FMT_MONOBLACK) << 32;
}

void TestLumaPlane::shortRowsAreNotReadPastTheirEnd() {
    QFETCH(int, format);
    QFETCH(int, stride);
    HandMadeFrame frame(AVPixelFormat(format), 20, 5, stride); // 20 pixels: 3 bytes
    cv::Mat expected = cv::Mat::zeros(5, 20, CV_8UC1);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 3; ++x)
            frame.row(y)[x] = expected.at<uchar>(y, x) = uchar(10 * y + x + 1);
        if (stride > 3)
            frame.row(y)[3] = 99; // padding, no part of the picture
    }
    LumaPlane plane;
    QVERIFY(areEqual(plane.wrap(frame), expected));
}

void TestLumaPlane::strideShorterThanTheRow() {
    HandMadeFrame frame(AV_PIX_FMT_GRAY8, 8, 2, 4);
    std::fill(frame.row(0), frame.row(0) + 8, std::uint8_t(6));
    LumaPlane plane;
    cv::Mat expected = cv::Mat::zeros(2, 8, CV_8UC1);
    expected.colRange(0, 4) = 6;
    QVERIFY(areEqual(plane.wrap(frame), expected));
}

void TestLumaPlane::leavesNothingOfThePictureBefore() {
    // Same size, other format: what the shorter rows do not hold is 0, not what was there.
    LumaPlane plane;
    plane.wrap(HandMadeFrame(cv::Mat(4, 16, CV_8UC1, cv::Scalar(200)), true));
    HandMadeFrame frame(AV_PIX_FMT_MONOBLACK, 16, 4, 2);
    std::fill(frame.row(0), frame.row(0) + 8, std::uint8_t(1));
    cv::Mat expected = cv::Mat::zeros(4, 16, CV_8UC1);
    expected.colRange(0, 2) = 1;
    QVERIFY(areEqual(plane.wrap(frame), expected));
}

void TestLumaPlane::followsASizeChange() {
    LumaPlane plane;
    for (const cv::Size& size : {cv::Size(8, 4), cv::Size(4, 8), cv::Size(9, 9), cv::Size(1, 1)}) {
        const cv::Mat picture = noise(size.width, size.height);
        QVERIFY(areEqual(plane.wrap(HandMadeFrame(picture, true)), picture));
        HandMadeFrame topDown(picture);
        QVERIFY(areEqual(plane.wrap(topDown), picture));
    }
}

void TestLumaPlane::emptyWhereNothingIsReadable_data() {
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("hasData");
    QTest::newRow("no data") << int(AV_PIX_FMT_GRAY8) << 4 << 4 << false;
    QTest::newRow("no format") << int(AV_PIX_FMT_NONE) << 4 << 4 << true;
    QTest::newRow("format of another library") << INT_MAX << 4 << 4 << true;
    QTest::newRow("picture inside the hardware") << int(AV_PIX_FMT_VAAPI) << 4 << 4 << true;
    QTest::newRow("no columns") << int(AV_PIX_FMT_GRAY8) << 0 << 4 << true;
    QTest::newRow("no rows") << int(AV_PIX_FMT_GRAY8) << 4 << 0 << true;
    QTest::newRow("negative size") << int(AV_PIX_FMT_GRAY8) << -4 << -4 << true;
}

void TestLumaPlane::emptyWhereNothingIsReadable() {
    QFETCH(int, format);
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(bool, hasData);
    HandMadeFrame frame(AV_PIX_FMT_GRAY8, 4, 4, 4);
    AVFrame& picture = *frame.record().frame;
    picture.format = format;
    picture.width = width;
    picture.height = height;
    if (!hasData)
        picture.data[0] = nullptr;
    LumaPlane plane;
    QVERIFY(plane.wrap(frame).empty());
}

QTEST_GUILESS_MAIN(TestLumaPlane)
#include "test_lumaplane.moc"
