// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderprocess.h"

#include "confinement.h"
#include "encoderarguments.h"

#include <QSet>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int graceMilliseconds = 3000;

/// The runs that have not ended: keeps those reachable that outlive the program. Never destroyed
/// itself.
QSet<EncoderProcess*>& unended() {
    static auto* processes = new QSet<EncoderProcess*>;
    return *processes;
}

QString joined(const QString& outcome, const QString& reason) {
    return reason.isEmpty() ? outcome : outcome + QStringLiteral(": ") + reason;
}

std::unique_ptr<const Confinement> confinementOf(Grants grants) {
    grants.programs += encoderPath();
    auto confinement = std::make_unique<const Confinement>(grants);
    if (!confinement->failure().isEmpty())
        qWarning("the encoder cannot be confined, and runs without: %s",
                 qPrintable(confinement->failure()));
    return confinement;
}

} // namespace

EncoderProcess::EncoderProcess(QObject* client)
    : client(client) {
    unended().insert(this);
    connect(this, SIGNAL(finished(int, QProcess::ExitStatus)), SLOT(leave()));
    connect(this, SIGNAL(errorOccurred(QProcess::ProcessError)),
            SLOT(leaveUnstarted(QProcess::ProcessError)));
    connect(this, SIGNAL(readyReadStandardError()), SLOT(listen()));
    connect(this, SIGNAL(readyReadStandardOutput()), SLOT(listen()));
}

EncoderProcess::~EncoderProcess() {
    unended().remove(this);
}

void EncoderProcess::startEncoder(const QStringList& arguments, const Grants& grants,
                                  const Hindrance& hindrance) {
    setProgram(encoderPath());
    confinement = confinementOf(grants);
    setArguments(arguments);
    const QList<EncoderProcess*> others = otherRuns();
    for (EncoderProcess* other : others) {
        other->disconnect(client);
        if (other->state() == QProcess::NotRunning) {
            other->leave();
        } else {
            connect(other, SIGNAL(destroyed()), SLOT(startWhenAlone()));
            other->end();
        }
    }
    if (hindrance)
        ask(hindrance);
    startWhenAlone();
}

bool EncoderProcess::isAnyRunning() {
    return !unended().isEmpty();
}

bool EncoderProcess::isRunningFor(const QObject* client) {
    return std::any_of(unended().cbegin(), unended().cend(),
                       [client](const EncoderProcess* run) { return run->client == client; });
}

QString EncoderProcess::failure() const {
    if (!refusal.isEmpty())
        return refusal;
    if (error() == QProcess::FailedToStart)
        return joined(tr("the encoder cannot be started"), errorString());
    if (error() == QProcess::Crashed)
        return joined(tr("the encoder crashed"), log.reason());
    const QString reason = log.reason();
    return reason.isEmpty() ? tr("the encoder failed") : reason;
}

/// Between fork and exec, where other threads may hold any lock: system calls alone.
void EncoderProcess::setupChildProcess() {
    confinement->apply();
}

void EncoderProcess::leave() {
    unended().remove(this);
    deleteLater();
}

/// A process that could not start never finishes.
void EncoderProcess::leaveUnstarted(QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart)
        leave();
}

/// Takes away what has been said: it would be kept in memory until someone reads it.
void EncoderProcess::listen() {
    log.append(readAllStandardError());
    readAllStandardOutput();
}

void EncoderProcess::startWhenAlone() {
    if (!unended().contains(this))
        return;
    if (!client)
        leave();
    else if (!isAsking && otherRuns().isEmpty())
        start(QIODevice::ReadWrite);
}

/// Where there is no thread to ask on, it is asked here.
void EncoderProcess::ask(const Hindrance& hindrance) {
    isAsking = true;
    if (client)
        connect(client, SIGNAL(destroyed()), SLOT(stopAsking()));
    thread = std::make_unique<BackgroundThread>();
    const bool isAsked = thread->run(this, [this, hindrance](const GuiCall& callBack) {
        const QString answer = hindrance();
        callBack([this, answer] { takeAnswer(answer); });
    });
    if (isAsked)
        return;
    const QString answer = hindrance();
    QMetaObject::invokeMethod(
        this, [this, answer] { takeAnswer(answer); }, Qt::QueuedConnection);
}

/// Nobody wants it any more, and the program may be about to end.
void EncoderProcess::stopAsking() {
    if (!isAsking)
        return;
    thread.reset();
    leave();
}

void EncoderProcess::takeAnswer(const QString& answer) {
    isAsking = false;
    thread.reset();
    refusal = answer;
    if (refusal.isEmpty())
        startWhenAlone();
    else
        Q_EMIT errorOccurred(QProcess::FailedToStart);
}

/// The other runs for the same client that have not ended.
QList<EncoderProcess*> EncoderProcess::otherRuns() const {
    QList<EncoderProcess*> others;
    for (EncoderProcess* process : qAsConst(unended())) {
        if (client && process != this && process->client == client)
            others.append(process);
    }
    return others;
}

/// Without waiting for it. A process that has not become the encoder yet would deal with the signal
/// as this program does.
void EncoderProcess::end() {
    if (state() == QProcess::Starting) {
        connect(this, SIGNAL(started()), SLOT(end()));
        return;
    }
    terminate();
    QTimer::singleShot(graceMilliseconds, this, SLOT(kill()));
}
