// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QVector>

/// How likely something is to be found in a part of a recording, seen from two sides.
struct PartPromise {
    float either = 0.0F; ///< its seconds stand out, be it with more or with less
    float more = 0.0F;   ///< with more
};

/// Of the part from second `begin` up to `end`: what a tenth of the seconds exceed in the most
/// promising of its stretches of ten seconds, since of a minute a short visit is no tenth.
PartPromise promiseOf(const QVector<float>& curve, double begin, double end);

/// Whether the promises tell nothing: all are about the same.
bool areFlat(const QVector<PartPromise>& parts);

/// The places of `parts`, the most promising first: in turn the next of one order and of the
/// other, since which side counts depends on who has encoded. Equal ones stay in their order.
QVector<int> promisingOrder(const QVector<PartPromise>& parts);
