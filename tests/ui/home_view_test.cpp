#include "support/private_session.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "ui/caption_label.h"
#include "ui/elided_label.h"
#include "ui/home_view.h"

#include <QTableView>
#include <QTest>

using namespace fennick;
using namespace fennick::test;

class HomeViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void folderIsShownAndFollowsTheSettings() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        auto *const folder = view.findChild<ElidedLabel *>(QStringLiteral("watchFolder"));
        QCOMPARE(folder->fullText(), QStringLiteral("No folder selected"));
        settings.setWatchFolderPath(QStringLiteral("/home/me/<b>Receipts</b>"));
        QCOMPARE(folder->fullText(), QStringLiteral("/home/me/<b>Receipts</b>"));
        QCOMPARE(folder->textFormat(), Qt::PlainText);
    }

    void missingKeyIsToldUntilThereIsOne() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        auto *const warning = view.findChild<CaptionLabel *>(QStringLiteral("missingKey"));
        QCOMPARE(warning->text(),
                 QStringLiteral("Set your Gemini API key in Settings (⌘,) to start scanning."));
        QVERIFY(warning->isVisibleTo(&view));
        settings.setAPIKey(QStringLiteral("key"));
        QVERIFY(!warning->isVisibleTo(&view));
        settings.setAPIKey(QString());
        QVERIFY(warning->isVisibleTo(&view));
    }

    void everyReceiptIsARow() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        view.show();
        const auto *const table = view.findChild<QTableView *>(QStringLiteral("receipts"));
        store.add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        QCOMPARE(table->model()->rowCount(), 1);
    }

private:
    TemporaryHome home_;
    PrivateSession session_;
};

QTEST_MAIN(HomeViewTest)
#include "home_view_test.moc"
