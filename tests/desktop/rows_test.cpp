#include "desktop_test_case.h"
#include "support/test_program.h"

#include <QCoreApplication>

#include <algorithm>
#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

HttpReply refusingEverything(const HttpRequest &) {
    return HttpReply{.status = 500, .body = "no", .headers = {}};
}

} // namespace

// Somebody goes through many rows at once, and looks for one, in the built program.
class RowsTest : public DesktopTestCase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session().renew();
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
    }

    void cleanup() { session().program.kill(); }

    void failedReceiptsAreRetriedAndRemovedByKeyboard() {
        session().server.setScript(refusingEverything);
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s}) {
            session().drop(name, "receipt " + name.toUtf8());
        }
        QVERIFY(session().waitForRows(3, u"error"_s));
        session().server.setScript([](const HttpRequest &) { return answering(lunchAnswer); });
        user().press(mainTitle, u"ctrl+shift+t"_s);
        QVERIFY(session().waitForRows(3, u"done"_s));
        QCOMPARE(session().server.requests().size(), 6);

        user().clickCell(mainTitle, u"Dockside Deli"_s, 0, 5);
        user().press(mainTitle, u"shift+Down"_s);
        user().press(mainTitle, u"Delete"_s);
        QVERIFY(session().waitFor([this] { return session().rows().size() == 1; }));
        QCOMPARE(session().files().size(), 3); // the files stay
        QVERIFY(session().end());
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
        QVERIFY(
            !session().waitFor([this] { return session().rows().size() != 1; }, 1500)); // nor are read again
        QCOMPARE(session().server.requests().size(), 6);
    }

    void receiptIsFoundByTypingAndAllReturnWithEscape() {
        int number = 0;
        session().server.setScript([&number](const HttpRequest &) {
            const QByteArray place = number == 1 ? "Hotel Post" : "Dockside Deli";
            ++number;
            return answering(R"({"date": "2024-03-01", "amount": 1234.5, "currency": "EUR", "location": ")" +
                             place + R"(", "category": "travel", "summary": "Paid."})");
        });
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s}) {
            session().drop(name, "receipt " + name.toUtf8());
        }
        QVERIFY(session().waitForRows(3, u"done"_s));
        user().press(mainTitle, u"ctrl+f"_s);
        user().waitToSee(mainTitle, u"text"_s, u"Find"_s);
        user().waitToSee(mainTitle, u"push button"_s, u"Close Find"_s);
        user().waitToSee(mainTitle, u"label"_s, u"3 of 3 receipts found"_s);
        user().type(mainTitle, u"hotel >1.000 march 2024"_s);
        user().waitToSee(mainTitle, u"label"_s, u"1 of 3 receipts found"_s);
        user().waitToSee(mainTitle, u"cell"_s, u"Hotel Post"_s);
        QVERIFY(!user().sees(mainTitle, u"cell"_s, u"Dockside Deli"_s));
        user().press(mainTitle, u"Escape"_s);
        user().waitToSee(mainTitle, u"cell"_s, u"Dockside Deli"_s);
        QVERIFY(!user().sees(mainTitle, u"text"_s, u"Find"_s));
    }

private:
};

int rows_test(int argc, char **argv) {
    return runTest<QCoreApplication, RowsTest>(argc, argv);
}
#include "rows_test.moc"
