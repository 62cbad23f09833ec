// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scanner.h"

#include "foldercheck.h"
#include "interrupt.h"
#include "logging.h"
#include "partscan.h"
#include "recordingscan.h"
#include "reportfolder.h"
#include "snapshotfolder.h"
#include "tracefile.h"
#include "writing.h"

#include <QFile>
#include <QLocale>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <functional>
#include <new>
#include <thread>
#include <vector>

namespace {

/// The cores divided among the recordings that are scanned side by side.
ScanOptions withSharedThreads(ScanOptions options) {
    options.jobs = std::min(options.jobs, options.inputs.videos.size());
    if (options.jobs > 1 && options.detection.threads == 0)
        options.detection.threads = std::max(1, QThread::idealThreadCount() / options.jobs);
    return options;
}

/// Does `work` on up to `count` threads, this one among them: as many as can be had.
void runOnThreads(int count, const std::function<void()>& work) {
    std::vector<std::thread> threads;
    try {
        while (int(threads.size()) < count - 1)
            threads.emplace_back(work);
    } catch (const std::exception&) {
        // No thread or no memory for one. The others and this one do all of it.
    }
    work();
    for (std::thread& thread : threads)
        thread.join();
}

/// One recording, or the part of it that is asked for.
ExitStatus scanOne(Recording& recording, const ScanOptions& options, ScanOutputs& outputs) {
    if (options.part)
        return scanPart(recording, options, outputs);
    return RecordingScan(recording, options, outputs).run();
}

/// Whether a recording could be measured and kept, and is not; also where memory is short to tell.
bool isUnmeasured(const ValuesStore& values, Recording& recording) {
    try {
        const ValuesStore::Found found = values.find(recording);
        return recording.stamp && !found.values;
    } catch (const std::bad_alloc&) {
        return true;
    }
}

/// The recordings that could be measured and kept, and are not. What is no file cannot be kept.
QStringList unmeasured(const ScanOptions& options, Messages& messages) {
    const ValuesStore values(options, messages);
    std::vector<Recording> recordings = recordingsOf(options.inputs.videos);
    std::vector<char> areMissing(recordings.size(), 0);
    std::atomic<std::size_t> next{0};
    const auto work = [&] {
        for (std::size_t i = next++; i < recordings.size(); i = next++)
            areMissing[i] = isUnmeasured(values, recordings[i]);
    };
    runOnThreads(std::min(options.jobs, options.inputs.videos.size()), work);
    QStringList names;
    for (int i = 0; i < options.inputs.videos.size(); ++i) {
        if (areMissing[std::size_t(i)])
            names += options.inputs.videos[i];
    }
    return names;
}

/// Why something was thrown, for a person. Inside a `catch` alone.
QString thrownText() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return QStringLiteral("out of memory");
    } catch (const std::exception& error) {
        return QString::fromLocal8Bit(error.what());
    }
}

/// The same as `scanOne`; nothing leaves the thread that it is done on.
ExitStatus scanOneOrFail(Recording& recording, const ScanOptions& options, ScanOutputs& outputs) {
    try {
        return scanOne(recording, options, outputs);
    } catch (const std::exception&) {
        outputs.messages.complain(recording.video, thrownText());
    }
    return SomeFailed;
}

/// Scans all recordings, `options.jobs` at a time; AllDone if nothing went wrong with any.
ExitStatus scanAll(std::vector<Recording>& recordings, const ScanOptions& options,
                   ScanOutputs& outputs) {
    std::atomic<std::size_t> next{0};
    std::atomic<bool> hasFailed{false};
    std::atomic<bool> isUnreadable{false};
    const auto work = [&] {
        std::size_t i = 0;
        while (!isEnding() && (i = next++) < recordings.size()) {
            const ExitStatus end = scanOneOrFail(recordings[i], options, outputs);
            if (end == SomeFailed)
                hasFailed = true;
            else if (end == SomeUnreadable)
                isUnreadable = true;
            recordings[i].clips->finish();
            if (recordings[i].trace)
                recordings[i].trace->finish();
        }
    };
    runOnThreads(options.jobs, work);
    if (hasFailed)
        return SomeFailed;
    return isUnreadable ? SomeUnreadable : AllDone;
}

/// True if nothing that was to be found is missing.
bool complain(const QVector<InputComplaint>& complaints, Messages& messages) {
    bool isGood = true;
    for (const InputComplaint& complaint : complaints) {
        if (complaint.isFailure)
            messages.complain(complaint.subject, complaint.reason);
        else
            messages.warn(complaint.subject, complaint.reason);
        isGood = isGood && !complaint.isFailure;
    }
    return isGood;
}

/// Gives each recording its place in what is written, and the names of what is written of it.
void nameOutputs(std::vector<Recording>& recordings, const ScanOptions& options,
                 OrderedOutput& clips, OrderedOutput* trace, ClipFolders& folders) {
    SnapshotFolder snapshots(options.snapshotDirectory);
    for (Recording& recording : recordings) {
        recording.clips = &clips.add();
        recording.trace = trace ? &trace->add() : nullptr;
        if (!options.snapshotDirectory.isEmpty())
            recording.snapshots = snapshots.next(recording.video);
        if (!options.exporting.directory.isEmpty())
            recording.clipFolder = folders.next(recording.video);
    }
}

bool prepareFolders(const ScanOptions& options, Messages& messages) {
    const auto isReady = [&](const QString& folder, FolderLink link) {
        const QString failure = folder.isEmpty() ? QString() : prepareFolder(folder, link);
        if (!failure.isEmpty())
            messages.complain(folder, QStringLiteral("cannot write into this folder: ") + failure);
        return failure.isEmpty();
    };
    const QString& report = options.reportDirectory;
    const QString pictures = report.isEmpty() ? QString() : reportPictureFolder(report);
    // Of a folder for values, one that cannot be written into may still be read.
    const bool areValuesForeign = isForeignLink(options.valuesDirectory);
    const QString values = areValuesForeign ? options.valuesDirectory : QString();
    return isReady(values, FolderLink::Followed) &&
           isReady(options.snapshotDirectory, FolderLink::Followed) &&
           isReady(options.exporting.directory, FolderLink::Followed) &&
           isReady(report, FolderLink::Followed) && isReady(pictures, FolderLink::Refused);
}

/// Writes the report if one is wanted.
bool writeReport(const std::optional<ScanReport>& report, Messages& messages) {
    const QString failure = report ? report->write() : QString();
    if (failure.isEmpty())
        return true;
    messages.complain(report->pageFile(), QStringLiteral("cannot write the report: ") + failure);
    return false;
}

/// Tells of what is given and changes nothing of the clips.
void tellOfIdle(const ScanOptions& options, Messages& messages) {
    const bool isIdle = options.detection.detector == Detector::Cells &&
                        options.givenOptions.contains(QStringLiteral("threshold-value"));
    if (isIdle)
        messages.note(QStringLiteral("--threshold-value is for the mean; --detector cells has "
                                     "--sensitivity instead"));
}

/// Opens the trace if one is wanted.
bool openTrace(QFile& file, Messages& messages) {
    const QString failure = file.fileName().isEmpty() ? QString() : openTraceFile(file);
    if (!failure.isEmpty())
        messages.complain(file.fileName(), failure);
    return failure.isEmpty();
}

/// Has Qt make what it makes at its first use, before there are threads: where that fails in the
/// middle, Qt keeps the lock for ever.
void prepareLibraries() {
    static_cast<void>(QLocale().language());
    routeLibavLog();
    static_cast<void>(engineLog().isDebugEnabled());
    static_cast<void>(libavLog().isDebugEnabled());
}

} // namespace

ExitStatus scan(const ScanOptions& asked, QIODevice& output, const Prepared& prepared) {
    prepareLibraries();
    const ScanOptions options = withSharedThreads(asked);
    std::vector<Recording> recordings = recordingsOf(options.inputs.videos);
    Messages messages(options.quiet);
    QFile traceFile(options.traceFile);
    if (!prepareFolders(options, messages) || !openTrace(traceFile, messages))
        return BadCommandLine;
    prepared(options, recordings);
    tellOfIdle(options, messages);

    std::atomic<bool> isWritten{true};
    OrderedOutput clips(output, [&](const QString& reason) {
        isWritten = false;
        messages.complain(QStringLiteral("standard output"), reason);
        endScan();
    });
    const auto traceFailed = [&](const QString& reason) {
        isWritten = false;
        messages.complain(options.traceFile, reason);
    };
    OrderedOutput trace(traceFile, traceFailed);

    const auto format = makeClipFormat(options.format, !options.exporting.directory.isEmpty());
    ClipFolders folders(options.exporting.directory);
    OrderedOutput::Section& header = clips.add();
    nameOutputs(recordings, options, clips, traceFile.isOpen() ? &trace : nullptr, folders);
    OrderedOutput::Section& footer = clips.add();
    Totals totals(recordings);
    std::optional<ScanReport> report;
    if (!options.reportDirectory.isEmpty())
        report.emplace(options, recordings);
    const ValuesStore values(options, messages);
    ScanOutputs outputs{*format, folders, report ? &*report : nullptr, messages, totals, values};
    header.write(format->header());
    header.finish();
    const bool isFound = complain(options.inputs.complaints, messages);
    const ExitStatus scanned = scanAll(recordings, options, outputs);
    for (const Recording& recording : recordings) // of which an interrupted call has not begun all
        recording.clips->finish();
    footer.write(format->footer());
    messages.makeRoom();
    const QString syncFailure = traceFile.isOpen() && isWritten ? syncToDisk(traceFile) : QString();
    if (!syncFailure.isEmpty())
        traceFailed(syncFailure);
    const bool isReported = writeReport(report, messages);
    if (isInterrupted())
        return Interrupted;
    return isFound && isWritten && isReported ? scanned : SomeFailed;
}

ExitStatus printNames(const ScanOptions& options, QIODevice& output) {
    Messages messages(options.quiet);
    const bool isFound = complain(options.inputs.complaints, messages);
    if (options.format != ReportFormat::Text)
        messages.note(
            QStringLiteral("--names prints names and no clips, so that --format changes nothing"));
    QByteArray names;
    for (const QString& video :
         options.isMissingAsked ? unmeasured(options, messages) : options.inputs.videos)
        names += QFile::encodeName(video) + '\0';
    if (writeAll(output, names))
        return isFound ? AllDone : SomeFailed;
    messages.complain(QStringLiteral("standard output"), output.errorString());
    return SomeFailed;
}
