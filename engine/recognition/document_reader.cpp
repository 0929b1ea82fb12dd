#include "engine/recognition/document_reader.h"

#include "engine/recognition/image_decoder.h"
#include "engine/recognition/pdf_reader.h"
#include "engine/recognition/picture_reader.h"
#include "kinds/document_kind.h"

namespace fennick::engine {

namespace {

constexpr int mostPages = 5;

} // namespace

std::expected<QList<Reading>, ReadError> readDocument(const QByteArray &bytes, const Sufficiency &isEnough,
                                                      const std::stop_token &stop,
                                                      const PdfReading &pagesOf) {
    if (stop.stop_requested()) {
        return std::unexpected(ReadError::abandoned);
    }
    if (kindOfContent(bytes) == DocumentKind::pdf) {
        const std::expected<QList<PdfPage>, ReadError> pages = pagesOf(bytes, {.pageLimit = mostPages}, stop);
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
