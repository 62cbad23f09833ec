// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellcomparison.h"

#include <opencv2/core.hpp>

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

namespace {

using Levels = std::vector<std::uint16_t>;
using Steps = std::vector<std::uint8_t>;

CellPicturePointer pictureOf(CellGrid grid, const Levels& levels) {
    auto picture = std::make_shared<CellPicture>();
    picture->grid = grid;
    picture->levels = levels;
    return picture;
}

CellPicturePointer flat(CellGrid grid, int level) {
    return pictureOf(grid, Levels(std::size_t(grid.count()), std::uint16_t(16 * level)));
}

/// Flat but for one cell.
CellPicturePointer dotted(CellGrid grid, int level, int cell, int levelOfIt) {
    Levels levels(std::size_t(grid.count()), std::uint16_t(16 * level));
    levels[std::size_t(cell)] = std::uint16_t(16 * levelOfIt);
    return pictureOf(grid, levels);
}

/// A scene with noise, which is that of `grain` x `grain` cells, light that changes, and a bright
/// block that moves.
class Scene {
public:
    Scene(CellGrid grid, double sigma, int grain)
        : grid(grid)
        , sigma(sigma)
        , grain(grain)
        , noise(grid.rows / grain + 1, grid.columns / grain + 1, CV_64FC1) {}

    CellPicturePointer at(double time) {
        Levels levels;
        random.fill(noise, cv::RNG::NORMAL, 0, sigma);
        for (int row = 0; row < grid.rows; ++row) {
            for (int column = 0; column < grid.columns; ++column)
                levels.push_back(levelOf(column, row, time));
        }
        return pictureOf(grid, levels);
    }

private:
    std::uint16_t levelOf(int column, int row, double time) {
        const double left = std::fmod(7 * time, grid.columns + 6.0) - 6;
        const bool isBlock = column >= left && column < left + 6 && row < 8;
        double level = 90 + (column * 7 + row * 13) % 50 + 30 * std::sin(time) +
                       noise.at<double>(row / grain, column / grain);
        level += isBlock ? 20 + 5 * row : 0;
        return std::uint16_t(std::clamp(std::lround(16 * level), 0L, 4080L));
    }

    CellGrid grid;
    double sigma;
    int grain;
    cv::Mat noise;
    cv::RNG random{7};
};

/// The pictures that a new one is compared with, found anew for each. Their order is that of time.
struct Compared {
    std::vector<const Levels*> newer;
    std::vector<const Levels*> older;
};

struct Past {
    double time;
    CellPicturePointer picture;
};

Compared comparedOf(const std::vector<Past>& past) {
    const double time = past.back().time;
    Compared compared;
    const Levels* before = nullptr;
    for (const Past& one : past) {
        if (one.time > time - 0.25)
            compared.newer.push_back(&one.picture->levels);
        if (one.time <= time - 0.45)
            before = &one.picture->levels;
        if (one.time <= time - 0.45 && one.time > time - 0.75)
            compared.older.push_back(&one.picture->levels);
    }
    if (compared.older.empty() && before)
        compared.older.push_back(before);
    return compared;
}

template<class Number>
Number upperMedian(std::vector<Number> numbers) {
    std::sort(numbers.begin(), numbers.end());
    return numbers[numbers.size() / 2];
}

template<class Number>
std::vector<Number> neighbourSums(const std::vector<Number>& numbers, CellGrid grid) {
    std::vector<Number> sums;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            Number sum = 0;
            for (int v = row - 1; v <= row + 1; ++v) {
                for (int u = column - 1; u <= column + 1; ++u)
                    sum += numbers[grid.placeOf(std::clamp(u, 0, grid.columns - 1),
                                                std::clamp(v, 0, grid.rows - 1))];
            }
            sums.push_back(sum);
        }
    }
    return sums;
}

/// The definition in integers that are as long as need be, and rounded where the header says so.
namespace exact {

using Numbers = std::vector<std::int64_t>;

std::int64_t rounded(std::int64_t dividend, std::int64_t divisor) {
    const std::int64_t doubled = 2 * dividend + divisor;
    const std::int64_t quotient = doubled / (2 * divisor);
    return quotient - (doubled % (2 * divisor) < 0 ? 1 : 0);
}

/// In 128ths of a level.
std::int64_t mean(const std::vector<const Levels*>& pictures, std::size_t cell) {
    std::int64_t sum = 0;
    for (const Levels* levels : pictures)
        sum += (*levels)[cell];
    return rounded(8 * sum, std::int64_t(pictures.size()));
}

/// Takes light away, and answers the median of the absolute differences.
std::int64_t settle(Numbers& numbers) {
    const std::int64_t light = upperMedian(numbers);
    Numbers absolute;
    for (std::int64_t& number : numbers) {
        number -= light;
        absolute.push_back(std::abs(number));
    }
    return upperMedian(absolute);
}

/// How much lighter each cell has become, but for light, in 128ths of a level; and from what on one
/// has changed.
Numbers differences(const Compared& compared, CellGrid grid, std::int64_t& changed) {
    Numbers difference;
    for (int cell = 0; cell < grid.count(); ++cell)
        difference.push_back(mean(compared.newer, std::size_t(cell)) -
                             mean(compared.older, std::size_t(cell)));
    Numbers smooth = difference;
    const std::int64_t rough = settle(smooth);
    std::int64_t median = rough;
    int sigmas = 8;
    if (14826 * rough > 16 * 128 * 1000) {
        smooth = neighbourSums(difference, grid);
        for (std::int64_t& number : smooth)
            number = rounded(number, 9);
        median = settle(smooth);
        sigmas = rough >= 2 * median ? 5 : 8;
    }
    changed = std::max<std::int64_t>(8 * 128, rounded(sigmas * 14826 * median, 10000));
    return smooth;
}

CellMap map(const Compared& compared, CellGrid grid) {
    CellMap map(grid);
    map.brighter = CellBits(grid);
    if (compared.older.empty())
        return map;
    std::int64_t changed = 0;
    const Numbers lighter = differences(compared, grid, changed);
    for (std::size_t i = 0; i < lighter.size(); ++i) {
        for (const int least : cellSteps)
            map.steps[i] += 16 * std::abs(lighter[i]) >= least * changed;
        if (map.steps[i] > 0 && lighter[i] > 0)
            map.brighter.add(int(i) % grid.columns, int(i) / grid.columns);
    }
    return map;
}

} // namespace exact

/// The definition in real numbers, without any rounding.
namespace real {

double mean(const std::vector<const Levels*>& pictures, std::size_t cell) {
    double sum = 0;
    for (const Levels* levels : pictures)
        sum += (*levels)[cell] / 16.0;
    return sum / double(pictures.size());
}

double sigmaOf(const std::vector<double>& numbers) {
    const double light = upperMedian(numbers);
    std::vector<double> absolute;
    for (const double number : numbers)
        absolute.push_back(std::abs(number - light));
    return 1.4826 * upperMedian(absolute);
}

struct Strength {
    std::vector<double> levels; ///< by which each cell is lighter, but for light
    double changed;             ///< what they must reach
    double sigma;               ///< before anything was smoothed
    double smoothSigma;         ///< after that, or the same
};

Strength strengthOf(const Compared& compared, CellGrid grid) {
    std::vector<double> difference;
    for (int cell = 0; cell < grid.count(); ++cell)
        difference.push_back(mean(compared.newer, std::size_t(cell)) -
                             mean(compared.older, std::size_t(cell)));
    const double sigma = sigmaOf(difference);
    if (sigma > 1.6) {
        difference = neighbourSums(difference, grid);
        for (double& number : difference)
            number /= 9;
    }
    const double smoothSigma = sigmaOf(difference);
    const bool isWhite = sigma > 1.6 && sigma >= 2 * smoothSigma;
    Strength strength{{}, std::max(8.0, (isWhite ? 5 : 8) * smoothSigma), sigma, smoothSigma};
    const double light = upperMedian(difference);
    for (const double number : difference)
        strength.levels.push_back(number - light);
    return strength;
}

int stepOf(double levels, double changed) {
    return int(std::count_if(cellSteps.begin(), cellSteps.end(),
                             [&](int least) { return 16 * levels >= least * changed; }));
}

} // namespace real

/// The 80 ms in which one map is made.
double partOf(double time) {
    return std::floor(std::floor(time / 0.008 + 0.5) / 10);
}

bool isBrighter(const CellMap& map, std::size_t cell) {
    const int columns = map.grid.columns;
    return !map.brighter.words.empty() &&
           map.brighter.has(int(cell) % columns, int(cell) / columns);
}

bool areEqual(const CellMap& a, const CellMap& b) {
    if (a.grid != b.grid || a.steps != b.steps)
        return false;
    for (std::size_t cell = 0; cell < a.steps.size(); ++cell) {
        if (isBrighter(a, cell) != isBrighter(b, cell))
            return false;
    }
    return true;
}

int changedCells(const CellMap& map) {
    return int(std::count_if(map.steps.begin(), map.steps.end(),
                             [](std::uint8_t step) { return step >= changedStep; }));
}

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

class TestCellComparison : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stepsFollowTheDifference();
    void lightIsTakenAway();
    void slowThingsShow();
    void strongNoiseIsAveraged();
    void equalsExactIntegers_data();
    void equalsExactIntegers();
    void agreesWithRealNumbers_data();
    void agreesWithRealNumbers();
    void nothingIsOldEnough();
    void onePictureASecond();
    void dependsOnTheLastSecondAlone_data();
    void dependsOnTheLastSecondAlone();
    void anotherSizeBeginsAnew();
    void timesThatBeginAnew_data();
    void timesThatBeginAnew();
    void timesThatStandStill();
    void mapsAreCarriedOn();
    void oneMapOutOfTwo();
    void whatBeginsAnewIsMade();
    void picturesOfOneMoment();
    void tellsWhichBecameBrighter();
    void keepsFewPictures();
    void extremeLevels();
    void oneCell();
};

void TestCellComparison::stepsFollowTheDifference() {
    // 8 levels are what counts as changed in a picture without noise: 16 sixteenths.
    const CellGrid grid{10, 10};
    const auto stepAfter = [&](int sixteenths) {
        CellComparison comparison;
        comparison.add(0, flat(grid, 100));
        Levels levels(100, 1600);
        levels[42] = std::uint16_t(1600 + sixteenths);
        return int(comparison.add(0.5, pictureOf(grid, levels)).steps[42]);
    };
    // The first step is 5 levels of them, the last is 21.
    const std::vector<std::pair<int, int>> cases{{0, 0},   {79, 0},  {80, 1},  {127, 1}, {128, 2},
                                                 {207, 2}, {208, 3}, {335, 3}, {336, 4}, {2000, 4}};
    for (const auto& [sixteenths, step] : cases) {
        QCOMPARE(stepAfter(sixteenths), step);
        if (sixteenths <= 1600)
            QCOMPARE(stepAfter(-sixteenths), step);
    }
}

void TestCellComparison::lightIsTakenAway() {
    const CellGrid grid{16, 9};
    CellComparison comparison;
    comparison.add(0, dotted(grid, 50, 7, 20));
    const CellMap& map = comparison.add(1, dotted(grid, 200, 7, 160));
    QCOMPARE(changedCells(map), 1); // 10 levels less of the light than the others got
    QCOMPARE(int(map.steps[7]), 2);
}

void TestCellComparison::slowThingsShow() {
    // 18 levels a second: far from 8 between two pictures, and 9 between the means.
    const CellGrid grid{16, 9};
    CellComparison comparison;
    for (int i = 0; i <= 50; ++i) {
        Levels levels(144, 1600);
        levels[20] = std::uint16_t(1600 + i * 16 * 18 / 25);
        const CellMap& map = comparison.add(i / 25.0, pictureOf(grid, levels));
        if (i >= 20)
            QCOMPARE(changedCells(map), 1);
    }
}

void TestCellComparison::strongNoiseIsAveraged() {
    // A checkerboard that turns over: each cell by 30 levels, any 3 x 3 of them by 30 / 9.
    const CellGrid grid{30, 20};
    Levels first;
    Levels second;
    for (int i = 0; i < grid.count(); ++i) {
        const bool isDark = (i % 30 + i / 30) % 2 != 0;
        first.push_back(isDark ? 1600 : 1840);
        second.push_back(isDark ? 1840 : 1600);
    }
    CellComparison comparison;
    comparison.add(0, pictureOf(grid, first));
    QCOMPARE(changedCells(comparison.add(0.5, pictureOf(grid, second))), 0);
}

void TestCellComparison::equalsExactIntegers_data() {
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("noise");
    QTest::addColumn<int>("grain");
    QTest::newRow("quiet") << 160 << 90 << 25.0 << 0.5 << 1;
    QTest::newRow("just below strong noise") << 160 << 90 << 25.0 << 4.0 << 1;
    QTest::newRow("strong noise") << 160 << 90 << 25.0 << 9.0 << 1;
    QTest::newRow("more noise than levels") << 160 << 120 << 15.0 << 200.0 << 1;
    QTest::newRow("no noise") << 160 << 90 << 12.5 << 0.0 << 1;
    QTest::newRow("slow") << 31 << 17 << 1.0 << 6.0 << 1;
    QTest::newRow("slower than a window") << 31 << 17 << 3.3 << 2.0 << 1;
    QTest::newRow("50 a second") << 64 << 40 << 50.0 << 5.0 << 1;
    QTest::newRow("97 a second") << 33 << 20 << 97.0 << 3.0 << 1;
    QTest::newRow("120 a second") << 33 << 20 << 120.0 << 12.0 << 1;
    QTest::newRow("one column") << 1 << 77 << 30.0 << 8.0 << 1;
    QTest::newRow("one row") << 77 << 1 << 30.0 << 8.0 << 1;
    QTest::newRow("two cells") << 2 << 1 << 30.0 << 8.0 << 1;
    QTest::newRow("as high as can be") << 160 << 640 << 8.0 << 3.0 << 1;
    QTest::newRow("strong noise of coarse grain") << 160 << 90 << 25.0 << 9.0 << 5;
}

void TestCellComparison::equalsExactIntegers() {
    QFETCH(int, columns);
    QFETCH(int, rows);
    QFETCH(double, rate);
    QFETCH(double, noise);
    QFETCH(int, grain);
    const CellGrid grid{columns, rows};
    Scene scene(grid, noise, grain);
    CellComparison comparison;
    std::vector<Past> past;
    CellMap expected;
    const int count = std::max(40, int(2 * rate));
    for (int i = 0; i < count; ++i) {
        const double time = 3 + i / rate + (i > count * 3 / 4 ? 2.2 : 0); // with a pause
        const bool isCarried = !past.empty() && partOf(past.back().time) == partOf(time);
        past.push_back({time, scene.at(time)});
        const CellMap& map = comparison.add(time, past.back().picture);
        QCOMPARE(map.isCarried, isCarried);
        if (!isCarried)
            expected = exact::map(comparedOf(past), grid);
        QVERIFY(areEqual(map, expected));
    }
}

void TestCellComparison::agreesWithRealNumbers_data() {
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("noise");
    QTest::addColumn<int>("grain");
    QTest::newRow("quiet") << 25.0 << 0.5 << 1;
    QTest::newRow("some noise") << 25.0 << 2.0 << 1;
    QTest::newRow("strong noise") << 25.0 << 9.0 << 1;
    QTest::newRow("six a second") << 6.0 << 5.0 << 1;
    QTest::newRow("strong noise of coarse grain") << 25.0 << 9.0 << 5;
}

void TestCellComparison::agreesWithRealNumbers() {
    QFETCH(double, rate);
    QFETCH(double, noise);
    QFETCH(int, grain);
    // Two means that are rounded, their median, and an average: half a 128th each. What counts as
    // changed follows the median with a factor of 8 * 1.4826.
    const double error = 2.5 / 128;
    const double errorOfChanged = 8 * 1.4826 * error + 0.5 / 128;
    const CellGrid grid{80, 45};
    Scene scene(grid, noise, grain);
    CellComparison comparison;
    std::vector<Past> past;
    int sharp = 0;
    int all = 0;
    for (int i = 0; i < 60; ++i) {
        const double time = i / rate;
        past.push_back({time, scene.at(time)});
        const CellMap& map = comparison.add(time, past.back().picture);
        const Compared compared = comparedOf(past);
        if (compared.older.empty() || map.isCarried)
            continue;
        const real::Strength strength = real::strengthOf(compared, grid);
        // Where a decision hangs on the rounding they may part.
        if (std::abs(strength.sigma - 1.6) < 1.4826 * error ||
            std::abs(strength.sigma - 2 * strength.smoothSigma) < 3 * 1.4826 * error)
            continue;
        for (std::size_t cell = 0; cell < map.steps.size(); ++cell) {
            const double levels = std::abs(strength.levels[cell]);
            const double changed = strength.changed;
            const int least = real::stepOf(levels - error, changed + errorOfChanged);
            const int most = real::stepOf(levels + error, std::max(8.0, changed - errorOfChanged));
            QVERIFY(map.steps[cell] >= least && map.steps[cell] <= most);
            QCOMPARE(isBrighter(map, cell), map.steps[cell] > 0 && strength.levels[cell] > 0);
            sharp += least == most;
            ++all;
        }
    }
    QVERIFY(all > 10 * grid.count());
    QVERIFY(sharp > all * 9 / 10);
}

void TestCellComparison::nothingIsOldEnough() {
    const CellGrid grid{16, 9};
    CellComparison comparison;
    comparison.add(10, flat(grid, 0));
    for (int i = 1; i < 12; ++i) // up to 0.44 s
        QCOMPARE(changedCells(comparison.add(10 + i / 25.0, dotted(grid, 0, 3, 255))), 0);
    QCOMPARE(changedCells(comparison.add(10.48, dotted(grid, 0, 3, 255))), 1);
}

void TestCellComparison::onePictureASecond() {
    const CellGrid grid{16, 9};
    CellComparison comparison;
    comparison.add(0, flat(grid, 10));
    QCOMPARE(changedCells(comparison.add(1, dotted(grid, 10, 5, 40))), 1);
    QCOMPARE(changedCells(comparison.add(2, dotted(grid, 10, 5, 40))), 0);
    // After an hour, too, the newest one before serves.
    QCOMPARE(changedCells(comparison.add(3602, dotted(grid, 10, 6, 40))), 2);
}

void TestCellComparison::dependsOnTheLastSecondAlone_data() {
    QTest::addColumn<double>("rate");
    QTest::newRow("25 a second") << 25.0;
    QTest::newRow("one a second") << 0.9;
    QTest::newRow("240 a second") << 240.0;
}

void TestCellComparison::dependsOnTheLastSecondAlone() {
    QFETCH(double, rate);
    const CellGrid grid{40, 22};
    Scene scene(grid, 3, 1);
    CellComparison whole;
    std::vector<Past> past;
    for (int i = 0; i < 400; ++i) {
        past.push_back({i / rate, scene.at(i / rate)});
        const CellMap expected = whole.add(past.back().time, past.back().picture);
        if (i % 37 != 36)
            continue;
        std::size_t first = past.size() - 1;
        while (first > 0 && past[first].time > past.back().time - cellHistory)
            --first;
        CellComparison part;
        CellMap map;
        for (std::size_t j = first; j < past.size(); ++j)
            map = part.add(past[j].time, past[j].picture);
        QVERIFY(areEqual(map, expected));
        QCOMPARE(map.isCarried, expected.isCarried);
    }
}

void TestCellComparison::anotherSizeBeginsAnew() {
    CellComparison comparison;
    comparison.add(0, flat({16, 9}, 10));
    QCOMPARE(changedCells(comparison.add(1, dotted({16, 9}, 10, 5, 40))), 1);
    for (const CellGrid grid : {CellGrid{9, 16}, {16, 10}, {1, 1}, {160, 90}}) {
        const CellMap& map = comparison.add(2, dotted(grid, 200, 0, 4));
        QVERIFY(map.grid == grid);
        QCOMPARE(map.steps, Steps(std::size_t(grid.count()), 0));
    }
    // And goes on with the new one.
    QCOMPARE(changedCells(comparison.add(3, dotted({160, 90}, 200, 1, 4))), 2);
}

void TestCellComparison::timesThatBeginAnew_data() {
    QTest::addColumn<double>("time");
    QTest::newRow("backwards") << 0.9;
    QTest::newRow("far backwards") << -1e6;
    QTest::newRow("not a number") << notANumber;
    QTest::newRow("infinite") << infinity;
    QTest::newRow("negative and infinite") << -infinity;
    QTest::newRow("huge and negative") << -9.3e18;
    QTest::newRow("huge") << 9.3e18;
    QTest::newRow("the greatest") << std::numeric_limits<double>::max();
}

void TestCellComparison::timesThatBeginAnew() {
    QFETCH(double, time);
    const CellGrid grid{16, 9};
    CellComparison comparison;
    comparison.add(0, flat(grid, 10));
    QCOMPARE(changedCells(comparison.add(1, dotted(grid, 10, 5, 40))), 1);
    QCOMPARE(changedCells(comparison.add(time, dotted(grid, 10, 6, 40))), 0);
    QCOMPARE(changedCells(comparison.add(time, dotted(grid, 10, 7, 40))), 0);
    // Nothing of what was before is left: the next picture is the first one, or compared with one.
    comparison.add(2e6, dotted(grid, 10, 8, 40));
    QCOMPARE(changedCells(comparison.add(2e6 + 1, dotted(grid, 10, 9, 40))), 2);
}

void TestCellComparison::timesThatStandStill() {
    const CellGrid grid{16, 9};
    CellComparison comparison;
    comparison.add(0, flat(grid, 10));
    comparison.add(1, dotted(grid, 10, 5, 40));
    for (int i = 0; i < 1000; ++i) {
        const CellMap& map = comparison.add(1, flat(grid, i % 256));
        QCOMPARE(changedCells(map), 1);
        QCOMPARE(int(map.steps[5]), 4);
    }
}

void TestCellComparison::mapsAreCarriedOn() {
    // 1.04 is the first of what lies between 1.036 and 1.116.
    const CellGrid grid{16, 9};
    CellComparison comparison;
    QVERIFY(!comparison.add(0, flat(grid, 10)).isCarried);
    QVERIFY(!comparison.add(1.04, dotted(grid, 10, 5, 40)).isCarried);
    const CellMap& carried = comparison.add(1.08, flat(grid, 10));
    QVERIFY(carried.isCarried);
    QCOMPARE(changedCells(carried), 1);
    // All three enter the mean: 30 levels, twice 0.
    const CellMap& made = comparison.add(1.12, flat(grid, 10));
    QVERIFY(!made.isCarried);
    QCOMPARE(int(made.steps[5]), 2);
}

void TestCellComparison::oneMapOutOfTwo() {
    // At 25 pictures a second, whatever their times are rounded to.
    CellComparison comparison;
    for (int i = 0; i < 100'000; ++i)
        QCOMPARE(comparison.add(i * 0.04, flat({2, 1}, 0)).isCarried, i % 2 == 1);
}

void TestCellComparison::whatBeginsAnewIsMade() {
    CellComparison comparison;
    comparison.add(1, flat({16, 9}, 10));
    QVERIFY(!comparison.add(1.001, flat({9, 16}, 10)).isCarried);
    QVERIFY(!comparison.add(1, flat({9, 16}, 10)).isCarried);
    QVERIFY(!comparison.add(notANumber, flat({9, 16}, 10)).isCarried);
    comparison.add(2, flat({16, 9}, 10));
    QVERIFY(comparison.add(2.003, flat({16, 9}, 10)).isCarried);
    QVERIFY(!comparison.add(2.001, flat({16, 9}, 10)).isCarried);
}

void TestCellComparison::picturesOfOneMoment() {
    // Of those that lie within 8 ms the first alone enters the means.
    const CellGrid grid{16, 9};
    CellComparison comparison;
    comparison.add(0, flat(grid, 10));
    comparison.add(0.997, dotted(grid, 10, 5, 24));
    for (const double time : {0.998, 1.0, 1.003})
        comparison.add(time, flat(grid, 10));
    comparison.add(1.005, flat(grid, 10));
    // 14 and 5 of three are more than 5 levels, and of six they would be less.
    QCOMPARE(int(comparison.add(1.04, dotted(grid, 10, 5, 15)).steps[5]), 1);
}

void TestCellComparison::tellsWhichBecameBrighter() {
    const CellGrid grid{16, 9};
    CellComparison comparison;
    comparison.add(0, dotted(grid, 100, 3, 150));
    const CellMap& map = comparison.add(1, dotted(grid, 90, 20, 110));
    QCOMPARE(changedCells(map), 2);
    QVERIFY(!isBrighter(map, 3));
    QVERIFY(isBrighter(map, 20));
    QCOMPARE(map.brighter.count(), 1);
    QCOMPARE(comparison.add(2, dotted(grid, 90, 20, 110)).brighter.count(), 0);
}

void TestCellComparison::keepsFewPictures() {
    const CellGrid grid{4, 3};
    std::vector<std::weak_ptr<const CellPicture>> pictures;
    CellComparison comparison;
    for (int i = 0; i < 20'000; ++i) {
        const CellPicturePointer picture = flat(grid, i % 256);
        pictures.push_back(picture);
        comparison.add(i / 5000.0, picture);
    }
    const auto kept = std::count_if(pictures.begin(), pictures.end(),
                                    [](const auto& picture) { return !picture.expired(); });
    QVERIFY(kept <= 100);
}

void TestCellComparison::extremeLevels() {
    // From all black to all white but one cell, and back, with as many pictures as there can be.
    const CellGrid grid{16, 9};
    CellComparison comparison;
    for (int i = 0; i < 1000; ++i) {
        const bool isWhite = i / 120 % 2 != 0;
        const CellPicturePointer picture = dotted(grid, isWhite ? 255 : 0, 77, isWhite ? 0 : 255);
        const CellMap& map = comparison.add(i / 128.0, picture);
        if (i % 120 == 119)
            QCOMPARE(changedCells(map), 0);
        if (i > 120 && i % 120 == 40) { // compared with the others alone
            QCOMPARE(changedCells(map), 1);
            QCOMPARE(int(map.steps[77]), 4);
        }
    }
}

void TestCellComparison::oneCell() {
    // It is the median itself: all that happens is light.
    CellComparison comparison;
    comparison.add(0, flat({1, 1}, 0));
    QCOMPARE(comparison.add(1, flat({1, 1}, 255)).steps, Steps{0});
}

QTEST_GUILESS_MAIN(TestCellComparison)
#include "test_cellcomparison.moc"
