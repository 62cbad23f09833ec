#include "region.h"

#include <algorithm>
#include <limits>

namespace {

/// Truncates toward zero; what no int can hold becomes the nearest int.
int truncated(double value) {
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return int(std::clamp(value, lowest, highest));
}

struct Span {
    int begin;
    int length;
};

/// One axis of the rectangle: `first` and `last` (inclusive) scaled and cut to 0 .. `limit`.
Span scaledSpan(int first, int last, double scale, int limit) {
    const int unclamped = truncated(first * scale);
    const int begin = std::max(unclamped, 0);
    const double extent = (double(last) - first + 1.0) * scale;
    const double end = std::min(double(truncated(extent)) + unclamped, double(limit));
    return {begin, truncated(end - begin)};
}

cv::Rect scaledRectangle(const RegionOfInterest& region, int width, int height) {
    const QSize space = region.space.isEmpty() ? QSize(width, height) : region.space;
    const QRect& r = region.rectangle;
    const Span x = scaledSpan(r.left(), r.right(), double(width) / space.width(), width);
    const Span y = scaledSpan(r.top(), r.bottom(), double(height) / space.height(), height);
    if (x.length < 1 || y.length < 1)
        return {};
    return {x.begin, y.begin, x.length, y.length};
}

void prepareMask(const QImage& mask, int width, int height, PreparedRegion& prepared) {
    prepared.maskMat = cv::Mat::zeros(height, width, CV_8UC1);
    const QImage scaled =
        mask.scaled(QSize(width, height), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    if (scaled.isNull())
        return;
    for (int y = 0; y < height; ++y) {
        std::uint8_t* row = prepared.maskMat.ptr(y);
        for (int x = 0; x < width; ++x) {
            if (qGreen(scaled.pixel(x, y)) == 0)
                continue;
            row[x] = 255;
            ++prepared.maskCount;
        }
    }
}

} // namespace

PreparedRegion prepareRegion(const RegionOfInterest& region, int width, int height) {
    PreparedRegion prepared;
    prepared.kind = region.kind;
    if (region.kind == RegionOfInterest::Kind::Rectangle)
        prepared.roi = scaledRectangle(region, width, height);
    else if (region.kind == RegionOfInterest::Kind::Mask)
        prepareMask(region.mask, width, height, prepared);
    return prepared;
}
