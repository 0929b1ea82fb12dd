#include "pipeline/app_state.h"
#include "settings/settings_store.h"
#include "support/conditions.h"
#include "support/private_session.h"
#include "support/receipts.h"
#include "support/striped_pdf.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/details/details_window.h"
#include "ui/details/page_view.h"
#include "ui/widgets/caption_label.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// The window as the shell drives it: whatever is selected is shown.
class DetailsWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QDir(home_.path(u"data/Fennick"_s)).removeRecursively();
        QDir(home_.path(u"Receipts"_s)).removeRecursively();
        QFile::remove(home_.path(u"config/Fennick/Window.conf"_s));
        settings_ = std::make_unique<SettingsStore>();
        store_ = std::make_unique<ReceiptStore>();
        appState_ = std::make_unique<AppState>(store_.get(), settings_.get());
        addReceipt(u"a"_s);
        addReceipt(u"b"_s);
        window_ = std::make_unique<DetailsWindow>(store_.get(), appState_.get());
        select(0);
        window_->show();
        QVERIFY(QTest::qWaitForWindowActive(window_.get()));
        connect(store_.get(), &ReceiptStore::receiptsChanged, window_.get(), [this] { select(selected_); });
    }
    void cleanup() {
        window_.reset();
        appState_.reset();
        store_.reset();
        settings_.reset();
    }

    void fieldsHaveTheirValuesAndNames() {
        for (const auto &[objectName, name] :
             {std::pair{u"dateField"_s, u"Date"_s}, std::pair{u"timeField"_s, u"Time"_s},
              std::pair{u"amountField"_s, u"Amount"_s}, std::pair{u"currencyField"_s, u"Currency"_s},
              std::pair{u"locationField"_s, u"Location"_s}, std::pair{u"categoryField"_s, u"Category"_s},
              std::pair{u"summaryField"_s, u"Summary"_s}}) {
            QWidget *const field = find<QWidget>(objectName);
            QCOMPARE(field->accessibleName(), name);
            QCOMPARE(QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name), name);
        }
        QCOMPARE(line("dateField")->text(), u"2024-05-01"_s);
        QCOMPARE(line("timeField")->text(), u"12:30"_s);
        QCOMPARE(line("amountField")->text(), u"23.50"_s);
        QCOMPARE(find<QComboBox>(u"currencyField"_s)->currentText(), u"USD"_s);
        QCOMPARE(line("locationField")->text(), u"Mario's Cafe"_s);
        QCOMPARE(find<QComboBox>(u"categoryField"_s)->currentText(), u"Lunch"_s);
        QCOMPARE(find<QComboBox>(u"categoryField"_s)->count(), 11);
        QCOMPARE(summary()->toPlainText(), u"Lunch at Mario's Cafe for $23.50"_s);
        QCOMPARE(save()->text(), u"Save"_s);
        QCOMPARE(revert()->text(), u"Revert"_s);
        QVERIFY(!save()->isEnabled());
        QVERIFY(!revert()->isEnabled());
    }

    void saveChangesListAndFile() {
        const QString before = receipt().filePath;
        retype("amountField", u"32.50"_s);
        QVERIFY(save()->isEnabled());
        const QString name = u"2024-05-01 Lunch - Mario's Cafe $32.50.pdf"_s;
        QVERIFY(waitUntil([&] { return find<QLabel>(u"fileNameAfter"_s)->text() == name; }));
        QTest::keyClick(window_.get(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(receipt().amount, 32.5);
        QCOMPARE(receipt().fileName, name);
        QVERIFY(!QFileInfo::exists(before));
        QVERIFY(QFileInfo::exists(receipt().filePath));
        QVERIFY(!save()->isEnabled());
        QVERIFY(!window_->isWindowModified());
        QCOMPARE(line("amountField")->text(), u"32.50"_s);
    }

    void wordsStandBesideWhatIsNotUnderstood() {
        const Receipt before = receipt();
        retype("dateField", u"2024-02-31"_s);
        retype("amountField", u"33"_s);
        save()->click();
        QCOMPARE(problem("dateField"), u"There is no 31 February"_s);
        QCOMPARE(problem("amountField"), QString());
        QCOMPARE(line("dateField")->accessibleDescription(), u"There is no 31 February"_s);
        QCOMPARE(line("dateField")->text(), u"2024-02-31"_s);
        QVERIFY(line("dateField")->hasFocus());
        QCOMPARE(receipt(), before);

        Receipt delivered = receipt();
        delivered.addedToPhotos = true;
        store_->update(delivered); // which does not take the words away
        QCOMPARE(problem("dateField"), u"There is no 31 February"_s);

        retype("dateField", u"2024-02-29"_s);
        QCOMPARE(problem("dateField"), QString());
        save()->click();
        QCOMPARE(receipt().date, u"2024-02-29"_s);
        QCOMPARE(receipt().amount, 33.0);
        QVERIFY(receipt().addedToPhotos);
    }

    void whatIsUnderstoodIsShownAsItIsStored() {
        retype("timeField", u"2:30 pm"_s);
        QTest::keyClick(line("timeField"), Qt::Key_Return);
        QCOMPARE(line("timeField")->text(), u"14:30"_s);
        auto *const currency = find<QComboBox>(u"currencyField"_s);
        retype(currency->lineEdit(), u"eur"_s);
        QTest::keyClick(currency->lineEdit(), Qt::Key_Tab);
        QCOMPARE(currency->currentText(), u"EUR"_s);
    }

    void revertTakesBackWhatWasTyped() {
        retype("locationField", u"Elsewhere"_s);
        find<QComboBox>(u"categoryField"_s)->setCurrentIndex(1);
        summary()->setPlainText(u"Dinner"_s);
        QVERIFY(window_->isWindowModified());
        revert()->click();
        QCOMPARE(line("locationField")->text(), u"Mario's Cafe"_s);
        QCOMPARE(find<QComboBox>(u"categoryField"_s)->currentText(), u"Lunch"_s);
        QCOMPARE(summary()->toPlainText(), receipt().summary);
        QVERIFY(!window_->hasUnsavedFields());
        QVERIFY(!revert()->isEnabled());
    }

    void typedTextIsKeptWhileOthersAreLookedAt() {
        retype("locationField", u"Elsewhere"_s);
        select(1);
        QCOMPARE(line("locationField")->text(), u"Mario's Cafe"_s);
        QVERIFY(!save()->isEnabled());
        QVERIFY(window_->hasUnsavedFields());
        QVERIFY(window_->isWindowModified());
        window_->close();
        window_->show();
        select(0);
        QCOMPARE(line("locationField")->text(), u"Elsewhere"_s);
        save()->click();
        QCOMPARE(receipt().location, u"Elsewhere"_s);
        QVERIFY(!window_->hasUnsavedFields());
    }

    void whatOthersChangeMeanwhileIsShown() {
        retype("locationField", u"Elsewhere"_s);
        Receipt scanned = receipt();
        scanned.location = u"The Corner Shop"_s;
        scanned.summary = u"Groceries"_s;
        store_->update(scanned);
        QCOMPARE(line("locationField")->text(), u"Elsewhere"_s);
        QCOMPARE(summary()->toPlainText(), u"Groceries"_s);
        revert()->click();
        QCOMPARE(line("locationField")->text(), u"The Corner Shop"_s);
    }

    void failedReceiptSaysWhyAndIsDoneWhenItsFieldsAreTyped() {
        store_->setError(receipt().id, u"Gemini API error: 500"_s);
        QCOMPARE(find<QLabel>(u"status"_s)->text(), u"Error"_s);
        QCOMPARE(find<QLabel>(u"error"_s)->text(), u"Gemini API error: 500"_s);
        QVERIFY(find<QLabel>(u"error"_s)->isVisible());
        retype("amountField", u"9"_s);
        save()->click();
        QCOMPARE(receipt().status, ReceiptStatus::done);
        QCOMPARE(find<QLabel>(u"status"_s)->text(), u"Done"_s);
        QVERIFY(!find<QLabel>(u"error"_s)->isVisible());
    }

    void receiptThatIsBeingScannedCannotBeEdited() {
        retype("amountField", u"9"_s);
        Receipt again = receipt();
        again.status = ReceiptStatus::processing;
        store_->update(again);
        QVERIFY(!line("amountField")->isEnabled());
        QVERIFY(!save()->isEnabled());
        again.status = ReceiptStatus::done;
        store_->update(again);
        QVERIFY(line("amountField")->isEnabled());
        QCOMPARE(line("amountField")->text(), u"9.00"_s); // what was typed is still there
        QVERIFY(save()->isEnabled());
    }

    void sizeIsRemembered() {
        window_->resize(700, 500);
        window_->close();
        const DetailsWindow again(store_.get(), appState_.get());
        QCOMPARE(again.size(), QSize(700, 500));
    }

    void sizeIsRememberedWhenTheProgramEnds() {
        window_->resize(710, 510);
        QMetaObject::invokeMethod(qApp, "aboutToQuit");
        const DetailsWindow again(store_.get(), appState_.get());
        QCOMPARE(again.size(), QSize(710, 510));
    }

    // As with Find, whose words the saved receipt may no longer match.
    void receiptThatIsNotSelectedAnyMoreWhenItIsSavedStays() {
        disconnect(store_.get(), &ReceiptStore::receiptsChanged, window_.get(), nullptr);
        connect(store_.get(), &ReceiptStore::receiptsChanged, window_.get(),
                [this] { window_->showReceipt(std::nullopt); });
        retype("amountField", u"9"_s);
        QVERIFY(window_->isWindowModified());
        save()->click();
        QCOMPARE(receipt().amount, 9);
        QVERIFY(!window_->hasUnsavedFields());
        QVERIFY(!window_->isWindowModified());
        QCOMPARE(line("amountField")->text(), u"9.00"_s);
        QVERIFY(line("amountField")->isVisible());
    }

    void receiptThatGivesWayToAnotherWhenItIsSavedIsSavedAllTheSame() {
        disconnect(store_.get(), &ReceiptStore::receiptsChanged, window_.get(), nullptr);
        connect(store_.get(), &ReceiptStore::receiptsChanged, window_.get(), [this] { select(1); });
        const QString id = receipt().id;
        retype("amountField", u"9"_s);
        save()->click();
        QCOMPARE(store_->receipt(id)->amount, 9);
        QVERIFY(!window_->hasUnsavedFields());
        QCOMPARE(line("amountField")->text(), u"23.50"_s); // of the other one
    }

    void clearedListLeavesNothingToSave() {
        retype("amountField", u"9"_s);
        store_->clearAll();
        window_->showReceipt(std::nullopt);
        QVERIFY(!window_->hasUnsavedFields());
        QVERIFY(!line("amountField")->isVisible());
        QCOMPARE(find<QLabel>(u"pagesMessage"_s)->text(), u"Select a receipt in the list."_s);
    }

    void arrowsGoThroughTheListAndPageKeysThroughThePages() {
        retype("amountField", u"9"_s); // buttons without use get no keys
        QSignalSpy steps(window_.get(), &DetailsWindow::stepRequested);
        for (QWidget *const widget : std::initializer_list<QWidget *>{pages(), line("dateField"),
                                                                      find<QPushButton>(u"saveFields"_s)}) {
            QTest::keyClick(widget, Qt::Key_Down);
            QTest::keyClick(widget, Qt::Key_Up);
        }
        QCOMPARE(steps.size(), 6);
        QCOMPARE(steps.first().first().toInt(), 1);
        QCOMPARE(steps.last().first().toInt(), -1);

        QVERIFY(waitUntil([this] { return pages()->pageCount() == 3; }));
        QCOMPARE(find<QLabel>(u"pageNumber"_s)->text(), u"Page 1 of 3"_s);
        QTest::keyClick(window_.get(), Qt::Key_PageDown);
        QTest::keyClick(window_.get(), Qt::Key_PageDown);
        QTest::keyClick(window_.get(), Qt::Key_PageDown);
        QCOMPARE(find<QLabel>(u"pageNumber"_s)->text(), u"Page 3 of 3"_s);
        QTest::keyClick(window_.get(), Qt::Key_PageUp);
        QCOMPARE(pages()->page(), 1);
    }

    void pageIsAsWideAsTheViewAndCanBeEnlarged() {
        QVERIFY(waitUntil([this] { return pages()->pageCount() == 3; }));
        const int room = pages()->viewport()->width();
        QCOMPARE(pages()->widget()->width(), room);
        QTest::keyClick(window_.get(), Qt::Key_Plus, Qt::ControlModifier);
        QVERIFY(pages()->widget()->width() > room);
        QTest::keyClick(window_.get(), Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(pages()->widget()->width(), room);
        QWheelEvent turn(QPointF(10, 10), pages()->mapToGlobal(QPointF(10, 10)), {}, {0, 120}, Qt::NoButton,
                         Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(pages()->viewport(), &turn);
        QVERIFY(pages()->widget()->width() > room);
        QTest::keyClick(window_.get(), Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(pages()->widget()->width(), room);
    }

    void possibleDuplicateLeadsToTheOther() {
        auto *const link = find<QLabel>(u"duplicate"_s);
        QVERIFY(link->isVisible());
        QVERIFY(link->text().contains(u">b.pdf<"_s));
        QSignalSpy requests(window_.get(), &DetailsWindow::receiptRequested);
        link->setFocus(Qt::TabFocusReason);
        QTest::keyClick(link, Qt::Key_Return);
        QCOMPARE(requests.size(), 1);
        QCOMPARE(requests.first().first().toString(), ids_.last());

        Receipt other = *store_->receipt(ids_.last());
        other.amount = 9;
        store_->update(other);
        QVERIFY(!link->isVisible());
    }

    void archivedDuplicateIsNamed() {
        settings_->setArchiveFolderPath(home_.path(u"Receipts/Done"_s));
        appState_->archiveAndClear(ExportService::Format::csv);
        Receipt again = finishedReceipt(home_.path(u"Receipts/again.pdf"_s));
        again.id = ids_[ids_.size() - 2]; // which is shown
        store_->add(again);
        auto *const link = find<QLabel>(u"duplicate"_s);
        QVERIFY(
            waitUntil([link] { return link->isVisible() && link->text().contains(u".pdf (archived)<"_s); }));
    }

    void receiptThatCannotBeOpenedIsSaid() {
        writeFile(receipt().filePath, "no PDF");
        select(1);
        select(0);
        QVERIFY(
            waitUntil([this] { return find<QLabel>(u"pagesMessage"_s)->text() == u"Could not open PDF"_s; }));
        QVERIFY(line("amountField")->isEnabled());
    }

private:
    template <typename Widget>
    Widget *find(const QString &objectName) const {
        return window_->findChild<Widget *>(objectName);
    }
    QLineEdit *line(const char *objectName) const { return find<QLineEdit>(QString::fromLatin1(objectName)); }
    QPlainTextEdit *summary() const { return find<QPlainTextEdit>(u"summaryField"_s); }
    QPushButton *save() const { return find<QPushButton>(u"saveFields"_s); }
    QPushButton *revert() const { return find<QPushButton>(u"revertFields"_s); }
    PageView *pages() const { return find<PageView>(u"pages"_s); }

    QString problem(const char *field) const {
        const auto *const label = find<CaptionLabel>(QString::fromLatin1(field) + u"Problem"_s);
        return label->isVisible() ? label->text() : QString();
    }

    void retype(const char *field, const QString &text) { retype(line(field), text); }
    static void retype(QLineEdit *field, const QString &text) {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
    }

    void addReceipt(const QString &name) {
        const QString path = home_.path(u"Receipts/"_s + name + u".pdf"_s);
        writeFile(path, stripedPdf(3) + '%' + name.toUtf8()); // no two have the same content
        store_->add(finishedReceipt(path));
        ids_.append(store_->receipts().last().id);
    }

    void select(qsizetype index) {
        selected_ = index;
        window_->showReceipt(store_->receipt(ids_[ids_.size() - 2 + index]));
    }

    Receipt receipt() const { return *store_->receipt(ids_[ids_.size() - 2 + selected_]); }

    TemporaryHome home_;
    PrivateSession session_;
    std::unique_ptr<SettingsStore> settings_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<AppState> appState_;
    std::unique_ptr<DetailsWindow> window_;
    QStringList ids_;
    qsizetype selected_ = 0;
};

int details_window_test(int argc, char **argv) {
    return runTest<QApplication, DetailsWindowTest>(argc, argv);
}
#include "details_window_test.moc"
