#include "converter/converter_fixtures.h"
#include "converter/receipt_image_converter.h"
#include "support/test_program.h"

#include <QGuiApplication>
#include <QImageWriter>
#include <QPainter>
#include <QtEndian>

#include <sys/stat.h>
#include <turbojpeg.h>

#include <memory>

using namespace fennick;
using namespace fennick::testing;
using namespace Qt::StringLiterals;

namespace {

QByteArray jpegWithSubsampling(const QImage &image, int subsampling) {
    const std::unique_ptr<void, int (*)(tjhandle)> encoder(tjInitCompress(), tjDestroy);
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    if (tjCompress2(encoder.get(), image.constBits(), image.width(), static_cast<int>(image.bytesPerLine()),
                    image.height(), TJPF_BGRX, &bytes, &size, subsampling, 98, TJFLAG_ACCURATEDCT) != 0)
        qFatal("cannot encode a test picture");
    const QByteArray jpeg(reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(size));
    tjFree(bytes);
    return jpeg;
}

double meanDifference(const QImage &left, const QImage &right) {
    double sum = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            const QRgb a = left.pixel(x, y);
            const QRgb b = right.pixel(x, y);
            sum +=
                std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
        }
    }
    return sum / (3.0 * left.width() * left.height());
}

// A WebP animation of these pictures, each shown for 100 ms.
QByteArray webpAnimation(const QList<QImage> &pictures) {
    const auto number24 = [](int value) {
        const quint32 ordered = qToLittleEndian(static_cast<quint32>(value));
        return QByteArray(reinterpret_cast<const char *>(&ordered), 3);
    };
    const QSize size = pictures.front().size();
    const QByteArray canvas = number24(size.width() - 1) + number24(size.height() - 1);
    QByteArray chunks = riffChunk("VP8X", QByteArray("\x02\0\0\0", 4) + canvas);
    chunks += riffChunk("ANIM", QByteArray(6, '\0'));
    for (const QImage &picture : pictures) {
        constexpr qsizetype riffHeaderSize = 12;
        const QByteArray stillChunks = encoded(picture, "webp", 100).mid(riffHeaderSize);
        chunks += riffChunk("ANMF", number24(0) + number24(0) + canvas + number24(100) + QByteArray(1, '\0') +
                                        stillChunks);
    }
    return riffChunk("RIFF", "WEBP" + chunks);
}

} // namespace

class ConvertedImageTest : public QObject {
    Q_OBJECT

    ScratchFolder scratch_;

private Q_SLOTS:
    void fitsLargePicturesIntoThreeThousandPixels_data() {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QSize>("expected");
        for (const char *format : {"jpeg", "png"}) {
            const auto row = [format](const char *name, QSize size, QSize expected) {
                QTest::addRow("%s %s", format, name) << QByteArray(format) << size << expected;
            };
            row("landscape", QSize(4000, 3000), QSize(3000, 2250));
            row("portrait", QSize(3000, 4000), QSize(2250, 3000));
            row("one pixel more", QSize(3001, 1500), QSize(3000, 1500));
            row("just fitting", QSize(3000, 3000), QSize(3000, 3000));
            row("over 128 MB decoded", QSize(6000, 6000), QSize(3000, 3000));
            row("small", QSize(800, 600), QSize(800, 600));
            row("odd", QSize(3999, 2999), QSize(3000, 2250));
            row("to an odd size", QSize(4001, 3001), QSize(3000, 2250));
            row("very long", QSize(40, 9000), QSize(13, 3000));
            row("hair line", QSize(1, 6001), QSize(1, 3000));
        }
    }

    void fitsLargePicturesIntoThreeThousandPixels() {
        QFETCH(QByteArray, format);
        QFETCH(QSize, size);
        const QImage source = fourCorners(size);
        const int quality = format == "png" ? 50 : 95; // Qt does not compress PNG files of a higher one
        const QImage result = scratch_.converted(u"a.png"_s, encoded(source, format.constData(), quality));
        QTEST(result.size(), "expected");
        if (result.width() >= 100) // too narrow a corner takes on its neighbours' colour
            QCOMPARE(cornersOf(result), u"RGBY"_s);
    }

    void takesPicturesWithSidesThatNoJpegCanHave() {
        const QImage result = scratch_.converted(
            u"a.png"_s,
            encoded(fourCorners(QSize(200, 70'000)).convertToFormat(QImage::Format_RGB888), "png"));
        QCOMPARE(result.size(), QSize(9, 3000));
    }

    void turnsJpegPhotosUpright_data() {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QString>("corners");
        QTest::newRow("upright") << 1 << u"RGBY"_s;
        QTest::newRow("mirrored") << 2 << u"GRYB"_s;
        QTest::newRow("upside down") << 3 << u"YBGR"_s;
        QTest::newRow("mirrored upside down") << 4 << u"BYRG"_s;
        QTest::newRow("transposed") << 5 << u"RBGY"_s;
        QTest::newRow("turn right") << 6 << u"BRYG"_s;
        QTest::newRow("transversed") << 7 << u"YGBR"_s;
        QTest::newRow("turn left") << 8 << u"GYRB"_s;
        QTest::newRow("zero") << 0 << u"RGBY"_s;
        QTest::newRow("nonsense") << 9 << u"RGBY"_s;
    }

    void turnsJpegPhotosUpright() {
        QFETCH(int, orientation);
        const bool lying = orientation >= 5 && orientation <= 8;
        const QByteArray small = encoded(fourCorners(QSize(151, 90)), "jpeg", 95);
        for (const bool bigEndian : {false, true}) {
            const QImage image =
                scratch_.converted(u"a.jpg"_s, withExifOrientation(small, orientation, bigEndian));
            QTEST(cornersOf(image), "corners");
            QCOMPARE(image.size(), lying ? QSize(90, 151) : QSize(151, 90));
        }
        const QByteArray large = encoded(fourCorners(QSize(4000, 1000)), "jpeg", 95);
        const QImage image = scratch_.converted(u"a.jpg"_s, withExifOrientation(large, orientation, true));
        QTEST(cornersOf(image), "corners");
        QCOMPARE(image.size(), lying ? QSize(750, 3000) : QSize(3000, 750));
    }

    void turnsPngAndWebpPicturesUpright() {
        const QImage source = fourCorners(QSize(150, 90));
        const QByteArray png = withPngChunk(encoded(source, "png"), "eXIf", exifData(6, true));
        QCOMPARE(cornersOf(scratch_.converted(u"a.png"_s, png)), u"BRYG"_s);

        constexpr qsizetype riffHeaderSize = 12;
        const QByteArray extended = QByteArray("\x08\0\0\0\x95\0\0\x59\0\0", 10); // EXIF; 150 by 90
        const QByteArray webp = riffChunk("RIFF", "WEBP" + riffChunk("VP8X", extended) +
                                                      encoded(source, "webp", 100).mid(riffHeaderSize) +
                                                      riffChunk("EXIF", exifData(8, false)));
        QCOMPARE(cornersOf(scratch_.converted(u"a.webp"_s, webp)), u"GYRB"_s);
    }

    void leavesNoOrientationInTheResult() {
        const QByteArray jpeg =
            withExifOrientation(encoded(fourCorners(QSize(150, 90)), "jpeg", 95), 6, false);
        const auto paths = ReceiptImageConverter::convertToJPEGs(scratch_.file(u"a.jpg"_s, jpeg), u"A"_s);
        QVERIFY(paths);
        QVERIFY(!contentOf(paths->front()).contains("Exif"));
    }

    void survivesBrokenExifData() {
        const QByteArray jpeg = encoded(fourCorners(QSize(150, 90)), "jpeg", 95);
        for (qsizetype length = 0; length < 26; ++length) {
            const QByteArray data = QByteArray("Exif\0\0", 6) + exifData(6, true).left(length);
            QByteArray segment("\xFF\xE1\0", 3);
            segment.append(static_cast<char>(data.size() + 2));
            QCOMPARE(
                cornersOf(scratch_.converted(u"a.jpg"_s, QByteArray(jpeg).insert(2, segment + data))).size(),
                4);
        }
    }

    void keepsPicturesOfEverySubsampling_data() {
        QTest::addColumn<int>("subsampling");
        QTest::newRow("4:4:4") << int(TJSAMP_444);
        QTest::newRow("4:2:2") << int(TJSAMP_422);
        QTest::newRow("4:2:0") << int(TJSAMP_420);
        QTest::newRow("4:4:0") << int(TJSAMP_440);
        QTest::newRow("4:1:1") << int(TJSAMP_411);
    }

    void keepsPicturesOfEverySubsampling() {
        QFETCH(int, subsampling);
        for (const QSize size : {QSize(160, 120), QSize(161, 119), QSize(1, 1), QSize(3, 2)}) {
            const QImage source = smoothPicture(size);
            const QImage result = scratch_.converted(u"a.jpg"_s, jpegWithSubsampling(source, subsampling));
            QCOMPARE(result.size(), size);
            if (size.width() > 100)
                QVERIFY2(meanDifference(source, result) < 2.0,
                         qPrintable(QString::number(meanDifference(source, result))));
        }
    }

    void scalesPicturesOfEverySubsampling_data() { keepsPicturesOfEverySubsampling_data(); }

    void scalesPicturesOfEverySubsampling() {
        QFETCH(int, subsampling);
        const QImage source = smoothPicture(QSize(3601, 601));
        const QImage result = scratch_.converted(u"a.jpg"_s, jpegWithSubsampling(source, subsampling));
        QCOMPARE(result.size(), QSize(3000, 501));
        const QImage expected = source.scaled(result.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QVERIFY2(meanDifference(expected, result) < 1.5,
                 qPrintable(QString::number(meanDifference(expected, result))));
    }

    void keepsGreyPhotosGrey() {
        QImage source(QSize(301, 200), QImage::Format_RGB32);
        source.fill(qRgb(90, 90, 90));
        const auto paths = ReceiptImageConverter::convertToJPEGs(
            scratch_.file(u"a.jpg"_s, jpegWithSubsampling(source, TJSAMP_GRAY)), u"A"_s);
        QVERIFY(paths);
        const QImage result(paths->front());
        QCOMPARE(result.size(), source.size());
        QVERIFY(result.allGray());
        QVERIFY(distanceInMiddle(result, qRgb(90, 90, 90)) <= 2);
    }

    void readsProgressiveJpegs() {
        QImageWriter writer(scratch_.path(u"progressive.jpg"_s), "jpeg");
        writer.setProgressiveScanWrite(true);
        QVERIFY(writer.write(fourCorners(QSize(333, 222))));
        const auto paths = ReceiptImageConverter::convertToJPEGs(scratch_.path(u"progressive.jpg"_s), u"A"_s);
        QVERIFY(paths);
        QCOMPARE(cornersOf(QImage(paths->front())), u"RGBY"_s);
    }

    void laysTransparentPicturesOnWhite() {
        QImage source(QSize(60, 40), QImage::Format_ARGB32);
        source.fill(qRgba(255, 0, 0, 128));
        for (const char *format : {"png", "webp"}) {
            const QImage half = scratch_.converted(u"a.png"_s, encoded(source, format, 100));
            QVERIFY(distanceInMiddle(half, qRgb(255, 127, 127)) <= 4);
        }
        source.fill(qRgba(0, 0, 0, 0));
        QVERIFY(distanceInMiddle(scratch_.converted(u"a.png"_s, encoded(source, "png")),
                                 qRgb(255, 255, 255)) <= 2);
    }

    void laysTransparentPalettePicturesOnWhite() {
        QImage source(QSize(60, 40), QImage::Format_Indexed8);
        source.setColorTable({qRgba(0, 0, 0, 0), qRgba(0, 0, 255, 255)});
        source.fill(0);
        QVERIFY(distanceInMiddle(scratch_.converted(u"a.png"_s, encoded(source, "png")),
                                 qRgb(255, 255, 255)) <= 2);
        source.fill(1);
        QVERIFY(distanceInMiddle(scratch_.converted(u"a.png"_s, encoded(source, "png")), qRgb(0, 0, 255)) <=
                4);
    }

    void readsPngPicturesOfEveryDepth_data() {
        QTest::addColumn<int>("format");
        QTest::newRow("bitmap") << int(QImage::Format_Mono);
        QTest::newRow("grey") << int(QImage::Format_Grayscale8);
        QTest::newRow("deep grey") << int(QImage::Format_Grayscale16);
        QTest::newRow("deep colour") << int(QImage::Format_RGBX64);
        QTest::newRow("deep colour with alpha") << int(QImage::Format_RGBA64);
    }

    void readsPngPicturesOfEveryDepth() {
        QFETCH(int, format);
        QImage source(QSize(61, 41), QImage::Format_RGB32);
        source.fill(Qt::white);
        QPainter(&source).fillRect(20, 10, 20, 20, Qt::black);
        const QByteArray png = encoded(source.convertToFormat(static_cast<QImage::Format>(format)), "png");
        const QImage result = scratch_.converted(u"a.png"_s, png);
        QCOMPARE(result.size(), source.size());
        QVERIFY(distanceInMiddle(result, qRgb(0, 0, 0)) <= 6);
        QVERIFY(qGray(result.pixel(5, 5)) >= 250);
    }

    void goesByTheContentNotTheName() {
        const QImage source = fourCorners(QSize(150, 90));
        QCOMPARE(cornersOf(scratch_.converted(u"a.jpg"_s, encoded(source, "png"))), u"RGBY"_s);
        QCOMPARE(cornersOf(scratch_.converted(u"a.png"_s, encoded(source, "jpeg", 95))), u"RGBY"_s);
        QCOMPARE(cornersOf(scratch_.converted(u"a.heic"_s, encoded(source, "webp", 100))), u"RGBY"_s);
        QCOMPARE(cornersOf(scratch_.converted(u"b.jpg"_s, encoded(source, "bmp"))), u"RGBY"_s);
        // One red pixel.
        const QByteArray gif = QByteArray::fromHex("474946383961010001008000 00ff0000000000"
                                                   "2c00000000010001000002024401003b");
        QVERIFY(distanceInMiddle(scratch_.converted(u"c.png"_s, gif), qRgb(255, 0, 0)) <= 6);
    }

    void takesTheFirstPictureOfAnAnimation() {
        QImage second(QSize(150, 90), QImage::Format_RGB32);
        second.fill(Qt::black);
        const QByteArray webp = webpAnimation({fourCorners(QSize(150, 90)), second});
        QCOMPARE(cornersOf(scratch_.converted(u"a.webp"_s, webp)), u"RGBY"_s);
    }

    void acceptsHarmlessBytesBetweenSegments() {
        QByteArray jpeg = encoded(fourCorners(QSize(150, 90)), "jpeg", 95);
        jpeg.insert(jpeg.indexOf("\xFF\xDB"), QByteArray(12, '\0'));
        jpeg.append("something after the picture");
        QCOMPARE(cornersOf(scratch_.converted(u"a.jpg"_s, jpeg)), u"RGBY"_s);
    }
};

int converted_image_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, ConvertedImageTest>(argc, argv);
}
#include "converted_image_test.moc"
