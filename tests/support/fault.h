#pragma once

#include <QProcessEnvironment>
#include <QString>

/// A system call that fails in a process and its children; failingcalls.cpp tells which there are.
struct Fault {
    QByteArray call;
    int error = 0;       ///< its errno
    QString file;        ///< a part of the paths of the files concerned
    int roomInBytes = 0; ///< that writes take in each process before they fail
};

/// The environment that brings it about.
QProcessEnvironment environmentWith(const Fault& fault);
