#include "engine/fields/word_repair.h"

#include "text/edit_distance.h"

#include <QStringList>

#include <algorithm>
#include <cstdlib>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

bool hasLetter(const QString &word) {
    return std::ranges::any_of(word, [](QChar character) { return character.isLetter(); });
}

QString withLettersForDigits(QString word) {
    for (QChar &character : word) {
        switch (character.unicode()) {
        case u'0':
            character = u'o';
            break;
        case u'1':
            character = u'l';
            break;
        case u'4':
            character = u'a';
            break;
        case u'5':
            character = u's';
            break;
        case u'6':
            character = u'g';
            break;
        case u'8':
            character = u'b';
            break;
        default:
            break;
        }
    }
    return word;
}

int tolerated(qsizetype length) {
    if (length < 5) {
        return 0;
    }
    return length < 9 ? 1 : 2;
}

QString repaired(const QString &word, const QSet<QString> &vocabulary) {
    if (word.size() < 3 || !hasLetter(word) || vocabulary.contains(word)) {
        return word;
    }
    const QString letters = withLettersForDigits(word);
    if (vocabulary.contains(letters)) {
        return letters;
    }
    QString best;
    int bestDistance = tolerated(letters.size()) + 1;
    bool isOnlyOne = false;
    for (const QString &candidate : vocabulary) {
        const qsizetype difference = std::abs(candidate.size() - letters.size());
        if (difference > 2 || tolerated(candidate.size()) == 0) {
            continue;
        }
        const int distance = editDistance(letters, candidate);
        if (distance > tolerated(std::min(candidate.size(), letters.size() + 1)) || distance > bestDistance) {
            continue;
        }
        isOnlyOne = distance < bestDistance;
        bestDistance = distance;
        best = candidate;
    }
    return isOnlyOne ? best : word;
}

} // namespace

QString repairedWords(const QString &words, const QSet<QString> &vocabulary) {
    QString result = u" "_s;
    const QStringList parts = words.split(u' ', Qt::SkipEmptyParts);
    for (const QString &word : parts) {
        result += repaired(word, vocabulary) + u' ';
    }
    return result;
}

} // namespace fennick::engine
