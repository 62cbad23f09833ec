// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sessionindex.h"

#include "jobjson.h"
#include "jsonfields.h"

#include <QCryptographicHash>
#include <QJsonDocument>

namespace {

constexpr char format[] = "kestrova-session";
constexpr char version[] = "1";
constexpr int mostJobs = 1000000;
constexpr int mostClips = 10000000;
constexpr int lastClipStatus = 5; // exported

QByteArray digestOfText(const QByteArray& text) {
    return QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex();
}

QJsonObject clipJson(const SavedClip& clip, const QString& snapshot) {
    QJsonObject json{{"job", clip.job},
                     {"index", clip.index},
                     {"start", numberJson(clip.start)},
                     {"end", numberJson(clip.end)},
                     {"snapshotTime", numberJson(clip.snapshotTime)},
                     {"snapshot", snapshot},
                     {"status", clip.status},
                     {"output", textJson(clip.outputPath)},
                     {"note", textJson(clip.note)},
                     {"strength", numberJson(double(clip.strength))}};
    if (!clip.joinedFile.isEmpty())
        json.insert("joined", textJson(clip.joinedFile));
    return json;
}

SavedClip clipOf(JsonFields& fields, int jobs) {
    SavedClip clip;
    clip.job = fields.integer("job", 0, jobs - 1);
    clip.index = fields.integer("index", 0, mostClipNumber - 1);
    clip.start = fields.number("start");
    clip.end = fields.number("end");
    clip.snapshotTime = fields.number("snapshotTime");
    clip.status = fields.integer("status", 0, lastClipStatus);
    clip.outputPath = fields.text("output");
    clip.note = fields.text("note");
    if (fields.has("strength")) // older sessions have none
        clip.strength = float(fields.number("strength"));
    if (fields.has("joined"))
        clip.joinedFile = fields.text("joined");
    return clip;
}

SessionIndex indexOf(const QJsonValue& json, bool& isGood) {
    SessionIndex index;
    JsonFields fields(json, isGood);
    const QJsonArray jobs = fields.array("jobs", mostJobs);
    for (const QJsonValue& job : jobs) {
        index.session.jobs.append(jobOf(job, isGood));
        index.masks.append(JsonFields(job, isGood).text("mask"));
    }
    const QJsonArray clips = fields.array("clips", mostClips);
    for (const QJsonValue& json : clips) {
        JsonFields clip(json, isGood);
        index.session.clips.append(clipOf(clip, jobs.size()));
        if (isGood) // else its job may be none
            isGood = !index.session.jobs[index.session.clips.last().job].clipDirectory.isEmpty();
        index.snapshots.append(clip.text("snapshot"));
    }
    return index;
}

} // namespace

QByteArray sessionBytes(const SessionIndex& index) {
    QJsonArray jobs;
    for (int i = 0; i < index.masks.size(); ++i) {
        QJsonObject job = jobJson(index.session.jobs[i]);
        job.insert("mask", index.masks[i]);
        jobs.append(job);
    }
    QJsonArray clips;
    for (int i = 0; i < index.snapshots.size(); ++i)
        clips.append(clipJson(index.session.clips[i], index.snapshots[i]));
    const QJsonObject all{{"jobs", jobs}, {"clips", clips}};
    const QByteArray text = QJsonDocument(all).toJson(QJsonDocument::Compact);
    return QByteArrayList{format, version, digestOfText(text)}.join(' ') + '\n' + text;
}

IndexState readSession(const QByteArray& bytes, SessionIndex& index) {
    index = {};
    const int end = bytes.indexOf('\n');
    const QByteArrayList words = bytes.left(qMax(end, 0)).split(' ');
    if (words.size() != 3 || words[0] != format)
        return IndexState::Damaged;
    const QByteArray text = bytes.mid(end + 1);
    if (words[2] != digestOfText(text))
        return IndexState::Damaged;
    if (words[1] != version)
        return IndexState::OtherVersion;
    const QJsonDocument document = QJsonDocument::fromJson(text);
    bool isGood = document.isObject();
    const SessionIndex found = indexOf(document.object(), isGood);
    if (isGood)
        index = found;
    return isGood ? IndexState::Good : IndexState::Damaged;
}
