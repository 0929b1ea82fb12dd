#include "engine/knowledge/words.h"

#include "text/characters.h"

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

QString wordsOf(const QString &text) {
    QString words = u" "_s;
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

QString withoutAccents(const QString &text) {
    QString plain;
    const QString decomposed = text.normalized(QString::NormalizationForm_D);
    for (const QChar character : decomposed) {
        switch (character.unicode()) {
        case u'ß':
            plain += u"ss";
            break;
        case u'æ':
            plain += u"ae";
            break;
        case u'ø':
            plain += u'o';
            break;
        case u'đ':
            plain += u'd';
            break;
        case u'ł':
            plain += u'l';
            break;
        case u'ı':
            plain += u'i';
            break;
        default:
            if (!character.isMark()) {
                plain += character;
            }
        }
    }
    return plain.normalized(QString::NormalizationForm_C);
}

bool containsPhrase(const QString &words, const QString &phrase) {
    return words.contains(u' ' + phrase + u' ');
}

bool containsAnyPhrase(const QString &words, const QStringList &phrases) {
    return std::ranges::any_of(phrases, [&](const QString &phrase) { return containsPhrase(words, phrase); });
}

} // namespace fennick::engine
