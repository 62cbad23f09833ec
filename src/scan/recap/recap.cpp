// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recap.h"

#include "clocktext.h"
#include "containername.h"
#include "encodertimes.h"
#include "filmwriter.h"
#include "writing.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <set>
#include <unistd.h>
#include <utility>

namespace {

/// Gives the clips to the film, one after another.
class Recap {
public:
    Recap(const Film& film, Messages& messages, const std::function<bool()>& isEnding)
        : writer(film, isEnding)
        , messages(messages)
        , isEnding(isEnding) {}

    QString write(const std::vector<RecapClip>& clips, const QString& path) {
        QString failure = writer.begin(path);
        if (!failure.isEmpty())
            return failure;
        for (const RecapClip& clip : clips) {
            if (writer.isBroken() || isEnding())
                break;
            messages.showStep(
                QStringLiteral("recap: clip %1 of %2").arg(++begun).arg(clips.size()));
            tell(clip, add(clip));
        }
        if (writer.pictures() == 0 && !writer.isBroken() && !isEnding())
            return QStringLiteral("no clip gave a picture");
        return writer.finish();
    }

    bool areAllThere() const { return failed == 0; }
    qint64 pictures() const { return writer.pictures(); }

private:
    /// Why not all of the clip is in the film; empty if it is.
    QString add(const RecapClip& clip) {
        Recording& recording = *clip.recording;
        if (!canBeCut(clip.stretch.start, clip.stretch.end))
            return QStringLiteral("its times make no sense");
        QString failure = recording.watched ? recording.watched->flaw() : QString();
        if (failure.isEmpty() && recording.path != named)
            failure = nameContainer(recording.path);
        if (!failure.isEmpty())
            return failure;
        FilmStretch stretch = clip.stretch;
        stretch.inputFormat = inputFormat;
        failure = writer.add(stretch);
        if (failure.isEmpty() && recording.watched && !recording.watched->flaw().isEmpty())
            failure = QStringLiteral("the recording was changed meanwhile");
        return failure;
    }

    QString nameContainer(const QString& path) {
        const ContainerName container = containerNameOf(path, isEnding);
        named = container.error.isEmpty() ? path : QString();
        inputFormat = container.name;
        return container.error;
    }

    /// What ends with the film or the scan is told of once, and not here.
    void tell(const RecapClip& clip, const QString& failure) {
        if (failure.isEmpty() || writer.isBroken() || isEnding())
            return;
        ++failed;
        messages.complain(clip.recording->video,
                          QStringLiteral("clip #%1 is not, or not as a whole, in the recap: %2")
                              .arg(QString::number(clip.number), failure));
    }

    FilmWriter writer;
    Messages& messages;
    const std::function<bool()>& isEnding;
    QString named; ///< the recording whose container is known
    QString inputFormat;
    int begun = 0;
    int failed = 0;
};

/// Without those again that go on in other recordings.
int countOf(const std::vector<RecapClip>& clips) {
    std::set<std::pair<int, int>> names;
    for (const RecapClip& clip : clips)
        names.insert({clip.place, clip.number});
    return int(names.size());
}

double secondsOf(qint64 pictures, const QString& rate) {
    return double(pictures) * rate.section('/', 1).toDouble() / rate.section('/', 0, 0).toDouble();
}

} // namespace

QString recapFlaw(const QString& file) {
    const QFileInfo info(file);
    if (info.isDir())
        return QStringLiteral("it is a folder");
    const QByteArray folder = QFile::encodeName(info.absolutePath());
    return access(folder.constData(), W_OK | X_OK) == 0 ? QString() : qt_error_string(errno);
}

bool writeRecap(const std::vector<RecapClip>& clips, const RecapOptions& options,
                Messages& messages, const std::function<bool()>& isEnding) {
    if (clips.empty()) {
        messages.note(QStringLiteral("%1: there is no clip to be shown").arg(options.file));
        return true;
    }
    const Film film = filmOf(clips, options);
    Recap recap(film, messages, isEnding);
    const QString failure = replaceFile(
        options.file, [&](const QString& beside) { return recap.write(clips, beside); });
    messages.makeRoom();
    if (!failure.isEmpty()) {
        messages.complain(options.file, QStringLiteral("cannot write the recap: ") + failure);
        return false;
    }
    messages.note(QStringLiteral("%1: clips: %2, length: %3")
                      .arg(options.file, QString::number(countOf(clips)),
                           preciseClockText(secondsOf(recap.pictures(), film.rate))));
    return recap.areAllThere();
}
