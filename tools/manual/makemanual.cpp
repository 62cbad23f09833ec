// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Renders the manual: makemanual TEXT PICTURES OUTPUT, with TEXT in HTML and PICTURES a folder. It
// was made at the time that SOURCE_DATE_EPOCH names, or now.

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>
#include <QUrl>

namespace {

/// A document that knows where its pictures lie and notes those that it does not find.
class Manual : public QTextDocument {
public:
    explicit Manual(const QString& pictures)
        : pictures(pictures) {}

    bool isComplete = true;

protected:
    QVariant loadResource(int type, const QUrl& name) override {
        if (type != QTextDocument::ImageResource)
            return {};
        const QImage picture(pictures + '/' + name.path());
        isComplete = isComplete && !picture.isNull();
        return picture;
    }

private:
    QString pictures;
};

/// The manual as PDF; empty if a picture is missing.
QByteArray render(const QString& text, const QString& pictures) {
    Manual manual(pictures);
    manual.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    manual.setDefaultStyleSheet(QStringLiteral("pre { font-family: 'DejaVu Sans Mono'; }"));
    manual.setHtml(text);
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setTitle(QStringLiteral("Kestrova"));
    writer.setResolution(96);
    manual.print(&writer);
    return manual.isComplete ? pdf.data() : QByteArray();
}

/// Builds of the same sources are compared byte by byte, so their manuals bear the sources' date.
void setCreationDate(QByteArray& pdf, const QDateTime& date) {
    const QByteArray key = "/CreationDate (D:";
    const QByteArray digits = date.toUTC().toString(QStringLiteral("yyyyMMddHHmmss")).toLatin1();
    const int position = pdf.indexOf(key);
    if (position >= 0)
        pdf.replace(position + key.size(), digits.size(), digits);
}

bool makeManual(const QStringList& arguments) {
    QFile text(arguments.value(1));
    if (!text.open(QIODevice::ReadOnly))
        return false;
    QByteArray pdf = render(QString::fromUtf8(text.readAll()), arguments.value(2));
    bool isDated = false;
    const qint64 date = qEnvironmentVariable("SOURCE_DATE_EPOCH").toLongLong(&isDated);
    if (isDated)
        setCreationDate(pdf, QDateTime::fromSecsSinceEpoch(date));
    QFile output(arguments.value(3));
    return !pdf.isEmpty() && output.open(QIODevice::WriteOnly) && output.write(pdf) == pdf.size() &&
           output.flush();
}

} // namespace

int main(int argc, char* argv[]) {
    // The writer notes the time zone, and keeps its fonts in a hash table.
    qputenv("TZ", "UTC");
    qSetGlobalQHashSeed(0);
    const QGuiApplication application(argc, argv);
    if (makeManual(QGuiApplication::arguments()))
        return 0;
    qCritical("The manual cannot be written, or its text or a picture not be read.");
    return 1;
}
