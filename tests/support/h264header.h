// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Takes the usability information out of an MP4's only H.264 sequence parameter set (ISO/IEC
/// 14496-10, 7.3.2.1), as encoders write them that never had it: a decoder then has to find out how
/// many pictures are held back. The file keeps its length. False if there is none to take out.
bool removeUsabilityInformation(const QString& mp4);
