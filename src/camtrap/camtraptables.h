// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "camtrappackage.h"

#include <QByteArray>

/// The tables of a package as CSV: RFC 4180, UTF-8, with all columns of Camtrap DP 1.0 in its
/// order, those empty of which nothing is known.

QByteArray deploymentsTable(const CamtrapPackage& package);

/// `folder`: the package's own, absolute. Files below it are named relative to it, others by URLs.
QByteArray mediaTable(const CamtrapPackage& package, const QString& folder);

QByteArray observationsTable(const CamtrapPackage& package);
