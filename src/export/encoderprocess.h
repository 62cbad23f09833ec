// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backgroundthread.h"
#include "encoderlog.h"
#include "filerules.h"

#include <QPointer>
#include <QProcess>

#include <functional>
#include <memory>

class Confinement;

/// One encoder run. Made with new and left to itself: it has no owner and deletes itself when the
/// run has ended, whether or not someone still listens.
///
/// Destroying a process object would kill its process. So an encoder that still runs when the
/// program ends keeps its object, and runs on to its own end.
class EncoderProcess : public QProcess {
    Q_OBJECT

public:
    /// `client` is whom the run is for; there is never more than one encoder for it.
    explicit EncoderProcess(QObject* client);
    ~EncoderProcess() override;

    /// Runs the encoder that lies beside the running program, confined to `grants` (`Confinement`)
    /// and itself.
    ///
    /// Older runs for the same client are ended, and their signals no longer reach it. This one
    /// starts when they are gone, which can be later; not at all if the client goes before that.
    ///
    /// `hindrance`, where there is one, is asked beside the GUI thread before it starts: a reason
    /// that it answers, for a person, ends the run as one that cannot be started.
    using Hindrance = std::function<QString()>;
    void startEncoder(const QStringList& arguments, const Grants& grants,
                      const Hindrance& hindrance = nullptr);

    /// Whether some run has not ended, whoever it is for.
    static bool isAnyRunning();

    /// Whether a run for this client has not ended.
    static bool isRunningFor(const QObject* client);

    /// Why the run that has ended failed, for a person; what the encoder said last if it did not.
    QString failure() const;

protected:
    void setupChildProcess() override;

private Q_SLOTS:
    void leave();
    void leaveUnstarted(QProcess::ProcessError error);
    void listen();
    void startWhenAlone();
    void end();
    void stopAsking();

private:
    void ask(const Hindrance& hindrance);
    void takeAnswer(const QString& answer);
    QList<EncoderProcess*> otherRuns() const;

    QPointer<QObject> client;
    EncoderLog log;
    std::unique_ptr<const Confinement> confinement; ///< from `startEncoder` on
    bool isAsking = false;                          ///< whether something hinders it
    QString refusal;                                ///< what hinders it
    std::unique_ptr<BackgroundThread> thread;       ///< on which that is asked
};
