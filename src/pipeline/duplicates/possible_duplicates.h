#pragma once

#include "model/same_purchases.h"
#include "pipeline/duplicates/archived_receipts.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <optional>

namespace fennick {

class SameContents;

// What a receipt may be a duplicate of: a listed receipt or an archived one.
struct OtherReceipt {
    QString id;           // of the listed one, or empty
    QString archivedPath; // of the archived one's file, or empty
    bool operator==(const OtherReceipt &other) const = default;
};

// Which listed receipts may be duplicates of another that is listed or archived: because they are the same
// purchase, or because their files have the same content. It only reports them; it never removes a receipt.
// Owned by AppState; main thread.
class PossibleDuplicates : public QObject {
    Q_OBJECT

public:
    PossibleDuplicates(const ReceiptStore *store, const ArchivedReceipts *archived,
                       const SameContents *sameContents);

    bool contains(const QString &id) const { return otherOf(id).has_value(); }

    // The receipt that this one may be a duplicate of: a listed one if there is any, and of several one that
    // was there before.
    [[nodiscard]] std::optional<OtherReceipt> otherOf(const QString &id) const;

    // How many of these receipts, which came in this order, may be duplicates of one that was there before.
    int repeatsAmong(const QStringList &ids) const;

Q_SIGNALS:
    // These receipts have become possible duplicates, or of another receipt, or are none any more.
    void changed(const QSet<QString> &ids);

private:
    void takeArchived();
    std::optional<QString> archivedPurchase(const Receipt &receipt) const;

    const ReceiptStore *store_;
    const ArchivedReceipts *archived_;
    const SameContents *sameContents_;
    SamePurchases samePurchases_;
    QHash<QString, QList<qsizetype>> archivedByDate_; // as indexes of the archived receipts
};

} // namespace fennick
