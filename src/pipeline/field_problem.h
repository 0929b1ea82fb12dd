#pragma once

#include <QString>

namespace fennick {

// Why what was typed into a receipt's field cannot be understood.
struct FieldProblem {
    enum class Kind {
        unknownDay,      // a day that its month or its year lacks
        unknownMonth,    // a month beyond December
        unclearDate,     // no date at all
        unclearTime,     // no time of day
        unclearAmount,   // no number
        unknownCurrency, // no code of ISO 4217
        unknownCategory, // none of the program's categories
    };

    Kind kind;
    QString payload; // unknownDay: the day in words; unclearDate, unclearAmount: an example; otherwise what
                     // was typed

    // A sentence for the user, without a full stop.
    [[nodiscard]] QString description() const;

    bool operator==(const FieldProblem &other) const = default;
};

} // namespace fennick
