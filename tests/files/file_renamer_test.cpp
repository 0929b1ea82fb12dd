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

class FileRenamerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void nameTellsDateCategoryPlaceAndAmount() {
        QCOMPARE(FileRenamer::buildNewFileName(finishedReceipt(QStringLiteral("/w/scan.PDF"))),
                 QStringLiteral("2024-05-01 Lunch - Mario's Cafe $23.50.pdf"));
    }

    void receiptWithNothingKnownIsUndatedMisc() {
        QCOMPARE(FileRenamer::buildNewFileName(freshReceipt(QStringLiteral("/w/Scan.pdf"))),
                 QStringLiteral("Undated Misc.pdf"));
    }

    void hotelWithoutADate() {
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        receipt.category = QStringLiteral("hotel");
        receipt.currency = QStringLiteral("CHF");
        receipt.amount = 120;
        QCOMPARE(FileRenamer::baseName(receipt), QStringLiteral("Undated Hotel CHF 120.00"));
    }

    void amountWithoutCurrencyHasNoSymbol() {
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        receipt.date = QStringLiteral("2024-05-01");
        receipt.amount = 9.99;
        QCOMPARE(FileRenamer::baseName(receipt), QStringLiteral("2024-05-01 Misc 9.99"));
    }

    void emptyCategoryGivesReceipt() {
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        receipt.category.clear();
        QCOMPARE(FileRenamer::baseName(receipt), QStringLiteral("Undated Receipt"));
    }

    void baseNameThatSanitisesToNothingIsReceipt() {
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        receipt.date = QStringLiteral("??");
        receipt.category = QStringLiteral("//");
        QCOMPARE(FileRenamer::baseName(receipt), QStringLiteral("Receipt"));
    }

    void locationOfRemovedCharactersAddsNoPiece() {
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        receipt.location = QStringLiteral("///");
        QCOMPARE(FileRenamer::baseName(receipt), QStringLiteral("Undated Misc"));
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
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        receipt.amount = 1234.5;
        receipt.currency = currency;
        QTEST(FileRenamer::baseName(receipt).mid(13), "text");
    }

    void infiniteAmountIsLeftOut() {
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        receipt.amount = std::numeric_limits<double>::infinity();
        QCOMPARE(FileRenamer::baseName(receipt), QStringLiteral("Undated Misc"));
    }

    void titleCaseTouchesOnlyFirstCharactersBetweenBlanks() {
        QCOMPARE(FileRenamer::titleCase(QStringLiteral("  taxi  and bUS ")), QStringLiteral("Taxi And BUS"));
        QCOMPARE(FileRenamer::titleCase(QStringLiteral("a\tb")), QStringLiteral("A\tb"));
        QCOMPARE(FileRenamer::titleCase(QStringLiteral("ßa é")), QStringLiteral("SSa É"));
        QCOMPARE(FileRenamer::titleCase(QString()), QString());
    }

    void sanitizeDeletesAndCollapses() {
        QCOMPARE(FileRenamer::sanitize(QStringLiteral(" a/b \n\t c: *d* ")), QStringLiteral("ab c d"));
        QCOMPARE(FileRenamer::sanitize(QStringLiteral("M.A.X.'s $5 Café")),
                 QStringLiteral("M.A.X.'s $5 Café"));
    }

    void absentCodeHasNoSymbol() { QCOMPARE(FileRenamer::currencySymbol(std::nullopt), QString()); }

    void fileWithoutExtensionGetsNoDot() {
        QCOMPARE(FileRenamer::buildNewFileName(freshReceipt(QStringLiteral("/w/scan"))),
                 QStringLiteral("Undated Misc"));
    }

    void renamesInPlaceAndReturnsTheNewPath() {
        const auto renamed = FileRenamer::rename(receiptOf("Scan 1.PDF"));
        QVERIFY(renamed);
        QCOMPARE(renamed->fileName, QStringLiteral("2024-05-01 Lunch - Mario's Cafe $23.50.pdf"));
        QCOMPARE(renamed->filePath, path(renamed->fileName));
        QCOMPARE(readFile(renamed->filePath), QByteArray("content of Scan 1.PDF"));
        QCOMPARE(names().size(), 1);
    }

    void keepsExtensionWhenNameIsTaken() {
        const QString stem = QStringLiteral("2024-05-01 Lunch - Mario's Cafe $23.50");
        QCOMPARE(FileRenamer::rename(receiptOf("a.pdf"))->fileName, stem + QStringLiteral(".pdf"));
        QCOMPARE(FileRenamer::rename(receiptOf("b.pdf"))->fileName, stem + QStringLiteral(" (2).pdf"));
        QCOMPARE(FileRenamer::rename(receiptOf("c.pdf"))->fileName, stem + QStringLiteral(" (3).pdf"));
        QCOMPARE(readFile(path(stem + QStringLiteral(" (2).pdf"))), QByteArray("content of b.pdf"));
    }

    // Only on case-sensitive file systems, such as Linux's own.
    void namesThatDifferInCaseOrNormalFormOnlyAreOthers() {
        const QString name = QStringLiteral("2024-05-01 Lunch - Caf\u00E9 $23.50.pdf");
        const QString upper = name.toUpper();
        const QString decomposed = name.normalized(QString::NormalizationForm_D);
        writeFile(path(upper), "upper");
        writeFile(path(decomposed), "decomposed");
        if (QFile::exists(path(name))) {
            QSKIP("This file system does not tell such names apart");
        }
        Receipt receipt = receiptOf("a.pdf");
        receipt.location = QStringLiteral("Caf\u00E9");
        QCOMPARE(FileRenamer::rename(receipt)->fileName, name);
        QCOMPARE(readFile(path(upper)), QByteArray("upper"));
        QCOMPARE(readFile(path(decomposed)), QByteArray("decomposed"));
        QCOMPARE(readFile(path(name)), QByteArray("content of a.pdf"));
    }

    void numberOfANameWithoutExtensionStandsAtItsEnd() {
        writeFile(path(QStringLiteral("Undated Misc")), "");
        QCOMPARE(FileRenamer::pickAvailableName(folder_->path(), QStringLiteral("Undated Misc")),
                 QStringLiteral("Undated Misc (2)"));
    }

    void percentSignsInANameAreNoPlacesForTheNumber() {
        const QString name = QStringLiteral("Undated Misc - 10%1 off%2.pdf");
        writeFile(path(name), "first");
        QCOMPARE(FileRenamer::pickAvailableName(folder_->path(), name),
                 QStringLiteral("Undated Misc - 10%1 off%2 (2).pdf"));
    }

    void fileThatHasItsNameIsLeftAlone() {
        const auto first = FileRenamer::rename(receiptOf("a.pdf"));
        QVERIFY(!FileRenamer::rename(finishedReceipt(first->filePath)));
        QCOMPARE(names(), QStringList{first->fileName});
    }

    void vanishedFileIsNotRenamed() {
        QVERIFY(!FileRenamer::rename(finishedReceipt(path(QStringLiteral("missing.pdf")))));
        QVERIFY(names().isEmpty());
    }

    void nameTooLongForTheFileSystemLeavesTheFile() {
        Receipt receipt = receiptOf("a.pdf");
        receipt.location = QStringLiteral("x").repeated(300);
        QVERIFY(!FileRenamer::rename(receipt));
        QCOMPARE(names(), QStringList{QStringLiteral("a.pdf")});
    }

    void nameWithANullCharacterLeavesTheFiles() {
        // What a system call would take for the whole name.
        writeFile(path(QStringLiteral("2024-05-01 Lunch - Cafe")), "another");
        Receipt receipt = receiptOf("a.pdf");
        receipt.location = QStringLiteral("Cafe") + QChar(QChar::Null) + QStringLiteral("Bar");
        QVERIFY(!FileRenamer::rename(receipt));
        QCOMPARE(names(), (QStringList{QStringLiteral("2024-05-01 Lunch - Cafe"), QStringLiteral("a.pdf")}));
        QCOMPARE(readFile(path(QStringLiteral("2024-05-01 Lunch - Cafe"))), QByteArray("another"));
    }

    void linkWithoutTargetKeepsItsName() {
        const QString wanted = QStringLiteral("2024-05-01 Lunch - Mario's Cafe $23.50.pdf");
        QFile::link(path(QStringLiteral("nowhere")), path(wanted));
        QCOMPARE(FileRenamer::rename(receiptOf("a.pdf"))->fileName,
                 QStringLiteral("2024-05-01 Lunch - Mario's Cafe $23.50 (2).pdf"));
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
