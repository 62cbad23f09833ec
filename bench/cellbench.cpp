// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Times the measure by cells on one core; run by scripts/bench-cells. Prints milliseconds for each
// picture: its reduction to cells, and the comparison of those, of a quiet picture and of one whose
// noise is smoothed away. And for an hour of kept maps: its values, on one thread and on more.

#include "cellcomparison.h"
#include "cellreduction.h"
#include "cellseries.h"

#include <opencv2/core.hpp>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

constexpr int pictures = 32; // more than a second-level cache holds
constexpr int rounds = 40;
constexpr double pictureRate = 25;

/// Processor time of this thread, so that other programs do not count.
double milliseconds() {
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// Grey, with noise of `sigma` levels that cells keep: it is the same in each of their pixels.
std::vector<cv::Mat> noisyPictures(const cv::Size& size, double sigma) {
    const CellGrid grid = cellGridOf(size.width, size.height);
    std::vector<cv::Mat> planes;
    cv::RNG random(1);
    for (int i = 0; i < pictures; ++i) {
        cv::Mat noise(grid.rows, grid.columns, CV_8UC1);
        random.fill(noise, cv::RNG::NORMAL, 128, sigma);
        cv::Mat plane(size, CV_8UC1);
        for (int y = 0; y < size.height; ++y) {
            for (int x = 0; x < size.width; ++x)
                plane.at<std::uint8_t>(y, x) = noise.at<std::uint8_t>(
                    y * grid.rows / size.height, x * grid.columns / size.width);
        }
        planes.push_back(plane);
    }
    return planes;
}

/// The median of all rounds, each of them of all pictures.
template<class Action>
double timeOf(Action action) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        const double before = milliseconds();
        for (int i = 0; i < pictures; ++i)
            action(round * pictures + i);
        times.push_back((milliseconds() - before) / pictures);
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[rounds / 2];
}

double comparisonTime(const std::vector<cv::Mat>& planes) {
    std::vector<CellPicturePointer> cells;
    cells.reserve(planes.size());
    for (const cv::Mat& plane : planes)
        cells.push_back(reduceToCells(plane));
    CellComparison comparison;
    return timeOf([&](int number) {
        comparison.add(number / pictureRate, cells[std::size_t(number % pictures)]);
    });
}

void bench(const cv::Size& size) {
    const std::vector<cv::Mat> quiet = noisyPictures(size, 2);
    const double reduction =
        timeOf([&](int number) { reduceToCells(quiet[std::size_t(number % pictures)]); });
    std::printf("%4d x %4d  reduced %.3f ms  compared %.3f ms  smoothed %.3f ms\n", size.width,
                size.height, reduction, comparisonTime(quiet),
                comparisonTime(noisyPictures(size, 20)));
}

constexpr CellGrid hourGrid{160, 90};
constexpr int hour = 90000;  // pictures
constexpr int minute = 1500; // of which an hour is made

/// A map in which `walkers` of about 12 x 20 cells, with ragged edges, walk at different speeds.
CellMap walkersAt(int picture, int walkers, cv::RNG& random) {
    CellMap map(hourGrid);
    map.brighter = CellBits(hourGrid);
    map.isCarried = picture % 2 == 1;
    for (int walker = 0; walker < walkers; ++walker) {
        const int left = (walker * 37 + picture * (walker % 5 + 1) / 16) % (hourGrid.columns - 16);
        const int top = walker * 23 % (hourGrid.rows - 20);
        for (int row = top; row < top + 20; ++row) {
            const int begin = left + random.uniform(0, 3);
            for (int column = begin; column < begin + 12; ++column) {
                map.steps[hourGrid.placeOf(column, row)] =
                    std::uint8_t(std::min(int(cellSteps.size()), 1 + (column - begin) / 2));
                if (column < left + 7)
                    map.brighter.add(column, row);
            }
        }
    }
    return map;
}

/// An hour in which they walk for `share` of each minute.
CellMaps hourOf(int walkers, double share) {
    cv::RNG random(1);
    CellMaps one;
    for (int picture = 0; picture < minute; ++picture)
        one.append(walkersAt(picture, picture < minute * share ? walkers : 0, random));
    CellMaps all;
    while (all.count() < hour)
        all.append(one);
    return all;
}

/// Milliseconds that the clock on the wall counts.
double askingTime(const CellMaps& maps, int threads) {
    QVector<double> seconds;
    for (int picture = 0; picture < maps.count(); ++picture)
        seconds.append(picture / pictureRate);
    const CellScores scores({}, {hourGrid.columns * 8, hourGrid.rows * 8}, {});
    std::vector<double> times;
    for (int round = 0; round < 5; ++round) {
        const auto before = std::chrono::steady_clock::now();
        seriesOf(maps, seconds, scores, threads);
        const std::chrono::duration<double, std::milli> passed =
            std::chrono::steady_clock::now() - before;
        times.push_back(passed.count());
    }
    std::nth_element(times.begin(), times.begin() + 2, times.end());
    return times[2];
}

void benchHour(const char* name, const CellMaps& maps) {
    std::printf("%-20s asked again  1 thread %.0f ms  2 threads %.0f ms  4 threads %.0f ms\n", name,
                askingTime(maps, 1), askingTime(maps, 2), askingTime(maps, 4));
}

} // namespace

int main() {
    for (const cv::Size& size : {cv::Size(640, 480), cv::Size(1920, 1080), cv::Size(3840, 2160)})
        bench(size);
    benchHour("an hour, quiet", hourOf(1, 0.05));
    benchHour("an hour, busy", hourOf(5, 1));
    return 0;
}
