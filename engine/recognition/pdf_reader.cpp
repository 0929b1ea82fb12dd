#include "engine/recognition/pdf_reader.h"

#include "documents/pdf_pages.h"
#include "engine/recognition/picture_size.h"

#include <QPdfDocument>
#include <QRegularExpression>
#include <QTransform>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennick::engine {

namespace {

// A stamp or a page number that a scanner added is no text layer.
constexpr qsizetype fewestCharactersOfText = 20;
// Each costs a fresh look at the page; a receipt needs one or two for each of its lines.
constexpr int mostLookUps = 1500;

bool isWorthReading(const QString &text) {
    const auto readable =
        std::ranges::count_if(text, [](QChar character) { return character.isLetterOrNumber(); });
    return readable >= fewestCharactersOfText;
}

// Where letters are placed one by one, PDFium may guess a blank inside of a word or a number: "2 3 .50". Only
// the places of the words say whether it is one.
bool hasDoubtfulBlanks(const QString &piece) {
    static const QRegularExpression loneCharacter(uR"((?:^|\s)\S(?:\s|$))"_s);
    return piece.contains(u' ') && piece.contains(loneCharacter);
}

// Newer Qt rounds places to whole points, so that neighbouring letters may seem a point farther apart than
// they are.
constexpr double roundingError = 0.4;

bool standsOnWholePoints(const TextLine &fragment) {
    return fragment.box == QRectF(fragment.box.toRect());
}

// The text of one page with the places of its pieces. PDFium gives it in drawing order and its line breaks
// are guesses: a row may come in many pieces, and several rows as one.
class PageText {
public:
    PageText(QPdfDocument &document, int page)
        : document_(document)
        , page_(page)
        , text_(document.getAllText(page).text()) {}

    QList<TextLine> rows() {
        if (!isWorthReading(text_)) {
            return {};
        }
        for (qsizetype start = 0; start < text_.size();) {
            const qsizetype lineFeed = text_.indexOf(u'\n', start);
            const qsizetype end = lineFeed < 0 ? text_.size() : lineFeed;
            collect(start, end);
            start = end + 1;
        }
        if (std::ranges::all_of(fragments_, standsOnWholePoints)) {
            for (TextLine &fragment : fragments_) {
                fragment.box.adjust(-roundingError, 0, roundingError, 0);
            }
        }
        const QSizeF size = document_.pagePointSize(page_);
        for (TextLine &fragment : fragments_) {
            fragment.pieces = {
                {.start = 0,
                 .length = fragment.text.size(),
                 .place = QTransform::fromScale(1 / size.width(), 1 / size.height()).mapRect(fragment.box)}};
        }
        return joinedRows(fragments_);
    }

private:
    // Halves the piece until each part stands on one row and its blanks can be believed.
    void collect(qsizetype start, qsizetype end) {
        const QString piece = text_.sliced(start, end - start).simplified();
        if (piece.isEmpty() || ++lookUps_ > mostLookUps) {
            return;
        }
        const QPdfSelection selection =
            document_.getSelectionAtIndex(page_, static_cast<int>(start), static_cast<int>(end - start));
        const qsizetype middle = blankNearMiddle(start, end);
        if ((standsOnOneRow(selection) && !hasDoubtfulBlanks(piece)) || middle < 0) {
            fragments_.append(
                {.text = piece, .box = selection.boundingRectangle(), .confidence = 1, .page = page_});
            return;
        }
        collect(start, middle);
        collect(middle + 1, end);
    }

    static bool standsOnOneRow(const QPdfSelection &selection) {
        double tallest = 0;
        const QList<QPolygonF> boxes = selection.bounds();
        for (const QPolygonF &box : boxes) {
            tallest = std::max(tallest, box.boundingRect().height());
        }
        return selection.boundingRectangle().height() <= 1.5 * tallest;
    }

    // The blank after the middle of the piece, or the last one before it; -1 without any inside.
    qsizetype blankNearMiddle(qsizetype start, qsizetype end) const {
        const qsizetype middle = start + (end - start) / 2;
        if (const qsizetype after = text_.indexOf(u' ', middle); after >= 0 && after < end - 1) {
            return after;
        }
        const qsizetype before = text_.lastIndexOf(u' ', middle);
        return before > start ? before : -1;
    }

    QPdfDocument &document_;
    int page_;
    QString text_;
    QList<TextLine> fragments_;
    int lookUps_ = 0;
};

QImage pagePicture(PdfPages &pages, int page) {
    const QSize size = renderSize(pages.document().pagePointSize(page));
    return size.isEmpty() ? QImage() : pages.render(page, size).convertToFormat(QImage::Format_Grayscale8);
}

PdfPage pageContent(PdfPages &pages, int page) {
    PdfPage content;
    if (pages.page(page).hasFonts) {
        content.lines = PageText(pages.document(), page).rows();
    }
    if (content.lines.isEmpty()) {
        content.picture = pagePicture(pages, page);
    }
    return content;
}

} // namespace

std::expected<QList<PdfPage>, ReadError> readPdf(const QByteArray &bytes, const PdfUse &use,
                                                 const std::stop_token &stop) {
    const auto opened = PdfPages::open(bytes, use);
    if (!opened) {
        return std::unexpected(readErrorOf(opened.error()));
    }

    PdfPages &pages = **opened;
    const int count = std::min(pages.document().pageCount(), pages.count());
    QList<PdfPage> contents;
    for (int page = 0; page < count; ++page) {
        if (stop.stop_requested()) {
            return std::unexpected(ReadError::abandoned);
        }
        contents.append(pageContent(pages, page));
    }
    return contents;
}

} // namespace fennick::engine
