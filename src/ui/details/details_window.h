#pragma once

#include "model/receipt_store.h"
#include "pipeline/typed_fields.h"

#include <QFutureWatcher>
#include <QHash>
#include <QWidget>

#include <optional>

class QFormLayout;
class QLabel;
class QPushButton;
class QToolButton;

namespace fennick {

class AppState;
class PageView;
class ReceiptForm;

// The selected receipt: its pages on the left, its fields for correcting on the right. What is typed is kept
// for each receipt until it is saved or reverted, even while others are shown. Borrows the store and
// AppState; owned by FennickApp; main thread.
class DetailsWindow : public QWidget {
    Q_OBJECT

public:
    DetailsWindow(ReceiptStore *store, AppState *appState);
    ~DetailsWindow() override;

    // Shows this receipt as it is now. If none is selected, the one that is shown stays for as long as it is
    // listed.
    void showReceipt(const std::optional<Receipt> &selected);

    // Whether there are fields that were typed and not saved, of whichever receipt.
    bool hasUnsavedFields() const { return !drafts_.isEmpty(); }

Q_SIGNALS:
    // The user wants the receipt `rows` rows further down the list; negative means up.
    void stepRequested(int rows);

    // The user wants to see this receipt.
    void receiptRequested(const QString &id);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *makePageSide();
    QWidget *makeFieldSide();
    QLabel *makeFact(const QString &objectName);
    void addShortcuts();
    std::optional<Receipt> current() const { return store_->receipt(id_); }
    void showFields(const TypedFields &typed);
    void showFacts(const Receipt &receipt);
    void showDuplicate();
    void goToDuplicate(const QString &target);
    void showPages();
    void lookForEvidence();
    void showPageNumber();
    void askForFileName();
    void showFileName();
    void keepDraft();
    void dropDraftsOfRemoved();
    void updateButtons();
    void save();
    void revert();

    ReceiptStore *store_;
    AppState *appState_;
    FieldFormats formats_ = FieldFormats::ofUser();
    PageView *pages_ = nullptr;
    QWidget *pageBar_ = nullptr;
    QLabel *pageNumber_ = nullptr;
    QToolButton *previousPage_ = nullptr;
    QToolButton *nextPage_ = nullptr;
    QWidget *fieldSide_ = nullptr;
    ReceiptForm *form_ = nullptr;
    QFormLayout *facts_ = nullptr;
    QLabel *status_ = nullptr;
    QLabel *error_ = nullptr;
    QLabel *duplicate_ = nullptr;
    QLabel *fileName_ = nullptr;
    QLabel *photos_ = nullptr;
    QLabel *scannedAt_ = nullptr;
    QPushButton *save_ = nullptr;
    QPushButton *revert_ = nullptr;
    QString id_; // of the receipt that is shown; empty if there is none
    QHash<QString, TypedFields> drafts_;
    QFutureWatcher<QString> naming_; // finds the name that the file would have
    QString namedId_;                // of the receipt that this is for
    bool isNameOutdated_ = false;
};

} // namespace fennick
