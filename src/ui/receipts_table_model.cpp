#include "ui/receipts_table_model.h"

#include "text/currency_text.h"
#include "text/path_text.h"

namespace fennick {

namespace {

const QString missing = QStringLiteral("—");

QString statusSymbol(ReceiptStatus status) {
    switch (status) {
    case ReceiptStatus::processing:
        return QStringLiteral("…");
    case ReceiptStatus::done:
        return QStringLiteral("✓");
    case ReceiptStatus::error:
        return QStringLiteral("⚠");
    }
    Q_UNREACHABLE();
}

QString statusText(const Receipt &receipt) {
    switch (receipt.status) {
    case ReceiptStatus::processing:
        return ReceiptsTableModel::tr("Processing");
    case ReceiptStatus::done:
        return ReceiptsTableModel::tr("Done");
    case ReceiptStatus::error:
        return receipt.error.value_or(ReceiptsTableModel::tr("Error"));
    }
    Q_UNREACHABLE();
}

// The first letter of each word in upper case, the others in lower case.
QString capitalised(const QString &text) {
    QString result = text.toLower();
    bool isWordStart = true;
    for (QChar &character : result) {
        if (isWordStart) {
            character = character.toUpper();
        }
        isWordStart = character.isSpace();
    }
    return result;
}

QString cellText(const Receipt &receipt, int column) {
    switch (column) {
    case ReceiptsTableModel::statusColumn:
        return statusSymbol(receipt.status);
    case ReceiptsTableModel::dateColumn:
        return receipt.date.value_or(missing);
    case ReceiptsTableModel::amountColumn:
        return receipt.amount ? amountText(*receipt.amount, receipt.currency) : missing;
    case ReceiptsTableModel::locationColumn:
        return receipt.location.value_or(missing);
    case ReceiptsTableModel::categoryColumn:
        return capitalised(receipt.category);
    default:
        return receipt.summary.isEmpty() ? missing : receipt.summary;
    }
}

QString toolTip(const Receipt &receipt, int column) {
    switch (column) {
    case ReceiptsTableModel::statusColumn:
        return statusText(receipt);
    case ReceiptsTableModel::summaryColumn:
        return receipt.fileName;
    default:
        return {};
    }
}

// Receipts hold text from outside: a tool tip must not take it for markup.
QString escapedToolTip(const QString &text) {
    return text.isEmpty() ? QString()
                          : QStringLiteral("<span>") + text.toHtmlEscaped() + QStringLiteral("</span>");
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
        return cellText(receipt, index.column());
    case Qt::ToolTipRole:
        return escapedToolTip(toolTip(receipt, index.column()));
    case Qt::AccessibleTextRole:
        return index.column() == statusColumn ? statusText(receipt) : cellText(receipt, index.column());
    case Qt::TextAlignmentRole:
        return index.column() == statusColumn ? QVariant(Qt::AlignCenter) : QVariant();
    default:
        return {};
    }
}

QVariant ReceiptsTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
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
    default:
        return QString();
    }
}

void ReceiptsTableModel::beginChange(const ReceiptsChange &change) {
    const int from = static_cast<int>(change.from);
    const int to = static_cast<int>(change.to);
    switch (change.kind) {
    case ReceiptsChange::Kind::inserted:
        beginInsertRows({}, from, from);
        break;
    case ReceiptsChange::Kind::moved:
        // Qt counts the destination as the row before which the moved one lands.
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        break;
    case ReceiptsChange::Kind::cleared:
        beginResetModel();
        break;
    case ReceiptsChange::Kind::updated:
        break;
    }
}

void ReceiptsTableModel::endChange(const ReceiptsChange &change) {
    switch (change.kind) {
    case ReceiptsChange::Kind::inserted:
        endInsertRows();
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
