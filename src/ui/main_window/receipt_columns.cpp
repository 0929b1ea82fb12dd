#include "ui/main_window/receipt_columns.h"

#include "ui/main_window/receipts_table_model.h"

#include <QHeaderView>

#include <algorithm>
#include <array>
#include <utility>

namespace fennick {

namespace {

struct ColumnWidth {
    ReceiptsTableModel::Column column;
    int minimum;
    int ideal;
};

// In pixels. The summary takes what the others leave, but never less than its minimum: before that, the
// others give way, down to theirs.
constexpr std::array<ColumnWidth, 4> resizableColumns = {{{ReceiptsTableModel::dateColumn, 90, 100},
                                                          {ReceiptsTableModel::amountColumn, 80, 90},
                                                          {ReceiptsTableModel::locationColumn, 120, 160},
                                                          {ReceiptsTableModel::categoryColumn, 90, 100}}};
constexpr int summaryMinimum = 180;
constexpr int statusWidth = 24;
constexpr int photosWidth = 56;
constexpr int actionsWidth = 64;
constexpr int fixedWidth = statusWidth + photosWidth + actionsWidth;

} // namespace

ReceiptColumns::ReceiptColumns(QHeaderView *header, QObject *parent)
    : QObject(parent)
    , header_(header) {
    header_->setHighlightSections(false);
    header_->setMinimumSectionSize(statusWidth);
    header_->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    fix();
    connect(header_, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { takeChosenWidth(column, width); });
}

// What the user may resize, and what not. The list begins with the newest, whatever it was sorted by before.
void ReceiptColumns::fix() {
    header_->setSectionsClickable(true);
    header_->setSortIndicatorClearable(true); // by the third click
    header_->setSortIndicator(-1, Qt::AscendingOrder);
    header_->setSectionResizeMode(QHeaderView::Interactive);
    header_->setSectionResizeMode(ReceiptsTableModel::summaryColumn, QHeaderView::Fixed);
    for (const auto &[column, width] : {std::pair{ReceiptsTableModel::statusColumn, statusWidth},
                                        std::pair{ReceiptsTableModel::photosColumn, photosWidth},
                                        std::pair{ReceiptsTableModel::actionsColumn, actionsWidth}}) {
        header_->setSectionResizeMode(column, QHeaderView::Fixed);
        header_->resizeSection(column, width);
    }
}

void ReceiptColumns::takeChosenWidth(int column, int width) {
    if (isFitting_) {
        return;
    }
    for (const auto &[resizable, minimum, ideal] : resizableColumns) {
        if (resizable == column) {
            chosenWidths_[column] = std::max(width, minimum);
        }
    }
    fit();
}

// Columns whose width the user has chosen keep it; then a narrow window scrolls.
void ReceiptColumns::fit() {
    int ideal = 0;
    int least = 0;
    for (const ColumnWidth &column : resizableColumns) {
        ideal += chosenWidths_.value(column.column, column.ideal);
        least += chosenWidths_.value(column.column, column.minimum);
    }
    const int room = width_ - fixedWidth;
    const int missing = std::clamp(ideal + summaryMinimum - room, 0, ideal - least);
    int used = 0;
    isFitting_ = true;
    for (const ColumnWidth &column : resizableColumns) {
        int width = chosenWidths_.value(column.column, column.ideal);
        if (missing > 0 && !chosenWidths_.contains(column.column)) {
            const int all = ideal - least;
            width -= ((column.ideal - column.minimum) * missing + all - 1) / all;
        }
        header_->resizeSection(column.column, width);
        used += width;
    }
    header_->resizeSection(ReceiptsTableModel::summaryColumn, std::max(summaryMinimum, room - used));
    isFitting_ = false;
}

void ReceiptColumns::fitInto(int width) {
    width_ = width;
    fit();
}

QByteArray ReceiptColumns::state() {
    isFitting_ = true;
    for (const ColumnWidth &column : resizableColumns) {
        header_->resizeSection(column.column, chosenWidths_.value(column.column, column.ideal));
    }
    const QByteArray state = header_->saveState();
    isFitting_ = false;
    fit();
    return state;
}

// What was stored may come from another version, or from another hand.
void ReceiptColumns::restore(const QByteArray &state) {
    isFitting_ = true;
    header_->restoreState(state);
    fix();
    for (const ColumnWidth &column : resizableColumns) {
        const int width = header_->sectionSize(column.column);
        if (width != column.ideal) {
            chosenWidths_[column.column] = std::max(width, column.minimum);
        }
    }
    isFitting_ = false;
    fit();
}

} // namespace fennick
