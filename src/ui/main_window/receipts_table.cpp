#include "ui/main_window/receipts_table.h"

#include "ui/main_window/receipt_delegates.h"
#include "ui/main_window/receipts_table_model.h"
#include "ui/main_window/row_actions.h"
#include "ui/main_window/tabular_digits_delegate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <array>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

using Model = ReceiptsTableModel;

struct ColumnWidth {
    Model::Column column;
    int minimum;
    int ideal;
};

// In pixels. The summary takes what the others leave, but never less than its minimum: before that, the
// others give way, down to theirs.
constexpr std::array<ColumnWidth, 4> resizableColumns = {{{Model::dateColumn, 90, 100},
                                                          {Model::amountColumn, 80, 90},
                                                          {Model::locationColumn, 120, 160},
                                                          {Model::categoryColumn, 90, 100}}};
constexpr int summaryMinimum = 180;
constexpr int statusWidth = 24;
constexpr int photosWidth = 56;
constexpr int actionsWidth = 64;
constexpr int fixedWidth = statusWidth + photosWidth + actionsWidth;

} // namespace

ReceiptsTable::ReceiptsTable(const ReceiptStore *store, QWidget *parent)
    : QTableView(parent)
    , model_(new ReceiptsTableModel(store, this)) {
    setObjectName(u"receipts"_s);
    setAccessibleName(tr("Receipts"));
    setModel(model_);
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
    layOutColumns();

    rowActionsUpdate_.setSingleShot(true);
    connect(&rowActionsUpdate_, &QTimer::timeout, this, &ReceiptsTable::showRowActions);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(model_, signal, this, &ReceiptsTable::scheduleRowActions);
    }
    connect(model_, &QAbstractItemModel::rowsMoved, this, &ReceiptsTable::scheduleRowActions);
    connect(model_, &QAbstractItemModel::modelReset, this, &ReceiptsTable::scheduleRowActions);
    connect(model_, &QAbstractItemModel::modelReset, this, &ReceiptsTable::selectedReceiptChanged);
    connect(model_, &QAbstractItemModel::dataChanged, this, &ReceiptsTable::scheduleRowActions);
    connect(model_, &QAbstractItemModel::dataChanged, this, &ReceiptsTable::selectedReceiptChanged);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &ReceiptsTable::scheduleRowActions);
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex &index) { Q_EMIT openRequested(model_->receipt(index.row())); });
    scheduleRowActions();
}

void ReceiptsTable::layOutColumns() {
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(SummaryDelegate::rowHeight(font()));
    QHeaderView *const header = horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionsClickable(false);
    header->setMinimumSectionSize(statusWidth);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    fixColumns();
    fitColumns();
    connect(header, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { takeChosenWidth(column, width); });
}

// What the user may resize, and what not.
void ReceiptsTable::fixColumns() {
    QHeaderView *const header = horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setSectionResizeMode(Model::summaryColumn, QHeaderView::Fixed);
    for (const auto &[column, width] :
         {std::pair{Model::statusColumn, statusWidth}, std::pair{Model::photosColumn, photosWidth},
          std::pair{Model::actionsColumn, actionsWidth}}) {
        header->setSectionResizeMode(column, QHeaderView::Fixed);
        header->resizeSection(column, width);
    }
}

void ReceiptsTable::takeChosenWidth(int column, int width) {
    if (isFitting_) {
        return;
    }
    for (const auto &[resizable, minimum, ideal] : resizableColumns) {
        if (resizable == column) {
            chosenWidths_[column] = std::max(width, minimum);
        }
    }
    fitColumns();
}

// Columns whose width the user has chosen keep it; then a narrow window scrolls.
void ReceiptsTable::fitColumns() {
    int ideal = 0;
    int least = 0;
    for (const ColumnWidth &column : resizableColumns) {
        ideal += chosenWidths_.value(column.column, column.ideal);
        least += chosenWidths_.value(column.column, column.minimum);
    }
    const int room = viewport()->width() - fixedWidth;
    const int missing = std::clamp(ideal + summaryMinimum - room, 0, ideal - least);
    int used = 0;
    isFitting_ = true;
    for (const ColumnWidth &column : resizableColumns) {
        int width = chosenWidths_.value(column.column, column.ideal);
        if (missing > 0 && !chosenWidths_.contains(column.column)) {
            const int all = ideal - least;
            width -= ((column.ideal - column.minimum) * missing + all - 1) / all;
        }
        horizontalHeader()->resizeSection(column.column, width);
        used += width;
    }
    horizontalHeader()->resizeSection(Model::summaryColumn, std::max(summaryMinimum, room - used));
    isFitting_ = false;
}

void ReceiptsTable::setPhotosExportOn(bool isOn) {
    isPhotosExportOn_ = isOn;
    scheduleRowActions();
    Q_EMIT selectedReceiptChanged();
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
        receipts.append(model_->receipt(row));
    }
    return receipts;
}

bool ReceiptsTable::isAnySelected(const std::function<bool(const Receipt &)> &applies) const {
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (applies(model_->receipt(row))) {
                return true;
            }
        }
    }
    return false;
}

std::optional<Receipt> ReceiptsTable::selectedReceipt() const {
    const int row = currentRow();
    return row < 0 ? std::nullopt : std::optional(model_->receipt(row));
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

int ReceiptsTable::firstSelectedRow() const {
    return selectedRows().value(0, -1);
}

void ReceiptsTable::selectNearest(int row) {
    if (model()->rowCount() > 0) {
        selectOnly(std::min(row, model()->rowCount() - 1));
    }
}

// With the ideal width of a column that only gives way at the moment.
QByteArray ReceiptsTable::columnState() {
    isFitting_ = true;
    for (const ColumnWidth &column : resizableColumns) {
        horizontalHeader()->resizeSection(column.column, chosenWidths_.value(column.column, column.ideal));
    }
    const QByteArray state = horizontalHeader()->saveState();
    isFitting_ = false;
    fitColumns();
    return state;
}

// What was stored may come from another version, or from another hand.
void ReceiptsTable::restoreColumnState(const QByteArray &state) {
    isFitting_ = true;
    horizontalHeader()->restoreState(state);
    fixColumns();
    for (const ColumnWidth &column : resizableColumns) {
        const int width = horizontalHeader()->sectionSize(column.column);
        if (width != column.ideal) {
            chosenWidths_[column.column] = std::max(width, column.minimum);
        }
    }
    isFitting_ = false;
    fitColumns();
}

void ReceiptsTable::resizeEvent(QResizeEvent *event) {
    QTableView::resizeEvent(event);
    fitColumns();
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
        const QModelIndex place = model_->index(row, Model::actionsColumn);
        auto *buttons = qobject_cast<RowActions *>(indexWidget(place));
        if (buttons == nullptr) {
            buttons = makeRowActions(place);
        }
        buttons->show(model_->receipt(row), isPhotosExportOn_);
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
            [this, row] { Q_EMIT revealRequested(model_->receipt(row.row())); });
    connect(buttons, &RowActions::addToPhotosRequested, this,
            [this, row] { Q_EMIT addToPhotosRequested(model_->receipt(row.row())); });
    connect(buttons, &RowActions::retryRequested, this,
            [this, row] { Q_EMIT retryRequested(model_->receipt(row.row())); });
    return buttons;
}

} // namespace fennick
