// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cliplistexport.h"

#include "clip.h"
#include "detectionoptions.h"
#include "encodertimes.h"
#include "keptmeasurement.h"
#include "settingstable.h"
#include "video.h"
#include "writing.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHash>
#include <QSettings>

#include <optional>

namespace {

const QString folderKey = QStringLiteral("last_list_dir");

QString suffixOf(ClipList list) {
    switch (list) {
    case ClipList::M3u:
        return QStringLiteral("m3u");
    case ClipList::Mpv:
    case ClipList::Edl:
        return QStringLiteral("edl");
    case ClipList::Mlt:
        return QStringLiteral("mlt");
    case ClipList::Cuts:
        break;
    }
    return QStringLiteral("txt");
}

/// The file that a person chooses; empty: none.
QString askForFile(QWidget* parent, ClipList list) {
    const QString suffix = suffixOf(list);
    const QSettings store;
    // The current directory is the program's own, once something was exported.
    const QString folder = store.value(folderKey, settings::exportDirectory.read(store)).toString();
    QFileDialog dialog(parent, ClipListExport::tr("Export list as"), folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(QStringLiteral("clips.") + suffix);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    QString file = dialog.selectedFiles().value(0);
    QSettings().setValue(folderKey, QFileInfo(file).absolutePath());
    return file;
}

/// A recording whose clips are listed, as the GUI thread knows it.
struct Source {
    QString path; ///< absolute
    QString name;
    StreamFacts stream; ///< no codec's name: not known
    DetectionOptions options;
};

struct WantedClip {
    int source = 0; ///< its place
    int index = 0;
    double start = 0.0;
    double end = 0.0;
};

/// What is to be written; owns all it needs.
struct WantedList {
    ClipList list;
    QVector<Source> sources;
    QVector<WantedClip> clips;
};

Source sourceOf(const Video& job) {
    return {QFileInfo(job.fileName).absoluteFilePath(), job.fileName, job.news.facts().stream,
            job.detectionOptions()};
}

WantedList wantedList(ClipList list, const QList<Clip*>& clips) {
    WantedList wanted{list, {}, {}};
    QHash<const Video*, int> places;
    for (const Clip* clip : clips) {
        if (!clip->video || !canBeCut(clip->start, clip->end))
            continue;
        if (!places.contains(clip->video)) {
            places.insert(clip->video, wanted.sources.size());
            wanted.sources.append(sourceOf(*clip->video));
        }
        wanted.clips.append({places[clip->video], clip->index, clip->start, clip->end});
    }
    return wanted;
}

/// Nothing where it cannot be named in such a list, or where nothing is known of it.
std::optional<ListedRecording> listed(const Source& source, ClipList list) {
    StreamFacts stream = source.stream;
    if (stream.codecName.isEmpty()) {
        if (const auto kept = keptMeasurement(source.path, source.options))
            stream = kept->stream;
    }
    if (stream.codecName.isEmpty() || !canName(list, source.path))
        return std::nullopt;
    return listedRecording(source.path, source.name, playedRecording(stream));
}

/// What is told of the list that was written, or was not.
QString written(const WantedList& wanted, const QString& file) {
    QVector<std::optional<ListedRecording>> recordings;
    for (const Source& source : wanted.sources)
        recordings.append(listed(source, wanted.list));
    QVector<ListedClip> clips;
    for (const WantedClip& clip : wanted.clips) {
        if (recordings[clip.source])
            clips.append({*recordings[clip.source], clip.index, clip.start, clip.end});
    }
    const QString failure = writeWholeFile(file, clipListText(wanted.list, clips));
    if (!failure.isEmpty())
        return ClipListExport::tr("%1 cannot be written: %2")
            .arg(QDir::toNativeSeparators(file), failure);
    const QString text = ClipListExport::tr("%n clips listed in %1", nullptr, clips.size())
                             .arg(QDir::toNativeSeparators(file));
    const int missing = wanted.clips.size() - clips.size();
    return missing == 0 ? text
                        : ClipListExport::tr("%1; %n clips are left out, since their recordings "
                                             "cannot be named or are not known",
                                             nullptr, missing)
                              .arg(text);
}

} // namespace

void ClipListExport::ask(QWidget* parent, ClipList list, const QList<Clip*>& clips) {
    const WantedList wanted = wantedList(list, clips); // they may go while the dialog is open
    const QString file = askForFile(parent, list);
    if (file.isEmpty())
        return;
    const bool isBegun = thread.run(this, [this, wanted, file](const GuiCall& callBack) {
        const QString notice = written(wanted, file);
        callBack([this, notice] { Q_EMIT told(notice); });
    });
    if (!isBegun)
        Q_EMIT told(tr("%1 cannot be written: no thread").arg(file));
}
