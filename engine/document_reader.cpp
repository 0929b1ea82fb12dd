#include "engine/document_reader.h"

#include "engine/image_decoder.h"
#include "engine/pdf_reader.h"
#include "engine/text_recogniser.h"

#include <algorithm>
#include <chrono>
#include <memory>

namespace fennick {

namespace {

using namespace std::chrono_literals;

constexpr int pageLimit = 5;
// For all pages. Callers give up after a minute, part of which a document may have waited for its turn; the
// pages read by then are worth more than nothing. A page takes a second or so.
constexpr auto recognitionTime = 25s;

// The header may follow up to a kilobyte of other bytes (PDF 1.7, annex H, note 13).
bool looksLikePdf(const QByteArray &bytes) {
    return bytes.first(std::min<qsizetype>(bytes.size(), 1024)).contains("%PDF-");
}

std::expected<QList<TextLine>, ReadError> textOfPages(const QList<PdfPage> &pages) {
    const QDeadlineTimer deadline(recognitionTime);
    std::unique_ptr<TextRecogniser> recogniser;
    QList<TextLine> lines;
    for (int page = 0; page < pages.size(); ++page) {
        lines += pages[page].lines;
        if (pages[page].picture.isNull()) {
            continue;
        }
        if (!recogniser) {
            recogniser = std::make_unique<TextRecogniser>();
        }
        if (!recogniser->isReady()) {
            return std::unexpected(ReadError::RecogniserMissing);
        }
        lines += recogniser->recognise(pages[page].picture, page, deadline);
    }
    return lines;
}

} // namespace

std::expected<QList<TextLine>, ReadError> readDocument(const QByteArray &bytes) {
    if (looksLikePdf(bytes)) {
        const std::expected<QList<PdfPage>, ReadError> pages = readPdf(bytes, pageLimit);
        if (!pages) {
            return std::unexpected(pages.error());
        }
        return textOfPages(*pages);
    }
    const std::expected<QImage, ReadError> picture = decodedImage(bytes);
    if (!picture) {
        return std::unexpected(picture.error());
    }
    return textOfPages({{.lines = {}, .picture = *picture}});
}

} // namespace fennick
