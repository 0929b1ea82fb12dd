#include "engine/merchant_reader.h"

#include "engine/number_reader.h"
#include "engine/word_search.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// A name stands at the top; further down are the things bought.
constexpr qsizetype linesLookedAt = 12;
constexpr qsizetype fewestLetters = 3;
// Below this a recognised line is more often a logo or a smudge than words.
constexpr double leastConfidence = 0.5;

// Words of headings and greetings: a line of nothing else names nobody.
const QStringList &headingWords() {
    static const QStringList words = {
        u"receipt"_s,      u"invoice"_s, u"tax"_s,       u"bill"_s,      u"sales"_s,       u"sale"_s,
        u"simplified"_s,   u"copy"_s,    u"customer"_s,  u"merchant"_s,  u"duplicate"_s,   u"original"_s,
        u"welcome"_s,      u"to"_s,      u"thank"_s,     u"you"_s,       u"thanks"_s,      u"rechnung"_s,
        u"quittung"_s,     u"beleg"_s,   u"kassenbon"_s, u"bon"_s,       u"kassenbeleg"_s, u"kundenbeleg"_s,
        u"facture"_s,      u"reçu"_s,    u"ticket"_s,    u"de"_s,        u"caisse"_s,      u"order"_s,
        u"confirmation"_s, u"page"_s,    u"of"_s,        u"seite"_s,     u"von"_s,         u"date"_s,
        u"datum"_s,        u"time"_s,    u"no"_s,        u"nr"_s,        u"number"_s,      u"table"_s,
        u"cash"_s,         u"memo"_s,    u"your"_s,      u"statement"_s, u"kvitto"_s,      u"herzlich"_s,
        u"willkommen"_s,   u"vielen"_s,  u"dank"_s,      u"am"_s,        u"pm"_s,          u"from"_s,
        u"for"_s,          u"our"_s,     u"guest"_s,     u"check"_s,     u"the"_s,         u"payment"_s,
        u"scanned"_s,      u"by"_s,      u"with"_s,      u"and"_s,       u"e"_s,           u"id"_s,
        u"store"_s,        u"pos"_s,
    };
    return words;
}

bool isHeading(const QString &words) {
    const QStringList parts = words.split(u' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(parts, [](const QString &word) {
        const bool isNumber = std::ranges::all_of(word, [](QChar character) { return character.isDigit(); });
        return isNumber || headingWords().contains(word);
    });
}

// Contact data, addresses and labelled values ("Tel", "VAT no", "12 High Street", "Table: 4").
bool isDetail(const QString &line, const QString &words) {
    static const QRegularExpression contact(uR"(@|www\.|https?:|\.(?:com|net|org|de|ch|uk)\b)"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression address(
        uR"(^\s*\d+[A-Za-z]?[,\s]+\p{L}+.*\b(?:street|st|road|rd|avenue|ave|lane|ln|drive|dr|blvd|boulevard|way|square|plaza|jalan|rue)\b|\p{L}+(?:stra(?:ß|ss)e|str\.|weg|platz|gasse)\s+\d+|\b\d{4,5}\s+\p{L}{3,}$|\b[A-Z]{2}\s+\d{5}\b)"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression label(uR"(^\s*\p{L}[\p{L} .]{0,20}:\s*\S)"_s);
    static const QStringList details = {
        u"tel"_s,
        u"phone"_s,
        u"fax"_s,
        u"telefon"_s,
        u"vat"_s,
        u"gst"_s,
        u"abn"_s,
        u"ust"_s,
        u"uid"_s,
        u"invoice no"_s,
        u"receipt no"_s,
        u"date"_s,
        u"datum"_s,
        u"cashier"_s,
        u"terminal"_s,
        u"reg no"_s,
        u"invoice number"_s,
        u"company no"_s,
        u"co reg"_s,
    };
    return contact.match(line).hasMatch() || address.match(line).hasMatch() || label.match(line).hasMatch() ||
           containsAnyPhrase(words, details);
}

bool isMostlyLetters(const QString &line) {
    const auto letters = std::ranges::count_if(line, [](QChar character) { return character.isLetter(); });
    const auto signs = std::ranges::count_if(line, [](QChar character) { return !character.isSpace(); });
    return letters >= fewestLetters && 2 * letters >= signs;
}

bool isItem(const QString &line) {
    return std::ranges::any_of(printedNumbers(line), &PrintedNumber::hasDecimals);
}

// What stands to the right of a wide gap is another column ("Corner Shop   Invoice 12").
QString undecorated(const QString &line) {
    // "(123456-X)", "(Co. No: 20154-T)": how a registration number follows the name.
    static const QRegularExpression registration(uR"(\s*\([^()]*\d{4}[^()]*\))"_s);
    static const QRegularExpression edges(uR"(^[^\p{L}\p{N}]+|[^\p{L}\p{N}.)!'’&]+$)"_s);
    const qsizetype gap = line.indexOf(u"  "_s);
    QString name = gap > 0 && isMostlyLetters(line.left(gap)) ? line.left(gap) : line;
    return name.remove(registration).remove(edges).simplified();
}

} // namespace

std::optional<QString> readMerchant(const QList<TextLine> &lines) {
    for (const TextLine &line : lines.first(std::min(linesLookedAt, lines.size()))) {
        if (line.confidence < leastConfidence) {
            continue;
        }
        const QString name = undecorated(line.text);
        const QString words = wordsOf(name);
        if (!isMostlyLetters(name) || isHeading(words) || isDetail(name, words) || isItem(line.text)) {
            continue;
        }
        return name;
    }
    return std::nullopt;
}

} // namespace fennick
