// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clippicture.h"
#include "detectionoptions.h"
#include "framestream.h"
#include "measurement.h"

#include <functional>
#include <memory>

/// Finds single pictures of a recording that was measured before.
///
/// Decodes from a key frame before the wanted picture, and takes it for the right one if the times
/// around it and the motion measured there are those that were kept: what a container says of its
/// key frames and times is not always so. Otherwise the recording is decoded from its start, once
/// for all pictures that are asked for in the order of their times.
class PictureFinder {
public:
    /// `options` are those that the values were measured with, or else `readFromStart`. The
    /// interrupt is asked while one waits. `measurement` must outlive this object.
    PictureFinder(const QString& fileName, const DetectionOptions& options,
                  const Measurement& measurement, std::function<bool()> isInterrupted);

    /// Never decodes from a key frame: the options are not those of the values.
    void readFromStart() { canSeek = false; }

    /// Asked before and after each picture is looked for: why the file is not what was measured,
    /// for a person; empty if it is.
    void setRefusal(std::function<QString()> newRefusal) { refusal = std::move(newRefusal); }

    /// The small picture of picture `index` of the measurement, 0 for its first. Null if it cannot
    /// be had; also if it cannot be scaled, and `errorText` is empty then.
    QImage snapshot(int index);

    /// Why the last picture could not be had, for a person; empty if it could.
    const QString& errorText() const { return error; }

private:
    QImage findSnapshot(int index);
    QImage snapshotFromKeyFrame(int index);
    QImage snapshotFromStart(int index);
    bool openSeeking();
    bool openLinear();
    double timeOf(int index) const;
    int measuredFrom(int index) const;

    QByteArray fileName;
    DetectionOptions options;
    const Measurement& measurement;
    std::function<bool()> isInterrupted;
    std::function<QString()> refusal = [] { return QString(); };
    QString error;

    int lastIndex = -1; ///< of `lastSnapshot`, -1 if there is none
    QImage lastSnapshot;
    bool canSeek; ///< as far as one has seen; key frames alone are soon read
    std::unique_ptr<FrameStream> seeking;
    std::unique_ptr<FrameStream> frames; ///< from the first one on
    qint64 nextNumber = 0;               ///< of the next one of `frames`
};

/// A picture of a measurement that is looked for when its snapshot is asked for. `finder` must
/// outlive it.
class LatePicture : public ClipPicture {
public:
    LatePicture(PictureFinder& finder, int index)
        : finder(finder)
        , index(index) {}

    QImage snapshot() override { return finder.snapshot(index); }
    QString flaw() const override { return finder.errorText(); }
    void shrink() override {}

private:
    PictureFinder& finder;
    int index;
};
