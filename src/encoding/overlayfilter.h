#pragma once

#include <QDate>
#include <QString>

/// The encoder's filter that writes date and time of day into the picture's top left corner.
///
/// The time runs on from `secondOfDay` with the frames; the date stands still. The encoder looks
/// for the font DejaVuSansMono.ttf in its current directory.
QString overlayFilter(const QDate& date, int secondOfDay);
