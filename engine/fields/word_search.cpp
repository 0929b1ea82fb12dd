#include "engine/fields/word_search.h"

#include "text/characters.h"

#include <algorithm>

namespace fennick::engine {

QString wordsOf(const QString &text) {
    QString words = QStringLiteral(" ");
    const QString lowered = lowerCased(text);
    for (const QChar character : lowered) {
        if (character == u'\'' || character == u'\u2019') {
            continue;
        }
        if (character.isLetterOrNumber() || character.isMark()) {
            words += character;
        } else if (!words.endsWith(u' ')) {
            words += u' ';
        }
    }
    if (!words.endsWith(u' ')) {
        words += u' ';
    }
    return words;
}

bool containsPhrase(const QString &words, const QString &phrase) {
    return words.contains(u' ' + phrase + u' ');
}

bool containsAnyPhrase(const QString &words, const QStringList &phrases) {
    return std::ranges::any_of(phrases, [&](const QString &phrase) { return containsPhrase(words, phrase); });
}

} // namespace fennick::engine
