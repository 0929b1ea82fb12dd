#include "desktop_test_case.h"
#include "support/private_namespace.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>

#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString chooserTitle = u"Choose a Folder"_s;

bool canMount = false;

} // namespace

// The watched folder lies on a network that does not answer: whoever asks for anything in it waits for ever.
class DeadNetworkTest : public DesktopTestCase {
    Q_OBJECT

protected:
    QByteArray reasonToSkip() const override {
        return canMount ? QByteArray() : QByteArray("Nothing can be mounted here.");
    }

private Q_SLOTS:
    void init() { session().renew(); }
    void cleanup() {
        session().program.kill();
        dead_.reset();
    }

    void holdsUpNeitherTheStartNorTheEnd() {
        QVERIFY(die(session().folder()));
        session().program.start();
        QVERIFY(windowAnswers());
        QVERIFY(quitEndsIt());
    }

    // The next start looks for files that a killed run may have renamed.
    void holdsUpNoStartWithReceiptsInIt() {
        writeFile(session().home.receiptsFile(),
                  "[{\"id\": \"00000000-0000-4000-8000-000000000001\", \"fileName\": \"scan.pdf\","
                  " \"filePath\": \"" +
                      session().path(u"scan.pdf"_s).toUtf8() +
                      "\", \"category\": \"misc\", \"summary\": \"\","
                      " \"scannedAt\": \"2024-05-01T12:30:00Z\", \"status\": \"done\"}]");
        QVERIFY(die(session().folder()));
        session().program.start();
        QVERIFY(windowAnswers());
        QVERIFY(quitEndsIt());
    }

    void mayDieWhileItIsWatched() {
        QVERIFY(session().start());
        QVERIFY(die(session().folder()));
        QVERIFY(windowAnswers());
        QVERIFY(quitEndsIt());
    }

    // What the user asks for needs the files' folder: each is refused instead of waited for.
    void holdsUpNothingThatTheUserAsksFor() {
        // Qt's own dialog would wait for what lies in the home folder itself.
        const QString share = session().path(u"share"_s);
        writeFile(share + u"/scan.pdf"_s, "a receipt");
        session().setPreference("watchFolder", share.toUtf8());
        session().program.start();
        // Named anew: afterwards nothing in the folder is used until the user asks for it.
        QVERIFY(session().waitFor([this] { return !session().row(lunchName).isEmpty(); }));
        QVERIFY(die(share));
        user().press(mainTitle, u"ctrl+o"_s);
        user().waitForWindow(chooserTitle);
        user().press(chooserTitle, u"Escape"_s);
        user().waitUntilGone(chooserTitle);
        user().chooseFromMenu(mainTitle, u"Archive & Clear"_s, 1);
        user().click(mainTitle, u"push button"_s, u"Export, Archive & Clear"_s);
        QVERIFY(windowAnswers());
        QCOMPARE(session().rows().size(), 1);
        QVERIFY(quitEndsIt());
    }

private:
    bool die(const QString &folder) {
        dead_ = std::make_unique<DeadFileSystem>(folder);
        return dead_->isMounted();
    }

    bool windowAnswers() {
        const auto isActive = [](const QString &title) {
            const auto window = VirtualDesktop::window(title);
            return window && VirtualDesktop::isActive(*window);
        };
        return session().waitFor([&] { return isActive(mainTitle); }) &&
               VirtualDesktop::press(*VirtualDesktop::window(mainTitle), u"ctrl+comma"_s) &&
               session().waitFor([&] { return isActive(settingsTitle); });
    }

    bool quitEndsIt() {
        return VirtualDesktop::press(*VirtualDesktop::window(mainTitle), u"ctrl+q"_s) &&
               session().program.endsWithSuccess();
    }

    std::unique_ptr<DeadFileSystem> dead_;
};

int dead_network_test(int argc, char **argv) {
    canMount = enterPrivateNamespace().canMount;
    return runTest<QCoreApplication, DeadNetworkTest>(argc, argv);
}
#include "dead_network_test.moc"
