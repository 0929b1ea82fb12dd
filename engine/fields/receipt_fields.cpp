#include "engine/fields/receipt_fields.h"

#include "engine/fields/amount_reader.h"
#include "engine/fields/brand_reader.h"
#include "engine/fields/category_reader.h"
#include "engine/fields/company_names.h"
#include "engine/fields/country_evidence.h"
#include "engine/fields/currency_reader.h"
#include "engine/fields/date_reader.h"
#include "engine/fields/evidence_finder.h"
#include "engine/fields/merchant_reader.h"
#include "engine/fields/summary_writer.h"
#include "engine/fields/time_reader.h"
#include "engine/knowledge/country_table.h"
#include "engine/knowledge/words.h"

#include <QMap>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// What the readings say of the country and its money.
struct Origin {
    std::optional<QString> country;
    std::optional<QString> currency;
};

// The choice of most readings, if a good part of them agree: a single one may have taken any stroke for a
// dollar.
std::optional<QString> voted(const QMap<QString, int> &votes, qsizetype readings) {
    constexpr int leastShare = 4; // one in so many readings
    const auto best = std::ranges::max_element(votes);
    return best != votes.end() && leastShare * *best >= readings ? std::optional(best.key()) : std::nullopt;
}

Origin originOf(const QList<ReadingFacts> &facts, const std::optional<FoundBrand> &brand) {
    const QStringList brandCountries = brand ? brand->countries : QStringList();
    QMap<QString, int> countries;
    QMap<QString, int> currencies;
    for (const ReadingFacts &reading : facts) {
        const CountryScores scores = withBrand(reading.countries, brandCountries);
        if (const std::optional<QString> country = likeliestCountry(scores)) {
            ++countries[*country];
        }
        if (const std::optional<QString> currency = readCurrency(reading.lines, scores)) {
            ++currencies[*currency];
        }
    }
    return {voted(countries, facts.size()), voted(currencies, facts.size())};
}

Languages languagesOf(const QList<ReadingFacts> &facts) {
    Languages languages;
    for (const ReadingFacts &reading : facts) {
        languages.unite(reading.languages);
    }
    return languages;
}

// Without a country, its currency stands for it.
DateStyle dateStyleOf(const Origin &origin, const Languages &languages) {
    const auto isIt = [&](const Country &country) {
        return origin.country ? country.code == origin.country : country.currency == origin.currency;
    };
    const auto country = std::ranges::find_if(countries(), isIt);
    DateStyle style{.languages = languages};
    if (country != countries().cend()) {
        style.order = country->dateOrder;
        style.hasBuddhistYears = country->hasBuddhistYears;
    }
    return style;
}

// Some countries have changed their currency: what was printed before that day is in the earlier one.
std::optional<QString> currencyOn(const std::optional<FoundDate> &date, const Origin &origin) {
    const auto country = std::ranges::find_if(
        countries(), [&origin](const Country &each) { return each.code == origin.country; });
    const bool isEarlier = date && country != countries().cend() && date->date < country->currencySince &&
                           origin.currency == country->currency;
    return isEarlier ? std::optional(country->currencyBefore) : origin.currency;
}

std::optional<FoundDate> foundDate(const QList<Reading> &readings, DateStyle style, QDate today) {
    style.order = printedOrder(readings, style);
    return readDate(readings, style, today);
}

// The time that most readings have; of equals, the one of the earliest.
std::optional<QTime> votedTime(const QList<Reading> &readings, const std::optional<FoundDate> &date,
                               const Languages &languages) {
    QMap<QTime, int> votes;
    std::optional<QTime> best;
    for (qsizetype index = 0; index < readings.size(); ++index) {
        const std::optional<QTime> time =
            readTime(readings[index], date ? date->lines.value(index) : std::nullopt, languages);
        if (time) {
            ++votes[*time];
        }
        if (time && (!best || votes[*time] > votes[*best])) {
            best = time;
        }
    }
    return best;
}

// A company's full name or one that holds the brand says more than the brand; any other line may be a slogan
// or an address.
std::optional<QString> sellerOf(const std::optional<QString> &merchant,
                                const std::optional<FoundBrand> &brand, const MerchantLines &lines) {
    if (!merchant || !brand) {
        return merchant ? merchant : (brand ? std::optional(brand->name) : std::nullopt);
    }
    const bool holdsBrand =
        containsPhrase(withoutAccents(wordsOf(*merchant)), withoutAccents(wordsOf(brand->name)).trimmed());
    const bool isName =
        lines.hasLegalForm(*merchant) || (lines.hasBusinessWord(*merchant) && !brand->isProven);
    return holdsBrand || isName ? *merchant : brand->name;
}

// What the brand stands for, unless the shop only bears a word of it in its name: "Driftwood Coffee Roasters"
// is no hotel of the brand Driftwood.
QStringList categoriesOf(const std::optional<FoundBrand> &brand, const std::optional<QString> &seller,
                         const MerchantLines &lines) {
    if (!brand) {
        return {};
    }
    const bool isBrand = !seller || withoutAccents(wordsOf(*seller)) == withoutAccents(wordsOf(brand->name));
    return isBrand || lines.hasLegalForm(*seller) || !lines.hasBusinessWord(*seller) ? brand->categories
                                                                                     : QStringList();
}

// Whether a name says by itself that the document is a receipt: of a letter or a recipe the first line would
// do for a name as well.
bool isSureName(const std::optional<QString> &seller, const std::optional<FoundBrand> &brand,
                const MerchantLines &lines) {
    return seller && ((brand && brand->isProven) || lines.hasLegalForm(*seller));
}

QList<Reading> linesOf(const QList<ReadingFacts> &facts) {
    QList<Reading> readings;
    std::ranges::transform(facts, std::back_inserter(readings), &ReadingFacts::lines);
    return readings;
}

std::optional<FoundBrand> brandOf(const QList<ReadingFacts> &facts) {
    QList<BrandScores> brands;
    std::ranges::transform(facts, std::back_inserter(brands), &ReadingFacts::brands);
    return readBrand(brands);
}

std::optional<FoundAmount> amountOf(const QList<ReadingFacts> &facts, const Origin &origin) {
    QList<AmountScores> scores;
    for (const ReadingFacts &reading : facts) {
        scores.append(amountScoresIn(reading, origin.currency));
    }
    std::optional<FoundAmount> found = readAmount(scores);
    const auto refunds = std::ranges::count_if(facts, &ReadingFacts::isRefund);
    if (found && 2 * refunds > facts.size()) {
        found->amount = -found->amount;
    }
    return found;
}

} // namespace

std::optional<ReceiptFields> readReceipt(const QList<ReadingFacts> &facts, QDate today) {
    const QList<Reading> readings = linesOf(facts);
    const Reading allLines = std::accumulate(readings.cbegin(), readings.cend(), Reading());
    const std::optional<FoundBrand> brand = brandOf(facts);
    const Origin origin = originOf(facts, brand);
    const Languages languages = languagesOf(facts);
    const MerchantLines merchantLines(languages);
    const std::optional<FoundAmount> amount = amountOf(facts, origin);
    const std::optional<FoundDate> date = foundDate(readings, dateStyleOf(origin, languages), today);

    ReceiptFields fields;
    fields.location = sellerOf(readMerchant(readings, merchantLines), brand, merchantLines);
    if (!date && !amount && !isSureName(fields.location, brand, merchantLines)) {
        return std::nullopt;
    }
    if (amount) {
        fields.amount = amount->amount;
    }
    if (date) {
        fields.date = date->date;
    }
    fields.currency = currencyOn(date, origin);
    fields.time = votedTime(readings, date, languages);
    fields.category = readCategory(allLines, fields.location, fields.time, languages,
                                   categoriesOf(brand, fields.location, merchantLines));
    fields.summary = summaryOf(fields);
    fields.evidence = findEvidence(fields, facts);
    return fields;
}

bool isBeyondDoubt(const QList<ReadingFacts> &facts, QDate today) {
    const Origin origin = originOf(facts, brandOf(facts));
    const std::optional<FoundAmount> amount = amountOf(facts, origin);
    if (!amount || !amount->isCertain) {
        return false;
    }
    const std::optional<FoundDate> date =
        foundDate(linesOf(facts), dateStyleOf(origin, languagesOf(facts)), today);
    return date && date->isCertain;
}

bool showNothing(const QList<ReadingFacts> &facts, QDate today) {
    const auto showsSomething = [](const ReadingFacts &reading) {
        const bool hasAmount = std::ranges::any_of(reading.amounts, [](const LabelledAmount &amount) {
            return amount.hasDecimals || amount.hasCurrency || amount.role != AmountRole::unnamed;
        });
        return hasAmount || !reading.brands.isEmpty() || !reading.languages.isEmpty() ||
               !reading.countries.isEmpty();
    };
    return std::ranges::none_of(facts, showsSomething) &&
           !foundDate(linesOf(facts), {.languages = languagesOf(facts)}, today);
}

} // namespace fennick::engine
