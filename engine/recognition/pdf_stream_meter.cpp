#include "engine/recognition/pdf_stream_meter.h"

#include <stdexcept>

namespace fennick::engine {

PdfStreamMeter::PdfStreamMeter(size_t limit)
    : Pipeline("meter", nullptr)
    , limit_(limit) {}

void PdfStreamMeter::write(const unsigned char *, size_t size) {
    size_ += size;
    if (isOver()) {
        throw std::runtime_error("the stream is too large");
    }
}

void PdfStreamMeter::finish() {}

} // namespace fennick::engine
