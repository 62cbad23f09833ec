// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// `text` as UTF-8 between tags or in a quoted attribute, in which nothing of it is markup. What
/// steers (isSteering) and bytes that are no text (see installFileNameCodec) become "\n", "\t" or
/// the "\xff" of their bytes.
QByteArray htmlText(const QString& text);

/// The same as an element, from which no direction of writing reaches what stands around it.
/// `htmlClass`: of the element; empty: none.
QByteArray isolatedText(const QString& text, const QByteArray& htmlClass = {});

/// A path as two elements, since the folder is less telling than the name in it.
QByteArray pathText(const QString& path);

/// The reference to a file, encoded (encodedPath): relative to `folder`, if it lies in there, or a
/// "file:" URL. Both paths are absolute.
QByteArray fileReference(const QString& path, const QString& folder);
