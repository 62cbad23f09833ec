#pragma once

#include <QVector>

/// What was measured of one recording: one entry in each list per picture after the first.
struct MotionSeries {
    QVector<float> values; ///< motion values, 0 or more
    QVector<double> times; ///< seconds, as the stream counts them
};
