#pragma once

#include <QByteArrayView>

// Where image files keep the orientation that their camera recorded. All functions return 1 (upright) for
// anything absent, out of range or malformed, and never read outside their argument.
namespace fennick {

// `exif`: the TIFF structure ("II*" or "MM*" first), with or without the "Exif" mark before it.
int exifOrientation(QByteArrayView exif);

// `file`: a whole PNG file (chunk eXIf).
int pngOrientation(QByteArrayView file);

// `file`: a whole WebP file (chunk EXIF).
int webpOrientation(QByteArrayView file);

} // namespace fennick
