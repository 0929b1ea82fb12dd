#include "engine/fields/country_evidence.h"

#include "engine/knowledge/country_table.h"
#include "engine/knowledge/words.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

constexpr double perTaxNumber = 4;
constexpr double perBrand = 3;
constexpr double perDialCode = 3;
constexpr double perDomain = 3;
constexpr double perPostcode = 3;
constexpr double perHint = 1.5;
constexpr double firstPlace = 3;
constexpr double furtherPlaces = 1;
// Words of a language are shared by countries, and a single one by languages.
constexpr double perWord = 1;
constexpr int mostWords = 4;
constexpr double leastToGoBy = 3;

int countOf(const QString &words, const QStringList &phrases, int most) {
    int count = 0;
    for (const QString &phrase : phrases) {
        count += containsPhrase(words, phrase) ? 1 : 0;
        if (count == most) {
            break;
        }
    }
    return count;
}

QSet<QString> matchesIn(const QString &text, const QRegularExpression &pattern) {
    QSet<QString> found;
    QRegularExpressionMatchIterator matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        found.insert(matches.next().captured(1).toLower());
    }
    return found;
}

// The ends of the web addresses in `text`; ".co" of ".co.uk" is none.
QSet<QString> domainsIn(const QString &text) {
    static const QRegularExpression domain(
        uR"((?:www\.|https?://|@|(?<![\p{L}\d.])[\p{L}\d\-]{3,}(?=\.[a-z]{2,3}(?![\p{L}\d])))[\p{L}\d.\-]*\.([a-z]{2})(?![\p{L}\d.]|\.\p{L}))"_s,
        QRegularExpression::CaseInsensitiveOption);
    return matchesIn(text, domain);
}

QSet<QString> dialledIn(const QString &text) {
    static const QRegularExpression number(uR"((?:\+|(?<!\d)00)\s?\(?(\d{1,3})\)?(?=[\s\-.(/]*\d))"_s);
    return matchesIn(text, number);
}

// "+4930": the country's code runs into the rest of the number.
bool isDialled(const QSet<QString> &numbers, const QString &code) {
    return std::ranges::any_of(numbers, [&](const QString &number) { return number.startsWith(code); });
}

} // namespace

CountryScores countryScores(const Reading &reading) {
    QString text;
    for (const TextLine &line : reading) {
        text += line.text + u'\n';
    }
    const QString words = withoutAccents(wordsOf(text));
    const QSet<QString> domains = domainsIn(text);
    const QSet<QString> dialled = dialledIn(text);
    CountryScores scores;
    for (const Country &country : countries()) {
        double score = perWord * countOf(words, country.words, mostWords);
        const int places = countOf(words, country.places, 2);
        score += places > 0 ? firstPlace + furtherPlaces * (places - 1) : 0;
        score += domains.contains(country.domain) ? perDomain : 0;
        score += !country.dialCode.isEmpty() && isDialled(dialled, country.dialCode) ? perDialCode : 0;
        const auto isThere = [&text](const QRegularExpression &pattern) {
            return !pattern.pattern().isEmpty() && pattern.match(text).hasMatch();
        };
        score += isThere(country.taxNumber) ? perTaxNumber : 0;
        score += isThere(country.postcode) ? perPostcode : 0;
        score += isThere(country.hint) ? perHint : 0;
        if (score > 0) {
            scores[country.code] = score;
        }
    }
    return scores;
}

CountryScores withBrand(CountryScores scores, const QStringList &brandCountries) {
    for (const QString &code : brandCountries) {
        scores[code] += perBrand;
    }
    return scores;
}

std::optional<QString> likeliestCountry(const CountryScores &scores) {
    std::optional<QString> best;
    for (const Country &country : countries()) {
        const double score = scores.value(country.code);
        if (score >= leastToGoBy && (!best || score > scores.value(*best))) {
            best = country.code;
        }
    }
    return best;
}

QList<double> taxRatesOfLikeliestCountry(const CountryScores &scores) {
    const std::optional<QString> code = likeliestCountry(scores);
    const auto country = code ? std::ranges::find(countries(), *code, &Country::code) : countries().cend();
    return country == countries().cend() ? QList<double>() : country->taxRates;
}

} // namespace fennick::engine
