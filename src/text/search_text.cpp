#include "text/search_text.h"

#include "text/characters.h"

#include <algorithm>

namespace fennick {

namespace {

bool isAscii(const QString &text) {
    return std::ranges::all_of(text, [](QChar character) { return character.unicode() < 0x80; });
}

} // namespace

QString searchText(const QString &text) {
    if (isAscii(text)) {
        return text.toLower(); // the same, and most texts are
    }
    QString decomposed = text.normalized(QString::NormalizationForm_KD);
    decomposed.removeIf([](QChar character) { return character.category() == QChar::Mark_NonSpacing; });
    return upperCased(decomposed).toCaseFolded(); // "ß" is "SS" in upper case alone
}

bool containsWord(const QString &text, const QString &word) {
    for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
        const qsizetype end = at + word.size();
        const bool begins = at == 0 || !text[at - 1].isLetterOrNumber();
        const bool ends = end == text.size() || !text[end].isLetterOrNumber();
        if (begins && ends) {
            return true;
        }
    }
    return false;
}

} // namespace fennick
