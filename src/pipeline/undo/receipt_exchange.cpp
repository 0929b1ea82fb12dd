#include "pipeline/undo/receipt_exchange.h"

#include "extraction/gemini_error.h"
#include "model/receipt_store.h"
#include "pipeline/renamed_paths.h"
#include "pipeline/watched_folder.h"
#include "platform/file_operations.h"
#include "platform/file_system_answer.h"
#include "platform/free_path.h"
#include "platform/regular_file.h"
#include "text/path_text.h"

namespace fennick {

namespace {

// Takes fields over one by one.
class FieldExchange {
public:
    FieldExchange(Receipt &receipt, const Receipt &from, const Receipt &to)
        : receipt_(receipt)
        , from_(from)
        , to_(to) {}

    template <typename Value>
    void take(Value Receipt::*field) {
        if (from_.*field == to_.*field) {
            return;
        }
        if (receipt_.*field == from_.*field) {
            receipt_.*field = to_.*field;
        } else if (receipt_.*field != to_.*field) {
            isComplete_ = false;
        }
    }

    bool isComplete() const { return isComplete_; }

private:
    Receipt &receipt_;
    const Receipt &from_;
    const Receipt &to_;
    bool isComplete_ = true;
};

// Whether all of the fields could be exchanged.
bool exchangeFields(Receipt &receipt, const Receipt &from, const Receipt &to) {
    FieldExchange fields(receipt, from, to);
    fields.take(&Receipt::date);
    fields.take(&Receipt::time);
    fields.take(&Receipt::amount);
    fields.take(&Receipt::currency);
    fields.take(&Receipt::location);
    fields.take(&Receipt::category);
    fields.take(&Receipt::summary);
    fields.take(&Receipt::status);
    fields.take(&Receipt::error);
    return fields.isComplete();
}

} // namespace

ReceiptExchange::ReceiptExchange(ReceiptStore *store, const WatchedFolder *watchedFolder,
                                 RenamedPaths *renamedPaths, QList<UndoProblem> *problems)
    : store_(store)
    , watchedFolder_(watchedFolder)
    , renamedPaths_(renamedPaths)
    , problems_(problems) {}

void ReceiptExchange::exchange(const Receipt &from, const Receipt &to) {
    auto receipt = store_->receipt(from.id);
    if (!receipt) {
        problems_->append({UndoProblem::Kind::notListed, from.fileName});
        return;
    }
    if (receipt->status == ReceiptStatus::processing) {
        problems_->append({UndoProblem::Kind::beingRead, receipt->fileName});
        return;
    }
    if (!exchangeFields(*receipt, from, to)) {
        problems_->append({UndoProblem::Kind::changed, receipt->fileName});
    }
    if (from.fileName == to.fileName || receipt->fileName == to.fileName) {
        store_->update(*receipt);
    } else {
        rename(*receipt, to.fileName);
    }
}

void ReceiptExchange::rename(Receipt receipt, const QString &name) {
    if (!fileSystemAnswers(receipt.filePath)) {
        problems_->append({UndoProblem::Kind::noAnswer, receipt.fileName});
        store_->update(receipt);
        return;
    }
    if (!isTaken(receipt.filePath)) {
        problems_->append({UndoProblem::Kind::fileMissing, receipt.fileName});
        store_->update(receipt);
        return;
    }
    const QString target = freePath(parentFolder(receipt.filePath), name);
    if (const QString free = lastPathComponent(target); free != name) {
        problems_->append({UndoProblem::Kind::nameTaken, name, free});
    }
    journal_.begin({receipt.id, receipt.filePath, target});
    store_->update(receipt);
    move(std::move(receipt), target);
    journal_.end();
}

void ReceiptExchange::move(Receipt receipt, const QString &target) {
    const auto moved = FileOperations::moveWithoutReplacing(receipt.filePath, target, watchedFolder_->path);
    if (!moved) {
        problems_->append(
            {UndoProblem::Kind::notMoved, receipt.fileName, inUsersLanguage(moved.error().description())});
        return;
    }
    renamedPaths_->insert(target, std::chrono::steady_clock::now());
    receipt.fileName = lastPathComponent(target);
    receipt.filePath = target;
    store_->update(receipt);
}

void ReceiptExchange::resume() {
    const auto renaming = journal_.pending();
    if (!renaming || !fileSystemAnswers(renaming->from)) {
        return;
    }
    auto receipt = store_->receipt(renaming->receiptId);
    if (receipt && receipt->filePath == renaming->from) {
        const bool isMoved = !isTaken(renaming->from);
        if (!isMoved) {
            move(*receipt, renaming->to); // nothing is replaced
        } else if (fileStateAt(renaming->to).kind == FileKind::regular) {
            receipt->fileName = lastPathComponent(renaming->to);
            receipt->filePath = renaming->to;
            store_->update(*receipt);
        }
    }
    journal_.end();
}

} // namespace fennick
