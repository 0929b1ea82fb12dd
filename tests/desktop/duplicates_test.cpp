#include "desktop_test_case.h"
#include "support/test_program.h"

#include <QCoreApplication>

#include <algorithm>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString duplicatesDetails = u"Receipt Details"_s;
const QString summaryTitle = u"Summary"_s;

} // namespace

// Somebody looks for receipts that came twice, and at what was spent, in the built program and without a
// mouse.
class DuplicatesTest : public DesktopTestCase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session().renew();
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
        session().drop(u"a.pdf"_s, "one");
        QVERIFY(session().waitForRows(1, u"done"_s));
        session().drop(u"b.pdf"_s, "two");
        QVERIFY(session().waitForRows(2, u"done"_s));
    }

    void cleanup() { session().program.kill(); }

    void receiptThatCameTwiceIsFoundAndLeadsToTheOther() {
        user().press(mainTitle, u"ctrl+f"_s);
        user().waitToSee(mainTitle, u"text"_s, u"Find"_s);
        user().type(mainTitle, u"duplicate"_s);
        user().waitToSee(mainTitle, u"label"_s, u"2 of 2 receipts found"_s);
        user().press(mainTitle, u"Down"_s);
        user().press(mainTitle, u"ctrl+i"_s);
        user().waitForWindow(duplicatesDetails);
        QVERIFY(session().waitFor([this] { return !linkText().isEmpty(); }));
        const QString first = linkText();
        constexpr int mostElements = 30;
        for (int tab = 0; tab < mostElements && focused().name != first; ++tab) {
            const QString before = focused().path;
            user().press(duplicatesDetails, u"Tab"_s);
            QVERIFY(session().waitFor([&] { return focused().path != before; }));
        }
        QCOMPARE(focused().name, first);
        user().press(duplicatesDetails, u"Return"_s);
        QVERIFY(session().waitFor([&] { return !linkText().isEmpty() && linkText() != first; }));
        QCOMPARE(session().rows().size(), 2); // nothing is removed by itself
        QCOMPARE(session().files().size(), 2);
    }

    void spendingIsShown() {
        user().press(mainTitle, u"ctrl+shift+s"_s);
        user().waitForWindow(summaryTitle);
        user().waitToSee(summaryTitle, u"cell"_s, u"May 2024"_s);
        user().waitToSee(summaryTitle, u"cell"_s, u"$47.00"_s); // two of $23.50
        user().press(summaryTitle, u"Escape"_s);
        user().waitUntilGone(summaryTitle);
    }

private:
    // The name of the file beside the caption, which is a link.
    QString linkText() const {
        const QList<Accessible> all = accessibility().elements(duplicatesDetails);
        const auto caption = std::find_if(all.begin(), all.end(), [](const Accessible &each) {
            return each.role == u"label" && each.name == u"Possible duplicate of";
        });
        if (caption == all.end()) {
            return {};
        }
        const QRect row = accessibility().extents(*caption);
        for (const Accessible &each : all) {
            const QRect place = accessibility().extents(each);
            const bool isBeside = place.left() > row.right() && place.top() <= row.center().y() &&
                                  place.bottom() >= row.center().y();
            if (each.role == u"label" && each.name.endsWith(u".pdf") && isBeside) {
                return each.name;
            }
        }
        return {};
    }

    Accessible focused() const {
        const QList<Accessible> all = accessibility().elements(duplicatesDetails);
        const auto found = std::find_if(all.begin(), all.end(), [this](const Accessible &each) {
            return accessibility().hasFocus(each);
        });
        return found == all.end() ? Accessible() : *found;
    }
};

int duplicates_test(int argc, char **argv) {
    return runTest<QCoreApplication, DuplicatesTest>(argc, argv);
}
#include "duplicates_test.moc"
