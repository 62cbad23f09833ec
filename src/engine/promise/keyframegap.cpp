// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keyframegap.h"

#include "frame.h"
#include "mediafile.h"

#include <QFile>

#include <algorithm>

double keyFrameGap(const QString& fileName, const std::function<bool()>& isInterrupted) {
    constexpr int mostGaps = 3;
    constexpr double longest = 120.0; // seconds
    MediaFile file(QFile::encodeName(fileName), isInterrupted);
    if (!file.isOpen() || !file.canReopen())
        return 0.0;
    const AVRational timeBase = file.stream()->time_base;
    double gap = 0.0;
    double last = 0.0; // key frame
    int gaps = -1;
    while (gaps < mostGaps && gap < longest) {
        const auto packet = file.packets().read();
        if (!packet)
            break;
        const bool isKey = (packet->packet->flags & AV_PKT_FLAG_KEY) != 0;
        const bool isTimed = packet->packet->dts != AV_NOPTS_VALUE;
        const double time =
            secondsOf(isTimed ? packet->packet->dts : packet->packet->pts, timeBase);
        if (gaps >= 0)
            gap = std::max(gap, time - last);
        if (isKey || gaps < 0) {
            last = time;
            ++gaps;
        }
    }
    return std::min(gap, longest);
}
