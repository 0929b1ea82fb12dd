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
        QTest::newRow("one") << 1 << 0 << QStringLiteral("1 receipt scanned");
        QTest::newRow("several") << 3 << 0 << QStringLiteral("3 receipts scanned");
        QTest::newRow("some failed") << 3 << 1 << QStringLiteral("3 receipts scanned, 1 failed");
        QTest::newRow("all failed") << 0 << 2 << QStringLiteral("2 failed");
    }
    void batchIsToldInWords() {
        QFETCH(int, scanned);
        QFETCH(int, failed);
        QFETCH(QString, text);
        notices_->tellBatch(scanned, failed);
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().title, text);
        QCOMPARE(service_->notices().first().text, QString());
        QCOMPARE(service_->notices().first().icon, QStringLiteral("org.fennick.Fennick"));
    }

    void windowInFrontTellsByItself() {
        isInFront_ = true;
        notices_->tellBatch(3, 1);
        notices_->tellFailure(QStringLiteral("Photos export failed: no space")); // which it does not
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().title, QStringLiteral("Fennick"));
        QCOMPARE(service_->notices().first().text, QStringLiteral("Photos export failed: no space"));
    }

    void withinTenSecondsThereIsOneNotice() {
        QElapsedTimer timer;
        timer.start();
        notices_->tellBatch(1, 0);
        notices_->tellBatch(2, 1);
        notices_->tellBatch(3, 0);
        QVERIFY(waitForNotices(2));
        QVERIFY2(timer.elapsed() >= 10000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(service_->notices().last().title, QStringLiteral("5 receipts scanned, 1 failed"));
        QCOMPARE(service_->notices().last().replaces, 1U);
    }

    void textsFromOutsideAreNoMarkup_data() {
        QTest::addColumn<QStringList>("capabilities");
        QTest::addColumn<QString>("text");
        QTest::newRow("desktop with markup")
            << QStringList{QStringLiteral("body-markup")} << QStringLiteral("&lt;b&gt;x&lt;/b&gt; \uFFFDfdp");
        QTest::newRow("desktop without") << QStringList{} << QStringLiteral("<b>x</b> \uFFFDfdp");
    }
    void textsFromOutsideAreNoMarkup() {
        QFETCH(QStringList, capabilities);
        QFETCH(QString, text);
        notices_.reset();
        service_.reset();
        service_ = std::make_unique<NotificationService>(capabilities);
        notices_ = std::make_unique<Notices>([] { return false; });
        letTimePass(100); // the capabilities are told by then
        notices_->tellFailure(QStringLiteral("<b>x</b> \u202Efdp"));
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().text, text);
    }

    void clickIsPassedOn() {
        QSignalSpy activated(notices_.get(), &Notices::activated);
        notices_->tellBatch(1, 0);
        QVERIFY(waitForNotices(1));
        QVERIFY(service_->notices().first().actions.contains(QStringLiteral("default")));
        QVERIFY(waitUntil([&] {
            service_->click(); // the answer to the notice may still be on its way
            return !activated.isEmpty();
        }));
    }

    void desktopWithoutNoticesIsNoTrouble() {
        service_.reset();
        notices_->tellBatch(1, 0);
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
