#include "documents/jpeg_decoder.h"

#include "documents/colour_profile.h"
#include "documents/exif_orientation.h"
#include "documents/jpeg_errors.h"

#include <jerror.h>

#include <cstdlib>
#include <optional>

namespace fennick {

namespace {

// A progressive file may hold any number of scans over the same picture; real ones have about ten. The limit
// keeps a small hostile file from taking minutes.
constexpr int maximumScanCount = 500;

constexpr int planeRowsAtOnce = MAX_SAMP_FACTOR * DCTSIZE;

// Warnings of libjpeg mean grey or displaced blocks in the picture, but for a few that leave it whole.
void leaveUnlessHarmless(j_common_ptr codec, int level) {
    if (level >= 0) {
        return;
    }
    switch (codec->err->msg_code) {
    case JWRN_EXTRANEOUS_DATA:
    case JWRN_ADOBE_XFORM:
    case JWRN_JFIF_MAJOR:
    case JWRN_NOT_SEQUENTIAL:
    case JWRN_BOGUS_ICC:
        return;
    default:
        JpegErrors::leave(codec);
    }
}

void leaveAfterTooManyScans(j_common_ptr codec) {
    if (reinterpret_cast<j_decompress_ptr>(codec)->input_scan_number > maximumScanCount) {
        JpegErrors::leave(codec);
    }
}

// One libjpeg decompressor over a file in memory. After a function has returned false, only destruction is
// allowed. The functions that call libjpeg own nothing that an error could skip the release of.
class Decompressor {
public:
    explicit Decompressor(const QByteArray &file);
    ~Decompressor() { jpeg_destroy_decompress(&codec_); }
    Q_DISABLE_COPY_MOVE(Decompressor)

    bool readHeader();
    bool readProfile(JOCTET **bytes, unsigned *size);
    bool readPlanes(YuvPicture &picture);
    bool readPixels(QImage &image, J_COLOR_SPACE pixelFormat);

    const jpeg_decompress_struct &codec() const { return codec_; }
    bool hasUsualPlanes() const;
    int orientation() const;

private:
    const QByteArray &file_;
    JpegErrors errors_{};
    jpeg_progress_mgr progress_{};
    jpeg_decompress_struct codec_{};
};

Decompressor::Decompressor(const QByteArray &file)
    : file_(file) {
    errors_.attachTo(codec_.err);
    errors_.base.emit_message = leaveUnlessHarmless;
}

bool Decompressor::readHeader() {
    if (setjmp(errors_.escape) != 0) {
        return false;
    }
    jpeg_create_decompress(&codec_);
    progress_.progress_monitor = leaveAfterTooManyScans;
    codec_.progress = &progress_;
    jpeg_mem_src(&codec_, reinterpret_cast<const unsigned char *>(file_.constData()),
                 static_cast<unsigned long>(file_.size()));
    jpeg_save_markers(&codec_, JPEG_APP0 + 1, 0xFFFF);
    jpeg_save_markers(&codec_, JPEG_APP0 + 2, 0xFFFF);
    return jpeg_read_header(&codec_, TRUE) == JPEG_HEADER_OK;
}

bool Decompressor::readProfile(JOCTET **bytes, unsigned *size) {
    if (setjmp(errors_.escape) != 0) {
        return false;
    }
    return jpeg_read_icc_profile(&codec_, bytes, size) != 0;
}

bool Decompressor::readPlanes(YuvPicture &picture) {
    if (setjmp(errors_.escape) != 0) {
        return false;
    }
    codec_.raw_data_out = TRUE;
    codec_.out_color_space = codec_.jpeg_color_space;
    jpeg_start_decompress(&codec_);
    JSAMPROW rows[MAX_COMPONENTS][planeRowsAtOnce];
    JSAMPARRAY planes[MAX_COMPONENTS];
    int blockRow = 0;
    while (codec_.output_scanline < codec_.output_height) {
        for (int index = 0; index < codec_.num_components; ++index) {
            Plane &plane = picture.planes[static_cast<std::size_t>(index)];
            const int rowCount = codec_.comp_info[index].v_samp_factor * DCTSIZE;
            for (int row = 0; row < rowCount; ++row) {
                rows[index][row] = plane.row(blockRow * rowCount + row);
            }
            planes[index] = rows[index];
        }
        const auto lines = static_cast<JDIMENSION>(codec_.max_v_samp_factor * DCTSIZE);
        jpeg_read_raw_data(&codec_, planes, lines);
        ++blockRow;
    }
    return true;
}

bool Decompressor::readPixels(QImage &image, J_COLOR_SPACE pixelFormat) {
    if (setjmp(errors_.escape) != 0) {
        return false;
    }
    codec_.out_color_space = pixelFormat;
    jpeg_start_decompress(&codec_);
    while (codec_.output_scanline < codec_.output_height) {
        JSAMPROW row = image.scanLine(static_cast<int>(codec_.output_scanline));
        jpeg_read_scanlines(&codec_, &row, 1);
    }
    return true;
}

bool Decompressor::hasUsualPlanes() const {
    if (codec_.num_components == 1) {
        return codec_.jpeg_color_space == JCS_GRAYSCALE;
    }
    if (codec_.num_components != 3 || codec_.jpeg_color_space != JCS_YCbCr) {
        return false;
    }
    const jpeg_component_info &luma = codec_.comp_info[0];
    const jpeg_component_info &blue = codec_.comp_info[1];
    const jpeg_component_info &red = codec_.comp_info[2];
    return blue.h_samp_factor == red.h_samp_factor && blue.v_samp_factor == red.v_samp_factor &&
           luma.h_samp_factor % blue.h_samp_factor == 0 && luma.v_samp_factor % blue.v_samp_factor == 0;
}

int Decompressor::orientation() const {
    constexpr QByteArrayView exifMark("Exif\0\0", 6);
    for (const jpeg_marker_struct *marker = codec_.marker_list; marker; marker = marker->next) {
        const QByteArrayView data(marker->data, static_cast<qsizetype>(marker->data_length));
        if (marker->marker == JPEG_APP0 + 1 && data.startsWith(exifMark)) {
            return exifOrientation(data);
        }
    }
    return 1;
}

QByteArray iccProfileOf(Decompressor &decompressor) {
    JOCTET *bytes = nullptr;
    unsigned size = 0;
    if (!decompressor.readProfile(&bytes, &size)) {
        return {};
    }
    const QByteArray profile(reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(size));
    std::free(bytes);
    return profile;
}

std::optional<YuvPicture> planesOf(Decompressor &decompressor) {
    const jpeg_decompress_struct &codec = decompressor.codec();
    YuvPicture picture;
    picture.width = static_cast<int>(codec.image_width);
    picture.height = static_cast<int>(codec.image_height);
    if (codec.num_components == 3) {
        picture.lumaPerChromaX = codec.comp_info[0].h_samp_factor / codec.comp_info[1].h_samp_factor;
        picture.lumaPerChromaY = codec.comp_info[0].v_samp_factor / codec.comp_info[1].v_samp_factor;
    }
    for (int index = 0; index < codec.num_components; ++index) {
        const int perSampleX = index == 0 ? 1 : picture.lumaPerChromaX;
        const int perSampleY = index == 0 ? 1 : picture.lumaPerChromaY;
        const int width = (picture.width + perSampleX - 1) / perSampleX;
        const int height = (picture.height + perSampleY - 1) / perSampleY;
        picture.planes.emplace_back(width, height, width + DCTSIZE, height + planeRowsAtOnce);
    }
    if (!decompressor.readPlanes(picture)) {
        return std::nullopt;
    }
    return picture;
}

std::optional<YuvPicture> planesOfPixels(Decompressor &decompressor, const ColourProfile &profile) {
    const jpeg_decompress_struct &codec = decompressor.codec();
    QImage image(static_cast<int>(codec.image_width), static_cast<int>(codec.image_height),
                 QImage::Format_RGB32);
    const bool inks = codec.num_components == 4;
    if (image.isNull() || !decompressor.readPixels(image, inks ? JCS_CMYK : JCS_EXT_BGRX)) {
        return std::nullopt;
    }
    // Every program that writes the Adobe mark also writes inverted inks.
    if (inks) {
        convertCmykToRgb(image, profile, codec.saw_Adobe_marker != 0);
    } else {
        convertToSrgb(image, profile);
    }
    YuvPicture picture = yuvPictureFromRgb(image);
    if (picture.planes.empty()) {
        return std::nullopt;
    }
    return picture;
}

} // namespace

std::expected<StoredPicture, DocumentError> decodedJpeg(const QByteArray &file, const PictureLimits &limits) {
    Decompressor decompressor(file);
    if (!decompressor.readHeader()) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    if (!limits.allow(decompressor.codec().image_width, decompressor.codec().image_height)) {
        return std::unexpected(DocumentError::imageTooLarge);
    }

    StoredPicture result;
    result.orientation = decompressor.orientation();
    const QByteArray profile = iccProfileOf(decompressor);
    std::optional<YuvPicture> picture;
    if (decompressor.hasUsualPlanes()) {
        result.iccProfile = profile;
        picture = planesOf(decompressor);
    } else {
        picture = planesOfPixels(decompressor, profileFromIcc(profile));
    }
    if (!picture) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    result.picture = std::move(*picture);
    return result;
}

std::optional<JpegFacts> jpegFacts(const QByteArray &file) {
    Decompressor decompressor(file);
    if (!decompressor.readHeader()) {
        return std::nullopt;
    }
    const jpeg_decompress_struct &codec = decompressor.codec();
    JpegFacts facts;
    facts.width = static_cast<int>(codec.image_width);
    facts.height = static_cast<int>(codec.image_height);
    facts.channels = codec.num_components;
    facts.orientation = decompressor.orientation();
    facts.iccProfile = iccProfileOf(decompressor);
    facts.isRgb = codec.jpeg_color_space == JCS_RGB;
    facts.hasAdobeMark = codec.saw_Adobe_marker != 0;
    facts.isArithmetic = codec.arith_code != 0;
    return facts;
}

} // namespace fennick
