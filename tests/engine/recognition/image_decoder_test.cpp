#include "engine/recognition/image_decoder.h"
#include "support/test_program.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QRandomGenerator>

#include <cstdlib>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

QByteArray encoded(const QImage &picture, const char *format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return buffer.data();
}

QImage filled(int width, int height, QColor colour) {
    QImage picture(width, height, QImage::Format_ARGB32);
    picture.fill(colour);
    return picture;
}

QImage noise(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    QRandomGenerator numbers(1);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.setPixel(x, y, numbers.generate());
        }
    }
    return picture;
}

QByteArray sample(const QString &name) {
    QFile file(QStringLiteral(FENNICK_SOURCE_DIR "/samples/receipts/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void putNumber(QByteArray &bytes, qsizetype at, quint32 number) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes[at++] = static_cast<char>(number >> shift & 0xFF);
    }
}

// A tiny PNG whose header claims `side` x `side` pixels; the header's checksum (over its 17 bytes) fits.
QByteArray pngClaiming(quint32 side) {
    QByteArray bytes = encoded(filled(4, 4, Qt::white), "PNG");
    putNumber(bytes, 16, side);
    putNumber(bytes, 20, side);
    quint32 sum = 0xFFFFFFFF;
    for (qsizetype index = 12; index < 29; ++index) {
        sum ^= static_cast<uchar>(bytes[index]);
        for (int bit = 0; bit < 8; ++bit) {
            sum = sum >> 1 ^ (sum & 1 ? 0xEDB88320 : 0);
        }
    }
    putNumber(bytes, 29, ~sum);
    return bytes;
}

} // namespace

class ImageDecoderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void decodesEveryKind_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("JPEG") << encoded(filled(60, 40, Qt::red), "JPG");
        QTest::newRow("PNG") << encoded(filled(60, 40, Qt::red), "PNG");
        QTest::newRow("WebP") << encoded(filled(60, 40, Qt::red), "WEBP");
    }
    void decodesEveryKind() {
        QFETCH(QByteArray, bytes);
        const std::expected<QImage, ReadError> picture = decodedImage(bytes);
        QVERIFY(picture);
        QCOMPARE(picture->size(), QSize(60, 40));
        constexpr int brightnessOfRed = 76;
        const int brightness = qGray(picture->pixel(30, 20));
        QVERIFY2(std::abs(brightness - brightnessOfRed) <= 2, qPrintable(QString::number(brightness)));
    }

    void decodesHeic() {
        const std::expected<QImage, ReadError> picture = decodedImage(sample(u"IMG_0117.HEIC"_s));
        QVERIFY(picture);
        QVERIFY(picture->width() > 900 && picture->height() > 700);
        // The corner shows the table, the middle the paper.
        QVERIFY(qGray(picture->pixel(5, 5)) < 110);
        QVERIFY(qGray(picture->pixel(picture->width() / 8 + 60, picture->height() / 2)) > 150);
    }

    void turnsAPhotoUpright() {
        const QByteArray bytes = sample(u"IMG_2041.jpg"_s);
        QVERIFY(!bytes.isEmpty());
        const QSize stored = QImage::fromData(bytes).size();
        const std::expected<QImage, ReadError> picture = decodedImage(bytes);
        QVERIFY(picture);
        QCOMPARE(picture->size(), stored.transposed());
    }

    void putsTransparencyOnWhite() {
        const std::expected<QImage, ReadError> picture =
            decodedImage(encoded(filled(20, 20, Qt::transparent), "PNG"));
        QVERIFY(picture);
        QCOMPARE(picture->pixelColor(10, 10), QColor(Qt::white));
    }

    void reducesLargePhotos() {
        const std::expected<QImage, ReadError> picture =
            decodedImage(encoded(filled(6000, 4500, Qt::white), "JPG"));
        QVERIFY(picture);
        QCOMPARE(picture->size(), QSize(4000, 3000));
    }

    void refusesBombs() {
        const std::expected<QImage, ReadError> picture = decodedImage(pngClaiming(60'000));
        QVERIFY(!picture);
        QCOMPARE(picture.error(), ReadError::imageTooLarge);
    }

    void refusesWhatIsNoPicture_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("hello");
        QTest::newRow("SVG") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
        QTest::newRow("BMP") << encoded(filled(8, 8, Qt::red), "BMP");
        QTest::newRow("GIF") << QByteArray(
            "GIF89a\1\0\1\0\x80\0\0\xFF\xFF\xFF\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 35);
        QTest::newRow("JPEG header alone") << QByteArray("\xFF\xD8\xFF\xE0");
        QTest::newRow("PNG header alone") << QByteArray("\x89PNG\r\n\x1A\n");
        QTest::newRow("WebP header alone") << QByteArray("RIFF\x10\0\0\0WEBPVP8 ", 16);
        QTest::newRow("HEIC header alone") << QByteArray("\0\0\0\x18"
                                                         "ftypheic\0\0\0\0mif1heic",
                                                         24);
        QTest::newRow("JPEG cut") << encoded(noise(300, 300), "JPG").first(9000);
        QTest::newRow("PNG cut") << encoded(filled(300, 300, Qt::red), "PNG").first(60);
        QTest::newRow("HEIC cut") << sample(u"IMG_0117.HEIC"_s).first(9000);
    }
    void refusesWhatIsNoPicture() {
        QFETCH(QByteArray, bytes);
        const std::expected<QImage, ReadError> picture = decodedImage(bytes);
        QVERIFY(!picture);
        QCOMPARE(picture.error(), ReadError::unreadableImage);
    }
};

int image_decoder_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, ImageDecoderTest>(argc, argv);
}
#include "image_decoder_test.moc"
