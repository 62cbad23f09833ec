// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionoptions.h"
#include "keptvalues.h"
#include "measuringend.h"

#include <QMutex>
#include <QObject>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>

/// What was measured of recordings, values and maps, kept from one run of the program to the next.
///
/// It lies in the folder "values" of the program's cache folder, as the scanner keeps it with
/// --values, up to so many bytes as the settings say (`settings::keptValues`); what was not used
/// for longest goes first. Quick looks lie in a folder inside it, so that they do not replace what
/// was measured whole. Where nothing is to be kept there, or nothing can, it is kept in a temporary
/// folder for as long as the program runs.
///
/// Any thread may call anything. All of it reads or writes files: not for the GUI thread.
class MeasurementCache : public QObject {
    Q_OBJECT

public:
    /// The one of the program.
    static MeasurementCache& instance();

    MeasurementCache() = default;

    /// Whether something is kept beyond the end of the program.
    static bool isOn();

    /// What was kept of a recording with options like these: whole, with its maps, and proved to be
    /// of the recording as its stamp tells it. Where cells decide, whatever the mean was measured
    /// with. What is damaged, cut off or of another version is as if it were not there.
    std::optional<KeptValues> find(const RecordingStamp& stamp,
                                   const DetectionOptions& options) const;

    /// Keeps what was measured of a recording that is still as its stamp tells it, where measuring
    /// it anew would give the same. Both measures must have been taken.
    void keep(const RecordingStamp& stamp, const DetectionOptions& options,
              const Measurement& measured, const MeasuringEnd& end);

    /// The folder that the scanner can be given; it may not be there yet.
    static QString folder();

    /// Bytes that are kept beyond the end of the program.
    static qint64 size();
    static void clear();

    /// Removes what is more than the settings allow, as after they have changed.
    static void fit();

    /// Removes the temporary folder. The end of the application does so for the program's own.
    void endRun();

Q_SIGNALS:
    /// Why something could not be kept, for a person; once in a run. Comes on any thread.
    void told(const QString& notice);

private:
    QString keepIn(const QStringList& folders, qint64 limit, const KeptValues& values) const;
    QStringList temporaryFolders() const;
    QStringList makeTemporaryFolders();
    void tellOnce(const QString& notice);

    mutable QMutex mutex; ///< of what follows
    std::unique_ptr<QTemporaryDir> temporary;
    bool hasTold = false;
};
