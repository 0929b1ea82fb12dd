#include "text/unsafe_characters.h"

namespace fennick {

QString withoutUnsafeCharacters(const QString &text) {
    constexpr QStringView unsafe = u"\\/:*?\"<>|";
    QString safe = text;
    safe.removeIf([unsafe](QChar character) { return unsafe.contains(character); });
    return safe;
}

} // namespace fennick
