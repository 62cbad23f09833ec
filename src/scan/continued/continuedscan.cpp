// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "continuedscan.h"

#include "continuedorder.h"
#include "interrupt.h"
#include "opensequences.h"
#include "recordingclock.h"
#include "sidebyside.h"
#include "startlookup.h"
#include "zonedtime.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <new>

namespace {

/// Measures recordings side by side, and puts them together in their order.
class ContinuedScan {
public:
    ContinuedScan(std::vector<Recording>& recordings, const ScanOptions& options,
                  ScanOutputs& outputs)
        : recordings(recordings)
        , options(options)
        , outputs(outputs)
        , order(continuedOrder(recordings))
        , measured(recordings.size())
        , sequences(recordings, options, outputs,
                    [this](Recording& recording, ExitStatus end) { conclude(recording, end); }) {}

    ExitStatus run() {
        runSideBySide(options.jobs, [this] { work(); });
        guarded(recordings.back(), [this] { sequences.finish(); });
        if (hasFailed)
            return SomeFailed;
        return isUnreadable ? SomeUnreadable : AllDone;
    }

private:
    /// A recording that waits for its turn.
    struct Measured {
        std::unique_ptr<RecordingScan> scan; ///< null: it has failed, which was said
        RecordingStart start;                ///< its own
        bool isReady = false;
    };

    void work() {
        std::size_t i = 0;
        while (!isEnding() && (i = next++) < recordings.size()) {
            Measured found;
            Recording& recording = recordings[order[i]];
            guarded(recording, [&] { measure(recording, found); });
            found.isReady = true;
            std::unique_lock<std::mutex> lock(mutex);
            measured[i] = std::move(found);
            putTogether(lock);
        }
    }

    void measure(Recording& recording, Measured& found) {
        lookForStart(recording, options.clock, outputs.messages, isEnding);
        found.start = options.clock.search
                          ? recording.start
                          : lookUpStart(recording.path, {zoneOfMachine(), {}}, isEnding);
        found.scan = std::make_unique<RecordingScan>(recording, options, outputs);
        found.scan->measureAlone();
    }

    /// Those whose turn it is; the other threads go on measuring.
    void putTogether(std::unique_lock<std::mutex>& lock) {
        if (isPuttingTogether)
            return;
        isPuttingTogether = true;
        for (; turn < measured.size() && measured[turn].isReady; ++turn) {
            Measured found = std::move(measured[turn]);
            Recording& recording = recordings[order[turn]];
            lock.unlock();
            guarded(recording, [&] { add(recording, found); });
            lock.lock();
        }
        isPuttingTogether = false;
    }

    void add(Recording& recording, Measured& found) {
        if (found.scan && !found.scan->measured().series.times.isEmpty())
            return sequences.add(std::move(found.scan), found.start);
        conclude(recording, found.scan ? found.scan->conclude() : SomeFailed);
        sequences.leaveOut(recording);
    }

    void conclude(Recording& recording, ExitStatus end) {
        outputs.totals.finish(recording);
        if (end == SomeFailed)
            hasFailed = true;
        else if (end == SomeUnreadable)
            isUnreadable = true;
        recording.clips->finish();
        if (recording.trace)
            recording.trace->finish();
    }

    /// Nothing that is thrown leaves a thread.
    template<typename Work>
    void guarded(Recording& recording, const Work& work) {
        try {
            work();
        } catch (const std::bad_alloc&) {
            fail(recording, QStringLiteral("out of memory"));
        } catch (const std::exception& error) {
            fail(recording, QString::fromLocal8Bit(error.what()));
        }
    }

    void fail(const Recording& recording, const QString& reason) {
        hasFailed = true;
        outputs.messages.complain(recording.video, reason);
    }

    std::vector<Recording>& recordings;
    const ScanOptions& options;
    ScanOutputs& outputs;
    const std::vector<std::size_t> order; ///< of what follows, by places
    std::atomic<std::size_t> next{0};     ///< to be measured
    std::atomic<bool> hasFailed{false};
    std::atomic<bool> isUnreadable{false};

    std::mutex mutex; ///< for these
    std::vector<Measured> measured;
    std::size_t turn = 0; ///< of the recording that is put together next
    bool isPuttingTogether = false;

    OpenSequences sequences; ///< of the thread that puts together
};

} // namespace

ExitStatus scanContinued(std::vector<Recording>& recordings, const ScanOptions& options,
                         ScanOutputs& outputs) {
    if (recordings.empty())
        return AllDone;
    return ContinuedScan(recordings, options, outputs).run();
}
