#include "folder_chooser_driver.h"
#include "settings_view_under_test.h"
#include "support/conditions.h"
#include "support/test_program.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/symbols.h"

using namespace fennick;
using namespace fennick::test;
using Driver = FolderChooserDriver;

class SettingsFoldersTest : public SettingsViewUnderTest {
    Q_OBJECT

private Q_SLOTS:
    void pathIsShownWholeOrCutInTheMiddle() {
        show();
        const QColor missing = path("watchFolderPath")->palette().color(QPalette::WindowText);
        settings_->setWatchFolderPath(QStringLiteral("/r"));
        QCOMPARE(path("watchFolderPath")->text(), QStringLiteral("/r"));
        const QColor set = path("watchFolderPath")->palette().color(QPalette::WindowText);
        QCOMPARE(set, tintColor(Tint::primary, QApplication::palette()));
        QCOMPARE(missing, tintColor(Tint::secondary, QApplication::palette()));
        const QString longPath = QStringLiteral("/start/") + QString(120, u'x') + QStringLiteral("/end");
        settings_->setWatchFolderPath(longPath);
        QCOMPARE(path("watchFolderPath")->fullText(), longPath);
        QVERIFY(path("watchFolderPath")->text().startsWith(u"/start/"));
        QVERIFY(path("watchFolderPath")->text().endsWith(u"/end"));
        QVERIFY(isInSight(button("watchFolderChoose")));
    }

    void chosenWatchFolderIsStoredAndWatched() {
        show();
        const QString folder = makeFolder(QStringLiteral("watched"));
        writeFile(folder + QStringLiteral("/receipt.pdf"), "a receipt");
        QString confirmText;
        Driver driver([&](QFileDialog *dialog) {
            confirmText = Driver::button(dialog, QDialogButtonBox::Open)->text();
            Driver::type(dialog, folder);
            Driver::confirm(dialog);
        });
        click(button("watchFolderChoose"));
        QVERIFY(driver.hasRun());
        QCOMPARE(confirmText, QStringLiteral("Watch This Folder"));
        QCOMPARE(settings_->watchFolderPath().value_or(QString()), folder);
        QCOMPARE(path("watchFolderPath")->fullText(), folder);
        // What lies there is taken in: without a key, as a failure.
        QVERIFY(waitUntil([this] {
            return store_->receipts().size() == 1 &&
                   store_->receipts().first().status == ReceiptStatus::error;
        }));
    }

    void choosersStartInThePresentFolders_data() {
        QTest::addColumn<QString>("row");
        QTest::newRow("watched folder") << QStringLiteral("watchFolder");
        QTest::newRow("archive") << QStringLiteral("archiveFolder");
    }
    void choosersStartInThePresentFolders() {
        QFETCH(QString, row);
        settings_->setWatchFolderPath(makeFolder(QStringLiteral("present-watchFolder")));
        settings_->setArchiveFolderPath(makeFolder(QStringLiteral("present-archiveFolder")));
        show();
        QString start;
        Driver driver([&start](QFileDialog *dialog) {
            start = dialog->directory().path();
            Driver::cancel(dialog);
        });
        click(view_->findChild<QPushButton *>(row + QStringLiteral("Choose")));
        QCOMPARE(start, home_.path(QStringLiteral("present-") + row));
        QCOMPARE(settings_->watchFolderPath().value_or(QString()),
                 home_.path(QStringLiteral("present-watchFolder")));
        QCOMPARE(settings_->archiveFolderPath().value_or(QString()),
                 home_.path(QStringLiteral("present-archiveFolder")));
    }

    void chosenArchiveFolderIsStoredAndCanBeReset() {
        // The watch is not touched: what lies in the watched folder would be taken in if it were started.
        settings_->setWatchFolderPath(makeFolder(QStringLiteral("unwatched")));
        writeFile(home_.path(QStringLiteral("unwatched/receipt.pdf")), "a receipt");
        show();
        const QString folder = makeFolder(QStringLiteral("archive"));
        QString confirmText;
        bool canMakeFolders = false;
        Driver driver([&](QFileDialog *dialog) {
            confirmText = Driver::button(dialog, QDialogButtonBox::Open)->text();
            canMakeFolders = !dialog->testOption(QFileDialog::ReadOnly);
            Driver::type(dialog, folder);
            Driver::confirm(dialog);
        });
        click(button("archiveFolderChoose"));
        QVERIFY(driver.hasRun());
        QCOMPARE(confirmText, QStringLiteral("Archive Here"));
        QVERIFY(canMakeFolders);
        QCOMPARE(settings_->archiveFolderPath().value_or(QString()), folder);
        QCOMPARE(path("archiveFolderPath")->fullText(), folder);
        QVERIFY(button("archiveFolderReset")->isVisible());

        click(button("archiveFolderReset"));
        QCOMPARE(settings_->archiveFolderPath(), std::nullopt);
        QVERIFY(!readFile(home_.preferencesFile()).contains("archiveFolder"));
        QVERIFY(!button("archiveFolderReset")->isVisible());
        QCOMPARE(path("archiveFolderPath")->fullText(),
                 QStringLiteral("Default: “Receipt Archive” inside the watched folder"));
        letTimePass(1000);
        QVERIFY(store_->receipts().isEmpty());
    }

    void windowMayGoWhileAChooserIsOpen_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("watched folder") << QByteArray("watchFolderChoose");
        QTest::newRow("archive") << QByteArray("archiveFolderChoose");
    }
    void windowMayGoWhileAChooserIsOpen() {
        QFETCH(QByteArray, name);
        show();
        Driver driver([this](QFileDialog *) { view_.reset(); });
        button(name.constData())->click();
        QVERIFY(driver.hasRun());
        QCOMPARE(settings_->watchFolderPath(), std::nullopt);
        QCOMPARE(settings_->archiveFolderPath(), std::nullopt);
    }
};

int settings_folders_test(int argc, char **argv) {
    return runTest<QApplication, SettingsFoldersTest>(argc, argv);
}
#include "settings_folders_test.moc"

#include <QApplication>
