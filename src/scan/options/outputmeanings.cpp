// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optiontable.h"

const QVector<ExitMeaning>& exitMeanings() {
    static const QVector<ExitMeaning> meanings = {
        {0, QStringLiteral("every video was read to its end and every clip exported that should "
                           "be")},
        {1, QStringLiteral("something could not be read or written; each is named on standard "
                           "error, and the others are done all the same; another try may help")},
        {2, QStringLiteral("the command line is wrong")},
        {3, QStringLiteral("all was done, but a recording is none or is damaged so that it cannot "
                           "be read; another try will not help")},
        {130, QStringLiteral("interrupted; the clip that was open is still printed")},
    };
    return meanings;
}

const QVector<JsonField>& jsonFields() {
    static const QVector<JsonField> fields = {
        {"video", "clip", QStringLiteral("the recording, as it was named")},
        {"index", "clip", QStringLiteral("number of the clip in its recording, from 0")},
        {"start", "clip", QStringLiteral("seconds from the first picture")},
        {"end", "clip", QStringLiteral("seconds from the first picture")},
        {"snapshotTime", "clip",
         QStringLiteral("seconds from the first picture to the strongest motion")},
        {"snapshot", "clip", QStringLiteral("file of the picture, or null")},
        {"file", "clip",
         QStringLiteral("with --export: where it was exported to, null if that was not tried")},
        {"exported", "clip", QStringLiteral("with --export: true or false")},
        {"startClock", "clip",
         QStringLiteral("with --start-time auto or --time-zone: the clock's time at its start, in "
                        "ISO 8601, or null")},
        {"endClock", "clip", QStringLiteral("the same at its end")},
        {"quick", "clip", QStringLiteral("with --quick, without --refine: true")},
        {"parts", "clip",
         QStringLiteral("with --continue: in which recordings it lies, objects with recording, and "
                        "start and end in seconds from the first picture of that one")},
        {"provisional", "clip",
         QStringLiteral("with --promising-first: true in lines that come before all others, of "
                        "clips that may still become others; they have no index and no snapshot")},
        {"looked", "clip",
         QStringLiteral("with provisional: the share of all recordings that was looked at by then, "
                        "0 to 1")},
        {"video", "end", QStringLiteral("the recording, as it was named")},
        {"state", "end",
         QStringLiteral("finished, failed, cancelled or, where --budget was spent, partly")},
        {"looked", "end",
         QStringLiteral("only where --promising-first has not looked at all of it: the share that "
                        "was, 0 to 1")},
        {"frames", "end", QStringLiteral("pictures decoded")},
        {"clips", "end",
         QStringLiteral(
             "clips found that are not too short (--min-length); with --top, those that it "
             "leaves out, too")},
        {"seconds", "end", QStringLiteral("length of what was read")},
        {"began", "end",
         QStringLiteral("with --start-time auto or --time-zone: the clock's time at the first "
                        "picture, in ISO 8601, or null")},
        {"beganBy", "end",
         QStringLiteral("with began: what that is known from: given, name, container, file time, "
                        "follows or unknown")},
        {"beganCertainty", "end", QStringLiteral("with began: sure, likely, rough or unknown")},
        {"beganDoubts", "end", QStringLiteral("with began: what is doubtful about it, as texts")},
        {"strongest", "end",
         QStringLiteral("only where it is finished and no clip was found: the greatest motion "
                        "value")},
        {"strongestTime", "end",
         QStringLiteral("with strongest: seconds from the first picture to that value")},
        {"damaged", "end",
         QStringLiteral("only where something is missing: an object with packets, those that could "
                        "not be decoded, and, where noticeably less was read than its headers "
                        "promise, promised and read in seconds")},
        {"quick", "end", QStringLiteral("with --quick: true")},
    };
    return fields;
}
