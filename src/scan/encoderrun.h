#pragma once

#include <QString>
#include <QStringList>

/// Runs the encoder beside the program to its end; only one runs at a time, whoever asks. Answers
/// why it failed, empty after a success.
///
/// An interrupt of the program ends the encoder as well, which then finishes its file early.
QString runEncoder(const QStringList& arguments);
