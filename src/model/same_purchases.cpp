#include "model/same_purchases.h"

#include "model/merchant_likeness.h"
#include "model/receipt_store.h"

#include <ranges>

namespace fennick {

namespace {

// Comparing each with each takes a time that grows with its square. More merchants with one amount on one day
// are no likely list.
constexpr qsizetype mostMerchantsToCompare = 50;

} // namespace

SamePurchases::SamePurchases(const ReceiptStore *store, QObject *parent)
    : QObject(parent)
    , store_(store) {
    QSet<Purchase> touched;
    for (const Receipt &receipt : std::views::reverse(store->receipts())) { // the oldest first
        take(receipt, touched);
    }
    QSet<QString> changed;
    for (const Purchase &purchase : std::as_const(touched)) {
        compare(purchase, changed);
    }
    connect(store, &ReceiptStore::receiptsChanged, this, &SamePurchases::follow);
}

std::optional<QString> SamePurchases::otherOf(const QString &id) const {
    const auto other = others_.constFind(id);
    return other == others_.constEnd() ? std::nullopt : std::optional(*other);
}

std::optional<SamePurchases::Entry> SamePurchases::entryOf(const Receipt &receipt) {
    const QString merchant = merchantKey(receipt.location.value_or(QString()));
    if (receipt.status != ReceiptStatus::done || !receipt.date || !receipt.amount || merchant.isEmpty()) {
        return std::nullopt;
    }
    return Entry{{*receipt.date, *receipt.amount, receipt.currency.value_or(QString())}, merchant};
}

void SamePurchases::follow(const ReceiptsChange &change) {
    QSet<Purchase> touched;
    if (change.kind == ReceiptsChange::Kind::removed || change.kind == ReceiptsChange::Kind::cleared) {
        dropGone(touched);
    } else {
        const bool areSeveral = change.kind == ReceiptsChange::Kind::inserted;
        for (qsizetype row = areSeveral ? change.from : change.to; row <= change.to; ++row) {
            take(store_->receipts().at(row), touched);
        }
    }
    QSet<QString> changed;
    for (const Purchase &purchase : std::as_const(touched)) {
        compare(purchase, changed);
    }
    if (!changed.isEmpty()) {
        Q_EMIT this->changed(changed);
    }
}

void SamePurchases::take(const Receipt &receipt, QSet<Purchase> &touched) {
    const auto entry = entryOf(receipt);
    const auto before = entries_.constFind(receipt.id);
    const bool isSame = entry && before != entries_.constEnd() && before->purchase == entry->purchase &&
                        before->merchant == entry->merchant;
    if (isSame) {
        return;
    }
    drop(receipt.id, touched);
    if (entry) {
        entries_.insert(receipt.id, *entry);
        purchases_[entry->purchase][entry->merchant].append(receipt.id);
        touched.insert(entry->purchase);
    }
}

void SamePurchases::drop(const QString &id, QSet<Purchase> &touched) {
    const auto found = entries_.find(id);
    if (found == entries_.end()) {
        return;
    }
    const Entry entry = *found;
    entries_.erase(found);
    Merchants &merchants = purchases_[entry.purchase];
    QStringList &ids = merchants[entry.merchant];
    ids.removeOne(id);
    if (ids.isEmpty()) {
        merchants.remove(entry.merchant);
    }
    touched.insert(entry.purchase);
}

void SamePurchases::dropGone(QSet<Purchase> &touched) {
    const QStringList ids = entries_.keys();
    for (const QString &id : ids) {
        if (!store_->hasReceipt(id)) {
            drop(id, touched);
        }
    }
    for (auto other = others_.begin(); other != others_.end();) {
        other = entries_.contains(other.key()) ? std::next(other) : others_.erase(other);
    }
}

// Everything that was concluded of this purchase anew.
void SamePurchases::compare(const Purchase &purchase, QSet<QString> &changed) {
    const auto conclude = [this, &changed](const QString &id, const QString &other) {
        if (others_.value(id) == other) {
            return;
        }
        changed.insert(id);
        if (other.isEmpty()) {
            others_.remove(id);
        } else {
            others_.insert(id, other);
        }
    };
    const Merchants merchants = purchases_.value(purchase);
    if (merchants.isEmpty()) {
        purchases_.remove(purchase);
    }
    for (auto merchant = merchants.begin(); merchant != merchants.end(); ++merchant) {
        const QStringList same = sameAs(merchant.key(), merchants);
        for (const QString &id : merchant.value()) {
            const QString other = same.first() == id ? same.value(1) : same.first();
            conclude(id, other);
        }
    }
}

QStringList SamePurchases::sameAs(const QString &merchant, const Merchants &merchants) const {
    QStringList same = merchants.value(merchant);
    if (merchants.size() > mostMerchantsToCompare) {
        return same;
    }
    for (auto other = merchants.begin(); other != merchants.end(); ++other) {
        if (other.key() != merchant && isSameMerchant(merchant, other.key())) {
            same += other.value();
        }
    }
    return same;
}

} // namespace fennick
