// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

/// Puts an encoder beside the running test program, which must have a folder to itself.
class EncoderStand {
public:
    /// Starts with the recorder, ending with status 0.
    EncoderStand();

    /// Takes the encoder away.
    ~EncoderStand();
    EncoderStand(const EncoderStand&) = delete;
    EncoderStand& operator=(const EncoderStand&) = delete;

    /// Installs the stand-in that only notes its arguments.
    void useRecorder();

    /// Installs the real encoder and the font of its overlay.
    void useRealEncoder();

    /// Installs a shell script.
    void useScript(const QByteArray& script);

    /// Leaves no encoder.
    void useNone();

    /// How the recorder's following calls end: "0", "1", "crash", "verbose", "empty" or "none" (see
    /// recorder.cpp).
    void setEnd(const QByteArray& end);

    /// From now on the recorder's calls do not end before `release`.
    void hold();
    void release();

    /// Lets only the call end that writes this file ("0000.avi").
    void releaseOutput(const QString& name);

    /// From now on the recorder's calls do not end when they are asked to terminate.
    void beStubborn();

    /// The names, a line each, of output files that two of the recorder's calls had at once.
    QByteArray clashes() const;

    /// The arguments of the recorder's calls so far, in their order.
    QList<QStringList> calls() const;

    /// The output files of these calls, their last arguments, without their folders.
    QStringList outputs() const;

private:
    void install(const QString& target, const QString& name);
    void lend(const char* variable, const QString& name);
    void write(const QString& name, const QByteArray& content);
    QString filePath(const QString& name) const;

    QTemporaryDir folder;
    QVector<int> lent; ///< descriptors
};
