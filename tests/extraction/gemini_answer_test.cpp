#include "extraction/gemini_answer.h"
#include "support/test_program.h"
#include "text/characters.h"

#include <QCoreApplication>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

QString failure(int status, const QByteArray &body) {
    const auto result = GeminiClient::readAnswer(status, body);
    return result ? u"no failure"_s : result.error().errorDescription();
}

} // namespace

class GeminiAnswerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstTextOfTheFirstCandidateIsTheAnswer() {
        const auto result = GeminiClient::readAnswer(
            200,
            R"({"candidates": [)"
            R"({"content": {"parts": [{"thought": true}, {"text": "{\u0022amount\u0022: 1}"}, {"text": "{\u0022amount\u0022: 2}"}]}},)"
            R"({"content": {"parts": [{"text": "{\u0022amount\u0022: 3}"}]}}]})");
        QVERIFY(result);
        QCOMPARE(result->amount, 1.0);
    }

    void errorStatusIsToldWithItsRawBody() {
        const QByteArray body = R"({"error": {"code": 7, "message": "denied"}})";
        QCOMPARE(failure(403, body), u"Gemini API error: 403 — "_s + QString::fromUtf8(body));
        QCOMPARE(failure(199, "x"), u"Gemini API error: 199 — x"_s);
        QCOMPARE(failure(300, "x"), u"Gemini API error: 300 — x"_s);
    }

    void emptyErrorBodyAddsNothing() {
        QCOMPARE(failure(500, ""), u"Gemini API error: 500"_s);
        QCOMPARE(failure(500, "\xFF\xFE"), u"Gemini API error: 500"_s); // no UTF-8
    }

    void errorBodyIsCutAfter500Characters() {
        const QString face = u"\U0001F600"_s;
        QCOMPARE(failure(500, face.repeated(501).toUtf8()),
                 u"Gemini API error: 500 — "_s + face.repeated(500));
    }

    void errorObjectInASuccessfulAnswer_data() {
        QTest::addColumn<QByteArray>("error");
        QTest::addColumn<QString>("text");
        const auto add = [](const char *error, const char *text) {
            QTest::newRow(error) << QByteArray(error)
                                 << u"Gemini API returned error "_s + QString::fromUtf8(text);
        };
        add(R"({"message": "quota"})", "200: quota");
        add(R"({"code": 7})", "7: unknown");
        add(R"({"code": "7", "message": 3})", "200: unknown");
        add(R"({"code": 7.5, "message": "quota"})", "200: quota");
        add(R"({"code": 5000000000, "message": "quota"})", "5000000000: quota");
        add(R"({"code": -9223372036854775808})", "-9223372036854775808: unknown");
        add(R"({"code": 9223372036854775808, "message": "quota"})", "200: quota");
        add(R"({"code": 1e400, "message": "quota"})", "200: quota");
        add(R"({})", "200: unknown");
    }
    void errorObjectInASuccessfulAnswer() {
        QFETCH(QByteArray, error);
        QTEST(failure(200, "{\"error\": " + error + ", \"candidates\": []}"), "text");
    }

    void storedTextsAreBounded_data() {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        const QByteArray words = QByteArray("many words ").repeated(100'000);
        const QByteArray accents = "e" + QByteArray("\xCC\x81").repeated(500'000); // one character
        for (const QByteArray &text : {words, accents}) {
            QTest::addRow("message of %lld", text.size())
                << 200 << "{\"error\": {\"message\": \"" + text + "\"}}";
            QTest::addRow("finish reason of %lld", text.size())
                << 200 << "{\"candidates\": [{\"finishReason\": \"" + text + "\"}]}";
            QTest::addRow("body of %lld", text.size()) << 500 << text;
            QTest::addRow("text of %lld", text.size())
                << 200 << "{\"candidates\": [{\"content\": {\"parts\": [{\"text\": \"" + text + "\"}]}}]}";
        }
    }
    void storedTextsAreBounded() {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        const auto result = GeminiClient::readAnswer(status, body);
        QVERIFY(!result);
        const QString stored = errorDescription(ScanError(result.error()));
        QCOMPARE(firstCharacters(stored, 2000), stored);
        QVERIFY2(stored.size() <= 2000 * 16, qPrintable(QString::number(stored.size())));
    }

    void transportErrorsAreBounded() {
        const QString stored = errorDescription(TransportError{QString(5000, u'x')});
        QCOMPARE(stored, QString(2000, u'x'));
    }

    void keyIsTakenOutOfFailures_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("text");
        const QString key = u"AIza-key"_s;
        QTest::newRow("body") << key << 400 << QByteArray("bad AIza-key!") << u"bad [API key]!"_s;
        QTest::newRow("short key") << u"ab"_s << 400 << QByteArray("key ab") << u"key [API key]"_s;
        QTest::newRow("key in what stands for it")
            << u"key"_s << 400 << QByteArray("a key") << u"a [API key]"_s;
        QTest::newRow("key across the cut")
            << key << 400 << QByteArray(496, 'x') + "AIza-key" << QString(496, u'x') + u"[API"_s;
        QTest::newRow("as in a URL") << u"a b"_s << 400 << QByteArray("?key=a%20b") << u"?key=[API key]"_s;
        QTest::newRow("as in JSON") << u"a/b\\c"_s << 400 << QByteArray("{\"key\": \"a\\/b\\\\c\"}")
                                    << u"{\"key\": \"[API key]\"}"_s;
        QTest::newRow("message") << key << 200 << QByteArray(R"({"error": {"message": "bad \u0041Iza-key"}})")
                                 << u"bad [API key]"_s;
        QTest::newRow("finish reason")
            << key << 200 << QByteArray(R"({"candidates": [{"finishReason": "AIza-key"}]})")
            << u"[API key]"_s;
        QTest::newRow("text") << key << 200
                              << QByteArray(
                                     R"({"candidates": [{"content": {"parts": [{"text": "AIza-key?"}]}}]})")
                              << u"[API key]?"_s;
    }
    void keyIsTakenOutOfFailures() {
        QFETCH(QString, key);
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        const auto result = GeminiClient::readAnswer(status, body, key);
        QVERIFY(!result);
        QTEST(result.error().text, "text");
    }

    void keyStaysInResults_data() {
        QTest::addColumn<QString>("key");
        for (const char *const key : {"Coffee", "candidates", "text", "{", "a"}) {
            QTest::newRow(key) << QString::fromUtf8(key);
        }
    }
    void keyStaysInResults() {
        QFETCH(QString, key);
        const QByteArray body =
            R"({"candidates": [{"content": {"parts": [{"text": "{\u0022location\u0022: \u0022Coffee House\u0022}"}]}}]})";
        const auto result = GeminiClient::readAnswer(200, body, key);
        QVERIFY(result);
        QCOMPARE(result->location, u"Coffee House"_s);
    }

    void errorThatIsNoObjectIsOverlooked() {
        QCOMPARE(failure(200, R"({"error": "x"})"), u"Gemini API returned no candidates in response"_s);
    }

    void answersWithoutCandidates_data() {
        QTest::addColumn<QByteArray>("body");
        for (const char *const body :
             {"", "no JSON", "[]", "{}", R"({"candidates": []})", R"({"candidates": {}})",
              R"({"candidates": [{}, 1]})", R"({"promptFeedback": {"blockReason": "SAFETY"}})"}) {
            QTest::addRow("'%s'", body) << QByteArray(body);
        }
    }
    void answersWithoutCandidates() {
        QFETCH(QByteArray, body);
        QCOMPARE(failure(200, body), u"Gemini API returned no candidates in response"_s);
    }

    void candidatesWithoutText_data() {
        QTest::addColumn<QByteArray>("candidate");
        QTest::addColumn<QString>("reason");
        const auto add = [](const char *candidate, const char *reason) {
            QTest::newRow(candidate) << QByteArray(candidate) << QString::fromUtf8(reason);
        };
        add(R"({"content": {"parts": [{"inlineData": {}}]}, "finishReason": "SAFETY"})", "SAFETY");
        add(R"({"content": {"parts": [{"text": 5}]}, "finishReason": 5})", "unknown");
        add(R"({"content": {"parts": []}})", "unknown");
        add(R"({"content": {"parts": [{"text": "{}"}, 1]}, "finishReason": "STOP"})", "STOP");
        add(R"({"content": {"parts": [{"text": ""}, {"text": "{}"}]}, "finishReason": "STOP"})", "STOP");
        add(R"({"finishReason": "MAX_TOKENS"})", "MAX_TOKENS");
        add(R"({})", "unknown");
    }
    void candidatesWithoutText() {
        QFETCH(QByteArray, candidate);
        QFETCH(QString, reason);
        QCOMPARE(failure(200, "{\"candidates\": [" + candidate + "]}"),
                 u"Gemini API returned no text content. Finish reason: "_s + reason);
    }

    void textWithoutAnObjectIsAParseError() {
        QCOMPARE(failure(200, R"({"candidates": [{"content": {"parts": [{"text": "sorry"}]}}]})"),
                 u"Could not parse JSON from Gemini response. Raw response: sorry"_s);
    }

    void remainingDescriptions() {
        using Kind = GeminiError::Kind;
        QCOMPARE((GeminiError{Kind::fileRead, 0, u"gone"_s}).errorDescription(),
                 u"Failed to read file: gone"_s);
        QCOMPARE((GeminiError{Kind::http, 0, u"No HTTP response"_s}).errorDescription(),
                 u"Gemini API error: 0 — No HTTP response"_s);
        QCOMPARE(errorDescription(TransportError{u"Connection refused"_s}), u"Connection refused"_s);
    }
};

int gemini_answer_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, GeminiAnswerTest>(argc, argv);
}
#include "gemini_answer_test.moc"
