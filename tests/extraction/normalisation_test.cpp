#include "extraction/normalisation.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QJsonDocument>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

GeminiReceiptData normalized(const QByteArray &json) {
    return GeminiClient::normalize(QJsonDocument::fromJson(json).object());
}

} // namespace

class NormalisationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bareObjectIsTakenWhole() {
        QCOMPARE(GeminiClient::extractJSON(uR"({"a": 1})"_s)->value(u"a").toInt(), 1);
    }

    void objectInACodeFenceIsFound() {
        const auto object = GeminiClient::extractJSON(u"Here it is:\n```json\n{\"a\":\n1}\n```\n"_s);
        QVERIFY(object);
        QCOMPARE(object->value(u"a").toInt(), 1);
    }

    void objectInsideAnArrayIsFound() {
        const auto object = GeminiClient::extractJSON(uR"([{"a": 1}])"_s);
        QVERIFY(object);
        QCOMPARE(object->value(u"a").toInt(), 1);
    }

    void anythingElseIsAParseErrorWithTheRawText_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("two objects") << uR"({"a": 1} and {"b": 2})"_s;
        QTest::newRow("no braces") << u"I cannot read this."_s;
        QTest::newRow("braces the wrong way") << u"} {"_s;
        QTest::newRow("broken object") << uR"({"a": })"_s;
        QTest::newRow("array of numbers") << u"[1, 2]"_s;
    }
    void anythingElseIsAParseErrorWithTheRawText() {
        QFETCH(QString, text);
        const auto object = GeminiClient::extractJSON(text);
        QVERIFY(!object);
        QCOMPARE(object.error(), (GeminiError{GeminiError::Kind::parse, 0, text}));
        QCOMPARE(object.error().errorDescription(),
                 u"Could not parse JSON from Gemini response. Raw response: "_s + text);
    }

    void rawTextIsCutAfter500Characters() {
        const QString character = u"e\u0301"_s; // one character of two units
        const auto object = GeminiClient::extractJSON(character.repeated(600));
        QVERIFY(!object);
        QCOMPARE(object.error().text, character.repeated(500));
    }

    void whatIsNoJsonIsAParseError_data() {
        QTest::addColumn<QString>("text");
        for (const QString &text :
             {u"{\"amount\": .5}"_s, u"{\"amount\": 1.}"_s, u"{\"summary\": \"a\\qb\"}"_s,
              u"{\"summary\": \"a\nb\"}"_s, u"{\"amount\": 01}"_s, u"{\"amount\": 1,}"_s}) {
            QTest::newRow(qPrintable(text)) << text;
        }
    }
    void whatIsNoJsonIsAParseError() {
        QFETCH(QString, text);
        const auto object = GeminiClient::extractJSON(text);
        QVERIFY(!object);
        QCOMPARE(object.error(), (GeminiError{GeminiError::Kind::parse, 0, text}));
    }

    void byteOrderMarkBeforeTheObjectDoesNotMatter() {
        const auto object = GeminiClient::extractJSON(u"\uFEFF{\"a\": 1}"_s);
        QVERIFY(object);
        QCOMPARE(object->value(u"a").toInt(), 1);
    }

    void lastOfARepeatedKeyCounts() {
        const auto object = GeminiClient::extractJSON(uR"({"amount": 1, "amount": 2})"_s);
        QVERIFY(object);
        QCOMPARE(GeminiClient::normalize(*object).amount, 2.0);
    }

    void hugeAndTinyNumbersAreNumbers() {
        const auto amount = [](const QString &number) {
            const auto object = GeminiClient::extractJSON(u"{\"amount\": %1}"_s.arg(number));
            return object ? GeminiClient::normalize(*object).amount : std::optional(-1.0);
        };
        QCOMPARE(amount(u"1e-400"_s), std::optional(0.0));
        QCOMPARE(amount(u"1e400"_s), std::nullopt); // not finite
        QCOMPARE(amount(u"-1e400"_s), std::nullopt);
        QCOMPARE(amount(u"18446744073709551616"_s), std::optional(18446744073709551616.0));
        QCOMPARE(amount(u"9007199254740993"_s), std::optional(9007199254740992.0));
    }

    void digitsOfEveryScriptMakeADate() {
        QVERIFY(normalized(R"({"date": "٢٠٢٤-٠٥-٠١"})").date.has_value());
        QVERIFY(normalized(R"({"time": "१४:३०"})").time.has_value());
        QVERIFY(!normalized(R"({"date": "２０２４－０５－０１"})").date); // the hyphens are others
        QVERIFY(!normalized(R"({"date": "²⁰²⁴-⁰⁵-⁰¹"})").date);           // these are numbers, but no digits
    }

    void emptyObjectGivesTheFallbacks() {
        const GeminiReceiptData data = normalized("{}");
        QVERIFY(!data.date && !data.time && !data.amount && !data.currency && !data.location);
        QCOMPARE(data.category, u"misc"_s);
        QCOMPARE(data.summary, u"Receipt scanned successfully"_s);
    }

    void wholeAnswerIsTaken() {
        const GeminiReceiptData data = normalized(
            R"({"date": "2024-05-01", "time": "12:30", "amount": 23.5,)"
            R"("currency": "USD", "location": "Mario\u0027s Cafe", "category": "lunch", "summary": "Lunch"})");
        QCOMPARE(data.date, u"2024-05-01"_s);
        QCOMPARE(data.time, u"12:30"_s);
        QCOMPARE(data.amount, 23.5);
        QCOMPARE(data.currency, u"USD"_s);
        QCOMPARE(data.location, u"Mario's Cafe"_s);
        QCOMPARE(data.category, u"lunch"_s);
        QCOMPARE(data.summary, u"Lunch"_s);
    }

    void dateMustMatchAsItStands_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("isKept");
        const auto add = [](const char *value, bool isKept) {
            QTest::newRow(value) << QByteArray(value) << isKept;
        };
        add(R"("2024-05-01")", true);
        add(R"("2024-13-45")", true);
        add(R"(" 2024-05-01")", false);
        add(R"("2024-05-01\n")", false);
        add(R"("2024-5-1")", false);
        add(R"("01.05.2024")", false);
        add("20240501", false);
        add("null", false);
    }
    void dateMustMatchAsItStands() {
        QFETCH(QByteArray, value);
        QFETCH(bool, isKept);
        QCOMPARE(normalized("{\"date\": " + value + '}').date.has_value(), isKept);
    }

    void timeMustMatchAsItStands_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("isKept");
        const auto add = [](const char *value, bool isKept) {
            QTest::newRow(value) << QByteArray(value) << isKept;
        };
        add(R"("14:30")", true);
        add(R"("99:99")", true);
        add(R"("14:30:05")", false);
        add(R"("2:30")", false);
        add(R"("14:30 ")", false);
        add("1430", false);
    }
    void timeMustMatchAsItStands() {
        QFETCH(QByteArray, value);
        QFETCH(bool, isKept);
        QCOMPARE(normalized("{\"time\": " + value + '}').time.has_value(), isKept);
    }

    void amountIsAnyJsonNumberAndNothingElse() {
        QCOMPARE(normalized(R"({"amount": 23})").amount, 23.0);
        QCOMPARE(normalized(R"({"amount": -1.5e2})").amount, -150.0);
        QCOMPARE(normalized(R"({"amount": 0})").amount, 0.0);
        QVERIFY(!normalized(R"({"amount": "23.50"})").amount);
        QVERIFY(!normalized(R"({"amount": true})").amount);
        QVERIFY(!normalized(R"({"amount": null})").amount);
        QVERIFY(!normalized(R"({"amount": [1]})").amount);
    }

    void currencyIsThreeUpperCaseLettersAsTheyStand_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("isKept");
        const auto add = [](const char *value, bool isKept) {
            QTest::newRow(value) << QByteArray(value) << isKept;
        };
        add(R"("EUR")", true);
        add(R"("XXX")", true);
        add(R"("eur")", false);
        add(R"("EURO")", false);
        add(R"(" USD")", false);
        add(R"("USD\n")", false);
        add(R"("€")", false);
        add("1", false);
    }
    void currencyIsThreeUpperCaseLettersAsTheyStand() {
        QFETCH(QByteArray, value);
        QFETCH(bool, isKept);
        QCOMPARE(normalized("{\"currency\": " + value + '}').currency.has_value(), isKept);
    }

    void locationIsTrimmedAndNeverEmpty() {
        QCOMPARE(normalized(R"({"location": " \n Dockside Deli \t"})").location, u"Dockside Deli"_s);
        QVERIFY(!normalized(R"({"location": ""})").location);
        QVERIFY(!normalized(R"({"location": "  \n"})").location);
        QVERIFY(!normalized(R"({"location": 5})").location);
    }

    void categoryIsOneOfTheVocabularyOrMisc_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QString>("category");
        const auto add = [](const char *value, const char *category) {
            QTest::newRow(value) << QByteArray(value) << QString::fromUtf8(category);
        };
        for (const char *const word : {"lunch", "dinner", "breakfast", "coffee", "hotel", "transport", "fuel",
                                       "groceries", "shopping", "entertainment", "misc"}) {
            QTest::newRow(word) << QByteArray('"' + QByteArray(word) + '"') << QString::fromUtf8(word);
        }
        add(R"(" Coffee\t ")", "coffee");
        add(R"("LUNCH")", "lunch");
        add(R"("Lunch\n")", "misc"); // line breaks are not trimmed here
        add(R"("food")", "misc");
        add(R"("")", "misc");
        add("3", "misc");
        add("null", "misc");
    }
    void categoryIsOneOfTheVocabularyOrMisc() {
        QFETCH(QByteArray, value);
        QTEST(normalized("{\"category\": " + value + '}').category, "category");
    }

    void summaryIsTrimmedAndNeverEmpty() {
        QCOMPARE(normalized(R"({"summary": " \nLunch.\n"})").summary, u"Lunch."_s);
        QCOMPARE(normalized(R"({"summary": "   "})").summary, u"Receipt scanned successfully"_s);
        QCOMPARE(normalized(R"({"summary": 1})").summary, u"Receipt scanned successfully"_s);
    }

    void placeAndSummaryAreBounded() {
        const auto data =
            normalized("{\"location\": \" " + QByteArray("e\xCC\x81").repeated(1500) + "\", \"summary\": \"" +
                       QByteArray(999, 'x') + "  y" + QByteArray(5000, 'z') + "\"}");
        QCOMPARE(data.location, u"e\u0301"_s.repeated(1000));
        QCOMPARE(data.summary, QString(999, u'x')); // what the cut leaves at the end is trimmed as well
        const auto piled = normalized("{\"summary\": \"e" + QByteArray("\xCC\x81").repeated(100'000) + "\"}");
        QVERIFY(piled.summary.size() <= 16'000);
    }

    void halfASurrogateIsReplaced() {
        QCOMPARE(normalized(R"({"summary": "a\ud83d"})").summary, u"a\uFFFD"_s);
    }
};

int normalisation_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, NormalisationTest>(argc, argv);
}
#include "normalisation_test.moc"
