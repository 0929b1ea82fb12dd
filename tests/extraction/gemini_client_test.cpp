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
using namespace Qt::StringLiterals;
using Result = std::expected<GeminiReceiptData, ScanError>;

namespace {

const QString key = u"AIza-secret-key"_s;

QCoro::Task<> scanInto(QString path, QString model, QString address,
                       std::shared_ptr<std::optional<Result>> result) {
    *result = co_await GeminiClient::scan(path, key, model, address);
}

QSslConfiguration selfSignedCertificate(const TemporaryHome &home) {
    const QString keyPath = home.path(u"server.key"_s);
    const QString certificatePath = home.path(u"server.pem"_s);
    QProcess::execute(u"openssl"_s, {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s, u"-nodes"_s,
                                     u"-subj"_s, u"/CN=127.0.0.1"_s, u"-days"_s, u"2"_s, u"-keyout"_s,
                                     keyPath, u"-out"_s, certificatePath});
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
        path_ = home_.path(u"receipt.pdf"_s);
        writeFile(path_, "the receipt");
    }

    void cleanup() { server_.reset(); }

    void sendsOneRequestAndReturnsTheNormalisedAnswer() {
        const Result result = scan();
        QVERIFY(result);
        QCOMPARE(result->amount, 23.5);
        QCOMPARE(result->category, u"misc"_s);
        QCOMPARE(server_->requests().size(), 1);
        const HttpRequest request = server_->requests().first();
        QCOMPARE(request.method, QByteArray("POST"));
        QCOMPARE(request.target,
                 QByteArray("/v1beta/models/gemini-2.5-flash:generateContent?key=AIza-secret-key"));
        QCOMPARE(request.headers.value("content-type"), QByteArray("application/json"));
        QCOMPARE(inlineDocument(request), QByteArray("the receipt"));
    }

    void unreadableFileEndsBeforeAnyRequest() {
        path_ = home_.path(u"missing.pdf"_s);
        QCOMPARE(failure(), u"Failed to read file: No such file or directory"_s);
        QVERIFY(server_->requests().isEmpty());
    }

    void unreadableFileCountsBeforeABadAddress() {
        path_ = home_.path(u"missing.pdf"_s);
        address_ = u"http://example.org"_s;
        QCOMPARE(failure(), u"Failed to read file: No such file or directory"_s);
    }

    void malformedAddressEndsBeforeAnyRequest() {
        address_ = u"http://example.org"_s;
        QCOMPARE(failure(), u"Gemini API error: 0 — Invalid endpoint URL"_s);
    }

    void modelThatMakesNoUrlEndsBeforeAnyRequest() {
        QCOMPARE(failure(u"my model"_s), u"Gemini API error: 0 — Invalid endpoint URL"_s);
        QVERIFY(server_->requests().isEmpty());
    }

    void errorStatusWinsOverTheErrorObject() {
        server_->setScript([](const HttpRequest &) {
            return HttpReply{.status = 403, .body = R"({"error": {"code": 7}})", .headers = {}};
        });
        QCOMPARE(failure(), u"Gemini API error: 403 — {\"error\": {\"code\": 7}}"_s);
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
        QCOMPARE(failure(), u"Gemini API error: %1"_s.arg(status));
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
        QCOMPARE(failure(u"m"_s, 60000), u"Gemini API error: 500 — "_s + QString(500, QChar(0x20AC)));
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
            QCOMPARE(failure(), u"Connection closed"_s);
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
        QCOMPARE(failure(), u"Gemini API error: 307 — round and round"_s);
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
        QCOMPARE(failure(), u"Gemini API error: 307 — go there"_s);
        QVERIFY(other.requests().isEmpty());
    }

    void refusedConnectionIsToldInTheSystemsWords() {
        const QString address = server_->address();
        server_.reset();
        address_ = address;
        QCOMPARE(failure(), u"Connection refused"_s);
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
        QCOMPARE(failure(), u"Decompression failed"_s);
    }

    void hugeAnswerIsCut() {
        server_->setScript([](const HttpRequest &) {
            return HttpReply{.status = 200, .body = QByteArray(20 * 1024 * 1024, ' '), .headers = {}};
        });
        QCOMPARE(failure(), u"The answer is larger than 16 MB."_s);
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
        QCOMPARE(failure(u"m"_s, 90000), u"The request timed out."_s);
        QVERIFY(timer.elapsed() >= 59000);
    }

private:
    Result scan(const QString &model = u"gemini-2.5-flash"_s, int milliseconds = patience) {
        const auto result = std::make_shared<std::optional<Result>>();
        scanInto(path_, model, address_, result);
        if (!waitUntil([&result] { return result->has_value(); }, milliseconds)) {
            return std::unexpected(ScanError(TransportError{u"the scan never ended"_s}));
        }
        return **result;
    }

    QString failure(const QString &model = u"m"_s, int milliseconds = patience) {
        const Result result = scan(model, milliseconds);
        return result ? u"no failure"_s : errorDescription(result.error());
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
