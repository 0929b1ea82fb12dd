#include "engine/recognition/text_line.h"

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// Pieces of a row overlap by no more than letters that lean over each other.
bool lieOverEachOther(const QRectF &left, const QRectF &right) {
    const double shared = std::min(left.right(), right.right()) - std::max(left.left(), right.left());
    return shared > std::min(left.width(), right.width()) / 2;
}

// One row of a page while it is put together.
struct Row {
    QList<TextLine> pieces;
    QRectF box;

    // Half of the lower one's height must be shared: less joins neighbouring lines of a skewed scan.
    bool takes(const TextLine &piece) const {
        const double shared =
            std::min(box.bottom(), piece.box.bottom()) - std::max(box.top(), piece.box.top());
        if (piece.page != pieces.first().page || shared <= 0 ||
            shared < std::min(box.height(), piece.box.height()) / 2) {
            return false;
        }
        return std::ranges::none_of(
            pieces, [&piece](const TextLine &other) { return lieOverEachOther(other.box, piece.box); });
    }
};

// Some PDFs place every letter by itself: how far they stand apart tells letters, words and columns.
QString gapBetween(const QRectF &left, const QRectF &right, double tallest) {
    const double gap = right.left() - left.right();
    if (gap < 0.27 * tallest) {
        return {};
    }
    return gap < tallest ? u" "_s : u"  "_s;
}

void append(TextLine &line, const QString &gap, const TextLine &next) {
    line.text += gap;
    for (TextPiece piece : next.pieces) {
        piece.start += line.text.size();
        line.pieces.append(piece);
    }
    line.text += next.text;
    line.confidence = std::min(line.confidence, next.confidence);
}

TextLine joined(Row row) {
    QList<TextLine> &pieces = row.pieces;
    std::ranges::stable_sort(pieces, {}, [](const TextLine &piece) { return piece.box.left(); });
    double tallest = 0;
    for (const TextLine &piece : std::as_const(pieces)) {
        tallest = std::max(tallest, piece.box.height());
    }

    TextLine line = pieces.first();
    for (qsizetype index = 1; index < pieces.size(); ++index) {
        append(line, gapBetween(pieces[index - 1].box, pieces[index].box, tallest), pieces[index]);
    }
    line.box = row.box;
    return line;
}

} // namespace

QList<TextLine> joinedRows(QList<TextLine> fragments) {
    std::ranges::stable_sort(fragments, [](const TextLine &left, const TextLine &right) {
        if (left.page != right.page) {
            return left.page < right.page;
        }
        return left.box.center().y() < right.box.center().y();
    });

    QList<Row> rows;
    for (const TextLine &fragment : std::as_const(fragments)) {
        if (!rows.isEmpty() && rows.last().takes(fragment)) {
            rows.last().pieces.append(fragment);
            rows.last().box |= fragment.box;
        } else {
            rows.append({{fragment}, fragment.box});
        }
    }

    QList<TextLine> lines;
    for (const Row &row : std::as_const(rows)) {
        lines.append(joined(row));
    }
    return lines;
}

} // namespace fennick::engine
