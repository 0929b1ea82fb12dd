#pragma once

#include "export/export_service.h"
#include "model/receipt.h"

#include <QList>
#include <QWidget>

#include <optional>

namespace fennick {

// Asks with the desktop's save panel for a file and writes the ledger of these receipts to it. The name
// always ends with the format's extension. Returns the path, even if writing failed; nothing if the user
// cancels. Blocks until the panel is closed.
std::optional<QString> exportLedger(QWidget *parent, const QList<Receipt> &receipts,
                                    ExportService::Format format);

} // namespace fennick
