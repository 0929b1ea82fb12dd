#include "desktop_test_case.h"
#include "support/test_program.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>

#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString detailsTitle = u"Receipt Details"_s;
const QString changedTitle = u"Receipt Details*"_s; // while there is something to save
const QString readName = u"2024-05-01 Lunch - Dockside Deli $23.50.png"_s;
const QString correctedName = u"2024-05-01 Lunch - Dockside Deli $32.50.png"_s;

QByteArray picture() {
    QImage image(60, 80, QImage::Format_RGB32);
    image.fill(Qt::white);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

// Somebody puts right what was read wrong, in the built program, and chooses who reads from now on.
class CorrectTest : public DesktopTestCase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session().renew();
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
        session().drop(u"a.png"_s, picture());
        QVERIFY(session().waitFor([this] { return !session().row(readName).isEmpty(); }));
    }

    void cleanup() { session().program.kill(); }

    void wrongAmountIsPutRight() {
        openDetails();
        for (const QString &field : {u"Date"_s, u"Time"_s, u"Amount"_s, u"Location"_s, u"Summary"_s}) {
            user().waitToSee(detailsTitle, u"text"_s, field);
        }
        for (const QString &field : {u"Currency"_s, u"Category"_s}) {
            user().waitToSee(detailsTitle, u"combo box"_s, field);
        }
        retype(detailsTitle, u"Amount"_s, u"32.5"_s);
        user().waitToSee(changedTitle, u"label"_s, correctedName);
        user().click(changedTitle, u"push button"_s, u"Save"_s);
        QVERIFY(session().waitFor([this] { return !session().row(correctedName).isEmpty(); }));
        QCOMPARE(session().row(correctedName).value(u"amount"_s).toDouble(), 32.5);
        QCOMPARE(session().files().keys(), QStringList{correctedName});
        user().waitForWindow(detailsTitle);

        QVERIFY(!session().waitFor([this] { return session().rows().size() != 1; }, 1500)); // read once only
        QCOMPARE(session().sentDocuments().size(), 1);
        QVERIFY(session().end());
        session().program.start();
        user().waitForWindow(mainTitle);
        QCOMPARE(session().rows().size(), 1);
        QVERIFY(!session().row(correctedName).isEmpty());
    }

    void dayThatDoesNotExistIsSaidAndNothingSaved() {
        openDetails();
        retype(detailsTitle, u"Date"_s, u"2024-02-31"_s);
        user().press(changedTitle, u"ctrl+s"_s);
        user().waitToSee(changedTitle, u"label"_s, u"There is no 31 February"_s);
        QCOMPARE(session().row(readName).value(u"date"_s).toString(), u"2024-05-01"_s);
        user().click(changedTitle, u"push button"_s, u"Revert"_s);
        user().waitForWindow(detailsTitle);
        QVERIFY(!user().sees(detailsTitle, u"label"_s, u"There is no 31 February"_s));
        user().press(detailsTitle, u"Escape"_s);
        user().waitUntilGone(detailsTitle);
    }

    void whoReadsIsChosenInTheMenu() {
        user().press(mainTitle, u"alt+f"_s);
        QVERIFY(session().waitFor([] { return VirtualDesktop::isMenuOpen(); }));
        VirtualDesktop::pressForMenu({u"Up"_s, u"Up"_s, u"Up"_s, u"Right"_s, u"Down"_s});
        VirtualDesktop::pressForMenu({u"Return"_s});
        QVERIFY(session().waitFor([this] {
            return readFile(session().home.preferencesFile()).contains("geminiEndpoint=on-device\n");
        }));
    }

private:
    void openDetails() const {
        user().clickCell(mainTitle, u"Dockside Deli"_s, 0, 5);
        user().press(mainTitle, u"ctrl+i"_s);
        user().waitForWindow(detailsTitle);
    }

    // The title shows the change with the first letter typed.
    void retype(const QString &window, const QString &field, const QString &text) const {
        user().click(window, u"text"_s, field);
        user().press(window, u"ctrl+a"_s);
        user().type(window, text);
        user().waitForWindow(changedTitle);
    }
};

int correct_test(int argc, char **argv) {
    return runTest<QCoreApplication, CorrectTest>(argc, argv);
}
#include "correct_test.moc"
