// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scanner.h"

#include "camtrapformat.h"
#include "foldercheck.h"
#include "interrupt.h"
#include "logging.h"
#include "partscan.h"
#include "promisingnames.h"
#include "promisingsearch.h"
#include "recap.h"
#include "recordingclock.h"
#include "recordingscan.h"
#include "reportfolder.h"
#include "sidebyside.h"
#include "snapshotfolder.h"
#include "tracefile.h"
#include "writing.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <new>
#include <vector>

namespace {

/// The cores divided among the recordings that are scanned side by side.
ScanOptions withSharedThreads(ScanOptions options) {
    options.jobs = std::min(options.jobs, options.inputs.videos.size());
    if (options.jobs > 1 && options.detection.threads == 0)
        options.detection.threads = std::max(1, QThread::idealThreadCount() / options.jobs);
    return options;
}

/// One recording, or the part of it that is asked for.
ExitStatus scanOne(Recording& recording, const ScanOptions& options, ScanOutputs& outputs,
                   MeasuredAhead& ahead) {
    if (options.part)
        return scanPart(recording, options, outputs);
    lookForStart(recording, options.clock, outputs.messages, isEnding);
    return RecordingScan(recording, options, outputs, std::move(ahead)).run();
}

/// Whether a recording could be measured and kept, and is not; also where memory is short to tell.
/// Of most of a large archive nothing is kept, and nothing of them is read.
bool isUnmeasured(const ValuesStore& values, Recording& recording) {
    try {
        if (!values.mayBeKept(recording))
            return QFileInfo(recording.path).isFile();
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
    const bool areJobsGiven = options.givenOptions.contains(QStringLiteral("jobs"));
    const int threads = areJobsGiven ? options.jobs : QThread::idealThreadCount();
    runSideBySide(std::min(threads, options.inputs.videos.size()), work);
    QStringList names;
    for (int i = 0; i < options.inputs.videos.size(); ++i) {
        if (areMissing[std::size_t(i)])
            names += options.inputs.videos[i];
    }
    return options.isPromisingFirst ? promisingNames(names, options, threads) : names;
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
ExitStatus scanOneOrFail(Recording& recording, const ScanOptions& options, ScanOutputs& outputs,
                         MeasuredAhead& ahead) {
    try {
        return scanOne(recording, options, outputs, ahead);
    } catch (const std::exception&) {
        outputs.messages.complain(recording.video, thrownText());
    }
    return SomeFailed;
}

/// Scans all recordings, `options.jobs` at a time; AllDone if nothing went wrong with any. `ahead`:
/// what is known of each.
ExitStatus scanAll(std::vector<Recording>& recordings, const ScanOptions& options,
                   ScanOutputs& outputs, std::vector<MeasuredAhead>& ahead) {
    std::atomic<std::size_t> next{0};
    std::atomic<bool> hasFailed{false};
    std::atomic<bool> isUnreadable{false};
    const auto work = [&] {
        std::size_t i = 0;
        while ((i = next++) < recordings.size()) {
            if (isEnding() && !ahead[i].isThere())
                continue;
            const ExitStatus end = scanOneOrFail(recordings[i], options, outputs, ahead[i]);
            if (end == SomeFailed)
                hasFailed = true;
            else if (end == SomeUnreadable)
                isUnreadable = true;
            recordings[i].clips->finish();
            if (recordings[i].trace)
                recordings[i].trace->finish();
        }
    };
    runSideBySide(options.jobs, work);
    if (hasFailed)
        return SomeFailed;
    return isUnreadable ? SomeUnreadable : AllDone;
}

/// What a search of all recordings by likelihood finds out.
std::vector<MeasuredAhead> measuredAhead(std::vector<Recording>& recordings,
                                         const PromisingTools& tools) {
    PromisingSearch search(recordings, tools);
    search.run();
    return search.take();
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

bool isRecapReady(const QString& file, Messages& messages) {
    const QString flaw = file.isEmpty() ? QString() : recapFlaw(file);
    if (!flaw.isEmpty())
        messages.complain(file, QStringLiteral("cannot write the recap: ") + flaw);
    return flaw.isEmpty();
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
           isReady(options.camtrap.directory, FolderLink::Followed) &&
           isReady(report, FolderLink::Followed) && isReady(pictures, FolderLink::Refused) &&
           isRecapReady(options.recap.file, messages);
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

/// Tells of the clips that count, once all recordings are searched. False if something of them
/// could not be written.
bool tellChosen(ClipChoice& choice, OrderedOutput::Section& section, ScanOutputs& outputs) {
    int told = 0;
    const bool isMade = choice.finish([&](const ClipLine& line) {
        outputs.messages.makeRoom();
        section.write(outputs.format.clip(line));
        if (outputs.recap)
            outputs.recap->add(line);
        ++told;
    });
    section.finish();
    const int found = outputs.totals.progress().clips;
    if (told < found)
        outputs.messages.note(QStringLiteral("clips listed: %1 of %2").arg(told).arg(found));
    return isMade;
}

/// Opens the trace if one is wanted.
bool openTrace(QFile& file, Messages& messages) {
    const QString failure = file.fileName().isEmpty() ? QString() : openTraceFile(file);
    if (!failure.isEmpty())
        messages.complain(file.fileName(), failure);
    return failure.isEmpty();
}

std::unique_ptr<ClipFormat> formatOf(const ScanOptions& options, ClipCalls calls) {
    if (options.format == ReportFormat::CamtrapDp)
        return makeCamtrapFormat(options.camtrap);
    return makeClipFormat(options.format,
                          {!options.exporting.directory.isEmpty(), options.clock.areTold,
                           options.continuing.has_value()},
                          calls);
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

ExitStatus scan(const ScanOptions& asked, QIODevice& output, const Prepared& prepared,
                const Road& continued) {
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

    std::optional<ClipChoice> choice;
    if (options.selection.isOfAll())
        choice.emplace(options.selection);
    const auto format = formatOf(options, choice ? ClipCalls::InOrder : ClipCalls::AnyRecording);
    ClipFolders folders(options.exporting.directory);
    OrderedOutput::Section& header = clips.add();
    OrderedOutput::Section& chosen = clips.add(); // empty where each is told of when it is found
    nameOutputs(recordings, options, clips, traceFile.isOpen() ? &trace : nullptr, folders);
    OrderedOutput::Section& footer = clips.add();
    Totals totals(recordings);
    std::optional<ScanReport> report;
    if (!options.reportDirectory.isEmpty())
        report.emplace(options, recordings);
    giveStart(recordings, options.clock, options.continuing.has_value(), messages);
    const ValuesStore values(options, messages);
    RecapClips recap;
    SearchBudget budget(options.limit);
    ScanOutputs outputs{*format,
                        folders,
                        report ? &*report : nullptr,
                        choice ? &*choice : nullptr,
                        options.recap.file.isEmpty() ? nullptr : &recap,
                        messages,
                        totals,
                        values,
                        budget};
    header.write(format->header());
    const bool isFound = complain(options.inputs.complaints, messages);
    std::vector<MeasuredAhead> ahead(recordings.size());
    if (options.isPromisingFirst)
        ahead = measuredAhead(recordings,
                              {options, values, messages, *format, header, budget, isEnding});
    header.finish();
    if (!choice)
        chosen.finish();
    const ExitStatus scanned = options.continuing ? continued(recordings, options, outputs)
                                                  : scanAll(recordings, options, outputs, ahead);
    const bool isChosen = !choice || tellChosen(*choice, chosen, outputs);
    for (const Recording& recording : recordings) // of which an interrupted call has not begun all
        recording.clips->finish();
    footer.write(format->footer());
    messages.makeRoom();
    const QString syncFailure = traceFile.isOpen() && isWritten ? syncToDisk(traceFile) : QString();
    if (!syncFailure.isEmpty())
        traceFailed(syncFailure);
    const bool isSaved = format->save(messages);
    const bool isReported = writeReport(report, messages);
    const bool isRecapped =
        !outputs.recap || isEnding() ||
        writeRecap(recap.inOrder(choice ? ClipCalls::InOrder : ClipCalls::AnyRecording),
                   options.recap, messages, isEnding);
    if (isInterrupted())
        return Interrupted;
    const bool isDone = isWritten && isChosen && isSaved && isReported && isRecapped;
    return isFound && isDone ? scanned : SomeFailed;
}

ExitStatus printNames(const ScanOptions& options, QIODevice& output, const Prepared& prepared) {
    if (options.isMissingAsked && options.isPromisingFirst) // their packets are read
        prepared(options, recordingsOf(options.inputs.videos));
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
