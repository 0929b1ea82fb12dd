#include "settings/settings_store.h"
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
using namespace Qt::StringLiterals;

class HomeViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QDir(home_.path(u"data/Fennick"_s)).removeRecursively();
        QDir(home_.path(u"config/Fennick"_s)).removeRecursively();
    }

    void folderIsShownAndFollowsTheSettings() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        auto *const folder = view.findChild<ElidedLabel *>(u"watchFolder"_s);
        QCOMPARE(folder->fullText(), u"No folder selected"_s);
        settings.setWatchFolderPath(u"/home/me/<b>Receipts</b>"_s);
        QCOMPARE(folder->fullText(), u"/home/me/<b>Receipts</b>"_s);
        QCOMPARE(folder->textFormat(), Qt::PlainText);
    }

    void missingKeyIsToldUntilThereIsOne() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        auto *const warning = view.findChild<CaptionLabel *>(u"missingKey"_s);
        QCOMPARE(warning->text(), u"Set your Gemini API key in Settings (⌘,) to start scanning."_s);
        QVERIFY(warning->isVisibleTo(&view));
        settings.setAPIKey(u"key"_s);
        QVERIFY(!warning->isVisibleTo(&view));
        settings.setAPIKey(u"  "_s); // removes the key
        QVERIFY(warning->isVisibleTo(&view));
    }

    void noKeyIsAskedForWhileThisComputerReads() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        const auto *const warning = view.findChild<CaptionLabel *>(u"missingKey"_s);
        settings.setServiceAddress(u"on-device"_s);
        QVERIFY(!warning->isVisibleTo(&view));
        settings.setServiceAddress(u"https://generativelanguage.googleapis.com"_s);
        QVERIFY(warning->isVisibleTo(&view));
    }

    void longFolderPathIsCutInTheMiddleOnOneLine() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        view.resize(720, 420);
        view.show();
        auto *const folder = view.findChild<ElidedLabel *>(u"watchFolder"_s);
        const QString path = u"/home/me/"_s + u"long/"_s.repeated(60) + u"last folder"_s;
        settings.setWatchFolderPath(path);
        QVERIFY(waitUntil([folder] { return folder->text().contains(u'…'); }));
        QVERIFY(folder->text().startsWith(u"/home/me/long"_s));
        QVERIFY(folder->text().endsWith(u"long/last folder"_s));
        QVERIFY(folder->fontMetrics().horizontalAdvance(folder->text()) <= folder->width());
        QVERIFY(folder->height() < 2 * folder->fontMetrics().height());
        QVERIFY(folder->toolTip().contains(path)); // which shows the whole path
        QCOMPARE(view.size(), QSize(720, 420));
    }

    void missingFolderIsToldInTheTipOfItsPath() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        view.resize(720, 420);
        view.show();
        settings.setWatchFolderPath(u"/home/me/<b>Receipts</b>"_s);
        const auto *const folder = view.findChild<ElidedLabel *>(u"watchFolder"_s);
        QVERIFY(waitUntil([folder] { return folder->toolTip().isEmpty(); }));
        view.showFolderMissing(true);
        const QString note = u"This folder is missing. Receipts are read again when it is back."_s;
        QCOMPARE(folder->toolTip(),
                 u"<span>/home/me/&lt;b&gt;Receipts&lt;/b&gt;</span><br><span>%1</span>"_s.arg(note));
        QCOMPARE(folder->accessibleDescription(), note);
        QCOMPARE(folder->text(), u"/home/me/<b>Receipts</b>"_s);
        view.showFolderMissing(false);
        QCOMPARE(folder->toolTip(), QString());
        QCOMPARE(folder->accessibleDescription(), QString());
    }

    void badgeAndAddToPhotosButtonsFollowTheSetting() {
        SettingsStore settings;
        ReceiptStore store;
        HomeView view(&store, &settings);
        view.show();
        store.add(finishedReceipt(u"/w/a.pdf"_s));
        auto *const badge = view.findChild<CaptionLabel *>(u"photosBadge"_s);
        QCOMPARE(badge->text(), u"Photos export on"_s);
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
        const auto *const title = view.findChild<QLabel *>(u"emptyTitle"_s);
        const auto *const explanation = view.findChild<QLabel *>(u"emptyExplanation"_s);
        auto *const choose = view.findChild<QPushButton *>(u"emptyChooseFolder"_s);
        QCOMPARE(title->text(), u"No receipts yet"_s);
        QCOMPARE(explanation->text(),
                 u"Choose a folder to watch, then drop in receipt PDFs or photos.\nEach one is "
                 "scanned, renamed, and added to Photos for Workday mobile."_s);
        QCOMPARE(choose->text(), u"Choose Folder…"_s);
        QSignalSpy requested(&view, &HomeView::chooseFolderRequested);
        QTest::mouseClick(choose, Qt::LeftButton);
        QCOMPARE(requested.size(), 1);
        store.add(finishedReceipt(u"/w/a.pdf"_s));
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
        const auto *const title = view.findChild<QLabel *>(u"emptyTitle"_s);
        QCOMPARE(title->parentWidget()->layout()->spacing(), 12);
    }

    void folderIsPrimaryAndItsAbsenceSecondary() {
        SettingsStore settings;
        ReceiptStore store;
        const HomeView view(&store, &settings);
        const auto *const folder = view.findChild<ElidedLabel *>();
        const QPalette palette = QApplication::palette();
        QCOMPARE(folder->palette().color(QPalette::WindowText), tintColor(Tint::secondary, palette));
        settings.setWatchFolderPath(u"/w"_s);
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
        QCOMPARE(view.findChild<QLabel *>(u"emptyTitle"_s)->font().weight(), QFont::Medium);
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
        const auto *const symbol = view.findChild<SymbolLabel *>(u"folderSymbol"_s);
        const QPalette light = QApplication::palette();
        const auto *const warning = view.findChild<CaptionLabel *>(u"missingKey"_s);
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
        const auto *const table = view.findChild<QTableView *>(u"receipts"_s);
        store.add(finishedReceipt(u"/w/a.pdf"_s));
        QCOMPARE(table->model()->rowCount(), 1);
    }

private:
    static bool offersAddToPhotos(const HomeView &view) {
        const auto *const button = view.findChild<QToolButton *>(u"addToPhotos"_s);
        return button != nullptr && button->isVisible();
    }

    TemporaryHome home_;
    PrivateSession session_;
};

int home_view_test(int argc, char **argv) {
    return runTest<QApplication, HomeViewTest>(argc, argv);
}
#include "home_view_test.moc"
