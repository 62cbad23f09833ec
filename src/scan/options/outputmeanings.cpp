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
        {"quick", "clip", QStringLiteral("with --quick, without --refine: true")},
        {"video", "end", QStringLiteral("the recording, as it was named")},
        {"state", "end", QStringLiteral("finished, failed or cancelled")},
        {"frames", "end", QStringLiteral("pictures decoded")},
        {"clips", "end", QStringLiteral("clips found")},
        {"seconds", "end", QStringLiteral("length of what was read")},
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
