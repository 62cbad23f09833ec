// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobrecord.h"

#include <QJsonObject>
#include <QJsonValue>

/// Higher than any clip's number: far above what a person exports, and with room for more.
constexpr int mostClipNumber = 1000000000;

/// All of a job but its mask.
QJsonObject jobJson(const JobRecord& job);

/// The same back. `isGood` is false from then on where it is no such job.
JobRecord jobOf(const QJsonValue& json, bool& isGood);
