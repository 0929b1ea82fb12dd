#include "ui/main_window/receipts_table_model.h"

#include "extraction/gemini_error.h"
#include "pipeline/duplicates/possible_duplicates.h"
#include "text/characters.h"
#include "text/display_text.h"
#include "ui/widgets/plain_tool_tip.h"
#include "ui/widgets/symbols.h"

#include <QGuiApplication>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

const QString missing = u"—"_s;

QString statusText(const Receipt &receipt) {
    switch (receipt.status) {
    case ReceiptStatus::processing:
        return ReceiptsTableModel::tr("Processing");
    case ReceiptStatus::done:
        return ReceiptsTableModel::tr("Done");
    case ReceiptStatus::error:
        return receipt.error ? inUsersLanguage(*receipt.error) : ReceiptsTableModel::tr("Error");
    }
    Q_UNREACHABLE();
}

QString cellText(const Receipt &receipt, int column, AmountFormatter &amounts) {
    switch (column) {
    case ReceiptsTableModel::dateColumn:
        return receipt.date.value_or(missing);
    case ReceiptsTableModel::amountColumn:
        return receipt.amount ? amounts.text(*receipt.amount, receipt.currency) : missing;
    case ReceiptsTableModel::locationColumn:
        return receipt.location.value_or(missing);
    case ReceiptsTableModel::categoryColumn:
        return capitalised(receipt.category);
    case ReceiptsTableModel::summaryColumn:
        return receipt.summary.isEmpty() ? missing : receipt.summary;
    case ReceiptsTableModel::photosColumn:
        return receipt.addedToPhotos ? QString() : missing;
    default:
        return {};
    }
}

QVariant cellIcon(const Receipt &receipt, int column) {
    if (column == ReceiptsTableModel::photosColumn && receipt.addedToPhotos) {
        return symbolIcon(Symbol::done, Tint::success);
    }
    if (column != ReceiptsTableModel::statusColumn || receipt.status == ReceiptStatus::processing) {
        return {};
    }
    return receipt.status == ReceiptStatus::done ? symbolIcon(Symbol::done, Tint::success)
                                                 : symbolIcon(Symbol::warning, Tint::warning);
}

// What an assistive tool reads in a cell.
QString spokenText(const Receipt &receipt, int column, AmountFormatter &amounts) {
    switch (column) {
    case ReceiptsTableModel::statusColumn:
        return statusText(receipt);
    case ReceiptsTableModel::summaryColumn:
        return cellText(receipt, column, amounts) + u", "_s + receipt.fileName;
    case ReceiptsTableModel::photosColumn:
        return receipt.addedToPhotos ? ReceiptsTableModel::tr("Added to Photos")
                                     : ReceiptsTableModel::tr("Not added to Photos");
    default:
        return cellText(receipt, column, amounts);
    }
}

QVariant alignment(int column) {
    switch (column) {
    case ReceiptsTableModel::statusColumn:
    case ReceiptsTableModel::photosColumn:
        return Qt::AlignCenter;
    default:
        return {};
    }
}

QVariant textColour(const Receipt &receipt, int column) {
    if (column == ReceiptsTableModel::photosColumn && !receipt.addedToPhotos) {
        return tintColor(Tint::secondary, QGuiApplication::palette());
    }
    return {};
}

QString toolTip(const Receipt &receipt, int column) {
    switch (column) {
    case ReceiptsTableModel::statusColumn:
        return receipt.status == ReceiptStatus::error ? statusText(receipt) : QString();
    case ReceiptsTableModel::photosColumn:
        return receipt.addedToPhotos ? ReceiptsTableModel::tr("Added to Photos") : QString();
    case ReceiptsTableModel::summaryColumn:
        return receipt.fileName;
    default:
        return {};
    }
}

} // namespace

ReceiptsTableModel::ReceiptsTableModel(const ReceiptStore *store, QObject *parent)
    : QAbstractTableModel(parent)
    , store_(store) {
    connect(store, &ReceiptStore::receiptsAboutToChange, this, &ReceiptsTableModel::beginChange);
    connect(store, &ReceiptStore::receiptsChanged, this, &ReceiptsTableModel::endChange);
}

int ReceiptsTableModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(store_->receipts().size());
}

int ReceiptsTableModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant ReceiptsTableModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const Receipt &receipt = store_->receipts().at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return displayText(cellText(receipt, index.column(), amounts_));
    case Qt::DecorationRole:
        return cellIcon(receipt, index.column());
    case Qt::ToolTipRole:
        return plainToolTip(toolTip(receipt, index.column()));
    case Qt::AccessibleTextRole:
        return displayText(spokenText(receipt, index.column(), amounts_));
    case Qt::TextAlignmentRole:
        return alignment(index.column());
    case Qt::ForegroundRole:
        return textColour(receipt, index.column());
    case fileNameRole:
        return displayText(receipt.fileName);
    case isProcessingRole:
        return receipt.status == ReceiptStatus::processing;
    default:
        return {};
    }
}

QVariant ReceiptsTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool isSpoken = role == Qt::AccessibleTextRole;
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && !isSpoken)) {
        return {};
    }
    switch (section) {
    case statusColumn:
        return isSpoken ? tr("Status") : QString();
    case actionsColumn:
        return isSpoken ? tr("Actions") : QString();
    case dateColumn:
        return tr("Date");
    case amountColumn:
        return tr("Amount");
    case locationColumn:
        return tr("Location");
    case categoryColumn:
        return tr("Category");
    case summaryColumn:
        return tr("Summary");
    case photosColumn:
        //: The photo library; the column is 56 pixels wide.
        return tr("Photos");
    default:
        return QString();
    }
}

void ReceiptsTableModel::beginChange(const ReceiptsChange &change) {
    const int from = static_cast<int>(change.from);
    const int to = static_cast<int>(change.to);
    switch (change.kind) {
    case ReceiptsChange::Kind::inserted:
        beginInsertRows({}, from, to);
        break;
    case ReceiptsChange::Kind::moved:
        // Qt counts the destination as the row before which the moved one lands.
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        break;
    case ReceiptsChange::Kind::removed:
        beginRemoveRows({}, from, to);
        break;
    case ReceiptsChange::Kind::cleared:
        beginResetModel();
        break;
    case ReceiptsChange::Kind::updated:
        break;
    }
}

const SearchableReceipt &ReceiptsTableModel::searchable(int row) const {
    searchables_.resize(store_->receipts().size()); // all of them are empty before the first search
    auto &prepared = searchables_[row];
    if (!prepared) {
        const bool mayBeDuplicate = duplicates_ != nullptr && duplicates_->contains(receipt(row).id);
        prepared = std::make_unique<const SearchableReceipt>(receipt(row), mayBeDuplicate);
    }
    return *prepared;
}

// Queued: the list may be in the middle of the change that is behind it.
void ReceiptsTableModel::setDuplicates(const PossibleDuplicates *duplicates) {
    duplicates_ = duplicates;
    connect(duplicates, &PossibleDuplicates::changed, this, &ReceiptsTableModel::refreshDuplicates,
            Qt::QueuedConnection);
}

void ReceiptsTableModel::refreshDuplicates(const QSet<QString> &ids) {
    if (searchables_.empty()) {
        return; // nobody searches
    }
    for (int row = 0; row < rowCount(); ++row) {
        if (ids.contains(receipt(row).id)) {
            searchables_.at(static_cast<size_t>(row)).reset();
            Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
        }
    }
}

// They cannot be copied, and so not be inserted several at a time.
void ReceiptsTableModel::makeRoomForSearchables(qsizetype first, qsizetype count) {
    const auto oldSize = static_cast<qsizetype>(searchables_.size());
    searchables_.resize(oldSize + count);
    std::rotate(searchables_.begin() + first, searchables_.begin() + oldSize, searchables_.end());
}

void ReceiptsTableModel::followWithSearchables(const ReceiptsChange &change) {
    if (searchables_.empty()) {
        return;
    }
    const auto begin = searchables_.begin();
    switch (change.kind) {
    case ReceiptsChange::Kind::inserted:
        makeRoomForSearchables(change.from, change.to - change.from + 1);
        return;
    case ReceiptsChange::Kind::removed:
        searchables_.erase(begin + change.from, begin + change.to + 1);
        return;
    case ReceiptsChange::Kind::cleared:
        searchables_.clear();
        return;
    case ReceiptsChange::Kind::moved:
        searchables_.erase(begin + change.from);
        searchables_.insert(searchables_.begin() + change.to, nullptr);
        return;
    case ReceiptsChange::Kind::updated:
        searchables_[change.to].reset();
        return;
    }
}

// Before the views hear of it: they search at once.
void ReceiptsTableModel::endChange(const ReceiptsChange &change) {
    followWithSearchables(change);
    switch (change.kind) {
    case ReceiptsChange::Kind::inserted:
        endInsertRows();
        return;
    case ReceiptsChange::Kind::removed:
        endRemoveRows();
        return;
    case ReceiptsChange::Kind::cleared:
        endResetModel();
        return;
    case ReceiptsChange::Kind::moved:
        endMoveRows();
        break;
    case ReceiptsChange::Kind::updated:
        break;
    }
    const int row = static_cast<int>(change.to);
    Q_EMIT dataChanged(index(row, 0), index(row, columns - 1));
}

} // namespace fennick
