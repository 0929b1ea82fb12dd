#include "ui/summary/summary_window.h"

#include "model/receipt_store.h"
#include "pipeline/app_state.h"
#include "text/currency_codes.h"
#include "ui/summary/bar_delegate.h"
#include "ui/summary/expenses.h"
#include "ui/summary/spending_model.h"
#include "ui/widgets/named_combo_box.h"
#include "ui/widgets/remembered_geometry.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize summarySize(960, 480);
constexpr int summaryMargin = 16;

} // namespace

SummaryWindow::SummaryWindow(const ReceiptStore *store, AppState *appState)
    : QWidget(nullptr, Qt::Window)
    , store_(store)
    , appState_(appState)
    , currency_(new NamedComboBox)
    , archives_(new QCheckBox(tr("Include archives")))
    , nothing_(new QLabel(tr("No receipt has an amount yet.")))
    , table_(new QTableView)
    , model_(new SpendingModel(this))
    , copy_(new QPushButton(tr("Copy")))
    , print_(new QPushButton(tr("Print…"))) {
    setObjectName(u"summary"_s);
    setWindowTitle(tr("Summary"));
    resize(summarySize);
    new RememberedGeometry(this);
    layOut();
    addShortcuts();
    refresh_.setSingleShot(true);
    connect(&refresh_, &QTimer::timeout, this, &SummaryWindow::refresh);
    const auto refreshSoon = [this] {
        refresh_.start();
    };
    connect(store, &ReceiptStore::receiptsChanged, this, refreshSoon);
    connect(appState->archivedReceipts(), &ArchivedReceipts::changed, this, refreshSoon);
    connect(archives_, &QCheckBox::toggled, this, &SummaryWindow::refresh);
    connect(currency_, &QComboBox::activated, this, &SummaryWindow::showCurrency);
    connect(copy_, &QPushButton::clicked, this, &SummaryWindow::copyTable);
    connect(print_, &QPushButton::clicked, this, &SummaryWindow::print);
    refresh();
}

void SummaryWindow::layOut() {
    currency_->setObjectName(u"summaryCurrency"_s);
    currency_->setAccessibleName(tr("Currency"));
    archives_->setObjectName(u"includeArchives"_s);
    nothing_->setObjectName(u"nothingToSum"_s);
    nothing_->setAlignment(Qt::AlignCenter);
    copy_->setObjectName(u"copySpending"_s);
    print_->setObjectName(u"printSpending"_s);
    table_->setObjectName(u"spending"_s);
    table_->setAccessibleName(tr("Spending by month and category"));
    table_->setModel(model_);
    table_->setItemDelegateForColumn(SpendingModel::barColumn, new BarDelegate(table_));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setTabKeyNavigation(false);
    table_->setWordWrap(false);
    table_->setShowGrid(false);
    table_->verticalHeader()->hide();
    auto *const choices = new QHBoxLayout;
    choices->addWidget(currency_);
    choices->addWidget(archives_);
    choices->addStretch();
    auto *const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(copy_);
    buttons->addWidget(print_);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(summaryMargin, summaryMargin, summaryMargin, summaryMargin);
    layout->addLayout(choices);
    layout->addWidget(table_, 1);
    layout->addWidget(nothing_, 1);
    layout->addLayout(buttons);
}

void SummaryWindow::addShortcuts() {
    const auto onKeys = [this](const QKeySequence &keys, auto *receiver, auto does) {
        connect(new QShortcut(keys, this), &QShortcut::activated, receiver, does);
    };
    onKeys(QKeySequence::Copy, copy_, &QPushButton::click);
    onKeys(QKeySequence::Print, print_, &QPushButton::click);
    onKeys(Qt::Key_Escape, this, &QWidget::close);
    onKeys(Qt::CTRL | Qt::Key_W, this, &QWidget::close);
}

// Keeps the chosen currency for as long as there is any amount in it.
void SummaryWindow::refresh() {
    const QString chosen = currency_->currentData().toString();
    QList<Expense> expenses = expensesOf(store_->receipts());
    if (archives_->isChecked()) {
        expenses += expensesOf(appState_->archivedReceipts()->receipts(), expenses);
    }
    spendings_ = spendingByCurrency(expenses);
    currency_->clear();
    for (const Spending &spending : std::as_const(spendings_)) {
        const QString name = currencyName(spending.currency, QLocale());
        currency_->addItem(spending.currency.isEmpty() ? tr("Without currency")
                                                       : spending.currency + u"  "_s + name,
                           spending.currency);
    }
    currency_->setCurrentIndex(std::max(0, currency_->findData(chosen)));
    currency_->setEnabled(spendings_.size() > 1);
    showCurrency();
}

void SummaryWindow::showCurrency() {
    const Spending spending = spendings_.value(currency_->currentIndex());
    model_->show(spending);
    const bool isAny = !spending.months.isEmpty();
    table_->setVisible(isAny);
    nothing_->setVisible(!isAny);
    copy_->setEnabled(isAny);
    print_->setEnabled(isAny);
    table_->resizeColumnsToContents();
}

QStringList SummaryWindow::textsOfRow(int row) const {
    QStringList texts;
    for (int column = 0; column < model_->columnCount(); ++column) {
        if (column != SpendingModel::barColumn) {
            texts.append(model_->index(row, column).data().toString());
        }
    }
    return texts;
}

QStringList SummaryWindow::columnNames() const {
    QStringList names;
    for (int column = 0; column < model_->columnCount(); ++column) {
        if (column != SpendingModel::barColumn) {
            names.append(model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        }
    }
    return names;
}

// With a tab between two values, as spreadsheets take it.
void SummaryWindow::copyTable() const {
    QString text = columnNames().join(u'\t') + u'\n';
    for (int row = 0; row < model_->rowCount(); ++row) {
        text += textsOfRow(row).join(u'\t') + u'\n';
    }
    QGuiApplication::clipboard()->setText(text);
}

QString SummaryWindow::heading() const {
    return tr("Summary") + u" – "_s + currency_->currentText();
}

QString SummaryWindow::printedPage() const {
    const auto rowOf = [](const QStringList &texts, const QString &cell) {
        QString row;
        for (const QString &text : texts) {
            row += u"<%1 align=\"%2\">%3</%1>"_s.arg(cell, row.isEmpty() ? u"left"_s : u"right"_s,
                                                     text.toHtmlEscaped());
        }
        return u"<tr>"_s + row + u"</tr>"_s;
    };
    QString rows = rowOf(columnNames(), u"th"_s);
    for (int row = 0; row < model_->rowCount(); ++row) {
        rows += rowOf(textsOfRow(row), u"td"_s);
    }
    return u"<h2>"_s + heading().toHtmlEscaped() + u"</h2><table cellpadding=\"4\" width=\"100%\">"_s + rows +
           u"</table>"_s;
}

void SummaryWindow::print() {
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) {
        QTextDocument document;
        document.setHtml(printedPage());
        document.print(&printer);
    }
}

} // namespace fennick
