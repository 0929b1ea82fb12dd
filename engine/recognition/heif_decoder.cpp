#include "engine/recognition/heif_decoder.h"

#include "engine/recognition/picture_size.h"

#include <libheif/heif.h>

#include <algorithm>
#include <memory>

namespace fennick::engine {

namespace {

using Context = std::unique_ptr<heif_context, decltype(&heif_context_free)>;
using Handle = std::unique_ptr<heif_image_handle, decltype(&heif_image_handle_release)>;
using Image = std::unique_ptr<heif_image, decltype(&heif_image_release)>;

bool failed(const heif_error &error) {
    return error.code != heif_error_Ok;
}

Handle primaryPicture(heif_context *context) {
    heif_image_handle *handle = nullptr;
    if (failed(heif_context_get_primary_image_handle(context, &handle))) {
        handle = nullptr;
    }
    return Handle(handle, heif_image_handle_release);
}

Image decoded(const heif_image_handle *handle) {
    heif_image *image = nullptr;
    if (failed(
            heif_decode_image(handle, &image, heif_colorspace_RGB, heif_chroma_interleaved_RGB, nullptr))) {
        image = nullptr;
    }
    return Image(image, heif_image_release);
}

QImage copied(const heif_image *image) {
    int stride = 0;
    const uint8_t *pixels = heif_image_get_plane_readonly(image, heif_channel_interleaved, &stride);
    const int width = heif_image_get_width(image, heif_channel_interleaved);
    const int height = heif_image_get_height(image, heif_channel_interleaved);
    if (!pixels || width <= 0 || height <= 0) {
        return {};
    }
    return QImage(pixels, width, height, stride, QImage::Format_RGB888).copy();
}

} // namespace

std::expected<QImage, ReadError> decodedHeif(const QByteArray &bytes) {
    const Context context(heif_context_alloc(), heif_context_free);
    const auto size = static_cast<size_t>(bytes.size());
    if (failed(heif_context_read_from_memory_without_copy(context.get(), bytes.constData(), size, nullptr))) {
        return std::unexpected(ReadError::UnreadableImage);
    }
    const Handle handle = primaryPicture(context.get());
    if (!handle) {
        return std::unexpected(ReadError::UnreadableImage);
    }
    const QSize pixels(heif_image_handle_get_width(handle.get()), heif_image_handle_get_height(handle.get()));
    if (!isDecodableSize(pixels)) {
        return std::unexpected(ReadError::ImageTooLarge);
    }

    const Image image = decoded(handle.get());
    const QImage picture = image ? copied(image.get()) : QImage();
    if (picture.isNull()) {
        return std::unexpected(ReadError::UnreadableImage);
    }
    const QSize useful = recognisableSize(picture.size());
    if (useful == picture.size()) {
        return picture;
    }
    return picture.scaled(useful, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace fennick::engine
