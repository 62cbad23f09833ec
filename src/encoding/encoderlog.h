// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

/// The log that an encoder writes while it runs, boiled down to why it failed.
///
/// Holds less than 2 KB of it, however much it is.
class EncoderLog {
public:
    /// The next bytes of its error output; lines may be cut anywhere between two calls.
    void append(const QByteArray& bytes);

    /// The first line that tells why, one with an error of the system before all others; where no
    /// line tells, the last five, joined by line breaks. Empty if it said nothing.
    ///
    /// Long lines have lost their middle, and all lines the name of the encoder's part that says
    /// them ("[mp4 @ 0x55d0c7a2]"). Bytes that are no text of the locale are replaced.
    QString reason() const;

private:
    enum Rank { Says, Tells, NamesSystemError };

    void endLine();
    static Rank rankOf(const QByteArray& line);

    QByteArray line; ///< the unfinished one
    QByteArray telling;
    Rank tellingRank = Says;
    QByteArrayList lastLines;
};
