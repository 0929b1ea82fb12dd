#pragma once

#include "model/receipt.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <optional>

namespace fennick {

class ReceiptStore;
struct ReceiptsChange;

// Which listed receipts may be one purchase twice: their amount, currency and date are the same, and so is
// the merchant but for its spelling. Follows the store, whose changes cost a time that grows with the
// receipts of one amount and day, not with the list. Owned by PossibleDuplicates; main thread.
class SamePurchases : public QObject {
    Q_OBJECT

public:
    explicit SamePurchases(const ReceiptStore *store, QObject *parent = nullptr);

    // The receipt that this one may be a duplicate of: of several, one that was there before.
    [[nodiscard]] std::optional<QString> otherOf(const QString &id) const;

Q_SIGNALS:
    // These receipts have become possible duplicates, or of another receipt, or are none any more.
    void changed(const QSet<QString> &ids);

private:
    // What must be equal to the letter.
    struct Purchase {
        QString date;
        double amount = 0;
        QString currency; // empty without one
        bool operator==(const Purchase &other) const = default;
        friend size_t qHash(const Purchase &purchase, size_t seed = 0) {
            return qHashMulti(seed, purchase.date, purchase.amount, purchase.currency);
        }
    };
    struct Entry {
        Purchase purchase;
        QString merchant;
    };
    using Merchants = QHash<QString, QStringList>; // identifiers, those that came first in front

    static std::optional<Entry> entryOf(const Receipt &receipt);
    void follow(const ReceiptsChange &change);
    void take(const Receipt &receipt, QSet<Purchase> &touched);
    void drop(const QString &id, QSet<Purchase> &touched);
    void dropGone(QSet<Purchase> &touched);
    void compare(const Purchase &purchase, QSet<QString> &changed);
    QStringList sameAs(const QString &merchant, const Merchants &merchants) const;

    const ReceiptStore *store_;
    QHash<QString, Entry> entries_; // by identifier
    QHash<Purchase, Merchants> purchases_;
    QHash<QString, QString> others_; // by identifier
};

} // namespace fennick
