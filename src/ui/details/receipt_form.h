#pragma once

#include "pipeline/typed_fields.h"

#include <QHash>
#include <QWidget>

#include <map>
#include <set>

class QComboBox;
class QFormLayout;
class QPlainTextEdit;

namespace fennick {

class CaptionLabel;
class CurrencyBox;

// The fields of a receipt for editing, each with room for what is wrong with it. Knows what was typed and
// what was there before, and changes nothing by itself. Owned by the details window; main thread.
class ReceiptForm : public QWidget {
    Q_OBJECT

public:
    explicit ReceiptForm(const FieldFormats &formats, QWidget *parent = nullptr);

    // Shows the receipt's fields, and in place of some what was typed before. What is wrong stays
    // beside a field whose text stays.
    void showReceipt(const Receipt &receipt, const TypedFields &typed);

    // The fields whose texts differ from the receipt's.
    TypedFields typed() const;

    // Shows what is wrong beside the fields and puts the cursor into the first of them.
    void showProblems(const FieldProblems &problems);

    // Says beside these fields that their values are not on the page.
    void showMissing(const std::set<ReceiptField> &fields);

public Q_SLOTS:
    void focusField(ReceiptField field);

Q_SIGNALS:
    // The user has changed a field.
    void edited();

    // The fields of a receipt, or what was typed before, are in place.
    void shown();

    // The user has put the cursor into a field or clicked on it.
    void fieldEntered(ReceiptField field);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Row {
        QWidget *field;
        CaptionLabel *problem;
        CaptionLabel *missing;
    };

    void buildFields();
    void addRow(ReceiptField field, QWidget *widget, const QString &objectName);
    void connectFields();
    void handleEdit(ReceiptField field);
    void tidy(ReceiptField field);
    void showProblem(ReceiptField field, const QString &text);
    void describe(const Row &row);
    void watch(QWidget *widget, ReceiptField field);
    void offerCategory(const QString &category);
    QString textOf(ReceiptField field) const;
    void setText(ReceiptField field, const QString &text);

    FieldFormats formats_;
    QFormLayout *layout_;
    CurrencyBox *currency_;
    QComboBox *category_;
    QPlainTextEdit *summary_;
    std::map<ReceiptField, Row> rows_;
    QHash<QObject *, ReceiptField> watched_; // widgets that are a field, or a part of it
    Receipt receipt_;
    TypedFields shown_; // the receipt's fields as their widgets give them back
    bool isShowing_ = false;
};

} // namespace fennick
