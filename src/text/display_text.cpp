#include "text/display_text.h"

namespace fennick {

namespace {

// Unicode's "Explicit directional" format characters.
bool isDisguise(QChar character) {
    const char16_t code = character.unicode();
    return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

bool breaksTheLine(QChar character) {
    const auto category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

} // namespace

QString displayText(const QString &text) {
    QString shown = text;
    for (QChar &character : shown) {
        if (isDisguise(character)) {
            character = QChar::ReplacementCharacter;
        } else if (breaksTheLine(character)) {
            character = u' ';
        }
    }
    return shown;
}

} // namespace fennick
