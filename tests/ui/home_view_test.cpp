#include "support/conditions.h"
#include "support/private_session.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/main_window/home_view.h"
#include "ui/widgets/caption_label.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/symbol_label.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QToolButton>

using namespace fennick;
using namespace fennick::test;

class HomeViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QDir(home_.path(QStringLiteral("data/Fennick"))).removeRecursively();
        QDir(home_.path(QStringLiteral("config/Fennick"))).removeRecursively();
    }

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
        settings.setAPIKey(QStringLiteral("  ")); // removes the key
        QVERIFY(warning->isVisibleTo(&view));
    }

    void longFolderPathIsCutInTheMiddleOnOneLine() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        view.resize(720, 420);
        view.show();
        auto *const folder = view.findChild<ElidedLabel *>(QStringLiteral("watchFolder"));
        const QString path = QStringLiteral("/home/me/") + QStringLiteral("long/").repeated(60) +
                             QStringLiteral("last folder");
        settings.setWatchFolderPath(path);
        QVERIFY(waitUntil([folder] { return folder->text().contains(u'…'); }));
        QVERIFY(folder->text().startsWith(QStringLiteral("/home/me/long")));
        QVERIFY(folder->text().endsWith(QStringLiteral("long/last folder")));
        QVERIFY(folder->fontMetrics().horizontalAdvance(folder->text()) <= folder->width());
        QVERIFY(folder->height() < 2 * folder->fontMetrics().height());
        QVERIFY(folder->toolTip().contains(path)); // which shows the whole path
        QCOMPARE(view.size(), QSize(720, 420));
    }

    void badgeAndAddToPhotosButtonsFollowTheSetting() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        view.show();
        store.add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        auto *const badge = view.findChild<CaptionLabel *>(QStringLiteral("photosBadge"));
        QCOMPARE(badge->text(), QStringLiteral("Photos export on"));
        QVERIFY(badge->isVisible());
        QVERIFY(waitUntil([&view] { return offersAddToPhotos(view); }));
        settings.setAddToPhotos(false);
        QVERIFY(!badge->isVisible());
        QVERIFY(waitUntil([&view] { return !offersAddToPhotos(view); }));
        settings.setAddToPhotos(true);
        QVERIFY(badge->isVisible());
        QVERIFY(waitUntil([&view] { return offersAddToPhotos(view); }));
    }

    void emptyListTellsWhatToDo() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        view.show();
        const auto *const title = view.findChild<QLabel *>(QStringLiteral("emptyTitle"));
        const auto *const explanation = view.findChild<QLabel *>(QStringLiteral("emptyExplanation"));
        auto *const choose = view.findChild<QPushButton *>(QStringLiteral("emptyChooseFolder"));
        QCOMPARE(title->text(), QStringLiteral("No receipts yet"));
        QCOMPARE(explanation->text(),
                 QStringLiteral("Choose a folder to watch, then drop in receipt PDFs or photos.\nEach one is "
                                "scanned, renamed, and added to Photos for Workday mobile."));
        QCOMPARE(choose->text(), QStringLiteral("Choose Folder…"));
        QSignalSpy requested(&view, &HomeView::chooseFolderRequested);
        QTest::mouseClick(choose, Qt::LeftButton);
        QCOMPARE(requested.size(), 1);
        store.add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        QVERIFY(!title->isVisible());
        store.clearAll();
        QVERIFY(title->isVisible());
    }

    void partsStandAsFarApartAsTheyShould() {
        SettingsStore settings;
        ReceiptStore store;
        const HomeView view(&store, &settings);
        QCOMPARE(view.layout()->spacing(), 0);
        const auto *const header = view.findChild<ElidedLabel *>()->parentWidget()->layout();
        QCOMPARE(header->contentsMargins(), QMargins(16, 10, 16, 10));
        QCOMPARE(header->spacing(), 6);
        QCOMPARE(header->itemAt(0)->layout()->spacing(), 8);
        const auto *const title = view.findChild<QLabel *>(QStringLiteral("emptyTitle"));
        QCOMPARE(title->parentWidget()->layout()->spacing(), 12);
    }

    void folderIsPrimaryAndItsAbsenceSecondary() {
        SettingsStore settings;
        ReceiptStore store;
        const HomeView view(&store, &settings);
        const auto *const folder = view.findChild<ElidedLabel *>();
        const QPalette palette = QApplication::palette();
        QCOMPARE(folder->palette().color(QPalette::WindowText), tintColor(Tint::secondary, palette));
        settings.setWatchFolderPath(QStringLiteral("/w"));
        QCOMPARE(folder->palette().color(QPalette::WindowText), tintColor(Tint::primary, palette));
    }

    void textsHaveTheirSizes() {
        SettingsStore settings;
        ReceiptStore store;
        const HomeView view(&store, &settings);
        const double body = view.font().pointSizeF();
        const auto size = [&view](const char *name) {
            return view.findChild<QLabel *>(QString::fromLatin1(name))->font().pointSizeF();
        };
        const auto captionSize = [&view](const char *name) {
            const auto *const label = view.findChild<CaptionLabel *>(QString::fromLatin1(name));
            QLabel *text = nullptr;
            for (QLabel *const part : label->findChildren<QLabel *>()) {
                text = part->text().isEmpty() ? text : part;
            }
            return text->font().pointSizeF();
        };
        QVERIFY(size("emptyTitle") > body);
        QCOMPARE(view.findChild<QLabel *>(QStringLiteral("emptyTitle"))->font().weight(), QFont::Medium);
        QVERIFY(size("watchFolder") < body);
        QCOMPARE(size("emptyExplanation"), size("watchFolder"));
        QVERIFY(captionSize("photosBadge") < size("watchFolder"));
        QCOMPARE(captionSize("missingKey"), captionSize("photosBadge"));
    }

    void symbolsFollowThePalette() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        view.show();
        const auto *const symbol = view.findChild<SymbolLabel *>(QStringLiteral("folderSymbol"));
        const QPalette light = QApplication::palette();
        const auto *const warning = view.findChild<CaptionLabel *>(QStringLiteral("missingKey"));
        const QImage symbolBefore = symbol->pixmap().toImage();
        const QImage warningBefore = warning->findChild<SymbolLabel *>()->pixmap().toImage();
        QPalette dark = light;
        dark.setColor(QPalette::Base, QColor(30, 30, 30));
        QApplication::setPalette(dark);
        QVERIFY(waitUntil([&] {
            return symbol->pixmap().toImage() != symbolBefore &&
                   warning->findChild<SymbolLabel *>()->pixmap().toImage() != warningBefore;
        }));
        QApplication::setPalette(light);
        QVERIFY(waitUntil([&] {
            return symbol->pixmap().toImage() == symbolBefore &&
                   warning->findChild<SymbolLabel *>()->pixmap().toImage() == warningBefore;
        }));
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
    static bool offersAddToPhotos(const HomeView &view) {
        const auto *const button = view.findChild<QToolButton *>(QStringLiteral("addToPhotos"));
        return button != nullptr && button->isVisible();
    }

    TemporaryHome home_;
    PrivateSession session_;
};

int home_view_test(int argc, char **argv) {
    return runTest<QApplication, HomeViewTest>(argc, argv);
}
#include "home_view_test.moc"
