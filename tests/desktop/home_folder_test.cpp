#include "desktop_surroundings.h"
#include "desktop_user.h"
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
class HomeFolderTest : public QObject {
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

    void homeIsNotGivenAwayByTwoKeys() {
        session().renew();
        writeFile(session().home.path(u"letters/private.pdf"_s), "private");
        session().program.start();
        user_->waitForWindow(mainTitle);

        chooseHome();
        VirtualDesktop::pressForMenu({u"Return"_s}); // cancels
        QVERIFY(session().waitFor([this] { return !user_->sees(mainTitle, pushButton, u"Read All"_s); }));
        QVERIFY(!session().waitFor([this] { return isHomeWatched(); }, 500));

        chooseHome();
        user_->click(mainTitle, pushButton, u"Only New Files"_s);
        QVERIFY(session().waitFor([this] { return isHomeWatched(); }));
        QVERIFY(session().waitFor([this] { return session().program.isWatching(home()); }));
        writeFile(session().home.path(u"letters/receipt.pdf"_s), "a receipt");
        QVERIFY(session().waitForRows(1, u"done"_s));
        QCOMPARE(session().sentDocuments(), QList<QByteArray>{"a receipt"});
        QVERIFY(session().end());
    }

private:
    UserSession &session() const { return surroundings_->session; }
    QString home() const { return session().home.path(QString()); }

    bool isHomeWatched() const {
        return readFile(session().home.preferencesFile()).contains("watchFolder=" + home().toUtf8() + '\n');
    }

    // Until the question has the keyboard's focus.
    void chooseHome() const {
        user_->press(mainTitle, u"ctrl+o"_s);
        user_->answerFileDialog(u"Choose a Folder"_s, home());
        user_->waitToSee(mainTitle, u"label"_s, u"Read everything in “%1”?"_s.arg(home()));
        user_->waitToSee(mainTitle, pushButton, u"Read All"_s);
        QVERIFY(session().waitFor([this] {
            const QList<Accessible> all = surroundings_->accessibility.elements(mainTitle);
            return std::any_of(all.begin(), all.end(), [this](const Accessible &each) {
                return each.role == pushButton && each.name == u"Cancel"_s &&
                       surroundings_->accessibility.hasFocus(each);
            });
        }));
    }

    std::unique_ptr<DesktopSurroundings> surroundings_;
    std::unique_ptr<DesktopUser> user_;
};

int home_folder_test(int argc, char **argv) {
    return runTest<QCoreApplication, HomeFolderTest>(argc, argv);
}
#include "home_folder_test.moc"
