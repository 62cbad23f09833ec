// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optionspelling.h"
#include "optiontext.h"

namespace {

QString lowerFirst(const QString& text) {
    return text.left(1).toLower() + text.mid(1);
}

QString html(const QString& text) {
    return text.toHtmlEscaped();
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

QString htmlOptionTable() {
    QString text = QStringLiteral(
        "<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\" width=\"100%\">\n"
        "<tr><th align=\"left\">Option</th><th align=\"left\">Meaning</th>"
        "<th align=\"left\">Range (default)</th><th align=\"left\">In the window</th></tr>\n");
    for (const ScanOption& option : scanOptions()) {
        text += QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td><td>%4</td></tr>\n")
                    .arg(html(spelling(option)), html(option.help), html(option.limits()),
                         html(option.control));
    }
    return text + QStringLiteral("</table>\n");
}
