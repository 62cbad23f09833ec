// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "filehead.h"
#include "recordingstart.h"

#include <QTimeZone>

/// When a recording began that has this head, in `zone`. Of its times the first one counts that is
/// one, in ISO 8601; one that tells no zone is of `zone`.
RecordingStart startInHead(const FileHead& head, const QTimeZone& zone);

/// The same by the time at which its file was `modified` last and its length. Unknown without
/// doubts where `modified` is invalid.
RecordingStart startByFile(const QDateTime& modified, const FileHead& head, const QTimeZone& zone);
