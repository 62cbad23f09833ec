// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// What a packet is to who wants to begin decoding there.
struct PacketKind {
    enum class Access {
        None,
        ClosedGop, ///< what it and all packets behind it show needs nothing that lies before it
        OpenGop    ///< the same, but for the leading packets that follow at once
    };

    Access access = Access::None;

    /// Behind an open GOP and shown before it: needs what lies before the access point.
    bool isLeading = false;

    /// Damage, parameters that change in the middle, an end of the sequence, a placeholder: what
    /// comes of it and of all that follows may depend on everything before. Never an access point.
    bool isDiscontinuity = false;
};
