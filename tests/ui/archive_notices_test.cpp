#include "main_window_under_test.h"
#include "model/receipt_store.h"
#include "next_dialog.h"
#include "settings/settings_store.h"
#include "support/conditions.h"
#include "support/notification_service.h"
#include "support/receipts.h"
#include "support/test_program.h"
#include "ui/tray/archive_notices.h"
#include "ui/tray/notices.h"

#include <QDesktopServices>
#include <QDir>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class ArchiveNoticesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        under_.renew();
        under_.settings->setWatchFolderPath(under_.watched);
        service_ = std::make_unique<NotificationService>();
        notices_ = std::make_unique<Notices>([] { return true; });
        archiveNotices_ = std::make_unique<ArchiveNotices>(history(), notices_.get());
        QDesktopServices::setUrlHandler(u"file"_s, this, "open");
        opened_.clear();
    }
    void cleanup() {
        QDesktopServices::unsetUrlHandler(u"file"_s);
        archiveNotices_.reset();
        notices_.reset();
        service_.reset();
        under_.close();
    }

    void archiveCanBeUndoneByANoticesButton() {
        archiveTwo();
        QVERIFY(waitForNotices(1));
        QCOMPARE(service_->notices().first().text, u"2 receipts archived"_s);
        QCOMPARE(service_->notices().first().actions,
                 (QStringList{u"default"_s, u"Show Receipts"_s, u"button"_s, u"Undo"_s, u"button2"_s,
                              u"Open Folder"_s}));
        QVERIFY(clickUntil(u"button"_s, [this] { return under_.store->receipts().size() == 2; }));
        QVERIFY(waitUntil([this] { return service_->closed() == 1; })); // the offer is void
        QVERIFY(!history()->stack()->canUndo());
    }

    void archivesFolderIsOpenedByTheOtherButton() {
        archiveTwo();
        QVERIFY(waitForNotices(1));
        QVERIFY(clickUntil(u"button2"_s, [this] { return !opened_.isEmpty(); }));
        QCOMPARE(opened_.first(), under_.appState->archiveDestinationPath());
        QVERIFY(under_.store->receipts().isEmpty());
    }

    void offerEndsWithTheNextDeed() {
        archiveTwo();
        QVERIFY(waitForNotices(1));
        under_.store->add(finishedReceipt(under_.addFile(u"c.pdf"_s)));
        history()->clearAll();
        QVERIFY(waitUntil([this] { return service_->closed() == 1; }));
        QSignalSpy missed(archiveNotices_.get(), &ArchiveNotices::undoMissed);
        QVERIFY(clickUntil(u"button"_s, [&missed] { return !missed.isEmpty(); })); // as a slow desktop may
        QVERIFY(under_.store->receipts().isEmpty());
    }

    void archiveThatWasUndoneMeanwhileIsNotReported() {
        notices_->showFailure(u"first"_s); // the next notice waits
        archiveTwo();
        history()->undo();
        notices_->showFailure(u"second"_s);
        QVERIFY(waitForNotices(2));
        QCOMPARE(service_->notices().last().text, u"second"_s);
    }

    void menuOpensTheArchiveFolder() {
        QCOMPARE(under_.action("openArchiveFolder")->text(), u"Open Archive Folder"_s);
        QString reason;
        onNextDialog<QMessageBox>([&reason](QMessageBox *box) {
            reason = box->informativeText();
            box->close();
        });
        under_.action("openArchiveFolder")->trigger();
        const QString root = under_.watched + u"/Receipt Archive"_s;
        QVERIFY(waitUntil([&reason] { return !reason.isEmpty(); }));
        QCOMPARE(reason, u"Nothing was archived yet: “%1” does not exist."_s.arg(root));
        QVERIFY(QDir().mkpath(root));
        under_.action("openArchiveFolder")->trigger();
        QCOMPARE(opened_, QStringList{root});
    }

public Q_SLOTS:
    void open(const QUrl &url) { opened_.append(url.toLocalFile()); }

private:
    UndoHistory *history() const { return under_.appState->history(); }

    void archiveTwo() const {
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s}) {
            under_.store->add(finishedReceipt(under_.addFile(name)));
        }
        under_.appState->archiveAndClear(ExportService::Format::csv);
    }

    bool waitForNotices(qsizetype count) const {
        return waitUntil([&] { return service_->notices().size() == count; });
    }

    // The answer to the notice may still be on its way.
    template <typename Condition>
    bool clickUntil(const QString &button, Condition condition) const {
        return waitUntil([&] {
            service_->click(button);
            return condition();
        });
    }

    MainWindowUnderTest under_;
    std::unique_ptr<NotificationService> service_;
    std::unique_ptr<Notices> notices_;
    std::unique_ptr<ArchiveNotices> archiveNotices_;
    QStringList opened_;
};

int archive_notices_test(int argc, char **argv) {
    return runTest<QApplication, ArchiveNoticesTest>(argc, argv);
}
#include "archive_notices_test.moc"
