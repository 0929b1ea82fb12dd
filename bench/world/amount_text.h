#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace fennick {

// How an amount is written, shown by how 1234.5 is: "1.234,50 €", "$1,234.50", "1 234:-", "KD 1,234.500".
struct AmountShape {
    QString before;
    QString group;
    QString point; // empty without decimals
    int decimals = 0;
    QString after;

    static AmountShape of(const QString &sample);
};

// `amount` in the currency's smallest units, of which `digits` are behind the point.
QString amountText(int64_t amount, int digits, const AmountShape &shape);

// Whether `shape` leaves nothing of the amount out.
bool isExact(int64_t amount, int digits, const AmountShape &shape);

} // namespace fennick
