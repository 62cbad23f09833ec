// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "keptvalues.h"

/// How a values file is written: what its writer and its reader agree on.
///
/// Line by line: the format's name and number; the head, each line "# key: value"; one line per
/// picture, "NUMBER<TAB>TIME<TAB>VALUE", where the first one's value, of a picture that is compared
/// with nothing, is 0; "# damaged: PACKETS PROMISED READ" where something is missing of it; "#
/// reason: TEXT" where the recording could not be read; and the last line,
/// "# end: OUTCOME PICTURES DIGEST". The digest is that of everything before it.
///
/// Format 1 had no digest of the recording ("content"), and its length as the header said, of which
/// each version of the media libraries makes something else. It is read and not written any more.

constexpr char formatName[] = "# kestrova values ";
constexpr int formatNumber = 2;

constexpr char partKey[] = "part";
constexpr char damageKey[] = "damaged";
constexpr char reasonKey[] = "reason";
constexpr char endKey[] = "end";

/// The words of `KeptEnd`, in its order.
constexpr const char* endWords[] = {"finished", "cannot-open", "too-few-pictures",
                                    "no-usable-times"};

/// "# key: value" with its line end.
QByteArray headText(const HeadLine& line);

/// The words of `KeptPart::Kind`, in its order.
constexpr const char* partWords[] = {"cut", "whole", "empty"};

/// The head of `values` in its fixed order, settings last, and behind them what part it is of.
QVector<HeadLine> headOf(const KeptValues& values);

/// Reads what `headOf` made, in this format or an older one. False where these lines are not
/// exactly that.
bool readHead(const QVector<HeadLine>& lines, int format, KeptValues& values);
