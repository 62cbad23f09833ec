#pragma once

#include <QVector>

/// Whether motion fills at least half of the last seconds.
///
/// The newest entry is not counted: it only serves as the reference time. Counted are the entries
/// before it, going back, for as long as time + window > reference time. The vote is won when at
/// least half of them have a value of at least the threshold (a tie wins).
///
/// The cost of a frame does not depend on the window: the counted entries are a run whose ends only
/// move forward, except where times go backwards, where the run is counted anew.
class MotionVote {
public:
    /// The lists hold one entry per frame, times and `window` in seconds. Their owner appends one
    /// entry to each before every call of `advance`; they must outlive the vote.
    MotionVote(const QVector<float>& motionValues, const QVector<double>& frameTimes, double window,
               float threshold);

    /// Takes in the newest entry of the lists.
    void advance();

    /// The vote over the lists as they stand.
    bool isWon() const;

private:
    bool isCounted(int entry) const;
    bool isHit(int entry) const;
    void recount();

    const QVector<float>& values;
    const QVector<double>& times;
    double window;
    float threshold;
    int first = 0;    ///< the oldest entry counted
    int hits = 0;     ///< of the entries first .. size - 2
    int backStep = 0; ///< the newest entry whose time lies before its predecessor's
};
