#include "desktop_test_case.h"
#include "support/test_program.h"

#include <QCoreApplication>

#include <algorithm>
#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString pushButton = u"push button"_s;

} // namespace

// Somebody presses Ctrl+O and Enter, which chooses the home with all that is in it.
class HomeFolderTest : public DesktopTestCase {
    Q_OBJECT

private Q_SLOTS:
    void homeIsNotGivenAwayByTwoKeys() {
        session().renew();
        writeFile(session().home.path(u"letters/private.pdf"_s), "private");
        session().program.start();
        user().waitForWindow(mainTitle);

        chooseHome();
        VirtualDesktop::pressForMenu({u"Return"_s}); // cancels
        QVERIFY(session().waitFor([this] { return !user().sees(mainTitle, pushButton, u"Read All"_s); }));
        QVERIFY(!session().waitFor([this] { return isHomeWatched(); }, 500));

        chooseHome();
        user().click(mainTitle, pushButton, u"Only New Files"_s);
        QVERIFY(session().waitFor([this] { return isHomeWatched(); }));
        QVERIFY(session().waitFor([this] { return session().program.isWatching(home()); }));
        writeFile(session().home.path(u"letters/receipt.pdf"_s), "a receipt");
        QVERIFY(session().waitForRows(1, u"done"_s));
        QCOMPARE(session().sentDocuments(), QList<QByteArray>{"a receipt"});
        QVERIFY(session().end());
    }

private:
    QString home() const { return session().home.path(QString()); }

    bool isHomeWatched() const {
        return readFile(session().home.preferencesFile()).contains("watchFolder=" + home().toUtf8() + '\n');
    }

    // Until the question has the keyboard's focus.
    void chooseHome() const {
        user().press(mainTitle, u"ctrl+o"_s);
        user().answerFileDialog(u"Choose a Folder"_s, home());
        user().waitToSee(mainTitle, u"label"_s, u"Read everything in “%1”?"_s.arg(home()));
        user().waitToSee(mainTitle, pushButton, u"Read All"_s);
        QVERIFY(session().waitFor([this] {
            const QList<Accessible> all = accessibility().elements(mainTitle);
            return std::any_of(all.begin(), all.end(), [this](const Accessible &each) {
                return each.role == pushButton && each.name == u"Cancel"_s && accessibility().hasFocus(each);
            });
        }));
    }
};

int home_folder_test(int argc, char **argv) {
    return runTest<QCoreApplication, HomeFolderTest>(argc, argv);
}
#include "home_folder_test.moc"
