#include "main_window_under_test.h"
#include "support/conditions.h"
#include "support/receipts.h"
#include "support/test_program.h"
#include "ui/dialogs/ignored_files_dialog.h"

#include <QPushButton>
#include <QTableView>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class IgnoredFilesDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        under_.renew();
        QVERIFY(under_.store->ignore({u"/w/a.pdf"_s}));
        under_.action("restoreIgnored")->trigger();
        QVERIFY(waitUntil([this] { return dialog() != nullptr && dialog()->isVisible(); }));
    }
    void cleanup() { under_.close(); }

    void pathsAndDatesAreListed() {
        QCOMPARE(under_.action("restoreIgnored")->text(), u"Restore Ignored Files…"_s);
        QVERIFY(under_.store->ignore({u"/w/b.pdf"_s}));
        QCOMPARE(paths(), (QStringList{u"/w/a.pdf"_s, u"/w/b.pdf"_s}));
        const auto date = under_.appState->ignoredDates().date(u"/w/b.pdf"_s);
        QCOMPARE(text(rowOf(u"/w/b.pdf"_s), 1),
                 QLocale::system().toString(date->toLocalTime(), QLocale::ShortFormat));
        QCOMPARE(table()->model()->headerData(1, Qt::Horizontal).toString(), u"Ignored Since"_s);
    }

    void pathWithoutAKnownDateIsShownWithoutOne() {
        dialog()->close();
        under_.close();
        writeFile(under_.home.ignoredFile(), R"(["/w/old.pdf"])");
        ReceiptStore store;
        AppState appState(&store, under_.settings.get());
        const IgnoredFilesDialog late(&store, &appState, nullptr);
        const auto *const files = late.findChild<QTableView *>();
        QCOMPARE(files->model()->index(0, 0).data().toString(), u"/w/old.pdf"_s);
        QCOMPARE(files->model()->index(0, 1).data().toString(), QString());
    }

    void selectedFilesAreRestored() {
        QVERIFY(under_.store->ignore({u"/w/b.pdf"_s, u"/w/c.pdf"_s}));
        auto *const restore = dialog()->findChild<QPushButton *>(u"restoreFiles"_s);
        QVERIFY(!restore->isEnabled());
        table()->selectRow(rowOf(u"/w/b.pdf"_s));
        QVERIFY(restore->isEnabled());
        restore->click();
        QCOMPARE(under_.store->ignoredPaths(), (QSet<QString>{u"/w/a.pdf"_s, u"/w/c.pdf"_s}));
        QCOMPARE(paths(), (QStringList{u"/w/a.pdf"_s, u"/w/c.pdf"_s}));
        QVERIFY(!restore->isEnabled());
    }

    void disguisedNameIsShownPlainlyAndStillRestored() {
        const QString path = u"/w/\u202Efdp.exe.pdf"_s;
        QVERIFY(under_.store->ignore({path}));
        table()->selectRow(rowOf(u"/w/\uFFFDfdp.exe.pdf"_s));
        dialog()->findChild<QPushButton *>(u"restoreFiles"_s)->click();
        QVERIFY(!under_.store->isIgnored(path));
    }

private:
    IgnoredFilesDialog *dialog() const { return under_.window->findChild<IgnoredFilesDialog *>(); }
    QTableView *table() const { return dialog()->findChild<QTableView *>(); }
    QString text(int row, int column) const { return table()->model()->index(row, column).data().toString(); }

    int rowOf(const QString &path) const {
        int row = 0;
        while (row < table()->model()->rowCount() && text(row, 0) != path) {
            ++row;
        }
        return row;
    }

    QStringList paths() const {
        QStringList all;
        for (int row = 0; row < table()->model()->rowCount(); ++row) {
            all.append(text(row, 0));
        }
        all.sort();
        return all;
    }

    MainWindowUnderTest under_;
};

int ignored_files_dialog_test(int argc, char **argv) {
    return runTest<QApplication, IgnoredFilesDialogTest>(argc, argv);
}
#include "ignored_files_dialog_test.moc"
