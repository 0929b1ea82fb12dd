#include "desktop_test_case.h"
#include "support/test_program.h"

#include <QCoreApplication>

#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString secondName = u"2024-05-01 Lunch - Dockside Deli $23.50 (2).pdf"_s;

} // namespace

// Somebody takes back what was done to the list, in the built program.
class UndoTest : public DesktopTestCase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session().renew();
        startProgram();
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s}) {
            session().drop(name, "receipt " + name.toUtf8());
        }
        QVERIFY(session().waitFor(
            [this] { return !session().row(lunchName).isEmpty() && !session().row(secondName).isEmpty(); }));
    }

    void cleanup() { session().program.kill(); }

    void removalIsUndoneAndDoneAgainByKeys() {
        const auto before = session().rows();
        user().clickCell(mainTitle, u"Dockside Deli"_s, 0, 5);
        user().press(mainTitle, u"Delete"_s);
        QVERIFY(waitForRows(1));
        user().press(mainTitle, u"ctrl+z"_s);
        QVERIFY(session().waitFor([&] { return session().rows() == before; }));
        user().press(mainTitle, u"ctrl+shift+z"_s);
        QVERIFY(waitForRows(1));
        QCOMPARE(session().files().size(), 2);
    }

    void menuNamesWhatItUndoes() {
        clear();
        user().press(mainTitle, u"alt+e"_s);
        QVERIFY(session().waitFor([] { return VirtualDesktop::isMenuOpen(); }));
        user().waitToSee(mainTitle, u"menu item"_s, u"Undo Clear All"_s);
        VirtualDesktop::pressForMenu({u"Return"_s}); // the first entry
        QVERIFY(waitForRows(2));
    }

    void clearedListReturnsAfterARestart() {
        const auto before = session().rows();
        clear();
        QVERIFY(session().end());
        startProgram();
        QVERIFY(session().rows().isEmpty());
        user().press(mainTitle, u"ctrl+z"_s);
        QVERIFY(session().waitFor([&] { return session().rows() == before; }));
        verifyNothingIsReadAgain();
    }

    void archivedFilesReturnAndAreNotReadAgain() {
        const auto before = session().rows();
        const auto files = session().files();
        user().chooseFromMenu(mainTitle, u"Archive & Clear"_s, 1);
        user().click(mainTitle, u"push button"_s, u"Export, Archive & Clear"_s);
        QVERIFY(waitForRows(0));
        user().press(mainTitle, u"ctrl+z"_s);
        QVERIFY(session().waitFor([&] { return session().rows() == before; }));
        QVERIFY(session().waitFor([&] { return session().files() == files; })); // the ledger is gone
        verifyNothingIsReadAgain();
        QVERIFY(session().end());
        startProgram();
        verifyNothingIsReadAgain();
        QCOMPARE(session().rows(), before);
    }

    void ignoredFileIsReadAgainOnceItIsRestored() {
        user().clickCell(mainTitle, u"Dockside Deli"_s, 0, 5);
        user().press(mainTitle, u"Delete"_s);
        QVERIFY(waitForRows(1));
        user().press(mainTitle, u"alt+f"_s);
        QVERIFY(session().waitFor([] { return VirtualDesktop::isMenuOpen(); }));
        VirtualDesktop::pressForMenu({u"Up"_s, u"Up"_s, u"Up"_s, u"Up"_s, u"Return"_s});
        const QString title = u"Ignored Files"_s;
        user().waitForWindow(title);
        user().waitToSee(title, u"table"_s, u"Ignored Files"_s);
        const QString ignored = session().row(lunchName).isEmpty() ? lunchName : secondName;
        user().clickCell(title, session().path(ignored), 0, 5);
        user().click(title, u"push button"_s, u"Restore"_s);
        QVERIFY(session().waitForRows(2, u"done"_s));
        QCOMPARE(session().server.requests().size(), 3);
        user().press(title, u"Escape"_s);
        user().waitUntilGone(title);
    }

private:
    void startProgram() const {
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
    }

    bool waitForRows(qsizetype count) const {
        return session().waitFor([&] { return session().rows().size() == count; });
    }

    void clear() const {
        user().click(mainTitle, u"push button"_s, u"Clear All"_s);
        QVERIFY(session().waitFor([] { return VirtualDesktop::windowCount(mainTitle) == 2; }));
        VirtualDesktop::pressForMenu({u"Tab"_s, u"Return"_s});
        QVERIFY(waitForRows(0));
        user().waitForWindow(mainTitle);
    }

    void verifyNothingIsReadAgain() const {
        QVERIFY(!session().waitFor([this] { return session().server.requests().size() != 2; }, 1500));
    }
};

int undo_test(int argc, char **argv) {
    return runTest<QCoreApplication, UndoTest>(argc, argv);
}
#include "undo_test.moc"
