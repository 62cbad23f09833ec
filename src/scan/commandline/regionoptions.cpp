// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "regionoptions.h"

#include "optionvalues.h"

#include <QCommandLineParser>
#include <QImageReader>

#include <array>
#include <cmath>

namespace {

/// The rectangle that `text` says; an empty one, and a complaint about `option`, if it says none.
QRect readRectangle(const char* option, const QString& text, OptionValues& values) {
    const QStringList parts = text.split(',');
    std::array<int, 4> numbers{};
    bool isGood = parts.size() == int(numbers.size());
    for (int i = 0; isGood && i < parts.size(); ++i)
        numbers[std::size_t(i)] = parts[i].toInt(&isGood);
    const auto [x, y, width, height] = numbers;
    // Far corners must still fit an int.
    constexpr int farthest = 1 << 30;
    const bool isNear = std::abs(double(x)) <= farthest && std::abs(double(y)) <= farthest &&
                        width <= farthest && height <= farthest;
    if (isGood && isNear && width >= 1 && height >= 1)
        return {x, y, width, height};
    values.reject(
        QStringLiteral("--%1 takes X,Y,WIDTH,HEIGHT in whole pixels, WIDTH and HEIGHT at least 1")
            .arg(option));
    return {};
}

void readMask(const QString& fileName, RegionOfInterest& region, OptionValues& values) {
    QImageReader reader(fileName);
    region.kind = RegionOfInterest::Kind::Mask;
    region.mask = reader.read();
    if (region.mask.isNull())
        values.reject(
            QStringLiteral("cannot read the mask '%1': %2").arg(fileName, reader.errorString()));
}

} // namespace

RegionOfInterest readRegion(const QCommandLineParser& parser, OptionValues& values) {
    RegionOfInterest region;
    if (parser.isSet("roi")) {
        region.kind = RegionOfInterest::Kind::Rectangle;
        region.rectangle = readRectangle("roi", parser.value("roi"), values);
    } else if (!parser.value("mask").isEmpty()) {
        readMask(parser.value("mask"), region, values);
    }
    for (const QString& rectangle : parser.values("exclude"))
        region.excluded.append(readRectangle("exclude", rectangle, values));
    return region;
}
