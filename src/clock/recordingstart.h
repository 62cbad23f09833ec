// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

/// What it is known from when a recording began.
enum class StartSource {
    Unknown,
    Given,     ///< a person has said it
    Name,      ///< the file's, or its folders' and its own
    Container, ///< what the camera wrote into the file's head
    FileTime,  ///< the file's last change, less the recording's length
    Follows    ///< it goes on where another one ends
};

/// How far that can be relied on.
enum class StartCertainty {
    Unknown,
    Rough,  ///< copying the file, or cutting it, may have changed it
    Likely, ///< something had to be supposed, such as the zone
    Sure
};

/// What was found to be doubtful on the way.
enum class StartDoubt {
    AmbiguousDay,   ///< the name has a day such as 01-02-2026, and was not used
    DayWithoutTime, ///< the name has a day alone, and was not used
    HourMissing,    ///< the clock was put forward over it; taken as if it had not been
    HourTwice,      ///< the clock was put back over it; the first one was taken
    NoSeconds,      ///< the name tells minutes alone
    PatternUnfit,   ///< the name is not as a person says that names are
    EpochSupposed,  ///< the name has a number that may count seconds since 1970
    Ahead,          ///< this machine's clock is far from showing it yet
    ClockNotSet,    ///< a time that clocks show which were never set; it was not used
    UnlikelyTime,   ///< a time that no recording has, or none at all; it was not used
    LengthUnknown,  ///< the file's time was not used, since nothing tells how long it is
    ZoneSupposed    ///< the container tells UTC, which some cameras mistake for their own time
};

/// When a recording's first picture was taken.
struct RecordingStart {
    QDateTime time; ///< in its zone; invalid: not known
    StartSource source = StartSource::Unknown;
    StartCertainty certainty = StartCertainty::Unknown;
    QVector<StartDoubt> doubts; ///< in the order in which they were found

    bool isKnown() const { return time.isValid(); }

    /// What a clock on the wall beside the camera showed, as a time of UTC, which no clock is put
    /// forward in. Invalid where it is not known.
    QDateTime wallClock() const;

    /// The same of a clock that stood as it did so many seconds later: where it was put forward or
    /// back meanwhile, another one than at the first picture.
    QDateTime wallClockAsOf(double seconds) const;

    /// When a picture was taken that comes so many seconds behind the first one, whatever their
    /// number; invalid where the start is not known.
    QDateTime timeAt(double seconds) const;
};

/// One that is not known, for this reason.
RecordingStart unknownStart(StartDoubt doubt);

/// The same start with a doubt more, and therefore no more than likely.
RecordingStart lessSure(RecordingStart start, StartDoubt doubt);

/// "given", "name", "container", "file time", "follows" or "unknown", for programs.
QString sourceWord(StartSource source);

/// "sure", "likely", "rough" or "unknown", for programs.
QString certaintyWord(StartCertainty certainty);
