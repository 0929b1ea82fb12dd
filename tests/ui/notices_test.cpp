#include "support/conditions.h"
#include "support/notification_service.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/tray/notices.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSignalSpy>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class NoticesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        isInFront_ = false;
        service_ = std::make_unique<NotificationService>();
        notices_ = std::make_unique<Notices>([this] { return isInFront_; });
    }
    void cleanup() {
        notices_.reset();
        service_.reset();
    }

    void batchIsToldInWords_data() {
        QTest::addColumn<int>("scanned");
        QTest::addColumn<int>("failed");
        QTest::addColumn<QString>("text");
        QTest::newRow("one") << 1 << 0 << u"1 receipt scanned"_s;
        QTest::newRow("several") << 3 << 0 << u"3 receipts scanned"_s;
        QTest::newRow("some failed") << 3 << 1 << u"3 receipts scanned, 1 failed"_s;
        QTest::newRow("all failed") << 0 << 2 << u"2 failed"_s;
    }
    void batchIsToldInWords() {
        QFETCH(int, scanned);
        QFETCH(int, failed);
        QFETCH(QString, text);
        notices_->showBatch(scanned, failed);
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().title, text);
        QCOMPARE(service_->notices().first().text, QString());
        QCOMPARE(service_->notices().first().icon, u"org.fennick.Fennick"_s);
    }

    void possibleDuplicatesOfABatchAreTold() {
        QCOMPARE(Notices::batchText(12, 0, 1), u"12 receipts scanned, 1 may be a duplicate"_s);
        notices_->showBatch(12, 2, 3);
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().title, u"12 receipts scanned, 3 may be duplicates, 2 failed"_s);
    }

    void windowInFrontTellsByItself() {
        isInFront_ = true;
        notices_->showBatch(3, 1);
        notices_->showFailure(u"Photos export failed: no space"_s); // which it does not
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().title, u"Fennick"_s);
        QCOMPARE(service_->notices().first().text, u"Photos export failed: no space"_s);
    }

    void withinTenSecondsThereIsOneNotice() {
        QElapsedTimer timer;
        timer.start();
        notices_->showBatch(1, 0);
        notices_->showBatch(2, 1);
        notices_->showBatch(3, 0);
        QVERIFY(waitForNotices(2));
        QVERIFY2(timer.elapsed() >= 10000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(service_->notices().last().title, u"5 receipts scanned, 1 failed"_s);
        QCOMPARE(service_->notices().last().replaces, 1U);
    }

    void textsFromOutsideAreNoMarkup_data() {
        QTest::addColumn<QStringList>("capabilities");
        QTest::addColumn<QString>("text");
        QTest::newRow("desktop with markup")
            << QStringList{u"body-markup"_s} << u"&lt;b&gt;x&lt;/b&gt; \uFFFDfdp"_s;
        QTest::newRow("desktop without") << QStringList{} << u"<b>x</b> \uFFFDfdp"_s;
    }
    void textsFromOutsideAreNoMarkup() {
        QFETCH(QStringList, capabilities);
        QFETCH(QString, text);
        notices_.reset();
        service_.reset();
        service_ = std::make_unique<NotificationService>(capabilities);
        notices_ = std::make_unique<Notices>([] { return false; });
        letTimePass(100); // the capabilities are told by then
        notices_->showFailure(u"<b>x</b> \u202Efdp"_s);
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().text, text);
    }

    void savedFileCanBeShown() {
        isInFront_ = true; // the window shows nothing of it
        QSignalSpy show(notices_.get(), &Notices::showFileRequested);
        notices_->showSaved(u"/home/me/receipts.csv"_s);
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().title, u"Fennick"_s);
        QCOMPARE(service_->notices().first().text, u"Saved receipts.csv"_s);
        QCOMPARE(service_->notices().first().actions,
                 (QStringList{u"default"_s, u"Show Receipts"_s, u"button"_s, u"Show"_s}));
        QVERIFY(waitUntil([&] {
            service_->click(u"button"_s); // the answer to the notice may still be on its way
            return !show.isEmpty();
        }));
        QCOMPARE(show.first().first().toString(), u"/home/me/receipts.csv"_s);
    }

    void failedExportIsToldWithItsReason() {
        notices_->showNotSaved(u"/home/me/receipts.csv"_s, u"No space left on device"_s);
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().text, u"Couldn't save receipts.csv: No space left on device"_s);
        QCOMPARE(service_->notices().first().actions.size(), 2);
    }

    void missingFolderIsToldUntilItIsBack() {
        notices_->showFolderMissing(u"/home/me/Receipts"_s);
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().text, u"The watched folder is missing: /home/me/Receipts"_s);
        notices_->showFolderFound();
        QVERIFY(waitUntil([this] { return service_->closed() == 1; }));
        notices_->showFolderFound();
        letTimePass(100);
        QCOMPARE(service_->closed(), 1);
    }

    void folderThatIsBackBeforeItsNoticeIsNotTold() {
        notices_->showInTray();
        notices_->showFolderMissing(u"/home/me/Receipts"_s);
        notices_->showFolderFound();
        notices_->showSaved(u"/home/me/receipts.csv"_s);
        QVERIFY(waitForNotices(2));
        QCOMPARE(service_->notices().first().text, u"Fennick keeps reading in the tray"_s);
        QCOMPARE(service_->notices().last().text, u"Saved receipts.csv"_s);
        QCOMPARE(service_->closed(), 0);
    }

    void messagesOfAPauseAreOneNotice() {
        notices_->showInTray();
        notices_->showBatch(2, 0);
        notices_->showFailure(u"Photos export failed: no space"_s);
        notices_->showSaved(u"/home/me/receipts.csv"_s);
        QVERIFY(waitForNotices(2));
        QCOMPARE(service_->notices().last().title, u"2 receipts scanned"_s);
        QCOMPARE(service_->notices().last().text, u"Photos export failed: no space\nSaved receipts.csv"_s);
    }

    void clickIsPassedOn() {
        QSignalSpy activated(notices_.get(), &Notices::activated);
        notices_->showBatch(1, 0);
        QVERIFY(waitForNotices(1));
        QVERIFY(service_->notices().first().actions.contains(u"default"_s));
        QVERIFY(waitUntil([&] {
            service_->click(); // the answer to the notice may still be on its way
            return !activated.isEmpty();
        }));
    }

    void retryIsOfferedByAButton() {
        isInFront_ = true;
        QSignalSpy requested(notices_.get(), &Notices::retryRequested);
        notices_->offerRetry(3);
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().text,
                 u"3 receipts failed for want of a valid API key. They can be retried now, also later with "
                 "Retry All Failed."_s);
        QCOMPARE(service_->notices().first().actions.last(), u"Retry"_s);
        QVERIFY(waitUntil([&] {
            service_->click(u"button"_s);
            return !requested.isEmpty();
        }));
    }

    void noticeWithoutAnOfferHasNoButton() {
        notices_->showBatch(1, 0);
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().actions.size(), 2); // the click on itself
    }

    void desktopWithoutNoticesIsNoTrouble() {
        service_.reset();
        notices_->showBatch(1, 0);
        letTimePass(100);
    }

private:
    bool waitForNotices(qsizetype count) const {
        return waitUntil([&] { return service_->notices().size() >= count; });
    }

    TemporaryHome home_;
    PrivateSession session_;
    std::unique_ptr<NotificationService> service_;
    std::unique_ptr<Notices> notices_;
    bool isInFront_ = false;
};

int notices_test(int argc, char **argv) {
    return runTest<QCoreApplication, NoticesTest>(argc, argv);
}
#include "notices_test.moc"
