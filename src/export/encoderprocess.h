#pragma once

#include <QProcess>

/// One encoder run. Made with new and left to itself: it has no owner and deletes itself when the
/// run has ended, whether or not someone still listens.
///
/// Destroying a process object would kill its process. So an encoder that still runs when the
/// program ends keeps its object, and runs on to its own end.
class EncoderProcess : public QProcess {
    Q_OBJECT

public:
    EncoderProcess();
    ~EncoderProcess() override;

    /// Runs the encoder that lies beside the running program.
    void startEncoder(const QStringList& arguments);

private Q_SLOTS:
    void deleteUnstarted(QProcess::ProcessError error);
};
