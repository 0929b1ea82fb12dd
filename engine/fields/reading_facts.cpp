#include "engine/fields/reading_facts.h"

#include "engine/fields/currency_reader.h"
#include "engine/fields/language_evidence.h"
#include "engine/fields/refund.h"

namespace fennick::engine {

namespace {

QList<LabelledAmount> labelled(const ReadingFacts &facts, const AmountRoles &roles, const PriceStyle &style) {
    return labelledAmounts(facts.isRefund ? withoutMinuses(facts.lines) : facts.lines, roles, style,
                           taxRatesOfLikeliestCountry(facts.countries));
}

} // namespace

ReadingFacts factsOf(const Reading &lines) {
    ReadingFacts facts;
    facts.lines = lines;
    facts.brands = brandScores(lines);
    facts.countries = countryScores(lines);
    facts.languages = readLanguages(lines, facts.countries);
    facts.currency = readCurrency(lines, facts.countries);
    const AmountRoles roles(facts.languages);
    facts.isRefund = isRefund(lines, roles);
    facts.amounts = labelled(facts, roles, priceStyle(facts.currency));
    facts.amountScores = amountScores(facts.amounts);
    return facts;
}

QList<LabelledAmount> amountsIn(const ReadingFacts &facts, const std::optional<QString> &currency) {
    const PriceStyle style = priceStyle(currency);
    return style == priceStyle(facts.currency) ? facts.amounts
                                               : labelled(facts, AmountRoles(facts.languages), style);
}

AmountScores amountScoresIn(const ReadingFacts &facts, const std::optional<QString> &currency) {
    return priceStyle(currency) == priceStyle(facts.currency) ? facts.amountScores
                                                              : amountScores(amountsIn(facts, currency));
}

} // namespace fennick::engine
