// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "startoffer.h"

#include "startlookup.h"
#include "zonedtime.h"

#include <QBoxLayout>
#include <QDateTimeEdit>
#include <QFileInfo>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace {

QString offerText(const RecordingStart& start) {
    switch (start.source) {
    case StartSource::Name:
        return StartOffer::tr("Use %1 (from the name)");
    case StartSource::Container:
        return StartOffer::tr("Use %1 (from the video)");
    default:
        return StartOffer::tr("Use %1 (from the file)");
    }
}

QString doubtTip(StartDoubt doubt) {
    switch (doubt) {
    case StartDoubt::AmbiguousDay:
        return StartOffer::tr("The day in its name can be read in several ways.");
    case StartDoubt::HourMissing:
        return StartOffer::tr("The clock was put forward over that hour.");
    case StartDoubt::HourTwice:
        return StartOffer::tr("That hour came twice; this is the first one.");
    case StartDoubt::NoSeconds:
        return StartOffer::tr("The name has no seconds.");
    case StartDoubt::EpochSupposed:
        return StartOffer::tr("The number in the name is read as seconds since 1970.");
    case StartDoubt::Ahead:
        return StartOffer::tr("This computer's clock is more than a year from it.");
    case StartDoubt::ZoneSupposed:
        return StartOffer::tr("If the camera wrote it in UTC, as it should have.");
    default:
        return {};
    }
}

QString tip(const RecordingStart& start, const QString& text) {
    QStringList lines = {text};
    for (const StartDoubt doubt : start.doubts)
        lines += doubtTip(doubt);
    if (start.source == StartSource::FileTime)
        lines += StartOffer::tr("The file's last change, less the recording's length. A copy may "
                                "have another one.");
    lines.removeAll(QString());
    return lines.join('\n');
}

} // namespace

StartOffer::StartOffer(QDateTimeEdit& edit, QBoxLayout& layout)
    : edit(edit) {
    setObjectName(QStringLiteral("toolButtonFoundStart"));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    layout.insertWidget(layout.indexOf(&edit) + 1, this);
    hide();
    connect(this, SIGNAL(clicked()), SLOT(use()));
}

void StartOffer::lookAt(const QString& path) {
    forget();
    const QString absolute = QFileInfo(path).absoluteFilePath();
    const StartSearch search{zoneOfMachine(), std::nullopt};
    work.start([this, absolute, search](const NewestWork::IsInterrupted& isInterrupted) {
        const RecordingStart start = lookUpStart(absolute, search, isInterrupted);
        return [this, start] { offer(start); };
    });
}

void StartOffer::forget() {
    work.cancel();
    offered = {};
    hide();
}

void StartOffer::offer(const RecordingStart& start) {
    offered = start;
    setText(start.isKnown() ? offerText(start).arg(shownTime(start)) : QString());
    setToolTip(tip(start, text()));
    setVisible(start.isKnown());
}

/// As the field shows it, so that nobody takes the month for the day.
QString StartOffer::shownTime(const RecordingStart& start) const {
    return edit.locale().toString(start.wallClock(), edit.displayFormat());
}

/// On both sides of its text.
int StartOffer::frameWidth() const {
    return sizeHint().width() - fontMetrics().horizontalAdvance(text());
}

QString StartOffer::shownText() const {
    const int room = width() - frameWidth();
    const QString without = text().left(text().lastIndexOf(QLatin1String(" (")));
    // Eliding counts parts of pixels, and would take the end of a text that has just the room.
    for (const QString& shown : {text(), without}) {
        if (fontMetrics().horizontalAdvance(shown) <= room)
            return shown;
    }
    return fontMetrics().elidedText(without, Qt::ElideRight, room);
}

QSize StartOffer::minimumSizeHint() const {
    constexpr int shownCharacters = 12;
    const QString shown = text().left(shownCharacters);
    return {fontMetrics().horizontalAdvance(shown) + frameWidth(), sizeHint().height()};
}

void StartOffer::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.text = shownText();
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
}

void StartOffer::use() {
    edit.setDateTime(offered.wallClock());
}
