#pragma once

#include "model/whole_file.h"

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QString>

#include <optional>

namespace fennick {

class ReceiptStore;

// Remembers since when each path is ignored, because "ignored.json" has no place for it. Kept in
// "ignored-dates.json" in the data folder. Owned by AppState; main thread.
class IgnoredDates : public QObject {
    Q_OBJECT

public:
    explicit IgnoredDates(const ReceiptStore *store);

    // Absent for a path that was ignored before the program remembered it.
    std::optional<QDateTime> date(const QString &path) const;

private:
    void load();
    void follow();
    void save();

    const ReceiptStore *store_;
    WholeFile file_;
    QHash<QString, QDateTime> dates_; // invalid where it is not known
};

} // namespace fennick
