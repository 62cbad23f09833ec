// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSettings>

/// One entry of the settings store: its key, what an absent key means, and the range that the
/// controls offer. What is read can lie outside it.
template<class Value>
struct Setting {
    const char* key;
    Value fallback;
    Value lowest;
    Value highest;

    /// A stored text that is no number reads as 0, not as the fallback.
    Value read(const QSettings& store) const {
        return store.value(QLatin1String(key), fallback).template value<Value>();
    }
    void write(QSettings& store, Value value) const { store.setValue(QLatin1String(key), value); }

    /// Gives a spin box the range and what is stored, as far as that lies in it.
    template<class SpinBox>
    void show(SpinBox& box, const QSettings& store) const {
        box.setRange(lowest, highest);
        box.setValue(read(store));
    }
};

/// A yes or no of the settings store.
struct Switch {
    const char* key;
    bool fallback;

    bool read(const QSettings& store) const {
        return store.value(QLatin1String(key), fallback).toBool();
    }
    void write(QSettings& store, bool value) const { store.setValue(QLatin1String(key), value); }
};

/// A path in the settings store; empty where the key is absent.
struct PathSetting {
    const char* key;

    QString read(const QSettings& store) const {
        return store.value(QLatin1String(key)).toString();
    }
    void write(QSettings& store, const QString& value) const {
        store.setValue(QLatin1String(key), value);
    }
};

/// Every key of the settings store.
namespace settings {

// The settings dialog.
constexpr Setting<int> pixelThreshold{"threshold_value", 35, 0, 255};
constexpr Setting<double> motionThreshold{"threshold_motion", 0.5, 0.0, 10.0};
constexpr Setting<double> bitrate{"bitrate_output", 2.0, 0.0, 50.0}; // megabits per second
constexpr Setting<int> container{"output_format", 0, 0, 2};          // AVI, MP4, MKV
constexpr Switch transcoding{"do_transcoding", false};
// A first visit to the dialog proposes recordings without sound; who restores the defaults, and who
// never opens the dialog, keeps it.
constexpr Switch audioDisabled{"disable_audio", false};
constexpr Switch audioDisabledProposal{"disable_audio", true};

// The job setup window. Lengths in seconds.
constexpr PathSetting exportDirectory{"export_dir"};
constexpr Setting<int> skip{"skip", 0, 0, 100};
constexpr Setting<double> prerecord{"export_prerecord", 1.0, 1.0, 3600.0};
constexpr Setting<double> postrecord{"export_postrecord", 1.0, 1.0, 3600.0};
constexpr Setting<double> minimum{"export_minimum", 5.0, 1.0, 3600.0};
constexpr Switch automaticExport{"do_export", false};
constexpr Switch timestamps{"export_timestamps", false};

// The main window: where it was last asked for files and for a directory. Both hold directories.
constexpr PathSetting lastFiles{"last_files"};
constexpr PathSetting lastDirectory{"last_dir"};

// Where its docks are: bytes of the toolkit's.
constexpr const char* windowStateKey = "window_state";

// What is kept of recordings that were searched: megabytes, 0 for nothing.
constexpr Setting<int> keptValues{"kept_values_mb", 1000, 0, 100000};

// Whether the likeliest of the recordings that wait is searched next.
constexpr Switch likeliestFirst{"likeliest_first", false};

} // namespace settings
