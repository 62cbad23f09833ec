// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Renders the manual: makemanual TEXT PICTURES OUTPUT, with TEXT in HTML and PICTURES a folder. Its
// table of contents takes the place of the mark in the text. It was made at the time that
// SOURCE_DATE_EPOCH names, or now.

#include "pagebreaks.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextDocument>
#include <QTextFrame>
#include <QUrl>

namespace {

constexpr int resolution = 96;
constexpr int margin = resolution * 20 / 25; // pixels, about two centimetres
const char style[] = "h3 { margin-top: 16px; }"
                     "pre { font-family: 'DejaVu Sans Mono'; }"
                     "table { border-collapse: collapse; border-color: #a0a0a0; margin-top: 6px;"
                     "        margin-bottom: 2px; }"
                     "th { background-color: #ececec; }";

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

void layOut(Manual& manual, const QString& text, QPdfWriter& writer) {
    manual.setHtml(text);
    manual.documentLayout()->setPaintDevice(&writer);
    QTextFrameFormat page = manual.rootFrame()->frameFormat();
    page.setMargin(margin);
    manual.rootFrame()->setFrameFormat(page);
    manual.setPageSize(QSizeF(writer.width(), writer.height()));
    keepTogether(manual);
}

/// The text with a line for each chapter, and its page, in the place of the mark.
QString withContents(const QString& text, const QVector<int>& pages) {
    const QRegularExpression chapter(QStringLiteral("<h2[^>]*>(.*)</h2>"));
    QString contents = QStringLiteral("<table width=\"100%\">");
    auto chapters = chapter.globalMatch(text);
    for (int i = 0; chapters.hasNext(); ++i)
        contents += QStringLiteral("<tr><td>%1</td><td align=\"right\">%2</td></tr>")
                        .arg(chapters.next().captured(1), QString::number(pages.value(i)));
    return QString(text).replace(QStringLiteral("<!-- contents -->"),
                                 contents + QStringLiteral("</table>"));
}

void paint(const Manual& manual, QPdfWriter& writer) {
    QPainter painter(&writer);
    painter.setFont(manual.defaultFont());
    const QRectF page(QPointF(0, 0), manual.pageSize());
    const QRectF foot = page.adjusted(0, page.height() - margin, -margin, -margin / 2.0);
    for (int i = 0; i < manual.pageCount(); ++i) {
        if (i > 0)
            writer.newPage();
        painter.drawText(foot, Qt::AlignRight | Qt::AlignVCenter, QString::number(i + 1));
        painter.save();
        painter.translate(0, -i * page.height());
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = page.translated(0, i * page.height());
        context.palette.setColor(QPalette::Text, Qt::black);
        manual.documentLayout()->draw(&painter, context);
        painter.restore();
    }
}

/// The manual as PDF; empty if a picture is missing.
QByteArray render(const QString& text, const QString& pictures) {
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(QStringLiteral("Kestrova"));
    writer.setResolution(resolution);
    Manual manual(pictures);
    manual.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    manual.setDefaultStyleSheet(QString::fromLatin1(style));
    layOut(manual, withContents(text, {}), writer);
    layOut(manual, withContents(text, headingPages(manual, 2)), writer);
    paint(manual, writer);
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
