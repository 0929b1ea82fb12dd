#include "pipeline/undo/retry_deed.h"

#include "model/receipt_store.h"
#include "pipeline/corrected_receipts.h"
#include "pipeline/retry_all.h"
#include "pipeline/scan_run.h"
#include "pipeline/undo/deed_text.h"
#include "pipeline/undo/receipt_exchange.h"

#include <utility>

namespace fennick {

RetryDeed::RetryDeed(const QList<Receipt> &receipts, ReceiptStore *store, ScanRun *scanRun,
                     RetryAll *retryAll, CorrectedReceipts *corrected, ReceiptExchange *exchange)
    : store_(store)
    , scanRun_(scanRun)
    , retryAll_(retryAll)
    , corrected_(corrected)
    , exchange_(exchange) {
    for (const Receipt &receipt : receipts) {
        receipts_.append({receipt, corrected->contains(receipt.id), {}});
    }
    const int count = static_cast<int>(receipts.size());
    //: What the menu's Undo takes back. %1 is a place or a file's name.
    setText(count == 1 ? tr("Retry of “%1”").arg(shortNameOf(receipts.first()))
                       //: What the menu's Undo takes back.
                       : tr("Retry of %n Receipts", nullptr, count));
}

void RetryDeed::undo() {
    for (Retried &retried : receipts_) {
        takeBack(retried);
    }
}

void RetryDeed::takeBack(Retried &retried) {
    const Receipt &before = retried.before;
    retryAll_->leaveOut(before.id);
    retried.after.reset();
    const auto receipt = store_->receipt(before.id);
    if (receipt && receipt->status == ReceiptStatus::processing) {
        endScan(*receipt, before);
        return;
    }
    if (receipt && *receipt == before) {
        return;
    }
    retried.after = receipt;
    exchange_->exchange(receipt.value_or(before), before);
    if (retried.wasCorrected) {
        corrected_->insert(before.id);
    }
}

void RetryDeed::endScan(Receipt receipt, const Receipt &before) {
    scanRun_->disregard(receipt.id);
    receipt.status = before.status;
    receipt.error = before.error;
    store_->update(receipt);
}

// What had been read is put in place again; the others are scanned.
void RetryDeed::doAgain() {
    QStringList unread;
    for (const Retried &retried : std::as_const(receipts_)) {
        if (!retried.after) {
            unread.append(retried.before.id);
            continue;
        }
        corrected_->remove(retried.before.id);
        exchange_->exchange(retried.before, *retried.after);
    }
    retryAll_->add(unread);
}

} // namespace fennick
