#include "desktop_test_case.h"
#include "support/process_status.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString evidenceTitle = u"Receipt Details"_s;
const QString notFound = u"Not found on the page"_s;

// Of the sample ticket.pdf, with another amount than is printed there.
const QByteArray answerWithWrongAmount =
    R"({"date": "2024-05-05", "time": "09:10", "amount": 81.6, "currency": "EUR",
    "location": "Auberge du Marronnier", "category": "breakfast", "summary": "Breakfast at the inn"})";

} // namespace

// Somebody sees in the built program what the service has made up, and puts it right, without a mouse.
class EvidenceTest : public DesktopTestCase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session().renew();
        session().server.setScript([](const HttpRequest &) { return answering(answerWithWrongAmount); });
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
        session().drop(u"ticket.pdf"_s,
                       readFile(QString::fromUtf8(FENNICK_SOURCE_DIR "/samples/receipts/ticket.pdf")));
        QVERIFY(session().waitForRows(1, u"done"_s));
    }

    void cleanup() { session().program.kill(); }

    void amountThatIsNotOnThePageIsSaidAndPutRight() {
        QVERIFY(engines().isEmpty());
        const QStringList kept = keptFiles();
        user().clickCell(mainTitle, u"Auberge du Marronnier"_s, 0, 5);
        user().press(mainTitle, u"ctrl+i"_s);
        user().waitForWindow(evidenceTitle);
        user().waitToSee(evidenceTitle, u"label"_s, notFound);
        QCOMPARE(descriptionOf(u"Amount"_s), notFound);
        QCOMPARE(descriptionOf(u"Date"_s), QString());
        QCOMPARE(descriptionOf(u"Page"_s), u"Marked: Date, Time, Currency, Location"_s);
        QVERIFY(!engines().isEmpty());

        tabTo(u"Amount"_s);
        user().press(evidenceTitle, u"ctrl+a"_s);
        user().type(evidenceTitle, u"18.6"_s);
        user().waitForWindow(u"Receipt Details*"_s);
        user().press(u"Receipt Details*"_s, u"ctrl+s"_s);
        user().waitForWindow(evidenceTitle);
        QVERIFY(session().waitFor([this] {
            return descriptionOf(u"Page"_s) == u"Marked: Date, Time, Amount, Currency, Location"_s;
        }));
        QVERIFY(!user().sees(evidenceTitle, u"label"_s, notFound));
        QCOMPARE(descriptionOf(u"Amount"_s), QString());

        QCOMPARE(session().server.requests().size(), 1); // the service was asked once, for the fields
        user().press(evidenceTitle, u"Escape"_s);
        user().waitUntilGone(evidenceTitle);
        QStringList keptNow = keptFiles();
        keptNow.removeOne(u"corrected.json"_s);
        QCOMPARE(keptNow, kept);
    }

private:
    Accessible element(const QString &name) const {
        const QList<Accessible> all = accessibility().elements(evidenceTitle);
        for (const Accessible &each : all) {
            if (each.name == name && each.role != u"label") {
                return each;
            }
        }
        return {};
    }
    QString descriptionOf(const QString &name) const { return accessibility().description(element(name)); }

    QString focused() const {
        const QList<Accessible> all = accessibility().elements(evidenceTitle);
        for (const Accessible &each : all) {
            if (accessibility().hasFocus(each)) {
                return each.name;
            }
        }
        return {};
    }

    void tabTo(const QString &name) const {
        while (focused() != name) {
            const QString before = focused();
            user().press(evidenceTitle, u"Tab"_s);
            QVERIFY(session().waitFor([&] { return focused() != before; }));
        }
    }

    QList<qint64> engines() const { return childrenNamed("fennick-engine", session().program.processId()); }

    // What the program keeps for itself.
    QStringList keptFiles() const {
        return QDir(QFileInfo(session().home.receiptsFile()).path()).entryList(QDir::Files, QDir::Name);
    }
};

int evidence_test(int argc, char **argv) {
    return runTest<QCoreApplication, EvidenceTest>(argc, argv);
}
#include "evidence_test.moc"
