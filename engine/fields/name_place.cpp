#include "engine/fields/name_place.h"

#include "engine/knowledge/words.h"
#include "text/edit_distance.h"

#include <QList>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

constexpr double likeSpelling = 0.75;
constexpr double worthOfFirstPart = 0.9;
constexpr double worthOfLaterPart = 0.5;
constexpr double worthOfFirstWord = 0.3;
// Shorter ones are like too many others.
constexpr qsizetype fewestLettersToBeAlike = 5;
constexpr qsizetype fewestWordsOfLaterPart = 2;

struct FoldedWord {
    QString text;
    qsizetype start = 0; // in characters of the line
    qsizetype end = 0;
};

// One letter for all that recognition takes for it.
QString withoutConfusions(QString word) {
    static const QString from = u"0158|i"_s;
    static const QString to = u"olsbll"_s;
    for (QChar &letter : word) {
        if (const qsizetype at = from.indexOf(letter); at >= 0) {
            letter = to[at];
        }
    }
    return word.replace("rn"_L1, "m"_L1).replace("vv"_L1, "w"_L1);
}

QString folded(const QString &word) {
    return withoutConfusions(withoutAccents(wordsOf(word)).remove(u' '));
}

QList<FoldedWord> foldedWords(const QString &line) {
    static const QRegularExpression word(uR"([\p{L}\p{M}\p{N}|'’]+)"_s);
    QList<FoldedWord> words;
    QRegularExpressionMatchIterator matches = word.globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (const QString text = folded(match.captured()); !text.isEmpty()) {
            words.append({text, match.capturedStart(), match.capturedEnd()});
        }
    }
    return words;
}

QString joinedText(const QList<FoldedWord> &words, qsizetype first, qsizetype count) {
    QString text;
    for (qsizetype index = first; index < first + count; ++index) {
        text += words[index].text;
    }
    return text;
}

double likenessOf(const QString &text, const QString &name) {
    if (text == name) {
        return 1;
    }
    const auto longer = static_cast<double>(std::max(text.size(), name.size()));
    const auto shorter = static_cast<double>(std::min(text.size(), name.size()));
    if (name.size() < fewestLettersToBeAlike || shorter < likeSpelling * longer) {
        return 0;
    }
    const double likeness = similarity(text, name);
    return likeness < likeSpelling ? 0 : likeness;
}

// The words that follow one another and are most like the name's; recognition may split and join words.
NamePlace bestPlace(const QList<FoldedWord> &line, const QList<FoldedWord> &name) {
    const QString wanted = joinedText(name, 0, name.size());
    NamePlace best;
    for (qsizetype first = 0; first < line.size(); ++first) {
        const qsizetype most = std::min(name.size() + 1, line.size() - first);
        for (qsizetype count = std::max<qsizetype>(1, name.size() - 1); count <= most; ++count) {
            const double likeness = likenessOf(joinedText(line, first, count), wanted);
            if (likeness > best.likeness) {
                const qsizetype start = line[first].start;
                best = {start, line[first + count - 1].end - start, likeness};
            }
        }
    }
    return best;
}

void takeBetter(NamePlace &best, NamePlace place, double worth) {
    place.likeness *= worth;
    if (place.likeness > best.likeness) {
        best = place;
    }
}

} // namespace

std::optional<NamePlace> placeOfName(const QString &line, const QString &name) {
    const QList<FoldedWord> words = foldedWords(line);
    const QList<FoldedWord> wanted = foldedWords(name);
    if (wanted.isEmpty()) {
        return std::nullopt;
    }
    NamePlace best = bestPlace(words, wanted);
    static const QRegularExpression separator(uR"(\s*[,;\n|•·–—(]\s*|\s+-\s+)"_s);
    const QStringList parts = name.split(separator, Qt::SkipEmptyParts);
    for (qsizetype index = 0; parts.size() > 1 && index < parts.size(); ++index) {
        const QList<FoldedWord> part = foldedWords(parts[index]);
        if (!part.isEmpty() && (index == 0 || part.size() >= fewestWordsOfLaterPart)) {
            takeBetter(best, bestPlace(words, part), index == 0 ? worthOfFirstPart : worthOfLaterPart);
        }
    }
    if (wanted.size() > 1 && wanted.first().text.size() >= fewestLettersToBeAlike) {
        takeBetter(best, bestPlace(words, wanted.first(1)), worthOfFirstWord);
    }
    return best.likeness > 0 ? std::optional(best) : std::nullopt;
}

} // namespace fennick::engine
