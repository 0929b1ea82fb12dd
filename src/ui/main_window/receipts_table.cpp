#include "ui/main_window/receipts_table.h"

#include "model/receipt_query.h"
#include "text/search_text.h"
#include "ui/main_window/found_receipts.h"
#include "ui/main_window/receipt_columns.h"
#include "ui/main_window/receipt_delegates.h"
#include "ui/main_window/receipts_table_model.h"
#include "ui/main_window/row_actions.h"
#include "ui/main_window/sorted_receipts.h"
#include "ui/main_window/tabular_digits_delegate.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

using Model = ReceiptsTableModel;

constexpr qsizetype mostSelectedWhileFinding = 1000;

} // namespace

ReceiptsTable::ReceiptsTable(const ReceiptStore *store, QWidget *parent)
    : QTableView(parent)
    , model_(new ReceiptsTableModel(store, this))
    , sorted_(new SortedReceipts(model_, this))
    , found_(new FoundReceipts(model_, sorted_, this)) {
    setObjectName(u"receipts"_s);
    setAccessibleName(tr("Receipts"));
    setModel(found_);
    setUpAppearance();
    columns_ = new ReceiptColumns(horizontalHeader(), this);
    columns_->fitInto(viewport()->width());
    connect(horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, &ReceiptsTable::sortBy);

    rowActionsUpdate_.setSingleShot(true);
    connect(&rowActionsUpdate_, &QTimer::timeout, this, &ReceiptsTable::showRowActions);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(found_, signal, this, &ReceiptsTable::scheduleRowActions);
    }
    connect(found_, &QAbstractItemModel::rowsMoved, this, &ReceiptsTable::scheduleRowActions);
    for (const auto does : {&ReceiptsTable::scheduleRowActions, &ReceiptsTable::selectedReceiptChanged}) {
        connect(found_, &QAbstractItemModel::modelReset, this, does);
        connect(found_, &QAbstractItemModel::layoutChanged, this, does);
        connect(found_, &QAbstractItemModel::dataChanged, this, does);
    }
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &ReceiptsTable::scheduleRowActions);
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex &index) { Q_EMIT openRequested(receipt(index.row())); });
    scheduleRowActions();
}

void ReceiptsTable::setUpAppearance() {
    setItemDelegate(new CellDelegate(this));
    for (const Model::Column column : {Model::dateColumn, Model::amountColumn}) {
        setItemDelegateForColumn(column, new TabularDigitsDelegate(this));
    }
    setItemDelegateForColumn(Model::statusColumn, new StatusDelegate(viewport()));
    setItemDelegateForColumn(Model::photosColumn, new SymbolDelegate(this));
    setItemDelegateForColumn(Model::summaryColumn, new SummaryDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setFrameShape(NoFrame);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(SummaryDelegate::rowHeight(font()));
}

void ReceiptsTable::setPhotosExportOn(bool isOn) {
    isPhotosExportOn_ = isOn;
    scheduleRowActions();
    Q_EMIT selectedReceiptChanged();
}

// The buttons at a row's end are nothing to sort by.
void ReceiptsTable::sortBy(int column, Qt::SortOrder order) {
    if (column == Model::actionsColumn) {
        horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
        return;
    }
    horizontalHeader()->setSortIndicatorShown(column >= 0); // which takes room from the head's text
    sorted_->sort(column, order);
    if (currentRow() >= 0) {
        scrollTo(currentIndex());
    }
}

// Of a row as it is shown.
const Receipt &ReceiptsTable::receipt(int row) const {
    const QModelIndex ordered = found_->mapToSource(found_->index(row, 0));
    return model_->receipt(sorted_->mapToSource(ordered).row());
}

void ReceiptsTable::prepareFind() {
    for (int row = 0; row < model_->rowCount(); ++row) {
        model_->searchable(row);
    }
}

void ReceiptsTable::find(const ReceiptQuery &query) {
    if (selectedRows().size() > mostSelectedWhileFinding) {
        clearSelection(); // to find its rows again would take longer than the search
    }
    found_->setQuery(query);
    if (currentRow() >= 0) {
        scrollTo(currentIndex());
    } else {
        scrollToTop();
    }
}

void ReceiptsTable::endFind() {
    find(ReceiptQuery());
    model_->forgetSearchables();
}

void ReceiptsTable::keyboardSearch(const QString &typed) {
    const bool isBegun =
        sinceTyped_.isValid() && !sinceTyped_.hasExpired(QApplication::keyboardInputInterval());
    sinceTyped_.start();
    typed_ = isBegun ? typed_ + searchText(typed) : searchText(typed.trimmed());
    const int rows = model()->rowCount();
    const int first = std::max(0, currentIndex().row() + (isBegun ? 0 : 1));
    for (int step = 0; step < rows && !typed_.isEmpty(); ++step) {
        const int row = (first + step) % rows;
        if (searchText(receipt(row).location.value_or(QString())).startsWith(typed_) ||
            searchText(receipt(row).summary).startsWith(typed_)) {
            selectOnly(row);
            return;
        }
    }
}

// Home and End lead through the list: rows are current as a whole, so there is no first or last cell.
QModelIndex ReceiptsTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int rows = model()->rowCount();
    if (rows > 0 && (action == MoveHome || action == MoveEnd)) {
        return model()->index(action == MoveHome ? 0 : rows - 1, Model::dateColumn);
    }
    return QTableView::moveCursor(action, modifiers);
}

// In order. Not by the selection model's function of this name, which looks at each cell of each row.
QList<int> ReceiptsTable::selectedRows() const {
    QList<int> rows;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.append(row);
        }
    }
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

// -1 if no row is selected.
int ReceiptsTable::currentRow() const {
    const QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty()) {
        return -1;
    }
    return currentIndex().isValid() ? currentIndex().row() : selection.first().top();
}

QList<Receipt> ReceiptsTable::selectedReceipts() const {
    QList<Receipt> receipts;
    const QList<int> rows = selectedRows();
    for (const int row : rows) {
        receipts.append(receipt(row));
    }
    return receipts;
}

bool ReceiptsTable::isAnySelected(const std::function<bool(const Receipt &)> &applies) const {
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (applies(receipt(row))) {
                return true;
            }
        }
    }
    return false;
}

std::optional<Receipt> ReceiptsTable::selectedReceipt() const {
    const int row = currentRow();
    return row < 0 ? std::nullopt : std::optional(receipt(row));
}

// Whatever keys are held down, which would have selectRow() add to the selection.
void ReceiptsTable::selectOnly(int row) {
    const QModelIndex place = model()->index(row, Model::dateColumn);
    selectionModel()->setCurrentIndex(place, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(place);
}

void ReceiptsTable::selectFurther(int rows) {
    const int row = currentRow();
    if (row < 0) {
        selectFirstVisibleRow();
    } else {
        selectOnly(std::clamp(row + rows, 0, model()->rowCount() - 1));
    }
}

bool ReceiptsTable::selectReceipt(const QString &id) {
    for (int row = 0; row < model()->rowCount(); ++row) {
        if (receipt(row).id == id) {
            selectOnly(row);
            return true;
        }
    }
    return false;
}

void ReceiptsTable::setDuplicates(const PossibleDuplicates *duplicates) {
    model_->setDuplicates(duplicates);
}

int ReceiptsTable::firstSelectedRow() const {
    return selectedRows().value(0, -1);
}

void ReceiptsTable::selectNearest(int row) {
    if (model()->rowCount() > 0) {
        selectOnly(std::min(row, model()->rowCount() - 1));
    }
}

QByteArray ReceiptsTable::columnState() {
    return columns_->state();
}

void ReceiptsTable::restoreColumnState(const QByteArray &state) {
    columns_->restore(state);
}

void ReceiptsTable::resizeEvent(QResizeEvent *event) {
    QTableView::resizeEvent(event);
    columns_->fitInto(viewport()->width());
    scheduleRowActions();
}

// Keys that lead here select a row, which shows where the focus is. Anything else (a click, the window's
// appearance) selects nothing by itself.
void ReceiptsTable::focusInEvent(QFocusEvent *event) {
    QTableView::focusInEvent(event);
    if (selectedReceipt()) {
        return;
    }
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
        selectFirstVisibleRow();
    } else {
        selectionModel()->clearCurrentIndex(); // or the first arrow key would pass over the first row
    }
}

void ReceiptsTable::selectFirstVisibleRow() {
    if (model()->rowCount() > 0) {
        selectOnly(std::max(0, rowAt(0)));
    }
}

void ReceiptsTable::keyPressEvent(QKeyEvent *event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const auto selected = selectedReceipt();
    if (isEnter && selected) {
        Q_EMIT openRequested(*selected);
        return;
    }
    QTableView::keyPressEvent(event);
}

void ReceiptsTable::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) {
    QTableView::selectionChanged(selected, deselected);
    scheduleRowActions();
    Q_EMIT selectedReceiptChanged();
}

void ReceiptsTable::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    QTableView::currentChanged(current, previous);
    scheduleRowActions();
    Q_EMIT selectedReceiptChanged();
}

void ReceiptsTable::scheduleRowActions() {
    rowActionsUpdate_.start(0);
}

// Gives every row on the screen its buttons, and takes those of the rows that have left it.
void ReceiptsTable::showRowActions() {
    const int rows = model()->rowCount();
    const int current = currentRow();
    const int first = std::max(0, rowAt(0));
    const int lastVisible = rowAt(viewport()->height() - 1);
    const int last = lastVisible < 0 ? rows - 1 : lastVisible;
    erase_if(placesWithActions_, [this, first, last](const QPersistentModelIndex &place) {
        const bool isVisible = place.isValid() && place.row() >= first && place.row() <= last;
        if (!isVisible && place.isValid()) {
            setIndexWidget(place, nullptr);
        }
        return !isVisible;
    });
    for (int row = first; row <= last; ++row) {
        const QModelIndex place = model()->index(row, Model::actionsColumn);
        auto *buttons = qobject_cast<RowActions *>(indexWidget(place));
        if (buttons == nullptr) {
            buttons = makeRowActions(place);
        }
        buttons->show(receipt(row), isPhotosExportOn_);
        buttons->setSelected(selectionModel()->isRowSelected(row));
        buttons->setTabStops(row == current);
        if (row == current) {
            buttons->followInTabOrder(this);
        }
    }
}

RowActions *ReceiptsTable::makeRowActions(const QModelIndex &place) {
    auto *const buttons = new RowActions(viewport());
    setIndexWidget(place, buttons);
    placesWithActions_.append(place);
    // Rows move: the buttons stay with the receipt that they were made for.
    const QPersistentModelIndex row(place);
    connect(buttons, &RowActions::revealRequested, this,
            [this, row] { Q_EMIT revealRequested(receipt(row.row())); });
    connect(buttons, &RowActions::addToPhotosRequested, this,
            [this, row] { Q_EMIT addToPhotosRequested(receipt(row.row())); });
    connect(buttons, &RowActions::retryRequested, this,
            [this, row] { Q_EMIT retryRequested(receipt(row.row())); });
    return buttons;
}

} // namespace fennick
