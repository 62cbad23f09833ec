// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// The stretch of a recording that a strip shows. Seconds from the first picture.
class StripWindow {
public:
    static constexpr double shortest = 4.0; ///< seconds that are shown at the least, if it has them

    /// How long the recording is, 0 where nothing is known: what shows all of it goes on to do so.
    void setLength(double seconds);

    /// Shows `factor` times as much, with `time` in its place.
    void zoom(double factor, double time);

    void scrollTo(double seconds);
    void showAll() { zoom(length / shown, 0.0); }

    double begin() const { return from; }
    double seconds() const { return shown; }
    double end() const { return from + shown; }
    double recordingSeconds() const { return length; }

private:
    double length = shortest;
    double from = 0.0;
    double shown = shortest;
};
