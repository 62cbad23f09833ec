// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QIODevice>

#include <deque>
#include <functional>
#include <mutex>

/// Lines that come side by side, as of recordings that are, written section by section.
///
/// The first unfinished section's lines are written at once; those of the others wait for their
/// turn. After the first line that cannot be written nothing is written any more.
class OrderedOutput {
public:
    /// Told once, on the thread that wrote, why a line could not be written. Must not write.
    using Failed = std::function<void(const QString& reason)>;

    /// Any thread may call anything.
    class Section {
    public:
        explicit Section(OrderedOutput& output)
            : output(output) {}

        void write(const QByteArray& lines); ///< one or more whole lines
        void finish();                       ///< nothing more comes

    private:
        friend class OrderedOutput;

        OrderedOutput& output;
        QByteArray waiting;
        bool isFinished = false;
    };

    /// `output` must be open without a buffer and outlive this object.
    OrderedOutput(QIODevice& output, Failed failed);

    /// A section behind all that there are, which lives as long as this object. All must be there
    /// before the first one is written to.
    Section& add() { return sections.emplace_back(*this); }

private:
    void goOn();
    void writeNow(const QByteArray& lines);

    std::mutex mutex;
    QIODevice& output;
    Failed failed;
    bool hasFailed = false;
    std::deque<Section> sections;
    std::size_t current = 0; ///< the section whose lines are written at once
};
