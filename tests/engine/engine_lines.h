#pragma once

#include "engine/recognition/text_line.h"

#include <QStringList>

namespace fennick::engine {

// `texts` as lines of one page, one below the other.
inline QList<TextLine> linesOf(const QStringList &texts) {
    QList<TextLine> lines;
    for (qsizetype index = 0; index < texts.size(); ++index) {
        lines.append({.text = texts[index], .box = QRectF(0, 20.0 * static_cast<double>(index), 300, 15)});
    }
    return lines;
}

} // namespace fennick::engine
