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
    QFAIL(qPrintable(QStringLiteral("no button ") + text));
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
        QDir(home_.path(QStringLiteral("data/Fennick"))).removeRecursively();
        QDir(home_.path(QStringLiteral("config/Fennick"))).removeRecursively();
        watched_ = home_.path(QStringLiteral("watched"));
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
        QCOMPARE(window_->windowTitle(), QStringLiteral("Fennick"));
    }

    void emptyListDisablesTheBatchControlsOnly() {
        QVERIFY(action("chooseFolder")->isEnabled());
        QVERIFY(!button("exportMenu")->isEnabled());
        QVERIFY(!button("archiveMenu")->isEnabled());
        QVERIFY(!action("clearAll")->isEnabled());
        store_->add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        QVERIFY(button("exportMenu")->isEnabled());
        QVERIFY(button("archiveMenu")->isEnabled());
        QVERIFY(action("clearAll")->isEnabled());
    }

    void toolbarReadsAsItShould() {
        QStringList texts;
        const auto actions = window_->findChild<QToolBar *>(QStringLiteral("toolbar"))->actions();
        for (QAction *const action : actions) {
            const auto *const widget = qobject_cast<QToolButton *>(
                window_->findChild<QToolBar *>(QStringLiteral("toolbar"))->widgetForAction(action));
            texts.append(widget->text());
        }
        QCOMPARE(texts, (QStringList{QStringLiteral("Choose Folder"), QStringLiteral("Export"),
                                     QStringLiteral("Archive && Clear"), QStringLiteral("Clear All")}));
        QCOMPARE(menuTexts("exportMenu"),
                 (QStringList{QStringLiteral("Export as CSV…"), QStringLiteral("Export as HTML…")}));
        QCOMPARE(menuTexts("archiveMenu"), (QStringList{QStringLiteral("Export CSV, Archive && Clear"),
                                                        QStringLiteral("Export HTML, Archive && Clear")}));
    }

    void usualShortcutsAreThere() {
        QCOMPARE(action("chooseFolder")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_O));
        QCOMPARE(action("exportCsv")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
        QCOMPARE(action("settings")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
        QCOMPARE(action("closeWindow")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_W));
        QCOMPARE(action("quit")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    }

    void chosenFolderIsStoredAndWatched() {
        writeFile(watched_ + QStringLiteral("/a.pdf"), "x");
        const FolderChooserDriver driver([this](QFileDialog *dialog) {
            QCOMPARE(dialog->labelText(QFileDialog::Accept), QStringLiteral("Watch This Folder"));
            FolderChooserDriver::type(dialog, watched_);
            QTest::mouseClick(FolderChooserDriver::button(dialog, QDialogButtonBox::Open), Qt::LeftButton);
        });
        action("chooseFolder")->trigger();
        QCOMPARE(settings_->watchFolderPath(), watched_);
        QVERIFY(waitUntil([this] { return store_->receipts().size() == 1; }));
        QVERIFY(waitUntil([this] { return store_->receipts().first().status == ReceiptStatus::error; }));
    }

    void clearAsksFirstAndCancelKeepsTheList() {
        store_->add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        onNextDialog<QMessageBox>([](QMessageBox *box) {
            QCOMPARE(box->text(), QStringLiteral("Clear all receipts from the list?"));
            QCOMPARE(box->informativeText(),
                     QStringLiteral("This empties the list. Your renamed files stay in the "
                                    "folder and won't be re-scanned."));
            clickButton(box, QStringLiteral("Cancel"));
        });
        action("clearAll")->trigger();
        QCOMPARE(store_->receipts().size(), 1);
        onNextDialog<QMessageBox>([](QMessageBox *box) { QTest::keyClick(box, Qt::Key_Escape); });
        action("clearAll")->trigger();
        QCOMPARE(store_->receipts().size(), 1);
        onNextDialog<QMessageBox>([](QMessageBox *box) { clickButton(box, QStringLiteral("Clear All")); });
        action("clearAll")->trigger();
        QVERIFY(store_->receipts().isEmpty());
    }

    void archiveTellsWhatItWillDo_data() {
        QTest::addColumn<QByteArray>("actionName");
        QTest::addColumn<int>("receipts");
        QTest::addColumn<QString>("start");
        QTest::newRow("one, CSV") << QByteArray("archiveCsv") << 1
                                  << QStringLiteral("Saves a CSV ledger and moves 1 receipt file into “");
        QTest::newRow("three, HTML") << QByteArray("archiveHtml") << 3
                                     << QStringLiteral(
                                            "Saves a HTML ledger and moves 3 receipt files into “");
    }
    void archiveTellsWhatItWillDo() {
        QFETCH(QByteArray, actionName);
        QFETCH(int, receipts);
        QFETCH(QString, start);
        settings_->setWatchFolderPath(watched_);
        for (int index = 0; index < receipts; ++index) {
            store_->add(finishedReceipt(QStringLiteral("/w/%1.pdf").arg(index)));
        }
        const QString message = start + appState_->archiveDestinationPath() +
                                QStringLiteral("”, then clears the list. Your Photos are unaffected.");
        onNextDialog<QMessageBox>([message](QMessageBox *box) {
            QCOMPARE(box->text(), QStringLiteral("Export, archive, and clear this batch?"));
            QCOMPARE(box->informativeText(), message);
            clickButton(box, QStringLiteral("Cancel"));
        });
        action(actionName.constData())->trigger();
        QCOMPARE(store_->receipts().size(), receipts);
        QVERIFY(!QFileInfo::exists(appState_->archiveDestinationPath()));
    }

    void buttonsOfTheQuestionsHaveTheirRoles() {
        settings_->setWatchFolderPath(watched_);
        store_->add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        onNextDialog<QMessageBox>([](QMessageBox *box) {
            QCOMPARE(roleOf(box, QStringLiteral("Clear All")), QMessageBox::DestructiveRole);
            QCOMPARE(roleOf(box, QStringLiteral("Cancel")), QMessageBox::RejectRole);
            clickButton(box, QStringLiteral("Cancel"));
        });
        action("clearAll")->trigger();
        onNextDialog<QMessageBox>([](QMessageBox *box) {
            QCOMPARE(roleOf(box, QStringLiteral("Export, Archive && Clear")), QMessageBox::AcceptRole);
            QCOMPARE(roleOf(box, QStringLiteral("Cancel")), QMessageBox::RejectRole);
            clickButton(box, QStringLiteral("Cancel"));
        });
        action("archiveCsv")->trigger();
        QCOMPARE(store_->receipts().size(), 1);
    }

    void archiveQuestionFollowsTheList() {
        settings_->setWatchFolderPath(watched_);
        store_->add(finishedReceipt(addFile(QStringLiteral("a.pdf"))));
        onNextDialog<QMessageBox>([this](QMessageBox *box) {
            QVERIFY(box->informativeText().contains(u"moves 1 receipt file into"));
            store_->add(finishedReceipt(addFile(QStringLiteral("b.pdf"))));
            QVERIFY(box->informativeText().contains(u"moves 2 receipt files into"));
            clickButton(box, QStringLiteral("Export, Archive && Clear"));
        });
        action("archiveCsv")->trigger();
        QVERIFY(store_->receipts().isEmpty());
        QCOMPARE(QDir(appState_->archiveDestinationPath()).entryList({QStringLiteral("*.pdf")}, QDir::Files),
                 (QStringList{QStringLiteral("a.pdf"), QStringLiteral("b.pdf")}));
    }

    void confirmedArchiveMovesAndClears() {
        settings_->setWatchFolderPath(watched_);
        const QString path = watched_ + QStringLiteral("/a.pdf");
        writeFile(path, "x");
        store_->add(finishedReceipt(path));
        onNextDialog<QMessageBox>(
            [](QMessageBox *box) { clickButton(box, QStringLiteral("Export, Archive && Clear")); });
        action("archiveHtml")->trigger();
        QVERIFY(store_->receipts().isEmpty());
        const QDir archive(appState_->archiveDestinationPath());
        QCOMPARE(archive.entryList({QStringLiteral("*.html"), QStringLiteral("*.pdf")}, QDir::Files).size(),
                 2);
    }

    void ledgerIsSavedWhereThePanelSays_data() {
        QTest::addColumn<QByteArray>("actionName");
        QTest::addColumn<QString>("ending");
        QTest::newRow("CSV") << QByteArray("exportCsv") << QStringLiteral(".csv");
        QTest::newRow("HTML") << QByteArray("exportHtml") << QStringLiteral(".html");
    }
    void ledgerIsSavedWhereThePanelSays() {
        QFETCH(QByteArray, actionName);
        QFETCH(QString, ending);
        store_->add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        const QString target = home_.path(QStringLiteral("ledger") + ending);
        const QString proposed = QStringLiteral("receipts-") + AppState::dateStamp() + ending;
        onNextDialog<QFileDialog>([target, proposed](QFileDialog *panel) {
            QCOMPARE(panel->windowTitle(), QStringLiteral("Export Receipts"));
            QCOMPARE(panel->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text(), proposed);
            confirmSaving(panel, target);
        });
        action(actionName.constData())->trigger();
        QVERIFY(!readFile(target).isEmpty());
    }

    void ledgerIsTheListAsItWasAtTheClick() {
        store_->add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        const QString target = home_.path(QStringLiteral("as-clicked.csv"));
        onNextDialog<QFileDialog>([this, target](QFileDialog *panel) {
            store_->add(finishedReceipt(QStringLiteral("/w/later.pdf")));
            confirmSaving(panel, target);
        });
        action("exportCsv")->trigger();
        QVERIFY(readFile(target).contains("a.pdf"));
        QVERIFY(!readFile(target).contains("later.pdf"));
    }

    void ledgerKeepsItsTypeWhateverNameIsTyped_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("saved");
        QTest::newRow("another type") << QStringLiteral("other.txt") << QStringLiteral("other.txt.csv");
        QTest::newRow("none") << QStringLiteral("other") << QStringLiteral("other.csv");
        QTest::newRow("its own") << QStringLiteral("own.csv") << QStringLiteral("own.csv");
        QTest::newRow("its own, shouted") << QStringLiteral("OWN.CSV") << QStringLiteral("OWN.CSV");
    }
    void ledgerKeepsItsTypeWhateverNameIsTyped() {
        QFETCH(QString, typed);
        QFETCH(QString, saved);
        store_->add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        const QString folder = home_.path(QStringLiteral("ledgers-") + saved);
        QDir().mkpath(folder);
        onNextDialog<QFileDialog>([&](QFileDialog *panel) { confirmSaving(panel, folder + u'/' + typed); });
        action("exportCsv")->trigger();
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{saved});
    }

    void fileThatTheTypeLeadsToIsNotReplacedUnasked() {
        store_->add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        const QString taken = home_.path(QStringLiteral("taken.txt.csv"));
        const QString free = home_.path(QStringLiteral("free.csv"));
        writeFile(taken, "precious");
        onNextDialog<QFileDialog>([&](QFileDialog *panel) {
            onNextDialog<QMessageBox>([&](QMessageBox *question) {
                QCOMPARE(question->text(),
                         QStringLiteral("“taken.txt.csv” already exists. Do you want to replace it?"));
                onNextDialog<QFileDialog>([&](QFileDialog *again) { confirmSaving(again, free); });
                question->button(QMessageBox::No)->click();
            });
            confirmSaving(panel, home_.path(QStringLiteral("taken.txt")));
        });
        action("exportCsv")->trigger();
        QCOMPARE(readFile(taken), QByteArray("precious"));
        QVERIFY(readFile(free).contains("a.pdf"));
    }

    void cancelledPanelWritesNothing() {
        store_->add(finishedReceipt(QStringLiteral("/w/a.pdf")));
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
        QCOMPARE(texts, (QStringList{QStringLiteral("Open"), QStringLiteral("Reveal in Finder"),
                                     QStringLiteral("Add to Photos"), QStringLiteral("Retry"),
                                     QStringLiteral("Copy Summary")}));
    }

    void receiptActionsFollowTheSelectedRow() {
        Receipt failed = finishedReceipt(QStringLiteral("/w/a.pdf"));
        failed.scannedAt = QStringLiteral("2025-01-01T00:00:02Z");
        failed.status = ReceiptStatus::error;
        Receipt done = finishedReceipt(QStringLiteral("/w/b.pdf"));
        done.scannedAt = QStringLiteral("2025-01-01T00:00:01Z");
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
        Receipt failed = finishedReceipt(watched_ + QStringLiteral("/a.pdf"));
        failed.status = ReceiptStatus::error;
        failed.error = QStringLiteral("Gemini API error: 500");
        store_->add(failed);
        table()->selectRow(0);
        action("retrySelected")->trigger();
        QVERIFY(waitUntil([this] {
            return store_->receipts().first().error ==
                   QStringLiteral("API key not configured. Set your Gemini API key in Settings.");
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
        store_->add(finishedReceipt(QStringLiteral("/w/a.pdf")));
        table()->setColumnWidth(3, 222);
        window_->close();
        const MainWindow again(store_.get(), settings_.get(), appState_.get());
        QCOMPARE(again.size(), QSize(790, 600));
        QCOMPARE(again.findChild<ReceiptsTable *>()->columnWidth(3), 222);
    }

    void droppedReceiptsAreCopiedIntoTheWatchedFolder() {
        settings_->setWatchFolderPath(watched_);
        const QString source = home_.path(QStringLiteral("elsewhere/scan.pdf"));
        writeFile(source, "dropped");
        writeFile(watched_ + QStringLiteral("/scan.pdf"), "already there");
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(source),
                      QUrl::fromLocalFile(home_.path(QStringLiteral("elsewhere/x.txt")))});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &drop);
        QVERIFY(waitUntil([this] { return QFileInfo::exists(watched_ + QStringLiteral("/scan (2).pdf")); }));
        QCOMPARE(readFile(watched_ + QStringLiteral("/scan.pdf")), QByteArray("already there"));
        QVERIFY(QFileInfo::exists(source));
    }

    void otherFilesAreNotTakenByDropping() {
        settings_->setWatchFolderPath(watched_);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(home_.path(QStringLiteral("x.txt")))});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(window_.get(), &enter);
        QVERIFY(!enter.isAccepted());
    }

private:
    static void confirmSaving(QFileDialog *panel, const QString &path) {
        auto *const name = panel->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
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
