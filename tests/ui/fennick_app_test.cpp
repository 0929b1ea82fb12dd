#include "support/conditions.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/details/details_window.h"
#include "ui/fennick_app.h"
#include "ui/main_window/receipts_table.h"
#include "ui/main_window/receipts_table_model.h"
#include "ui/settings/settings_view.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

template <typename Window>
QList<Window *> windows() {
    QList<Window *> found;
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *const widget : widgets) {
        if (auto *const window = qobject_cast<Window *>(widget); window != nullptr) {
            found.append(window);
        }
    }
    return found;
}

QAction *action(const char *name) {
    return windows<MainWindow>().first()->findChild<QAction *>(QString::fromLatin1(name));
}

// Once there is a question on the screen.
void answerQuestion(const QString &answer, int *asked) {
    auto *const look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, answer, asked] {
        const auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible()) {
            return;
        }
        look->deleteLater();
        const auto buttons = box->buttons();
        for (QAbstractButton *const button : buttons) {
            if (button->text() == answer) {
                ++*asked;
                button->click();
                return;
            }
        }
    });
    look->start(5);
}

} // namespace

class FennickAppTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        watched_ = home_.path(u"watched"_s);
        QDir().mkpath(watched_);
        writeFile(home_.preferencesFile(), "[General]\nwatchFolder=" + watched_.toUtf8() + '\n');
        app_ = std::make_unique<FennickApp>();
        app_->showMainWindow();
    }

    void cleanup() { app_.reset(); }

    void watchingStartsWhenTheWindowAppears() {
        letTimePass(100);
        writeFile(watched_ + u"/a.pdf"_s, "x");
        QVERIFY(waitUntil([this] { return readList().contains("API key not configured"); }));
    }

    void closedWindowIsMinimisedWhereThereIsNoTray() {
        MainWindow *const window = windows<MainWindow>().first();
        window->close();
        QVERIFY(window->isVisible());
        QVERIFY(window->isMinimized());
        app_->showMainWindow();
        QVERIFY(!window->isMinimized());
    }

    void showingTwiceMakesNoSecondWindow() {
        app_->showMainWindow();
        app_->showMainWindow();
        QCOMPARE(windows<MainWindow>().size(), 1);
    }

    void settingsOpenOnceAndAnew() {
        action("settings")->trigger();
        action("settings")->trigger();
        QCOMPARE(windows<SettingsView>().size(), 1);
        windows<SettingsView>().first()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(windows<SettingsView>().isEmpty());
        action("settings")->trigger();
        QCOMPARE(windows<SettingsView>().size(), 1);
    }

    void detailsFollowTheSelectionAndGoThroughTheList() {
        writeFile(watched_ + u"/a.pdf"_s, "x");
        writeFile(watched_ + u"/b.pdf"_s, "y");
        auto *const table = windows<MainWindow>().first()->findChild<ReceiptsTable *>();
        QVERIFY(waitUntil([table] { return table->model()->rowCount() == 2; }));
        QVERIFY(!action("details")->isEnabled());
        table->selectRow(0);
        QCOMPARE(action("details")->shortcut(), QKeySequence(u"Ctrl+I"_s));
        action("details")->trigger();
        action("details")->trigger();
        QCOMPARE(windows<DetailsWindow>().size(), 1);
        DetailsWindow *const details = windows<DetailsWindow>().first();
        QVERIFY(details->isVisible());
        QVERIFY(!details->isModal());
        const auto shown = [details] {
            return details->findChild<QLabel *>(u"fileNameAfter"_s)->text();
        };
        const auto nameOf = [table](int row) {
            return table->model()->index(row, 0).data(ReceiptsTableModel::fileNameRole).toString();
        };
        QVERIFY(waitUntil([&] { return shown() == nameOf(0); }));
        table->selectRow(1);
        QVERIFY(waitUntil([&] { return shown() == nameOf(1); }));
        QTest::keyClick(details, Qt::Key_Up);
        QVERIFY(waitUntil([&] { return shown() == nameOf(0); }));
        QTest::keyClick(details, Qt::Key_Up); // there is none above
        QCOMPARE(table->selectedReceipt()->fileName, nameOf(0));
        QTest::keyClick(details, Qt::Key_Down);
        QCOMPARE(table->selectedReceipt()->fileName, nameOf(1));
    }

    void quitAsksAboutWhatWasTypedAndNotSaved() {
        writeFile(watched_ + u"/a.pdf"_s, "x");
        auto *const table = windows<MainWindow>().first()->findChild<ReceiptsTable *>();
        QVERIFY(waitUntil([table] {
            table->selectRow(0);
            const auto receipt = table->selectedReceipt();
            return receipt && receipt->status == ReceiptStatus::error;
        }));
        action("details")->trigger();
        windows<DetailsWindow>().first()->findChild<QLineEdit *>(u"amountField"_s)->setText(u"9"_s);
        int asked = 0;
        QTimer::singleShot(0, qApp, [&asked] {
            answerQuestion(u"Cancel"_s, &asked);
            action("quit")->trigger();
            answerQuestion(u"Quit Without Saving"_s, &asked);
            action("quit")->trigger();
        });
        QTimer tooLate;
        tooLate.setSingleShot(true);
        connect(&tooLate, &QTimer::timeout, qApp, [] { QCoreApplication::exit(99); });
        tooLate.start(patience);
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(asked, 2);
    }

    void quitEndsTheProgramWithItsWindowOpen() {
        QTimer::singleShot(0, qApp, [] { action("quit")->trigger(); });
        QTimer tooLate;
        tooLate.setSingleShot(true);
        connect(&tooLate, &QTimer::timeout, qApp, [] { QCoreApplication::exit(99); });
        tooLate.start(patience);
        QCOMPARE(QApplication::exec(), 0);
    }

private:
    QByteArray readList() const {
        return QFile::exists(home_.receiptsFile()) ? readFile(home_.receiptsFile()) : QByteArray();
    }

    TemporaryHome home_;
    PrivateSession session_;
    QString watched_;
    std::unique_ptr<FennickApp> app_;
};

int fennick_app_test(int argc, char **argv) {
    return runTest<QApplication, FennickAppTest>(argc, argv);
}
#include "fennick_app_test.moc"
