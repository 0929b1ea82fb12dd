#include "main_window_under_test.h"
#include "next_dialog.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QDir>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// What the main window asks before it exports and archives, and what it does then.
class MainWindowExportTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { under_.renew(); }
    void cleanup() { under_.close(); }

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
        under_.settings->setWatchFolderPath(under_.watched);
        for (int index = 0; index < receipts; ++index) {
            under_.store->add(finishedReceipt(u"/w/%1.pdf"_s.arg(index)));
        }
        const QString message = start + under_.appState->archiveDestinationPath() +
                                u"”, then clears the list. Your Photos are unaffected."_s;
        onNextDialog<QMessageBox>([message](QMessageBox *box) {
            QCOMPARE(box->text(), u"Export, archive, and clear this batch?"_s);
            QCOMPARE(box->informativeText(), message);
            clickButton(box, u"Cancel"_s);
        });
        under_.action(actionName.constData())->trigger();
        QCOMPARE(under_.store->receipts().size(), receipts);
        QVERIFY(!QFileInfo::exists(under_.appState->archiveDestinationPath()));
    }

    void archiveQuestionFollowsTheList() {
        under_.settings->setWatchFolderPath(under_.watched);
        under_.store->add(finishedReceipt(under_.addFile(u"a.pdf"_s)));
        onNextDialog<QMessageBox>([this](QMessageBox *box) {
            QVERIFY(box->informativeText().contains(u"moves 1 receipt file into"));
            under_.store->add(finishedReceipt(under_.addFile(u"b.pdf"_s)));
            QVERIFY(box->informativeText().contains(u"moves 2 receipt files into"));
            clickButton(box, u"Export, Archive && Clear"_s);
        });
        under_.action("archiveCsv")->trigger();
        QVERIFY(under_.store->receipts().isEmpty());
        QCOMPARE(QDir(under_.appState->archiveDestinationPath()).entryList({u"*.pdf"_s}, QDir::Files),
                 (QStringList{u"a.pdf"_s, u"b.pdf"_s}));
    }

    void confirmedArchiveMovesAndClears() {
        under_.settings->setWatchFolderPath(under_.watched);
        const QString path = under_.watched + u"/a.pdf"_s;
        writeFile(path, "x");
        under_.store->add(finishedReceipt(path));
        onNextDialog<QMessageBox>([](QMessageBox *box) { clickButton(box, u"Export, Archive && Clear"_s); });
        under_.action("archiveHtml")->trigger();
        QVERIFY(under_.store->receipts().isEmpty());
        const QDir archive(under_.appState->archiveDestinationPath());
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
        under_.store->add(finishedReceipt(u"/w/a.pdf"_s));
        const QString target = under_.home.path(u"ledger"_s + ending);
        const QString proposed = u"receipts-"_s + AppState::dateStamp() + ending;
        onNextDialog<QFileDialog>([target, proposed](QFileDialog *panel) {
            QCOMPARE(panel->windowTitle(), u"Export Receipts"_s);
            QCOMPARE(panel->findChild<QLineEdit *>(u"fileNameEdit"_s)->text(), proposed);
            confirmSaving(panel, target);
        });
        under_.action(actionName.constData())->trigger();
        QVERIFY(!readFile(target).isEmpty());
    }

    void endOfAnExportIsTold() {
        under_.store->add(finishedReceipt(u"/w/a.pdf"_s));
        const QString target = under_.home.path(u"told.csv"_s);
        const QSignalSpy saved(under_.window.get(), &MainWindow::ledgerSaved);
        const QSignalSpy notSaved(under_.window.get(), &MainWindow::ledgerNotSaved);
        onNextDialog<QFileDialog>([target](QFileDialog *panel) { confirmSaving(panel, target); });
        under_.action("exportCsv")->trigger();
        QCOMPARE(saved.size(), 1);
        QCOMPARE(saved.first().first().toString(), target);
        QCOMPARE(notSaved.size(), 0);

        const QString impossible = u"/proc/told.csv"_s;
        onNextDialog<QFileDialog>([impossible](QFileDialog *panel) { confirmSaving(panel, impossible); });
        under_.action("exportCsv")->trigger();
        QCOMPARE(notSaved.size(), 1);
        QCOMPARE(notSaved.first().first().toString(), impossible);
        QVERIFY(!notSaved.first().last().toString().isEmpty());
        QCOMPARE(saved.size(), 1);
    }

    void ledgerIsTheListAsItWasAtTheClick() {
        under_.store->add(finishedReceipt(u"/w/a.pdf"_s));
        const QString target = under_.home.path(u"as-clicked.csv"_s);
        onNextDialog<QFileDialog>([this, target](QFileDialog *panel) {
            under_.store->add(finishedReceipt(u"/w/later.pdf"_s));
            confirmSaving(panel, target);
        });
        under_.action("exportCsv")->trigger();
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
        under_.store->add(finishedReceipt(u"/w/a.pdf"_s));
        const QString folder = under_.home.path(u"ledgers-"_s + saved);
        QDir().mkpath(folder);
        onNextDialog<QFileDialog>([&](QFileDialog *panel) { confirmSaving(panel, folder + u'/' + typed); });
        under_.action("exportCsv")->trigger();
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{saved});
    }

    void fileThatTheTypeLeadsToIsNotReplacedUnasked() {
        under_.store->add(finishedReceipt(u"/w/a.pdf"_s));
        const QString taken = under_.home.path(u"taken.txt.csv"_s);
        const QString free = under_.home.path(u"free.csv"_s);
        writeFile(taken, "precious");
        onNextDialog<QFileDialog>([&](QFileDialog *panel) {
            onNextDialog<QMessageBox>([&](QMessageBox *question) {
                QCOMPARE(question->text(), u"“taken.txt.csv” already exists. Do you want to replace it?"_s);
                onNextDialog<QFileDialog>([&](QFileDialog *again) { confirmSaving(again, free); });
                question->button(QMessageBox::No)->click();
            });
            confirmSaving(panel, under_.home.path(u"taken.txt"_s));
        });
        under_.action("exportCsv")->trigger();
        QCOMPARE(readFile(taken), QByteArray("precious"));
        QVERIFY(readFile(free).contains("a.pdf"));
    }

    void cancelledPanelWritesNothing() {
        under_.store->add(finishedReceipt(u"/w/a.pdf"_s));
        onNextDialog<QFileDialog>([](QFileDialog *panel) { panel->reject(); });
        const QStringList before = QDir::current().entryList();
        under_.action("exportCsv")->trigger();
        QCOMPARE(QDir::current().entryList(), before);
    }

private:
    MainWindowUnderTest under_;
};

int main_window_export_test(int argc, char **argv) {
    return runTest<QApplication, MainWindowExportTest>(argc, argv);
}
#include "main_window_export_test.moc"
