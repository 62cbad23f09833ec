// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionmeasure.h"

#include "frames.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <QtTest>

#include <vector>

namespace {

using media::HandMadeFrame;
using Kind = RegionOfInterest::Kind;

constexpr QRgb selected = 0xFF00FF00;

cv::Mat plain(int width, int height, int value) {
    return cv::Mat(height, width, CV_8UC1, cv::Scalar(value));
}

double measureOnce(const MeasureOptions& options, const cv::Mat& before, const cv::Mat& now) {
    MotionMeasure measure(options);
    return measure.measure(HandMadeFrame(before), HandMadeFrame(now)).value;
}

MeasureOptions withThreshold(int value) {
    MeasureOptions options;
    options.pixelThreshold = value;
    return options;
}

MeasureOptions withRectangle(const QRect& rectangle, const QSize& space) {
    MeasureOptions options;
    options.region.kind = Kind::Rectangle;
    options.region.rectangle = rectangle;
    options.region.space = space;
    return options;
}

/// A mask of the picture's size, selected inside `area`.
MeasureOptions withMask(const QSize& size, const QRect& area) {
    MeasureOptions options;
    options.region.kind = Kind::Mask;
    options.region.mask = QImage(size, QImage::Format_ARGB32);
    options.region.mask.fill(0u);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            options.region.mask.setPixel(x, y, selected);
    }
    return options;
}

/// The value in plain OpenCV calls, everything allocated anew.
double plainValue(const MeasureOptions& options, const cv::Mat& before, const cv::Mat& now) {
    cv::Rect area(0, 0, now.cols, now.rows);
    const QRect& drawn = options.region.rectangle;
    if (options.region.kind == Kind::Rectangle)
        area = cv::Rect(drawn.x(), drawn.y(), drawn.width(), drawn.height());
    cv::Mat difference;
    cv::absdiff(before(area), now(area), difference);
    cv::threshold(difference, difference, options.pixelThreshold, 255, cv::THRESH_TOZERO);
    if (options.region.kind != Kind::Mask)
        return float(cv::mean(difference)[0]);
    int count = 0;
    for (int y = 0; y < now.rows; ++y) {
        for (int x = 0; x < now.cols; ++x) {
            if (qGreen(options.region.mask.pixel(x, y)) != 0)
                ++count;
            else
                difference.at<uchar>(y, x) = 0;
        }
    }
    const int weight = now.rows * now.cols / count; // a whole number
    return float(cv::mean(difference)[0]) * float(weight);
}

/// Pictures of one grey each; from each to the next the grey changes by the step.
std::vector<cv::Mat> steps(const QVector<int>& differences) {
    std::vector<cv::Mat> pictures = {plain(8, 8, 100)};
    int grey = 100;
    for (const int difference : differences) {
        grey += grey > 127 ? -difference : difference;
        pictures.push_back(plain(8, 8, grey));
    }
    return pictures;
}

QVector<double> measureAll(const MeasureOptions& options, const std::vector<cv::Mat>& pictures) {
    MotionMeasure measure(options);
    QVector<double> values;
    for (std::size_t i = 1; i < pictures.size(); ++i)
        values.append(
            measure.measure(HandMadeFrame(pictures[i - 1]), HandMadeFrame(pictures[i])).value);
    return values;
}

} // namespace

class TestMotionMeasure : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wholeFrame();
    void rectangle();
    void freeRegion();
    void differencesAtTheThresholdAreDropped_data();
    void differencesAtTheThresholdAreDropped();
    void equalsPlainOpenCv_data();
    void equalsPlainOpenCv();

    void skippedFramesKeepTheValue_data();
    void skippedFramesKeepTheValue();
    void comparedElsewhere_data();
    void comparedElsewhere();
    void oneSelectedPixel();
    void weightIsAWholeQuotient();
    void maskWithoutGreenMeasuresNothing();
    void emptyRectangleMeasuresNothing_data();
    void emptyRectangleMeasuresNothing();
    void onlyTheRegionCounts_data();
    void onlyTheRegionCounts();
    void sizeChangeHoldsTheValue();
    void sizeChangePreparesTheRegionAnew_data();
    void sizeChangePreparesTheRegionAnew();
    void sizeChangeIsMadeUpFor();
    void formatsOfOneSizeAreCompared();

    void unreadablePictureHoldsTheValue_data();
    void unreadablePictureHoldsTheValue();
};

void TestMotionMeasure::wholeFrame() {
    // A quarter of the picture changed by 60: 60 / 4.
    cv::Mat now = plain(20, 10, 100);
    now(cv::Rect(0, 0, 10, 5)) = 160;
    QCOMPARE(measureOnce({}, plain(20, 10, 100), now), 15.0);
    QCOMPARE(measureOnce({}, now, plain(20, 10, 100)), 15.0);
    QCOMPARE(measureOnce({}, now, now), 0.0);
}

void TestMotionMeasure::rectangle() {
    // 8 of the rectangle's 16 pixels changed by 50, and everything around it by 100.
    cv::Mat now = plain(20, 10, 200);
    now(cv::Rect(4, 2, 4, 4)) = 100;
    now(cv::Rect(4, 2, 4, 2)) = 150;
    const auto options = withRectangle(QRect(4, 2, 4, 4), QSize(20, 10));
    QCOMPARE(measureOnce(options, plain(20, 10, 100), now), 25.0);
}

void TestMotionMeasure::freeRegion() {
    // 100 x 100 pixels, 100 of them selected, of which 50 change by 40; everything else changes by
    // no more than the threshold. The mean is 50 * 40 / 10000 = 0.2, the weight 10000 / 100.
    cv::Mat now = plain(100, 100, 135);
    now(cv::Rect(20, 30, 10, 5)) = 140;
    const auto options = withMask(QSize(100, 100), QRect(20, 30, 10, 10));
    QCOMPARE(float(measureOnce(options, plain(100, 100, 100), now)), 20.0F);
}

void TestMotionMeasure::differencesAtTheThresholdAreDropped_data() {
    QTest::addColumn<int>("threshold");
    QTest::addColumn<int>("difference");
    QTest::addColumn<double>("value");
    QTest::newRow("35 of 35") << 35 << 35 << 0.0;
    QTest::newRow("36 of 35 keeps its value") << 35 << 36 << 36.0;
    QTest::newRow("0 of 0") << 0 << 0 << 0.0;
    QTest::newRow("1 of 0") << 0 << 1 << 1.0;
    QTest::newRow("255 of 254") << 254 << 255 << 255.0;
    QTest::newRow("nothing survives 255") << 255 << 255 << 0.0;
}

void TestMotionMeasure::differencesAtTheThresholdAreDropped() {
    QFETCH(int, threshold);
    QFETCH(int, difference);
    QFETCH(double, value);
    const cv::Mat dark = plain(6, 6, 0);
    const cv::Mat light = plain(6, 6, difference);
    QCOMPARE(measureOnce(withThreshold(threshold), dark, light), value);
    QCOMPARE(measureOnce(withThreshold(threshold), light, dark), value);
}

void TestMotionMeasure::equalsPlainOpenCv_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("bottomUp");
    for (const bool bottomUp : {false, true}) {
        const char* order = bottomUp ? "bottom-up" : "top-down";
        QTest::addRow("whole frame, %s", order) << int(Kind::WholeFrame) << bottomUp;
        QTest::addRow("rectangle, %s", order) << int(Kind::Rectangle) << bottomUp;
        QTest::addRow("mask, %s", order) << int(Kind::Mask) << bottomUp;
    }
}

void TestMotionMeasure::equalsPlainOpenCv() {
    QFETCH(int, kind);
    QFETCH(bool, bottomUp);
    cv::RNG random(20);
    for (int run = 0; run < 30; ++run) {
        const QSize size(random.uniform(2, 90), random.uniform(2, 70));
        const QPoint corner(random.uniform(0, size.width()), random.uniform(0, size.height()));
        const QRect area(corner, QPoint(random.uniform(corner.x(), size.width()),
                                        random.uniform(corner.y(), size.height())));
        MeasureOptions options;
        if (Kind(kind) == Kind::Rectangle)
            options = withRectangle(area, size);
        else if (Kind(kind) == Kind::Mask)
            options = withMask(size, area);
        options.pixelThreshold = random.uniform(0, 120);

        MotionMeasure measure(options);
        cv::Mat before = plain(size.width(), size.height(), 128);
        for (int frame = 0; frame < 5; ++frame) {
            cv::Mat now(before.size(), CV_8UC1);
            random.fill(now, cv::RNG::UNIFORM, 0, 256);
            const double value =
                measure.measure(HandMadeFrame(before, bottomUp), HandMadeFrame(now, bottomUp))
                    .value;
            QVERIFY(value == plainValue(options, before, now));
            before = now;
        }
    }
}

void TestMotionMeasure::skippedFramesKeepTheValue_data() {
    QTest::addColumn<int>("skip");
    QTest::addColumn<QVector<double>>("values");
    using Values = QVector<double>;
    QTest::newRow("0") << 0 << Values{41, 42, 43, 44, 45, 46, 47, 48};
    QTest::newRow("1") << 1 << Values{0, 42, 42, 44, 44, 46, 46, 48};
    QTest::newRow("3") << 3 << Values{0, 0, 0, 44, 44, 44, 44, 48};
    QTest::newRow("7") << 7 << Values{0, 0, 0, 0, 0, 0, 0, 48};
    QTest::newRow("100") << 100 << Values{0, 0, 0, 0, 0, 0, 0, 0};
}

void TestMotionMeasure::skippedFramesKeepTheValue() {
    QFETCH(int, skip);
    QFETCH(QVector<double>, values);
    MeasureOptions options;
    options.skip = skip;
    // Measured against the frame just before, not against the one measured last.
    QCOMPARE(measureAll(options, steps({41, 42, 43, 44, 45, 46, 47, 48})), values);
}

void TestMotionMeasure::comparedElsewhere_data() {
    skippedFramesKeepTheValue_data();
}

void TestMotionMeasure::comparedElsewhere() {
    QFETCH(int, skip);
    QFETCH(QVector<double>, values);
    MeasureOptions options;
    options.skip = skip;
    MotionMeasure measure(options);
    for (int i = 0; i < values.size(); ++i)
        QCOMPARE(double(measure.take(MotionScore{41.0F + float(i)}, 8, 8).value), values[i]);
    // What could not be compared is made up for on the next frame.
    MotionMeasure everySecond(MeasureOptions{35, 1, {}});
    QCOMPARE(everySecond.take(MotionScore{1.0F}, 8, 8).value, 0.0F);
    QCOMPARE(everySecond.take(std::nullopt, 8, 8).value, 0.0F);
    QCOMPARE(everySecond.take(MotionScore{3.0F}, 8, 8).value, 3.0F);
    QCOMPARE(everySecond.take(MotionScore{4.0F}, 8, 8).value, 3.0F);
}

void TestMotionMeasure::oneSelectedPixel() {
    // The weight is 640 * 480, which brings the mean back to the pixel's own difference.
    cv::Mat now = plain(640, 480, 0);
    now.at<uchar>(200, 300) = 100;
    const auto options = withMask(QSize(640, 480), QRect(300, 200, 1, 1));
    QCOMPARE(float(measureOnce(options, plain(640, 480, 0), now)), 100.0F);
}

void TestMotionMeasure::weightIsAWholeQuotient() {
    // 40 % selected, all of it changed by 50: a mean of 20, counted twice and not 2.5 times.
    const auto options = withMask(QSize(10, 10), QRect(0, 0, 10, 4));
    QCOMPARE(measureOnce(options, plain(10, 10, 0), plain(10, 10, 50)), 40.0);
}

void TestMotionMeasure::maskWithoutGreenMeasuresNothing() {
    const auto options = withMask(QSize(10, 10), QRect());
    QCOMPARE(measureOnce(options, plain(10, 10, 0), plain(10, 10, 255)), 0.0);
}

void TestMotionMeasure::emptyRectangleMeasuresNothing_data() {
    QTest::addColumn<QRect>("drawn");
    QTest::newRow("outside") << QRect(50, 50, 10, 10);
    QTest::newRow("without size") << QRect(2, 2, 0, 0);
    QTest::newRow("nothing drawn") << QRect();
}

void TestMotionMeasure::emptyRectangleMeasuresNothing() {
    QFETCH(QRect, drawn);
    const auto options = withRectangle(drawn, QSize(10, 10));
    QCOMPARE(measureOnce(options, plain(10, 10, 0), plain(10, 10, 255)), 0.0);
}

void TestMotionMeasure::onlyTheRegionCounts_data() {
    QTest::addColumn<bool>("isMask");
    QTest::newRow("rectangle") << false;
    QTest::newRow("mask") << true;
}

void TestMotionMeasure::onlyTheRegionCounts() {
    QFETCH(bool, isMask);
    const QRect area(0, 0, 5, 10);
    const auto options =
        isMask ? withMask(QSize(10, 10), area) : withRectangle(area, QSize(10, 10));
    MotionMeasure measure(options);
    cv::Mat inside = plain(10, 10, 0);
    inside(cv::Rect(0, 0, 5, 10)) = 80;
    cv::Mat both = inside.clone();
    both(cv::Rect(5, 0, 5, 10)) = 200;
    QCOMPARE(measure.measure(HandMadeFrame(plain(10, 10, 0)), HandMadeFrame(inside)).value, 80.0);
    // Nothing of the difference before is left.
    QCOMPARE(measure.measure(HandMadeFrame(inside), HandMadeFrame(both)).value, 0.0);
    QCOMPARE(measure.measure(HandMadeFrame(both), HandMadeFrame(plain(10, 10, 0))).value, 80.0);
}

void TestMotionMeasure::sizeChangeHoldsTheValue() {
    MotionMeasure measure({});
    const HandMadeFrame first(plain(10, 10, 0));
    const HandMadeFrame second(plain(10, 10, 50));
    const HandMadeFrame wide(plain(20, 10, 0));
    const HandMadeFrame wideChanged(plain(20, 10, 90));
    const HandMadeFrame high(plain(20, 30, 0));
    const HandMadeFrame highChanged(plain(20, 30, 70));
    QCOMPARE(measure.measure(first, second).value, 50.0);
    QCOMPARE(measure.measure(second, wide).value, 50.0);
    QCOMPARE(measure.measure(wide, wideChanged).value, 90.0);
    QCOMPARE(measure.measure(wideChanged, high).value, 90.0);
    QCOMPARE(measure.measure(high, highChanged).value, 70.0);
    QCOMPARE(measure.measure(highChanged, second).value, 70.0);
    QCOMPARE(measure.measure(second, first).value, 50.0);
}

void TestMotionMeasure::sizeChangePreparesTheRegionAnew_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QSize>("space");
    QTest::newRow("rectangle") << int(Kind::Rectangle) << QSize(10, 10);
    QTest::newRow("rectangle in pixels of the first pictures") << int(Kind::Rectangle) << QSize();
    QTest::newRow("mask") << int(Kind::Mask) << QSize(10, 10);
}

void TestMotionMeasure::sizeChangePreparesTheRegionAnew() {
    QFETCH(int, kind);
    QFETCH(QSize, space);
    const QRect left(0, 0, 5, 10);
    MotionMeasure measure(Kind(kind) == Kind::Mask ? withMask(space, left)
                                                   : withRectangle(left, space));
    const HandMadeFrame small(plain(10, 10, 0));
    const HandMadeFrame smallChanged(plain(10, 10, 50));
    QCOMPARE(measure.measure(small, smallChanged).value, 50.0);

    // In pictures twice as large the left half is still the left half.
    cv::Mat picture = plain(20, 20, 0);
    const HandMadeFrame large(picture);
    picture(cv::Rect(10, 0, 10, 20)) = 200;
    const HandMadeFrame rightChanged(picture);
    picture(cv::Rect(5, 10, 5, 10)) = 60; // a quarter of the left half
    const HandMadeFrame leftChanged(picture);
    QCOMPARE(measure.measure(smallChanged, large).value, 50.0);
    QCOMPARE(measure.measure(large, rightChanged).value, 0.0);
    QCOMPARE(measure.measure(rightChanged, leftChanged).value, 15.0);
}

void TestMotionMeasure::sizeChangeIsMadeUpFor() {
    // With one frame left out between two measurements, the second frame's turn falls on the
    // change; the third is measured instead, and the counting starts over.
    MeasureOptions options;
    options.skip = 1;
    MotionMeasure measure(options);
    const HandMadeFrame small(plain(10, 10, 0));
    const HandMadeFrame smallChanged(plain(10, 10, 50));
    const HandMadeFrame large(plain(20, 20, 0));
    const HandMadeFrame largeChanged(plain(20, 20, 60));
    const HandMadeFrame largeAgain(plain(20, 20, 130));
    QCOMPARE(measure.measure(small, smallChanged).value, 0.0);
    QCOMPARE(measure.measure(smallChanged, large).value, 0.0);
    QCOMPARE(measure.measure(large, largeChanged).value, 60.0);
    QCOMPARE(measure.measure(largeChanged, largeAgain).value, 60.0);
    QCOMPARE(measure.measure(largeAgain, largeChanged).value, 70.0);
}

void TestMotionMeasure::formatsOfOneSizeAreCompared() {
    // 16 black pixels of 1 bit are two bytes of 0, and what such a row does not hold reads as 0.
    MotionMeasure measure({});
    const HandMadeFrame grey(plain(16, 4, 80), true);
    const HandMadeFrame black(AV_PIX_FMT_MONOBLACK, 16, 4, 2);
    QCOMPARE(measure.measure(grey, black).value, 80.0);
    QCOMPARE(measure.measure(black, grey).value, 80.0);
    QCOMPARE(measure.measure(black, black).value, 0.0);
}

void TestMotionMeasure::unreadablePictureHoldsTheValue_data() {
    QTest::addColumn<int>("format");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("hasData");
    QTest::newRow("no data") << int(AV_PIX_FMT_GRAY8) << QSize(10, 10) << false;
    QTest::newRow("inside the hardware") << int(AV_PIX_FMT_VAAPI) << QSize(10, 10) << true;
    QTest::newRow("no format") << int(AV_PIX_FMT_NONE) << QSize(10, 10) << true;
    QTest::newRow("no pixels") << int(AV_PIX_FMT_GRAY8) << QSize(0, 0) << true;
}

void TestMotionMeasure::unreadablePictureHoldsTheValue() {
    QFETCH(int, format);
    QFETCH(QSize, size);
    QFETCH(bool, hasData);
    const HandMadeFrame good(plain(10, 10, 0));
    const HandMadeFrame changed(plain(10, 10, 50));
    HandMadeFrame bad(plain(10, 10, 200));
    AVFrame& picture = *bad.record().frame;
    picture.format = format;
    picture.width = size.width();
    picture.height = size.height();
    if (!hasData)
        picture.data[0] = nullptr;

    // In pixels of the first picture that has any.
    MotionMeasure measure(withRectangle(QRect(5, 5, 5, 5), {}));
    QCOMPARE(measure.measure(bad, bad).value, 0.0);
    QCOMPARE(measure.measure(bad, good).value, 0.0);
    QCOMPARE(measure.measure(good, changed).value, 50.0);
    QCOMPARE(measure.measure(changed, bad).value, 50.0);
    QCOMPARE(measure.measure(bad, changed).value, 50.0);
    QCOMPARE(measure.measure(changed, changed).value, 0.0);
}

QTEST_GUILESS_MAIN(TestMotionMeasure)
#include "test_motionmeasure.moc"
