// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "toolkit.h"

#include <QStringList>
#include <QThreadPool>

#include <cstdio>
#include <cstdlib>

namespace {

QStringList warnings; ///< of the toolkit, while it connects

/// The first warning tells the reason; those behind it name the platforms that there would be.
[[noreturn]] void endWithoutDisplay() {
    const QString reason = warnings.value(0, QStringLiteral("there is no display")).simplified();
    std::fprintf(stderr,
                 "kestrova: cannot open a window: %s; kestrova-scan searches recordings "
                 "without one\n",
                 qPrintable(reason));
    std::_Exit(EXIT_FAILURE);
}

void holdMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg)
        endWithoutDisplay();
    warnings.append(message);
}

} // namespace

std::unique_ptr<QApplication> connectToDisplay(int& count, char** arguments) {
    const QtMessageHandler usual = qInstallMessageHandler(holdMessage);
    auto application = std::make_unique<QApplication>(count, arguments);
    qInstallMessageHandler(usual);
    for (const QString& warning : qAsConst(warnings))
        qWarning("%s", qPrintable(warning));
    warnings.clear();
    return application;
}

void keepToolkitThread() {
    constexpr int forEver = -1;
    QThreadPool* pool = QThreadPool::globalInstance();
    pool->setMaxThreadCount(1);
    pool->setExpiryTimeout(forEver);
    pool->start([] {});
}
