// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "promisingnames.h"

#include "partqueue.h"
#include "pieceoutlook.h"
#include "sidebyside.h"

#include <atomic>
#include <limits>
#include <new>
#include <vector>

namespace {

using Outlooks = std::vector<PieceOutlook>;

/// One that there is no memory to look at promises nothing.
PieceOutlook outlookOrNone(const QString& name, double longest) {
    try {
        return lookAtPieces(name, longest, {});
    } catch (const std::bad_alloc&) {
        return {};
    }
}

Outlooks outlooksOf(const QStringList& names, double longest, int threads) {
    Outlooks outlooks(std::size_t(names.size()));
    std::atomic<int> next{0};
    runSideBySide(std::min(threads, names.size()), [&] {
        for (int i = next++; i < names.size(); i = next++)
            outlooks[std::size_t(i)] = outlookOrNone(names[i], longest);
    });
    return outlooks;
}

} // namespace

QStringList promisingNames(const QStringList& names, const ScanOptions& options, int threads) {
    const double longest = options.partSeconds.value_or(std::numeric_limits<double>::infinity());
    const Outlooks outlooks = outlooksOf(names, longest, threads);
    PartQueue queue;
    for (const PieceOutlook& outlook : outlooks)
        queue.add(outlook.pieces, outlook.promises);
    queue.arrange();
    QStringList ordered;
    while (const auto place = queue.next()) {
        const QString part = options.partSeconds
                                 ? QStringLiteral("%1/%2 ")
                                       .arg(place->part + 1)
                                       .arg(outlooks[std::size_t(place->recording)].pieces)
                                 : QString();
        ordered += part + names[place->recording];
    }
    return ordered;
}
