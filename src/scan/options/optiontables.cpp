// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "knownnames.h"
#include "optionspelling.h"
#include "optiontext.h"

namespace {

QString lowerFirst(const QString& text) {
    return text.left(1).toLower() + text.mid(1);
}

/// An empty cell would take the space behind its table away.
QString html(const QString& text) {
    return text.isEmpty() ? QStringLiteral("&nbsp;") : text.toHtmlEscaped();
}

} // namespace

QString markdownOptions() {
    QString text = QStringLiteral("| option | meaning | range (default) |\n| --- | --- | --- |\n");
    for (const ScanOption& option : scanOptions()) {
        if (option.group != OptionGroup::Help)
            text += QStringLiteral("| `%1` | %2 | %3 |\n")
                        .arg(spelling(option), lowerFirst(option.help), option.limits());
    }
    text += QStringLiteral("\n| exit status | meaning |\n| --- | --- |\n");
    for (const ExitMeaning& exit : exitMeanings())
        text += QStringLiteral("| %1 | %2 |\n").arg(QString::number(exit.status), exit.meaning);
    return text;
}

QString markdownFields() {
    QString text = QStringLiteral("| field of a clip's line | meaning |\n| --- | --- |\n");
    bool isEnd = false;
    for (const JsonField& field : jsonFields()) {
        if (!isEnd && field.line == QLatin1String("end")) {
            isEnd = true;
            text += QStringLiteral("\n| field of a recording's last line | meaning |\n"
                                   "| --- | --- |\n");
        }
        text += QStringLiteral("| `%1` | %2 |\n").arg(field.name, field.meaning);
    }
    return text;
}

QString markdownNames() {
    const auto reading = [](const KnownName& name) {
        switch (name.reading) {
        case NameReading::Utc:
            return "UTC";
        case NameReading::EitherOrder:
            return "day and month in either order, where only one can be";
        case NameReading::Unusable:
            return "not used: its day can be read in several ways";
        case NameReading::Local:
            break;
        }
        return "";
    };
    QString text = QStringLiteral("| pattern | example | |\n| --- | --- | --- |\n");
    for (const KnownName& name : knownNames())
        text +=
            QStringLiteral("| `%1` | `%2` | %3 |\n").arg(name.pattern, name.example, reading(name));
    return text;
}

QString htmlOptionTables() {
    const QString head = QStringLiteral(
        "<h3>%1</h3>\n<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\" width=\"100%\">\n"
        "<tr><th align=\"left\" width=\"23%\">Option</th><th align=\"left\">Meaning</th>"
        "<th align=\"left\" width=\"20%\">Range (default)</th>"
        "<th align=\"left\" width=\"18%\">In the window</th></tr>\n");
    const QString foot = QStringLiteral("</table>\n");
    QString text;
    forEachOption([&](const ScanOption& option, bool isFirst) {
        if (option.group == OptionGroup::Help)
            return;
        if (isFirst)
            text += (text.isEmpty() ? text : foot) + head.arg(html(groupTitle(option.group)));
        text += QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td><td>%4</td></tr>\n")
                    .arg(html(spelling(option)), html(option.help), html(option.limits()),
                         html(option.control));
    });
    return text + foot;
}

QString optionList() {
    // In the order of ValueKind.
    constexpr const char* kinds[] = {"none", "number", "word", "file", "folder", "text"};
    QString lines;
    for (const ScanOption& option : scanOptions()) {
        const bool isMeasuring = !option.valuesKey.isEmpty() || option.choosesValues;
        const char* use = isMeasuring ? "measuring" : "-";
        const QString bare = option.bare.isEmpty() ? QString() : '\t' + option.bare;
        lines +=
            QStringLiteral("%1\t%2\t%3%4\n").arg(option.name, kinds[int(option.kind)], use, bare);
    }
    return lines;
}
