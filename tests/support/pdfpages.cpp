// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pdfpages.h"

#include <QList>
#include <QMap>
#include <QStack>
#include <QTransform>

#include <algorithm>
#include <cctype>

namespace {

/// Goes through what a page consists of: operands, and behind them what is done with them.
class PageReader {
public:
    PdfPage read(const QByteArray& content) {
        for (const QByteArray& token : content.simplified().split(' ')) {
            if (apply(token))
                operands.clear();
            else
                operands.append(token);
        }
        PdfPage page;
        for (const PdfLine& line : qAsConst(lines))
            page.lines.prepend(line);
        page.lowestPicture = lowestPicture;
        if (!page.lines.isEmpty())
            page.number = page.lines.takeLast().glyphs;
        return page;
    }

private:
    bool apply(const QByteArray& token) {
        if (token == "q")
            saved.push(place);
        else if (token == "Q")
            place = saved.isEmpty() ? QTransform() : saved.pop();
        else if (token == "cm")
            place = matrix() * place;
        else if (token == "Tf")
            fontSize = operand(1);
        else if (token == "Tm")
            text = matrix();
        else if (token == "Td")
            text = QTransform::fromTranslate(operand(2), operand(1)) * text;
        else if (token == "Tj")
            addGlyphs(operands.value(operands.size() - 1));
        else if (token == "Do")
            addPicture();
        return !token.isEmpty() && (std::isalpha(token[0]) || token.endsWith('*'));
    }

    /// A number, counted from behind, from 1.
    qreal operand(int place) const { return operands.value(operands.size() - place).toDouble(); }

    QTransform matrix() const {
        return {operand(6), operand(5), operand(4), operand(3), operand(2), operand(1)};
    }

    void addGlyphs(const QByteArray& glyphs) {
        const QTransform all = text * place;
        PdfLine& line = lines[qRound(all.dy())];
        line.y = qRound(all.dy());
        line.size = std::max(line.size, qRound(fontSize * all.m11()));
        line.glyphs += glyphs;
    }

    void addPicture() {
        const int foot = qRound(place.mapRect(QRectF(0, 0, 1, 1)).top());
        lowestPicture = lowestPicture == 0 ? foot : std::min(lowestPicture, foot);
    }

    QList<QByteArray> operands;
    QStack<QTransform> saved;
    QTransform place;
    QTransform text;
    qreal fontSize = 0.0;
    QMap<int, PdfLine> lines; // by their height
    int lowestPicture = 0;
};

/// Empty if it is not compressed.
QByteArray unpacked(const QByteArray& stream) {
    return qUncompress(QByteArray(4, '\0') + stream);
}

} // namespace

QVector<PdfPage> pdfPages(const QByteArray& pdf) {
    const QByteArray begin = "/FlateDecode\n>>\nstream\n";
    QVector<PdfPage> pages;
    for (int i = pdf.indexOf(begin); i >= 0; i = pdf.indexOf(begin, i)) {
        i += begin.size();
        const QByteArray content = unpacked(pdf.mid(i, pdf.indexOf("endstream", i) - i));
        if (content.contains(" Tj"))
            pages.append(PageReader().read(content));
    }
    return pages;
}
