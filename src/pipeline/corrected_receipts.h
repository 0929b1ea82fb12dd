#pragma once

#include "model/whole_file.h"

#include <QSet>
#include <QString>

namespace fennick {

// Remembers which receipts have fields that a person typed, so that nobody loses them to another scan
// unasked. Kept in "corrected.json" in the data folder. A receipt that leaves the list stays remembered, for
// it may come back. Owned by AppState; main thread.
class CorrectedReceipts {
public:
    CorrectedReceipts();

    bool contains(const QString &id) const { return ids_.contains(id); }
    void insert(const QString &id);
    void remove(const QString &id);

private:
    void load();
    void save();

    WholeFile file_;
    QSet<QString> ids_;
};

} // namespace fennick
