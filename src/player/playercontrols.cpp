// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playercontrols.h"

#include "clocktext.h"
#include "playericons.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::array speedSteps = {0.25, 0.5, 1.0, 2.0, 4.0, 8.0, 16.0};
constexpr double perSecond = 1000.0; // steps of the slider
constexpr double mostSeconds = 2e6;  // that they can count

} // namespace

PlayerControls::PlayerControls(QWidget* parent)
    : QWidget(parent)
    , slider(new QSlider(Qt::Horizontal, this))
    , label(new QLabel(this))
    , previousButton(addButton("buttonPreviousClip", tr("Previous clip (P)")))
    , stepBackButton(addButton("buttonStepBack", tr("A picture back (comma)")))
    , playButton(addButton("buttonPlay", tr("Play or pause (Space)")))
    , stepForwardButton(addButton("buttonStepForward", tr("A picture on (full stop)")))
    , nextButton(addButton("buttonNextClip", tr("Next clip (N)")))
    , wholeButton(addButton("buttonWhole", tr("Whole recording")))
    , speeds(new QComboBox(this))
    , muteButton(addButton("buttonMute", tr("Mute (M)")))
    , fullScreenButton(addButton("buttonFullScreen", tr("Full screen (F)"))) {
    slider->setObjectName(QStringLiteral("sliderPosition"));
    slider->setAccessibleName(tr("Position"));
    slider->setSingleStep(int(perSecond));
    slider->setPageStep(int(10 * perSecond));
    slider->setFocusPolicy(Qt::TabFocus);
    slider->setMinimumWidth(40);
    label->setObjectName(QStringLiteral("labelPosition"));
    wholeButton->setText(tr("Whole"));
    wholeButton->setCheckable(true);
    muteButton->setCheckable(true);
    addSpeeds();
    setReady(false);
    layOut();
    showIcons();
    showTime();
    connect(slider, SIGNAL(valueChanged(int)), SLOT(askTime(int)));
    connect(slider, SIGNAL(sliderReleased()), SIGNAL(used()));
    connect(previousButton, SIGNAL(clicked()), SIGNAL(previousAsked()));
    connect(stepBackButton, SIGNAL(clicked()), SLOT(stepBack()));
    connect(playButton, SIGNAL(clicked()), SIGNAL(playAsked()));
    connect(stepForwardButton, SIGNAL(clicked()), SLOT(stepForward()));
    connect(nextButton, SIGNAL(clicked()), SIGNAL(nextAsked()));
    connect(wholeButton, SIGNAL(toggled(bool)), SIGNAL(wholeAsked(bool)));
    connect(muteButton, SIGNAL(toggled(bool)), SLOT(showMute()));
    connect(fullScreenButton, SIGNAL(clicked()), SIGNAL(fullScreenAsked()));
}

QToolButton* PlayerControls::addButton(const char* name, const QString& text) {
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(text);
    button->setToolTip(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, SIGNAL(clicked()), SIGNAL(used()));
    return button;
}

void PlayerControls::addSpeeds() {
    speeds->setObjectName(QStringLiteral("comboBoxSpeed"));
    speeds->setAccessibleName(tr("Speed"));
    speeds->setToolTip(tr("Speed"));
    speeds->setFocusPolicy(Qt::TabFocus);
    for (const double speed : speedSteps)
        speeds->addItem(QString::number(speed) + QChar(0xD7), speed);
    speeds->setCurrentIndex(speeds->findData(1.0));
    connect(speeds, SIGNAL(currentIndexChanged(int)), SLOT(askSpeed()));
    connect(speeds, SIGNAL(activated(int)), SIGNAL(used()));
}

void PlayerControls::layOut() {
    auto* rows = new QVBoxLayout(this);
    auto* position = new QHBoxLayout;
    auto* buttons = new QHBoxLayout;
    rows->setContentsMargins(4, 2, 4, 4);
    rows->setSpacing(2);
    buttons->setSpacing(1);
    position->addWidget(slider, 1);
    position->addWidget(label);
    for (QToolButton* button :
         {previousButton, stepBackButton, playButton, stepForwardButton, nextButton})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(wholeButton);
    buttons->addWidget(speeds);
    buttons->addWidget(muteButton);
    buttons->addWidget(fullScreenButton);
    rows->addLayout(position);
    rows->addLayout(buttons);
}

void PlayerControls::setRange(double start, double end) {
    from = std::max(start, 0.0);
    to = std::clamp(end, from, from + mostSeconds);
    const QSignalBlocker blocker(slider);
    slider->setRange(0, int(std::lround((to - from) * perSecond)));
    setTime(from);
}

void PlayerControls::setTime(double seconds) {
    now = seconds;
    showTime();
    if (slider->isSliderDown())
        return;
    const QSignalBlocker blocker(slider);
    slider->setValue(int(std::lround(std::clamp(now - from, 0.0, mostSeconds) * perSecond)));
}

void PlayerControls::showTime() {
    label->setText(elapsedText(now) + QStringLiteral(" / ") + elapsedText(to));
}

void PlayerControls::setPlaying(bool isPlaying) {
    playing = isPlaying;
    playButton->setIcon(playerIcon(playing ? PlayerSign::Pause : PlayerSign::Play, *playButton));
}

void PlayerControls::setReady(bool isReady) {
    const std::array<QWidget*, 4> controls = {slider, stepBackButton, playButton,
                                              stepForwardButton};
    const auto hasFocus = [](const QWidget* control) { return control->hasFocus(); };
    if (!isReady && std::any_of(controls.begin(), controls.end(), hasFocus))
        Q_EMIT used();
    for (QWidget* control : controls)
        control->setEnabled(isReady);
}

bool PlayerControls::isReady() const {
    return slider->isEnabled();
}

double PlayerControls::speed() const {
    return speeds->currentData().toDouble();
}

bool PlayerControls::isMuted() const {
    return muteButton->isChecked();
}

void PlayerControls::toggleMute() {
    muteButton->toggle();
}

bool PlayerControls::isWhole() const {
    return wholeButton->isChecked();
}

void PlayerControls::askTime(int position) {
    Q_EMIT timeAsked(from + position / perSecond);
}

void PlayerControls::askSpeed() {
    Q_EMIT speedAsked(speed());
}

void PlayerControls::showMute() {
    const PlayerSign sign = isMuted() ? PlayerSign::Mute : PlayerSign::Sound;
    muteButton->setIcon(playerIcon(sign, *muteButton));
    Q_EMIT muteAsked(isMuted());
}

void PlayerControls::showIcons() {
    setPlaying(playing);
    previousButton->setIcon(playerIcon(PlayerSign::Previous, *previousButton));
    stepBackButton->setIcon(playerIcon(PlayerSign::StepBack, *stepBackButton));
    stepForwardButton->setIcon(playerIcon(PlayerSign::StepForward, *stepForwardButton));
    nextButton->setIcon(playerIcon(PlayerSign::Next, *nextButton));
    muteButton->setIcon(playerIcon(isMuted() ? PlayerSign::Mute : PlayerSign::Sound, *muteButton));
    fullScreenButton->setIcon(playerIcon(PlayerSign::Full, *fullScreenButton));
}

void PlayerControls::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showIcons();
}
