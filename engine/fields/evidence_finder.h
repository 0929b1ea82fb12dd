#pragma once

#include "engine/fields/evidence.h"
#include "engine/fields/reading_facts.h"
#include "engine/fields/receipt_fields.h"

#include <QList>

namespace fennick::engine {

// Where the values of `fields` stand, according to the reading that shows each of them best. It does not
// matter who found the values: another service or a person may have.
[[nodiscard]] ReceiptEvidence findEvidence(const ReceiptFields &fields, const QList<ReadingFacts> &facts);

} // namespace fennick::engine
