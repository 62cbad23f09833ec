// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

class MpvHandle;

/// Where the player looks for a picture, and whether it has found it. Where a file has no index, a
/// search may come out behind the key frame that is needed; it is then begun further ahead.
class PictureSearch {
public:
    /// For a recording that is loaded next.
    void forget(MpvHandle& player);

    /// The library's time of the first picture, seconds.
    double first = 0.0;

    /// Seconds from the first picture. `id` comes back with the reply.
    void begin(MpvHandle& player, double seconds, quint64 id);

    /// The next search begins further ahead of its target; false: this one did so already.
    bool widen(MpvHandle& player);

    /// Of the last search, seconds from the first picture.
    double target() const { return wanted - first; }

    /// A picture has come.
    void take() { isAny = true; }
    bool hasPicture() const { return isAny; }

    /// Whether the picture at that time, in the library's, is the one that was looked for.
    bool isFound(double time) const;

private:
    void setLead(MpvHandle& player, double seconds);

    double wanted = 0.0; ///< in the library's time
    bool isAny = false;  ///< picture since the last search
    double lead = 0.0;   ///< seconds
};
