#include "files/heic_image.h"

#include "files/colour_profile.h"
#include "files/decoded_image.h"
#include "files/pixel_limits.h"

#include <libheif/heif.h>

#include <cstring>
#include <memory>

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

ColourProfile profileOf(const heif_image_handle *handle) {
    const std::size_t size = heif_image_handle_get_raw_color_profile_size(handle);
    if (size > 0 && size <= maximumFileSize) {
        QByteArray icc(static_cast<qsizetype>(size), Qt::Uninitialized);
        if (succeeded(heif_image_handle_get_raw_color_profile(handle, icc.data()))) {
            return profileFromIcc(icc);
        }
    }
    heif_color_profile_nclx *found = nullptr;
    if (!succeeded(heif_image_handle_get_nclx_color_profile(handle, &found))) {
        return profileFromIcc({});
    }
    const CodePoints codePoints(found);
    return profileFromCodePoints(codePoints->color_primaries, codePoints->transfer_characteristics);
}

Picture pixelsOf(const heif_image_handle *handle) {
    const DecodingOptions options(heif_decoding_options_alloc());
    if (!options) {
        return nullptr;
    }
    options->convert_hdr_to_8bit = 1;
    heif_image *decoded = nullptr;
    if (!succeeded(heif_decode_image(handle, &decoded, heif_colorspace_RGB, heif_chroma_interleaved_RGBA,
                                     options.get()))) {
        return nullptr;
    }
    return Picture(decoded);
}

QImage copied(const heif_image *picture, bool premultiplied) {
    int stride = 0;
    const std::uint8_t *pixels = heif_image_get_plane_readonly(picture, heif_channel_interleaved, &stride);
    const int width = heif_image_get_width(picture, heif_channel_interleaved);
    const int height = heif_image_get_height(picture, heif_channel_interleaved);
    if (!pixels || !isAcceptablePixelCount(width, height)) {
        return {};
    }
    const QImage view(pixels, width, height, stride,
                      premultiplied ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBA8888);
    return view.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

bool looksLikeHeif(const QByteArray &file) {
    constexpr qsizetype enough = 64;
    const auto answer = heif_check_filetype(reinterpret_cast<const std::uint8_t *>(file.constData()),
                                            static_cast<int>(qMin(file.size(), enough)));
    return answer == heif_filetype_yes_supported || answer == heif_filetype_maybe;
}

std::optional<StoredPicture> decodeHeif(const QByteArray &file) {
    const Context context(heif_context_alloc());
    if (!context) {
        return std::nullopt;
    }
    // The limit is the side of a square, for the coded picture and each of its tiles.
    constexpr int sideOfLargestSquare = 14142;
    static_assert(isAcceptablePixelCount(sideOfLargestSquare, sideOfLargestSquare));
    heif_context_set_maximum_image_size_limit(context.get(), sideOfLargestSquare);
    heif_image_handle *found = nullptr;
    if (!succeeded(heif_context_read_from_memory_without_copy(
            context.get(), file.constData(), static_cast<std::size_t>(file.size()), nullptr)) ||
        !succeeded(heif_context_get_primary_image_handle(context.get(), &found))) {
        return std::nullopt;
    }
    const Handle handle(found);
    if (!isAcceptablePixelCount(heif_image_handle_get_width(found), heif_image_handle_get_height(found))) {
        return std::nullopt;
    }

    Picture pixels = pixelsOf(found);
    if (!pixels) {
        return std::nullopt;
    }
    QImage image = copied(pixels.get(), heif_image_handle_is_premultiplied_alpha(found) != 0);
    pixels.reset();
    if (image.isNull()) {
        return std::nullopt;
    }
    convertToSrgb(image, profileOf(found));
    auto picture = yuvPictureOnWhite(std::move(image));
    if (!picture) {
        return std::nullopt;
    }
    // An orientation in the file's EXIF data repeats what the decoder has already done.
    constexpr int upright = 1;
    return StoredPicture{std::move(*picture), upright, {}};
}

} // namespace fennick
