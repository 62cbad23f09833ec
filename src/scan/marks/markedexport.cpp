// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "markedexport.h"

#include "clipexport.h"
#include "encodertimes.h"
#include "foldercheck.h"
#include "framestream.h"
#include "logging.h"
#include "recap.h"
#include "recordingclock.h"
#include "samefile.h"
#include "writing.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <sys/stat.h>

namespace {

/// Why a recording is not the one that somebody has marked clips of; empty if it is.
QString changeOf(const MarkedRecording& marked) {
    struct stat found {};
    if (stat(QFile::encodeName(marked.video).constData(), &found) != 0)
        return qt_error_string(errno);
    if (!S_ISREG(found.st_mode))
        return QStringLiteral("it is no file");
    const qint64 modified = found.st_mtim.tv_sec * 1000LL + found.st_mtim.tv_nsec / 1000000;
    if (found.st_size != marked.bytes || modified != marked.modified)
        return QStringLiteral("it has changed since its clips were marked");
    return {};
}

/// A recording of which clips are cut out.
struct Source {
    bool isLeftOut = false; ///< which has been said
    StreamFacts stream;
    std::unique_ptr<ClipExport> exporter; ///< null: it is not open yet
};

class MarkedExport {
public:
    MarkedExport(const ScanOptions& options, const Marks& marks, const MarkedCall& call)
        : options(options)
        , marks(marks)
        , call(call)
        , messages(options.quiet)
        , folders(options.exporting.directory)
        , format(makeClipFormat(ReportFormat::Text, {})) {}

    ExitStatus run() {
        if (!marks.error.isEmpty()) {
            fail(options.marksFile, QStringLiteral("cannot read the marks: ") + marks.error);
            return SomeFailed;
        }
        if (marks.clips.isEmpty())
            messages.note(
                QStringLiteral("%1: no clip is marked to be kept").arg(options.marksFile));
        if (!prepareFolders())
            return BadCommandLine;
        findRecordings();
        call.prepared(options, recordings);
        for (const MarkedClip& clip : marks.clips) {
            if (!call.isEnding())
                exportClip(clip);
        }
        makeRecap();
        if (call.isEnding())
            return Interrupted;
        return hasFailed ? SomeFailed : AllDone;
    }

private:
    bool prepareFolders() {
        const QString& folder = options.exporting.directory;
        const QString& film = options.recap.file;
        QString flaw = folder.isEmpty() ? QString() : prepareFolder(folder, FolderLink::Followed);
        if (!flaw.isEmpty())
            fail(folder, QStringLiteral("cannot write into this folder: ") + flaw);
        const bool areFolders = flaw.isEmpty();
        flaw = film.isEmpty() ? QString() : recapFlaw(film);
        for (const MarkedRecording& marked : marks.recordings) {
            if (!film.isEmpty() && isSameFile(film, marked.video))
                flaw = QStringLiteral("it would overwrite the video '%1'").arg(marked.video);
        }
        if (!flaw.isEmpty())
            fail(film, QStringLiteral("cannot write the recap: ") + flaw);
        return areFolders && flaw.isEmpty();
    }

    /// Those that are as they were may be opened, and no others.
    void findRecordings() {
        recordings.resize(std::size_t(marks.recordings.size()));
        sources.resize(recordings.size());
        for (int i = 0; i < marks.recordings.size(); ++i) {
            Recording& recording = recordings[std::size_t(i)];
            recording.place = i;
            recording.video = marks.recordings[i].video;
            recording.path = QFileInfo(recording.video).absoluteFilePath();
            if (!options.exporting.directory.isEmpty())
                recording.clipFolder = folders.next(recording.video);
            const QString change = changeOf(marks.recordings[i]);
            sources[std::size_t(i)].isLeftOut = !change.isEmpty();
            if (change.isEmpty())
                options.inputs.places += recording.video;
            else
                fail(recording.video, change);
        }
        giveStart(recordings, options.clock, false, messages);
    }

    /// A recording, opened with its first clip; null where it cannot be.
    const Source* sourceOf(int place) {
        Source& source = sources[std::size_t(place)];
        if (!source.exporter && !source.isLeftOut)
            open(source, recordings[std::size_t(place)]);
        return source.isLeftOut ? nullptr : &source;
    }

    void open(Source& source, Recording& recording) {
        recording.stamp = stampOf(recording.video);
        if (recording.stamp)
            recording.watched.emplace(*recording.stamp, WatchedRecording::Measured::Now);
        lookForStart(recording, options.clock, messages, call.isEnding);
        const QString error = readFacts(recording.path, source.stream);
        source.isLeftOut = !error.isEmpty();
        if (source.isLeftOut && !call.isEnding())
            fail(recording.video, error);
        source.exporter =
            std::make_unique<ClipExport>(recording, options.exporting, folders, call.isEnding);
        source.exporter->setCodec(source.stream.codecName);
        if (source.stream.frameRate > 0.0)
            source.exporter->setFrameRate(source.stream.frameRate);
    }

    /// What a search learns of a recording that it opens; answers why it cannot be read.
    QString readFacts(const QString& path, StreamFacts& facts) {
        FramePlan plan;
        plan.times = options.detection.times;
        plan.threads = 1;
        FrameStream frames(QFile::encodeName(path), plan, call.isEnding);
        if (!frames.isOpen())
            return frames.errorText();
        const bool hasPicture = frames.next().isThere();
        facts = frames.facts();
        facts.frameRate = frames.forcedFrameRate();
        facts.origin = frames.origin();
        if (hasPicture)
            return {};
        return frames.isFirstUseless() ? QStringLiteral("no usable times")
                                       : QStringLiteral("no picture could be decoded");
    }

    static bool makesSense(const MarkedClip& clip) {
        const auto canPartBeCut = [](const MarkedPart& part) {
            return canBeCut(part.start, part.end);
        };
        return canBeCut(clip.start, clip.end) &&
               std::all_of(clip.parts.begin(), clip.parts.end(), canPartBeCut);
    }

    void exportClip(const MarkedClip& clip) {
        Recording& recording = recordings[std::size_t(clip.recording)];
        const Source* source = sourceOf(clip.recording);
        if (!source)
            return;
        if (!makesSense(clip)) {
            refuse(clip, QStringLiteral("its times make no sense"));
            return;
        }
        ClipLine line{recording, playedRecording(source->stream), {}};
        line.clip.index = clip.number;
        line.clip.start = clip.start;
        line.clip.end = clip.end;
        line.frameRate = source->stream.frameRate;
        if (!addParts(clip, line))
            return;
        const QString failure = source->exporter->run(line);
        if (!failure.isEmpty())
            fail(line.exportFile.isEmpty() ? recording.video : line.exportFile, failure);
        film.add(line);
        print(format->clip(line));
    }

    /// Of one that goes on in other recordings; false if one of them is left out.
    bool addParts(const MarkedClip& clip, ClipLine& line) {
        for (const MarkedPart& part : clip.parts) {
            Recording& recording = recordings[std::size_t(part.recording)];
            const Source* source = sourceOf(part.recording);
            if (!source) {
                refuse(clip,
                       QStringLiteral("it goes on in %1, which is left out").arg(recording.video));
                return false;
            }
            if (line.recording.start.isKnown() && !recording.start.isKnown())
                setStart(recording, {line.recording.start.timeAt(part.offset),
                                     StartSource::Follows,
                                     line.recording.start.certainty,
                                     {}});
            line.parts.append(
                {&recording, playedRecording(source->stream), part.start, part.end, part.offset});
        }
        return true;
    }

    void refuse(const MarkedClip& clip, const QString& reason) {
        fail(recordings[std::size_t(clip.recording)].video,
             QStringLiteral("clip #%1 cannot be cut out: %2")
                 .arg(QString::number(clip.number), reason));
    }

    void makeRecap() {
        if (options.recap.file.isEmpty() || call.isEnding())
            return;
        const std::vector<RecapClip> clips = film.inOrder(ClipCalls::InOrder);
        hasFailed = !writeRecap(clips, options.recap, messages, call.isEnding) || hasFailed;
    }

    void print(const QByteArray& line) {
        messages.makeRoom();
        if (hasLostOutput || writeAll(call.output, line))
            return;
        hasLostOutput = true;
        fail(QStringLiteral("standard output"), call.output.errorString());
    }

    void fail(const QString& subject, const QString& reason) {
        hasFailed = true;
        messages.complain(subject, reason);
    }

    ScanOptions options;
    const Marks& marks;
    const MarkedCall& call;
    Messages messages;
    ClipFolders folders;
    std::unique_ptr<ClipFormat> format;
    RecapClips film;
    std::vector<Recording> recordings; ///< as those of the marks
    std::vector<Source> sources;       ///< the same
    bool hasFailed = false;
    bool hasLostOutput = false;
};

} // namespace

ExitStatus exportMarked(const ScanOptions& options, const Marks& marks, const MarkedCall& call) {
    routeLibavLog();
    return MarkedExport(options, marks, call).run();
}
