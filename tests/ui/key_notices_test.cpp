#include "main_window_under_test.h"
#include "support/conditions.h"
#include "support/notification_service.h"
#include "support/receipts.h"
#include "support/scripted_server.h"
#include "support/test_program.h"
#include "ui/tray/key_notices.h"
#include "ui/tray/notices.h"

#include <QApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class KeyNoticesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        service_ = std::make_unique<NotificationService>();
        under_.renew();
        notices_ = std::make_unique<Notices>([] { return true; });
        keyNotices_ =
            std::make_unique<KeyNotices>(under_.appState.get(), under_.settings.get(), notices_.get());
    }
    void cleanup() {
        keyNotices_.reset();
        notices_.reset();
        under_.close();
        service_.reset();
        PrivateSession::clearKey();
    }

    void savedKeyOffersToRetryWhatFailedForWantOfOne() {
        add(u"a.pdf"_s, u"API key not configured. Set your Gemini API key in Settings."_s);
        add(u"b.pdf"_s, u"Gemini API error: 400 — {\"reason\": \"API_KEY_INVALID\"}"_s);
        add(u"c.pdf"_s, u"Gemini API error: 500"_s);
        under_.settings->setAPIKey(u"AIza-late-key"_s);
        QVERIFY(waitUntil([this] { return service_->notices().size() == 1; }));
        QVERIFY(service_->notices().first().text.startsWith(u"2 receipts failed for want of"));
        under_.settings->setServiceAddress(server_.address());
        QVERIFY(waitUntil([this] {
            if (!under_.appState->retryAll()->isUnderWay()) {
                service_->click(u"button"_s); // the answer to the notice may still be on its way
            }
            return doneReceipts() == 2;
        }));
        QCOMPARE(server_.requests().size(), 2);
    }

    void nothingIsOfferedWhereNothingFailedForIt() {
        add(u"c.pdf"_s, u"Gemini API error: 500"_s);
        under_.settings->setAPIKey(u"AIza-late-key"_s);
        under_.settings->setAPIKey(QString());
        letTimePass(300);
        QVERIFY(service_->notices().isEmpty());
    }

    void refusedKeyGivesOneNotice() {
        server_.setScript([](const HttpRequest &) {
            return HttpReply{.status = 403, .body = R"({"error": {"message": "no"}})", .headers = {}};
        });
        under_.settings->setServiceAddress(server_.address());
        under_.settings->setAPIKey(u"AIza-wrong-key"_s);
        for (int number = 0; number < 30; ++number) {
            add(u"%1.pdf"_s.arg(number), u"The request timed out."_s);
        }
        under_.appState->retryAll()->addAllFailed();
        QVERIFY(waitUntil([this] { return !under_.appState->retryAll()->isUnderWay(); }));
        QCOMPARE(under_.appState->receiptsWithoutKey().size(), 30);
        letTimePass(300);
        QCOMPARE(service_->notices().size(), 1);
        QCOMPARE(service_->notices().first().text,
                 u"The service does not accept the API key. Save a valid one in the settings."_s);
    }

private:
    void add(const QString &name, const QString &error) {
        Receipt receipt = finishedReceipt(under_.addFile(name));
        receipt.status = ReceiptStatus::error;
        receipt.error = error;
        under_.store->add(receipt);
    }

    qsizetype doneReceipts() const {
        return std::ranges::count_if(under_.store->receipts(), [](const Receipt &receipt) {
            return receipt.status == ReceiptStatus::done;
        });
    }

    MainWindowUnderTest under_;
    ScriptedServer server_{[](const HttpRequest &) {
        return answering("{}");
    }};
    std::unique_ptr<NotificationService> service_;
    std::unique_ptr<Notices> notices_;
    std::unique_ptr<KeyNotices> keyNotices_;
};

int key_notices_test(int argc, char **argv) {
    return runTest<QApplication, KeyNoticesTest>(argc, argv);
}
#include "key_notices_test.moc"
