#include "application.h"

#include "applicationicon.h"
#include "commandlinepaths.h"
#include "filenamecodec.h"
#include "mainwindow.h"
#include "picturesearch.h"
#include "workerthread.h"

#include <QApplication>

#include <cstdlib>

namespace {

int showMainWindow() {
    MainWindow window;
    window.show();
    return QApplication::exec();
}

} // namespace

int runApplication(int argc, char* argv[]) {
    installFileNameCodec();
    CommandLinePaths paths(argc, argv);
    QApplication application(paths.count(), paths.arguments());
    QCoreApplication::setOrganizationName(QStringLiteral("kestrova"));
    QCoreApplication::setApplicationName(QStringLiteral("kestrova"));
    QGuiApplication::setWindowIcon(applicationIcon());

    const int status = showMainWindow();
    // A thread that is still busy must not find the program's globals destroyed.
    if (WorkerThread::isAnyAbandoned() || PictureSearch::isAnyAbandoned())
        std::_Exit(status);
    return status;
}
