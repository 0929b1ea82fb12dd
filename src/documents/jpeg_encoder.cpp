#include "documents/jpeg_encoder.h"

#include "documents/jpeg_errors.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace fennick {

namespace {

// The profile is stored in pieces, which are counted in one byte.
constexpr qsizetype largestProfile = 255 * 65519;

// One libjpeg compressor into memory. `compress` owns nothing that an error of libjpeg could skip the release
// of.
class Compressor {
public:
    Compressor() { errors_.attachTo(codec_.err); }
    ~Compressor() {
        jpeg_destroy_compress(&codec_);
        std::free(bytes_);
    }
    Q_DISABLE_COPY_MOVE(Compressor)

    [[nodiscard]] bool compress(YuvPicture &picture, const QByteArray &iccProfile, int quality);

    // The file; valid as long as this object is.
    QByteArrayView file() const { return {bytes_, static_cast<qsizetype>(size_)}; }

private:
    void writeRows(YuvPicture &picture);

    JpegErrors errors_{};
    jpeg_compress_struct codec_{};
    unsigned char *bytes_ = nullptr;
    unsigned long size_ = 0;
};

// libjpeg quarters the chroma by default, as is usual at this quality: the print of a receipt is in its
// brightness, and a file with full chroma is half as large again.
bool Compressor::compress(YuvPicture &picture, const QByteArray &iccProfile, int quality) {
    if (setjmp(errors_.escape) != 0) {
        return false;
    }
    jpeg_create_compress(&codec_);
    jpeg_mem_dest(&codec_, &bytes_, &size_);
    codec_.image_width = static_cast<JDIMENSION>(picture.width);
    codec_.image_height = static_cast<JDIMENSION>(picture.height);
    codec_.input_components = static_cast<int>(picture.planes.size());
    codec_.in_color_space = picture.isGrey() ? JCS_GRAYSCALE : JCS_YCbCr;
    jpeg_set_defaults(&codec_);
    jpeg_set_quality(&codec_, quality, TRUE);
    codec_.dct_method = JDCT_ISLOW;
    codec_.raw_data_in = TRUE;
    jpeg_start_compress(&codec_, TRUE);
    if (!iccProfile.isEmpty() && iccProfile.size() <= largestProfile) {
        jpeg_write_icc_profile(&codec_, reinterpret_cast<const JOCTET *>(iccProfile.constData()),
                               static_cast<unsigned>(iccProfile.size()));
    }
    while (codec_.next_scanline < codec_.image_height) {
        writeRows(picture);
    }
    jpeg_finish_compress(&codec_);
    return true;
}

// One row of blocks, which the last row of samples fills where the picture ends.
void Compressor::writeRows(YuvPicture &picture) {
    std::array<std::array<JSAMPROW, MAX_SAMP_FACTOR * DCTSIZE>, 3> rows{};
    std::array<JSAMPARRAY, 3> planes{};
    const int blockRow = static_cast<int>(codec_.next_scanline) / (codec_.max_v_samp_factor * DCTSIZE);
    for (std::size_t index = 0; index < picture.planes.size(); ++index) {
        Plane &plane = picture.planes[index];
        const int count = codec_.comp_info[index].v_samp_factor * DCTSIZE;
        for (int row = 0; row < count; ++row) {
            rows[index][static_cast<std::size_t>(row)] =
                plane.row(std::min(blockRow * count + row, plane.height() - 1));
        }
        planes[index] = rows[index].data();
    }
    jpeg_write_raw_data(&codec_, planes.data(), static_cast<JDIMENSION>(codec_.max_v_samp_factor * DCTSIZE));
}

} // namespace

std::optional<QByteArray> encodedJpeg(YuvPicture picture, const QByteArray &iccProfile, int quality) {
    for (Plane &plane : picture.planes) {
        plane.fillSpareColumns(); // blocks reach beyond the right edge
    }
    Compressor compressor;
    if (!compressor.compress(picture, iccProfile, quality)) {
        return std::nullopt;
    }
    return compressor.file().toByteArray();
}

} // namespace fennick
