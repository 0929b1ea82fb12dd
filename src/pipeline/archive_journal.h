#pragma once

#include "export/export_service.h"
#include "model/whole_file.h"

#include <QString>

#include <optional>

namespace fennick {

// An archive that has been begun: the ledger's path, in whose folder the receipt files go.
struct PendingArchive {
    QString ledgerPath;
    ExportService::Format format;
};

// Remembers, from the first step of an archive to its last, what is being done, so that the next start can
// carry through what a killed program has left half done. Kept in "archiving.json" in the data folder; main
// thread only.
class ArchiveJournal {
public:
    ArchiveJournal();

    [[nodiscard]] std::optional<PendingArchive> pending() const;
    void begin(const PendingArchive &archive);
    void end();

private:
    WholeFile file_;
};

} // namespace fennick
