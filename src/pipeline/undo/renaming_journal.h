#pragma once

#include "model/whole_file.h"

#include <QString>

#include <optional>

namespace fennick {

// The renaming of a receipt's file that is under way.
struct PendingRenaming {
    QString receiptId;
    QString from; // absolute paths in one folder
    QString to;
};

// Records a renaming that follows from no field of the receipt, so that the next start can complete what a
// killed program has left unfinished. Stored in "renaming.json" in the data folder; main thread only.
class RenamingJournal {
public:
    RenamingJournal();

    [[nodiscard]] std::optional<PendingRenaming> pending() const;
    void begin(const PendingRenaming &renaming);
    void end();

private:
    WholeFile file_;
};

} // namespace fennick
