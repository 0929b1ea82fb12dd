#include "model/receipt_query.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class ReceiptQueryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFieldIsSearched_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("isFound");
        const auto add = [](const QString &typed, bool isFound) {
            QTest::newRow(qPrintable(typed)) << typed << isFound;
        };
        for (const QString &typed :
             {u"mario"_s, u"CAFE"_s, u"lunch"_s, u"with friends"_s, u"friends mario"_s, u"2024-05"_s,
              u"12:30"_s, u"scan"_s, u"usd"_s, u"café"_s, u"\"with friends\""_s, u"  "_s, u"\"\""_s}) {
            add(typed, true);
        }
        for (const QString &typed : {u"luigi"_s, u"mario luigi"_s, u"\"friends with\""_s, u"eur"_s}) {
            add(typed, false);
        }
    }
    void everyFieldIsSearched() {
        QFETCH(QString, typed);
        QFETCH(bool, isFound);
        Receipt receipt = finishedReceipt(u"/w/scan.pdf"_s);
        receipt.summary = u"Lunch with friends"_s;
        QCOMPARE(finds(typed, receipt), isFound);
    }

    void reasonOfAFailureIsSearched() {
        Receipt failed = finishedReceipt(u"/w/a.pdf"_s);
        failed.error = u"The request timed out."_s;
        QVERIFY(finds(u"timed"_s, failed));
    }

    void nothingTypedFindsEverything() {
        QVERIFY(ReceiptQuery().isEmpty());
        QVERIFY(ReceiptQuery(u"  "_s).isEmpty());
        QVERIFY(!ReceiptQuery(u"a"_s).isEmpty());
    }

    void numbersAreFoundInAllForms_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("amount");
        QTest::addColumn<bool>("isFound");
        const auto add = [](const QString &typed, double amount, bool isFound) {
            QTest::addRow("%s in %.3f", qPrintable(typed), amount) << typed << amount << isFound;
        };
        for (const QString &typed : {u"12,50"_s, u"12.5"_s, u"12.50"_s, u"12,5"_s, u"$12.50"_s, u"12"_s}) {
            add(typed, 12.5, true);
        }
        add(u"12.5"_s, 12.05, false);
        add(u"12.50"_s, 112.5, false);
        add(u"1.234,56"_s, 1234.56, true);
        add(u"1,234.56"_s, 1234.56, true);
        add(u"1,234"_s, 1234, true);
        add(u"1,234"_s, 1.234, true);
        add(u"-5"_s, -5, true);
        add(u"5"_s, -5, false);
    }
    void numbersAreFoundInAllForms() {
        QFETCH(QString, typed);
        QFETCH(double, amount);
        QFETCH(bool, isFound);
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.amount = amount;
        QCOMPARE(finds(typed, receipt), isFound);
    }

    void numbersAreFoundInTexts() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.summary = u"Taxi to gate 42"_s;
        QVERIFY(finds(u"42"_s, receipt));
        QVERIFY(!finds(u"43"_s, receipt));
    }

    void comparisonsLookAtTheAmount_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("isFound");
        const auto add = [](const QString &typed, bool isFound) {
            QTest::newRow(qPrintable(typed)) << typed << isFound;
        };
        add(u">100"_s, true);
        add(u"> 100"_s, true);
        add(u">100,50"_s, false);
        add(u">=100,50"_s, true);
        add(u"<100.51"_s, true);
        add(u"<20"_s, false);
        add(u"<=100.5"_s, true);
        add(u"=100,5"_s, true);
        add(u">1,000"_s, false);
        add(u">100 <101"_s, true);
        add(u">€100"_s, true);
        add(u">x"_s, false);
        add(u">"_s, false);
    }
    void comparisonsLookAtTheAmount() {
        QFETCH(QString, typed);
        QFETCH(bool, isFound);
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        QVERIFY(!finds(typed, receipt)); // without an amount
        receipt.amount = 100.5;
        QCOMPARE(finds(typed, receipt), isFound);
    }

    void currencyNarrowsTheList() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.currency = u"EUR"_s;
        QVERIFY(finds(u"eur"_s, receipt));
        receipt.currency = u"USD"_s;
        receipt.location = u"Restaurateur"_s;
        QVERIFY(!finds(u"eur"_s, receipt));
        receipt.summary = u"A cup of tea"_s; // CUP is a currency too
        QVERIFY(finds(u"cup"_s, receipt));
    }

    void monthsNarrowTheList_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("isFound");
        const auto add = [](const QString &typed, bool isFound) {
            QTest::newRow(qPrintable(typed)) << typed << isFound;
        };
        for (const QString &typed : {u"march 2024"_s, u"March"_s, u"mar 2024"_s, u"2024 march"_s,
                                     u"märz 2024"_s, u"MÄRZ"_s, u"2024"_s, u"march 2024 hotel"_s}) {
            add(typed, true);
        }
        for (const QString &typed :
             {u"march 2023"_s, u"april 2024"_s, u"mars 2024"_s, u"march 2024 taxi"_s}) {
            add(typed, false);
        }
    }
    void monthsNarrowTheList() {
        QFETCH(QString, typed);
        QFETCH(bool, isFound);
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.date = u"2024-03-31"_s;
        receipt.location = u"Hotel"_s;
        QCOMPARE(finds(typed, receipt, QLocale(QLocale::German)), isFound);
    }

    void nameOfAMonthMayBeAWord() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.location = u"May & Sons"_s;
        QVERIFY(finds(u"may"_s, receipt));
        QVERIFY(!finds(u"may 2024"_s, receipt));
    }

    void keywordsNarrowTheList() {
        Receipt receipt = finishedReceipt(u"/w/a.pdf"_s);
        QVERIFY(!finds(u"failed"_s, receipt));
        QVERIFY(finds(u"no photo"_s, receipt));
        QVERIFY(!finds(u"duplicate"_s, receipt));
        QVERIFY(ReceiptQuery(u"duplicate"_s).matches(SearchableReceipt(receipt, true)));
        QVERIFY(finds(u"mario No Photo"_s, receipt));
        receipt.addedToPhotos = true;
        receipt.status = ReceiptStatus::error;
        QVERIFY(finds(u"Failed"_s, receipt));
        QVERIFY(!finds(u"failed no photo"_s, receipt));
        QVERIFY(!finds(u"\"failed\""_s, receipt)); // the word itself
    }

private:
    static bool finds(const QString &typed, const Receipt &receipt,
                      const QLocale &language = QLocale(QLocale::English)) {
        return ReceiptQuery(typed, language).matches(SearchableReceipt(receipt));
    }
};

int receipt_query_test(int argc, char **argv) {
    return runTest<QCoreApplication, ReceiptQueryTest>(argc, argv);
}
#include "receipt_query_test.moc"
