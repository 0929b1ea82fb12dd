#include "pipeline/retry_all.h"

#include "model/receipt_store.h"
#include "pipeline/tasks.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace fennick {

namespace {

constexpr int mostScansAtOnce = 4;
constexpr int mostRefusals = 8; // one after the other: about five minutes

} // namespace

RetryAll::RetryAll(const ReceiptStore *store, Scan scan, Tasks *tasks, RetryPauses pauses)
    : store_(store)
    , scan_(std::move(scan))
    , tasks_(tasks)
    , pauses_(pauses) {
    for (QTimer *const timer : {&pause_, &turn_}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, &RetryAll::goOn);
    }
}

void RetryAll::addAllFailed() {
    QList<Receipt> failed;
    for (const Receipt &receipt : store_->receipts()) {
        if (receipt.status == ReceiptStatus::error) {
            failed.append(receipt);
        }
    }
    scanLater(failed);
}

void RetryAll::add(const QStringList &ids) {
    QList<Receipt> receipts;
    for (const QString &id : ids) {
        const auto receipt = store_->receipt(id);
        if (receipt && receipt->status != ReceiptStatus::processing) {
            receipts.append(*receipt);
        }
    }
    scanLater(receipts);
}

void RetryAll::scanLater(const QList<Receipt> &receipts) {
    QList<Receipt> appended;
    for (const Receipt &receipt : receipts) {
        if (append(receipt)) {
            appended.append(receipt);
        }
    }
    if (!appended.isEmpty()) {
        Q_EMIT added(appended);
    }
    goOn();
}

bool RetryAll::append(const Receipt &receipt) {
    isStopping_ = false;
    if (ids_.contains(receipt.id)) {
        return false;
    }
    ids_.insert(receipt.id);
    waiting_.append({receipt.id, receipt.status});
    return true;
}

void RetryAll::leaveOut(const QString &id) {
    if (waiting_.removeIf([&id](const Wanted &wanted) { return wanted.id == id; }) > 0) {
        ids_.remove(id);
        turn_.start();
    }
}

void RetryAll::stop() {
    for (const Wanted &wanted : std::as_const(waiting_)) {
        ids_.remove(wanted.id);
    }
    waiting_.clear();
    isStopping_ = true;
    pause_.stop();
    turn_.start();
    Q_EMIT changed();
}

void RetryAll::goOn() {
    const int most = refusals_ == 0 ? mostScansAtOnce : 1;
    while (!waiting_.isEmpty() && running_ < most && !pause_.isActive()) {
        const Wanted wanted = waiting_.takeFirst();
        const auto receipt = store_->receipt(wanted.id);
        if (receipt && receipt->status == wanted.status) {
            ++running_;
            tasks_->start(scanOne(wanted));
        } else {
            ids_.remove(wanted.id);
        }
    }
    if (!isUnderWay()) {
        finished_ = 0;
        refusals_ = 0;
        pause_.stop();
    }
    Q_EMIT changed();
}

QCoro::Task<> RetryAll::scanOne(Wanted wanted) {
    const QPointer<RetryAll> self(this);
    const ScanOutcome outcome = co_await scan_(wanted.id);
    if (self) {
        take(wanted, outcome);
    }
}

void RetryAll::take(const Wanted &wanted, ScanOutcome outcome) {
    --running_;
    ids_.remove(wanted.id);
    if (outcome == ScanOutcome::tooManyRequests && !isStopping_) {
        slowDown(wanted);
    } else {
        ++finished_;
    }
    if (outcome == ScanOutcome::done && !pause_.isActive()) {
        refusals_ = 0;
    }
    turn_.start();
}

// Scans that were under way together are refused together: that counts once.
void RetryAll::slowDown(const Wanted &wanted) {
    if (!pause_.isActive()) {
        const auto pause = pauses_.first * (1 << refusals_);
        ++refusals_;
        pause_.start(std::min<std::chrono::milliseconds>(pause, pauses_.longest));
    }
    const auto receipt = store_->receipt(wanted.id);
    if (refusals_ == mostRefusals) {
        stop();
    } else if (receipt) {
        ids_.insert(wanted.id);
        waiting_.prepend({wanted.id, receipt->status});
    }
}

} // namespace fennick
