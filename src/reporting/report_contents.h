#pragma once

#include "model/receipt.h"
#include "reporting/report_description.h"

#include <QList>
#include <QString>

namespace fennick {

// What a report of these receipts says, in their order. `name` is whose report it is; it may be empty.
// `folder` is the watched one.
[[nodiscard]] ReportDescription describeReport(const QList<Receipt> &receipts, const QString &name,
                                               const QString &folder);

} // namespace fennick
