#include "folder_chooser_driver.h"
#include "support/conditions.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/dialogs/folder_chooser.h"

#include <QApplication>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QToolButton>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Driver = FolderChooserDriver;

class FolderChooserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        QDir().mkpath(folder_);
        QDir().mkpath(folder_ + u"/inside"_s);
        writeFile(folder_ + u"/receipt.pdf"_s, "a file");
    }

    void confirmButtonCarriesTheGivenText() {
        QString text;
        Driver driver([&text](QFileDialog *dialog) {
            text = Driver::button(dialog, QDialogButtonBox::Open)->text();
            Driver::cancel(dialog);
        });
        chooseFolder(nullptr, u"Watch This Folder"_s, folder_, NewFolders::refused);
        QVERIFY(driver.hasRun());
        QCOMPARE(text, u"Watch This Folder"_s);
    }

    void confirmationWithoutASelectionChoosesTheStartFolder() {
        const QString start = home_.path(u"Belege für „Müller“"_s);
        QDir().mkpath(start);
        Driver driver([](QFileDialog *dialog) { Driver::confirm(dialog); });
        QCOMPARE(choose(start).value_or(QString()), start);
    }

    void typedFolderIsChosen() {
        const QString inside = folder_ + u"/inside"_s;
        Driver driver([&inside](QFileDialog *dialog) {
            Driver::type(dialog, inside);
            Driver::confirm(dialog);
        });
        QCOMPARE(choose(std::nullopt).value_or(QString()), inside);
    }

    void pathEndsWithoutASlash() {
        const QString inside = folder_ + u"/inside"_s;
        Driver driver([&inside](QFileDialog *dialog) {
            Driver::type(dialog, inside + u'/');
            Driver::confirm(dialog);
        });
        QCOMPARE(choose(std::nullopt).value_or(QString()), inside);
    }

    void onlyOneFolderCanBeSelected() {
        QAbstractItemView::SelectionMode mode{};
        Driver driver([&mode](QFileDialog *dialog) {
            mode = dialog->findChild<QListView *>(u"listView"_s)->selectionMode();
            Driver::cancel(dialog);
        });
        choose(folder_);
        QCOMPARE(mode, QAbstractItemView::SingleSelection);
    }

    void filesAreNeitherShownNorChosen() {
        bool areFoldersOnly = false;
        bool isOpenAfterwards = false;
        Driver driver([&](QFileDialog *dialog) {
            areFoldersOnly = dialog->testOption(QFileDialog::ShowDirsOnly);
            Driver::type(dialog, folder_ + u"/receipt.pdf"_s);
            // The dialog tells in a message that this is no folder.
            QTimer::singleShot(0, dialog, [] {
                const auto widgets = QApplication::topLevelWidgets();
                for (QWidget *const widget : widgets) {
                    if (auto *const message = qobject_cast<QMessageBox *>(widget)) {
                        message->accept();
                    }
                }
            });
            Driver::confirm(dialog);
            isOpenAfterwards = dialog->isVisible();
            Driver::cancel(dialog);
        });
        QCOMPARE(choose(folder_), std::nullopt);
        QVERIFY(areFoldersOnly);
        QVERIFY(isOpenAfterwards);
    }

    void cancellationChoosesNothing() {
        Driver driver([](QFileDialog *dialog) { Driver::cancel(dialog); });
        QCOMPARE(choose(folder_), std::nullopt);
        QVERIFY(driver.hasRun());
    }

    void escapeChoosesNothing() {
        Driver driver([](QFileDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
        QCOMPARE(choose(folder_), std::nullopt);
        QVERIFY(driver.hasRun());
    }

    void missingStartFolderStartsAtHome_data() {
        QTest::addColumn<bool>("isGiven");
        QTest::newRow("none") << false;
        QTest::newRow("gone") << true;
    }
    void missingStartFolderStartsAtHome() {
        QFETCH(bool, isGiven);
        QString start;
        Driver driver([&start](QFileDialog *dialog) {
            start = dialog->directory().path();
            Driver::cancel(dialog);
        });
        choose(isGiven ? std::optional(home_.path(u"gone"_s)) : std::nullopt);
        QCOMPARE(start, QDir::homePath());
    }

    void newFoldersAreMadeOnlyWhereAllowed_data() {
        QTest::addColumn<bool>("isAllowed");
        QTest::newRow("allowed") << true;
        QTest::newRow("refused") << false;
    }
    void newFoldersAreMadeOnlyWhereAllowed() {
        QFETCH(bool, isAllowed);
        const QString start = home_.path(isAllowed ? u"new"_s : u"none-new"_s);
        QDir().mkpath(start);
        Driver driver([](QFileDialog *dialog) {
            auto *const button = dialog->findChild<QToolButton *>(u"newFolderButton"_s);
            QTest::mouseClick(button, Qt::LeftButton);
            Driver::cancel(dialog);
        });
        chooseFolder(nullptr, u"Archive Here"_s, start,
                     isAllowed ? NewFolders::allowed : NewFolders::refused);
        QVERIFY(driver.hasRun());
        const auto folders = QDir(start).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        QCOMPARE(folders.size(), isAllowed ? 1 : 0);
    }

    void dialogIsModalToItsParentAndGoneAfterwards() {
        QWidget parent;
        parent.show();
        bool isModal = false;
        QPointer<QFileDialog> seen;
        Driver driver([&](QFileDialog *dialog) {
            isModal = dialog->isModal() && dialog->parentWidget() == &parent;
            seen = dialog;
            Driver::cancel(dialog);
        });
        chooseFolder(&parent, u"Watch This Folder"_s, folder_, NewFolders::refused);
        QVERIFY(isModal);
        QVERIFY(waitUntil([&] { return !seen; }));
    }

    void parentThatIsDeletedMeanwhileCancels() {
        auto *const parent = new QWidget;
        parent->show();
        Driver driver([parent](QFileDialog *) { delete parent; });
        const auto chosen = chooseFolder(parent, u"Watch This Folder"_s, folder_, NewFolders::refused);
        QVERIFY(driver.hasRun());
        QCOMPARE(chosen, std::nullopt);
    }

private:
    static std::optional<QString> choose(const std::optional<QString> &startFolder) {
        return chooseFolder(nullptr, u"Watch This Folder"_s, startFolder, NewFolders::refused);
    }

    TemporaryHome home_;
    QString folder_ = home_.path(u"Tax & receipts"_s);
};

int folder_chooser_test(int argc, char **argv) {
    return runTest<QApplication, FolderChooserTest>(argc, argv);
}
#include "folder_chooser_test.moc"
