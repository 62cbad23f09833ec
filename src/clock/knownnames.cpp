// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "knownnames.h"

namespace {

struct Row {
    NameReading reading;
    const char* pattern;
    const char* example;
};

constexpr auto local = NameReading::Local;
constexpr auto utc = NameReading::Utc;
constexpr auto either = NameReading::EitherOrder;
constexpr auto unusable = NameReading::Unusable;

// What tells more stands in front of what tells less, names in front of folders.
constexpr Row rows[] = {
    {utc, "PXL_%Y%m%d_%H%M%S%L", "PXL_20261122_203015123.mp4"},
    {utc, "GMT%Y%m%d-%H%M%S", "GMT20261122-203015_Recording.mp4"},
    {utc, "%Y%m%d_%H%M%SZ", "20261122_203015Z.mp4"},
    {utc, "%Y-%m-%d_%H-%M-%SZ", "2026-11-22_20-30-15Z.mp4"},
    {utc, "%Y-%m-%d_%H%M%SZ", "2026-11-22_203015Z.mp4"},
    {local, "%Y%m%dT%H%M%S%z", "20261122T203015+0000.mp4"},
    {local, "%Y%m%dT%H%M%S-%f%z", "20261122T203015.123Z.mp4"},
    {local, "%Y-%m-%dT%H-%M-%S%z", "2026-11-22T20:30:15+00:00.mp4"},
    {local, "%Y-%m-%dT%H-%M-%S-%f%z", "2026-11-22T20-30-15.123Z.mp4"},
    {local, "%Y%m%d_%H%M%S-%z", "20261122_203015_UTC.mp4"},
    {local, "%Y-%m-%d_%H-%M-%S-%z", "2026-11-22 20.30.15 UTC.mp4"},
    {local, "%Y-%m-%d_%l-%M-%S%p", "Screen Recording 2026-11-22 at 8.30.15 PM.mov"},
    {local, "%Y%m%d_%I%M%S%p", "20261122_083015PM.avi"},
    {local, "%Y%m%d_%H%M%S", "VID_20261122_203015.mp4"},
    {local, "%Y%m%d_%H%M%S%L", "cam_20261122_203015123.mp4"},
    {local, "%Y%m%d%H%M%S", "ch01_20261122203015.mp4"},
    {local, "%Y%m%d%H%M%S%L", "192.168.1.64_01_20261122203015123.mp4"},
    {local, "%Y-%m-%d_%H-%M-%S", "2026-11-22 20.30.15.mp4"},
    {local, "%Y-%m-%d_%H%M%S", "2026-11-22_203015.mp4"},
    {local, "%Y%m%d_%H-%M-%S", "WIN_20261122_20_30_15_Pro.mp4"},
    {local, "%Y-%m%d-%H%M%S", "2026_1122_203015_0001F.MP4"},
    {local, "%Y-%m-%d_%Hh%Mm%Ss", "record-2026-11-22-20h30m15s.ts"},
    {local, "%d-%b-%Y_%H-%M-%S", "22-Nov-2026_20-30-15.avi"},
    {local, "%b-%d-%Y_%H-%M-%S", "Nov-22-2026_20-30-15.avi"},
    {local, "%d%b%Y_%H%M%S", "22Nov2026_203015.avi"},
    {either, "%m-%d-%Y_%l-%M-%S%p", "Yard 11-22-2026, 8.30.15 PM.mp4"},
    {either, "%d-%m-%Y_%H-%M-%S", "Yard 22.11.2026, 20.30.15.mp4"},
    {either, "%d-%m-%Y_%H%M%S", "22-11-2026_203015.mp4"},
    {either, "%d%m%Y_%H%M%S", "22112026_203015.mp4"},
    {local, "%Y-%m-%dT%H-%M%z", "2026-11-22T20:30Z.mp4"},
    {local, "%Y-%m-%d_%H-%M", "2026-11-22_20-30.mp4"},
    {local, "%Y%m%d%H%M", "202611222030.avi"},
    {local, "%s", "1795379415.mp4"},
    {local, "%Y%m%d%H/%MM%SS", "2026112220/30M15S_1795379415.mp4"},
    {local, "%YY%mM%dD%HH/%MM%SS*", "2026Y11M22D20H/30M15S.mp4"},
    {local, "%Y-%m-%d/*/*/%H/%H-%M-%S", "2026-11-22/001/dav/20/20.30.15-20.31.15[M].dav"},
    {utc, "%Y-%m-%d/%H/*/%M-%S", "2026-11-22/20/yard/30.15.mp4"},
    {local, "%Y/%m/%d/%H-%M-%S", "2026/11/22/20-30-15.mp4"},
    {local, "%Y/%m/%d/%H%M%S", "2026/11/22/203015.mp4"},
    {local, "%Y/%m/%d/%H/%M-%S", "2026/11/22/20/30.15.mp4"},
    {local, "%Y/%m/%d/%H/%M", "2026/11/22/20/30.mp4"},
    {local, "%Y-%m-%d/%H-%M-%S", "2026-11-22/20-30-15.mkv"},
    {local, "%Y-%m-%d/%H%M%S", "2026-11-22/203015.mp4"},
    {local, "%Y-%m-%d/%H/%M", "2026-11-22/20/30.mp4"},
    {local, "%Y%m%d/%H-%M-%S", "20261122/20-30-15.mp4"},
    {local, "%Y%m%d/%H%M%S", "20261122/203015.mp4"},
    {local, "%Y%m%d/%H/%M-%S", "20261122/20/30-15.mp4"},
    {local, "%Y%m%d/%H/%M", "20261122/20/30.mp4"},
    {unusable, "%y-%m-%d_%H-%M-%S", "26-11-22_20-30-15.avi"},
    {unusable, "%d-%m-%y_%H-%M-%S", "22-11-26_20-30-15.avi"},
    {unusable, "%m-%d-%y_%H-%M-%S", "11-22-26_20-30-15.avi"},
    {unusable, "%y%m%d_%H%M%S", "261122_203015.avi"},
    {unusable, "%d%m%y_%H%M%S", "221126_203015.avi"},
    {unusable, "%d/%m/%y/%H-%M-%S", "22/11/26/20-30-15.avi"},
    {unusable, "%m/%d/%y/%H-%M-%S", "11/22/26/20-30-15.avi"},
};

/// Its day where its month is, and the other way round.
QString swapped(QString pattern) {
    return pattern.replace(QLatin1String("%d"), QLatin1String("%%"))
        .replace(QLatin1String("%m"), QLatin1String("%d"))
        .replace(QLatin1String("%%"), QLatin1String("%m"));
}

KnownName nameOf(const Row& row) {
    const auto any = NamePattern::Separators::Any;
    const QString pattern = QLatin1String(row.pattern);
    KnownName name{row.reading, pattern, QLatin1String(row.example), {NamePattern(pattern, any)}};
    if (row.reading == NameReading::EitherOrder)
        name.ways += NamePattern(swapped(pattern), any);
    return name;
}

} // namespace

const QVector<KnownName>& knownNames() {
    static const QVector<KnownName> names = [] {
        QVector<KnownName> all;
        for (const Row& row : rows)
            all += nameOf(row);
        return all;
    }();
    return names;
}
