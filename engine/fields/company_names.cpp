#include "engine/fields/company_names.h"

#include "text/edit_distance.h"

#include <QRegularExpression>

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
QString firstColumn(const QString &line, const MerchantLines &lines) {
    const qsizetype gap = line.indexOf(u"  "_s);
    if (gap <= 0 || !isMostlyLetters(line.left(gap))) {
        return line;
    }
    const QString rest = line.mid(gap).trimmed();
    const bool hasDigits = std::ranges::any_of(rest, [](QChar character) { return character.isDigit(); });
    return hasDigits || !isMostlyLetters(rest) || lines.isHeading(rest) || lines.isDetail(rest)
               ? line.left(gap)
               : line;
}

} // namespace

QString companyName(const QString &line, const MerchantLines &lines) {
    // "(123456-X)", "(Co. No: 20154-T)", "(123456 X": how a registration number follows the name.
    static const QRegularExpression registration(uR"(\s*\(?[^()]*\d{4}[^()]*\)|\s*\([^()]*\d{4}[^()]*$)"_s);
    static const QRegularExpression edges(uR"(^[^\p{L}\p{N}(]+|[^\p{L}\p{N}.)!'’&]+$)"_s);
    static const QRegularExpression afterForm(uR"(((?<!\p{L})(?:Sdn\.?\s*Bhd\.?|S/B)).*$)"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    // Edges of paper and punched holes at either end of a name.
    static const QRegularExpression strays(uR"(^(?:\S{1,2}\)\s+|\(\s+)|\s+[|\\/!_~“”‘.,:;\-]+$|\s+\($)"_s);
    // Letters of initials that recognition takes for other signs: "A.1.¥."
    static const QRegularExpression initialOne(uR"((?<=\p{L}\.)[1l|](?=\.))"_s);
    QString name = firstColumn(line, lines);
    name.replace(u'¥', u'Y').replace(initialOne, u"I"_s);
    name = name.remove(registration).remove(edges).remove(strays).remove(edges).simplified();
    return (lines.mayEndInSdnBhd() ? withLegalFormRepaired(name) : name).replace(afterForm, u"\\1"_s);
}

bool isOnlyLegalForm(const QString &name, const MerchantLines &lines) {
    static const QRegularExpression start(
        uR"(^\W*(?:co\b|\(\w{1,2}\)|sdn|enterprise\b|trading\b|company\b))"_s,
        QRegularExpression::CaseInsensitiveOption);
    return start.match(name).hasMatch() && !lines.isRegistration(name);
}

} // namespace fennick::engine
