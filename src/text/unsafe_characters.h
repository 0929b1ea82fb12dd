#pragma once

#include <QString>

namespace fennick {

// Deletes the nine characters / \ : * ? " < > | from `text`: none of them is allowed in names on all
// systems.
QString withoutUnsafeCharacters(const QString &text);

} // namespace fennick
