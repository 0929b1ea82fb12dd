#include "desktop_test_case.h"
#include "support/notification_service.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;

// What would otherwise happen in silence is told by the desktop's notices.
class SilenceTest : public DesktopTestCase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session().renew();
        service_ = std::make_unique<NotificationService>();
    }

    void cleanup() {
        session().program.kill();
        desktop().stopTray();
        service_.reset();
    }

    void exportIsToldWithAButtonThatShowsTheFile() {
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
        session().drop(u"a.pdf"_s);
        QVERIFY(session().waitForRows(1, u"done"_s));
        user().press(mainTitle, u"ctrl+e"_s);
        user().answerFileDialog(u"Export Receipts"_s, session().home.path(u"ledger.csv"_s));
        QVERIFY(waitForNotice(u"Saved ledger.csv"_s));
        QVERIFY(service_->notices().last().actions.contains(u"Show"_s));
    }

    void archiveIsToldWithAButtonThatTakesItBack() {
        QVERIFY(session().start());
        user().waitForWindow(mainTitle);
        session().drop(u"a.pdf"_s);
        QVERIFY(session().waitFor([this] { return !session().row(lunchName).isEmpty(); }));
        user().chooseFromMenu(mainTitle, u"Archive & Clear"_s, 1);
        user().click(mainTitle, u"push button"_s, u"Export, Archive & Clear"_s);
        QVERIFY(waitForNotice(u"1 receipt archived"_s));
        QVERIFY(service_->notices().last().actions.contains(u"Open Folder"_s));
        QVERIFY(session().waitFor([this] {
            service_->click(u"button"_s); // the answer to the notice may still be on its way
            return !session().row(lunchName).isEmpty();
        }));
        QVERIFY(session().waitFor([this] { return session().files().keys() == QStringList{lunchName}; }));
    }

    void firstCloseIntoTheTrayIsExplainedOnceEver() {
        desktop().startTray();
        QVERIFY(session().start());
        hideIntoTray();
        QVERIFY(waitForNotice(u"Fennick keeps reading in the tray"_s));
        QVERIFY(session().end());

        QVERIFY(session().start());
        hideIntoTray();
        QVERIFY(!session().waitFor([this] { return service_->notices().size() > 1; }, 1000));
    }

    void vanishedFolderIsToldUntilItIsBack() {
        QVERIFY(session().start());
        QVERIFY(QDir().rename(session().folder(), session().folder() + u"-away"_s));
        QVERIFY(waitForNotice(u"The watched folder is missing: "_s + session().folder()));
        QCOMPARE(service_->closed(), 0);
        QVERIFY(QDir().rename(session().folder() + u"-away"_s, session().folder()));
        QVERIFY(session().waitFor([this] { return service_->closed() == 1; }));
    }

private:
    bool waitForNotice(const QString &start) const {
        return session().waitFor([&] {
            const auto &notices = service_->notices();
            return std::any_of(notices.begin(), notices.end(),
                               [&start](const Notice &notice) { return notice.text.contains(start); });
        });
    }

    void hideIntoTray() const {
        user().waitForWindow(mainTitle);
        QVERIFY(session().waitFor([] { return VirtualDesktop::trayIcon().has_value(); }));
        user().press(mainTitle, u"ctrl+w"_s);
        user().waitUntilGone(mainTitle);
    }

    std::unique_ptr<NotificationService> service_;
};

int silence_test(int argc, char **argv) {
    return runTest<QCoreApplication, SilenceTest>(argc, argv);
}
#include "silence_test.moc"
