#include "engine/knowledge/country_table.h"

#include "engine/knowledge/table_file.h"
#include "engine/knowledge/words.h"

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

QStringList phrasesOf(const QString &cell) {
    QStringList phrases;
    const QStringList parts = cell.split(u',');
    for (const QString &part : parts) {
        phrases.append(withoutAccents(wordsOf(part)).trimmed());
    }
    return phrases;
}

QRegularExpression patternOf(const QString &cell) {
    return QRegularExpression(cell, QRegularExpression::CaseInsensitiveOption |
                                        QRegularExpression::UseUnicodePropertiesOption);
}

void set(Country &country, const QString &kind, const QString &value) {
    if (kind == u"currency") {
        country.currency = value;
    } else if (kind == u"rates") {
        for (const QString &rate : value.split(u", "_s)) {
            country.taxRates.append(rate.toDouble());
        }
    } else if (kind == u"order") {
        country.dateOrder = value == u"month first" ? DateOrder::monthFirst : DateOrder::yearFirst;
    } else if (kind == u"calendar") {
        country.hasBuddhistYears = value == u"buddhist";
    } else if (kind == u"languages") {
        const QStringList codes = value.split(u", "_s);
        country.languages = Languages(codes.cbegin(), codes.cend());
    } else if (kind == u"dial") {
        country.dialCode = value;
    } else if (kind == u"domain") {
        country.domain = value;
    } else if (kind == u"places") {
        country.places = phrasesOf(value);
    } else if (kind == u"words") {
        country.words = phrasesOf(value);
    } else if (kind == u"tax") {
        country.taxNumber = patternOf(value);
    } else if (kind == u"hint") {
        country.hint = patternOf(value);
    } else if (kind == u"before") {
        country.currencySince = QDate::fromString(value.section(u' ', 0, 0), Qt::ISODate);
        country.currencyBefore = value.section(u' ', 1, 1);
    } else if (kind == u"post") {
        country.postcode = patternOf(value);
    }
}

QList<Country> loadedCountries() {
    QList<Country> table;
    const QList<QStringList> rows = tableRows(u":/engine/countries.txt"_s);
    for (const QStringList &row : rows) {
        auto country = std::ranges::find(table, row.value(0), &Country::code);
        if (country == table.end()) {
            table.append(Country());
            table.last().code = row.value(0);
            country = table.end() - 1;
        }
        set(*country, row.value(1), row.value(2));
    }
    return table;
}

} // namespace

const QList<Country> &countries() {
    static const QList<Country> table = loadedCountries();
    return table;
}

} // namespace fennick::engine
