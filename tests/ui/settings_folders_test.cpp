#include "folder_chooser_driver.h"
#include "settings_view_under_test.h"
#include "support/conditions.h"
#include "support/test_program.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/symbols.h"

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Driver = FolderChooserDriver;

class SettingsFoldersTest : public SettingsViewUnderTest {
    Q_OBJECT

private Q_SLOTS:
    void pathIsShownWholeOrCutInTheMiddle() {
        show();
        const QColor missing = path("watchFolderPath")->palette().color(QPalette::WindowText);
        settings_->setWatchFolderPath(u"/r"_s);
        QCOMPARE(path("watchFolderPath")->text(), u"/r"_s);
        const QColor set = path("watchFolderPath")->palette().color(QPalette::WindowText);
        QCOMPARE(set, tintColor(Tint::primary, QApplication::palette()));
        QCOMPARE(missing, tintColor(Tint::secondary, QApplication::palette()));
        const QString longPath = u"/start/"_s + QString(120, u'x') + u"/end"_s;
        settings_->setWatchFolderPath(longPath);
        QCOMPARE(path("watchFolderPath")->fullText(), longPath);
        QVERIFY(path("watchFolderPath")->text().startsWith(u"/start/"));
        QVERIFY(path("watchFolderPath")->text().endsWith(u"/end"));
        QVERIFY(isInSight(button("watchFolderChoose")));
    }

    void chosenWatchFolderIsStoredAndWatched() {
        show();
        const QString folder = makeFolder(u"watched"_s);
        writeFile(folder + u"/receipt.pdf"_s, "a receipt");
        QString confirmText;
        Driver driver([&](QFileDialog *dialog) {
            confirmText = Driver::button(dialog, QDialogButtonBox::Open)->text();
            Driver::type(dialog, folder);
            Driver::confirm(dialog);
        });
        click(button("watchFolderChoose"));
        QVERIFY(driver.hasRun());
        QCOMPARE(confirmText, u"Watch This Folder"_s);
        QVERIFY(waitUntil([&] { return settings_->watchFolderPath() == folder; }));
        QCOMPARE(path("watchFolderPath")->fullText(), folder);
        // What lies there is taken in: without a key, as a failure.
        QVERIFY(waitUntil([this] {
            return store_->receipts().size() == 1 &&
                   store_->receipts().first().status == ReceiptStatus::error;
        }));
    }

    void choosersStartInThePresentFolders_data() {
        QTest::addColumn<QString>("row");
        QTest::newRow("watched folder") << u"watchFolder"_s;
        QTest::newRow("archive") << u"archiveFolder"_s;
    }
    void choosersStartInThePresentFolders() {
        QFETCH(QString, row);
        settings_->setWatchFolderPath(makeFolder(u"present-watchFolder"_s));
        settings_->setArchiveFolderPath(makeFolder(u"present-archiveFolder"_s));
        show();
        QString start;
        Driver driver([&start](QFileDialog *dialog) {
            start = dialog->directory().path();
            Driver::cancel(dialog);
        });
        click(view_->findChild<QPushButton *>(row + u"Choose"_s));
        QCOMPARE(start, home_.path(u"present-"_s + row));
        QCOMPARE(settings_->watchFolderPath().value_or(QString()), home_.path(u"present-watchFolder"_s));
        QCOMPARE(settings_->archiveFolderPath().value_or(QString()), home_.path(u"present-archiveFolder"_s));
    }

    void chosenArchiveFolderIsStoredAndCanBeReset() {
        // The watch is not touched: what lies in the watched folder would be taken in if it were started.
        settings_->setWatchFolderPath(makeFolder(u"unwatched"_s));
        writeFile(home_.path(u"unwatched/receipt.pdf"_s), "a receipt");
        show();
        const QString folder = makeFolder(u"archive"_s);
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
        QCOMPARE(confirmText, u"Archive Here"_s);
        QVERIFY(canMakeFolders);
        QCOMPARE(settings_->archiveFolderPath().value_or(QString()), folder);
        QCOMPARE(path("archiveFolderPath")->fullText(), folder);
        QVERIFY(button("archiveFolderReset")->isVisible());

        click(button("archiveFolderReset"));
        QCOMPARE(settings_->archiveFolderPath(), std::nullopt);
        QVERIFY(!readFile(home_.preferencesFile()).contains("archiveFolder"));
        QVERIFY(!button("archiveFolderReset")->isVisible());
        QCOMPARE(path("archiveFolderPath")->fullText(),
                 u"Default: “Receipt Archive” inside the watched folder"_s);
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
