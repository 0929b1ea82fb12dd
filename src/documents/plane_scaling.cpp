#include "documents/plane_scaling.h"

#include <zimg.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

namespace fennick {

namespace {

zimg_image_format greyFormat(int width, int height) {
    zimg_image_format format;
    zimg_image_format_default(&format, ZIMG_API_VERSION);
    format.width = static_cast<unsigned>(width);
    format.height = static_cast<unsigned>(height);
    format.pixel_type = ZIMG_PIXEL_BYTE;
    format.color_family = ZIMG_COLOR_GREY;
    format.pixel_range = ZIMG_RANGE_FULL;
    return format;
}

bool run(const zimg_filter_graph *graph, const Plane &source, Plane &target) {
    std::size_t workSize = 0;
    if (zimg_filter_graph_get_tmp_size(graph, &workSize) != ZIMG_ERROR_SUCCESS) {
        return false;
    }
    // The plane type is simply a way to own aligned memory.
    constexpr int rowLength = 4096;
    Plane work(rowLength, static_cast<int>(workSize / rowLength) + 1);

    zimg_image_buffer_const from{};
    from.version = ZIMG_API_VERSION;
    from.plane[0].data = source.row(0);
    from.plane[0].stride = source.stride();
    from.plane[0].mask = ZIMG_BUFFER_MAX;
    zimg_image_buffer to{};
    to.version = ZIMG_API_VERSION;
    to.plane[0].data = target.row(0);
    to.plane[0].stride = target.stride();
    to.plane[0].mask = ZIMG_BUFFER_MAX;
    return zimg_filter_graph_process(graph, &from, &to, work.row(0), nullptr, nullptr, nullptr, nullptr) ==
           ZIMG_ERROR_SUCCESS;
}

// Scales the part of `source` from its upper-left corner that is `usedWidth` by `usedHeight` samples large.
// That part may be a fraction of a sample smaller or larger than the plane: chroma of an odd-sized picture.
std::optional<Plane> scaledPlane(const Plane &source, double usedWidth, double usedHeight, int width,
                                 int height) {
    zimg_image_format from = greyFormat(source.width(), source.height());
    from.active_region.left = 0;
    from.active_region.top = 0;
    from.active_region.width = usedWidth;
    from.active_region.height = usedHeight;
    const zimg_image_format to = greyFormat(width, height);
    zimg_graph_builder_params parameters;
    zimg_graph_builder_params_default(&parameters, ZIMG_API_VERSION);
    parameters.resample_filter = ZIMG_RESIZE_LANCZOS;

    const std::unique_ptr<zimg_filter_graph, decltype(&zimg_filter_graph_free)> graph(
        zimg_filter_graph_build(&from, &to, &parameters), zimg_filter_graph_free);
    if (!graph) {
        return std::nullopt;
    }
    Plane result(width, height);
    if (!run(graph.get(), source, result)) {
        return std::nullopt;
    }
    return result;
}

} // namespace

QSize fittedSize(QSize size, int longestSide) {
    const int longer = std::max(size.width(), size.height());
    if (longer <= longestSide) {
        return size;
    }
    const double factor = static_cast<double>(longestSide) / longer;
    const auto scaled = [factor](int length) {
        return std::max(1, static_cast<int>(std::lround(length * factor)));
    };
    return QSize(scaled(size.width()), scaled(size.height()));
}

std::optional<YuvPicture> scaledPicture(YuvPicture picture, QSize size) {
    const bool sameSize = size == QSize(picture.width, picture.height);
    const bool sameChroma =
        picture.isGrey() || (picture.lumaPerChromaX == perChroma && picture.lumaPerChromaY == perChroma);
    if (sameSize && sameChroma) {
        return picture;
    }

    YuvPicture result{size.width(), size.height(), perChroma, perChroma, {}};
    if (sameSize) {
        result.planes.push_back(std::move(picture.planes.front()));
    } else {
        auto luma =
            scaledPlane(picture.planes.front(), picture.width, picture.height, size.width(), size.height());
        if (!luma) {
            return std::nullopt;
        }
        result.planes.push_back(std::move(*luma));
    }
    const int chromaWidth = (size.width() + perChroma - 1) / perChroma;
    const int chromaHeight = (size.height() + perChroma - 1) / perChroma;
    const double usedWidth =
        static_cast<double>(chromaWidth) * perChroma * picture.width / size.width() / picture.lumaPerChromaX;
    const double usedHeight = static_cast<double>(chromaHeight) * perChroma * picture.height / size.height() /
                              picture.lumaPerChromaY;
    for (std::size_t index = 1; index < picture.planes.size(); ++index) {
        auto chroma = scaledPlane(picture.planes[index], usedWidth, usedHeight, chromaWidth, chromaHeight);
        if (!chroma) {
            return std::nullopt;
        }
        result.planes.push_back(std::move(*chroma));
    }
    return result;
}

} // namespace fennick
