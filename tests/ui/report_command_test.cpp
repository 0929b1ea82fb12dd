#include "main_window_under_test.h"
#include "next_dialog.h"
#include "settings/report_memory.h"
#include "support/conditions.h"
#include "support/process_status.h"
#include "support/receipts.h"
#include "support/striped_pdf.h"
#include "support/test_program.h"
#include "ui/dialogs/progress_panel.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// What the main window asks and shows when the list is exported as a PDF report.
class ReportCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        under_.renew();
        folder_ = under_.home.path(u"reports"_s);
        QDir(folder_).removeRecursively();
        QVERIFY(QDir().mkpath(folder_));
    }
    void cleanup() { under_.close(); }

    void actionStandsBesideTheOtherExports() {
        const QAction *const action = under_.action("exportReport");
        QCOMPARE(action->text(), u"Export as PDF Report…"_s);
        QCOMPARE(action->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P));
        const auto file = under_.window->menuBar()->actions().first()->menu()->actions();
        QCOMPARE(file.indexOf(action), file.indexOf(under_.action("exportHtml")) + 1);
        QVERIFY(!action->isEnabled());
        addReceipt(1);
        QVERIFY(action->isEnabled());
    }

    void nameIsAskedOnceEver() {
        addReceipt(1);
        onNextDialog<QInputDialog>([this](QInputDialog *question) {
            QCOMPARE(question->labelText(), u"Name on the report:"_s);
            answerPanel(report());
            question->setTextValue(u" Jane Doe "_s);
            question->accept();
        });
        QCOMPARE(exported(), report());
        QCOMPARE(ReportMemory().name(), std::optional(u"Jane Doe"_s));
        QVERIFY(readFile(report()).startsWith("%PDF-"));
        QVERIFY(QFile::remove(report()));

        answerPanel(report());
        QCOMPARE(exported(), report());
    }

    void reportMayBearNoName() {
        addReceipt(1);
        onNextDialog<QInputDialog>([this](QInputDialog *question) {
            answerPanel(report());
            question->accept();
        });
        QCOMPARE(exported(), report());
        QCOMPARE(ReportMemory().name(), std::optional(QString()));
        QVERIFY(QFile::remove(report()));
        answerPanel(report());
        QCOMPARE(exported(), report());
    }

    void questionThatIsCancelledWritesNothing() {
        addReceipt(1);
        bool isAnswered = false;
        onNextDialog<QInputDialog>([&isAnswered](QInputDialog *question) {
            question->reject();
            isAnswered = true;
        });
        under_.action("exportReport")->trigger();
        QVERIFY(waitUntil([&] { return isAnswered && under_.action("exportReport")->isEnabled(); }));
        QVERIFY(!ReportMemory().name());
    }

    void panelProposesANameLikeThatOfTheLedgers() {
        ReportMemory().setName({});
        addReceipt(1);
        onNextDialog<QFileDialog>([](QFileDialog *panel) {
            QCOMPARE(panel->windowTitle(), u"Export Receipts"_s);
            QCOMPARE(panel->findChild<QLineEdit *>(u"fileNameEdit"_s)->text(),
                     u"receipts-"_s + AppState::dateStamp() + u".pdf"_s);
            panel->reject();
        });
        under_.action("exportReport")->trigger();
        QVERIFY(under_.action("exportReport")->isEnabled());
    }

    void progressIsShownAndCanBeCancelled() {
        ReportMemory().setName({});
        const QSignalSpy saved(under_.window.get(), &MainWindow::ledgerSaved);
        const QSignalSpy notSaved(under_.window.get(), &MainWindow::ledgerNotSaved);
        // Long enough to be seen: the process is ended long before it is through.
        const QString path = addReceipt(400);
        for (int copy = 0; copy < 300; ++copy) {
            under_.store->add(finishedReceipt(path));
        }
        answerPanel(report());
        bool isSeen = false;
        onNextDialog<ProgressPanel>([&isSeen](ProgressPanel *panel) {
            QCOMPARE(panel->windowTitle(), u"PDF Report"_s);
            QVERIFY(panel->findChild<QLabel *>(u"progressText"_s)->text().endsWith(u" of 301"));
            isSeen = true;
            panel->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Cancel)->click();
        });
        under_.action("exportReport")->trigger();
        QVERIFY(!under_.action("exportReport")->isEnabled());
        QVERIFY(waitUntil([&] { return isSeen && under_.action("exportReport")->isEnabled(); }));
        QVERIFY(QDir(folder_).entryList(QDir::Files | QDir::Hidden).isEmpty());
        QVERIFY(waitUntil(
            [] { return childrenNamed("make_report", QCoreApplication::applicationPid()).isEmpty(); }));
        QVERIFY(saved.isEmpty());
        QVERIFY(notSaved.isEmpty());
    }

    void closingTheProgramEndsTheReport() {
        ReportMemory().setName({});
        const QString path = addReceipt(400);
        for (int copy = 0; copy < 300; ++copy) {
            under_.store->add(finishedReceipt(path));
        }
        answerPanel(report());
        under_.action("exportReport")->trigger();
        under_.close();
        QVERIFY(QDir(folder_).entryList(QDir::Files | QDir::Hidden).isEmpty());
        QVERIFY(childrenNamed("make_report", QCoreApplication::applicationPid()).isEmpty());
    }

    void reportThatCannotBeWrittenIsTold() {
        ReportMemory().setName({});
        addReceipt(1);
        const QSignalSpy notSaved(under_.window.get(), &MainWindow::ledgerNotSaved);
        answerPanel(u"/proc/report.pdf"_s);
        under_.action("exportReport")->trigger();
        QVERIFY(waitUntil([&] { return !notSaved.isEmpty(); }));
        QCOMPARE(notSaved.first().first().toString(), u"/proc/report.pdf"_s);
        QVERIFY(!notSaved.first().last().toString().isEmpty());
        QVERIFY(under_.action("exportReport")->isEnabled());
    }

private:
    QString report() const { return folder_ + u"/report.pdf"_s; }

    QString addReceipt(int pages) const {
        const QString path = under_.watched + u"/a.pdf"_s;
        writeFile(path, stripedPdf(pages));
        under_.store->add(finishedReceipt(path));
        return path;
    }

    static void answerPanel(const QString &path) {
        onNextDialog<QFileDialog>([path](QFileDialog *panel) { confirmSaving(panel, path); });
    }

    // The path of the report that is saved next.
    QString exported() const {
        const QSignalSpy saved(under_.window.get(), &MainWindow::ledgerSaved);
        under_.action("exportReport")->trigger();
        waitUntil([&] { return !saved.isEmpty(); });
        return saved.value(0).value(0).toString();
    }

    MainWindowUnderTest under_;
    QString folder_;
};

int report_command_test(int argc, char **argv) {
    return runTest<QApplication, ReportCommandTest>(argc, argv);
}
#include "report_command_test.moc"
