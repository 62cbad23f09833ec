// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobrecord.h"

#include <QJsonObject>
#include <QJsonValue>

/// All of a job but its mask.
QJsonObject jobJson(const JobRecord& job);

/// The same back. `isGood` is false from then on where it is no such job.
JobRecord jobOf(const QJsonValue& json, bool& isGood);
