#pragma once

#include "samples/receipt_page.h"

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

// Writers of the kinds of file receipts come in. Each returns whether the file was written.
namespace fennick {

// A4 pages with a text layer.
bool writeTextPdf(const QString &path, const QList<Page> &pages);

// A4 page with nothing but a picture.
bool writeScannedPdf(const QString &path, const QImage &picture);

// `format` is one of Qt's ("PNG", "JPG", "WEBP").
bool writePicture(const QString &path, const QImage &picture, const char *format, int quality);

// A JPEG as phones store it: the pixels lie on their side, and an Exif tag (orientation 6) says so.
bool writeTurnedJpeg(const QString &path, const QImage &upright, int quality);

bool writeHeic(const QString &path, const QImage &picture, int quality);

} // namespace fennick
