#pragma once

#include "model/receipt.h"

#include <QList>

namespace fennick {

// `count` finished receipts of all kinds of texts and amounts, always the same ones.
QList<Receipt> madeUpReceipts(qsizetype count);

} // namespace fennick
