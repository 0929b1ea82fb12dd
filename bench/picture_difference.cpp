// picture_difference PICTURE REFERENCE: the peak signal-to-noise ratio of two pictures of the same size in
// decibels, over all three channels; the higher, the more alike.

#include <QImage>

#include <cmath>
#include <cstdio>

namespace {

double meanSquare(const QImage &left, const QImage &right) {
    double sum = 0;
    for (int y = 0; y < left.height(); ++y) {
        const uchar *const a = left.constScanLine(y);
        const uchar *const b = right.constScanLine(y);
        for (int x = 0; x < left.width() * 3; ++x) {
            const int difference = a[x] - b[x];
            sum += difference * difference;
        }
    }
    return sum / (3.0 * left.width() * left.height());
}

QImage read(const char *path) {
    return QImage(QString::fromLocal8Bit(path)).convertToFormat(QImage::Format_RGB888);
}

} // namespace

int main(int argc, char *argv[]) {
    if (argc != 3) {
        std::fputs("usage: picture_difference PICTURE REFERENCE\n", stderr);
        return 2;
    }
    const QImage picture = read(argv[1]);
    const QImage reference = read(argv[2]);
    if (picture.isNull() || picture.size() != reference.size()) {
        std::fprintf(stderr, "picture_difference: %dx%d and %dx%d cannot be compared\n", picture.width(),
                     picture.height(), reference.width(), reference.height());
        return 1;
    }
    std::printf("%.1f\n", 10 * std::log10(255.0 * 255.0 / meanSquare(picture, reference)));
    return 0;
}
