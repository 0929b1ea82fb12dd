#include "ui/details/receipt_form.h"

#include "extraction/valid_categories.h"
#include "files/file_renamer.h"
#include "ui/details/currency_box.h"
#include "ui/details/field_name.h"
#include "ui/widgets/caption_label.h"
#include "ui/widgets/named_combo_box.h"

#include <QFocusEvent>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int summaryLines = 3;

// The categories' names are not translated: they are the same in the table and in files' names.
void addCategory(QComboBox *box, int place, const QString &category) {
    box->insertItem(place, FileRenamer::titleCase(category), category);
}

int heightOfLines(const QPlainTextEdit *edit, int lines) {
    const int margins = 2 * (edit->frameWidth() + qRound(edit->document()->documentMargin()));
    return lines * edit->fontMetrics().lineSpacing() + margins;
}

} // namespace

ReceiptForm::ReceiptForm(const FieldFormats &formats, QWidget *parent)
    : QWidget(parent)
    , formats_(formats)
    , layout_(new QFormLayout(this))
    , currency_(new CurrencyBox)
    , category_(new NamedComboBox)
    , summary_(new QPlainTextEdit) {
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    buildFields();
    connectFields();
}

void ReceiptForm::buildFields() {
    for (const QStringView category : GeminiClient::validCategories) {
        addCategory(category_, category_->count(), category.toString());
    }
    summary_->setTabChangesFocus(true);
    summary_->setFixedHeight(heightOfLines(summary_, summaryLines));
    addRow(ReceiptField::date, new QLineEdit, u"dateField"_s);
    addRow(ReceiptField::time, new QLineEdit, u"timeField"_s);
    addRow(ReceiptField::amount, new QLineEdit, u"amountField"_s);
    addRow(ReceiptField::currency, currency_, u"currencyField"_s);
    currency_->lineEdit()->setAccessibleName(fieldName(ReceiptField::currency));
    watch(currency_->lineEdit(), ReceiptField::currency);
    addRow(ReceiptField::location, new QLineEdit, u"locationField"_s);
    addRow(ReceiptField::category, category_, u"categoryField"_s);
    addRow(ReceiptField::summary, summary_, u"summaryField"_s);
    watch(summary_->viewport(), ReceiptField::summary);
}

void ReceiptForm::addRow(ReceiptField field, QWidget *widget, const QString &objectName) {
    const QString name = fieldName(field);
    widget->setObjectName(objectName);
    widget->setAccessibleName(name);
    auto *const problem = new CaptionLabel(QString(), Tint::failure);
    problem->setObjectName(objectName + u"Problem"_s);
    problem->setWordWrap(true);
    problem->hide();
    auto *const missing = new CaptionLabel(tr("Not found on the page"), Tint::secondary);
    missing->setObjectName(objectName + u"Missing"_s);
    missing->setWordWrap(true);
    missing->hide();
    auto *const column = new QVBoxLayout;
    column->setSpacing(2);
    column->addWidget(widget);
    column->addWidget(problem);
    column->addWidget(missing);
    layout_->addRow(name, column);
    rows_.emplace(field, Row{widget, problem, missing});
    watch(widget, field);
}

void ReceiptForm::connectFields() {
    for (const auto &[field, row] : rows_) {
        if (auto *const line = qobject_cast<QLineEdit *>(row.field)) {
            connect(line, &QLineEdit::textChanged, this, [this, field] { handleEdit(field); });
            connect(line, &QLineEdit::editingFinished, this, [this, field] { tidy(field); });
        }
    }
    connect(currency_, &QComboBox::currentTextChanged, this, [this] { handleEdit(ReceiptField::currency); });
    connect(currency_->lineEdit(), &QLineEdit::editingFinished, this,
            [this] { tidy(ReceiptField::currency); });
    connect(category_, &QComboBox::currentIndexChanged, this, [this] { handleEdit(ReceiptField::category); });
    connect(summary_, &QPlainTextEdit::textChanged, this, [this] { handleEdit(ReceiptField::summary); });
}

void ReceiptForm::handleEdit(ReceiptField field) {
    if (!isShowing_) {
        showProblem(field, QString());
        Q_EMIT edited();
    }
}

// Puts what was understood in the form in which it is stored: 31.5.24 becomes 2024-05-31.
void ReceiptForm::tidy(ReceiptField field) {
    const auto understood = withTypedFields(receipt_, {{field, textOf(field)}}, formats_);
    const QString tidied = understood ? fieldText(*understood, field, formats_) : textOf(field);
    if (tidied != textOf(field) && typed().contains(field)) {
        setText(field, tidied);
    }
}

void ReceiptForm::showReceipt(const Receipt &receipt, const TypedFields &typed) {
    const QScopedValueRollback<bool> showing(isShowing_, true);
    const bool isAnother = receipt.id != receipt_.id;
    receipt_ = receipt;
    offerCategory(receipt.category);
    for (const ReceiptField field : receiptFields) {
        const QString before = textOf(field);
        const auto draft = typed.find(field);
        const QString stored = fieldText(receipt, field, formats_);
        setText(field, draft == typed.end() ? stored : draft->second);
        shown_[field] = draft == typed.end() ? textOf(field) : stored;
        if (isAnother || textOf(field) != before) {
            showProblem(field, QString());
        }
    }
    Q_EMIT shown();
}

TypedFields ReceiptForm::typed() const {
    TypedFields typed;
    for (const auto &[field, shown] : shown_) {
        if (const QString text = textOf(field); text != shown) {
            typed.emplace(field, text);
        }
    }
    return typed;
}

void ReceiptForm::showProblems(const FieldProblems &problems) {
    for (const auto &[field, problem] : problems) {
        showProblem(field, problem.description());
    }
    if (!problems.empty()) {
        rows_.at(problems.begin()->first).field->setFocus();
    }
}

void ReceiptForm::showProblem(ReceiptField field, const QString &text) {
    const Row &row = rows_.at(field);
    row.problem->setText(text);
    row.problem->setVisible(!text.isEmpty());
    describe(row);
}

void ReceiptForm::showMissing(const std::set<ReceiptField> &fields) {
    for (const auto &[field, row] : rows_) {
        row.missing->setVisible(fields.contains(field));
        describe(row);
    }
}

// What is wrong is more urgent than what is not on the page.
void ReceiptForm::describe(const Row &row) {
    const bool isMissing = row.missing->isVisibleTo(this) && row.problem->text().isEmpty();
    row.field->setAccessibleDescription(isMissing ? row.missing->text() : row.problem->text());
}

void ReceiptForm::focusField(ReceiptField field) {
    rows_.at(field).field->setFocus(Qt::MouseFocusReason);
}

void ReceiptForm::watch(QWidget *widget, ReceiptField field) {
    watched_.insert(widget, field);
    widget->installEventFilter(this);
}

// A window that becomes active, or a closing list, gives the focus back to the field that had it.
bool ReceiptForm::eventFilter(QObject *watched, QEvent *event) {
    const auto field = watched_.constFind(watched);
    if (field != watched_.constEnd() && event->type() == QEvent::MouseButtonPress) {
        Q_EMIT fieldEntered(*field);
    }
    if (field != watched_.constEnd() && event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            Q_EMIT fieldEntered(*field);
        }
    }
    return QWidget::eventFilter(watched, event);
}

// A list of another hand may have a category that is none of the program's: it stays until another is chosen.
void ReceiptForm::offerCategory(const QString &category) {
    constexpr int known = GeminiClient::validCategories.size();
    while (category_->count() > known) {
        category_->removeItem(known);
    }
    if (category_->findData(category) < 0) {
        addCategory(category_, known, category);
    }
}

QString ReceiptForm::textOf(ReceiptField field) const {
    switch (field) {
    case ReceiptField::currency:
        return currency_->currentText();
    case ReceiptField::category:
        return category_->currentData().toString();
    case ReceiptField::summary:
        return summary_->toPlainText();
    default:
        return qobject_cast<QLineEdit *>(rows_.at(field).field)->text();
    }
}

// Leaves the cursor where it is if the text is there already.
void ReceiptForm::setText(ReceiptField field, const QString &text) {
    if (text == textOf(field)) {
        return;
    }
    switch (field) {
    case ReceiptField::currency:
        currency_->setCurrentIndex(currency_->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive));
        currency_->setEditText(text);
        break;
    case ReceiptField::category:
        category_->setCurrentIndex(category_->findData(text));
        break;
    case ReceiptField::summary:
        summary_->setPlainText(text);
        break;
    default:
        qobject_cast<QLineEdit *>(rows_.at(field).field)->setText(text);
    }
}

} // namespace fennick
