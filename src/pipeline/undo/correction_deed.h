#pragma once

#include "model/receipt.h"
#include "pipeline/undo/undoable_deed.h"

#include <QCoreApplication>

namespace fennick {

class CorrectedReceipts;
class ReceiptExchange;

// That a person has corrected fields of a receipt, for which its file may have been renamed.
class CorrectionDeed : public UndoableDeed {
    Q_DECLARE_TR_FUNCTIONS(fennick::CorrectionDeed)

public:
    // `isFirst` is whether no field of the receipt had been corrected before.
    CorrectionDeed(Receipt before, Receipt after, bool isFirst, ReceiptExchange *exchange,
                   CorrectedReceipts *corrected);

    void undo() override;

protected:
    void doAgain() override;

private:
    Receipt before_;
    Receipt after_;
    bool isFirst_;
    ReceiptExchange *exchange_;
    CorrectedReceipts *corrected_;
};

} // namespace fennick
