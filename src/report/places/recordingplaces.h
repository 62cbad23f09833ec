// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

struct DetectionOptions;
struct Measurement;
struct ReportedRecording;

/// Enters where motion was in `reported`, and in its clips, as the maps say that were measured with
/// it, inside the region of `options` and without what is restless there. Nothing is entered where
/// it has no maps. Throws std::bad_alloc as reading maps does.
void enterPlaces(const Measurement& measured, const DetectionOptions& options,
                 ReportedRecording& reported);

/// The same of one of several stretches of it: what was entered of the others stays.
void addPlaces(const Measurement& measured, const DetectionOptions& options,
               ReportedRecording& reported);
