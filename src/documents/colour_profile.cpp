#include "documents/colour_profile.h"

#include <lcms2.h>

#include <array>
#include <optional>

namespace fennick {

namespace {

constexpr cmsUInt32Number rgbPixel = TYPE_BGRA_8;

// Grey pictures are held as RGB with three equal channels: the colour engine reads the first, skips the rest.
constexpr cmsUInt32Number greyInRgbPixel =
    COLORSPACE_SH(PT_GRAY) | EXTRA_SH(3) | CHANNELS_SH(1) | BYTES_SH(1);

int closeProfile(void *profile) {
    return cmsCloseProfile(profile);
}

ColourProfile owned(cmsHPROFILE profile) {
    return ColourProfile(profile, closeProfile);
}

// Transforms every pixel in place. False when the profile cannot be used for pixels of this format.
bool transform(QImage &image, const ColourProfile &profile, cmsUInt32Number pixelFormat) {
    const ColourProfile srgb = owned(cmsCreate_sRGBProfile());
    // Without its cache a transform may be used by one thread while others are made.
    const std::unique_ptr<void, void (*)(void *)> steps(
        cmsCreateTransform(profile.get(), pixelFormat, srgb.get(), rgbPixel, INTENT_PERCEPTUAL,
                           cmsFLAGS_NOCACHE),
        cmsDeleteTransform);
    if (!steps) {
        return false;
    }
    for (int y = 0; y < image.height(); ++y) {
        uchar *row = image.scanLine(y);
        cmsDoTransform(steps.get(), row, row, static_cast<cmsUInt32Number>(image.width()));
    }
    return true;
}

std::optional<cmsCIExyYTRIPLE> primariesOf(int codePoint) {
    switch (codePoint) {
    case 9: // BT.2020
        return cmsCIExyYTRIPLE{{0.708, 0.292, 1}, {0.170, 0.797, 1}, {0.131, 0.046, 1}};
    case 12: // Display P3
        return cmsCIExyYTRIPLE{{0.680, 0.320, 1}, {0.265, 0.690, 1}, {0.150, 0.060, 1}};
    case 5: // BT.601, 625 lines
        return cmsCIExyYTRIPLE{{0.640, 0.330, 1}, {0.290, 0.600, 1}, {0.150, 0.060, 1}};
    case 6: // BT.601, 525 lines
    case 7:
        return cmsCIExyYTRIPLE{{0.630, 0.340, 1}, {0.310, 0.595, 1}, {0.155, 0.070, 1}};
    case 1: // BT.709, the primaries of sRGB
        return cmsCIExyYTRIPLE{{0.640, 0.330, 1}, {0.300, 0.600, 1}, {0.150, 0.060, 1}};
    default:
        return std::nullopt;
    }
}

using ToneCurve = std::unique_ptr<cmsToneCurve, void (*)(cmsToneCurve *)>;

// Curves as type 4 of Little CMS: Y = (aX + b)^g for X >= d, else cX. Video curves (BT.709 and its likes)
// count as the sRGB curve, which is what still pictures tagged with them were made for.
ToneCurve toneCurveOf(int codePoint) {
    constexpr int linear = 8;
    if (codePoint == linear) {
        return ToneCurve(cmsBuildGamma(nullptr, 1.0), cmsFreeToneCurve);
    }
    constexpr int parametricType = 4;
    constexpr std::array<cmsFloat64Number, 5> srgb{2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    return ToneCurve(cmsBuildParametricToneCurve(nullptr, parametricType, srgb.data()), cmsFreeToneCurve);
}

// Ideal inks: each takes its share of its complementary colour away, black takes it from all three.
void convertIdealInks(QImage &image, bool inverted) {
    const int flip = inverted ? 0 : 255;
    for (int y = 0; y < image.height(); ++y) {
        auto *pixels = reinterpret_cast<QRgb *>(image.scanLine(y));
        const uchar *inks = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x, inks += 4) {
            const int light = inks[3] ^ flip;
            const auto remaining = [light, flip](uchar ink) {
                return ((ink ^ flip) * light + 127) / 255;
            };
            pixels[x] = qRgb(remaining(inks[0]), remaining(inks[1]), remaining(inks[2]));
        }
    }
}

} // namespace

ColourProfile profileFromIcc(const QByteArray &iccProfile) {
    if (iccProfile.isEmpty()) {
        return owned(nullptr);
    }
    return owned(
        cmsOpenProfileFromMem(iccProfile.constData(), static_cast<cmsUInt32Number>(iccProfile.size())));
}

ColourProfile profileFromCodePoints(int colourPrimaries, int transferCharacteristics) {
    constexpr int sameAsSrgb = 1;
    constexpr int linear = 8;
    const auto primaries = primariesOf(colourPrimaries);
    if (!primaries || (colourPrimaries == sameAsSrgb && transferCharacteristics != linear)) {
        return owned(nullptr);
    }
    constexpr cmsCIExyY daylight{0.3127, 0.3290, 1};
    const ToneCurve curve = toneCurveOf(transferCharacteristics);
    const std::array<cmsToneCurve *, 3> curves{curve.get(), curve.get(), curve.get()};
    return owned(cmsCreateRGBProfile(&daylight, &*primaries, curves.data()));
}

void convertToSrgb(QImage &image, const ColourProfile &profile) {
    if (!profile) {
        return;
    }
    const auto space = cmsGetColorSpace(profile.get());
    if (space == cmsSigRgbData) {
        transform(image, profile, rgbPixel);
    } else if (space == cmsSigGrayData) {
        transform(image, profile, greyInRgbPixel);
    }
}

void convertCmykToRgb(QImage &image, const ColourProfile &profile, bool inverted) {
    const bool usable = profile && cmsGetColorSpace(profile.get()) == cmsSigCmykData;
    if (!usable || !transform(image, profile, inverted ? TYPE_CMYK_8_REV : TYPE_CMYK_8)) {
        convertIdealInks(image, inverted);
    }
}

} // namespace fennick
