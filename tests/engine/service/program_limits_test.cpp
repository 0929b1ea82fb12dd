#include "documents/hostile_documents.h"
#include "engine/drawn_page.h"
#include "engine/engine_process.h"
#include "engine/sample_table.h"
#include "engine/service/generate_request.h"
#include "support/conditions.h"
#include "support/test_program.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QNetworkReply>
#include <QPdfWriter>
#include <QProcess>
#include <QTcpSocket>
#include <QTimer>

#include <memory>
#include <vector>

using namespace fennick;
using namespace fennick::engine;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype megabyte = 1024 * 1024;

QByteArray pdfRequest(const QByteArray &document) {
    return requestFor(document, u"application/pdf"_s);
}

// Five pages of small print without a text layer.
QByteArray longScan() {
    const QImage picture = drawnPage(QStringList(45, u"The quick brown fox 12.34"_s), 32, 1500);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageMargins({});
    QPainter painter(&writer);
    for (int page = 0; page < 5; ++page) {
        if (page > 0) {
            writer.newPage();
        }
        painter.drawImage(QRect(0, 0, writer.width(), writer.height()), picture);
    }
    painter.end();
    return buffer.data();
}

// Sends a request without waiting for the answer.
std::unique_ptr<QTcpSocket> sent(const EngineProcess &engine, const QByteArray &body) {
    auto socket = std::make_unique<QTcpSocket>();
    socket->connectToHost(u"127.0.0.1"_s, engine.port());
    socket->write("POST " + engine.generatePath().toUtf8() +
                  " HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(engine.port()) +
                  "\r\nContent-Type: application/json\r\nContent-Length: " + QByteArray::number(body.size()) +
                  "\r\n\r\n" + body);
    while (socket->bytesToWrite() > 0 && socket->waitForBytesWritten(fennick::test::patience)) {
    }
    return socket;
}

const QString tooMuchText = u"The document takes too much time or memory to read."_s;

QString messageOf(const HttpAnswer &answer) {
    return answer.body.value("error"_L1).toObject().value("message"_L1).toString();
}

// Whether the document was read, whatever it says.
bool isReadToTheEnd(const HttpAnswer &answer) {
    return answer.status == 200 || messageOf(answer) == u"No receipt was found on the page."_s;
}

} // namespace

// What the built program does when it is asked for too much.
class ProgramLimitsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<EngineProcess> engine_;

    // On a machine that does much else, recognition may not get the processor for long enough before its 25
    // seconds on the clock are over. That says nothing about the document.
    HttpAnswer answerOnceThereIsTime(const QByteArray &body) {
        constexpr int recognitionTime = 25'000; // milliseconds
        HttpAnswer answer;
        QElapsedTimer elapsed;
        do {
            elapsed.start();
            answer = engine_->answerTo("POST", engine_->generatePath(), body);
        } while (messageOf(answer) == tooMuchText && elapsed.hasExpired(recognitionTime));
        return answer;
    }

private Q_SLOTS:
    void init() {
        engine_ = std::make_unique<EngineProcess>();
        QVERIFY(engine_->isRunning());
    }

    void cleanup() { QVERIFY(engine_->isRunning()); }

    void refusesBombs_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("PNG of 3.6 gigapixels") << requestFor(pngClaiming(60'000, 60'000), u"image/png"_s);
        QTest::newRow("instructions of 200 MB") << pdfRequest(pdfDrawing(QByteArray(200 * megabyte, ' '), 1));
        QTest::newRow("instructions packed twice")
            << pdfRequest(pdfDrawing(QByteArray(200 * megabyte, ' '), 2));
        QTest::newRow("a million strokes")
            << pdfRequest(pdfDrawing(QByteArray("0 0 m 1 1 l S\n").repeated(1'000'000), 1));
        QTest::newRow("cross-references of 200 MB") << pdfRequest(pdfWithCrossReferences(200 * megabyte));
        QTest::newRow("objects of 200 MB") << pdfRequest(pdfWithObjectStream(200 * megabyte));
        QTest::newRow("page tree of 50,000 levels") << pdfRequest(pdfWithTreeOf(50'000));
        QTest::newRow("page tree of 3,000 levels") << pdfRequest(pdfWithTreeOf(3'000));
        QTest::newRow("page tree of shared children") << pdfRequest(pdfWithSharedChildren(20'000));
        QTest::newRow("broken JSON") << QByteArray(30 * megabyte, '[');
        QTest::newRow("broken base64")
            << requestFor(QByteArray(30 * megabyte, 'x'), u"image/png"_s).replace("eHh4", "eH*4");
    }
    void refusesBombs() {
        QFETCH(QByteArray, body);
        const HttpAnswer answer = engine_->answerTo("POST", engine_->generatePath(), body);
        QCOMPARE(answer.status, 400);
        const QJsonObject error = answer.body.value("error"_L1).toObject();
        QCOMPARE(error.value("code"_L1).toInt(), 400);
        QCOMPARE(error.value("status"_L1).toString(), u"INVALID_ARGUMENT"_s);
        QVERIFY(!isReadToTheEnd(answer));
    }

    void readsWhatIsOnlyLarge_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("picture of 98 megapixels") << requestFor(blankPng(9900, 9900), u"image/png"_s);
        QTest::newRow("page as wide as a country") << pdfRequest(pdfWithPageBox("0 0 2000000 2000000"));
        QTest::newRow("page beyond all numbers") << pdfRequest(pdfWithPageBox("0 0 1e30 1e30"));
        QTest::newRow("10,000 pages") << pdfRequest(pdfWithPages(10'000));
        QTest::newRow("40 MB") << requestFor(sampleBytes(u"parking.png"_s) + QByteArray(40 * megabyte, 'x'),
                                             u"image/png"_s);
    }
    void readsWhatIsOnlyLarge() {
        QFETCH(QByteArray, body);
        const HttpAnswer answer = answerOnceThereIsTime(body);
        QVERIFY2(isReadToTheEnd(answer), qPrintable(messageOf(answer)));
    }

    void refusesATooLargeRequest() {
        const HttpAnswer answer =
            engine_->answerTo("POST", engine_->generatePath(), QByteArray(largestRequest + 1, ' '));
        QCOMPARE(answer.status, 413);
        QCOMPARE(answer.body.value("error"_L1).toObject().value("code"_L1).toInt(), 413);
    }

    void answersSeveralAtOnce() {
        const QStringList files = {u"invoice.pdf"_s,  u"parking.png"_s,   u"scan0001.pdf"_s,
                                   u"IMG_2041.jpg"_s, u"IMG_0117.HEIC"_s, u"parking.png"_s};
        QList<QNetworkReply *> replies;
        for (const QString &file : files)
            replies.append(engine_->send("POST", engine_->generatePath(),
                                         requestFor(sampleBytes(file), sampleType(file))));
        for (QNetworkReply *reply : std::as_const(replies))
            QCOMPARE(finished(reply).status, 200);
    }

    void answersSeveralLargeOnesInTurn() {
        const QByteArray body =
            requestFor(sampleBytes(u"parking.png"_s) + QByteArray(40 * megabyte, 'x'), u"image/png"_s);
        QList<QNetworkReply *> replies;
        for (int count = 0; count < 4; ++count)
            replies.append(engine_->send("POST", engine_->generatePath(), body));
        for (QNetworkReply *reply : std::as_const(replies))
            QCOMPARE(finished(reply).status, 200);
    }

    void processOfAPdfEndsWhenItsStandardInputCloses_data() {
        QTest::addColumn<QByteArray>("input");
        const QByteArray endless = pdfOfForms(9);
        const QByteArray size = QByteArray::number(endless.size()).rightJustified(12, '0');
        QTest::newRow("in the middle of the document") << size + endless.left(100);
        QTest::newRow("while it draws the document") << size + endless;
    }
    void processOfAPdfEndsWhenItsStandardInputCloses() {
        QFETCH(QByteArray, input);
        QProcess process;
        process.start(QString::fromUtf8(FENNICK_BIN_DIR "/fennick-engine"), {u"--read-pdf"_s, u"5"_s});
        process.write(input);
        QVERIFY(!process.waitForFinished(300));
        process.closeWriteChannel();
        QVERIFY(process.waitForFinished(fennick::test::patience));
        QVERIFY(process.readAllStandardOutput().isEmpty());
    }

    void endlessPdfsKeepOthersWaitingForALimitedTime() {
        const QByteArray endless = pdfRequest(pdfOfForms(9));
        QList<QNetworkReply *> hostile;
        for (int count = 0; count < 2; ++count)
            hostile.append(engine_->send("POST", engine_->generatePath(), endless));
        const QByteArray next = requestFor(sampleBytes(u"invoice.pdf"_s), u"application/pdf"_s);
        QCOMPARE(engine_->answerTo("POST", engine_->generatePath(), next).status, 200);
        for (QNetworkReply *reply : std::as_const(hostile)) {
            const HttpAnswer answer = finished(reply);
            QCOMPARE(answer.status, 400);
            QCOMPARE(messageOf(answer), tooMuchText);
        }
    }

    void endlessPdfIsGivenUpWithItsCaller() {
        const std::unique_ptr<QTcpSocket> caller = sent(*engine_, pdfRequest(pdfOfForms(9)));
        QVERIFY(fennick::test::waitUntil([&] { return engine_->children() == 1; }));
        caller->abort();
        QVERIFY(fennick::test::waitUntil([&] { return engine_->children() == 0; }));
    }

    // Counted in processor time, which other work on the machine does not add to.
    void givesUpWhenTheCallerHasGone() {
        const QByteArray body = pdfRequest(longScan());
        const qint64 start = engine_->processorTime();
        QVERIFY(isReadToTheEnd(engine_->answerTo("POST", engine_->generatePath(), body)));
        const qint64 once = engine_->processorTime() - start;
        QVERIFY(once > 1000);

        for (int count = 0; count < 6; ++count) {
            const std::unique_ptr<QTcpSocket> caller = sent(*engine_, body);
            QTest::qWait(100); // some are being read already, the others wait
            caller->abort();
        }
        const qint64 given = engine_->processorTime();
        const QByteArray next = requestFor(sampleBytes(u"invoice.pdf"_s), u"application/pdf"_s);
        QCOMPARE(engine_->answerTo("POST", engine_->generatePath(), next).status, 200);
        const qint64 afterwards = engine_->processorTime() - given;
        qInfo("a whole scan: %lld ms, the next after six given up: %lld ms", once, afterwards);
        QVERIFY(afterwards < 2 * once);
    }

    void cutsASlowCaller() {
        QTcpSocket socket;
        socket.connectToHost(u"127.0.0.1"_s, engine_->port());
        QVERIFY(socket.waitForConnected(fennick::test::patience));
        QTimer drip;
        connect(&drip, &QTimer::timeout, &socket, [&socket] { socket.write("X"); });
        drip.start(200);
        fennick::test::waitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; });
        QCOMPARE(socket.state(), QAbstractSocket::UnconnectedState);
    }

    void outlivesAFloodOfCallers() {
        std::vector<std::unique_ptr<QTcpSocket>> idle;
        for (int count = 0; count < 100; ++count) {
            idle.push_back(std::make_unique<QTcpSocket>());
            idle.back()->connectToHost(u"127.0.0.1"_s, engine_->port());
            idle.back()->write("POST / HTTP/1.1\r\n");
        }
        fennick::test::waitUntil([&] { return engine_->connections() == 32; });
        QCOMPARE(engine_->connections(), 32);
        QTest::qWait(500);
        QCOMPARE(engine_->connections(), 32);
        idle.clear();
        QVERIFY(fennick::test::waitUntil([&] { return engine_->connections() < 32; }));
        const QByteArray body = requestFor(sampleBytes(u"invoice.pdf"_s), u"application/pdf"_s);
        QCOMPARE(engine_->answerTo("POST", engine_->generatePath(), body).status, 200);
    }
};

int program_limits_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, ProgramLimitsTest>(argc, argv);
}
#include "program_limits_test.moc"
