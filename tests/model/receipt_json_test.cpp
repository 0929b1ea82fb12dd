#include "model/receipt_json.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

using namespace fennick;
using namespace Qt::StringLiterals;
using Kind = DecodingError::Kind;

namespace {

const QByteArray minimalMembers =
    R"("id": "A", "fileName": "a.pdf", "filePath": "/w/a.pdf", "scannedAt": "2025-03-04T17:05:09Z")";

std::expected<Receipt, DecodingError> decodeOne(const QByteArray &members) {
    const auto receipts = decodeReceipts("[{" + members + "}]");
    if (!receipts) {
        return std::unexpected(receipts.error());
    }
    return receipts->first();
}

QJsonObject encodeOne(const Receipt &receipt) {
    return QJsonDocument::fromJson(encodeReceipts({receipt})).array().first().toObject();
}

} // namespace

class ReceiptJsonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void minimalRecordTakesTheDefaults() {
        const auto receipt = decodeOne(minimalMembers);
        QVERIFY(receipt);
        QCOMPARE(receipt->id, u"A"_s);
        QCOMPARE(receipt->category, u"misc"_s);
        QCOMPARE(receipt->summary, QString());
        QCOMPARE(receipt->status, ReceiptStatus::done);
        QVERIFY(!receipt->addedToPhotos);
        QVERIFY(!receipt->date && !receipt->time && !receipt->amount && !receipt->currency &&
                !receipt->location && !receipt->error);
    }

    void nullCountsAsMissing() {
        const auto receipt =
            decodeOne(minimalMembers +
                      R"(, "date": null, "time": null, "amount": null, "currency": null,)"
                      R"("location": null, "category": null, "summary": null, "status": null, "error": null,)"
                      R"("addedToPhotos": null)");
        QVERIFY(receipt);
        QVERIFY(*receipt == *decodeOne(minimalMembers));
    }

    void requiredKeysMustBeThere_data() {
        QTest::addColumn<QString>("key");
        for (const char *const key : {"id", "fileName", "filePath", "scannedAt"}) {
            QTest::newRow(key) << QString::fromUtf8(key);
        }
    }
    void requiredKeysMustBeThere() {
        QFETCH(QString, key);
        QByteArray members = minimalMembers;
        members.replace('"' + key.toUtf8() + '"', "\"other\"");
        const auto receipt = decodeOne(members);
        QVERIFY(!receipt);
        QCOMPARE(receipt.error().kind, Kind::keyNotFound);
        QCOMPARE(receipt.error().key, key);
    }

    void wrongTypesAreMismatches_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QByteArray>("value");
        const auto add = [](const char *key, const char *value) {
            QTest::addRow("%s: %s", key, value) << QString::fromUtf8(key) << QByteArray(value);
        };
        for (const char *const key : {"id", "fileName", "filePath", "scannedAt"}) {
            add(key, "null");
            add(key, "1");
        }
        for (const char *const key :
             {"date", "time", "currency", "location", "category", "summary", "status", "error"}) {
            add(key, "1");
            add(key, "{}");
        }
        add("amount", "\"12.50\"");
        add("amount", "true");
        add("addedToPhotos", "1");
        add("addedToPhotos", "\"true\"");
    }
    void wrongTypesAreMismatches() {
        QFETCH(QString, key);
        QFETCH(QByteArray, value);
        const auto receipt = decodeOne(minimalMembers + ", \"" + key.toUtf8() + "\": " + value);
        QVERIFY(!receipt);
        QCOMPARE(receipt.error().kind, Kind::typeMismatch);
        QCOMPARE(receipt.error().key, key);
    }

    void unknownStatusIsCorruptedData_data() {
        QTest::addColumn<QByteArray>("status");
        for (const char *const status : {"Done", "PROCESSING", "finished", ""}) {
            QTest::addRow("'%s'", status) << QByteArray(status);
        }
    }
    void unknownStatusIsCorruptedData() {
        QFETCH(QByteArray, status);
        const auto receipt = decodeOne(minimalMembers + ", \"status\": \"" + status + '"');
        QVERIFY(!receipt);
        QCOMPARE(receipt.error().kind, Kind::dataCorrupted);
    }

    void firstErrorInDeclarationOrderIsTold() {
        const auto receipt = decodeOne(R"("addedToPhotos": 1, "status": "x", "fileName": 2, "id": "A")");
        QVERIFY(!receipt);
        QCOMPARE(receipt.error().key, u"fileName"_s);
    }

    void oneBadRecordFailsTheWholeList() {
        const auto receipts = decodeReceipts("[{" + minimalMembers + "}, {\"id\": \"B\"}]");
        QVERIFY(!receipts);
        QCOMPARE(receipts.error().kind, Kind::keyNotFound);
    }

    void damagedTextIsMalformed_data() {
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("object") << QByteArray("{}");
        QTest::newRow("cut") << QByteArray("[{" + minimalMembers);
        QTest::newRow("trailing text") << QByteArray("[] x");
        QTest::newRow("array of texts") << QByteArray("[\"a\"]");
        QTest::newRow("deep nesting") << QByteArray(100000, '[');
        for (const char *const value : {".5", "1.", R"("a\qb")", "\"a\nb\"", "NaN"}) {
            QTest::addRow("unknown key with %s", value)
                << QByteArray("[{" + minimalMembers + ", \"more\": " + value + "}]");
        }
        QTest::newRow("list in a list") << QByteArray("[[{" + minimalMembers + "}]]");
        QTest::newRow("broken UTF-8") << QByteArray("[{\"id\": \"\xFF\"}]");
    }
    void damagedTextIsMalformed() {
        QFETCH(QByteArray, json);
        const auto receipts = decodeReceipts(json);
        QVERIFY(!receipts);
        QCOMPARE(receipts.error().kind, Kind::malformed);
    }

    void keyOrderSlashesUnknownKeysAndByteOrderMarkDoNotMatter() {
        const auto receipts =
            decodeReceipts("\xEF\xBB\xBF"
                           R"([{"scannedAt": "s", "more": {"deep": [1, 2]}, "filePath": "\/w/a.pdf",)"
                           R"("amount": 23, "fileName": "a.pdf", "id": "A"}])");
        QVERIFY(receipts);
        QCOMPARE(receipts->first().filePath, u"/w/a.pdf"_s);
        QCOMPARE(receipts->first().amount, 23.0);
    }

    void unknownKeysMayHoldAnything_data() {
        QTest::addColumn<QByteArray>("value");
        for (const char *const value :
             {"18446744073709551616", "-123456789012345678901234567890", "1e400", "1e-400", "null",
              R"({"id": 5, "amount": [{"status": "x"}]})", R"([1, {"fileName": null}])"}) {
            QTest::newRow(value) << QByteArray(value);
        }
    }
    void unknownKeysMayHoldAnything() {
        QFETCH(QByteArray, value);
        const auto receipt =
            decodeOne("\"more\": " + value + ", " + minimalMembers + ", \"still\": " + value);
        QVERIFY(receipt);
        QVERIFY(*receipt == *decodeOne(minimalMembers));
    }

    void amountMayBeAnyNumber() {
        QCOMPARE(decodeOne(minimalMembers + ", \"amount\": 18446744073709551616")->amount,
                 18446744073709551616.0);
        QCOMPARE(decodeOne(minimalMembers + ", \"amount\": 1e-400")->amount, 0.0);
        const auto beyondAllDoubles = decodeOne(minimalMembers + ", \"amount\": 1e400");
        QVERIFY(beyondAllDoubles);
        QVERIFY(!beyondAllDoubles->amount);
    }

    void lastOfARepeatedKeyCounts() { QCOMPARE(decodeOne(minimalMembers + R"(, "id": "B")")->id, u"B"_s); }

    void freshReceiptWritesNoAbsentFields() {
        const QJsonObject object = encodeOne(freshReceipt(u"/w/a.pdf"_s));
        QCOMPARE(object.keys(), (QStringList{u"addedToPhotos"_s, u"category"_s, u"fileName"_s, u"filePath"_s,
                                             u"id"_s, u"scannedAt"_s, u"status"_s, u"summary"_s}));
        QCOMPARE(object[u"addedToPhotos"], QJsonValue(false));
        QCOMPARE(object[u"status"], QJsonValue(u"processing"_s));
    }

    void textThatBeginsWithAByteOrderMarkStaysAsItIs() {
        Receipt receipt = freshReceipt(u"\uFEFF\uFEFFa.pdf"_s);
        receipt.summary = u"\uFEFF"_s;
        const auto decoded = decodeReceipts(encodeReceipts({receipt}));
        QVERIFY(decoded);
        QCOMPARE(decoded->first().filePath, u"\uFEFF\uFEFFa.pdf"_s);
        QCOMPARE(decoded->first().summary, u"\uFEFF"_s);
    }

    void missingSummaryIsWrittenAsEmptyText() {
        const QByteArray json = encodeReceipts({*decodeOne(minimalMembers)});
        QVERIFY2(json.contains(R"("summary": "")"), json.constData());
    }

    void slashesAreEscaped() {
        const QByteArray json = encodeReceipts({freshReceipt(u"/w/a.pdf"_s)});
        QVERIFY2(json.contains(R"("filePath": "\/w\/a.pdf")"), json.constData());
    }

    void listIsPrettyPrintedWithOneKeyPerLine() {
        const QByteArray json = encodeReceipts({test::finishedReceipt(u"/w/a.pdf"_s)});
        QCOMPARE(json.count('\n'), 17); // brackets, braces and 13 members
    }

    void everythingSurvivesARoundTrip() {
        Receipt receipt = test::finishedReceipt(u"/w/Café \"x\"\\\r\n\t\u0001 \U0001F600.pdf"_s);
        receipt.error = u""_s;
        receipt.amount = 0.1;
        receipt.addedToPhotos = true;
        const auto decoded = decodeReceipts(encodeReceipts({receipt}));
        QVERIFY(decoded);
        QVERIFY(decoded->first() == receipt);
        QCOMPARE(decoded->first().filePath, receipt.filePath);
    }

    void everyFiniteAmountSurvivesARoundTrip_data() {
        QTest::addColumn<double>("amount");
        for (const double amount : {0.0, -0.0, 23.5, 1e-300, 9007199254740993.0, 123456789012345680000.0,
                                    1e20, 1.7976931348623157e308, 5e-324}) {
            QTest::addRow("%g", amount) << amount;
        }
    }
    void everyFiniteAmountSurvivesARoundTrip() {
        QFETCH(double, amount);
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.amount = amount;
        const auto decoded = decodeReceipts(encodeReceipts({receipt}));
        QVERIFY(decoded);
        QCOMPARE(*decoded->first().amount, amount);
    }

    void amountThatJsonCannotExpressIsLeftOut() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.amount = std::numeric_limits<double>::infinity();
        QVERIFY(!encodeOne(receipt).contains(u"amount"));
    }

    void unpairedSurrogateIsWrittenAsReplacementCharacter() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.summary = QString(QChar(0xD83D));
        const QByteArray json = encodeReceipts({receipt});
        QVERIFY(json.isValidUtf8());
        QCOMPARE(decodeReceipts(json)->first().summary, u"\uFFFD"_s);
    }

    void emptyListIsAnEmptyArray() {
        QVERIFY(QJsonDocument::fromJson(encodeReceipts({})).isArray());
        QVERIFY(decodeReceipts(encodeReceipts({}))->isEmpty());
    }

    void pathsAreOneCompactArray() {
        const QSet<QString> paths = {u"/a/b.pdf"_s, u"/c \"d\".pdf"_s};
        const QByteArray json = encodePaths(paths);
        QVERIFY(!json.contains('\n'));
        QCOMPARE(*decodePaths(json), paths);
        QCOMPARE(*decodePaths(R"(["/a", "/a"])"), QSet<QString>{u"/a"_s});
        QVERIFY(!decodePaths("[1]"));
        QVERIFY(!decodePaths("{}"));
    }
};

int receipt_json_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, ReceiptJsonTest>(argc, argv);
}
#include "receipt_json_test.moc"
