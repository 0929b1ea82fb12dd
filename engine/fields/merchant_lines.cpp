#include "engine/fields/merchant_lines.h"

#include "engine/knowledge/words.h"

#include <QRegularExpression>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype fewestLetters = 3;
constexpr qsizetype longestHouseNumber = 5;
// "SA" and "AS" are words as well: so short a form counts in capitals only.
constexpr qsizetype longestShortForm = 2;

QString plainWords(const QString &line) {
    return withoutAccents(wordsOf(line));
}

bool isNumber(const QString &word) {
    return std::ranges::all_of(word, [](QChar character) { return character.isDigit(); });
}

// "Faktura" and "Kassenbon" are no names in any language; shorter words may be.
const QStringList &longHeadings() {
    constexpr qsizetype shortest = 5;
    static const QStringList words = [] {
        QStringList all = nameWords().phrases(u"heading"_s, knownLanguages());
        all.removeIf([](const QString &word) { return word.size() < shortest; });
        return all;
    }();
    return words;
}

// The words of `name` as they stand.
QStringList partsOf(const QString &name) {
    static const QRegularExpression gaps(uR"([\s.,]+)"_s);
    return name.split(gaps, Qt::SkipEmptyParts);
}

bool isInCapitals(const QString &part) {
    return part == part.toUpper();
}

} // namespace

bool isMostlyLetters(const QString &line) {
    const auto letters = std::ranges::count_if(line, [](QChar character) { return character.isLetter(); });
    const auto signs = std::ranges::count_if(line, [](QChar character) { return !character.isSpace(); });
    return letters >= fewestLetters && 2 * letters >= signs;
}

MerchantLines::MerchantLines(const Languages &languages)
    : mayEndInSdnBhd_(languages.contains(u"ms"_s)) {
    const auto phrases = [&languages](const QString &meaning) {
        return nameWords().phrases(meaning, languages);
    };
    heading_ = phrases(u"heading"_s) + longHeadings();
    detail_ = phrases(u"detail"_s);
    another_ = phrases(u"another"_s);
    business_ = phrases(u"business"_s);
    legalForms_ = phrases(u"legal form"_s);
    legalFormsBefore_ = phrases(u"legal form before"_s);
    registration_ = phrases(u"registration"_s);
    const QStringList numbered = phrases(u"numbered"_s);
    for (const QString &word : numbered) {
        word.startsWith(u'*') ? numberedEnds_.append(word.sliced(1)) : numbered_.append(word);
    }
}

bool MerchantLines::isHeading(const QString &line) const {
    const QStringList parts = plainWords(line).split(u' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(
        parts, [this](const QString &word) { return isNumber(word) || heading_.contains(word); });
}

// "Hauptstraße 12", "12 rue Haute", "Jalan Duta, Kuala Lumpur", "Mesa 4".
bool MerchantLines::isNumberedDetail(const QString &line, const QString &words) const {
    static const QRegularExpression placed(uR"(\d|,|\.\s*$)"_s);
    if (!placed.match(line).hasMatch()) {
        return false;
    }
    if (containsAnyPhrase(words, numbered_)) {
        return true;
    }
    const QStringList parts = words.split(u' ', Qt::SkipEmptyParts);
    for (qsizetype index = 0; index + 1 < parts.size(); ++index) {
        const bool isEnd = std::ranges::any_of(numberedEnds_, [&](const QString &end) {
            return parts[index].size() > end.size() && parts[index].endsWith(end);
        });
        const QString &next = parts[index + 1];
        if (isEnd && next.size() <= longestHouseNumber && next.at(0).isDigit()) {
            return true;
        }
    }
    return false;
}

bool MerchantLines::isDetail(const QString &line) const {
    static const QRegularExpression contact(uR"(@|www\.|https?:)"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression address(
        uR"(^\s*\d+[A-Za-z]?[,\s]+\p{L}+.*\b(?:street|st|road|rd|avenue|ave|lane|ln|drive|dr|blvd|boulevard|way|square|plaza|jalan|rue)\b|\p{L}+(?:stra(?:ß|ss|b|8)e|str\.|weg|platz|gasse)\s+\d+|\b\d{4,5}\s+\p{L}{3,}|\b[A-Z]{2}\s+\d{5}\b|^\W*(?:no|lot|unit|level|suite|block|blk)\b[\s.:]*[\w\-]*\d)"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression label(uR"(^\s*\p{L}[\p{L} .]{0,20}:\s*\S)"_s);
    static const QRegularExpression numberAndComma(uR"(\d.*,|,.*\d)"_s);
    for (const QRegularExpression &pattern : {contact, address, label, numberAndComma}) {
        if (pattern.match(line).hasMatch()) {
            return true;
        }
    }
    const QString words = plainWords(line);
    return containsAnyPhrase(words, detail_) || isNumberedDetail(line, words);
}

bool MerchantLines::isRegistration(const QString &line) const {
    static const QRegularExpression number(uR"((?:^|[\s(:])[A-Z]{0,2}\d{4,12}\s?-?\s?[A-Z]\b)"_s);
    return number.match(line).hasMatch() || containsAnyPhrase(plainWords(line), registration_);
}

bool MerchantLines::introducesAnother(const QString &line) const {
    return containsAnyPhrase(plainWords(line), another_);
}

bool MerchantLines::hasLegalForm(const QString &name) const {
    const QString words = plainWords(name);
    const QStringList parts = partsOf(name);
    if (parts.isEmpty()) {
        return false;
    }
    const bool endsInForm = std::ranges::any_of(legalForms_, [&](const QString &form) {
        return words.size() > form.size() + 2 && words.endsWith(u' ' + form + u' ') &&
               (form.size() > longestShortForm || form.contains(u' ') || isInCapitals(parts.last()));
    });
    return endsInForm || std::ranges::any_of(legalFormsBefore_, [&](const QString &form) {
               return words.startsWith(u' ' + form + u' ') && words.size() > form.size() + 2 &&
                      (form.size() > longestShortForm || isInCapitals(parts.first()));
           });
}

bool MerchantLines::hasBusinessWord(const QString &name) const {
    const QString words = plainWords(name);
    const QStringList parts = words.split(u' ', Qt::SkipEmptyParts);
    const bool isAllOfThem = std::ranges::all_of(
        parts, [this](const QString &part) { return part.size() < 3 || business_.contains(part); });
    return !isAllOfThem && containsAnyPhrase(words, business_);
}

} // namespace fennick::engine
