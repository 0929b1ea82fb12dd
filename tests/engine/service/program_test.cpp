#include "engine/engine_process.h"
#include "engine/recognition/read_error.h"
#include "engine/sample_table.h"
#include "support/conditions.h"
#include "support/test_program.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QNetworkInterface>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <memory>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

QByteArray requestForSample(const QString &file) {
    return requestFor(sampleBytes(file), sampleType(file));
}

QJsonObject fieldsOf(const HttpAnswer &answer) {
    const QJsonObject candidate = answer.body.value("candidates"_L1).toArray().at(0).toObject();
    const QJsonObject part =
        candidate.value("content"_L1).toObject().value("parts"_L1).toArray().at(0).toObject();
    return QJsonDocument::fromJson(part.value("text"_L1).toString().toUtf8()).object();
}

// Small, so that it is looked at in time on any machine.
QByteArray blankPage() {
    QImage page(600, 800, QImage::Format_Grayscale8);
    page.fill(Qt::white);
    QBuffer file;
    page.save(&file, "PNG");
    return file.data();
}

struct Ended {
    int code = -1;
    QByteArray output;
    QByteArray errors;
};

Ended runEngine(const QStringList &arguments) {
    QProcess process;
    process.start(QStringLiteral(FENNICK_BIN_DIR "/fennick-engine"), arguments);
    if (!process.waitForFinished(fennick::test::patience) || process.exitStatus() != QProcess::NormalExit) {
        return {};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

// Drives the built program from outside, as Fennick does.
class ProgramTest : public QObject {
    Q_OBJECT

    std::unique_ptr<EngineProcess> engine_;

private Q_SLOTS:
    void initTestCase() {
        engine_ = std::make_unique<EngineProcess>();
        QVERIFY(engine_->isRunning());
    }

    // Whatever a test did to it, the program goes on.
    void cleanup() { QVERIFY(engine_->isRunning()); }

    void cleanupTestCase() { engine_.reset(); }

    void readsEverySample_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QJsonObject>("facts");
        for (const Sample &sample : sampleTable()) {
            if (sample.isReceipt())
                QTest::newRow(qPrintable(sample.file)) << sample.file << sample.facts;
        }
    }
    void readsEverySample() {
        QFETCH(QString, file);
        QFETCH(QJsonObject, facts);
        HttpAnswer answer;
        // A busy machine may leave too little time for recognition: then it is tried again.
        QVERIFY(fennick::test::waitUntil([&] {
            answer = engine_->answerTo("POST", engine_->generatePath(), requestForSample(file));
            return answer.body.value("error"_L1).toObject().value("message"_L1).toString() !=
                   readErrorText(ReadError::tookTooMuch);
        }));
        QCOMPARE(answer.status, 200);
        QCOMPARE(answer.body.value("modelVersion"_L1).toString(), u"gemini-2.5-flash"_s);
        QJsonObject found = fieldsOf(answer);
        QVERIFY(!found.take(u"summary"_s).toString().isEmpty());
        QCOMPARE(found, facts);
    }

    void findsThePlacesOfValuesWithoutAKey() {
        QJsonObject request = QJsonDocument::fromJson(requestForSample(u"receipt.png"_s)).object();
        const QJsonObject values{{u"amount"_s, 34.48}, {u"date"_s, u"2023-01-01"_s}};
        request.insert(u"values"_s, values);
        const QByteArray body = QJsonDocument(request).toJson(QJsonDocument::Compact);
        HttpAnswer answer;
        // A busy machine may leave too little time to recognise the whole page: then nothing is claimed.
        QVERIFY(fennick::test::waitUntil([&] {
            answer = engine_->answerTo("POST", u"/fennick/v1/places"_s, body);
            return !answer.body.value("missing"_L1).toArray().isEmpty();
        }));
        QCOMPARE(answer.status, 200);
        QCOMPARE(answer.body.value("missing"_L1).toArray(), QJsonArray{u"date"_s});
        QCOMPARE(answer.body.value("pages"_L1).toInt(), 1);
        const QJsonObject total = answer.body.value("evidence"_L1).toObject().value("total"_L1).toObject();
        QCOMPARE(total.value("page"_L1).toInt(), 1);
        QVERIFY(total.value("y"_L1).toDouble() > 0.2); // below the heading
        QVERIFY(total.value("width"_L1).toDouble() < 0.5);
    }

    void refusesToLookForWhatDoesNotFit() {
        const HttpAnswer answer =
            engine_->answerTo("POST", u"/fennick/v1/places"_s, requestForSample(u"parking.png"_s));
        QCOMPARE(answer.status, 400);
        QCOMPARE(engine_->answerTo("GET", u"/fennick/v1/places"_s, {}).status, 404);
    }

    void saysInWordsThatAPageIsNoReceipt() {
        const HttpAnswer answer =
            engine_->answerTo("POST", engine_->generatePath(), requestFor(blankPage(), u"image/png"_s));
        QCOMPARE(answer.status, 400);
        QCOMPARE(answer.body.value("error"_L1).toObject().value("message"_L1).toString(),
                 u"No receipt was found on the page."_s);
    }

    void wantsAKey() {
        for (const QString &query : {QString(), u"?key="_s, u"?other=1"_s}) {
            const HttpAnswer answer = engine_->answerTo("POST", u"/v1beta/models/m:generateContent"_s + query,
                                                        requestForSample(u"parking.png"_s));
            QCOMPARE(answer.status, 400);
            const QJsonObject error = answer.body.value("error"_L1).toObject();
            QCOMPARE(error.value("code"_L1).toInt(), 400);
            QCOMPARE(error.value("message"_L1).toString(),
                     u"API key not valid. Please pass a valid API key."_s);
            QCOMPARE(error.value("details"_L1).toArray().at(0).toObject().value("reason"_L1).toString(),
                     u"API_KEY_INVALID"_s);
        }
    }

    void knowsNoOtherAddress() {
        const QByteArray body = requestForSample(u"parking.png"_s);
        for (const HttpAnswer &answer :
             {engine_->answerTo("POST", u"/"_s, body),
              engine_->answerTo("POST", u"/v1beta/models/m:countTokens?key=k"_s, body),
              engine_->answerTo("GET", engine_->generatePath(), {})}) {
            QCOMPARE(answer.status, 404);
            QCOMPARE(answer.body.value("error"_L1).toObject().value("status"_L1).toString(), u"NOT_FOUND"_s);
        }
    }

    void refusesUnreadableDocuments_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("broken JSON") << QByteArray("{");
        QTest::newRow("no document") << QByteArray("{\"contents\":[{\"parts\":[{\"text\":\"x\"}]}]}");
        QTest::newRow("unsupported type") << requestFor("hello", u"text/plain"_s);
        QTest::newRow("no image") << requestFor("hello", u"image/png"_s);
        QTest::newRow("no PDF") << requestFor("%PDF-1.7\nhello", u"application/pdf"_s);
        QTest::newRow("half a PDF") << requestFor(sampleBytes(u"scan0001.pdf"_s).first(200),
                                                  u"application/pdf"_s);
    }
    void refusesUnreadableDocuments() {
        QFETCH(QByteArray, body);
        const HttpAnswer answer = engine_->answerTo("POST", engine_->generatePath(), body);
        QCOMPARE(answer.status, 400);
        const QJsonObject error = answer.body.value("error"_L1).toObject();
        QCOMPARE(error.value("code"_L1).toInt(), 400);
        QCOMPARE(error.value("status"_L1).toString(), u"INVALID_ARGUMENT"_s);
        QVERIFY(!error.value("message"_L1).toString().isEmpty());
    }

    void takesALargeRequest() {
        // What follows the end of a PNG is ignored by decoders.
        const QByteArray document = sampleBytes(u"parking.png"_s) + QByteArray(40 * 1024 * 1024, 'x');
        const HttpAnswer answer =
            engine_->answerTo("POST", engine_->generatePath(), requestFor(document, u"image/png"_s));
        QCOMPARE(answer.status, 200);
        QCOMPARE(fieldsOf(answer).value("amount"_L1).toDouble(), 6.5);
    }

    void outlivesWhatIsNoHttp() {
        QTcpSocket socket;
        socket.connectToHost(u"127.0.0.1"_s, engine_->port());
        QVERIFY(socket.waitForConnected(fennick::test::patience));
        socket.write(QByteArray(5000, '\0') + "\r\n\r\n");
        QVERIFY(socket.waitForBytesWritten(fennick::test::patience));
        QVERIFY(socket.state() == QAbstractSocket::UnconnectedState ||
                socket.waitForDisconnected(fennick::test::patience));
    }

    void listensOnThisMachineOnly() {
        const QList<QHostAddress> addresses = QNetworkInterface::allAddresses();
        for (const QHostAddress &address : addresses) {
            if (address.isLoopback() || address.protocol() != QAbstractSocket::IPv4Protocol)
                continue;
            QTcpSocket socket;
            socket.connectToHost(address, engine_->port());
            QVERIFY2(!socket.waitForConnected(2000), qPrintable(address.toString()));
        }
    }

    void endsAtOnceWhenTold() {
        const QTemporaryDir temporary;
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"TMPDIR"_s, temporary.path());
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(FENNICK_BIN_DIR "/fennick-engine"), {u"--port"_s, u"0"_s});
        QVERIFY(process.waitForReadyRead(fennick::test::patience));
        const quint16 port = process.readAllStandardOutput().trimmed().split(':').last().toUShort();

        // In the middle of its work.
        const QByteArray body = requestForSample(u"scan0001.pdf"_s);
        QTcpSocket socket;
        socket.connectToHost(u"127.0.0.1"_s, port);
        socket.write("POST " + engine_->generatePath().toUtf8() + " HTTP/1.1\r\nHost: 127.0.0.1:" +
                     QByteArray::number(port) + "\r\nContent-Type: application/json\r\nContent-Length: " +
                     QByteArray::number(body.size()) + "\r\n\r\n" + body);
        while (socket.bytesToWrite() > 0) {
            QVERIFY(socket.waitForBytesWritten(fennick::test::patience));
        }
        QVERIFY(!socket.waitForReadyRead(100));
        process.terminate();
        QVERIFY(process.waitForFinished(fennick::test::patience));
        socket.waitForDisconnected(fennick::test::patience);
        QCOMPARE(socket.readAll(), QByteArray()); // it did not finish its work first
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(process.readAllStandardError().isEmpty());
        QVERIFY(QDir(temporary.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    void saysWhenThePortIsTaken() {
        QTcpServer other;
        QVERIFY(other.listen(QHostAddress::LocalHost));
        const Ended ended = runEngine({u"--port"_s, QString::number(other.serverPort())});
        QCOMPARE(ended.code, 1);
        QVERIFY(ended.output.isEmpty());
        QCOMPARE(ended.errors.count('\n'), 1);
        QVERIFY(ended.errors.contains(QByteArray::number(other.serverPort())));
    }

    void tellsItsArguments() {
        const Ended ended = runEngine({u"--help"_s});
        QCOMPARE(ended.code, 0);
        QVERIFY(ended.output.startsWith("Usage: fennick-engine [--port NUMBER]\n"));
        QVERIFY(ended.output.contains("47111"));
        QVERIFY(ended.errors.isEmpty());
    }

    void saysWhichArgumentIsWrong() {
        const Ended ended = runEngine({u"--verbose"_s});
        QCOMPARE(ended.code, 2);
        QVERIFY(ended.output.isEmpty());
        QCOMPARE(ended.errors.count('\n'), 1);
        QVERIFY(ended.errors.contains("--verbose"));
    }
};

int program_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, ProgramTest>(argc, argv);
}
#include "program_test.moc"
