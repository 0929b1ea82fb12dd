#pragma once

#include "model/receipt.h"
#include "pipeline/undo/undoable_deed.h"

#include <QCoreApplication>
#include <QList>
#include <QSet>
#include <QStringList>

#include <optional>

namespace fennick {

class CorrectedReceipts;
class ReceiptExchange;
class ReceiptStore;
class RetryAll;
class ScanRun;

// That receipts are, or were, scanned once more. Taken back, each is what it was before: scans that have not
// begun do not begin, and what a scan under way reads is disregarded.
class RetryDeed : public UndoableDeed {
    Q_DECLARE_TR_FUNCTIONS(fennick::RetryDeed)

public:
    RetryDeed(const QList<Receipt> &receipts, ReceiptStore *store, ScanRun *scanRun, RetryAll *retryAll,
              CorrectedReceipts *corrected, ReceiptExchange *exchange);

    void undo() override;

protected:
    void doAgain() override;

private:
    struct Retried {
        Receipt before;
        bool wasCorrected = false;
        std::optional<Receipt> after; // what was taken back, if its scan had ended
    };

    void takeBack(Retried &retried);
    void endScan(Receipt receipt, const Receipt &before);

    QList<Retried> receipts_;
    ReceiptStore *store_;
    ScanRun *scanRun_;
    RetryAll *retryAll_;
    CorrectedReceipts *corrected_;
    ReceiptExchange *exchange_;
};

} // namespace fennick
