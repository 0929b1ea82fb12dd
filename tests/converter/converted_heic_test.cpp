#include "converter/converter_fixtures.h"
#include "converter/receipt_image_converter.h"
#include "support/test_program.h"

#include <QColorSpace>
#include <QGuiApplication>
#include <QtConcurrent>

#include <libheif/heif.h>

#include <memory>

using namespace fennick;
using namespace fennick::testing;
using namespace Qt::StringLiterals;

namespace {

struct HeicOptions {
    heif_orientation orientation = heif_orientation_normal;
    QByteArray iccProfile = {};
    int colourPrimaries = 0; // 0: none stated
    int exifOrientation = 0; // 0: no EXIF data
};

void check(heif_error error) {
    if (error.code != heif_error_Ok)
        qFatal("cannot make a test picture: %s", error.message);
}

using Context = std::unique_ptr<heif_context, decltype(&heif_context_free)>;

std::unique_ptr<heif_image, decltype(&heif_image_release)> pixelsOf(const QImage &source) {
    const QImage rgba = source.convertToFormat(QImage::Format_RGBA8888);
    const bool hasAlpha = source.hasAlphaChannel();
    heif_image *image = nullptr;
    check(heif_image_create(rgba.width(), rgba.height(), heif_colorspace_RGB,
                            hasAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, &image));
    check(heif_image_add_plane(image, heif_channel_interleaved, rgba.width(), rgba.height(), 8));
    int stride = 0;
    std::uint8_t *rows = heif_image_get_plane(image, heif_channel_interleaved, &stride);
    const int channels = hasAlpha ? 4 : 3;
    for (int y = 0; y < rgba.height(); ++y) {
        for (int x = 0; x < rgba.width(); ++x) {
            for (int channel = 0; channel < channels; ++channel)
                rows[y * stride + x * channels + channel] = rgba.constScanLine(y)[x * 4 + channel];
        }
    }
    return {image, heif_image_release};
}

QByteArray heic(const QImage &source, const HeicOptions &wanted = {}) {
    const Context context(heif_context_alloc(), heif_context_free);
    const auto image = pixelsOf(source);
    if (!wanted.iccProfile.isEmpty())
        check(heif_image_set_raw_color_profile(image.get(), "prof", wanted.iccProfile.constData(),
                                               static_cast<size_t>(wanted.iccProfile.size())));
    heif_encoder *encoder = nullptr;
    check(heif_context_get_encoder_for_format(context.get(), heif_compression_HEVC, &encoder));
    heif_encoder_set_lossy_quality(encoder, 95);
    heif_encoding_options *options = heif_encoding_options_alloc();
    options->image_orientation = wanted.orientation;
    heif_color_profile_nclx *codePoints = heif_nclx_color_profile_alloc();
    if (wanted.colourPrimaries != 0) {
        heif_nclx_color_profile_set_color_primaries(codePoints,
                                                    static_cast<uint16_t>(wanted.colourPrimaries));
        heif_nclx_color_profile_set_transfer_characteristics(codePoints, 13);
        heif_nclx_color_profile_set_matrix_coefficients(codePoints, 6);
        codePoints->full_range_flag = 1;
        check(heif_image_set_nclx_color_profile(image.get(), codePoints));
        options->macOS_compatibility_workaround_no_nclx_profile = 0;
    }
    heif_image_handle *handle = nullptr;
    check(heif_context_encode_image(context.get(), image.get(), encoder, options, &handle));
    if (wanted.exifOrientation != 0) {
        const QByteArray exif = exifData(wanted.exifOrientation, true);
        check(heif_context_add_exif_metadata(context.get(), handle, exif.constData(),
                                             static_cast<int>(exif.size())));
    }
    heif_image_handle_release(handle);
    heif_nclx_color_profile_free(codePoints);
    heif_encoding_options_free(options);
    heif_encoder_release(encoder);

    QByteArray file;
    heif_writer writer{1, [](heif_context *, const void *data, size_t size, void *target) {
                           static_cast<QByteArray *>(target)->append(static_cast<const char *>(data),
                                                                     static_cast<qsizetype>(size));
                           return heif_error{heif_error_Ok, heif_suberror_Unspecified, ""};
                       }};
    check(heif_context_write(context.get(), &writer, &file));
    return file;
}

} // namespace

class ConvertedHeicTest : public QObject {
    Q_OBJECT

    ScratchFolder scratch_;

    QImage converted(const QByteArray &content) { return scratch_.converted(u"a.heic"_s, content); }

private Q_SLOTS:
    void turnsPicturesAsTheFileSays_data() {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QString>("corners");
        QTest::newRow("upright") << int(heif_orientation_normal) << u"RGBY"_s;
        QTest::newRow("mirrored") << int(heif_orientation_flip_horizontally) << u"GRYB"_s;
        QTest::newRow("upside down") << int(heif_orientation_rotate_180) << u"YBGR"_s;
        QTest::newRow("turn right") << int(heif_orientation_rotate_90_cw) << u"BRYG"_s;
        QTest::newRow("turn left") << int(heif_orientation_rotate_270_cw) << u"GYRB"_s;
    }

    void turnsPicturesAsTheFileSays() {
        QFETCH(int, orientation);
        const QImage source = fourCorners(QSize(256, 128));
        QTEST(cornersOf(converted(heic(source, {.orientation = heif_orientation(orientation)}))), "corners");
    }

    void turnsOnlyOnceWhenExifDataRepeatIt() {
        const QImage result =
            converted(heic(fourCorners(QSize(256, 128)), {.orientation = heif_orientation_rotate_90_cw,
                                                          .exifOrientation = heif_orientation_rotate_90_cw}));
        QCOMPARE(result.size(), QSize(128, 256));
        QCOMPARE(cornersOf(result), u"BRYG"_s);
    }

    void fitsLargePictures() {
        const QImage result = converted(heic(fourCorners(QSize(3200, 640))));
        QCOMPARE(result.size(), QSize(3000, 600));
        QCOMPARE(cornersOf(result), u"RGBY"_s);
    }

    void laysTransparentPicturesOnWhite() {
        QImage source(QSize(256, 128), QImage::Format_ARGB32);
        source.fill(qRgba(255, 0, 0, 0));
        QVERIFY(distanceInMiddle(converted(heic(source)), qRgb(255, 255, 255)) <= 4);
    }

    void keepsTheColoursOfAProfileOrCodePoints() {
        QImage source(QSize(256, 128), QImage::Format_RGB32);
        source.fill(qRgb(200, 60, 40));
        source.setColorSpace(QColorSpace::SRgb);
        source.convertToColorSpace(QColorSpace::DisplayP3);
        QVERIFY(distanceInMiddle(source, qRgb(200, 60, 40)) > 8);

        const QByteArray profile = QColorSpace(QColorSpace::DisplayP3).iccProfile();
        QImage byProfile = converted(heic(source, {.iccProfile = profile}));
        QCOMPARE(byProfile.colorSpace(), QColorSpace(QColorSpace::DisplayP3));
        byProfile.convertToColorSpace(QColorSpace::SRgb);
        QVERIFY(distanceInMiddle(byProfile, qRgb(200, 60, 40)) <= 6);
        constexpr int displayP3 = 12;
        const QImage byCodePoints = converted(heic(source, {.colourPrimaries = displayP3}));
        QVERIFY(distanceInMiddle(byCodePoints, qRgb(200, 60, 40)) <= 6);
    }

    // Telephones store pictures as tiles beneath a picture that has no samples of its own. This one is of two
    // by two tiles of 64 pixels (red, green, blue, yellow), cut to 120 by 100 and turned left by a quarter.
    void joinsTiles() {
        const QImage result =
            converted(contentOf(QString::fromUtf8(FENNICK_SOURCE_DIR "/tests/data/tiled.heic")));
        QCOMPARE(result.size(), QSize(100, 120));
        QCOMPARE(cornersOf(result), u"GYRB"_s);
    }

    void refusesCutOffFiles() {
        const QByteArray file = heic(fourCorners(QSize(256, 128)));
        for (const qsizetype percent : {2, 30, 60, 95})
            QCOMPARE(scratch_.failureOf(u"a.heic"_s, file.left(file.size() * percent / 100)),
                     u"Could not render page image"_s);
    }

    void convertsFilesOfEveryKindOnSeveralThreadsAtOnce() {
        const QImage source = fourCorners(QSize(256, 128));
        const QStringList files{scratch_.file(u"a.heic"_s, heic(source)),
                                scratch_.file(u"a.jpg"_s, encoded(source, "jpeg", 95)),
                                scratch_.file(u"a.png"_s, encoded(source, "png")),
                                scratch_.file(u"a.webp"_s, encoded(source, "webp", 100)),
                                scratch_.file(u"a.pdf"_s, pdfWithPages({"/MediaBox [0 0 72 36]"},
                                                                       fourCornersContent(0, 0, 72, 36)))};
        constexpr int rounds = 8;
        QStringList work;
        for (int round = 0; round < rounds; ++round)
            work += files;
        QThreadPool pool;
        pool.setMaxThreadCount(4);
        const auto outcomes =
            QtConcurrent::blockingMapped<QList<QString>>(&pool, work, [](const QString &file) -> QString {
                const auto paths = ReceiptImageConverter::convertToJPEGs(file, u"Out"_s);
                return paths ? paths->front() : paths.error().errorDescription();
            });
        QCOMPARE(outcomes.size(), files.size() * rounds);
        for (const QString &outcome : outcomes)
            QCOMPARE(cornersOf(QImage(outcome)), u"RGBY"_s);
    }
};

int converted_heic_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, ConvertedHeicTest>(argc, argv);
}
#include "converted_heic_test.moc"
