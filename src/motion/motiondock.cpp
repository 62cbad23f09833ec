// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motiondock.h"

#include "clocktext.h"
#include "detectionqueue.h"
#include "escaping.h"
#include "livemotion.h"
#include "recordingmotion.h"
#include "ui_motiondock.h"
#include "video.h"

#include <QAction>
#include <QKeyEvent>
#include <QShortcut>

#include <algorithm>
#include <cmath>

namespace {

constexpr int redrawMilliseconds = 100;

double secondsInAll(const QVector<TimeRange>& clips) {
    double seconds = 0.0;
    for (const TimeRange& clip : clips)
        seconds += clip.to - clip.from;
    return seconds;
}

} // namespace

MotionDock::MotionDock(DetectionQueue& queue, QWidget* parent)
    : QDockWidget(tr("Motion"), parent)
    , queue(queue)
    , ui(std::make_unique<Ui::MotionDock>())
    , live(new LiveMotion(this)) {
    setObjectName(QStringLiteral("dockMotion"));
    auto* contents = new QWidget(this);
    ui->setupUi(contents);
    contents->setFocusProxy(ui->motionStrip);
    setWidget(contents);
    liveTimer.setSingleShot(true);
    liveTimer.setInterval(redrawMilliseconds);
    connectParts();
    showOptions();
}

MotionDock::~MotionDock() = default;

void MotionDock::connectParts() {
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(followJobs(QList<Video*>)));
    connect(&queue, SIGNAL(letGoOfJob()), SLOT(decideAtLast()));
    connect(live, SIGNAL(grown()), SLOT(showLive()));
    connect(&liveTimer, SIGNAL(timeout()), SLOT(showLive()));
    connect(&work, SIGNAL(failed()), SLOT(sayNoThread()));
    connect(ui->decidingForm, SIGNAL(changed()), SLOT(decide()));
    connect(ui->motionStrip, SIGNAL(thresholdChosen(double)), ui->decidingForm,
            SLOT(setThreshold(double)));
    connect(ui->motionStrip, SIGNAL(timeChosen(double)), SIGNAL(timeChosen(double)));
    connect(ui->pushButtonUse, SIGNAL(clicked()), SLOT(use()));
    connect(ui->pushButtonUseForAll, SIGNAL(clicked()), SLOT(useForAll()));
    connect(ui->pushButtonUndo, SIGNAL(clicked()), SIGNAL(undoAsked()));
    auto* undo = new QShortcut(QKeySequence::Undo, this);
    undo->setContext(Qt::WidgetWithChildrenShortcut);
    connect(undo, SIGNAL(activated()), ui->pushButtonUndo, SLOT(click()));
    for (QWidget* part : findChildren<QWidget*>())
        part->installEventFilter(this);
}

Video* MotionDock::shownJob() const {
    return shown;
}

void MotionDock::setListed(const QVector<ListedSpan>& clips) {
    listedCount = clips.size();
    ui->motionStrip->setListed(clips);
    sayAnswer();
}

void MotionDock::setUndoable(bool isUndoable) {
    ui->pushButtonUndo->setEnabled(isUndoable);
}

void MotionDock::showJob(Video* video) {
    if (shown == video)
        return;
    if (shown)
        disconnect(shown, SIGNAL(resultReady()), this, SLOT(takeJobEnd()));
    shown = video;
    listedCount = 0;
    if (video)
        connect(video, SIGNAL(resultReady()), SLOT(takeJobEnd()));
    setWindowTitle(video ? tr("Motion: %1").arg(withoutMnemonics(video->shortFileName()))
                         : tr("Motion"));
    toggleViewAction()->setText(tr("Motion")); // of buttons and menus
    const bool isClockKnown = video && video->exportTimestamps;
    ui->motionStrip->showRecording(video ? video->shortFileName() : QString(),
                                   isClockKnown ? video->startDateTime : QDateTime());
    forgetMotion();
    showOptions();
    Q_EMIT jobShown();
}

void MotionDock::showOptions() {
    ui->decidingForm->setEnabled(shown);
    if (shown) {
        const DecidingOptions options = decidingOptionsOf(*shown);
        searchedWith = options.detector;
        ui->decidingForm->setOptions(options);
    }
    decide();
}

/// Return opens the clips that are selected in the list, but here it ends the typing of a number.
bool MotionDock::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter)
            event->accept();
    }
    return QDockWidget::eventFilter(watched, event);
}

/// What was read for it takes memory.
void MotionDock::hideEvent(QHideEvent* event) {
    QDockWidget::hideEvent(event);
    forgetMotion();
}

void MotionDock::showEvent(QShowEvent* event) {
    QDockWidget::showEvent(event);
    decide();
    Q_EMIT jobShown();
}

void MotionDock::followJobs(const QList<Video*>& jobs) {
    live->follow(jobs);
}

void MotionDock::takeJobEnd() {
    forgetMotion();
    decide();
}

/// The queue hears of a job's end after us, and of one that ended while we did not listen.
void MotionDock::decideAtLast() {
    if (!motion)
        decide();
}

/// At most ten times a second.
void MotionDock::showLive() {
    if (!shown || motion || liveTimer.isActive() || !isVisible())
        return;
    const auto measured = live->motionOf(*shown);
    if (!measured)
        return;
    ui->motionStrip->setMotion(measured, unit());
    if (sender() == live)
        liveTimer.start();
}

/// Asks what the chosen options find, where that can be told.
void MotionDock::decide() {
    const DecidingForm& form = *ui->decidingForm;
    ui->motionStrip->setThreshold(double(form.options().segmentation.motionThreshold.value),
                                  form.highestThreshold(), form.thresholdStep());
    if (!isVisible())
        return;
    if (!shown || !queue.isOver(*shown)) {
        takeAnswer({shown ? live->motionOf(*shown) : nullptr, {}});
        return;
    }
    if (!motion)
        motion = std::make_shared<RecordingMotion>(*shown);
    const auto ask = [this, source = motion, options = form.options()](const auto&) {
        Answer found{source->pyramidOf(options), {}};
        const auto clips = source->clips(options).value_or(QVector<DetectedClip>());
        for (const DetectedClip& clip : clips)
            found.clips.append({clip.start, clip.end});
        return [this, found] { takeAnswer(found); };
    };
    work.start(ask);
}

void MotionDock::use() {
    Q_EMIT useAsked(ui->decidingForm->options(), false);
}

void MotionDock::useForAll() {
    Q_EMIT useAsked(ui->decidingForm->options(), true);
}

void MotionDock::sayNoThread() {
    say(tr("Cannot be worked out now: there is no thread or no memory for it"));
}

void MotionDock::forgetMotion() {
    work.cancel();
    motion.reset();
    answer = {};
}

void MotionDock::takeAnswer(const Answer& newAnswer) {
    answer = newAnswer;
    ui->motionStrip->setMotion(answer.motion, unit());
    ui->motionStrip->setWouldBe(answer.clips);
    enableUse(motion && answer.motion);
    sayAnswer();
}

void MotionDock::sayAnswer() {
    if (!motion || !answer.motion)
        return say(reasonForNothing());
    const QString length = elapsedText(secondsInAll(answer.clips));
    const QString now = QString::number(listedCount);
    const int count = answer.clips.size();
    say(count == 1 ? tr("1 clip, %1 long; now %2").arg(length, now)
                   : tr("%1 clips, %2 in all; now %3").arg(QString::number(count), length, now));
}

void MotionDock::say(const QString& text) {
    ui->labelWouldBe->setText(text);
}

void MotionDock::enableUse(bool isEnabled) {
    ui->pushButtonUse->setEnabled(isEnabled);
    ui->pushButtonUseForAll->setEnabled(isEnabled);
}

QString MotionDock::reasonForNothing() const {
    if (!shown)
        return tr("Choose a recording or one of its clips");
    if (shown->state == Video::Waiting)
        return tr("Not searched yet");
    if (!queue.isOver(*shown))
        return tr("Being searched");
    if (ui->decidingForm->options().detector == Detector::Cells)
        return tr("No maps of changed cells are kept of this recording");
    if (shown->state == Video::CancelRequested)
        return tr("Its search was cancelled");
    return tr("Nothing was measured of this recording");
}

/// What is measured at the moment are the values of the detector that searches.
QString MotionDock::unit() const {
    const Detector detector = motion ? ui->decidingForm->options().detector : searchedWith;
    return detector == Detector::Cells ? QStringLiteral(" %") : QString();
}
