#include "documents/exif_orientation.h"

#include <QtEndian>

namespace fennick {

namespace {

constexpr int upright = 1;

// Reads whole numbers in the byte order that the file declares. Offsets outside the data read as 0.
class TiffNumbers {
public:
    TiffNumbers(QByteArrayView data, bool bigEndian)
        : data_(data)
        , bigEndian_(bigEndian) {}

    quint16 at16(qsizetype offset) const { return read<quint16>(offset); }
    quint32 at32(qsizetype offset) const { return read<quint32>(offset); }

private:
    template <typename Number>
    Number read(qsizetype offset) const {
        if (offset < 0 || offset > data_.size() - qsizetype(sizeof(Number))) {
            return 0;
        }
        const char *position = data_.data() + offset;
        return bigEndian_ ? qFromBigEndian<Number>(position) : qFromLittleEndian<Number>(position);
    }

    QByteArrayView data_;
    bool bigEndian_;
};

} // namespace

int exifOrientation(QByteArrayView exif) {
    constexpr QByteArrayView mark("Exif\0\0", 6);
    if (exif.startsWith(mark)) {
        exif = exif.sliced(mark.size());
    }
    const bool bigEndian = exif.startsWith("MM");
    if (!bigEndian && !exif.startsWith("II")) {
        return upright;
    }

    constexpr quint16 orientationTag = 0x0112;
    constexpr quint16 shortType = 3;
    constexpr qsizetype entrySize = 12;
    const TiffNumbers numbers(exif, bigEndian);
    const qsizetype directory = numbers.at32(4);
    const int entryCount = numbers.at16(directory);
    for (int index = 0; index < entryCount; ++index) {
        const qsizetype entry = directory + 2 + index * entrySize;
        if (numbers.at16(entry) != orientationTag || numbers.at16(entry + 2) != shortType) {
            continue;
        }
        const int value = numbers.at16(entry + 8);
        return value >= 1 && value <= 8 ? value : upright;
    }
    return upright;
}

int pngOrientation(QByteArrayView file) {
    constexpr qsizetype signatureSize = 8;
    constexpr qsizetype framing = 12; // length, type and checksum around each chunk's data
    qsizetype position = signatureSize;
    while (position <= file.size() - framing) {
        const qsizetype length = qFromBigEndian<quint32>(file.data() + position);
        if (length > file.size() - position - framing) {
            return upright;
        }
        if (file.sliced(position + 4, 4) == QByteArrayView("eXIf")) {
            return exifOrientation(file.sliced(position + 8, length));
        }
        position += framing + length;
    }
    return upright;
}

int webpOrientation(QByteArrayView file) {
    constexpr qsizetype riffHeaderSize = 12;
    constexpr qsizetype framing = 8; // type and length before each chunk's data
    qsizetype position = riffHeaderSize;
    while (position <= file.size() - framing) {
        const qsizetype length = qFromLittleEndian<quint32>(file.data() + position + 4);
        if (length > file.size() - position - framing) {
            return upright;
        }
        if (file.sliced(position, 4) == QByteArrayView("EXIF")) {
            return exifOrientation(file.sliced(position + framing, length));
        }
        position += framing + length + (length & 1);
    }
    return upright;
}

} // namespace fennick
