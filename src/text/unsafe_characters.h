#pragma once

#include <QString>

namespace fennick {

// `text` without the nine characters that some system refuses in file names: \ / : * ? " < > |
// They are deleted, not replaced.
QString withoutUnsafeCharacters(const QString &text);

} // namespace fennick
