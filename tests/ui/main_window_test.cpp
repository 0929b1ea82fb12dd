#include "folder_chooser_driver.h"
#include "main_window_under_test.h"
#include "next_dialog.h"
#include "support/conditions.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QClipboard>
#include <QDir>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolBar>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class MainWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { under_.renew(); }
    void cleanup() { under_.close(); }

    void windowHasTheSizesOfItsScreen() {
        QCOMPARE(under_.window->size(), QSize(900, 560));
        QCOMPARE(under_.window->centralWidget()->minimumSize(), QSize(720, 420));
        QCOMPARE(under_.window->windowTitle(), u"Fennick"_s);
    }

    void emptyListDisablesTheBatchControlsOnly() {
        QVERIFY(under_.action("chooseFolder")->isEnabled());
        QVERIFY(!under_.button("exportMenu")->isEnabled());
        QVERIFY(!under_.button("archiveMenu")->isEnabled());
        QVERIFY(!under_.action("clearAll")->isEnabled());
        under_.store->add(finishedReceipt(u"/w/a.pdf"_s));
        QVERIFY(under_.button("exportMenu")->isEnabled());
        QVERIFY(under_.button("archiveMenu")->isEnabled());
        QVERIFY(under_.action("clearAll")->isEnabled());
    }

    void toolbarReadsAsItShould() {
        QStringList texts;
        const auto actions = under_.window->findChild<QToolBar *>(u"toolbar"_s)->actions();
        for (QAction *const action : actions) {
            const auto *const widget = qobject_cast<QToolButton *>(
                under_.window->findChild<QToolBar *>(u"toolbar"_s)->widgetForAction(action));
            texts.append(widget->text());
        }
        QCOMPARE(texts,
                 (QStringList{u"Choose Folder"_s, u"Export"_s, u"Archive && Clear"_s, u"Clear All"_s}));
        QCOMPARE(under_.menuTexts("exportMenu"), (QStringList{u"Export as CSV…"_s, u"Export as HTML…"_s}));
        QCOMPARE(under_.menuTexts("archiveMenu"),
                 (QStringList{u"Export CSV, Archive && Clear"_s, u"Export HTML, Archive && Clear"_s}));
    }

    void usualShortcutsAreThere() {
        QCOMPARE(under_.action("chooseFolder")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_O));
        QCOMPARE(under_.action("exportCsv")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
        QCOMPARE(under_.action("settings")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
        QCOMPARE(under_.action("closeWindow")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_W));
        QCOMPARE(under_.action("quit")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    }

    void chosenFolderIsStoredAndWatched() {
        writeFile(under_.watched + u"/a.pdf"_s, "x");
        const FolderChooserDriver driver([this](QFileDialog *dialog) {
            QCOMPARE(dialog->labelText(QFileDialog::Accept), u"Watch This Folder"_s);
            FolderChooserDriver::type(dialog, under_.watched);
            QTest::mouseClick(FolderChooserDriver::button(dialog, QDialogButtonBox::Open), Qt::LeftButton);
        });
        under_.action("chooseFolder")->trigger();
        QVERIFY(waitUntil([this] { return under_.settings->watchFolderPath() == under_.watched; }));
        QVERIFY(waitUntil([this] { return under_.store->receipts().size() == 1; }));
        QVERIFY(
            waitUntil([this] { return under_.store->receipts().first().status == ReceiptStatus::error; }));
    }

    void clearAsksFirstAndCancelKeepsTheList() {
        under_.store->add(finishedReceipt(u"/w/a.pdf"_s));
        onNextDialog<QMessageBox>([](QMessageBox *box) {
            QCOMPARE(box->text(), u"Clear all receipts from the list?"_s);
            QCOMPARE(box->informativeText(), u"This empties the list. Your renamed files stay in the "
                                             "folder and won't be re-scanned."_s);
            clickButton(box, u"Cancel"_s);
        });
        under_.action("clearAll")->trigger();
        QCOMPARE(under_.store->receipts().size(), 1);
        onNextDialog<QMessageBox>([](QMessageBox *box) { QTest::keyClick(box, Qt::Key_Escape); });
        under_.action("clearAll")->trigger();
        QCOMPARE(under_.store->receipts().size(), 1);
        onNextDialog<QMessageBox>([](QMessageBox *box) { clickButton(box, u"Clear All"_s); });
        under_.action("clearAll")->trigger();
        QVERIFY(under_.store->receipts().isEmpty());
    }

    void buttonsOfTheQuestionsHaveTheirRoles() {
        under_.settings->setWatchFolderPath(under_.watched);
        under_.store->add(finishedReceipt(u"/w/a.pdf"_s));
        onNextDialog<QMessageBox>([](QMessageBox *box) {
            QCOMPARE(roleOf(box, u"Clear All"_s), QMessageBox::DestructiveRole);
            QCOMPARE(roleOf(box, u"Cancel"_s), QMessageBox::RejectRole);
            clickButton(box, u"Cancel"_s);
        });
        under_.action("clearAll")->trigger();
        onNextDialog<QMessageBox>([](QMessageBox *box) {
            QCOMPARE(roleOf(box, u"Export, Archive && Clear"_s), QMessageBox::AcceptRole);
            QCOMPARE(roleOf(box, u"Cancel"_s), QMessageBox::RejectRole);
            clickButton(box, u"Cancel"_s);
        });
        under_.action("archiveCsv")->trigger();
        QCOMPARE(under_.store->receipts().size(), 1);
    }

    void contextMenuOffersWhatCanBeDoneWithTheRow() {
        QCOMPARE(under_.table()->contextMenuPolicy(), Qt::ActionsContextMenu);
        QStringList texts;
        const auto actions = under_.table()->actions();
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
        under_.store->add(failed);
        under_.store->add(done);
        QVERIFY(!under_.action("retrySelected")->isEnabled());
        under_.table()->selectRow(0);
        QVERIFY(under_.action("retrySelected")->isEnabled());
        QVERIFY(!under_.action("addSelectedToPhotos")->isEnabled());
        under_.table()->selectRow(1);
        QVERIFY(!under_.action("retrySelected")->isEnabled());
        QVERIFY(under_.action("addSelectedToPhotos")->isEnabled());
        under_.settings->setAddToPhotos(false);
        QVERIFY(!under_.action("addSelectedToPhotos")->isEnabled());
        under_.action("copySummary")->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), done.summary);
    }

    void removedReceiptLeavesTheListAndItsFileStays() {
        addThree();
        under_.table()->selectRow(1);
        QTest::keyClick(under_.table(), Qt::Key_Delete);
        QCOMPARE(under_.store->receipts().size(), 2);
        QVERIFY(under_.store->hasFilePath(under_.watched + u"/b.pdf"_s)); // ignored
        QVERIFY(QFileInfo::exists(under_.watched + u"/b.pdf"_s));
        QCOMPARE(under_.table()->selectedReceipt()->fileName, u"c.pdf"_s); // whose row came up
        QTest::keyClick(under_.table(), Qt::Key_A, Qt::ControlModifier);
        under_.action("removeFromList")->trigger();
        QVERIFY(under_.store->receipts().isEmpty());
        QVERIFY(!under_.action("removeFromList")->isEnabled());
    }

    void copyTakesAllSelectedRowsAsATable() {
        addThree();
        under_.table()->selectAll();
        QTest::keyClick(under_.table(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 ExportService::buildTabSeparated(under_.store->receipts()));
        under_.table()->selectFurther(2);
        under_.action("copy")->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 ExportService::buildTabSeparated({under_.store->receipts().last()}));
    }

    void menuActsOnAllSelectedRowsThatItAppliesTo() {
        addThree();
        under_.table()->selectAll();
        QVERIFY(under_.action("retrySelected")->isEnabled());
        QVERIFY(under_.action("addSelectedToPhotos")->isEnabled());
        under_.action("copySummary")->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), u"first\nsecond\nthird"_s);
        under_.action("retrySelected")->trigger(); // the two that failed
        QVERIFY(waitUntil([this] {
            const QList<Receipt> &receipts = under_.store->receipts();
            return receipts[0].error == noKey && receipts[2].error == noKey;
        }));
        QCOMPARE(under_.store->receipts()[1].status, ReceiptStatus::done);
    }

    void manyFilesAreOpenedOnlyAfterAQuestion() {
        for (int number = 0; number < 11; ++number) {
            under_.store->add(finishedReceipt(under_.watched + u"/%1.pdf"_s.arg(number)));
        }
        under_.table()->selectAll();
        bool wasAsked = false;
        onNextDialog<QMessageBox>([&wasAsked](QMessageBox *box) {
            wasAsked = box->text() == u"Open 11 files?"_s;
            clickButton(box, u"Cancel"_s);
        });
        under_.action("open")->trigger();
        QVERIFY(wasAsked);
    }

    void allFailedReceiptsAreRetried() {
        addThree();
        QVERIFY(under_.action("retryAll")->isEnabled());
        QVERIFY(!under_.action("stopRetrying")->isEnabled());
        QCOMPARE(under_.action("retryAll")->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T));
        under_.action("retryAll")->trigger();
        QVERIFY(under_.action("stopRetrying")->isEnabled());
        QVERIFY(waitUntil([this] { return !under_.action("stopRetrying")->isEnabled(); }));
        QCOMPARE(under_.store->receipts()[0].error, noKey);
        QCOMPARE(under_.store->receipts()[1].status, ReceiptStatus::done);
        QCOMPARE(under_.store->receipts()[2].error, noKey);
    }

    void whatWasCorrectedByHandIsAskedAboutBeforeItIsReadAgain() {
        addThree();
        const QString id = under_.store->receipts()[1].id;
        const FieldFormats formats{QLocale::c(), QLocale::c()};
        QVERIFY(under_.appState->correct(id, {{ReceiptField::summary, u"typed"_s}}, formats));
        under_.table()->selectAll();
        QVERIFY(under_.action("readAgain")->isEnabled());
        onNextDialog<QMessageBox>([](QMessageBox *box) {
            QCOMPARE(box->text(), u"Read again and lose your corrections?"_s);
            clickButton(box, u"Cancel"_s);
        });
        under_.action("readAgain")->trigger();
        QVERIFY(!under_.appState->retryAll()->isUnderWay());
        QCOMPARE(under_.store->receipts()[1].summary, u"typed"_s);
        onNextDialog<QMessageBox>([](QMessageBox *box) { clickButton(box, u"Read Again"_s); });
        under_.action("readAgain")->trigger();
        QVERIFY(waitUntil([this] { return under_.store->receipts()[1].error == noKey; }));
    }

    void retryFromTheMenuScansAgain() {
        Receipt failed = finishedReceipt(under_.watched + u"/a.pdf"_s);
        failed.status = ReceiptStatus::error;
        failed.error = u"Gemini API error: 500"_s;
        under_.store->add(failed);
        under_.table()->selectRow(0);
        under_.action("retrySelected")->trigger();
        QVERIFY(waitUntil([this] {
            return under_.store->receipts().first().error ==
                   u"API key not configured. Set your Gemini API key in Settings."_s;
        }));
    }

    void closingAsksTheShellAndHidesNothingItself() {
        QSignalSpy closing(under_.window.get(), &MainWindow::closeRequested);
        under_.action("closeWindow")->trigger();
        QCOMPARE(closing.size(), 1);
        QVERIFY(under_.window->isVisible());
    }

    void sizeAndColumnWidthsAreRemembered() {
        under_.window->resize(790, 600);
        under_.store->add(finishedReceipt(u"/w/a.pdf"_s));
        under_.table()->setColumnWidth(3, 222);
        under_.window->close();
        const MainWindow again(under_.store.get(), under_.settings.get(), under_.appState.get());
        QCOMPARE(again.size(), QSize(790, 600));
        QCOMPARE(again.findChild<ReceiptsTable *>()->columnWidth(3), 222);
    }

    void droppedReceiptsAreCopiedIntoTheWatchedFolder() {
        under_.settings->setWatchFolderPath(under_.watched);
        const QString source = under_.home.path(u"elsewhere/scan.pdf"_s);
        writeFile(source, "dropped");
        writeFile(under_.watched + u"/scan.pdf"_s, "already there");
        QMimeData data;
        data.setUrls(
            {QUrl::fromLocalFile(source), QUrl::fromLocalFile(under_.home.path(u"elsewhere/x.txt"_s))});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(under_.window.get(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(under_.window.get(), &drop);
        QVERIFY(waitUntil([this] { return QFileInfo::exists(under_.watched + u"/scan (2).pdf"_s); }));
        QCOMPARE(readFile(under_.watched + u"/scan.pdf"_s), QByteArray("already there"));
        QVERIFY(QFileInfo::exists(source));
    }

    void otherFilesAreNotTakenByDropping() {
        under_.settings->setWatchFolderPath(under_.watched);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(under_.home.path(u"x.txt"_s))});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(under_.window.get(), &enter);
        QVERIFY(!enter.isAccepted());
    }

private:
    // One that is done between two that failed.
    void addThree() {
        const QList<std::pair<QString, QString>> names{
            {u"a.pdf"_s, u"first"_s}, {u"b.pdf"_s, u"second"_s}, {u"c.pdf"_s, u"third"_s}};
        for (const auto &[name, summary] : names) {
            Receipt receipt = finishedReceipt(under_.addFile(name));
            receipt.scannedAt = u"2025-01-01T00:00:01Z"_s; // in the order of their arrival
            receipt.summary = summary;
            receipt.status = name == u"b.pdf" ? ReceiptStatus::done : ReceiptStatus::error;
            under_.store->add(receipt);
        }
    }

    const QString noKey = u"API key not configured. Set your Gemini API key in Settings."_s;
    MainWindowUnderTest under_;
};

int main_window_test(int argc, char **argv) {
    return runTest<QApplication, MainWindowTest>(argc, argv);
}
#include "main_window_test.moc"
