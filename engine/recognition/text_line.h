#pragma once

#include <QList>
#include <QRectF>
#include <QString>

namespace fennick::engine {

// A part of a line whose place is known by itself: a word, or what a PDF draws in one go.
struct TextPiece {
    qsizetype start = 0; // in characters of the line
    qsizetype length = 0;
    QRectF place; // on the page as it is shown, 0 to 1 from its top left corner
};

// One line of a document as a reader sees it.
struct TextLine {
    QString text;
    QRectF box;              // from the page's top left corner, in the unit of its source (pixels or points)
    double confidence = 1.0; // 0 to 1; a PDF's own text is 1
    int page = 0;            // from 0
    QList<TextPiece> pieces = {};
};

// All lines of a document, from top to bottom, as one look at it gave them.
using Reading = QList<TextLine>;

// Joins what stands side by side on one page ("Total" at the left margin, "23.50" at the right) to one line
// each, and orders the lines from top to bottom. Two spaces mark a gap as wide as the letters are high.
QList<TextLine> joinedRows(QList<TextLine> fragments);

} // namespace fennick::engine
