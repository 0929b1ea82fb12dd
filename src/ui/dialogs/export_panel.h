#pragma once

#include "export/export_service.h"
#include "model/receipt.h"

#include <QList>
#include <QWidget>

#include <expected>
#include <optional>

namespace fennick {

struct ExportFile {
    QString proposedName;
    QString extension;
    QString mimeType;
};

// Asks with the desktop's save panel for a path, which always ends with the extension. Returns nothing if the
// user cancels. Blocks until the panel is closed.
std::optional<QString> chooseExportFile(QWidget *parent, const ExportFile &file);

// A file that the user has chosen for a ledger, and whether the ledger could be written to it.
struct ExportedLedger {
    QString path;
    std::expected<void, FileProblem> written;
};

// Asks with the desktop's save panel for a file and writes the ledger of these receipts to it. The name
// always ends with the format's extension. Returns nothing if the user cancels. Blocks until the panel is
// closed.
std::optional<ExportedLedger> exportLedger(QWidget *parent, const QList<Receipt> &receipts,
                                           ExportService::Format format);

} // namespace fennick
