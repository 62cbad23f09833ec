// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "differencesum.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <QtTest>

#include <cstdint>

namespace {

/// The same sum with plain OpenCV calls.
double plainSum(const cv::Mat& previous, const cv::Mat& current, int threshold,
                const cv::Mat& mask) {
    cv::Mat difference;
    cv::absdiff(current, previous, difference);
    cv::threshold(difference, difference, threshold, 255, cv::THRESH_TOZERO);
    if (mask.empty())
        return cv::sum(difference)[0];
    cv::Mat masked;
    difference.copyTo(masked, mask);
    return cv::sum(masked)[0];
}

cv::Mat noise(cv::RNG& random, int rows, int columns, int limit) {
    cv::Mat plane(rows, columns, CV_8UC1);
    random.fill(plane, cv::RNG::UNIFORM, 0, limit);
    return plane;
}

} // namespace

class TestDifferenceSum : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void countsOnlyWhatExceedsTheThreshold();
    void countsOnlyUnderTheMask();
    void largestSumIsExact();
    void equalsPlainOpenCv_data();
    void equalsPlainOpenCv();
    void subImagesWithAStride();
};

void TestDifferenceSum::countsOnlyWhatExceedsTheThreshold() {
    const cv::Mat previous(20, 50, CV_8UC1, cv::Scalar(100));
    cv::Mat current = previous.clone();
    current.at<std::uint8_t>(0, 0) = 135;  // 35: dropped
    current.at<std::uint8_t>(3, 17) = 136; // 36: kept at its own value
    current.at<std::uint8_t>(19, 49) = 60; // 40, downwards
    QCOMPARE(differenceSum(previous, current, 35, {}), std::uint64_t(76));
    QCOMPARE(differenceSum(previous, current, 0, {}), std::uint64_t(111));
    QCOMPARE(differenceSum(previous, current, 255, {}), std::uint64_t(0));
}

void TestDifferenceSum::countsOnlyUnderTheMask() {
    const cv::Mat previous = cv::Mat::zeros(4, 40, CV_8UC1);
    const cv::Mat current(4, 40, CV_8UC1, cv::Scalar(50));
    cv::Mat mask = cv::Mat::zeros(4, 40, CV_8UC1);
    mask.at<std::uint8_t>(1, 2) = 255;
    mask.at<std::uint8_t>(2, 39) = 255;
    QCOMPARE(differenceSum(previous, current, 10, mask), std::uint64_t(100));
}

void TestDifferenceSum::largestSumIsExact() {
    const cv::Mat previous = cv::Mat::zeros(4320, 7680, CV_8UC1);
    const cv::Mat current(4320, 7680, CV_8UC1, cv::Scalar(255));
    QCOMPARE(differenceSum(previous, current, 254, {}), std::uint64_t(4320) * 7680 * 255);
}

void TestDifferenceSum::equalsPlainOpenCv_data() {
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    for (const int columns : {1, 2, 15, 16, 17, 31, 32, 33, 100, 640, 1023})
        QTest::addRow("%d columns", columns) << 7 << columns;
    QTest::newRow("1080p") << 1080 << 1920;
}

void TestDifferenceSum::equalsPlainOpenCv() {
    QFETCH(int, rows);
    QFETCH(int, columns);
    cv::RNG random(11);
    for (const int threshold : {0, 1, 20, 35, 127, 128, 254, 255}) {
        for (const int limit : {40, 256}) {
            const cv::Mat previous = noise(random, rows, columns, limit);
            const cv::Mat current = noise(random, rows, columns, limit);
            const cv::Mat mask = noise(random, rows, columns, 2) * 255;
            QCOMPARE(double(differenceSum(previous, current, threshold, {})),
                     plainSum(previous, current, threshold, {}));
            QCOMPARE(double(differenceSum(previous, current, threshold, mask)),
                     plainSum(previous, current, threshold, mask));
        }
    }
}

void TestDifferenceSum::subImagesWithAStride() {
    cv::RNG random(12);
    const cv::Mat previous = noise(random, 60, 90, 256);
    const cv::Mat current = noise(random, 60, 90, 256);
    for (int i = 0; i < 200; ++i) {
        const int x = random.uniform(0, 80);
        const int y = random.uniform(0, 50);
        const cv::Rect part(x, y, random.uniform(1, 91 - x), random.uniform(1, 61 - y));
        QCOMPARE(double(differenceSum(previous(part), current(part), 35, {})),
                 plainSum(previous(part), current(part), 35, {}));
    }
}

QTEST_GUILESS_MAIN(TestDifferenceSum)
#include "test_differencesum.moc"
