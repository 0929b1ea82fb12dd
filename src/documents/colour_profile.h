#pragma once

#include <QByteArray>
#include <QImage>

#include <memory>

// Conversion of decoded pixels to sRGB, in place. The colour engine is Little CMS: Qt 6.4 reads neither
// profiles with look-up tables nor those of grey and CMYK pictures.
namespace fennick {

using ColourProfile = std::unique_ptr<void, int (*)(void *)>;

// A profile from the bytes of an ICC profile; null if they are none.
[[nodiscard]] ColourProfile profileFromIcc(const QByteArray &iccProfile);

// The four numbers by which an HEIF file names its colours (ITU-T H.273 code points). Null for sRGB itself
// and for code points that name no colours.
[[nodiscard]] ColourProfile profileFromCodePoints(int colourPrimaries, int transferCharacteristics);

// `image` has the format RGB32 or ARGB32; alpha does not change. Without a profile, or with one for another
// kind of picture, the pixels count as sRGB and do not change.
void convertToSrgb(QImage &image, const ColourProfile &profile);

// `image` has the format RGB32, but its four bytes a pixel are cyan, magenta, yellow and black, where
// `inverted` says that 255 stands for no ink. Without a usable profile the inks count as ideal ones.
void convertCmykToRgb(QImage &image, const ColourProfile &profile, bool inverted);

} // namespace fennick
