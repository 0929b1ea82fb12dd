#include "desktop_test_case.h"
#include "numbered_receipts.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString reviewDetails = u"Receipt Details"_s;
const QString misread = u"2024-05-04 Lunch - Shop 4 $999.50.png"_s;
const QString corrected = u"2024-05-04 Lunch - Shop 4 $4.50.png"_s;
constexpr int readFiles = 30; // one of them twice
constexpr int keptReceipts = 29;
const QString sumOfKept = u"$449.50"_s; // 1.5 + ... + 29.5

} // namespace

// An hour of somebody who hands in thirty receipts: what was read wrong or came twice is put right, with
// mistakes and changes of mind. At its end list, folder, archive and report agree.
class ReviewHourTest : public DesktopTestCase {
    Q_OBJECT

protected:
    void prepare() override {
        session().renew();
        session().server.setScript([](const HttpRequest &request) {
            const int number = numberIn(request);
            return answering(number == 4 ? numberedAnswer(number).replace("4.5", "999.5")
                                         : numberedAnswer(number));
        });
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
    }

private Q_SLOTS:
    // The steps of the hour, each going on where the one before has ended.

    void thirtyReceiptsAreRead() {
        for (int number = 1; number <= keptReceipts; ++number) {
            session().drop(u"scan %1.png"_s.arg(number), numberedPicture(number));
        }
        QVERIFY(session().waitForRows(keptReceipts, u"done"_s));
        session().drop(u"once more.png"_s, numberedPicture(29));
        QVERIFY(session().waitForRows(readFiles, u"done"_s));
        QVERIFY(session().files().contains(misread));
    }

    void misreadAmountIsCorrected() {
        findAndSelect(u">900"_s, u"1 of 30 receipts found"_s);
        user().press(mainTitle, u"ctrl+i"_s);
        user().waitForWindow(reviewDetails);
        user().click(reviewDetails, u"text"_s, u"Amount"_s);
        user().press(reviewDetails, u"ctrl+a"_s);
        user().type(reviewDetails, u"4.5"_s);
        user().waitForWindow(reviewDetails + u'*');
        user().press(reviewDetails + u'*', u"ctrl+s"_s);
        user().waitForWindow(reviewDetails);
        QVERIFY(session().waitFor([this] { return session().files().contains(corrected); }));
        user().press(reviewDetails, u"Escape"_s);
        user().waitUntilGone(reviewDetails);
        endFind();
    }

    void correctionIsUndoneAndDoneAgain() {
        user().press(mainTitle, u"ctrl+z"_s);
        QVERIFY(session().waitFor([this] { return session().files().contains(misread); }));
        user().press(mainTitle, u"ctrl+shift+z"_s);
        QVERIFY(session().waitFor([this] { return session().files().contains(corrected); }));
        QVERIFY(!session().files().contains(misread));
    }

    void whatCameTwiceIsRemovedOnce() {
        findAndSelect(u"duplicate"_s, u"2 of 30 receipts found"_s);
        user().press(mainTitle, u"Delete"_s);
        QVERIFY(session().waitForRows(keptReceipts, u"done"_s));
        endFind();
        QCOMPARE(session().files().size(), readFiles); // its file stays
    }

    void wrongReceiptThatWasRemovedComesBack() {
        const QList<QJsonObject> before = session().rows();
        findAndSelect(u"12.5"_s, u"1 of 29 receipts found"_s);
        user().press(mainTitle, u"Delete"_s);
        QVERIFY(session().waitForRows(keptReceipts - 1, u"done"_s));
        endFind();
        user().press(mainTitle, u"ctrl+z"_s);
        QVERIFY(session().waitFor([&] { return session().rows() == before; }));
    }

    void clearedListComesBack() {
        const QList<QJsonObject> before = session().rows();
        user().click(mainTitle, u"push button"_s, u"Clear All"_s);
        QVERIFY(session().waitFor([] { return VirtualDesktop::windowCount(mainTitle) == 2; }));
        VirtualDesktop::pressForMenu({u"Tab"_s, u"Return"_s});
        QVERIFY(session().waitForRows(0, u"done"_s));
        user().waitToSee(mainTitle, u"label"_s, u"No receipts yet"_s);
        user().press(mainTitle, u"ctrl+z"_s);
        QVERIFY(session().waitFor([&] { return session().rows() == before; }));
    }

    void archivedListComesBack() {
        const QList<QJsonObject> before = session().rows();
        const QStringList files = session().files().keys();
        archive();
        user().press(mainTitle, u"ctrl+z"_s);
        QVERIFY(session().waitFor([&] { return session().rows() == before; }));
        QVERIFY(session().waitFor([&] { return session().files().keys() == files; }));
    }

    void reportHasEveryReceipt() {
        user().press(mainTitle, u"ctrl+shift+p"_s);
        user().waitToSee(u"PDF Report"_s, u"text"_s, u"Name on the report:"_s);
        user().type(u"PDF Report"_s, u"Jane Doe"_s);
        user().press(u"PDF Report"_s, u"Return"_s);
        user().answerFileDialog(u"Export Receipts"_s, report());
        QVERIFY(session().waitFor([this] { return QFile::exists(report()); }));
        QVERIFY(readFile(report()).contains("/Type/Outlines/Count 30/")); // the table and each receipt
    }

    void summaryAddsUpTheList() {
        user().press(mainTitle, u"ctrl+shift+s"_s);
        user().waitForWindow(u"Summary"_s);
        user().waitToSee(u"Summary"_s, u"cell"_s, sumOfKept);
        user().press(u"Summary"_s, u"Escape"_s);
        user().waitUntilGone(u"Summary"_s);
    }

    void everythingAgreesAtTheEnd() {
        QStringList listed;
        for (const QJsonObject &row : session().rows()) {
            listed.append(row.value(u"fileName"_s).toString());
        }
        archive();
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        const QDir folder(session().folder() + u"/Receipt Archive/"_s + today);
        listed.sort();
        QCOMPARE(folder.entryList({u"*.png"_s}, QDir::Files, QDir::Name), listed);
        const QList<QByteArray> ledger =
            readFile(folder.filePath(u"receipts-%1.csv"_s.arg(today))).trimmed().split('\n');
        QCOMPARE(ledger.size(), keptReceipts + 1); // and the names of the columns
        double sum = 0;
        for (const QByteArray &line : ledger.sliced(1)) {
            sum += line.split(',').at(2).toDouble();
        }
        QCOMPARE(u"$%1"_s.arg(sum, 0, 'f', 2), sumOfKept);
        // What remains in the folder is the file of the receipt that came twice.
        QCOMPARE(QDir(session().folder()).entryList(QDir::Files).size(), 1);
        QCOMPARE(session().server.requests().size(), readFiles); // nothing was read again
        QVERIFY(session().end());
    }

private:
    QString report() const { return session().home.path(u"report.pdf"_s); }

    // Leaves the first of the receipts that were found selected.
    void findAndSelect(const QString &words, const QString &count) const {
        user().press(mainTitle, u"ctrl+f"_s);
        user().waitToSee(mainTitle, u"text"_s, u"Find"_s);
        user().type(mainTitle, words);
        user().waitToSee(mainTitle, u"label"_s, count);
        user().press(mainTitle, u"Down"_s);
    }

    void endFind() const {
        user().press(mainTitle, u"ctrl+f"_s); // into the line, from wherever the focus is
        user().press(mainTitle, u"Escape"_s);
        QVERIFY(session().waitFor([this] { return !user().sees(mainTitle, u"text"_s, u"Find"_s); }));
    }

    void archive() {
        user().chooseFromMenu(mainTitle, u"Archive & Clear"_s, 1); // with a CSV ledger
        user().click(mainTitle, u"push button"_s, u"Export, Archive & Clear"_s);
        QVERIFY(session().waitForRows(0, u"done"_s));
    }
};

int review_hour_test(int argc, char **argv) {
    return runTest<QCoreApplication, ReviewHourTest>(argc, argv);
}
#include "review_hour_test.moc"
