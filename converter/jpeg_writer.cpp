#include "converter/jpeg_writer.h"

#include "documents/jpeg_encoder.h"

#include <QFile>

#include <utility>

namespace fennick {

namespace {

constexpr int quality = 90;

bool written(const QByteArray &bytes, const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        return false;
    }
    const bool complete = file.write(bytes) == bytes.size();
    file.close();
    if (complete && file.error() == QFileDevice::NoError) {
        return true;
    }
    file.remove();
    return false;
}

} // namespace

bool writeJpeg(YuvPicture picture, const QByteArray &iccProfile, const QString &path) {
    const auto file = encodedJpeg(std::move(picture), iccProfile, quality);
    return file && written(*file, path);
}

} // namespace fennick
