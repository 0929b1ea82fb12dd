#include "pipeline/undo/deed_text.h"

#include "text/characters.h"
#include "text/display_text.h"

namespace fennick {

namespace {

constexpr qsizetype longestName = 40; // characters

} // namespace

QString shortNameOf(const Receipt &receipt) {
    const QString location = receipt.location.value_or(QString());
    const QString name = displayText(location.isEmpty() ? receipt.fileName : location);
    const QString start = firstCharacters(name, longestName);
    return start == name ? name : start + u'…';
}

} // namespace fennick
