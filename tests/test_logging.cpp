// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "logging.h"

#include "firstframe.h"
#include "videodecoder.h"

extern "C" {
#include <libavutil/log.h>
}

#include <QImage>
#include <QTemporaryFile>
#include <QtTest>

namespace {

struct Message {
    QtMsgType type;
    QString category;
    QString text;
};

QVector<Message> messages;

void collect(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    messages.append({type, QString::fromLatin1(context.category), text});
}

QVector<Message> messagesOf(const char* category) {
    QVector<Message> chosen;
    for (const Message& message : qAsConst(messages)) {
        if (message.category == QLatin1String(category))
            chosen.append(message);
    }
    return chosen;
}

} // namespace

class TestLogging : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    // First, before anything else has routed the libraries' log.
    void grabbingRoutesTheLog();
    void decodingRoutesTheLog();
    void quietByDefault();
    void oneMessagePerLine();
    void levelsBecomeMessageTypes();
    void longLinesAreCut();
    void libraryDetailsStayOut();

private:
    QTemporaryFile text;
    QtMessageHandler handler = nullptr;
};

void TestLogging::initTestCase() {
    QVERIFY(text.open());
    text.write(QByteArray("This is no video.\n").repeated(100));
    text.flush();
}

void TestLogging::init() {
    messages.clear();
    handler = qInstallMessageHandler(collect);
}

void TestLogging::cleanup() {
    qInstallMessageHandler(handler);
    QLoggingCategory::setFilterRules({});
}

void TestLogging::grabbingRoutesTheLog() {
    QLoggingCategory::setFilterRules("kestrova.libav=true");
    QImage picture;
    QVERIFY(!grabFirstFrame(text.fileName(), &picture));
    av_log(nullptr, AV_LOG_ERROR, "here\n");
    QVERIFY(!messagesOf("kestrova.libav").isEmpty());
    QCOMPARE(messagesOf("kestrova.libav").last().text, QString("here"));
}

void TestLogging::decodingRoutesTheLog() {
    QLoggingCategory::setFilterRules("kestrova.libav=true");
    VideoDecoder decoder;
    QVERIFY(!decoder.open(text.fileName().toUtf8().constData()));
    av_log(nullptr, AV_LOG_ERROR, "here\n");
    QCOMPARE(messagesOf("kestrova.libav").last().text, QString("here"));
}

void TestLogging::quietByDefault() {
    routeLibavLog();
    for (const int level : {AV_LOG_PANIC, AV_LOG_ERROR, AV_LOG_WARNING, AV_LOG_INFO})
        av_log(nullptr, level, "a line\n");
    QVERIFY(messagesOf("kestrova.libav").isEmpty());
    QVERIFY(engineLog().isWarningEnabled());
    QVERIFY(!engineLog().isDebugEnabled());
}

void TestLogging::oneMessagePerLine() {
    QLoggingCategory::setFilterRules("kestrova.libav=true");
    routeLibavLog();
    av_log(nullptr, AV_LOG_INFO, "one, ");
    av_log(nullptr, AV_LOG_INFO, "two, ");
    QVERIFY(messagesOf("kestrova.libav").isEmpty());
    av_log(nullptr, AV_LOG_INFO, "%s\n", "three");
    av_log(nullptr, AV_LOG_INFO, "four\n");
    const QVector<Message> lines = messagesOf("kestrova.libav");
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0].text, QString("one, two, three"));
    QCOMPARE(lines[1].text, QString("four"));
}

void TestLogging::levelsBecomeMessageTypes() {
    QLoggingCategory::setFilterRules("kestrova.libav=true");
    routeLibavLog();
    av_log(nullptr, AV_LOG_ERROR, "error\n");
    av_log(nullptr, AV_LOG_WARNING, "warning\n");
    av_log(nullptr, AV_LOG_INFO, "info\n");
    const QVector<Message> lines = messagesOf("kestrova.libav");
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines[0].type, QtCriticalMsg);
    QCOMPARE(lines[1].type, QtWarningMsg);
    QCOMPARE(lines[2].type, QtDebugMsg);
}

void TestLogging::longLinesAreCut() {
    QLoggingCategory::setFilterRules("kestrova.libav=true");
    routeLibavLog();
    av_log(nullptr, AV_LOG_ERROR, "%s\n", QByteArray(5000, 'x').constData());
    av_log(nullptr, AV_LOG_ERROR, "next\n");
    const QVector<Message> lines = messagesOf("kestrova.libav");
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines[0].text.size() >= 1000);
    QVERIFY(lines[0].text.count('x') == lines[0].text.size());
    QCOMPARE(lines[1].text, QString("next"));
}

void TestLogging::libraryDetailsStayOut() {
    QLoggingCategory::setFilterRules("kestrova.libav=true");
    routeLibavLog();
    av_log(nullptr, AV_LOG_DEBUG, "debug\n");
    av_log(nullptr, AV_LOG_TRACE, "trace\n");
    QVERIFY(messagesOf("kestrova.libav").isEmpty());
}

QTEST_GUILESS_MAIN(TestLogging)
#include "test_logging.moc"
