// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "addedfiles.h"
#include "dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QSettings>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

namespace {

void touch(const QString& fileName) {
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void enter(QFileDialog& dialog, const QString& text) {
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(text);
    static_cast<QDialog&>(dialog).metaObject()->invokeMethod(&dialog, "accept");
}

} // namespace

class TestAddedFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void filesComeInTheDialogsOrder();
    void everyFileMayBeChosen();
    void firstDialogsOpenInTheStartDirectory();
    void nextDialogOpensWhereTheFirstFileWas();
    void cancelledFilesChangeNothing();
    void directoryGivesAllFilesBelow();
    void emptyDirectoryGivesAnEmptyList();
    void cancelledDirectoryChangesNothing();
    void dropsKeepTheirOrder();
    void dropsFromElsewhereAreRefused();

private:
    QString path(const QString& name) const { return folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> folder;
};

void TestAddedFiles::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestAddedFiles::init() {
    QSettings().clear();
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(folder->path()).mkpath("videos/deep/deeper"));
    for (const char* name : {"videos/b.mp4", "videos/a.txt", "videos/.hidden.mp4",
                             "videos/deep/deeper/c", "other.mp4"})
        touch(path(name));
}

void TestAddedFiles::cleanup() {
    folder.reset();
}

void TestAddedFiles::filesComeInTheDialogsOrder() {
    DialogAnswer<QFileDialog> answer([this](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Select one or more files to open"));
        enter(dialog, QString("\"%1\" \"%2\"").arg(path("videos/b.mp4"), path("other.mp4")));
    });
    QCOMPARE(askForFiles(nullptr, QString()),
             QStringList({path("videos/b.mp4"), path("other.mp4")}));
    QVERIFY(answer.wasShown());
    QCOMPARE(QSettings().value("last_files").toString(), path("videos"));
}

void TestAddedFiles::everyFileMayBeChosen() {
    DialogAnswer<QFileDialog> answer([](QFileDialog& dialog) {
        QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFiles);
        QVERIFY(dialog.nameFilters() == QStringList({QFileDialog::tr("All Files (*)")}));
        dialog.reject();
    });
    askForFiles(nullptr, QString());
    QVERIFY(answer.wasShown());
}

void TestAddedFiles::firstDialogsOpenInTheStartDirectory() {
    // Not in the current one, nor where the dialog was before.
    QString shown;
    const auto look = [&shown](QFileDialog& dialog) {
        shown = dialog.directory().path();
        dialog.reject();
    };
    const DialogAnswer<QFileDialog> first(look);
    askForFiles(nullptr, path("videos/deep"));
    QCOMPARE(shown, path("videos/deep"));
    const DialogAnswer<QFileDialog> second(look);
    askForDirectoryFiles(nullptr, path("videos"));
    QCOMPARE(shown, path("videos"));
}

void TestAddedFiles::nextDialogOpensWhereTheFirstFileWas() {
    QSettings().setValue("last_files", path("videos/deep"));
    DialogAnswer<QFileDialog> answer([this](QFileDialog& dialog) {
        QCOMPARE(dialog.directory().path(), path("videos/deep"));
        dialog.reject();
    });
    askForFiles(nullptr, QString());
    QVERIFY(answer.wasShown());
}

void TestAddedFiles::cancelledFilesChangeNothing() {
    QSettings().setValue("last_files", path("videos"));
    DialogAnswer<QFileDialog> answer([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(askForFiles(nullptr, QString()).isEmpty());
    QVERIFY(answer.wasShown());
    QCOMPARE(QSettings().value("last_files").toString(), path("videos"));
}

void TestAddedFiles::directoryGivesAllFilesBelow() {
    QSettings().setValue("last_dir", folder->path());
    QVERIFY(QFile::link(path("videos"), path("videos/deep/loop")));
    DialogAnswer<QFileDialog> answer([this](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Select folder to add"));
        QCOMPARE(dialog.directory().path(), folder->path());
        QVERIFY(dialog.testOption(QFileDialog::ShowDirsOnly));
        enter(dialog, path("videos"));
    });
    auto files = askForDirectoryFiles(nullptr, QString());
    QVERIFY(answer.wasShown());
    QVERIFY(files.has_value());
    files->sort();
    QCOMPARE(*files, QStringList({path("videos/a.txt"), path("videos/b.mp4"),
                                  path("videos/deep/deeper/c")}));
    QCOMPARE(QSettings().value("last_dir").toString(), path("videos"));
}

void TestAddedFiles::emptyDirectoryGivesAnEmptyList() {
    QVERIFY(QDir(folder->path()).mkpath("empty/inside"));
    DialogAnswer<QFileDialog> answer([this](QFileDialog& dialog) { enter(dialog, path("empty")); });
    const auto files = askForDirectoryFiles(nullptr, QString());
    QVERIFY(answer.wasShown());
    QVERIFY(files.has_value());
    QVERIFY(files->isEmpty());
}

void TestAddedFiles::cancelledDirectoryChangesNothing() {
    QSettings().setValue("last_dir", path("videos"));
    DialogAnswer<QFileDialog> answer([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(!askForDirectoryFiles(nullptr, QString()).has_value());
    QVERIFY(answer.wasShown());
    QCOMPARE(QSettings().value("last_dir").toString(), path("videos"));
}

void TestAddedFiles::dropsKeepTheirOrder() {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path("other.mp4")), QUrl::fromLocalFile(path("videos/deep")),
                  QUrl("https://example.org/far.mp4"), QUrl::fromLocalFile(path("videos/b.mp4"))});
    QVERIFY(canBeDropped(data));
    QCOMPARE(droppedFiles(data),
             QStringList({path("other.mp4"), path("videos/deep/deeper/c"), path("videos/b.mp4")}));
    QCOMPARE(QSettings().value("last_files").toString(), folder->path());
    QCOMPARE(QSettings().value("last_dir").toString(), path("videos/deep"));
}

void TestAddedFiles::dropsFromElsewhereAreRefused() {
    QMimeData text;
    text.setText(path("other.mp4"));
    QVERIFY(!canBeDropped(text));
    QMimeData remote;
    remote.setUrls({QUrl("https://example.org/far.mp4")});
    QVERIFY(!canBeDropped(remote));
}

QTEST_MAIN(TestAddedFiles)
#include "test_addedfiles.moc"
