#include "support/test_program.h"
#include "text/json_reader.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>
#include <limits>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

QJsonValue only(const QByteArray &json) {
    return parsedJson('[' + json + ']').value_or(QJsonArray())[0];
}

} // namespace

class JsonReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsEveryKindOfValue() {
        const auto value =
            parsedJson(" {\"a\": [1, -2.5e1, true, false, null, \"x\"],\n\t\"b\": {}, \"c\": []}\r\n");
        QVERIFY(value);
        const QJsonObject object = value->toObject();
        QCOMPARE(object.size(), 3);
        QCOMPARE(object[u"a"], QJsonValue(QJsonArray{1, -25.0, true, false, QJsonValue(), u"x"_s}));
        QVERIFY(object[u"b"].isObject());
        QVERIFY(object[u"c"].isArray());
    }

    void readsAValueThatStandsAlone() {
        QCOMPARE(parsedJson("7"), QJsonValue(7));
        QCOMPARE(parsedJson("\"x\""), QJsonValue(u"x"_s));
    }

    void whatIsNoJsonIsRefused_data() {
        QTest::addColumn<QByteArray>("json");
        for (const char *const json : {"",
                                       " ",
                                       ".5",
                                       "1.",
                                       "-",
                                       "+1",
                                       "01",
                                       "-01",
                                       "1e",
                                       "1e+",
                                       "0x1",
                                       "NaN",
                                       "Infinity",
                                       "True",
                                       "nul",
                                       R"("a\qb")",
                                       R"("a\u12g4")",
                                       R"("a\u12")",
                                       "\"a\\",
                                       "\"a",
                                       "\"a\nb\"",
                                       "\"a\tb\"",
                                       "\"a\x01\"",
                                       "'a'",
                                       "[",
                                       "]",
                                       "[1",
                                       "[1,]",
                                       "[,1]",
                                       "[1 2]",
                                       "{",
                                       "{\"a\"}",
                                       "{\"a\":}",
                                       "{\"a\":1,}",
                                       "{a:1}",
                                       "{1:1}",
                                       "{\"a\" 1}",
                                       "1 2",
                                       "[] x",
                                       "[1}",
                                       "// x\n1",
                                       "\"\xFF\"",
                                       "\"\xED\xA0\x80\"",
                                       "\xEF\xBB\xBF"}) {
            QTest::addRow("%s", json) << QByteArray(json);
        }
        QTest::newRow("null character") << QByteArray("\"a\0b\"", 5);
        QTest::newRow("null character behind") << QByteArray("1\0", 2);
        QTest::newRow("deep nesting") << QByteArray(100000, '[');
        QTest::newRow("a level too many") << QByteArray(513, '[') + QByteArray(513, ']');
    }
    void whatIsNoJsonIsRefused() {
        QFETCH(QByteArray, json);
        QVERIFY(!parsedJson(json));
    }

    void readsAsDeepAsItMay() { QVERIFY(parsedJson(QByteArray(512, '[') + QByteArray(512, ']'))); }

    void escapesAreUndone() {
        const QByteArray json = "\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u0041\\u00e9\\u20AC\\ud83d\\ude00\\u0000\"";
        const QString text = u"\"\\/\b\f\n\r\tA\u00E9\u20AC\U0001F600"_s + QChar(u'\0');
        QCOMPARE(only(json).toString(), text);
    }

    void halfASurrogatePairIsReplaced() {
        QCOMPARE(only(R"("a\ud83d")").toString(), u"a\uFFFD"_s);
        QCOMPARE(only(R"("\ude00b")").toString(), u"\uFFFDb"_s);
        QCOMPARE(only(R"("\ud83d\u0041")").toString(), u"\uFFFDA"_s);
        QCOMPARE(only(R"("\ud83d\ud83d\ude00")").toString(), u"\uFFFD\U0001F600"_s);
    }

    void numbersOfAnySizeAreRead_data() {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<double>("value");
        const double infinity = std::numeric_limits<double>::infinity();
        const auto add = [](const QByteArray &json, double value) {
            QTest::newRow(json.constData()) << json << value;
        };
        add("0", 0);
        add("-0", -0.0);
        add("23.50", 23.5);
        add("1E+2", 100);
        add("18446744073709551616", 18446744073709551616.0);
        add("123456789012345678901234567890", 123456789012345678901234567890.0);
        add("1e-400", 0);
        add("5e-324", 5e-324);
        add("1e400", infinity);
        add("-1e400", -infinity);
        add("1e99999999999999999999", infinity);
        add("1e-99999999999999999999", 0);
        add("0e99999999999999999999", 0);
        add('1' + QByteArray(400, '0'), infinity);
        add('1' + QByteArray(400, '0') + "e-5", infinity);
        add('1' + QByteArray(400, '0') + "e-400", 1);
        add("0." + QByteArray(400, '0') + "1e5", 0);
        add("0." + QByteArray(400, '0') + "1e401", 1);
    }
    void numbersOfAnySizeAreRead() {
        QFETCH(QByteArray, json);
        QFETCH(double, value);
        const QJsonValue read = only(json);
        QVERIFY(read.isDouble());
        QCOMPARE(read.toDouble(), value);
    }

    void wholeNumbersKeepTheirDigits() {
        QCOMPARE(only("9223372036854775807").toInteger(), std::numeric_limits<qint64>::max());
        QCOMPARE(only("-9223372036854775808").toInteger(), std::numeric_limits<qint64>::min());
    }

    void lastOfARepeatedKeyCounts() {
        const auto object = parsedJson(R"({"a": 1, "b": 2, "a": 3})");
        QCOMPARE(object->toObject(), (QJsonObject{{u"a"_s, 3}, {u"b"_s, 2}}));
    }

    void byteOrderMarkBelongsToTextsButNotToTheFile() {
        const auto value = parsedJson("\xEF\xBB\xBF{\"\xEF\xBB\xBFk\": \"\xEF\xBB\xBFv\"}");
        QVERIFY(value);
        QCOMPARE(value->toObject(), (QJsonObject{{u"\uFEFFk"_s, u"\uFEFFv"_s}}));
    }
};

int json_reader_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<JsonReaderTest>(argc, argv);
}
#include "json_reader_test.moc"
