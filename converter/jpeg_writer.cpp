#include "converter/jpeg_writer.h"

#include <QFile>
#include <QtEndian>

#include <turbojpeg.h>

#include <algorithm>
#include <array>
#include <memory>

namespace fennick {

namespace {

constexpr int quality = 90;

struct FreeJpeg {
    void operator()(unsigned char *bytes) const { tjFree(bytes); }
};

// Chroma is quartered, as usual at this quality: the print of a receipt lives in its brightness, and a
// file with full chroma is half as large again.
QByteArray encoded(const YuvPicture &picture) {
    const std::unique_ptr<void, int (*)(tjhandle)> encoder(tjInitCompress(), tjDestroy);
    if (!encoder) {
        return {};
    }
    std::array<const unsigned char *, 3> rows{};
    std::array<int, 3> strides{};
    for (std::size_t index = 0; index < picture.planes.size(); ++index) {
        rows[index] = picture.planes[index].row(0);
        strides[index] = picture.planes[index].stride();
    }
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    const int result = tjCompressFromYUVPlanes(encoder.get(), rows.data(), picture.width, strides.data(),
                                               picture.height, picture.isGrey() ? TJSAMP_GRAY : TJSAMP_420,
                                               &bytes, &size, quality, TJFLAG_ACCURATEDCT);
    const std::unique_ptr<unsigned char, FreeJpeg> owner(bytes);
    return result == 0 ? QByteArray(reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(size))
                       : QByteArray();
}

// The profile as segments APP2 of a JPEG file, as ICC.1 annex B.4 lays them out: a mark, the number of the
// piece, the count of pieces, the piece.
QByteArray profileSegments(const QByteArray &iccProfile) {
    constexpr QByteArrayView mark("ICC_PROFILE\0", 12);
    constexpr qsizetype largestPiece = 65519;
    constexpr qsizetype mostPieces = 255;
    const qsizetype pieces = (iccProfile.size() + largestPiece - 1) / largestPiece;
    QByteArray segments;
    if (pieces > mostPieces) {
        return segments;
    }
    for (qsizetype piece = 0; piece < pieces; ++piece) {
        const QByteArray part = iccProfile.mid(piece * largestPiece, largestPiece);
        const auto length = qToBigEndian(static_cast<quint16>(2 + mark.size() + 2 + part.size()));
        segments.append("\xFF\xE2", 2);
        segments.append(reinterpret_cast<const char *>(&length), sizeof length);
        segments.append(mark);
        segments.append(static_cast<char>(piece + 1));
        segments.append(static_cast<char>(pieces));
        segments.append(part);
    }
    return segments;
}

// The encoder starts every file with the two bytes of SOI and the segment JFIF, which has to stay first.
qsizetype endOfJfifSegment(const QByteArray &jpeg) {
    constexpr qsizetype segmentLength = 4;
    return segmentLength + qFromBigEndian<quint16>(jpeg.constData() + segmentLength);
}

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
    picture.planes.front().extendByOne();
    QByteArray jpeg = encoded(picture);
    if (jpeg.isEmpty()) {
        return false;
    }
    if (!iccProfile.isEmpty()) {
        jpeg.insert(endOfJfifSegment(jpeg), profileSegments(iccProfile));
    }
    return written(jpeg, path);
}

} // namespace fennick
