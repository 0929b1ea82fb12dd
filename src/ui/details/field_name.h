#pragma once

#include "pipeline/typed_fields.h"

#include <QString>

namespace fennick {

// The field's name in the user's language.
QString fieldName(ReceiptField field);

} // namespace fennick
