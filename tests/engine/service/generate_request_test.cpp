#include "engine/service/generate_request.h"
#include "support/test_program.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

QByteArray bodyWith(const QJsonArray &parts) {
    const QJsonObject content{{u"parts"_s, parts}};
    return QJsonDocument(QJsonObject{{u"contents"_s, QJsonArray{content}}}).toJson();
}

QJsonObject inlinePart(const QString &mimeType, const QString &data) {
    return {{u"inlineData"_s, QJsonObject{{u"mimeType"_s, mimeType}, {u"data"_s, data}}}};
}

} // namespace

class GenerateRequestTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesTheModelFromThePath() {
        QCOMPARE(
            requestedModel("POST", u"/v1beta/models/gemini-2.5-flash:generateContent"_s).value_or(QString()),
            u"gemini-2.5-flash"_s);
    }

    void knowsNoOtherPath_data() {
        QTest::addColumn<QString>("path");
        for (const char *path :
             {"/", "", "/v1beta/models/", "/v1beta/models/:generateContent", "/v1beta/models/m:countTokens",
              "/v1/models/m:generateContent", "/v1beta/models/a/b:generateContent", "/v1beta/models/m"})
            QTest::newRow(path) << QString::fromUtf8(path);
    }
    void knowsNoOtherPath() {
        QFETCH(QString, path);
        const std::expected<QString, ServiceError> model = requestedModel("POST", path);
        QVERIFY(!model);
        QCOMPARE(model.error().code, 404);
        QCOMPARE(model.error().status, u"NOT_FOUND"_s);
    }

    void answersPostOnly() {
        for (const char *method : {"GET", "PUT", "post", ""})
            QVERIFY(!requestedModel(method, u"/v1beta/models/m:generateContent"_s));
    }

    void keepsTheStatusOfARefusal() {
        QCOMPARE(transportError(413).code, 413);
        QVERIFY(transportError(413).message.contains(u"64 MiB"));
        QCOMPARE(transportError(400).status, u"INVALID_ARGUMENT"_s);
        QCOMPARE(transportError(403).code, 403);
        QCOMPARE(transportError(403).status, u"PERMISSION_DENIED"_s);
        QVERIFY(transportError(415).message.contains(u"application/json"));
    }

    void wantsAKey() {
        QVERIFY(checkedKey(u"any"_s));
        const std::expected<void, ServiceError> missing = checkedKey({});
        QVERIFY(!missing);
        QCOMPARE(missing.error().code, 400);
        QCOMPARE(missing.error().reason, u"API_KEY_INVALID"_s);
        QCOMPARE(missing.error().message, u"API key not valid. Please pass a valid API key."_s);
    }

    void findsTheDocumentBehindTheInstruction() {
        const QByteArray body = bodyWith(
            {QJsonObject{{u"text"_s, u"Read this"_s}}, inlinePart(u"application/pdf"_s, u"aGVsbG8="_s)});
        QCOMPARE(inlineDocument(body).value_or(QByteArray()), QByteArray("hello"));
    }

    void acceptsSnakeCase() {
        const QJsonObject data{{u"mime_type"_s, u"image/png"_s}, {u"data"_s, u"aGVsbG8="_s}};
        QCOMPARE(inlineDocument(bodyWith({QJsonObject{{u"inline_data"_s, data}}})).value_or(QByteArray()),
                 QByteArray("hello"));
    }

    void acceptsEveryReadableType_data() {
        QTest::addColumn<QString>("mimeType");
        for (const char *type :
             {"application/pdf", "image/png", "image/jpeg", "image/webp", "image/heic", "image/heif"})
            QTest::newRow(type) << QString::fromUtf8(type);
    }
    void acceptsEveryReadableType() {
        QFETCH(QString, mimeType);
        QVERIFY(inlineDocument(bodyWith({inlinePart(mimeType, u"aGVsbG8="_s)})));
    }

    void refusesWhatItCannotUse_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("broken JSON") << QByteArray("{\"contents\": [");
        QTest::newRow("an array") << QByteArray("[]");
        QTest::newRow("deep nesting") << QByteArray(100'000, '[');
        QTest::newRow("no contents") << QByteArray("{}");
        QTest::newRow("contents of another type") << QByteArray("{\"contents\": 7}");
        QTest::newRow("parts of another type") << QByteArray("{\"contents\": [{\"parts\": \"x\"}, 3, null]}");
        QTest::newRow("text only") << bodyWith({QJsonObject{{u"text"_s, u"Read this"_s}}});
        QTest::newRow("inline data of another type") << bodyWith({QJsonObject{{u"inlineData"_s, u"x"_s}}});
        QTest::newRow("no type") << bodyWith({inlinePart({}, u"aGVsbG8="_s)});
        QTest::newRow("unknown type") << bodyWith({inlinePart(u"application/octet-stream"_s, u"aGVsbG8="_s)});
        QTest::newRow("no data") << bodyWith({inlinePart(u"image/png"_s, {})});
        QTest::newRow("broken base64") << bodyWith({inlinePart(u"image/png"_s, u"a*b!"_s)});
        QTest::newRow("data beyond Latin-1") << bodyWith({inlinePart(u"image/png"_s, u"aGVsbG8\u4e2d"_s)});
    }
    void refusesWhatItCannotUse() {
        QFETCH(QByteArray, body);
        const std::expected<QByteArray, ServiceError> document = inlineDocument(body);
        QVERIFY(!document);
        QCOMPARE(document.error().code, 400);
        QCOMPARE(document.error().status, u"INVALID_ARGUMENT"_s);
        QVERIFY(!document.error().message.isEmpty());
    }
};

int generate_request_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<GenerateRequestTest>(argc, argv);
}
#include "generate_request_test.moc"
