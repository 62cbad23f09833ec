// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "region.h"

#include <opencv2/core.hpp>

#include <QtTest>

#include <climits>

Q_DECLARE_METATYPE(cv::Rect)

namespace {

constexpr QRgb selected = 0xFF00FF00;

RegionOfInterest rectangle(const QRect& rectangle, const QSize& space) {
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

QImage emptyMask(int width, int height) {
    QImage picture(width, height, QImage::Format_ARGB32);
    picture.fill(0u);
    return picture;
}

QRect corners(int left, int top, int right, int bottom) {
    return {QPoint(left, top), QPoint(right, bottom)};
}

/// The mask as text, one line per row.
QByteArray drawn(const PreparedRegion& region) {
    QByteArray text;
    for (int y = 0; y < region.maskMat.rows; ++y) {
        for (int x = 0; x < region.maskMat.cols; ++x)
            text += region.maskMat.at<uchar>(y, x) == 255 ? '#' : '.';
        text += '\n';
    }
    return text;
}

} // namespace

class TestRegion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wholeFrameNeedsNothing();
    void maskOfTheSameSize();
    void onlyTheGreenByteCounts_data();
    void onlyTheGreenByteCounts();
    void maskIsScaledUp();
    void maskIsScaledDown();
    void maskWithoutGreen();
    void maskThatIsNoPicture();
    void rectangleIsScaled_data();
    void rectangleIsScaled();
    void rectangleWithoutSpaceIsInPixels();
    void rectanglesAreExcluded_data();
    void rectanglesAreExcluded();
    void excludedRectanglesAreScaled();
    void allExcludedIsEmpty();
};

void TestRegion::wholeFrameNeedsNothing() {
    const PreparedRegion region = prepareRegion({}, 640, 480);
    QCOMPARE(region.kind, RegionOfInterest::Kind::WholeFrame);
    QCOMPARE(region.maskCount, 0u);
    QVERIFY(region.maskMat.empty());
    QVERIFY(region.roi.empty());
}

void TestRegion::maskOfTheSameSize() {
    QImage picture = emptyMask(4, 3);
    picture.setPixel(0, 0, selected);
    picture.setPixel(3, 1, selected);
    picture.setPixel(2, 2, selected);
    const PreparedRegion region = prepareRegion(mask(picture), 4, 3);
    QCOMPARE(region.maskMat.type(), CV_8UC1);
    QCOMPARE(drawn(region), QByteArray("#...\n...#\n..#.\n"));
    QCOMPARE(region.maskCount, 3u);
}

void TestRegion::onlyTheGreenByteCounts_data() {
    QTest::addColumn<uint>("pixel");
    QTest::addColumn<bool>("isSelected");
    QTest::newRow("as drawn") << 0xFF00FF00u << true;
    QTest::newRow("faintest green") << 0xFF000100u << true;
    QTest::newRow("transparent green") << 0x0000FF00u << true;
    QTest::newRow("white") << 0xFFFFFFFFu << true;
    QTest::newRow("red and blue") << 0xFFFF00FFu << false;
    QTest::newRow("black") << 0xFF000000u << false;
    QTest::newRow("nothing") << 0x00000000u << false;
}

void TestRegion::onlyTheGreenByteCounts() {
    QFETCH(uint, pixel);
    QFETCH(bool, isSelected);
    QImage picture = emptyMask(1, 1);
    picture.setPixel(0, 0, pixel);
    QCOMPARE(prepareRegion(mask(picture), 1, 1).maskCount, isSelected ? 1u : 0u);
}

void TestRegion::maskIsScaledUp() {
    QImage picture = emptyMask(2, 2);
    picture.setPixel(1, 0, selected);
    picture.setPixel(0, 1, selected);
    const PreparedRegion region = prepareRegion(mask(picture), 6, 4);
    QCOMPARE(drawn(region), QByteArray("...###\n...###\n###...\n###...\n"));
    QCOMPARE(region.maskCount, 12u);
}

void TestRegion::maskIsScaledDown() {
    // Left half selected, in a picture whose halves are halves at any size.
    QImage picture = emptyMask(40, 30);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 20; ++x)
            picture.setPixel(x, y, selected);
    }
    const PreparedRegion region = prepareRegion(mask(picture), 4, 2);
    QCOMPARE(drawn(region), QByteArray("##..\n##..\n"));
    QCOMPARE(region.maskCount, 4u);
}

void TestRegion::maskWithoutGreen() {
    const PreparedRegion region = prepareRegion(mask(emptyMask(8, 8)), 16, 9);
    QCOMPARE(region.kind, RegionOfInterest::Kind::Mask);
    QCOMPARE(region.maskCount, 0u);
    QCOMPARE(region.maskMat.size(), cv::Size(16, 9));
    QCOMPARE(cv::countNonZero(region.maskMat), 0);
}

void TestRegion::maskThatIsNoPicture() {
    QTest::ignoreMessage(QtWarningMsg, "QImage::scaled: Image is a null image");
    const PreparedRegion region = prepareRegion(mask(QImage()), 16, 9);
    QCOMPARE(region.maskCount, 0u);
    QCOMPARE(region.maskMat.size(), cv::Size(16, 9));
    QCOMPARE(cv::countNonZero(region.maskMat), 0);
}

void TestRegion::rectangleIsScaled_data() {
    QTest::addColumn<QRect>("drawn");
    QTest::addColumn<QSize>("space");
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<cv::Rect>("roi");
    const QSize same(100, 80);
    const cv::Rect nothing(0, 0, 0, 0);
    const auto add = [](const char* name, const QRect& drawn, const QSize& space,
                        const QSize& picture, const cv::Rect& roi) {
        QTest::newRow(name) << drawn << space << picture << roi;
    };

    add("one to one", QRect(10, 20, 30, 40), same, same, {10, 20, 30, 40});
    add("everything", QRect(0, 0, 100, 80), same, same, {0, 0, 100, 80});
    add("last pixel", QRect(99, 79, 1, 1), same, same, {99, 79, 1, 1});
    add("doubled", QRect(10, 20, 30, 40), same, {200, 160}, {20, 40, 60, 80});
    // 3 * 1.5 = 4.5 -> 4; 5 * 1.5 = 7.5 -> 7, that is 4 .. 11; 7 * 0.5 = 3.5 -> 3, 9 * 0.5 -> 4.
    add("truncated", QRect(3, 7, 5, 9), {100, 100}, {150, 50}, {4, 3, 7, 4});
    add("narrower than a pixel", QRect(10, 10, 3, 3), {100, 100}, {25, 25}, nothing);

    // The end follows from the corner before it is cut: -10 + 30 = 20, -5 + 40 = 35.
    add("over the top left corner", QRect(-10, -5, 30, 40), same, same, {0, 0, 20, 35});
    // -5 * 1.5 = -7.5 -> -7; 10 * 1.5 = 15; -7 + 15 = 8.
    add("truncated toward zero", QRect(-5, -5, 10, 10), {100, 100}, {150, 150}, {0, 0, 8, 8});
    add("over the bottom right corner", QRect(90, 70, 30, 40), same, same, {90, 70, 10, 10});
    add("around the picture", QRect(-50, -50, 500, 500), same, same, {0, 0, 100, 80});

    add("left of the picture", QRect(-30, 10, 20, 20), same, same, nothing);
    add("right of the picture", QRect(100, 10, 20, 20), same, same, nothing);
    add("above the picture", QRect(10, -30, 20, 20), same, same, nothing);
    add("below the picture", QRect(10, 80, 20, 20), same, same, nothing);
    add("empty", QRect(10, 10, 0, 0), same, same, nothing);
    add("inside out", corners(50, 50, 20, 20), same, same, nothing);

    add("all there is", corners(INT_MIN, INT_MIN, INT_MAX, INT_MAX), same, same, {0, 0, 100, 80});
    add("from far away", corners(INT_MIN, INT_MIN, 49, 39), same, same, {0, 0, 50, 40});
    add("to far away", corners(50, 40, INT_MAX, INT_MAX), same, same, {50, 40, 50, 40});
    add("far away", corners(INT_MAX, INT_MAX, INT_MAX, INT_MAX), same, {1000, 800}, nothing);
    add("far away on the other side", corners(INT_MIN, INT_MIN, INT_MIN, INT_MIN), same,
        {1000, 800}, nothing);
    add("far away inside out", corners(INT_MAX, INT_MAX, INT_MIN, INT_MIN), same, same, nothing);
}

void TestRegion::rectangleIsScaled() {
    QFETCH(QRect, drawn);
    QFETCH(QSize, space);
    QFETCH(QSize, picture);
    QFETCH(cv::Rect, roi);
    const PreparedRegion region =
        prepareRegion(rectangle(drawn, space), picture.width(), picture.height());
    QCOMPARE(region.kind, RegionOfInterest::Kind::Rectangle);
    QCOMPARE(region.maskCount, 0u);
    QCOMPARE(QRect(region.roi.x, region.roi.y, region.roi.width, region.roi.height),
             QRect(roi.x, roi.y, roi.width, roi.height));
}

void TestRegion::rectangleWithoutSpaceIsInPixels() {
    const PreparedRegion region = prepareRegion(rectangle(QRect(10, 20, 30, 40), {}), 100, 80);
    QVERIFY(region.roi == cv::Rect(10, 20, 30, 40));
}

void TestRegion::rectanglesAreExcluded_data() {
    QTest::addColumn<QVector<QRect>>("excluded");
    QTest::addColumn<QByteArray>("whole");
    QTest::addColumn<QByteArray>("inRectangle"); // 1,0 to 3,1
    QTest::addColumn<QByteArray>("inMask");      // the right half
    const auto add = [](const char* name, const QVector<QRect>& excluded, const char* whole,
                        const char* inRectangle, const char* inMask) {
        QTest::newRow(name) << excluded << QByteArray(whole) << QByteArray(inRectangle)
                            << QByteArray(inMask);
    };
    add("one pixel", {{2, 1, 1, 1}}, "####\n##.#\n####\n", ".###\n.#.#\n....\n",
        "..##\n...#\n..##\n");
    add("over a corner", {{-3, -3, 5, 4}}, "..##\n####\n####\n", "..##\n.###\n....\n",
        "..##\n..##\n..##\n");
    add("over another corner", {{3, 2, 9, 9}}, "####\n####\n###.\n", ".###\n.###\n....\n",
        "..##\n..##\n..#.\n");
    add("outside", {{4, 0, 2, 2}, {0, -1, 9, 1}}, "####\n####\n####\n", ".###\n.###\n....\n",
        "..##\n..##\n..##\n");
    add("two that overlap", {{1, 0, 2, 2}, {2, 1, 2, 2}}, "#..#\n#...\n##..\n",
        "...#\n....\n....\n", "...#\n....\n....\n");
}

void TestRegion::rectanglesAreExcluded() {
    QFETCH(QVector<QRect>, excluded);
    QImage half = emptyMask(2, 1);
    half.setPixel(1, 0, selected);
    const auto check = [&](RegionOfInterest region, const char* column) {
        region.excluded = excluded;
        const PreparedRegion prepared = prepareRegion(region, 4, 3);
        QCOMPARE(prepared.kind, RegionOfInterest::Kind::Mask);
        QTEST(drawn(prepared), column);
        QCOMPARE(int(prepared.maskCount), drawn(prepared).count('#'));
        QVERIFY(!prepared.isEmpty());
    };
    check({}, "whole");
    check(rectangle({1, 0, 7, 2}, {}), "inRectangle");
    check(mask(half), "inMask");
}

void TestRegion::excludedRectanglesAreScaled() {
    // Like the rectangle itself: 3 * 0.5 = 1.5 -> 1; 5 * 0.5 = 2.5 -> 2.
    RegionOfInterest region = rectangle({0, 0, 8, 4}, {8, 6});
    region.excluded = {{3, 0, 5, 2}};
    QCOMPARE(drawn(prepareRegion(region, 4, 3)), QByteArray("#..#\n####\n....\n"));
}

void TestRegion::allExcludedIsEmpty() {
    RegionOfInterest region;
    region.excluded = {{0, 0, 4, 2}, {0, 2, 4, 1}};
    QVERIFY(prepareRegion(region, 4, 3).isEmpty());
    region = rectangle({10, 10, 1, 1}, {});
    region.excluded = {{0, 0, 1, 1}};
    QVERIFY(prepareRegion(region, 4, 3).isEmpty());
}

QTEST_GUILESS_MAIN(TestRegion)
#include "test_region.moc"
