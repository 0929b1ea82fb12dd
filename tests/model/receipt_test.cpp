#include "model/receipt.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QRegularExpression>

using namespace fennick;
using namespace Qt::StringLiterals;

class ReceiptTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void freshReceiptIsProcessingAndOtherwiseEmpty() {
        const Receipt receipt = freshReceipt(u"/watched/sub/Scan 1.pdf"_s);
        QCOMPARE(receipt.fileName, u"Scan 1.pdf"_s);
        QCOMPARE(receipt.filePath, u"/watched/sub/Scan 1.pdf"_s);
        QVERIFY(!receipt.date && !receipt.time && !receipt.amount && !receipt.currency && !receipt.location &&
                !receipt.error);
        QCOMPARE(receipt.category, u"misc"_s);
        QVERIFY(receipt.summary.isEmpty());
        QCOMPARE(receipt.status, ReceiptStatus::processing);
        QVERIFY(!receipt.addedToPhotos);
    }

    void identifierIsAnUpperCaseUuidOfItsOwn() {
        const QString id = freshReceipt(u"/a.pdf"_s).id;
        const QRegularExpression uuid(
            u"^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"_s);
        QVERIFY2(uuid.match(id).hasMatch(), qPrintable(id));
        QVERIFY(freshReceipt(u"/a.pdf"_s).id != id);
    }

    void intakeMomentIsUtcWithWholeSeconds() {
        const QString before = QDateTime::currentDateTimeUtc().toString(u"yyyy-MM-dd'T'HH:mm:ss'Z'");
        const QString stamp = freshReceipt(u"/a.pdf"_s).scannedAt;
        const QString after = QDateTime::currentDateTimeUtc().toString(u"yyyy-MM-dd'T'HH:mm:ss'Z'");
        QVERIFY2(before <= stamp && stamp <= after, qPrintable(stamp));
        QCOMPARE(stamp.size(), 20);
    }

    void statusHasExactlyThreeRawValues() {
        QCOMPARE(receiptStatusFromRawValue(u"processing"_s), ReceiptStatus::processing);
        QCOMPARE(receiptStatusFromRawValue(u"done"_s), ReceiptStatus::done);
        QCOMPARE(receiptStatusFromRawValue(u"error"_s), ReceiptStatus::error);
        for (const char *const text : {"Done", "DONE", "", "failed", "done "}) {
            QVERIFY2(!receiptStatusFromRawValue(QString::fromUtf8(text)), text);
        }
    }

    void statusHashesLikeItsRawValue() { QCOMPARE(qHash(ReceiptStatus::done, 7), ::qHash(u"done"_s, 7)); }

    void everyFieldCountsInEquality_data() {
        QTest::addColumn<int>("field");
        for (int field = 0; field < 14; ++field) {
            QTest::addRow("field %d", field) << field;
        }
    }
    void everyFieldCountsInEquality() {
        QFETCH(int, field);
        const Receipt receipt = freshReceipt(u"/a.pdf"_s);
        Receipt other = receipt;
        QVERIFY(other == receipt);
        const QString text = u"x"_s;
        switch (field) {
        case 0:
            other.id = text;
            break;
        case 1:
            other.fileName = text;
            break;
        case 2:
            other.filePath = text;
            break;
        case 3:
            other.date = text;
            break;
        case 4:
            other.time = text;
            break;
        case 5:
            other.amount = 1;
            break;
        case 6:
            other.currency = text;
            break;
        case 7:
            other.location = text;
            break;
        case 8:
            other.category = text;
            break;
        case 9:
            other.summary = text;
            break;
        case 10:
            other.scannedAt = text;
            break;
        case 11:
            other.status = ReceiptStatus::done;
            break;
        case 12:
            other.error = text;
            break;
        case 13:
            other.addedToPhotos = true;
            break;
        }
        QVERIFY(!(other == receipt));
    }

    void absentAndEmptyErrorDiffer() {
        const Receipt receipt = freshReceipt(u"/a.pdf"_s);
        Receipt other = receipt;
        other.error = QString();
        QVERIFY(!(other == receipt));
    }

    void canonicallyEquivalentTextsAreEqual_data() {
        QTest::addColumn<int>("field");
        for (int field = 0; field < 11; ++field) {
            QTest::addRow("text %d", field) << field;
        }
    }
    void canonicallyEquivalentTextsAreEqual() {
        QFETCH(int, field);
        const Receipt blank = freshReceipt(u"/a.pdf"_s);
        const Receipt composed = withText(blank, field, u"Caf\u00E9 \u212B"_s);
        const Receipt decomposed = withText(blank, field, u"Cafe\u0301 A\u030A"_s);
        QVERIFY(composed == decomposed);
        const Receipt compatible = withText(blank, field, u"\uFB01"_s);
        QVERIFY(!(compatible == withText(blank, field, u"fi"_s))); // looks alike, but is another text
    }

private:
    static Receipt withText(Receipt receipt, int field, const QString &text) {
        for (const auto &member : {&Receipt::id, &Receipt::fileName, &Receipt::filePath, &Receipt::category,
                                   &Receipt::summary, &Receipt::scannedAt}) {
            if (field-- == 0) {
                receipt.*member = text;
            }
        }
        for (const auto &member :
             {&Receipt::date, &Receipt::time, &Receipt::currency, &Receipt::location, &Receipt::error}) {
            if (field-- == 0) {
                receipt.*member = text;
            }
        }
        return receipt;
    }
};

int receipt_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, ReceiptTest>(argc, argv);
}
#include "receipt_test.moc"
