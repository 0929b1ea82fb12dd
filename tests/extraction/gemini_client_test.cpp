#include "extraction/gemini_client.h"
#include "support/conditions.h"
#include "support/scripted_server.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using Result = std::expected<GeminiReceiptData, ScanError>;

namespace {

const QString key = QStringLiteral("AIza-secret-key");

QCoro::Task<> scanInto(QString path, QString model, QString address,
                       std::shared_ptr<std::optional<Result>> result) {
    *result = co_await GeminiClient::scan(path, key, model, address);
}

QSslConfiguration selfSignedCertificate(const TemporaryHome &home) {
    const QString keyPath = home.path(QStringLiteral("server.key"));
    const QString certificatePath = home.path(QStringLiteral("server.pem"));
    QProcess::execute(QStringLiteral("openssl"),
                      {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"),
                       QStringLiteral("rsa:2048"), QStringLiteral("-nodes"), QStringLiteral("-subj"),
                       QStringLiteral("/CN=127.0.0.1"), QStringLiteral("-days"), QStringLiteral("2"),
                       QStringLiteral("-keyout"), keyPath, QStringLiteral("-out"), certificatePath});
    QSslConfiguration configuration;
    configuration.setPrivateKey(QSslKey(readFile(keyPath), QSsl::Rsa));
    configuration.setLocalCertificate(QSslCertificate(readFile(certificatePath)));
    return configuration;
}

} // namespace

class GeminiClientTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        server_ = std::make_unique<ScriptedServer>(
            [](const HttpRequest &) { return answering(R"({"amount": 23.5, "currency": "USD"})"); });
        address_ = server_->address();
        path_ = home_.path(QStringLiteral("receipt.pdf"));
        writeFile(path_, "the receipt");
    }

    void cleanup() { server_.reset(); }

    void sendsOneRequestAndReturnsTheNormalisedAnswer() {
        const Result result = scan();
        QVERIFY(result);
        QCOMPARE(result->amount, 23.5);
        QCOMPARE(result->category, QStringLiteral("misc"));
        QCOMPARE(server_->requests().size(), 1);
        const HttpRequest request = server_->requests().first();
        QCOMPARE(request.method, QByteArray("POST"));
        QCOMPARE(request.target,
                 QByteArray("/v1beta/models/gemini-2.5-flash:generateContent?key=AIza-secret-key"));
        QCOMPARE(request.headers.value("content-type"), QByteArray("application/json"));
        QCOMPARE(inlineDocument(request), QByteArray("the receipt"));
    }

    void unreadableFileEndsBeforeAnyRequest() {
        path_ = home_.path(QStringLiteral("missing.pdf"));
        QCOMPARE(failure(), QStringLiteral("Failed to read file: No such file or directory"));
        QVERIFY(server_->requests().isEmpty());
    }

    void unreadableFileCountsBeforeABadAddress() {
        path_ = home_.path(QStringLiteral("missing.pdf"));
        address_ = QStringLiteral("http://example.org");
        QCOMPARE(failure(), QStringLiteral("Failed to read file: No such file or directory"));
    }

    void malformedAddressEndsBeforeAnyRequest() {
        address_ = QStringLiteral("http://example.org");
        QCOMPARE(failure(), QStringLiteral("Gemini API error: 0 — Invalid endpoint URL"));
    }

    void modelThatMakesNoUrlEndsBeforeAnyRequest() {
        QCOMPARE(failure(QStringLiteral("my model")),
                 QStringLiteral("Gemini API error: 0 — Invalid endpoint URL"));
        QVERIFY(server_->requests().isEmpty());
    }

    void errorStatusWinsOverTheErrorObject() {
        server_->setScript([](const HttpRequest &) {
            return HttpReply{.status = 403, .body = R"({"error": {"code": 7}})", .headers = {}};
        });
        QCOMPARE(failure(), QStringLiteral("Gemini API error: 403 — {\"error\": {\"code\": 7}}"));
    }

    void everyErrorStatusIsToldByItsNumber_data() {
        QTest::addColumn<int>("status");
        for (const int status : {304, 400, 401, 404, 407, 409, 418, 429, 500, 501, 502, 503, 504}) {
            QTest::addRow("%d", status) << status;
        }
    }
    void everyErrorStatusIsToldByItsNumber() {
        QFETCH(int, status);
        server_->setScript(
            [status](const HttpRequest &) { return HttpReply{.status = status, .body = {}, .headers = {}}; });
        QCOMPARE(failure(), QStringLiteral("Gemini API error: %1").arg(status));
    }

    void keyNeverStandsInAnErrorText() {
        server_->setScript([](const HttpRequest &request) {
            return HttpReply{.status = 400, .body = "bad location " + request.target, .headers = {}};
        });
        const QString text = failure();
        QVERIFY2(!text.contains(key), qPrintable(text));
        QVERIFY2(text.startsWith(u"Gemini API error: 400 — bad location /v1beta"), qPrintable(text));
    }

    void errorStatusIsToldByItsBeginningHoweverLong() {
        server_->setScript([](const HttpRequest &) {
            return HttpReply{
                .status = 500, .body = QByteArray("\xE2\x82\xAC").repeated(6 * 1024 * 1024), .headers = {}};
        });
        QCOMPARE(failure(QStringLiteral("m"), 60000),
                 QStringLiteral("Gemini API error: 500 — ") + QString(500, QChar(0x20AC)));
    }

    void bodyThatIsCutIsATransportErrorEveryTime_data() {
        QTest::addColumn<int>("status");
        for (const int status : {200, 307, 403, 500}) {
            QTest::addRow("%d", status) << status;
        }
    }
    void bodyThatIsCutIsATransportErrorEveryTime() {
        QFETCH(int, status);
        server_->setScript([status](const HttpRequest &) {
            return HttpReply{.status = status,
                             .body = geminiAnswer("{}"),
                             .headers = {},
                             .fault = HttpReply::Fault::cutBody};
        });
        for (int round = 0; round < 30; ++round) {
            QCOMPARE(failure(), QStringLiteral("Connection closed"));
        }
    }

    void redirectIsFollowedWithinTheOrigin_data() {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("method");
        for (const int status : {301, 302, 303}) {
            QTest::addRow("%d", status) << status << QByteArray("GET");
        }
        for (const int status : {307, 308}) {
            QTest::addRow("%d", status) << status << QByteArray("POST");
        }
    }
    void redirectIsFollowedWithinTheOrigin() {
        QFETCH(int, status);
        QFETCH(QByteArray, method);
        server_->setScript([status](const HttpRequest &request) {
            if (request.target == "/elsewhere") {
                return answering(R"({"amount": 7})");
            }
            return HttpReply{.status = status, .body = {}, .headers = {"Location: /elsewhere"}};
        });
        const Result result = scan();
        QVERIFY(result);
        QCOMPARE(result->amount, 7.0);
        QCOMPARE(server_->requests().size(), 2);
        QCOMPARE(server_->requests().last().method, method);
    }

    void redirectWithoutEndIsToldByItsStatus() {
        server_->setScript([](const HttpRequest &) {
            return HttpReply{.status = 307, .body = "round and round", .headers = {"Location: /again"}};
        });
        QCOMPARE(failure(), QStringLiteral("Gemini API error: 307 — round and round"));
        QVERIFY(server_->requests().size() < 30);
    }

    void redirectToAnotherHostIsNotFollowed() {
        ScriptedServer other([](const HttpRequest &) { return answering("{}"); });
        server_->setScript([&other](const HttpRequest &request) {
            HttpReply reply;
            reply.status = 307;
            reply.body = "go there";
            reply.headers = {"Location: " + other.address().toLatin1() + request.target};
            return reply;
        });
        QCOMPARE(failure(), QStringLiteral("Gemini API error: 307 — go there"));
        QVERIFY(other.requests().isEmpty());
    }

    void refusedConnectionIsToldInTheSystemsWords() {
        const QString address = server_->address();
        server_.reset();
        address_ = address;
        QCOMPARE(failure(), QStringLiteral("Connection refused"));
    }

    void connectionFaultsAreFailuresWithText_data() {
        QTest::addColumn<int>("fault");
        QTest::newRow("closed at once") << static_cast<int>(HttpReply::Fault::closeAtOnce);
        QTest::newRow("cut in the body") << static_cast<int>(HttpReply::Fault::cutBody);
        QTest::newRow("no HTTP") << static_cast<int>(HttpReply::Fault::noHttp);
    }
    void connectionFaultsAreFailuresWithText() {
        QFETCH(int, fault);
        server_->setScript([fault](const HttpRequest &) {
            HttpReply reply = answering("{}");
            reply.fault = static_cast<HttpReply::Fault>(fault);
            return reply;
        });
        const QString text = failure();
        QVERIFY(!text.isEmpty());
        QVERIFY2(!text.contains(key), qPrintable(text));
    }

    void damagedCompressionIsTold() {
        server_->setScript([](const HttpRequest &) {
            HttpReply reply = answering("{}");
            reply.headers = {"Content-Encoding: gzip"}; // which it is not
            return reply;
        });
        QCOMPARE(failure(), QStringLiteral("Decompression failed"));
    }

    void hugeAnswerIsCut() {
        server_->setScript([](const HttpRequest &) {
            return HttpReply{.status = 200, .body = QByteArray(20 * 1024 * 1024, ' '), .headers = {}};
        });
        QCOMPARE(failure(), QStringLiteral("The answer is larger than 16 MB."));
    }

    void selfSignedCertificateIsRefused() {
        ScriptedServer secure([](const HttpRequest &) { return answering("{}"); },
                              selfSignedCertificate(home_));
        address_ = secure.address();
        const QString text = failure();
        QVERIFY2(text.contains(u"certificate", Qt::CaseInsensitive), qPrintable(text));
        QVERIFY(secure.requests().isEmpty());
    }

    void silentServerTimesOutAfterAMinute() {
        server_->setScript([](const HttpRequest &) {
            HttpReply reply;
            reply.fault = HttpReply::Fault::hang;
            return reply;
        });
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(failure(QStringLiteral("m"), 90000), QStringLiteral("The request timed out."));
        QVERIFY(timer.elapsed() >= 59000);
    }

private:
    Result scan(const QString &model = QStringLiteral("gemini-2.5-flash"), int milliseconds = patience) {
        const auto result = std::make_shared<std::optional<Result>>();
        scanInto(path_, model, address_, result);
        if (!waitUntil([&result] { return result->has_value(); }, milliseconds)) {
            return std::unexpected(ScanError(TransportError{QStringLiteral("the scan never ended")}));
        }
        return **result;
    }

    QString failure(const QString &model = QStringLiteral("m"), int milliseconds = patience) {
        const Result result = scan(model, milliseconds);
        return result ? QStringLiteral("no failure") : errorDescription(result.error());
    }

    TemporaryHome home_;
    std::unique_ptr<ScriptedServer> server_;
    QString path_;
    QString address_;
};

int gemini_client_test(int argc, char **argv) {
    return runTest<QCoreApplication, GeminiClientTest>(argc, argv);
}
#include "gemini_client_test.moc"
