#pragma once

#include <QString>

namespace fennick {

// The alternative for a file name that is taken: a blank and the number in parentheses before the extension,
// as in "name (2).pdf".
inline QString numberedName(const QString &stem, const QString &extension, int number) {
    using namespace Qt::StringLiterals;
    const QString numbered = stem + u" ("_s + QString::number(number) + u')';
    return extension.isEmpty() ? numbered : numbered + u'.' + extension;
}

} // namespace fennick
