#include "pipeline/duplicates/possible_duplicates.h"

#include "model/merchant_likeness.h"
#include "model/receipt_store.h"
#include "pipeline/duplicates/same_contents.h"

namespace fennick {

namespace {

bool isSameAmount(const Receipt &receipt, const ExportService::LedgerRow &row) {
    if (row.amountText.isEmpty()) {
        return receipt.amount == row.amount && receipt.currency.value_or(QString()) == row.currency;
    }
    return ExportService::formatAmount(receipt.amount, receipt.currency) == row.amountText;
}

bool isSamePurchase(const Receipt &receipt, const ExportService::LedgerRow &row) {
    return row.amount && isSameAmount(receipt, row) &&
           isSameMerchant(merchantKey(receipt.location.value_or(QString())), merchantKey(row.location));
}

} // namespace

PossibleDuplicates::PossibleDuplicates(const ReceiptStore *store, const ArchivedReceipts *archived,
                                       const SameContents *sameContents)
    : store_(store)
    , archived_(archived)
    , sameContents_(sameContents)
    , samePurchases_(store) {
    connect(&samePurchases_, &SamePurchases::changed, this, &PossibleDuplicates::changed);
    connect(sameContents, &SameContents::changed, this, &PossibleDuplicates::changed);
    connect(archived, &ArchivedReceipts::changed, this, &PossibleDuplicates::takeArchived);
}

std::optional<OtherReceipt> PossibleDuplicates::otherOf(const QString &id) const {
    auto listed = samePurchases_.otherOf(id);
    if (!listed) {
        listed = sameContents_->otherOf(id);
    }
    if (listed) {
        return OtherReceipt{.id = *listed, .archivedPath = {}};
    }
    auto archived = sameContents_->archivedFileOf(id);
    if (!archived) {
        const auto receipt = store_->receipt(id);
        archived = receipt ? archivedPurchase(*receipt) : std::nullopt;
    }
    return archived ? std::optional(OtherReceipt{.id = {}, .archivedPath = *archived}) : std::nullopt;
}

int PossibleDuplicates::repeatsAmong(const QStringList &ids) const {
    const QSet<QString> batch(ids.begin(), ids.end());
    QSet<QString> before;
    int repeats = 0;
    for (const QString &id : ids) {
        const auto other = otherOf(id);
        if (other && (before.contains(other->id) || !batch.contains(other->id))) {
            ++repeats;
        }
        before.insert(id);
    }
    return repeats;
}

void PossibleDuplicates::takeArchived() {
    archivedByDate_.clear();
    for (qsizetype index = 0; index < archived_->receipts().size(); ++index) {
        const QString &date = archived_->receipts().at(index).row.date;
        if (!date.isEmpty()) {
            archivedByDate_[date].append(index);
        }
    }
    QSet<QString> ids;
    for (const Receipt &receipt : store_->receipts()) {
        ids.insert(receipt.id);
    }
    Q_EMIT changed(ids);
}

std::optional<QString> PossibleDuplicates::archivedPurchase(const Receipt &receipt) const {
    if (receipt.status != ReceiptStatus::done || !receipt.date || !receipt.amount) {
        return std::nullopt;
    }
    const QList<qsizetype> ofTheDay = archivedByDate_.value(*receipt.date);
    for (const qsizetype index : ofTheDay) {
        const ArchivedReceipt &archived = archived_->receipts().at(index);
        if (isSamePurchase(receipt, archived.row)) {
            return archived.path;
        }
    }
    return std::nullopt;
}

} // namespace fennick
