#pragma once

#include <QSize>

// What a picture may cost in memory. A file's own header decides, before anything is allocated for it: a few
// bytes can claim billions of pixels.
namespace fennick {

struct PictureLimits {
    qint64 pixels;
    // The most that the pixels may take while they are decoded, in bytes. A PNG file of 199 megapixels with
    // 16 bits a sample is below the first limit of the converter, and far beyond this one.
    qint64 memory;

    constexpr bool allow(qint64 width, qint64 height) const {
        return width > 0 && height > 0 && width <= pixels / height;
    }
};

// The converter decodes one picture at a time, in a process with 1 GiB of memory; this is what the file, the
// libraries and a row or two leave of it. Cameras of today reach 200 megapixels.
inline constexpr PictureLimits converterLimits{.pixels = 200'000'000, .memory = 880'000'000};

// The engine decodes two at a time in the process that serves everyone. 100 megapixels are above the main
// mode of every phone's camera (50 megapixels). The memory is that of a picture of 512 MiB with 64 bits a
// pixel and of the same picture with 32 bits.
inline constexpr PictureLimits engineLimits{.pixels = 100'000'000, .memory = 512LL * 1024 * 1024 * 3 / 2};

// An image on a page of a PDF, in either program: PDFium decodes it whole.
inline constexpr PictureLimits pdfImageLimits = engineLimits;

// The size that suffices for a picture of the given size.
using UsefulSize = QSize (*)(QSize stored);

} // namespace fennick
