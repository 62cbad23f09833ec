// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camtrapformat.h"

#include "camtrapcontent.h"
#include "camtrapfolder.h"
#include "camtrapsites.h"
#include "damagetext.h"

#include <map>
#include <mutex>

namespace {

class CamtrapFormat : public ClipFormat {
public:
    explicit CamtrapFormat(const CamtrapOptions& options)
        : options(options) {}

    QByteArray clip(const ClipLine& line) override {
        const DetectedClip& clip = line.clip;
        const std::lock_guard<std::mutex> lock(mutex);
        found[line.recording.place].clips.append({clip.index, clip.start, clip.end,
                                                  clip.snapshotTime, line.snapshotFile,
                                                  line.isExported ? line.exportFile : QString()});
        return {};
    }

    QByteArray videoEnd(const VideoLine& line) override {
        const std::lock_guard<std::mutex> lock(mutex);
        Found& recording = found[line.recording.place];
        recording.video = line.recording.video;
        recording.path = line.recording.path;
        recording.start = line.recording.start;
        recording.seconds = line.seconds;
        recording.remark = remarkOn(line);
        recording.isThere = line.frames > 0;
        isCutShort = isCutShort || line.outcome == DetectionOutcome::Cancelled;
        return {};
    }

    bool save(Messages& messages) override {
        CamtrapPackage package;
        package.project = options.project;
        package.created = QDateTime::currentDateTimeUtc();
        if (isCutShort)
            package.description = QStringLiteral(
                "The search was interrupted; what it had not reached by then is missing.");
        const bool areAllIn = fill(package, messages);
        return write(package, messages) && areAllIn;
    }

private:
    struct Found : CamtrapRecording {
        QString video; ///< as the person wrote it
        bool isThere = false;
    };

    static QString remarkOn(const VideoLine& line) {
        if (line.outcome == DetectionOutcome::Cancelled)
            return QStringLiteral("not searched to its end");
        if (line.outcome != DetectionOutcome::Finished)
            return QStringLiteral("cannot be read to its end");
        return line.damage.isThere() ? damageText(line.damage) : QString();
    }

    /// True if no recording is left out but those that cannot be read, of which that has been said.
    bool fill(CamtrapPackage& package, Messages& messages) const {
        CamtrapSites sites(options.locations);
        CamtrapContent content(package);
        bool areAllIn = true;
        for (const auto& [place, recording] : found) {
            const auto site = sites.siteOf(recording.path);
            if (!recording.isThere)
                continue;
            const QString lack = lackOf(recording, site.has_value());
            if (lack.isEmpty())
                content.add(recording, *site);
            else
                messages.complain(recording.video,
                                  QStringLiteral("it is left out of the package, since ") + lack);
            areAllIn = areAllIn && lack.isEmpty();
        }
        for (const QString& folder : sites.idle())
            messages.warn(folder, QStringLiteral("warning: --location names this folder, but no "
                                                 "recording below it was searched"));
        return areAllIn;
    }

    static QString lackOf(const Found& recording, bool isPlaced) {
        if (!recording.start.isKnown())
            return QStringLiteral("it is not known when it began");
        return isPlaced ? QString() : QStringLiteral("no --location is given for its folder");
    }

    bool write(const CamtrapPackage& package, Messages& messages) const {
        const bool isEmpty = package.deployments.isEmpty();
        const QString failure = isEmpty ? QStringLiteral("there is no recording for it")
                                        : writeCamtrapPackage(package, options.directory);
        if (!failure.isEmpty())
            messages.complain(options.directory,
                              QStringLiteral("cannot write the package: ") + failure);
        return failure.isEmpty();
    }

    const CamtrapOptions& options;
    std::mutex mutex;
    std::map<int, Found> found; ///< by the recordings' places in the call
    bool isCutShort = false;
};

} // namespace

std::unique_ptr<ClipFormat> makeCamtrapFormat(const CamtrapOptions& options) {
    return std::make_unique<CamtrapFormat>(options);
}
