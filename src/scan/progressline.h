#pragma once

#include <QElapsedTimer>
#include <QString>

/// What the progress line shows.
struct Progress {
    QString video;
    double share = 0.0; ///< of the recording, 0 to 1; negative if unknown
    int clips = 0;
    double seconds = 0.0; ///< of the recording, done so far
};

/// The line on standard error that shows how far a scan is. Silent where that is no terminal.
class ProgressLine {
public:
    /// `isWanted`: false keeps it silent on a terminal, too.
    explicit ProgressLine(bool isWanted);

    /// A recording begins: speeds count from here.
    void start();

    /// Shows `progress`, a few times a second at the most.
    void show(const Progress& progress);

    /// Takes the line away, before something else is printed.
    void clear();

private:
    bool isShown;
    bool isDirty = false;
    QElapsedTimer sinceStart;
    QElapsedTimer sinceShown;
};
