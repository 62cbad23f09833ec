// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commandlinepaths.h"

#include <QDir>
#include <QtTest>

namespace {

/// What becomes of a command line.
QList<QByteArray> absolute(QList<QByteArray> arguments) {
    std::vector<char*> pointers;
    for (QByteArray& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    CommandLinePaths paths(arguments.size(), pointers.data());
    QList<QByteArray> result;
    for (int i = 0; i < paths.count(); ++i)
        result.append(paths.arguments()[i]);
    return result;
}

QByteArray inCurrentDirectory(const QByteArray& name) {
    return QFile::encodeName(QDir::currentPath()) + '/' + name;
}

} // namespace

class TestCommandLinePaths : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void relativePaths();
    void optionsAreNone();
    void absolutePathsStay();
    void programAndEmptyOnesStay();
    void bytesStay();
    void listEndsWithNull();
};

void TestCommandLinePaths::relativePaths() {
    QCOMPARE(absolute({"kestrova", "a.mp4", "sub/b c.mp4"}),
             QList<QByteArray>(
                 {"kestrova", inCurrentDirectory("a.mp4"), inCurrentDirectory("sub/b c.mp4")}));
}

void TestCommandLinePaths::optionsAreNone() {
    QCOMPARE(absolute({"kestrova", "-style", "--help"}),
             QList<QByteArray>(
                 {"kestrova", inCurrentDirectory("-style"), inCurrentDirectory("--help")}));
}

void TestCommandLinePaths::absolutePathsStay() {
    QCOMPARE(absolute({"kestrova", "/videos/a.mp4"}),
             QList<QByteArray>({"kestrova", "/videos/a.mp4"}));
}

void TestCommandLinePaths::programAndEmptyOnesStay() {
    QCOMPARE(absolute({"./kestrova", ""}), QList<QByteArray>({"./kestrova", ""}));
}

void TestCommandLinePaths::bytesStay() {
    const QByteArray name = "gr\xfc\xdf"
                            "e.mp4"; // no UTF-8
    QCOMPARE(absolute({"kestrova", name}).last(), inCurrentDirectory(name));
}

void TestCommandLinePaths::listEndsWithNull() {
    char program[] = "kestrova";
    char* arguments[] = {program, nullptr};
    CommandLinePaths paths(1, arguments);
    QCOMPARE(paths.count(), 1);
    QCOMPARE(paths.arguments()[1], static_cast<char*>(nullptr));
}

QTEST_GUILESS_MAIN(TestCommandLinePaths)
#include "test_commandlinepaths.moc"
