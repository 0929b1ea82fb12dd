#include "engine/fields/reading_facts.h"

#include "engine/fields/currency_reader.h"
#include "engine/fields/language_evidence.h"
#include "engine/fields/refund.h"

namespace fennick::engine {

ReadingFacts factsOf(const Reading &lines) {
    ReadingFacts facts;
    facts.lines = lines;
    facts.brands = brandScores(lines);
    facts.countries = countryScores(lines);
    facts.languages = readLanguages(lines, facts.countries);
    const AmountRoles roles(facts.languages);
    facts.isRefund = isRefund(lines, roles);
    facts.amounts = labelledAmounts(facts.isRefund ? withoutMinuses(lines) : lines, roles,
                                    priceStyle(readCurrency(lines, facts.countries)));
    return facts;
}

} // namespace fennick::engine
