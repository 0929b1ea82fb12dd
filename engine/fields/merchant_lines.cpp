#include "engine/fields/merchant_lines.h"

#include "engine/knowledge/words.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype fewestLetters = 3;

// Words of headings and greetings: a line of nothing else names nobody.
const QStringList &headingWords() {
    static const QStringList words = {
        u"receipt"_s,
        u"invoice"_s,
        u"tax"_s,
        u"bill"_s,
        u"sales"_s,
        u"sale"_s,
        u"simplified"_s,
        u"copy"_s,
        u"customer"_s,
        u"merchant"_s,
        u"duplicate"_s,
        u"original"_s,
        u"welcome"_s,
        u"to"_s,
        u"thank"_s,
        u"you"_s,
        u"thanks"_s,
        u"rechnung"_s,
        u"quittung"_s,
        u"beleg"_s,
        u"kassenbon"_s,
        u"bon"_s,
        u"kassenbeleg"_s,
        u"kundenbeleg"_s,
        u"facture"_s,
        u"reçu"_s,
        u"ticket"_s,
        u"de"_s,
        u"caisse"_s,
        u"order"_s,
        u"confirmation"_s,
        u"page"_s,
        u"of"_s,
        u"seite"_s,
        u"von"_s,
        u"date"_s,
        u"datum"_s,
        u"time"_s,
        u"no"_s,
        u"nr"_s,
        u"number"_s,
        u"table"_s,
        u"cash"_s,
        u"memo"_s,
        u"your"_s,
        u"statement"_s,
        u"kvitto"_s,
        u"herzlich"_s,
        u"willkommen"_s,
        u"vielen"_s,
        u"dank"_s,
        u"am"_s,
        u"pm"_s,
        u"from"_s,
        u"for"_s,
        u"our"_s,
        u"guest"_s,
        u"check"_s,
        u"the"_s,
        u"payment"_s,
        u"scanned"_s,
        u"by"_s,
        u"with"_s,
        u"and"_s,
        u"e"_s,
        u"id"_s,
        u"store"_s,
        u"pos"_s,
        u"faktura"_s,
        u"factura"_s,
        u"fattura"_s,
        u"factuur"_s,
        u"unsere"_s,
        u"öffnungszeiten"_s,
        u"offnungszeiten"_s,
        u"opening"_s,
        u"hours"_s,
        u"horaires"_s,
        u"horario"_s,
        u"orario"_s,
        u"openingstijden"_s,
        u"öppettider"_s,
        u"uhr"_s,
        u"mo"_s,
        u"sa"_s,
        u"bis"_s,
    };
    return words;
}

const QStringList &detailWords() {
    static const QStringList words = {
        u"tel"_s,         u"phone"_s,        u"fax"_s,
        u"telefon"_s,     u"vat"_s,          u"gst"_s,
        u"abn"_s,         u"ust"_s,          u"uid"_s,
        u"invoice no"_s,  u"date"_s,         u"datum"_s,
        u"cashier"_s,     u"terminal"_s,     u"reg no"_s,
        u"receipt no"_s,  u"company no"_s,   u"co reg"_s,
        u"co no"_s,       u"roc no"_s,       u"mobile"_s,
        u"email"_s,       u"hotline"_s,      u"whatsapp"_s,
        u"licensee"_s,    u"operated by"_s,  u"invoice number"_s,
        u"company reg"_s, u"business reg"_s, u"page"_s,
    };
    return words;
}

// Where a place is named; harmless inside a company's name, so they count with a number or a comma only.
const QStringList &placeWords() {
    static const QStringList words = {
        u"jalan"_s,     u"jln"_s,       u"lorong"_s, u"taman"_s,        u"kawasan"_s,   u"bandar"_s,
        u"seksyen"_s,   u"persiaran"_s, u"street"_s, u"road"_s,         u"avenue"_s,    u"lane"_s,
        u"drive"_s,     u"floor"_s,     u"level"_s,  u"unit"_s,         u"suite"_s,     u"block"_s,
        u"blk"_s,       u"lot"_s,       u"rue"_s,    u"calle"_s,        u"boulevard"_s, u"city"_s,
        u"darul"_s,     u"selangor"_s,  u"johor"_s,  u"kuala lumpur"_s, u"malaysia"_s,  u"penang"_s,
        u"singapore"_s, u"sydney"_s,    u"london"_s, u"no"_s,
    };
    return words;
}

} // namespace

bool isHeading(const QString &line) {
    const QStringList parts = wordsOf(line).split(u' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(parts, [](const QString &word) {
        const bool isNumber = std::ranges::all_of(word, [](QChar character) { return character.isDigit(); });
        return isNumber || headingWords().contains(word);
    });
}

bool isDetail(const QString &line) {
    static const QRegularExpression contact(uR"(@|www\.|https?:|\.(?:com|net|org|de|ch|uk)\b)"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression address(
        uR"(^\s*\d+[A-Za-z]?[,\s]+\p{L}+.*\b(?:street|st|road|rd|avenue|ave|lane|ln|drive|dr|blvd|boulevard|way|square|plaza|jalan|rue)\b|\p{L}+(?:stra(?:ß|ss|b|8)e|str\.|weg|platz|gasse)\s+\d+|\b\d{4,5}\s+\p{L}{3,}|\b[A-Z]{2}\s+\d{5}\b|^\W*(?:no|lot|unit|level|suite|block|blk)\b[\s.:]*[\w\-]*\d)"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression label(uR"(^\s*\p{L}[\p{L} .]{0,20}:\s*\S)"_s);
    static const QRegularExpression placed(uR"(\d|,|\.\s*$)"_s);
    const QString words = wordsOf(line);
    if (contact.match(line).hasMatch() || address.match(line).hasMatch() || label.match(line).hasMatch() ||
        containsAnyPhrase(words, detailWords())) {
        return true;
    }
    static const QRegularExpression numberAndComma(uR"(\d.*,|,.*\d)"_s);
    if (numberAndComma.match(line).hasMatch()) {
        return true;
    }
    return placed.match(line).hasMatch() && containsAnyPhrase(words, placeWords());
}

bool isRegistration(const QString &line) {
    static const QRegularExpression number(uR"((?:^|[\s(:])[A-Z]{0,2}\d{4,12}\s?-?\s?[A-Z]\b)"_s);
    static const QStringList words = {u"co no"_s,       u"co reg"_s,       u"company no"_s, u"company reg"_s,
                                      u"reg no"_s,      u"roc"_s,          u"gst"_s,        u"vat"_s,
                                      u"abn"_s,         u"gst reg"_s,      u"gst id"_s,     u"registration"_s,
                                      u"ust idnr"_s,    u"steuernummer"_s, u"siret"_s,      u"cif"_s,
                                      u"business no"_s, u"tax id"_s};
    return number.match(line).hasMatch() || containsAnyPhrase(wordsOf(line), words);
}

bool introducesAnother(const QString &line) {
    static const QStringList words = {u"bill to"_s,    u"billed to"_s, u"sold to"_s, u"ship to"_s,
                                      u"invoice to"_s, u"attention"_s, u"attn"_s,    u"customer"_s,
                                      u"deliver to"_s, u"kunde"_s,     u"client"_s,  u"owned by"_s};
    return containsAnyPhrase(wordsOf(line), words);
}

bool isMostlyLetters(const QString &line) {
    const auto letters = std::ranges::count_if(line, [](QChar character) { return character.isLetter(); });
    const auto signs = std::ranges::count_if(line, [](QChar character) { return !character.isSpace(); });
    return letters >= fewestLetters && 2 * letters >= signs;
}

} // namespace fennick::engine
