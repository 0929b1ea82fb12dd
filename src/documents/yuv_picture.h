#pragma once

#include <QByteArray>
#include <QImage>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace fennick {

// Packed pixels are handed to the codecs as blue, green, red, alpha: Qt's 32-bit formats on such a machine.
static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN);

// One channel of a picture, 8 bits a sample. Rows start at multiples of `stride` bytes; base and stride are
// aligned to 64 bytes, as vector code wants them. There is memory for a column and a row more than the size
// says, because coders with one chroma sample for 2 by 2 pixels work on pairs. Owns its samples; moves only.
class Plane {
public:
    // Throws std::bad_alloc. The samples are not initialised.
    Plane(int width, int height)
        : Plane(width, height, width + 1, height + 1) {}

    // For decoders that write whole blocks over the right and lower edge.
    Plane(int width, int height, int allocatedWidth, int allocatedHeight);

    int width() const { return width_; }
    int height() const { return height_; }
    int stride() const { return stride_; }
    std::uint8_t *row(int y) { return samples_.get() + offsetOf(y); }
    const std::uint8_t *row(int y) const { return samples_.get() + offsetOf(y); }

    // Fills the memory to the right of each row, up to the stride, with the row's last sample.
    void fillSpareColumns();

private:
    struct Release {
        void operator()(std::uint8_t *samples) const;
    };

    std::ptrdiff_t offsetOf(int y) const { return static_cast<std::ptrdiff_t>(y) * stride_; }

    int width_;
    int height_;
    int stride_;
    std::unique_ptr<std::uint8_t, Release> samples_;
};

// Pixels that share a chroma sample across, and down, in a picture as it is written (4:2:0).
constexpr int perChroma = 2;

// A picture in the colour model of JPEG files (full range, BT.601 weights): either brightness alone or
// brightness and two chroma planes, of which one sample covers `lumaPerChromaX` by `lumaPerChromaY` pixels.
struct YuvPicture {
    int width = 0;
    int height = 0;
    int lumaPerChromaX = 1;
    int lumaPerChromaY = 1;
    std::vector<Plane> planes;

    bool isGrey() const { return planes.size() == 1; }
};

// With one chroma sample for 2 by 2 pixels, as it will be written. `image` must have the format RGB32 or an
// opaque ARGB32. Empty (no planes) if the conversion fails.
[[nodiscard]] YuvPicture yuvPictureFromRgb(const QImage &image);

// Lays the picture on white, in place, and makes it opaque. `image` must have the format ARGB32.
void blendOntoWhite(QImage &image);

// What a decoder found in a file: the picture as it is stored, how it has to be turned to stand upright
// (EXIF orientation, 1 to 8), and the colour profile its values belong to (empty: sRGB).
struct StoredPicture {
    YuvPicture picture;
    int orientation = 1;
    QByteArray iccProfile;
};

} // namespace fennick
