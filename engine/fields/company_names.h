#pragma once

#include "engine/fields/merchant_lines.h"

#include <QString>

// The forms that company names have.
namespace fennick::engine {

// `line` without what tills put around a name ("*** Corner Shop ***"), without a second column, and without
// the registration number that follows it; the legal form put right where recognition misread it ("SON BHD").
[[nodiscard]] QString companyName(const QString &line, const MerchantLines &lines);

// Whether `name` is what follows a name only, as "Co. (M) Sdn Bhd" does: its first line was not read.
[[nodiscard]] bool isOnlyLegalForm(const QString &name, const MerchantLines &lines);

} // namespace fennick::engine
