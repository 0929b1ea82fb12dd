#include "engine/fields/company_names.h"

#include "engine/fields/edit_distance.h"
#include "engine/fields/merchant_lines.h"
#include "engine/knowledge/words.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// "SON BED" is Sdn Bhd: each word at most one letter off, or one of them right and the other short and alike.
bool isSdnBhd(const QString &first, const QString &second) {
    const int firstErrors = editDistance(first.toUpper(), u"SDN");
    const int secondErrors = editDistance(second.toUpper(), u"BHD");
    const bool areShort = first.size() <= 4 && second.size() <= 4 && first.size() >= 2 && second.size() >= 2;
    return areShort && ((firstErrors <= 1 && secondErrors <= 1) || (firstErrors == 0 && secondErrors <= 2) ||
                        (firstErrors <= 2 && secondErrors == 0));
}

QString withLegalFormRepaired(const QString &name) {
    static const QRegularExpression lastPair(
        uR"(\b([\p{L}\d]{2,4})(\.?\s+)([\p{L}\d]{2,4})\b(?!\s*[\p{L}]))"_s);
    static const QRegularExpression shortForm(uR"(\s[S5$]\s?/\s?[B8]\b)"_s);
    QString repaired = name;
    repaired.replace(shortForm, u" S/B"_s);
    const QRegularExpressionMatch match = lastPair.match(repaired);
    if (!match.hasMatch() || !isSdnBhd(match.captured(1), match.captured(3))) {
        return repaired;
    }
    const bool isUpper = match.captured(1).at(0).isUpper() && match.captured(1).at(1).isUpper();
    const QString form =
        isUpper ? u"SDN"_s + match.captured(2) + u"BHD"_s : u"Sdn"_s + match.captured(2) + u"Bhd"_s;
    return repaired.replace(match.capturedStart(), match.capturedLength(), form);
}

// What stands to the right of a wide gap is another column ("Corner Shop   Invoice 12") when it is no part of
// a name; some print is set wide throughout ("CORNER   SHOP").
QString firstColumn(const QString &line) {
    const qsizetype gap = line.indexOf(u"  "_s);
    if (gap <= 0 || !isMostlyLetters(line.left(gap))) {
        return line;
    }
    const QString rest = line.mid(gap).trimmed();
    const bool hasDigits = std::ranges::any_of(rest, [](QChar character) { return character.isDigit(); });
    return hasDigits || !isMostlyLetters(rest) || isHeading(rest) || isDetail(rest) ? line.left(gap) : line;
}

} // namespace

QString companyName(const QString &line) {
    // "(123456-X)", "(Co. No: 20154-T)", "(123456 X": how a registration number follows the name.
    static const QRegularExpression registration(uR"(\s*\(?[^()]*\d{4}[^()]*\)|\s*\([^()]*\d{4}[^()]*$)"_s);
    static const QRegularExpression edges(uR"(^[^\p{L}\p{N}(]+|[^\p{L}\p{N}.)!'’&]+$)"_s);
    static const QRegularExpression afterForm(uR"(((?<!\p{L})(?:Sdn\.?\s*Bhd\.?|S/B)).*$)"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    // Edges of paper and punched holes at either end of a name.
    static const QRegularExpression strays(uR"(^(?:\S{1,2}\)\s+|\(\s+)|\s+[|\\/!_~“”‘.,:;\-]+$|\s+\($)"_s);
    // Letters of initials that recognition takes for other signs: "A.1.¥."
    static const QRegularExpression initialOne(uR"((?<=\p{L}\.)[1l|](?=\.))"_s);
    QString name = firstColumn(line);
    name.replace(u'¥', u'Y').replace(initialOne, u"I"_s);
    name = name.remove(registration).remove(edges).remove(strays).remove(edges).simplified();
    return withLegalFormRepaired(name).replace(afterForm, u"\\1"_s);
}

bool isOnlyLegalForm(const QString &name) {
    static const QRegularExpression start(
        uR"(^\W*(?:co\b|\(\w{1,2}\)|sdn|enterprise\b|trading\b|company\b))"_s,
        QRegularExpression::CaseInsensitiveOption);
    return start.match(name).hasMatch() && !isRegistration(name);
}

bool hasLegalForm(const QString &name) {
    static const QRegularExpression form(
        uR"((?<!\p{L})(?:sdn\.?\s*bhd|bhd|berhad|s/b|p(?:te|ty)\.?\s*ltd|ltd|limited|plc|llp|llc|inc|corp|corporation|gmbh|mbh|ag|kg|ohg|ug|e\.\s?k|s\.?a\.?r\.?l|sas|s\.a|s\.l|b\.v|oy|aps|pvt)\.?\W*$|(?<!\p{L})(?:AB|AS|SA|SL|BV|SpA)\W*$)"_s,
        QRegularExpression::CaseInsensitiveOption);
    return form.match(name).hasMatch();
}

bool hasBusinessWord(const QString &name) {
    static const QStringList words = {
        u"restaurant"_s, u"restoran"_s,   u"ristorante"_s,    u"cafe"_s,        u"café"_s,
        u"coffee"_s,     u"bistro"_s,     u"bakery"_s,        u"bakeries"_s,    u"kitchen"_s,
        u"pizza"_s,      u"hotel"_s,      u"trading"_s,       u"enterprise"_s,  u"enterprises"_s,
        u"company"_s,    u"co"_s,         u"holdings"_s,      u"store"_s,       u"stores"_s,
        u"shop"_s,       u"mart"_s,       u"market"_s,        u"supermarket"_s, u"hypermarket"_s,
        u"stationery"_s, u"hardware"_s,   u"pharmacy"_s,      u"book"_s,        u"books"_s,
        u"kedai"_s,      u"syarikat"_s,   u"perniagaan"_s,    u"pasar raya"_s,  u"centre"_s,
        u"center"_s,     u"gallery"_s,    u"parking"_s,       u"petrol"_s,      u"station"_s,
        u"services"_s,   u"industries"_s, u"international"_s, u"marketing"_s,   u"retail"_s,
        u"group"_s,      u"sons"_s,       u"bros"_s,          u"bar"_s,         u"grill"_s,
        u"deli"_s,       u"apotheke"_s,   u"bäckerei"_s,      u"markt"_s,       u"cash carry"_s,
        u"clinic"_s,     u"electrical"_s, u"fashion"_s,       u"food"_s,        u"foods"_s,
    };
    const QStringList parts = wordsOf(name).split(u' ', Qt::SkipEmptyParts);
    const bool isAllOfThem = std::ranges::all_of(
        parts, [](const QString &part) { return part.size() < 3 || words.contains(part); });
    return !isAllOfThem && containsAnyPhrase(wordsOf(name), words);
}

} // namespace fennick::engine
