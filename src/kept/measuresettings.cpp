// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "measuresettings.h"

#include "measuredefinition.h"
#include "shortestdigits.h"

#include <QByteArrayList>
#include <QCryptographicHash>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr char thresholdKey[] = "threshold-value";
constexpr char regionKey[] = "region";
constexpr char excludeKey[] = "exclude";
constexpr char picturesKey[] = "pictures";
constexpr char keyPictures[] = "key";

/// "1,2,3,4": corner, width, height.
QByteArray rectangleText(const QRect& rectangle) {
    QByteArrayList numbers;
    for (const int number : {rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height()})
        numbers += QByteArray::number(number);
    return numbers.join(',');
}

QByteArray excludedText(const QVector<QRect>& rectangles) {
    QByteArrayList texts;
    for (const QRect& rectangle : rectangles)
        texts += rectangleText(rectangle);
    return texts.isEmpty() ? QByteArray("none") : texts.join(' ');
}

/// Of what it selects alone, whatever file it came from.
QByteArray maskText(const QImage& mask) {
    QCryptographicHash digest(QCryptographicHash::Sha256);
    QByteArray row(mask.width(), '0');
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x)
            row[x] = qGreen(mask.pixel(x, y)) == 0 ? '0' : '1';
        digest.addData(row);
    }
    return "mask " + QByteArray::number(mask.width()) + 'x' + QByteArray::number(mask.height()) +
           ' ' + digest.result().toHex();
}

/// Of a rectangle that is none of the recording's own pixels.
QByteArray spaceText(const QSize& space) {
    if (space.isEmpty())
        return {};
    return " in " + QByteArray::number(space.width()) + 'x' + QByteArray::number(space.height());
}

QByteArray regionText(const RegionOfInterest& region) {
    switch (region.kind) {
    case RegionOfInterest::Kind::Rectangle:
        return "rectangle " + rectangleText(region.rectangle) + spaceText(region.space);
    case RegionOfInterest::Kind::Mask:
        return maskText(region.mask);
    case RegionOfInterest::Kind::WholeFrame:
        break;
    }
    return "whole";
}

QByteArray rateText(double frameRate) {
    return frameRate > 0.0 ? shortestDigits(frameRate) : QByteArray("own");
}

QByteArray endText(double seconds) {
    return std::isfinite(seconds) ? shortestDigits(seconds) : QByteArray("end");
}

constexpr int mostSkipped = 1000000; // far above what can be asked for

QRect rectangleOf(const QByteArray& text) {
    constexpr int farthest = 1 << 29; // far corners must still fit an int
    const QByteArrayList numbers = text.split(',');
    const auto number = [&](int place) {
        return std::clamp(numbers.value(place).toInt(), -farthest, farthest);
    };
    return {number(0), number(1), number(2), number(3)};
}

/// As good as it can be told; `region` where nothing can.
RegionOfInterest regionOf(const MeasureSettings& settings, RegionOfInterest region) {
    const QByteArray text = settingOf(settings, regionKey);
    const QByteArray rectangle = "rectangle ";
    if (text == "whole") {
        region.kind = RegionOfInterest::Kind::WholeFrame;
    } else if (text.startsWith(rectangle)) {
        region.kind = RegionOfInterest::Kind::Rectangle;
        region.rectangle = rectangleOf(text.mid(rectangle.size()));
        region.space = QSize(); // in others it cannot be told
    }
    region.excluded.clear();
    const QByteArray excluded = settingOf(settings, excludeKey);
    for (const QByteArray& one : excluded.split(' ')) {
        if (one.contains(','))
            region.excluded.append(rectangleOf(one));
    }
    return region;
}

} // namespace

MeasureSettings measureSettings(const DetectionOptions& options) {
    return {{measureKey, QByteArray::number(measureDefinition)},
            {thresholdKey, QByteArray::number(options.measure.pixelThreshold)},
            {"skip", QByteArray::number(options.measure.skip)},
            {regionKey, regionText(options.measure.region)},
            {excludeKey, excludedText(options.measure.region.excluded)},
            {"fps", rateText(options.times.frameRate)},
            {picturesKey, options.isKeyframesOnly ? keyPictures : "all"},
            {"from", shortestDigits(options.range.from)},
            {"to", endText(options.range.to)}};
}

MeasureSettings cellsSettings(const MeasureSettings& settings) {
    constexpr const char* ofTheMean[] = {measureKey, thresholdKey, regionKey, excludeKey};
    MeasureSettings left;
    for (const HeadLine& line : settings) {
        if (std::find(std::begin(ofTheMean), std::end(ofTheMean), line.key) == std::end(ofTheMean))
            left.append(line);
    }
    return left;
}

QByteArray settingOf(const MeasureSettings& settings, const QByteArray& key) {
    const auto found = std::find_if(settings.cbegin(), settings.cend(),
                                    [&key](const HeadLine& line) { return line.key == key; });
    return found == settings.cend() ? QByteArray() : found->value;
}

bool areOfKeyFrames(const MeasureSettings& settings) {
    return settingOf(settings, picturesKey) == keyPictures;
}

std::optional<DetectionOptions> measuredWith(const MeasureSettings& settings,
                                             DetectionOptions options) {
    MeasureOptions& measure = options.measure;
    measure.pixelThreshold = settingOf(settings, thresholdKey).toInt();
    measure.skip = settingOf(settings, "skip").toInt();
    if (measure.pixelThreshold < 0 || measure.pixelThreshold > 255 || measure.skip < 0 ||
        measure.skip > mostSkipped)
        return std::nullopt;
    measure.region = regionOf(settings, measure.region);
    options.isKeyframesOnly = areOfKeyFrames(settings);
    const MeasureSettings again = measureSettings(options);
    for (const char* key : {measureKey, thresholdKey, "skip", regionKey, excludeKey, picturesKey}) {
        if (settingOf(again, key) != settingOf(settings, key))
            return std::nullopt;
    }
    return options;
}
