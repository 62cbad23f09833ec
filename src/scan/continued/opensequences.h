// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "sequencescan.h"

#include <QHash>

#include <list>
#include <memory>

/// The sequences of one call that may still go on. Used by one thread at a time.
class OpenSequences {
public:
    /// All must outlive this object. Every one of `recordings` comes to `add` or `leaveOut`.
    OpenSequences(const std::vector<Recording>& recordings, const ScanOptions& options,
                  ScanOutputs& outputs, SequenceScan::Concluded concluded);

    /// The next recording, measured and with pictures: goes on in the sequence that it belongs to,
    /// or begins one.
    /// `start`: its own, whatever was given.
    void add(std::unique_ptr<RecordingScan> scan, const RecordingStart& start);

    /// The next one has no pictures.
    void leaveOut(const Recording& recording);

    /// There is no further one.
    void finish();

private:
    struct Choice {
        SequenceScan* sequence = nullptr; ///< null: none goes on in it
        Continuation how;                 ///< or why not, of the one that is nearest by its name
        Recording* other = nullptr;       ///< the last one of that; null: there is none
    };

    Choice choose(const SequenceFile& file) const;
    void tell(const Recording& recording, const Choice& choice) const;
    void moveBack(const SequenceScan* sequence);
    void pass(const Recording& recording);
    void finishLonely();

    const ScanOptions& options;
    ScanOutputs& outputs;
    SequenceScan::Concluded concluded;
    std::list<std::unique_ptr<SequenceScan>> open; ///< the one that went on last at its end
    QHash<QString, int> leftInFolder; ///< recordings that are to come, by their folders
    QHash<QString, int> leftOfNaming; ///< the same by how they are named
};
