// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "translation.h"

#include "clip.h"
#include "mainwindow.h"
#include "recordingmenu.h"
#include "searchagaindialog.h"
#include "settingsdialog.h"
#include "setupwindow.h"
#include "video.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSettings>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

/// All three windows, as they are right after the start.
struct Windows {
    MainWindow main;
    SetupWindow setup;
    SettingsDialog settings;

    QList<QWidget*> all() { return {&main, &setup, &settings}; }
};

/// What a person can change, or what changes by itself, has no text of the program's.
bool isValue(const QObject& object) {
    return object.inherits("QAbstractSpinBox") || object.inherits("QLineEdit") ||
           object.inherits("QProgressBar");
}

/// Signs and times are the same in every language.
bool hasLetters(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar sign) { return sign.isLetter(); });
}

/// Every text of a window, in an order that is always the same.
QStringList textsOf(QWidget& window) {
    QStringList texts{window.windowTitle()};
    for (const QObject* object : window.findChildren<QObject*>()) {
        if (!isValue(*object))
            texts.append(object->property("text").toString());
        texts.append(object->property("toolTip").toString());
        texts.append(object->property("title").toString());
    }
    texts.erase(std::remove_if(texts.begin(), texts.end(),
                               [](const QString& text) { return !hasLetters(text); }),
                texts.end());
    return texts;
}

/// The names of labels and buttons that are narrower than their text.
QStringList cutOff(const QWidget& window) {
    QStringList names;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool hasText = qobject_cast<const QAbstractButton*>(widget) ||
                             qobject_cast<const QLabel*>(widget) ||
                             qobject_cast<const QDateTimeEdit*>(widget);
        if (hasText && widget->isVisible() && widget->width() < widget->sizeHint().width())
            names.append(widget->objectName());
    }
    return names;
}

/// The letters that are pressed with Alt in a window or a menu, each as often as it is given.
QStringList accelerators(const QWidget& window) {
    QStringList texts;
    for (const auto* button : window.findChildren<QAbstractButton*>())
        texts.append(button->text());
    for (const auto* label : window.findChildren<QLabel*>())
        texts.append(label->buddy() ? label->text() : QString());
    for (const auto* bar : window.findChildren<QMenuBar*>())
        for (const auto* action : bar->actions())
            texts.append(action->text());
    for (const auto* action : window.actions())
        texts.append(action->text());
    QStringList keys;
    for (const QString& text : texts)
        keys.append(QKeySequence::mnemonic(text).toString());
    keys.removeAll({});
    return keys;
}

QStringList shortcuts(const QWidget& window) {
    QStringList keys;
    for (const auto* action : window.findChildren<QAction*>())
        keys.append(action->shortcut().toString(QKeySequence::PortableText));
    return keys;
}

QStringList placeholders(const QString& text) {
    QStringList found;
    auto matches = QRegularExpression("%[0-9n]").globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured());
    found.sort();
    return found;
}

/// What a text is translated as; of one that counts each of its forms. The reader stands at its
/// beginning.
QStringList formsOf(QXmlStreamReader& reader) {
    QString plain;
    QStringList forms;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isEndElement() && reader.name() == "translation")
            break;
        if (reader.isStartElement() && reader.name() == "numerusform")
            forms.append(reader.readElementText());
        else if (reader.isCharacters())
            plain += reader.text();
    }
    return forms.isEmpty() ? QStringList(plain) : forms;
}

/// Makes every text four times as long.
class LongTexts : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* text, const char*, int) const override {
        return QString(text).repeated(4);
    }
};

} // namespace

class TestTranslation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void threeLanguagesAreSpoken();
    void firstWantedLanguageIsSpoken_data();
    void firstWantedLanguageIsSpoken();
    void nothingIsMissing_data() { addLanguages(); }
    void nothingIsMissing();
    void placeholdersStay_data() { addLanguages(); }
    void placeholdersStay();
    void everyTextIsTranslated_data() { addLanguages(); }
    void everyTextIsTranslated();
    void toolkitIsTranslated_data() { addLanguages(); }
    void toolkitIsTranslated();
    void countsAreSaidRight_data();
    void countsAreSaidRight();
    void captionsAreTranslated();
    void acceleratorsAreTheirOwn_data();
    void acceleratorsAreTheirOwn();
    void shortcutsStay_data() { addLanguages(); }
    void shortcutsStay();
    void everythingFits_data();
    void everythingFits();
    void everythingFitsOnASmallScreen_data() { acceleratorsAreTheirOwn_data(); }
    void everythingFitsOnASmallScreen();
    void whatDoesNotFitIsNoticed();

private:
    static void addLanguages();
    static std::unique_ptr<QFile> source(const QString& language);
};

void TestTranslation::init() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QSettings().clear();
}

void TestTranslation::cleanup() {
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>());
}

void TestTranslation::addLanguages() {
    QTest::addColumn<QString>("language");
    for (const QString& language : translatedLanguages())
        QTest::newRow(qPrintable(language)) << language;
}

void TestTranslation::threeLanguagesAreSpoken() {
    QCOMPARE(translatedLanguages(), QStringList({"de", "es", "fr"}));
}

void TestTranslation::firstWantedLanguageIsSpoken_data() {
    QTest::addColumn<QStringList>("wanted");
    QTest::addColumn<QString>("spoken");
    QTest::newRow("German") << QStringList{"de-DE"} << "de";
    QTest::newRow("Austrian German") << QStringList{"de-AT"} << "de";
    QTest::newRow("language alone") << QStringList{"fr"} << "fr";
    QTest::newRow("with a script") << QStringList{"es-Latn-MX"} << "es";
    QTest::newRow("English") << QStringList{"en-US"} << "";
    QTest::newRow("no language") << QStringList{"C"} << "";
    QTest::newRow("none at all") << QStringList{} << "";
    QTest::newRow("not spoken") << QStringList{"ja-JP"} << "";
    QTest::newRow("not spoken, then French") << QStringList{"br-FR", "fr-FR"} << "fr";
    QTest::newRow("English, then German") << QStringList{"en-GB", "de-DE"} << "";
    QTest::newRow("another one that begins alike") << QStringList{"dev-XX"} << "";
}

void TestTranslation::firstWantedLanguageIsSpoken() {
    QFETCH(QStringList, wanted);
    QTEST(spokenLanguage(wanted), "spoken");
}

std::unique_ptr<QFile> TestTranslation::source(const QString& language) {
    auto file =
        std::make_unique<QFile>(QString(KESTROVA_TRANSLATIONS "/kestrova_%1.ts").arg(language));
    return file->open(QIODevice::ReadOnly) ? std::move(file) : nullptr;
}

void TestTranslation::nothingIsMissing() {
    QFETCH(QString, language);
    const auto file = source(language);
    QVERIFY(file);
    QXmlStreamReader reader(file.get());
    int translations = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement() || reader.name() != "translation")
            continue;
        QVERIFY2(!reader.attributes().hasAttribute("type"),
                 qPrintable(QString("line %1").arg(reader.lineNumber())));
        for (const QString& form : formsOf(reader))
            QVERIFY(!form.trimmed().isEmpty());
        ++translations;
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QVERIFY(translations > 90);
}

void TestTranslation::placeholdersStay() {
    QFETCH(QString, language);
    const auto file = source(language);
    QVERIFY(file);
    QXmlStreamReader reader(file.get());
    QString english;
    int compared = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == "source")
            english = reader.readElementText();
        if (!reader.isStartElement() || reader.name() != "translation")
            continue;
        for (const QString& form : formsOf(reader))
            QCOMPARE(placeholders(form), placeholders(english));
        compared += int(!placeholders(english).isEmpty());
    }
    QVERIFY(compared > 50);
}

void TestTranslation::everyTextIsTranslated() {
    QFETCH(QString, language);
    const QStringList alike{"AVI", "MP4", "MKV", "Kestrova", "Rectangle", "Error", "OK", "☰"};
    Windows english;
    speak(language);
    Windows translated;
    for (int i = 0; i < english.all().size(); ++i) {
        const QStringList before = textsOf(*english.all()[i]);
        const QStringList after = textsOf(*translated.all()[i]);
        QCOMPARE(after.size(), before.size());
        for (int text = 0; text < before.size(); ++text)
            QVERIFY2(after[text] != before[text] || alike.contains(before[text]),
                     qPrintable(QStringLiteral("\"%1\" of %2").arg(before[text]).arg(i)));
    }
}

void TestTranslation::toolkitIsTranslated() {
    QFETCH(QString, language);
    const QString english = SettingsDialog()
                                .findChild<QDialogButtonBox*>()
                                ->button(QDialogButtonBox::RestoreDefaults)
                                ->text();
    speak(language);
    const QString translated = SettingsDialog()
                                   .findChild<QDialogButtonBox*>()
                                   ->button(QDialogButtonBox::RestoreDefaults)
                                   ->text();
    QVERIFY2(translated != english, qPrintable(translated));
}

void TestTranslation::countsAreSaidRight_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("said");
    QTest::newRow("English") << QString() << QStringList{"0 clips", "1 clip", "2 clips"};
    QTest::newRow("German") << "de" << QStringList{"0 Clips", "1 Clip", "2 Clips"};
    QTest::newRow("French") << "fr" << QStringList{"0 clip", "1 clip", "2 clips"};
    QTest::newRow("Spanish") << "es" << QStringList{"0 clips", "1 clip", "2 clips"};
}

void TestTranslation::countsAreSaidRight() {
    QFETCH(QString, language);
    speak(language);
    QStringList said;
    for (int count = 0; count < 3; ++count)
        said += QCoreApplication::translate("SessionOffer", "%n clips", nullptr, count);
    QTEST(said, "said");
}

void TestTranslation::captionsAreTranslated() {
    speak("de");
    Video job("/media/yard.mp4", {}, 1, 1, 5, 0, false, nullptr, {}, false, {});
    const Clip clip(&job, 3, QImage(), 3725.0, 3732.9, 3728.0);
    QCOMPARE(clip.text(), QString("yard.mp4\n#3 1:02:05 (7 Sek.) (nicht exportiert)"));
}

void TestTranslation::acceleratorsAreTheirOwn_data() {
    addLanguages();
    QTest::newRow("en") << QString();
}

void TestTranslation::acceleratorsAreTheirOwn() {
    QFETCH(QString, language);
    speak(language);
    const MainWindow window;
    const SearchAgainDialog again(Video("yard.mp4", {}, 1, 1, 5, 0, false, nullptr, {}, false, {}));
    const RecordingMenu menu({}, false, nullptr);
    // Three menus, three buttons, and what is in the docks.
    const QVector<QPair<const QWidget*, int>> expected{{&window, 18}, {&again, 9}, {&menu, 6}};
    for (const auto& [where, least] : expected) {
        QStringList keys = accelerators(*where);
        QVERIFY2(keys.size() >= least, qPrintable(keys.join(' ')));
        QVERIFY2(keys.removeDuplicates() == 0, qPrintable(accelerators(*where).join(' ')));
    }
}

void TestTranslation::shortcutsStay() {
    QFETCH(QString, language);
    const QStringList english = shortcuts(MainWindow());
    QVERIFY(english.contains("Ctrl+Shift+O"));
    speak(language);
    QCOMPARE(shortcuts(MainWindow()), english);
}

void TestTranslation::everythingFits_data() {
    acceleratorsAreTheirOwn_data();
}

void TestTranslation::everythingFits() {
    QFETCH(QString, language);
    speak(language);
    Windows windows;
    windows.setup.resize(windows.setup.minimumSize());
    for (QWidget* window : windows.all()) {
        window->show();
        QCoreApplication::processEvents();
        QVERIFY2(cutOff(*window).isEmpty(), qPrintable(cutOff(*window).join(' ')));
    }
    QCOMPARE(windows.setup.size(), QSize(1000, 800)); // not wider than on a small screen
    QVERIFY(windows.setup.layout()->totalMinimumSize().width() <= 1000);
}

void TestTranslation::everythingFitsOnASmallScreen() {
    QFETCH(QString, language);
    speak(language);
    Windows windows;
    for (const char* name : {"progressBar", "pushButtonCancel", "leftOutBar"})
        windows.main.findChild<QWidget*>(name)->show();
    windows.setup.findChild<QWidget*>("labelOldRegion")->show();
    const QSize room(900, 500); // without frame and title
    for (const QSize& needed :
         {windows.main.minimumSizeHint(), windows.setup.layout()->totalMinimumSize(),
          windows.settings.size()}) {
        QVERIFY2(needed.boundedTo(room) == needed,
                 qPrintable(QString("%1 x %2").arg(needed.width()).arg(needed.height())));
    }
}

void TestTranslation::whatDoesNotFitIsNoticed() {
    LongTexts texts;
    QCoreApplication::installTranslator(&texts);
    const SetupWindow setup;
    QVERIFY(setup.layout()->totalMinimumSize().width() > 1000);
}

QTEST_MAIN(TestTranslation)
#include "test_translation.moc"
