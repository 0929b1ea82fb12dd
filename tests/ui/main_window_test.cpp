#include "folder_chooser_driver.h"
#include "support/conditions.h"
#include "support/private_session.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/main_window/main_window.h"
#include "ui/main_window/receipts_table.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

// Does something to the next modal dialog of type Dialog once it is on the screen.
template <typename Dialog>
void onNextDialog(const std::function<void(Dialog *)> &act) {
    auto *const look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, act] {
        auto *const dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        if (dialog != nullptr && dialog->isVisible()) {
            look->deleteLater();
            act(dialog);
        }
    });
    look->start(5);
}

void clickButton(const QMessageBox *box, const QString &text) {
    const auto buttons = box->buttons();
    for (QAbstractButton *const button : buttons) {
        if (button->text() == text) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL(qPrintable(u"no button "_s + text));
}

QMessageBox::ButtonRole roleOf(const QMessageBox *box, const QString &text) {
    const auto buttons = box->buttons();
    for (QAbstractButton *const button : buttons) {
        if (button->text() == text) {
            return box->buttonRole(button);
        }
    }
    return QMessageBox::InvalidRole;
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QDir(home_.path(u"data/Fennick"_s)).removeRecursively();
        QDir(home_.path(u"config/Fennick"_s)).removeRecursively();
        watched_ = home_.path(u"watched"_s);
        QDir(watched_).removeRecursively();
        QDir().mkpath(watched_);
        settings_ = std::make_unique<SettingsStore>();
        store_ = std::make_unique<ReceiptStore>();
        appState_ = std::make_unique<AppState>(store_.get(), settings_.get());
        window_ = std::make_unique<MainWindow>(store_.get(), settings_.get(), appState_.get());
        window_->show();
        QVERIFY(QTest::qWaitForWindowActive(window_.get()));
    }

    void cleanup() {
        window_.reset();
        appState_.reset();
    }

    void windowHasTheSizesOfItsScreen() {
        QCOMPARE(window_->size(), QSize(900, 560));
        QCOMPARE(window_->centralWidget()->minimumSize(), QSize(720, 420));
        QCOMPARE(window_->windowTitle(), u"Fennick"_s);
    }

    void emptyListDisablesTheBatchControlsOnly() {
        QVERIFY(action("chooseFolder")->isEnabled());
        QVERIFY(!button("exportMenu")->isEnabled());
        QVERIFY(!button("archiveMenu")->isEnabled());
        QVERIFY(!action("clearAll")->isEnabled());
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        QVERIFY(button("exportMenu")->isEnabled());
        QVERIFY(button("archiveMenu")->isEnabled());
        QVERIFY(action("clearAll")->isEnabled());
    }

    void toolbarReadsAsItShould() {
        QStringList texts;
        const auto actions = window_->findChild<QToolBar *>(u"toolbar"_s)->actions();
        for (QAction *const action : actions) {
            const auto *const widget = qobject_cast<QToolButton *>(
                window_->findChild<QToolBar *>(u"toolbar"_s)->widgetForAction(action));
            texts.append(widget->text());
        }
        QCOMPARE(texts,
                 (QStringList{u"Choose Folder"_s, u"Export"_s, u"Archive && Clear"_s, u"Clear All"_s}));
        QCOMPARE(menuTexts("exportMenu"), (QStringList{u"Export as CSV…"_s, u"Export as HTML…"_s}));
        QCOMPARE(menuTexts("archiveMenu"),
                 (QStringList{u"Export CSV, Archive && Clear"_s, u"Export HTML, Archive && Clear"_s}));
    }

    void usualShortcutsAreThere() {
        QCOMPARE(action("chooseFolder")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_O));
        QCOMPARE(action("exportCsv")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
        QCOMPARE(action("settings")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
        QCOMPARE(action("closeWindow")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_W));
        QCOMPARE(action("quit")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    }

    void chosenFolderIsStoredAndWatched() {
        writeFile(watched_ + u"/a.pdf"_s, "x");
        const FolderChooserDriver driver([this](QFileDialog *dialog) {
            QCOMPARE(dialog->labelText(QFileDialog::Accept), u"Watch This Folder"_s);
            FolderChooserDriver::type(dialog, watched_);
            QTest::mouseClick(FolderChooserDriver::button(dialog, QDialogButtonBox::Open), Qt::LeftButton);
        });
        action("chooseFolder")->trigger();
        QCOMPARE(settings_->watchFolderPath(), watched_);
        QVERIFY(waitUntil([this] { return store_->receipts().size() == 1; }));
        QVERIFY(waitUntil([this] { return store_->receipts().first().status == ReceiptStatus::error; }));
    }

    void clearAsksFirstAndCancelKeepsTheList() {
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        onNextDialog<QMessageBox>([](QMessageBox *box) {
            QCOMPARE(box->text(), u"Clear all receipts from the list?"_s);
            QCOMPARE(box->informativeText(), u"This empties the list. Your renamed files stay in the "
                                             "folder and won't be re-scanned."_s);
            clickButton(box, u"Cancel"_s);
        });
        action("clearAll")->trigger();
        QCOMPARE(store_->receipts().size(), 1);
        onNextDialog<QMessageBox>([](QMessageBox *box) { QTest::keyClick(box, Qt::Key_Escape); });
        action("clearAll")->trigger();
        QCOMPARE(store_->receipts().size(), 1);
        onNextDialog<QMessageBox>([](QMessageBox *box) { clickButton(box, u"Clear All"_s); });
        action("clearAll")->trigger();
        QVERIFY(store_->receipts().isEmpty());
    }

    void archiveTellsWhatItWillDo_data() {
        QTest::addColumn<QByteArray>("actionName");
        QTest::addColumn<int>("receipts");
        QTest::addColumn<QString>("start");
        QTest::newRow("one, CSV") << QByteArray("archiveCsv") << 1
                                  << u"Saves a CSV ledger and moves 1 receipt file into “"_s;
        QTest::newRow("three, HTML") << QByteArray("archiveHtml") << 3
                                     << u"Saves a HTML ledger and moves 3 receipt files into “"_s;
    }
    void archiveTellsWhatItWillDo() {
        QFETCH(QByteArray, actionName);
        QFETCH(int, receipts);
        QFETCH(QString, start);
        settings_->setWatchFolderPath(watched_);
        for (int index = 0; index < receipts; ++index) {
            store_->add(finishedReceipt(u"/w/%1.pdf"_s.arg(index)));
        }
        const QString message = start + appState_->archiveDestinationPath() +
                                u"”, then clears the list. Your Photos are unaffected."_s;
        onNextDialog<QMessageBox>([message](QMessageBox *box) {
            QCOMPARE(box->text(), u"Export, archive, and clear this batch?"_s);
            QCOMPARE(box->informativeText(), message);
            clickButton(box, u"Cancel"_s);
        });
        action(actionName.constData())->trigger();
        QCOMPARE(store_->receipts().size(), receipts);
        QVERIFY(!QFileInfo::exists(appState_->archiveDestinationPath()));
    }

    void buttonsOfTheQuestionsHaveTheirRoles() {
        settings_->setWatchFolderPath(watched_);
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        onNextDialog<QMessageBox>([](QMessageBox *box) {
            QCOMPARE(roleOf(box, u"Clear All"_s), QMessageBox::DestructiveRole);
            QCOMPARE(roleOf(box, u"Cancel"_s), QMessageBox::RejectRole);
            clickButton(box, u"Cancel"_s);
        });
        action("clearAll")->trigger();
        onNextDialog<QMessageBox>([](QMessageBox *box) {
            QCOMPARE(roleOf(box, u"Export, Archive && Clear"_s), QMessageBox::AcceptRole);
            QCOMPARE(roleOf(box, u"Cancel"_s), QMessageBox::RejectRole);
            clickButton(box, u"Cancel"_s);
        });
        action("archiveCsv")->trigger();
        QCOMPARE(store_->receipts().size(), 1);
    }

    void archiveQuestionFollowsTheList() {
        settings_->setWatchFolderPath(watched_);
        store_->add(finishedReceipt(addFile(u"a.pdf"_s)));
        onNextDialog<QMessageBox>([this](QMessageBox *box) {
            QVERIFY(box->informativeText().contains(u"moves 1 receipt file into"));
            store_->add(finishedReceipt(addFile(u"b.pdf"_s)));
            QVERIFY(box->informativeText().contains(u"moves 2 receipt files into"));
            clickButton(box, u"Export, Archive && Clear"_s);
        });
        action("archiveCsv")->trigger();
        QVERIFY(store_->receipts().isEmpty());
        QCOMPARE(QDir(appState_->archiveDestinationPath()).entryList({u"*.pdf"_s}, QDir::Files),
                 (QStringList{u"a.pdf"_s, u"b.pdf"_s}));
    }

    void confirmedArchiveMovesAndClears() {
        settings_->setWatchFolderPath(watched_);
        const QString path = watched_ + u"/a.pdf"_s;
        writeFile(path, "x");
        store_->add(finishedReceipt(path));
        onNextDialog<QMessageBox>([](QMessageBox *box) { clickButton(box, u"Export, Archive && Clear"_s); });
        action("archiveHtml")->trigger();
        QVERIFY(store_->receipts().isEmpty());
        const QDir archive(appState_->archiveDestinationPath());
        QCOMPARE(archive.entryList({u"*.html"_s, u"*.pdf"_s}, QDir::Files).size(), 2);
    }

    void ledgerIsSavedWhereThePanelSays_data() {
        QTest::addColumn<QByteArray>("actionName");
        QTest::addColumn<QString>("ending");
        QTest::newRow("CSV") << QByteArray("exportCsv") << u".csv"_s;
        QTest::newRow("HTML") << QByteArray("exportHtml") << u".html"_s;
    }
    void ledgerIsSavedWhereThePanelSays() {
        QFETCH(QByteArray, actionName);
        QFETCH(QString, ending);
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        const QString target = home_.path(u"ledger"_s + ending);
        const QString proposed = u"receipts-"_s + AppState::dateStamp() + ending;
        onNextDialog<QFileDialog>([target, proposed](QFileDialog *panel) {
            QCOMPARE(panel->windowTitle(), u"Export Receipts"_s);
            QCOMPARE(panel->findChild<QLineEdit *>(u"fileNameEdit"_s)->text(), proposed);
            confirmSaving(panel, target);
        });
        action(actionName.constData())->trigger();
        QVERIFY(!readFile(target).isEmpty());
    }

    void ledgerIsTheListAsItWasAtTheClick() {
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        const QString target = home_.path(u"as-clicked.csv"_s);
        onNextDialog<QFileDialog>([this, target](QFileDialog *panel) {
            store_->add(finishedReceipt(u"/w/later.pdf"_s));
            confirmSaving(panel, target);
        });
        action("exportCsv")->trigger();
        QVERIFY(readFile(target).contains("a.pdf"));
        QVERIFY(!readFile(target).contains("later.pdf"));
    }

    void ledgerKeepsItsTypeWhateverNameIsTyped_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("saved");
        QTest::newRow("another type") << u"other.txt"_s << u"other.txt.csv"_s;
        QTest::newRow("none") << u"other"_s << u"other.csv"_s;
        QTest::newRow("its own") << u"own.csv"_s << u"own.csv"_s;
        QTest::newRow("its own, shouted") << u"OWN.CSV"_s << u"OWN.CSV"_s;
    }
    void ledgerKeepsItsTypeWhateverNameIsTyped() {
        QFETCH(QString, typed);
        QFETCH(QString, saved);
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        const QString folder = home_.path(u"ledgers-"_s + saved);
        QDir().mkpath(folder);
        onNextDialog<QFileDialog>([&](QFileDialog *panel) { confirmSaving(panel, folder + u'/' + typed); });
        action("exportCsv")->trigger();
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{saved});
    }

    void fileThatTheTypeLeadsToIsNotReplacedUnasked() {
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        const QString taken = home_.path(u"taken.txt.csv"_s);
        const QString free = home_.path(u"free.csv"_s);
        writeFile(taken, "precious");
        onNextDialog<QFileDialog>([&](QFileDialog *panel) {
            onNextDialog<QMessageBox>([&](QMessageBox *question) {
                QCOMPARE(question->text(), u"“taken.txt.csv” already exists. Do you want to replace it?"_s);
                onNextDialog<QFileDialog>([&](QFileDialog *again) { confirmSaving(again, free); });
                question->button(QMessageBox::No)->click();
            });
            confirmSaving(panel, home_.path(u"taken.txt"_s));
        });
        action("exportCsv")->trigger();
        QCOMPARE(readFile(taken), QByteArray("precious"));
        QVERIFY(readFile(free).contains("a.pdf"));
    }

    void cancelledPanelWritesNothing() {
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        onNextDialog<QFileDialog>([](QFileDialog *panel) { panel->reject(); });
        const QStringList before = QDir::current().entryList();
        action("exportCsv")->trigger();
        QCOMPARE(QDir::current().entryList(), before);
    }

    void contextMenuOffersWhatCanBeDoneWithTheRow() {
        QCOMPARE(table()->contextMenuPolicy(), Qt::ActionsContextMenu);
        QStringList texts;
        const auto actions = table()->actions();
        for (const QAction *const each : actions) {
            texts.append(each->text());
        }
        QCOMPARE(texts, (QStringList{u"Open"_s, u"Reveal in Finder"_s, u"Add to Photos"_s, u"Retry"_s,
                                     u"Copy Summary"_s}));
    }

    void receiptActionsFollowTheSelectedRow() {
        Receipt failed = finishedReceipt(u"/w/a.pdf"_s);
        failed.scannedAt = u"2025-01-01T00:00:02Z"_s;
        failed.status = ReceiptStatus::error;
        Receipt done = finishedReceipt(u"/w/b.pdf"_s);
        done.scannedAt = u"2025-01-01T00:00:01Z"_s;
        store_->add(failed);
        store_->add(done);
        QVERIFY(!action("retrySelected")->isEnabled());
        table()->selectRow(0);
        QVERIFY(action("retrySelected")->isEnabled());
        QVERIFY(!action("addSelectedToPhotos")->isEnabled());
        table()->selectRow(1);
        QVERIFY(!action("retrySelected")->isEnabled());
        QVERIFY(action("addSelectedToPhotos")->isEnabled());
        settings_->setAddToPhotos(false);
        QVERIFY(!action("addSelectedToPhotos")->isEnabled());
        action("copySummary")->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), done.summary);
    }

    void retryFromTheMenuScansAgain() {
        Receipt failed = finishedReceipt(watched_ + u"/a.pdf"_s);
        failed.status = ReceiptStatus::error;
        failed.error = u"Gemini API error: 500"_s;
        store_->add(failed);
        table()->selectRow(0);
        action("retrySelected")->trigger();
        QVERIFY(waitUntil([this] {
            return store_->receipts().first().error ==
                   u"API key not configured. Set your Gemini API key in Settings."_s;
        }));
    }

    void closingAsksTheShellAndHidesNothingItself() {
        QSignalSpy closing(window_.get(), &MainWindow::closeRequested);
        action("closeWindow")->trigger();
        QCOMPARE(closing.size(), 1);
        QVERIFY(window_->isVisible());
    }

    void sizeAndColumnWidthsAreRemembered() {
        window_->resize(790, 600);
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        table()->setColumnWidth(3, 222);
        window_->close();
        const MainWindow again(store_.get(), settings_.get(), appState_.get());
        QCOMPARE(again.size(), QSize(790, 600));
        QCOMPARE(again.findChild<ReceiptsTable *>()->columnWidth(3), 222);
    }

    void droppedReceiptsAreCopiedIntoTheWatchedFolder() {
        settings_->setWatchFolderPath(watched_);
        const QString source = home_.path(u"elsewhere/scan.pdf"_s);
        writeFile(source, "dropped");
        writeFile(watched_ + u"/scan.pdf"_s, "already there");
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(source), QUrl::fromLocalFile(home_.path(u"elsewhere/x.txt"_s))});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &drop);
        QVERIFY(waitUntil([this] { return QFileInfo::exists(watched_ + u"/scan (2).pdf"_s); }));
        QCOMPARE(readFile(watched_ + u"/scan.pdf"_s), QByteArray("already there"));
        QVERIFY(QFileInfo::exists(source));
    }

    void otherFilesAreNotTakenByDropping() {
        settings_->setWatchFolderPath(watched_);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(home_.path(u"x.txt"_s))});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(window_.get(), &enter);
        QVERIFY(!enter.isAccepted());
    }

private:
    static void confirmSaving(QFileDialog *panel, const QString &path) {
        auto *const name = panel->findChild<QLineEdit *>(u"fileNameEdit"_s);
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    }

    QString addFile(const QString &name) const {
        const QString path = watched_ + u'/' + name;
        writeFile(path, "x");
        return path;
    }

    QAction *action(const char *name) const {
        return window_->findChild<QAction *>(QString::fromLatin1(name));
    }
    QToolButton *button(const char *name) const {
        return window_->findChild<QToolButton *>(QString::fromLatin1(name));
    }
    ReceiptsTable *table() const { return window_->findChild<ReceiptsTable *>(); }

    QStringList menuTexts(const char *name) const {
        QStringList texts;
        const auto items = button(name)->menu()->actions();
        for (const QAction *const item : items) {
            texts.append(item->text());
        }
        return texts;
    }

    TemporaryHome home_;
    PrivateSession session_;
    QString watched_;
    std::unique_ptr<SettingsStore> settings_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<AppState> appState_;
    std::unique_ptr<MainWindow> window_;
};

int main_window_test(int argc, char **argv) {
    return runTest<QApplication, MainWindowTest>(argc, argv);
}
#include "main_window_test.moc"
