// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Headers that are compiled beforehand belong to a library with a source; this is it.
