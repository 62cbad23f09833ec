#pragma once

#include <QByteArray>

/// The fewest digits that read back to the same number.
QByteArray shortestDigits(float value);
QByteArray shortestDigits(double value);
