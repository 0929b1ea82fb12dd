#include "desktop_surroundings.h"
#include "support/private_namespace.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>

#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

bool canMount = false;

} // namespace

// The watched folder lies on a network that does not answer: whoever asks for anything in it waits for ever.
class DeadNetworkTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (const QByteArray reason = DesktopSurroundings::reasonToSkip(); !reason.isEmpty()) {
            QSKIP(reason.constData());
        }
        if (!canMount) {
            QSKIP("Nothing can be mounted here.");
        }
        surroundings_ = std::make_unique<DesktopSurroundings>();
    }
    void cleanupTestCase() { surroundings_.reset(); }

    void init() { session().renew(); }
    void cleanup() {
        session().program.kill();
        dead_.reset();
    }

    void holdsUpNeitherTheStartNorTheEnd() {
        QVERIFY(die());
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
        QVERIFY(die());
        session().program.start();
        QVERIFY(windowAnswers());
        QVERIFY(quitEndsIt());
    }

    void mayDieWhileItIsWatched() {
        QVERIFY(session().start());
        QVERIFY(die());
        QVERIFY(windowAnswers());
        QVERIFY(quitEndsIt());
    }

private:
    UserSession &session() { return surroundings_->session; }

    bool die() {
        dead_ = std::make_unique<DeadFileSystem>(session().folder());
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

    std::unique_ptr<DesktopSurroundings> surroundings_;
    std::unique_ptr<DeadFileSystem> dead_;
};

int dead_network_test(int argc, char **argv) {
    canMount = enterPrivateNamespace().canMount;
    return runTest<QCoreApplication, DeadNetworkTest>(argc, argv);
}
#include "dead_network_test.moc"
