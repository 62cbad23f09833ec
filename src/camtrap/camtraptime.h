// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

/// A time as the tables hold it: "2026-11-16T09:05:00+01:00", with its zone and in whole seconds,
/// so that a beginning is told by the second before it, and an end by the one behind it.
QString secondBefore(const QDateTime& time);
QString secondBehind(const QDateTime& time);
