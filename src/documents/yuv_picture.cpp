#include "documents/yuv_picture.h"

#include <turbojpeg.h>

#include <algorithm>
#include <array>
#include <new>

namespace fennick {

namespace {

constexpr int alignment = 64;

int alignedUp(int value) {
    return (value + alignment - 1) / alignment * alignment;
}

std::size_t byteCount(int stride, int rows) {
    return static_cast<std::size_t>(stride) * static_cast<std::size_t>(rows);
}

// The converter refuses sides over 65,500 pixels, which a picture may have before it is scaled.
constexpr int tileSide = 32768;

YuvPicture emptyPicture(QSize size) {
    YuvPicture picture{size.width(), size.height(), perChroma, perChroma, {}};
    picture.planes.emplace_back(size.width(), size.height());
    const int chromaWidth = (size.width() + perChroma - 1) / perChroma;
    const int chromaHeight = (size.height() + perChroma - 1) / perChroma;
    picture.planes.emplace_back(chromaWidth, chromaHeight);
    picture.planes.emplace_back(chromaWidth, chromaHeight);
    return picture;
}

bool convertTile(tjhandle encoder, const QImage &image, QRect tile, YuvPicture &result) {
    std::array<unsigned char *, 3> rows{};
    std::array<int, 3> strides{};
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const int perSample = index == 0 ? 1 : perChroma;
        Plane &plane = result.planes[index];
        rows[index] = plane.row(tile.top() / perSample) + tile.left() / perSample;
        strides[index] = plane.stride();
    }
    constexpr qsizetype bytesPerPixel = 4;
    return tjEncodeYUVPlanes(encoder, image.constScanLine(tile.top()) + tile.left() * bytesPerPixel,
                             tile.width(), static_cast<int>(image.bytesPerLine()), tile.height(), TJPF_BGRX,
                             rows.data(), strides.data(), TJSAMP_420, 0) == 0;
}

constexpr QRgb white = 0xFFFFFFFF;

// Pixels of four bytes in a line of the processor's cache (64 bytes).
constexpr int blendingRun = 16;

int overWhite(int channel, int alpha) {
    return (channel * alpha + 255 * (255 - alpha) + 127) / 255;
}

QRgb pixelOnWhite(QRgb pixel) {
    const int alpha = qAlpha(pixel);
    if (alpha == 255) {
        return pixel;
    }
    return qRgb(overWhite(qRed(pixel), alpha), overWhite(qGreen(pixel), alpha),
                overWhite(qBlue(pixel), alpha));
}

bool isTransparent(const QRgb *run) {
    QRgb all = 0;
    for (int index = 0; index < blendingRun; ++index) {
        all |= run[index];
    }
    return all >> 24 == 0;
}

} // namespace

void Plane::Release::operator()(std::uint8_t *samples) const {
    ::operator delete(samples, std::align_val_t{alignment});
}

Plane::Plane(int width, int height, int allocatedWidth, int allocatedHeight)
    : width_(width)
    , height_(height)
    , stride_(alignedUp(allocatedWidth))
    , samples_(static_cast<std::uint8_t *>(
          ::operator new(byteCount(stride_, allocatedHeight), std::align_val_t{alignment}))) {}

void Plane::fillSpareColumns() {
    for (int y = 0; y < height_; ++y) {
        std::fill(row(y) + width_, row(y) + stride_, row(y)[width_ - 1]);
    }
}

YuvPicture yuvPictureFromRgb(const QImage &image) {
    YuvPicture result = emptyPicture(image.size());
    const std::unique_ptr<void, int (*)(tjhandle)> encoder(tjInitCompress(), tjDestroy);
    if (!encoder) {
        return {};
    }
    for (int top = 0; top < image.height(); top += tileSide) {
        for (int left = 0; left < image.width(); left += tileSide) {
            const QRect tile = QRect(left, top, tileSide, tileSide).intersected(image.rect());
            if (!convertTile(encoder.get(), image, tile, result)) {
                return {};
            }
        }
    }
    return result;
}

void blendOntoWhite(QImage &image) {
    for (int y = 0; y < image.height(); ++y) {
        auto *pixel = reinterpret_cast<QRgb *>(image.scanLine(y));
        QRgb *const end = pixel + image.width();
        // Most of a page is empty: whole runs of it are filled without a look at each channel.
        for (; end - pixel >= blendingRun; pixel += blendingRun) {
            if (isTransparent(pixel)) {
                std::fill_n(pixel, blendingRun, white);
            } else {
                std::transform(pixel, pixel + blendingRun, pixel, pixelOnWhite);
            }
        }
        std::transform(pixel, end, pixel, pixelOnWhite);
    }
}

} // namespace fennick
