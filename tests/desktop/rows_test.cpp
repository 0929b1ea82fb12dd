#include "desktop_surroundings.h"
#include "desktop_user.h"
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
class RowsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (const QByteArray reason = DesktopSurroundings::reasonToSkip(); !reason.isEmpty()) {
            QSKIP(reason.constData());
        }
        surroundings_ = std::make_unique<DesktopSurroundings>();
        user_ = std::make_unique<DesktopUser>(&surroundings_->accessibility, [this](const auto &condition) {
            return session().waitFor(condition);
        });
    }

    void cleanupTestCase() { surroundings_.reset(); }

    void init() {
        session().renew();
        session().program.start();
        user_->waitForWindow(mainTitle);
        QVERIFY(session().waitFor([this] { return session().program.isWatching(session().folder()); }));
    }

    void cleanup() { session().program.kill(); }

    void failedReceiptsAreRetriedAndRemovedByKeyboard() {
        session().server.setScript(refusingEverything);
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s}) {
            session().drop(name, "receipt " + name.toUtf8());
        }
        QVERIFY(session().waitForRows(3, u"error"_s));
        session().server.setScript([](const HttpRequest &) { return answering(lunchAnswer); });
        user_->press(mainTitle, u"ctrl+shift+t"_s);
        QVERIFY(session().waitForRows(3, u"done"_s));
        QCOMPARE(session().server.requests().size(), 6);

        user_->clickCell(mainTitle, u"Dockside Deli"_s, 0, 5);
        user_->press(mainTitle, u"shift+Down"_s);
        user_->press(mainTitle, u"Delete"_s);
        QVERIFY(session().waitFor([this] { return session().rows().size() == 1; }));
        QCOMPARE(session().files().size(), 3); // the files stay
        QVERIFY(session().end());
        session().program.start();
        user_->waitForWindow(mainTitle);
        QVERIFY(session().waitFor([this] { return session().program.isWatching(session().folder()); }));
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
        user_->press(mainTitle, u"ctrl+f"_s);
        user_->waitToSee(mainTitle, u"text"_s, u"Find"_s);
        user_->waitToSee(mainTitle, u"push button"_s, u"Close Find"_s);
        user_->waitToSee(mainTitle, u"label"_s, u"3 of 3 receipts found"_s);
        user_->type(mainTitle, u"hotel >1.000 march 2024"_s);
        user_->waitToSee(mainTitle, u"label"_s, u"1 of 3 receipts found"_s);
        user_->waitToSee(mainTitle, u"cell"_s, u"Hotel Post"_s);
        QVERIFY(!user_->sees(mainTitle, u"cell"_s, u"Dockside Deli"_s));
        user_->press(mainTitle, u"Escape"_s);
        user_->waitToSee(mainTitle, u"cell"_s, u"Dockside Deli"_s);
        QVERIFY(!user_->sees(mainTitle, u"text"_s, u"Find"_s));
    }

private:
    UserSession &session() const { return surroundings_->session; }

    std::unique_ptr<DesktopSurroundings> surroundings_;
    std::unique_ptr<DesktopUser> user_;
};

int rows_test(int argc, char **argv) {
    return runTest<QCoreApplication, RowsTest>(argc, argv);
}
#include "rows_test.moc"
