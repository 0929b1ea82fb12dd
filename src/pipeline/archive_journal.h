#pragma once

#include "export/export_service.h"
#include "model/whole_file.h"

#include <QString>

#include <optional>

namespace fennick {

// An archive in progress: the path of its ledger, into whose folder the receipt files go.
struct PendingArchive {
    QString ledgerPath;
    ExportService::Format format;
};

// Records an archive from its first step to its last, so that the next start can complete what a killed
// program has left unfinished. Stored in "archiving.json" in the data folder; main thread only.
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
