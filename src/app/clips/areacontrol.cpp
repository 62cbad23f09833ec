// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "areacontrol.h"

#include "areabar.h"
#include "areaoverlay.h"
#include "clip.h"
#include "cliplistwidget.h"
#include "detectionqueue.h"
#include "listfilter.h"
#include "playerdock.h"
#include "video.h"

#include <QHash>
#include <QPointer>
#include <QVBoxLayout>

namespace {

constexpr int askingMilliseconds = 200;   // in which more clips may come
constexpr int progressMilliseconds = 500; // hiding clips has the list laid out

QString areaReason() {
    return QStringLiteral("area");
}

void prepare(QTimer& timer, int milliseconds) {
    timer.setSingleShot(true);
    timer.setInterval(milliseconds);
}

/// Maps will do, whatever the mean was measured with.
AreaRecording questionFor(Video& job, const QVector<ClipSpan>& spans) {
    DetectionOptions options = job.detectionOptions();
    options.detector = Detector::Cells;
    return {&job, job.fileName, options, job.search.excluded, spans};
}

} // namespace

AreaControl::AreaControl(PlayerDock& player, ClipListWidget& list, ListFilter& filter,
                         DetectionQueue& queue)
    : player(player)
    , list(list)
    , filter(filter)
    , queue(queue)
    , bar(new AreaBar)
    , overlay(new AreaOverlay(*player.picture())) {
    putBarBelowPicture();
    prepare(later, askingMilliseconds);
    prepare(progress, progressMilliseconds);
    connect(&later, SIGNAL(timeout()), SLOT(ask()));
    connect(&progress, SIGNAL(timeout()), SLOT(applyFilter()));
    connect(bar, SIGNAL(drawingAsked(bool)), SLOT(draw(bool)));
    connect(bar, SIGNAL(freeShapeAsked(bool)), SLOT(setFreeShape(bool)));
    connect(bar, SIGNAL(allOfCameraAsked(bool)), SLOT(ask()));
    connect(bar, SIGNAL(clearAsked()), SLOT(clear()));
    connect(overlay, SIGNAL(areaChanged()), SLOT(changeArea()));
    connect(&player, SIGNAL(pictureMoved()), SLOT(placeOverlay()));
    connect(&list, SIGNAL(currentItemChanged(QListWidgetItem*, QListWidgetItem*)),
            SLOT(showCurrent(QListWidgetItem*)));
    connect(list.model(), SIGNAL(rowsInserted(QModelIndex, int, int)), SLOT(askLater()));
    connect(&filter, SIGNAL(changed()), SLOT(noteFilter()));
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(watch(QList<Video*>)));
    connect(&search, SIGNAL(answered(AreaAnswer)), SLOT(take(AreaAnswer)));
    connect(&search, SIGNAL(ended()), SLOT(endAnswers()));
    showArea();
}

AreaControl::~AreaControl() = default;

void AreaControl::setRecording(Video* video) {
    if (video == shown)
        return;
    shown = video;
    if (overlay->isDrawing() || !area.isEmpty())
        takeStill();
    showArea();
}

void AreaControl::clear() {
    area = {};
    drawnOn = nullptr;
    verdicts.forget();
    isSearching = false;
    later.stop();
    progress.stop();
    search.forget();
    filter.set(areaReason(), {});
    bar->setDrawing(false);
    showArea();
}

void AreaControl::showCurrent(QListWidgetItem* current) {
    if (current)
        setRecording(static_cast<Clip*>(current)->video);
}

void AreaControl::draw(bool isDrawing) {
    if (isDrawing)
        takeStill();
    overlay->setDrawing(isDrawing);
    showArea();
}

void AreaControl::setFreeShape(bool isFree) {
    overlay->setFreeShape(isFree);
    if (isFree)
        bar->setDrawing(true);
}

void AreaControl::placeOverlay() {
    overlay->setPlace(player.pictureRectangle());
}

void AreaControl::changeArea() {
    if (overlay->area().isEmpty()) {
        clear();
        return;
    }
    area = overlay->area();
    drawnOn = shown;
    verdicts.begin();
    ask();
}

void AreaControl::watch(const QList<Video*>& jobs) {
    for (Video* job : jobs)
        connect(job, SIGNAL(resultReady()), this, SLOT(askLater()));
}

void AreaControl::askLater() {
    if (!area.isEmpty() && !later.isActive())
        later.start();
}

void AreaControl::ask() {
    if (area.isEmpty())
        return;
    const QVector<AreaRecording> recordings = unjudged();
    isSearching = !recordings.isEmpty() && search.ask(area, recordings);
    applyFilter();
}

void AreaControl::take(const AreaAnswer& answer) {
    verdicts.take(answer);
    if (!progress.isActive())
        progress.start();
}

void AreaControl::applyFilter() {
    filter.set(areaReason(), [this](const Clip& clip) {
        return !isInScope(clip.video) || verdicts.mayMove(clip);
    });
    showArea();
}

void AreaControl::endAnswers() {
    isSearching = false;
    progress.stop();
    applyFilter();
}

/// Where no clip is hidden any more, somebody has had all of them shown.
void AreaControl::noteFilter() {
    if (!area.isEmpty() && !filter.isActive())
        clear();
}

void AreaControl::putBarBelowPicture() {
    auto* box = new QWidget(&player);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(player.widget(), 1);
    layout->addWidget(bar);
    player.setWidget(box);
}

/// The first picture tells how large the pictures are, too.
void AreaControl::takeStill() {
    placeOverlay();
    if (shown == stillOf)
        return;
    stillOf = shown;
    overlay->setStill({});
    if (!shown)
        return;
    stills.run(this, [this, video = shown, file = shown->fileName](const GuiCall& callBack) {
        QImage picture;
        grabFirstFrame(file, &picture);
        callBack([this, video, picture] { showStill(video, picture); });
    });
}

void AreaControl::showStill(Video* video, const QImage& picture) {
    if (video != stillOf)
        return;
    overlay->setStill(picture);
    showArea();
}

void AreaControl::showArea() {
    overlay->setArea(isInScope(shown) ? area : Area());
    bar->setClearable(!area.isEmpty());
    bar->setText(summary());
}

/// Searches of one recording that take each other's place have one folder.
bool AreaControl::isDrawnOn(const Video* video) const {
    return drawnOn && video && video->clipDirectory == drawnOn->clipDirectory;
}

bool AreaControl::isInScope(const Video* video) const {
    if (!video || area.isEmpty())
        return false;
    return isDrawnOn(video) || (bar->isForAllOfCamera() && !verdicts.isForeign(video));
}

/// First those of the recording on which the area was drawn.
QVector<AreaRecording> AreaControl::unjudged() const {
    QHash<const Video*, QList<const Clip*>> clips;
    for (const Clip* clip : list.clips())
        clips[clip->video].append(clip);
    QVector<AreaRecording> recordings;
    for (Video* job : queue.jobs()) {
        if (!isInScope(job) || !job->hasEnded() || !clips.contains(job))
            continue;
        const QVector<ClipSpan> spans = verdicts.questions(job, clips[job]);
        if (!spans.isEmpty())
            recordings.insert(isDrawnOn(job) ? 0 : recordings.size(), questionFor(*job, spans));
    }
    return recordings;
}

QString AreaControl::summary() const {
    if (area.isEmpty())
        return overlay->isDrawing() ? tr("Draw on the picture") : QString();
    if (isSearching)
        return tr("Searching...");
    int judged = 0;
    int moving = 0;
    bool isAnyUnmapped = false;
    for (const Clip* clip : list.clips()) {
        if (!isInScope(clip->video))
            continue;
        isAnyUnmapped = isAnyUnmapped || verdicts.isUnmapped(clip->video);
        judged += verdicts.isJudged(*clip) ? 1 : 0;
        moving += verdicts.isJudged(*clip) && verdicts.mayMove(*clip) ? 1 : 0;
    }
    if (judged == 0 && isAnyUnmapped)
        return tr("No maps of this recording are kept");
    const QString found = tr("Area: %1 of %n clips", nullptr, judged).arg(moving);
    return isAnyUnmapped ? tr("%1; of some recordings no maps are kept").arg(found) : found;
}
