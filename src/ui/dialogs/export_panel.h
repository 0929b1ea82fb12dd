#pragma once

#include "export/export_service.h"
#include "model/receipt.h"

#include <QList>
#include <QWidget>

#include <optional>

namespace fennick {

// Asks in the desktop's save panel where to, and writes the ledger of these receipts there. The name always
// ends with the format's extension. Returns the path, also when the write failed; nothing when the user
// cancels. Blocks until the panel is closed.
std::optional<QString> exportLedger(QWidget *parent, const QList<Receipt> &receipts,
                                    ExportService::Format format);

} // namespace fennick
