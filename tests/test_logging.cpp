// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "logging.h"

#include "firstframe.h"
#include "videodecoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/log.h>
}

#include <QImage>
#include <QTemporaryFile>
#include <QtTest>

#include <array>
#include <thread>

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

/// A decoder that tells of errors to `opaque`.
class CodecContext {
public:
    explicit CodecContext(void* opaque)
        : context(avcodec_alloc_context3(nullptr)) {
        context->opaque = opaque;
    }
    ~CodecContext() { avcodec_free_context(&context); }
    CodecContext(const CodecContext&) = delete;
    CodecContext& operator=(const CodecContext&) = delete;

    AVCodecContext* get() const { return context; }

private:
    AVCodecContext* context;
};

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
    void errorsGoToTheirDecoder();
    void errorsOfOtherUsersAreNobodys();
    void logIsTakenBack();

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

void TestLogging::errorsGoToTheirDecoder() {
    routeLibavLog();
    DecoderErrors first;
    DecoderErrors second;
    const CodecContext context(&second);
    av_log(context.get(), AV_LOG_ERROR, "an error\n");
    av_log(context.get(), AV_LOG_WARNING, "no error\n");
    QCOMPARE(first.libavErrors.load(), 0);
    QCOMPARE(second.libavErrors.load(), 1);
}

/// What a player's decoder points to is its own, and no count.
void TestLogging::errorsOfOtherUsersAreNobodys() {
    routeLibavLog();
    const qint64 unowned = unownedLibavErrors();
    std::array<unsigned char, 64> foreign{};
    LibavErrors ofThread{0};
    const LibavErrorScope scope(ofThread);
    av_log(CodecContext(foreign.data()).get(), AV_LOG_ERROR, "an error\n");
    for (const unsigned char byte : foreign)
        QCOMPARE(int(byte), 0);
    QCOMPARE(ofThread.load(), 0);
    std::thread([] {
        disownLibavErrors();
        av_log(nullptr, AV_LOG_ERROR, "an error\n");
    }).join();
    QCOMPARE(unownedLibavErrors(), unowned);
    std::thread([] { av_log(nullptr, AV_LOG_ERROR, "an error\n"); }).join();
    QCOMPARE(unownedLibavErrors(), unowned + 1);
}

void TestLogging::logIsTakenBack() {
    routeLibavLog();
    av_log_set_callback([](void*, int, const char*, va_list) {});
    takeBackLibavLog();
    DecoderErrors decoder;
    av_log(CodecContext(&decoder).get(), AV_LOG_ERROR, "an error\n");
    QCOMPARE(decoder.libavErrors.load(), 1);
}

QTEST_GUILESS_MAIN(TestLogging)
#include "test_logging.moc"
