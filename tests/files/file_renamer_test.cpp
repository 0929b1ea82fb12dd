#include "files/file_renamer.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <limits>
#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class FileRenamerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void nameTellsDateCategoryPlaceAndAmount() {
        QCOMPARE(FileRenamer::buildNewFileName(finishedReceipt(u"/w/scan.PDF"_s)),
                 u"2024-05-01 Lunch - Mario's Cafe $23.50.pdf"_s);
    }

    void receiptWithNothingKnownIsUndatedMisc() {
        QCOMPARE(FileRenamer::buildNewFileName(freshReceipt(u"/w/Scan.pdf"_s)), u"Undated Misc.pdf"_s);
    }

    void hotelWithoutADate() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.category = u"hotel"_s;
        receipt.currency = u"CHF"_s;
        receipt.amount = 120;
        QCOMPARE(FileRenamer::baseName(receipt), u"Undated Hotel CHF 120.00"_s);
    }

    void amountWithoutCurrencyHasNoSymbol() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.date = u"2024-05-01"_s;
        receipt.amount = 9.99;
        QCOMPARE(FileRenamer::baseName(receipt), u"2024-05-01 Misc 9.99"_s);
    }

    void emptyCategoryGivesReceipt() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.category.clear();
        QCOMPARE(FileRenamer::baseName(receipt), u"Undated Receipt"_s);
    }

    void baseNameThatSanitisesToNothingIsReceipt() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.date = u"??"_s;
        receipt.category = u"//"_s;
        QCOMPARE(FileRenamer::baseName(receipt), u"Receipt"_s);
    }

    void locationOfRemovedCharactersAddsNoPiece() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.location = u"///"_s;
        QCOMPARE(FileRenamer::baseName(receipt), u"Undated Misc"_s);
    }

    void amountsFollowTheCurrency_data() {
        QTest::addColumn<QString>("currency");
        QTest::addColumn<QString>("text");
        const auto add = [](const char *currency, const char *text) {
            QTest::newRow(currency) << QString::fromUtf8(currency) << QString::fromUtf8(text);
        };
        add("USD", "$1234.50");
        add("EUR", "€1234.50");
        add("GBP", "£1234.50");
        add("JPY", "¥1234.50");
        add("CAD", "C$1234.50");
        add("AUD", "A$1234.50");
        add("CHF", "CHF 1234.50");
        add("SEK", "SEK 1234.50");
        add("usd", "$1234.50");
        add("sek", "SEK 1234.50");
    }
    void amountsFollowTheCurrency() {
        QFETCH(QString, currency);
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.amount = 1234.5;
        receipt.currency = currency;
        QTEST(FileRenamer::baseName(receipt).mid(13), "text");
    }

    void infiniteAmountIsLeftOut() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.amount = std::numeric_limits<double>::infinity();
        QCOMPARE(FileRenamer::baseName(receipt), u"Undated Misc"_s);
    }

    void titleCaseTouchesOnlyFirstCharactersBetweenBlanks() {
        QCOMPARE(FileRenamer::titleCase(u"  taxi  and bUS "_s), u"Taxi And BUS"_s);
        QCOMPARE(FileRenamer::titleCase(u"a\tb"_s), u"A\tb"_s);
        QCOMPARE(FileRenamer::titleCase(u"ßa é"_s), u"SSa É"_s);
        QCOMPARE(FileRenamer::titleCase(QString()), QString());
    }

    void sanitizeDeletesAndCollapses() {
        QCOMPARE(FileRenamer::sanitize(u" a/b \n\t c: *d* "_s), u"ab c d"_s);
        QCOMPARE(FileRenamer::sanitize(u"M.A.X.'s $5 Café"_s), u"M.A.X.'s $5 Café"_s);
    }

    void absentCodeHasNoSymbol() { QCOMPARE(FileRenamer::currencySymbol(std::nullopt), QString()); }

    void fileWithoutExtensionGetsNoDot() {
        QCOMPARE(FileRenamer::buildNewFileName(freshReceipt(u"/w/scan"_s)), u"Undated Misc"_s);
    }

    void renamesInPlaceAndReturnsTheNewPath() {
        const auto renamed = FileRenamer::rename(receiptOf("Scan 1.PDF"));
        QVERIFY(renamed);
        QCOMPARE(renamed->fileName, u"2024-05-01 Lunch - Mario's Cafe $23.50.pdf"_s);
        QCOMPARE(renamed->filePath, path(renamed->fileName));
        QCOMPARE(readFile(renamed->filePath), QByteArray("content of Scan 1.PDF"));
        QCOMPARE(names().size(), 1);
    }

    void keepsExtensionWhenNameIsTaken() {
        const QString stem = u"2024-05-01 Lunch - Mario's Cafe $23.50"_s;
        QCOMPARE(FileRenamer::rename(receiptOf("a.pdf"))->fileName, stem + u".pdf"_s);
        QCOMPARE(FileRenamer::rename(receiptOf("b.pdf"))->fileName, stem + u" (2).pdf"_s);
        QCOMPARE(FileRenamer::rename(receiptOf("c.pdf"))->fileName, stem + u" (3).pdf"_s);
        QCOMPARE(readFile(path(stem + u" (2).pdf"_s)), QByteArray("content of b.pdf"));
    }

    // Only on case-sensitive file systems, such as Linux's own.
    void namesThatDifferInCaseOrNormalFormOnlyAreOthers() {
        const QString name = u"2024-05-01 Lunch - Caf\u00E9 $23.50.pdf"_s;
        const QString upper = name.toUpper();
        const QString decomposed = name.normalized(QString::NormalizationForm_D);
        writeFile(path(upper), "upper");
        writeFile(path(decomposed), "decomposed");
        if (QFile::exists(path(name))) {
            QSKIP("This file system does not tell such names apart");
        }
        Receipt receipt = receiptOf("a.pdf");
        receipt.location = u"Caf\u00E9"_s;
        QCOMPARE(FileRenamer::rename(receipt)->fileName, name);
        QCOMPARE(readFile(path(upper)), QByteArray("upper"));
        QCOMPARE(readFile(path(decomposed)), QByteArray("decomposed"));
        QCOMPARE(readFile(path(name)), QByteArray("content of a.pdf"));
    }

    void numberOfANameWithoutExtensionStandsAtItsEnd() {
        writeFile(path(u"Undated Misc"_s), "");
        QCOMPARE(FileRenamer::pickAvailableName(folder_->path(), u"Undated Misc"_s), u"Undated Misc (2)"_s);
    }

    void percentSignsInANameAreNoPlacesForTheNumber() {
        const QString name = u"Undated Misc - 10%1 off%2.pdf"_s;
        writeFile(path(name), "first");
        QCOMPARE(FileRenamer::pickAvailableName(folder_->path(), name),
                 u"Undated Misc - 10%1 off%2 (2).pdf"_s);
    }

    void fileThatHasItsNameIsLeftAlone() {
        const auto first = FileRenamer::rename(receiptOf("a.pdf"));
        QVERIFY(!FileRenamer::rename(finishedReceipt(first->filePath)));
        QCOMPARE(names(), QStringList{first->fileName});
    }

    void vanishedFileIsNotRenamed() {
        QVERIFY(!FileRenamer::rename(finishedReceipt(path(u"missing.pdf"_s))));
        QVERIFY(names().isEmpty());
    }

    void nameTooLongForTheFileSystemLeavesTheFile() {
        Receipt receipt = receiptOf("a.pdf");
        receipt.location = u"x"_s.repeated(300);
        QVERIFY(!FileRenamer::rename(receipt));
        QCOMPARE(names(), QStringList{u"a.pdf"_s});
    }

    void nameWithANullCharacterLeavesTheFiles() {
        // What a system call would take for the whole name.
        writeFile(path(u"2024-05-01 Lunch - Cafe"_s), "another");
        Receipt receipt = receiptOf("a.pdf");
        receipt.location = u"Cafe"_s + QChar(QChar::Null) + u"Bar"_s;
        QVERIFY(!FileRenamer::rename(receipt));
        QCOMPARE(names(), (QStringList{u"2024-05-01 Lunch - Cafe"_s, u"a.pdf"_s}));
        QCOMPARE(readFile(path(u"2024-05-01 Lunch - Cafe"_s)), QByteArray("another"));
    }

    void linkWithoutTargetKeepsItsName() {
        const QString wanted = u"2024-05-01 Lunch - Mario's Cafe $23.50.pdf"_s;
        QFile::link(path(u"nowhere"_s), path(wanted));
        QCOMPARE(FileRenamer::rename(receiptOf("a.pdf"))->fileName,
                 u"2024-05-01 Lunch - Mario's Cafe $23.50 (2).pdf"_s);
    }

private:
    QString path(const QString &name) const { return folder_->filePath(name); }

    Receipt receiptOf(const char *name) {
        writeFile(path(QString::fromUtf8(name)), QByteArray("content of ") + name);
        return finishedReceipt(path(QString::fromUtf8(name)));
    }

    QStringList names() const { return QDir(folder_->path()).entryList(QDir::Files); }

    std::unique_ptr<QTemporaryDir> folder_;
};

int file_renamer_test(int argc, char **argv) {
    return runTest<QCoreApplication, FileRenamerTest>(argc, argv);
}
#include "file_renamer_test.moc"
