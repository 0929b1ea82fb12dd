#pragma once

#include "engine/knowledge/word_table.h"

#include <QDate>
#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace fennick::engine {

// How to read 03/04/05 if nothing in it shows which number is the day, the month or the year.
enum class DateOrder {
    dayFirst,
    monthFirst,
    yearFirst,
};

// What on a receipt points to one country. Phrases are words without accents, as wordsOf() gives them.
struct Country {
    QString code;           // ISO 3166-1
    QString currency;       // ISO 4217
    QList<double> taxRates; // per cent
    DateOrder dateOrder = DateOrder::dayFirst;
    bool hasBuddhistYears = false;
    Languages languages; // besides English
    QString dialCode;    // empty if it is no evidence
    QString domain;
    QStringList places;
    QStringList words;
    QRegularExpression taxNumber; // empty patterns match nothing
    QRegularExpression postcode;
    QRegularExpression hint;
    QDate currencySince; // an invalid one if it has always had its currency
    QString currencyBefore;
};

// All countries that are known, in the order of countries.txt. Callable from any thread.
[[nodiscard]] const QList<Country> &countries();

} // namespace fennick::engine
