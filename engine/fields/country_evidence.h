#pragma once

#include "engine/recognition/text_line.h"

#include <QHash>
#include <QString>

namespace fennick::engine {

// How many different things in `reading` only receipts of a currency's country bear (legal forms, tax
// numbers, places), by ISO 4217 code. Codes without any are left out.
QHash<QString, int> countryEvidence(const Reading &reading);

} // namespace fennick::engine
