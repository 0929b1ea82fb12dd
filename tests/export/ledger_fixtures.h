#pragma once

#include "model/receipt.h"

#include <QByteArray>
#include <QList>

namespace fennick::test {

// Five receipts: a plain one, an empty one in error, one full of characters that need escaping, one in
// processing without a currency and with a line break, one in a currency without decimals and beyond Latin.
// The files ledger_batch.* in tests/data show them as a user in the USA sees them.
QList<Receipt> batch();

// `count` receipts of everyday length in four currencies.
QList<Receipt> manyReceipts(int count);

// A file of tests/data.
QByteArray expectedFile(const QString &name);

} // namespace fennick::test
