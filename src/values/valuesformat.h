// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "keptvalues.h"

#include <string_view>

/// How a values file is written: what its writer and its reader agree on.
///
/// Line by line: the format's name and number; the head, each line "# key: value"; one line per
/// picture, "NUMBER<TAB>TIME<TAB>VALUE", where the first one's value, of a picture that is compared
/// with nothing, is 0; "# damaged: PACKETS PROMISED READ" where something is missing of it; "#
/// reason: TEXT" where the recording could not be read; and the last line,
/// "# end: OUTCOME PICTURES DIGEST". The digest is that of everything before it.
///
/// Every format that was ever written is read, and the newest is written. What a file of an older
/// one does not hold is empty in what is read; who asks for it has it measured, without calling the
/// file damaged. A file of a format that is newer than this program is Flawed, and says so: where
/// it was kept, its recording is measured anew and the file replaced; where it is named in place of
/// its recording, it is refused.

constexpr char formatName[] = "# kestrova values ";

/// 1: no digest of the recording ("content"), and its length as the header said ("length"), of
/// which
///    each version of the media libraries makes something else.
/// 2: a digest, and no length.
constexpr int formatNumber = 2;

constexpr char damageKey[] = "damaged";
constexpr char reasonKey[] = "reason";
constexpr char endKey[] = "end";

/// The outcomes that are kept, and their words.
struct EndWord {
    DetectionOutcome outcome;
    const char* word;
};
constexpr EndWord endWords[] = {{DetectionOutcome::Finished, "finished"},
                                {DetectionOutcome::CannotOpen, "cannot-open"},
                                {DetectionOutcome::TooFewPictures, "too-few-pictures"},
                                {DetectionOutcome::NoUsableTimes, "no-usable-times"}};

/// "# key: value" with its line end.
QByteArray headText(const HeadLine& line);

/// Reads that, without its line end. Nothing where it is no such line.
std::optional<HeadLine> headLine(std::string_view line);

/// The head of `values` in its fixed order, settings last, and behind them what part it is of.
QVector<HeadLine> headOf(const KeptValues& values);

/// Reads what `headOf` made, in this format or an older one (1 or more). False where these lines
/// are not exactly that.
bool readHead(QVector<HeadLine> lines, int format, KeptValues& values);

/// The line of a picture with its line end.
QByteArray pictureText(qint64 number, double time, MotionScore motion);

/// Reads that, without its line end. False where it is no such line.
bool readPictureText(std::string_view line, qint64& number, double& time, MotionScore& motion);

/// "PACKETS PROMISED READ".
QByteArray damageNumbers(const Damage& damage);

/// Reads what `damageNumbers` made. False where it is no such text.
bool readDamage(const QByteArray& text, Damage& damage);
