#include "clipped_texts.h"
#include "platform/photo_permission.h"
#include "settings/settings_store.h"
#include "support/conditions.h"
#include "support/private_session.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/details/details_window.h"
#include "ui/dialogs/confirmations.h"
#include "ui/dialogs/export_panel.h"
#include "ui/dialogs/folder_chooser.h"
#include "ui/dialogs/watch_folder_question.h"
#include "ui/interface_language.h"
#include "ui/main_window/main_window.h"
#include "ui/settings/settings_view.h"
#include "ui/tray/menu_bar_content.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

#include <functional>
#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

// A wide one among the usual desktop fonts, in the size that desktops start with.
QFont desktopFont() {
    return QFont(u"DejaVu Sans"_s, 10);
}

QString shortcutLetter(const QString &text) {
    return QKeySequence::mnemonic(text).toString();
}

// Looks at the next modal dialog once it is on the screen, and closes it.
void onNextDialog(const std::function<void(const QWidget *)> &look) {
    auto *const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, look] {
        if (QWidget *const dialog = QApplication::activeModalWidget();
            dialog != nullptr && dialog->isVisible()) {
            timer->deleteLater();
            look(dialog);
            dialog->close();
        }
    });
    timer->start(5);
}

void verifyTextsAreWhole(const QWidget *window) {
    const QString clipped = clippedTexts(window);
    QVERIFY2(clipped.isEmpty(), qPrintable(clipped));
}

QWidget *windowNamed(const QString &name) {
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *const window : windows) {
        if (window->objectName() == name && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

} // namespace

// English as a control: what is clipped there is not the translation's fault.
class TranslationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        QApplication::setFont(desktopFont());
        QCOMPARE(QFontInfo(desktopFont()).family(), desktopFont().family());
    }

    void init() {
        QDir(home_.path(u"data/Fennick"_s)).removeRecursively();
        QDir(home_.path(u"config/Fennick"_s)).removeRecursively();
        QDir().mkpath(home_.path(u"Pictures"_s));
        settings_ = std::make_unique<SettingsStore>();
        store_ = std::make_unique<ReceiptStore>();
        appState_ = std::make_unique<AppState>(store_.get(), settings_.get());
    }
    void cleanup() { appState_.reset(); }

    void mainWindowShowsItsTextsWhole_data() { languages(); }
    void mainWindowShowsItsTextsWhole() {
        QFETCH(QString, language);
        const InterfaceLanguage texts({language});
        MainWindow window(store_.get(), settings_.get(), appState_.get());
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(waitUntil([this] { return !settings_->hasAPIKey(); }));
        QCOMPARE(window.centralWidget()->size().width(), 900);
        verifyTextsAreWhole(&window);
        window.resize(1, 1);
        QVERIFY(waitUntil([&window] { return window.centralWidget()->size() == QSize(720, 420); }));
        verifyTextsAreWhole(&window);

        addReceipts();
        QVERIFY(waitUntil([&window] { return rowButtons(window) == 5; }));
        QCOMPARE(window.centralWidget()->size(), QSize(720, 420));
        verifyTextsAreWhole(&window);
    }

    void settingsShowTheirTextsWhole_data() { languages(); }
    void settingsShowTheirTextsWhole() {
        QFETCH(QString, language);
        const InterfaceLanguage texts({language});
        for (const QByteArray &permission :
             {QByteArray(), "[General]\nphotos=denied\n"_ba, "[General]\nphotos=authorized\n"_ba}) {
            writeFile(home_.permissionsFile(), permission);
            SettingsView view(appState_.get(), settings_.get(), permission.isEmpty());
            view.show();
            QVERIFY(QTest::qWaitForWindowActive(&view));
            QCOMPARE(view.size(), QSize(460, 520));
            verifyTextsAreWhole(&view);
            settings_->setWatchFolderPath(home_.path(u"a long name of a watched folder"_s));
            settings_->setArchiveFolderPath(home_.path(u"a long name of an archive folder"_s));
            view.findChild<QPushButton *>(u"saveKey"_s)->click();
            QVERIFY(view.findChild<QWidget *>(u"archiveFolderReset"_s)->isVisibleTo(&view));
            QCoreApplication::processEvents(); // what has appeared is laid out
            verifyTextsAreWhole(&view);
        }
    }

    void detailsShowTheirTextsWhole_data() { languages(); }
    void detailsShowTheirTextsWhole() {
        QFETCH(QString, language);
        const InterfaceLanguage texts({language});
        addReceipts();
        DetailsWindow window(store_.get(), appState_.get());
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (const QSize &size : {window.size(), window.minimumSize()}) {
            window.resize(size);
            for (const Receipt &receipt : store_->receipts()) {
                window.showReceipt(receipt);
                window.findChild<QLineEdit *>(u"dateField"_s)->setText(u"2024-02-31"_s);
                QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
                QCoreApplication::processEvents(); // what has appeared is laid out
                verifyTextsAreWhole(&window);
            }
        }
    }

    void dialogsShowTheirTextsWhole_data() { languages(); }
    void dialogsShowTheirTextsWhole() {
        QFETCH(QString, language);
        const InterfaceLanguage texts({language});
        MainWindow window(store_.get(), settings_.get(), appState_.get());
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QStringList seen;
        const auto look = [&seen](const QWidget *dialog) {
            seen.append(dialog->objectName());
            verifyTextsAreWhole(dialog);
        };
        const QString folder = home_.path(u"Receipts"_s);
        onNextDialog(look);
        std::ignore = Confirmations::confirmClear(&window);
        onNextDialog(look);
        std::ignore = Confirmations::confirmDiscard(&window);
        for (const int receipts : {1, 12}) {
            while (store_->receipts().size() < receipts) {
                store_->add(finishedReceipt(u"/w/%1.pdf"_s.arg(store_->receipts().size())));
            }
            onNextDialog(look);
            std::ignore = Confirmations::confirmArchive(&window, u"HTML"_s, store_.get(), folder);
        }
        onNextDialog(look);
        std::ignore =
            chooseFolder(&window, QCoreApplication::translate("WatchFolderChooser", "Watch This Folder"),
                         folder, NewFolders::refused);
        onNextDialog(look);
        exportLedger(&window, {}, ExportService::Format::csv);
        WatchFolderQuestion question(folder, {true, 1234, false}, u"on-device"_s, &window);
        question.setAttribute(Qt::WA_DeleteOnClose, false);
        question.open();
        look(&question);
        QCOMPARE(seen.size(), 7);
    }

    void photosQuestionShowsItsTextsWhole_data() { languages(); }
    void photosQuestionShowsItsTextsWhole() {
        QFETCH(QString, language);
        const InterfaceLanguage texts({language});
        const QString name = u"photosAccessQuestion"_s;
        const auto request = PhotoPermission::request();
        QVERIFY(waitUntil([name] { return windowNamed(name) != nullptr; }));
        verifyTextsAreWhole(windowNamed(name));
        windowNamed(name)->close();
        QVERIFY(waitUntil([&request] { return request.isReady(); }));
    }

    void menusFitAndTheirLettersDiffer_data() { languages(); }
    void menusFitAndTheirLettersDiffer() {
        QFETCH(QString, language);
        const InterfaceLanguage texts({language});
        const MainWindow window(store_.get(), settings_.get(), appState_.get());
        const MenuBarContent tray(store_.get());
        verifyTextsAreWhole(&tray);
        const auto menus = window.findChildren<QMenu *>();
        QCOMPARE(menus.size(), 7);
        for (const QMenu *const menu : menus) {
            verifyTextsAreWhole(menu);
            verifyLettersDiffer(menu, 0);
        }
        verifyLettersDiffer(window.menuBar(), 4);
        verifyLettersDiffer(&tray, 0);
    }

    void nothingIsLeftInEnglish_data() {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QStringList>("same"); // the same word in both languages
        QTest::newRow("de") << u"de"_s << QStringList{u"Status"_s, u"Gemini"_s};
        QTest::newRow("fr") << u"fr"_s << QStringList{u"Date"_s, u"Photos"_s, u"Actions"_s, u"Gemini"_s};
    }
    void nothingIsLeftInEnglish() {
        QFETCH(QString, language);
        QFETCH(QStringList, same);
        addReceipts();
        const QStringList english = textsOfTheWindows();
        QVERIFY(english.contains(u"Export CSV, Archive && Clear"_s));
        const InterfaceLanguage texts({language});
        QStringList left;
        const QStringList translated = textsOfTheWindows();
        for (const QString &text : translated) {
            if (english.contains(text) && !same.contains(text)) {
                left.append(text);
            }
        }
        left.removeDuplicates();
        QCOMPARE(left.join(u" | "_s), u"Fennick"_s);
        QCOMPARE(translated.size(), english.size());
    }

private:
    static void languages() {
        QTest::addColumn<QString>("language");
        for (const char *const language : {"en", "de", "fr"}) {
            QTest::newRow(language) << QString::fromLatin1(language);
        }
    }

    static qsizetype rowButtons(const QWidget &window) {
        qsizetype visible = 0;
        const auto buttons = window.findChildren<QAbstractButton *>();
        for (const QAbstractButton *const button : buttons) {
            const QStringList names = {u"reveal"_s, u"addToPhotos"_s, u"retry"_s};
            visible += names.contains(button->objectName()) && button->isVisible() ? 1 : 0;
        }
        return visible;
    }

    static void verifyLettersDiffer(const QWidget *menu, qsizetype expected) {
        QStringList letters;
        const auto actions = menu->actions();
        for (const QAction *const action : actions) {
            letters.append(shortcutLetter(action->text()));
        }
        letters.removeAll(QString());
        QCOMPARE(letters.size(), expected);
        QCOMPARE(letters.removeDuplicates(), 0);
    }

    // One of each status.
    void addReceipts() {
        const auto statuses = {ReceiptStatus::processing, ReceiptStatus::done, ReceiptStatus::error};
        for (const ReceiptStatus status : statuses) {
            Receipt receipt = finishedReceipt(home_.path(u"Receipts/%1.pdf"_s.arg(static_cast<int>(status))));
            receipt.status = status;
            store_->add(receipt);
        }
    }

    QStringList textsOfTheWindows() {
        const MainWindow window(store_.get(), settings_.get(), appState_.get());
        const SettingsView view(appState_.get(), settings_.get(), false);
        const MenuBarContent tray(store_.get());
        const DetailsWindow details(store_.get(), appState_.get());
        return textsOf(&window) + textsOf(&view) + textsOf(&tray) + textsOf(&details);
    }

    // Libraries look up the user's folders once per process, hence one home for all tests.
    TemporaryHome home_;
    PrivateSession session_;
    std::unique_ptr<SettingsStore> settings_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<AppState> appState_;
};

int translations_test(int argc, char **argv) {
    return runTest<QApplication, TranslationsTest>(argc, argv);
}
#include "translations_test.moc"
