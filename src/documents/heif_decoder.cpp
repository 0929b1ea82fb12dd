#include "documents/heif_decoder.h"

#include "documents/colour_profile.h"
#include "documents/qt_image_decoder.h"
#include "platform/regular_file.h"

#include <libheif/heif.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <ranges>

namespace fennick {

namespace {

template <auto release>
struct Releaser {
    template <typename Type>
    void operator()(Type *object) const {
        release(object);
    }
};

using Context = std::unique_ptr<heif_context, Releaser<heif_context_free>>;
using Handle = std::unique_ptr<heif_image_handle, Releaser<heif_image_handle_release>>;
using Picture = std::unique_ptr<heif_image, Releaser<heif_image_release>>;
using DecodingOptions = std::unique_ptr<heif_decoding_options, Releaser<heif_decoding_options_free>>;
using CodePoints = std::unique_ptr<heif_color_profile_nclx, Releaser<heif_nclx_color_profile_free>>;

bool succeeded(heif_error error) {
    return error.code == heif_error_Ok;
}

QByteArray iccProfileOf(const heif_image_handle *handle) {
    const std::size_t size = heif_image_handle_get_raw_color_profile_size(handle);
    if (size == 0 || size > largestReceiptFile) {
        return {};
    }
    QByteArray icc(static_cast<qsizetype>(size), Qt::Uninitialized);
    return succeeded(heif_image_handle_get_raw_color_profile(handle, icc.data())) ? icc : QByteArray();
}

// Absent when the file states none.
CodePoints codePointsOf(const heif_image_handle *handle) {
    heif_color_profile_nclx *found = nullptr;
    return CodePoints(succeeded(heif_image_handle_get_nclx_color_profile(handle, &found)) ? found : nullptr);
}

CodePoints codePointsOf(const heif_image *picture) {
    heif_color_profile_nclx *found = nullptr;
    return CodePoints(succeeded(heif_image_get_nclx_color_profile(picture, &found)) ? found : nullptr);
}

ColourProfile profileOf(const heif_image_handle *handle) {
    if (const QByteArray icc = iccProfileOf(handle); !icc.isEmpty()) {
        return profileFromIcc(icc);
    }
    const CodePoints codePoints = codePointsOf(handle);
    return codePoints
               ? profileFromCodePoints(codePoints->color_primaries, codePoints->transfer_characteristics)
               : profileFromIcc({});
}

Picture decoded(const heif_image_handle *handle, heif_colorspace colours, heif_chroma chroma) {
    const DecodingOptions options(heif_decoding_options_alloc());
    if (!options) {
        return nullptr;
    }
    options->convert_hdr_to_8bit = 1;
    heif_image *picture = nullptr;
    if (!succeeded(heif_decode_image(handle, &picture, colours, chroma, options.get()))) {
        return nullptr;
    }
    return Picture(picture);
}

// Whether the samples mean what they mean in a JPEG file: full range, BT.601 weights.
bool isAsInJpeg(const CodePoints &codePoints) {
    return !codePoints ||
           (codePoints->full_range_flag != 0 &&
            (codePoints->matrix_coefficients == heif_matrix_coefficients_unspecified ||
             codePoints->matrix_coefficients == heif_matrix_coefficients_ITU_R_BT_470_6_System_B_G ||
             codePoints->matrix_coefficients == heif_matrix_coefficients_ITU_R_BT_601_6));
}

bool mayHaveUsualPlanes(const heif_image_handle *handle) {
    constexpr int bits = 8;
    const CodePoints codePoints = codePointsOf(handle);
    const bool needsConversion = codePoints && profileFromCodePoints(codePoints->color_primaries,
                                                                     codePoints->transfer_characteristics);
    return heif_image_handle_has_alpha_channel(handle) == 0 &&
           heif_image_handle_get_luma_bits_per_pixel(handle) == bits &&
           heif_image_handle_get_chroma_bits_per_pixel(handle) == bits && isAsInJpeg(codePoints) &&
           !needsConversion;
}

std::optional<Plane> planeOf(const heif_image *picture, heif_channel channel) {
    int stride = 0;
    const std::uint8_t *samples = heif_image_get_plane_readonly(picture, channel, &stride);
    const int width = heif_image_get_width(picture, channel);
    const int height = heif_image_get_height(picture, channel);
    if (!samples || width <= 0 || height <= 0) {
        return std::nullopt;
    }
    Plane plane(width, height);
    for (int y = 0; y < height; ++y) {
        std::memcpy(plane.row(y), samples + static_cast<std::ptrdiff_t>(y) * stride,
                    static_cast<std::size_t>(width));
    }
    return plane;
}

// The picture as it is coded, without a way over red, green and blue, which takes half of the time after
// decoding and, for 12 megapixels, 105 MB in place of 180. Nothing when its samples are of another kind than
// those of JPEG files.
std::optional<YuvPicture> usualPlanesOf(const heif_image_handle *handle, const PictureLimits &limits) {
    const Picture coded = decoded(handle, heif_colorspace_YCbCr, heif_chroma_420);
    if (!coded || !isAsInJpeg(codePointsOf(coded.get()))) {
        return std::nullopt;
    }
    YuvPicture picture;
    for (const heif_channel channel : {heif_channel_Y, heif_channel_Cb, heif_channel_Cr}) {
        std::optional<Plane> plane = planeOf(coded.get(), channel);
        if (!plane) {
            return std::nullopt;
        }
        picture.planes.push_back(std::move(*plane));
    }
    picture.width = picture.planes.front().width();
    picture.height = picture.planes.front().height();
    picture.lumaPerChromaX = picture.lumaPerChromaY = perChroma;
    const QSize chromaSize((picture.width + 1) / perChroma, (picture.height + 1) / perChroma);
    const bool isComplete =
        std::ranges::all_of(picture.planes | std::views::drop(1), [=](const Plane &plane) {
            return QSize(plane.width(), plane.height()) == chromaSize;
        });
    if (!isComplete || !limits.allow(picture.width, picture.height)) {
        return std::nullopt;
    }
    return picture;
}

QImage copied(const heif_image *picture, bool premultiplied, const PictureLimits &limits) {
    int stride = 0;
    const std::uint8_t *pixels = heif_image_get_plane_readonly(picture, heif_channel_interleaved, &stride);
    const int width = heif_image_get_width(picture, heif_channel_interleaved);
    const int height = heif_image_get_height(picture, heif_channel_interleaved);
    if (!pixels || !limits.allow(width, height)) {
        return {};
    }
    const QImage view(pixels, width, height, stride,
                      premultiplied ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBA8888);
    return view.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

std::expected<StoredPicture, DocumentError> decodedHeif(const QByteArray &file, const PictureLimits &limits) {
    const Context context(heif_context_alloc());
    if (!context) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    // For the coded picture and each of its tiles. Newer versions of the library take it for the side of a
    // square whose area counts: 200 megapixels.
    constexpr int longestCodedSide = 14142;
    static_assert(converterLimits.allow(longestCodedSide, longestCodedSide));
    heif_context_set_maximum_image_size_limit(context.get(), longestCodedSide);
    heif_image_handle *found = nullptr;
    if (!succeeded(heif_context_read_from_memory_without_copy(
            context.get(), file.constData(), static_cast<std::size_t>(file.size()), nullptr)) ||
        !succeeded(heif_context_get_primary_image_handle(context.get(), &found))) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    const Handle handle(found);
    if (!limits.allow(heif_image_handle_get_width(found), heif_image_handle_get_height(found))) {
        return std::unexpected(DocumentError::imageTooLarge);
    }

    // An orientation in the file's EXIF data repeats what the decoder has already done.
    constexpr int upright = 1;
    if (mayHaveUsualPlanes(found)) {
        if (auto picture = usualPlanesOf(found, limits)) {
            return StoredPicture{std::move(*picture), upright, iccProfileOf(found)};
        }
    }
    Picture pixels = decoded(found, heif_colorspace_RGB, heif_chroma_interleaved_RGBA);
    if (!pixels) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    QImage image = copied(pixels.get(), heif_image_handle_is_premultiplied_alpha(found) != 0, limits);
    pixels.reset();
    if (image.isNull()) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    convertToSrgb(image, profileOf(found));
    auto picture = yuvPictureOnWhite(std::move(image));
    if (!picture) {
        return std::unexpected(DocumentError::unreadableImage);
    }
    return StoredPicture{std::move(*picture), upright, {}};
}

} // namespace fennick
