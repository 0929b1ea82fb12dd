#pragma once

#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace fennick::engine {

// What on a receipt points to one country. Phrases are words without accents, as wordsOf() gives them.
struct Country {
    QString code;     // ISO 3166-1
    QString currency; // ISO 4217
    bool isMonthFirst = false;
    QString dialCode; // empty if it is no evidence
    QString domain;
    QStringList places;
    QStringList words;
    QRegularExpression taxNumber; // empty patterns match nothing
    QRegularExpression postcode;
};

// All countries that are known, in the order of countries.txt. Callable from any thread.
[[nodiscard]] const QList<Country> &countries();

} // namespace fennick::engine
