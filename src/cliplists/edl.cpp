// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editlists.h"

#include "timecode.h"

#include <QFile>
#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

constexpr int longestReel = 8;

bool isReelLetter(QChar letter) {
    return letter.unicode() < 128 && letter.isLetterOrNumber();
}

/// The letters and digits of a file's name without its extension.
QString plainReel(const QString& path) {
    const QString file = path.mid(path.lastIndexOf('/') + 1);
    QString reel;
    for (const QChar letter : file.left(file.lastIndexOf('.'))) {
        if (isReelLetter(letter))
            reel += letter.toUpper();
    }
    return reel.isEmpty() ? QStringLiteral("REEL") : reel.left(longestReel);
}

/// The reel of each recording, by its path.
class Reels {
public:
    QByteArray of(const QString& path) {
        QString& reel = reels[path];
        if (reel.isEmpty())
            reel = nextFree(plainReel(path));
        return reel.toLatin1();
    }

private:
    QString nextFree(const QString& plain) {
        QString reel = plain;
        for (int number = 2; taken.contains(reel); ++number) {
            const QString ending = QString::number(number);
            reel = plain.left(longestReel - ending.size()) + ending;
        }
        taken.insert(reel);
        return reel;
    }

    QHash<QString, QString> reels;
    QSet<QString> taken;
};

QByteArray eventNumber(int number) {
    return QByteArray::number(number).rightJustified(3, '0');
}

} // namespace

QByteArray editDecisionList(const QVector<ListedClip>& clips) {
    QByteArray text = "TITLE: KESTROVA CLIPS\nFCM: NON-DROP FRAME\n";
    const Timecode timecode(clips.isEmpty() ? 25.0 : clips[0].recording.frameRate());
    Reels reels;
    qint64 position = 0;
    int number = 0;
    for (const ListedClip& clip : clips) {
        const qint64 in = std::max<qint64>(0, timecode.frameAt(clip.start));
        const qint64 out = std::max(in + 1, timecode.frameAt(clip.end));
        text += '\n' + eventNumber(++number) + "  " +
                reels.of(clip.recording.path).leftJustified(longestReel) + " V     C        " +
                timecode.text(in) + ' ' + timecode.text(out) + ' ' + timecode.text(position) + ' ' +
                timecode.text(position + out - in) + '\n' +
                "* FROM CLIP NAME: " + QFile::encodeName(clip.label()) + '\n';
        position += out - in;
    }
    return text;
}
