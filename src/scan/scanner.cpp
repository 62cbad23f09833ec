#include "scanner.h"

#include "interrupt.h"
#include "recordingscan.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <functional>
#include <system_error>
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

/// Makes the folder if it is missing; false if it cannot be written into.
bool prepareFolder(const QString& path) {
    return QDir().mkpath(path) && QFileInfo(path).isWritable();
}

/// Up to `count` threads that do `work`: as many as can be had.
std::vector<std::thread> startThreads(int count, const std::function<void()>& work) {
    std::vector<std::thread> threads;
    try {
        while (int(threads.size()) < count)
            threads.emplace_back(work);
    } catch (const std::system_error&) {
        // The others, and the one that waits for them, do all of it.
    }
    return threads;
}

/// Scans all recordings, `options.jobs` at a time; true if nothing went wrong with any.
bool scanAll(const ScanOptions& options, ScanOutputs& outputs) {
    std::atomic<int> next{0};
    std::atomic<bool> isGood{true};
    const auto work = [&] {
        int index = 0;
        while (!isInterrupted() && (index = next++) < options.videos.size()) {
            if (!RecordingScan(index, options, outputs).run())
                isGood = false;
            outputs.clips.finish(index);
            if (outputs.trace)
                outputs.trace->finish(index);
        }
    };
    std::vector<std::thread> workers = startThreads(options.jobs - 1, work);
    work();
    for (std::thread& worker : workers)
        worker.join();
    return isGood;
}

} // namespace

ExitStatus scan(const ScanOptions& asked, QIODevice& output) {
    const ScanOptions options = withSharedThreads(asked);
    Messages messages(options.quiet);
    const SnapshotFolder snapshots(options.snapshotDirectory, options.videos);
    for (const QString& folder : {options.snapshotDirectory, options.exporting.directory}) {
        if (folder.isEmpty() || prepareFolder(folder))
            continue;
        messages.complain(folder, QStringLiteral("cannot write into this folder"));
        return UsageError;
    }
    QFile traceFile(options.traceFile);
    const bool isTraced = !options.traceFile.isEmpty();
    if (isTraced && !traceFile.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        messages.complain(options.traceFile, traceFile.errorString());
        return UsageError;
    }

    const bool isExported = !options.exporting.directory.isEmpty();
    const auto format = makeClipFormat(options.format, isExported);
    // Their folders are named here, in the order of the recordings.
    std::vector<ClipExport> exports;
    for (const QString& video : options.videos)
        exports.emplace_back(video, options.exporting);
    output.write(format->header());
    OrderedOutput clips(output, options.videos.size());
    OrderedOutput trace(traceFile, options.videos.size());
    Totals totals(options.videos);
    ScanOutputs outputs{*format,  clips, isTraced ? &trace : nullptr, snapshots, exports,
                        messages, totals};
    ExitStatus status = scanAll(options, outputs) ? AllRead : SomeFailed;
    messages.makeRoom();
    if (isTraced && !(traceFile.flush() && traceFile.error() == QFileDevice::NoError)) {
        messages.complain(options.traceFile, traceFile.errorString());
        status = SomeFailed;
    }
    return isInterrupted() ? Interrupted : status;
}
