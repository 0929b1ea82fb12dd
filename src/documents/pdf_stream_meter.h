#pragma once

#include <qpdf/Pipeline.hh>

#include <stdexcept>

namespace fennick {

// The end of a pipeline of libqpdf that counts the bytes that arrive and discards them. Above its limit it
// throws std::runtime_error, which is the only way to stop a pipeline.
class PdfStreamMeter : public Pipeline {
public:
    explicit PdfStreamMeter(size_t limit)
        : Pipeline("meter", nullptr)
        , limit_(limit) {}

    void write(const unsigned char *, size_t size) override {
        size_ += size;
        if (isOver()) {
            throw std::runtime_error("the stream is too large");
        }
    }
    void finish() override {}

    size_t size() const { return size_; }
    bool isOver() const { return size_ > limit_; }

private:
    size_t limit_;
    size_t size_ = 0;
};

} // namespace fennick
