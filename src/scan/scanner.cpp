// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scanner.h"

#include "folder.h"
#include "foreignlink.h"
#include "interrupt.h"
#include "logging.h"
#include "namedvalues.h"
#include "partscan.h"
#include "recordingscan.h"
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
    options.jobs = std::min(options.jobs, options.videos.size());
    if (options.jobs > 1 && options.detection.threads == 0)
        options.detection.threads = std::max(1, QThread::idealThreadCount() / options.jobs);
    return options;
}

/// Up to `count` threads that do `work`: as many as can be had.
std::vector<std::thread> startThreads(int count, const std::function<void()>& work) {
    std::vector<std::thread> threads;
    try {
        while (int(threads.size()) < count)
            threads.emplace_back(work);
    } catch (const std::exception&) {
        // No thread or no memory for one. The others, and the one that waits for them, do all of
        // it.
    }
    return threads;
}

/// One recording, or the part of it that is asked for.
ExitStatus scanOne(int index, const ScanOptions& options, ScanOutputs& outputs) {
    if (options.part)
        return PartScan(index, options, outputs.values, outputs.messages, outputs.totals).run();
    return RecordingScan(index, options, outputs).run();
}

/// Whether a recording could be measured and kept, and is not; also where memory is short to tell.
bool isUnmeasured(const ValuesStore& values, int index) {
    try {
        const ValuesStore::Found found = values.find(index);
        return found.stamp && !found.values;
    } catch (const std::bad_alloc&) {
        return true;
    }
}

/// The recordings that could be measured and kept, and are not. What is no file cannot be kept.
QStringList unmeasured(const ScanOptions& asked, Messages& messages) {
    const ScanOptions options = withNamedValues(asked);
    const ValuesStore values(options, messages);
    const int count = options.videos.size();
    std::vector<char> isMissing(std::size_t(count), 0);
    std::atomic<int> next{0};
    const auto work = [&] {
        int index = 0;
        while ((index = next++) < count) {
            isMissing[std::size_t(index)] = isUnmeasured(values, index);
        }
    };
    std::vector<std::thread> workers = startThreads(std::min(options.jobs, count) - 1, work);
    work();
    for (std::thread& worker : workers)
        worker.join();
    QStringList names;
    for (int i = 0; i < count; ++i) {
        if (isMissing[std::size_t(i)])
            names += asked.videos[i];
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
ExitStatus scanOneOrFail(int index, const ScanOptions& options, ScanOutputs& outputs) {
    try {
        return scanOne(index, options, outputs);
    } catch (const std::exception&) {
        outputs.messages.complain(options.videos[index], thrownText());
    }
    return SomeFailed;
}

/// Scans all recordings, `options.jobs` at a time; AllDone if nothing went wrong with any.
ExitStatus scanAll(const ScanOptions& options, ScanOutputs& outputs) {
    std::atomic<int> next{0};
    std::atomic<bool> hasFailed{false};
    std::atomic<bool> isUnreadable{false};
    const auto work = [&] {
        int index = 0;
        while (!isEnding() && (index = next++) < options.videos.size()) {
            const ExitStatus end = scanOneOrFail(index, options, outputs);
            if (end == SomeFailed)
                hasFailed = true;
            else if (end == SomeUnreadable)
                isUnreadable = true;
            outputs.clips.finish(index);
            if (outputs.trace)
                outputs.trace->finish(index);
        }
    };
    std::vector<std::thread> workers = startThreads(options.jobs - 1, work);
    work();
    for (std::thread& worker : workers)
        worker.join();
    if (hasFailed)
        return SomeFailed;
    return isUnreadable ? SomeUnreadable : AllDone;
}

/// True if nothing that was to be found is missing.
bool complain(const QVector<InputComplaint>& complaints, Messages& messages) {
    bool isGood = true;
    for (const InputComplaint& complaint : complaints) {
        messages.complain(complaint.subject, complaint.reason);
        isGood = isGood && !complaint.isFailure;
    }
    return isGood;
}

/// Writes the end behind all recordings, of which an interrupted call has not begun them all.
void writeFooter(ClipFormat& format, OrderedOutput& clips, int recordings) {
    for (int i = 0; i < recordings; ++i)
        clips.finish(i);
    clips.write(recordings, format.footer());
}

bool prepareFolders(const ScanOptions& options, Messages& messages) {
    const auto isReady = [&](const QString& folder, FolderLink link) {
        const QString failure = folder.isEmpty() ? QString() : prepareFolder(folder, link);
        if (!failure.isEmpty())
            messages.complain(folder, QStringLiteral("cannot write into this folder: ") + failure);
        return failure.isEmpty();
    };
    const QString& report = options.reportDirectory;
    const QString pictures = report.isEmpty() ? QString() : ScanReport::pictureFolder(report);
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

ExitStatus scan(const ScanOptions& asked, QIODevice& output,
                const std::function<void(const ScanOptions&)>& prepared) {
    prepareLibraries();
    const ScanOptions options = withSharedThreads(withNamedValues(asked));
    Messages messages(options.quiet);
    QFile traceFile(options.traceFile);
    if (!prepareFolders(options, messages) || !openTrace(traceFile, messages))
        return BadCommandLine;
    prepared(options);

    std::atomic<bool> isWritten{true};
    const int recordings = options.videos.size();
    OrderedOutput clips(output, recordings + 1, [&](const QString& reason) {
        isWritten = false;
        messages.complain(QStringLiteral("standard output"), reason);
        endScan();
    });
    const auto traceFailed = [&](const QString& reason) {
        isWritten = false;
        messages.complain(options.traceFile, reason);
    };
    OrderedOutput trace(traceFile, recordings, traceFailed);

    const bool isExported = !options.exporting.directory.isEmpty();
    const auto format = makeClipFormat(options.format, isExported);
    const SnapshotFolder snapshots(options.snapshotDirectory, options.videos);
    ClipFolders folders(options.exporting.directory, options.videos);
    std::vector<ClipExport> exports;
    exports.reserve(std::size_t(recordings));
    for (int i = 0; i < recordings; ++i)
        exports.emplace_back(options.videos[i], options.exporting, folders, i, isEnding);
    Totals totals(options.videos);
    std::optional<ScanReport> report;
    if (!options.reportDirectory.isEmpty())
        report.emplace(options);
    const ValuesStore values(options, messages);
    ScanOutputs outputs{*format,   clips,   traceFile.isOpen() ? &trace : nullptr,
                        snapshots, exports, report ? &*report : nullptr,
                        messages,  totals,  values};
    clips.write(0, format->header());
    const bool isFound = complain(options.complaints, messages);
    const ExitStatus scanned = scanAll(options, outputs);
    writeFooter(*format, clips, recordings);
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
    const bool isFound = complain(options.complaints, messages);
    if (options.format != ReportFormat::Text)
        messages.summarise(
            QStringLiteral("--names prints names and no clips, so that --format changes nothing"));
    QByteArray names;
    for (const QString& video :
         options.isMissingAsked ? unmeasured(options, messages) : options.videos)
        names += QFile::encodeName(video) + '\0';
    if (writeAll(output, names))
        return isFound ? AllDone : SomeFailed;
    messages.complain(QStringLiteral("standard output"), output.errorString());
    return SomeFailed;
}
