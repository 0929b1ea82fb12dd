#pragma once

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
