#pragma once

#include <qpdf/Pipeline.hh>

namespace fennick::engine {

// The end of a pipeline of libqpdf that counts what arrives and keeps nothing of it. Above its limit it
// throws std::runtime_error, the only way to stop one.
class PdfStreamMeter : public Pipeline {
public:
    explicit PdfStreamMeter(size_t limit);

    void write(const unsigned char *data, size_t size) override;
    void finish() override;

    size_t size() const { return size_; }
    bool isOver() const { return size_ > limit_; }

private:
    size_t limit_;
    size_t size_ = 0;
};

} // namespace fennick::engine
