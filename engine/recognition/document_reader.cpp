#include "engine/recognition/document_reader.h"

#include "engine/recognition/image_decoder.h"
#include "engine/recognition/pdf_reader.h"
#include "engine/recognition/picture_reader.h"

#include <algorithm>

namespace fennick::engine {

namespace {

constexpr int mostPages = 5;

// The header may follow up to a kilobyte of other bytes (PDF 1.7, annex H, note 13).
bool looksLikePdf(const QByteArray &bytes) {
    return bytes.first(std::min<qsizetype>(bytes.size(), 1024)).contains("%PDF-");
}

} // namespace

std::expected<QList<Reading>, ReadError> readDocument(const QByteArray &bytes, const Sufficiency &isEnough,
                                                      const std::stop_token &stop,
                                                      const PdfReading &pagesOf) {
    if (stop.stop_requested()) {
        return std::unexpected(ReadError::Abandoned);
    }
    if (looksLikePdf(bytes)) {
        const std::expected<QList<PdfPage>, ReadError> pages = pagesOf(bytes, mostPages, stop);
        if (!pages) {
            return std::unexpected(pages.error());
        }
        return readPages(*pages, isEnough, stop);
    }
    const std::expected<QImage, ReadError> picture = decodedImage(bytes);
    if (!picture) {
        return std::unexpected(picture.error());
    }
    return readPages({{.lines = {}, .picture = *picture}}, isEnough, stop);
}

} // namespace fennick::engine
