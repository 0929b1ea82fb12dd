#pragma once

#include "engine/fields/labelled_amounts.h"
#include "engine/fields/merchant_lines.h"
#include "engine/recognition/text_line.h"

#include <QStringList>

#include <type_traits>

namespace fennick::engine {

// `texts` as lines of one page, one below the other.
inline QList<TextLine> linesOf(const QStringList &texts) {
    QList<TextLine> lines;
    for (qsizetype index = 0; index < texts.size(); ++index) {
        lines.append({.text = texts[index], .box = QRectF(0, 20.0 * static_cast<double>(index), 300, 15)});
    }
    return lines;
}

// Languages whose words stand on receipts in tests.
inline const Languages testLanguages = {QStringLiteral("de"), QStringLiteral("fr"), QStringLiteral("es"),
                                        QStringLiteral("it"), QStringLiteral("nl"), QStringLiteral("pt"),
                                        QStringLiteral("sv"), QStringLiteral("da"), QStringLiteral("no"),
                                        QStringLiteral("ms")};

// The amounts of a reading in one of them, in a currency of hundredths.
inline QList<LabelledAmount> amountsOf(const Reading &reading) {
    return labelledAmounts(reading, AmountRoles(testLanguages), {}, {});
}

// What each of the readings says by itself.
template <typename Fact>
auto factOfEach(const QList<Reading> &readings, Fact fact) {
    QList<std::invoke_result_t<Fact, const Reading &>> facts;
    for (const Reading &reading : readings) {
        facts.append(fact(reading));
    }
    return facts;
}

} // namespace fennick::engine
