// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTextDocument>
#include <QVector>

/// Where the pages of a document end, which must be laid out in pages already.

/// Begins a new page where the end of one would tear a paragraph, a picture, an example or a table,
/// or would part a heading, or a line that ends with a colon, from what follows it. Each must fit
/// on a page.
void keepTogether(QTextDocument& document);

/// The page of each heading of this level, from 1.
QVector<int> headingPages(const QTextDocument& document, int level);
