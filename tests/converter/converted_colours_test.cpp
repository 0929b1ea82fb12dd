#include "converter/converter_fixtures.h"
#include "converter/receipt_image_converter.h"
#include "support/test_program.h"

#include <QColorSpace>
#include <QGuiApplication>

#include <lcms2.h>
#include <turbojpeg.h>

#include <array>
#include <memory>

using namespace fennick;
using namespace fennick::testing;
using namespace Qt::StringLiterals;

namespace {

// Well inside every gamut, and far from the same numbers in another colour space.
constexpr QRgb wantedColour = qRgb(200, 60, 40);

QImage filled(QRgb colour, const QColorSpace &space = QColorSpace::SRgb) {
    QImage image(QSize(64, 48), QImage::Format_RGB32);
    image.fill(colour);
    image.setColorSpace(space);
    return image;
}

// A picture that shows `wantedColour`, with its numbers in another colour space.
QImage wantedIn(const QColorSpace &space) {
    QImage image = filled(wantedColour);
    image.convertToColorSpace(space);
    return image;
}

QByteArray bytesOf(cmsHPROFILE profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    QByteArray bytes(static_cast<qsizetype>(size), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

// A profile for grey pictures whose values are proportional to light.
QByteArray linearGreyProfile() {
    cmsToneCurve *linear = cmsBuildGamma(nullptr, 1.0);
    const QByteArray profile = bytesOf(cmsCreateGrayProfile(cmsD50_xyY(), linear));
    cmsFreeToneCurve(linear);
    return profile;
}

// A printing profile with inks of odd colours: cyan ink prints green, black ink black, the others nothing.
QByteArray oddInksProfile() {
    const auto colourOfInks = [](const cmsUInt16Number inks[], cmsUInt16Number lab[], void *) {
        const double share = inks[0] / 65535.0;
        const double light = 1 - inks[3] / 65535.0;
        const cmsCIELab colour{(100 - 50 * share) * light, -30 * share * light, 30 * share * light};
        cmsFloat2LabEncodedV2(lab, &colour);
        return 1;
    };
    cmsPipeline *pipeline = cmsPipelineAlloc(nullptr, 4, 3);
    cmsStage *grid = cmsStageAllocCLut16bit(nullptr, 5, 4, 3, nullptr);
    cmsStageSampleCLut16bit(grid, colourOfInks, nullptr, 0);
    cmsPipelineInsertStage(pipeline, cmsAT_BEGIN, grid);
    cmsHPROFILE profile = cmsCreateProfilePlaceholder(nullptr);
    cmsSetProfileVersion(profile, 2.4);
    cmsSetDeviceClass(profile, cmsSigOutputClass);
    cmsSetColorSpace(profile, cmsSigCmykData);
    cmsSetPCS(profile, cmsSigLabData);
    cmsWriteTag(profile, cmsSigAToB0Tag, pipeline);
    cmsPipelineFree(pipeline);
    return bytesOf(profile);
}

// A JPEG file in CMYK with the Adobe mark: its inks are stored inverted.
QByteArray cmykJpeg(std::array<uchar, 4> inks) {
    constexpr int width = 64;
    constexpr int height = 48;
    QByteArray pixels;
    for (int pixel = 0; pixel < width * height; ++pixel) {
        for (const uchar ink : inks)
            pixels.append(static_cast<char>(255 - ink));
    }
    const std::unique_ptr<void, int (*)(tjhandle)> encoder(tjInitCompress(), tjDestroy);
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    if (tjCompress2(encoder.get(), reinterpret_cast<const uchar *>(pixels.constData()), width, 0, height,
                    TJPF_CMYK, &bytes, &size, TJSAMP_444, 98, TJFLAG_ACCURATEDCT) != 0)
        qFatal("cannot encode a test picture");
    const QByteArray jpeg(reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(size));
    tjFree(bytes);
    return jpeg;
}

QByteArray withJpegProfile(QByteArray jpeg, const QByteArray &profile) {
    constexpr qsizetype largestPiece = 65'519;
    const qsizetype pieces = (profile.size() + largestPiece - 1) / largestPiece;
    QByteArray segments;
    for (qsizetype piece = 0; piece < pieces; ++piece) {
        QByteArray data("ICC_PROFILE\0", 12);
        data.append(static_cast<char>(piece + 1)).append(static_cast<char>(pieces));
        data.append(profile.mid(piece * largestPiece, largestPiece));
        segments.append("\xFF\xE2").append(static_cast<char>((data.size() + 2) >> 8));
        segments.append(static_cast<char>((data.size() + 2) & 0xFF)).append(data);
    }
    return jpeg.insert(2, segments);
}

QByteArray withPngProfile(const QByteArray &png, const QByteArray &profile) {
    constexpr qsizetype lengthBeforeZlibData = 4;
    return withPngChunk(png, "iCCP",
                        QByteArray("name\0\0", 6) + qCompress(profile).mid(lengthBeforeZlibData));
}

} // namespace

class ConvertedColoursTest : public QObject {
    Q_OBJECT

    ScratchFolder scratch_;

    // How far the only picture of the file is from `expected` when it is shown: its own profile, if it has
    // one, is honoured.
    int shownDistance(const QByteArray &content, QRgb expected) {
        const auto paths = ReceiptImageConverter::convertToJPEGs(scratch_.file(u"a.jpg"_s, content), u"A"_s);
        if (!paths)
            return 1000;
        QImage image = QImage(paths->front()).convertToFormat(QImage::Format_RGB32);
        if (image.colorSpace().isValid())
            image.convertToColorSpace(QColorSpace::SRgb);
        return distanceInMiddle(image, expected);
    }

private Q_SLOTS:
    void showsTheSameColoursFromEveryColourSpace_data() {
        QTest::addColumn<QByteArray>("content");
        const std::array<std::pair<const char *, QColorSpace::NamedColorSpace>, 4> spaces{
            {{"sRGB", QColorSpace::SRgb},
             {"Display P3", QColorSpace::DisplayP3},
             {"Adobe RGB", QColorSpace::AdobeRgb},
             {"ProPhoto RGB", QColorSpace::ProPhotoRgb}}};
        for (const auto &[name, space] : spaces) {
            for (const char *format : {"jpeg", "png", "webp"})
                QTest::addRow("%s %s", name, format) << encoded(wantedIn(space), format, 100);
        }
    }

    void showsTheSameColoursFromEveryColourSpace() {
        QFETCH(QByteArray, content);
        const int distance = shownDistance(content, wantedColour);
        QVERIFY2(distance <= 5, qPrintable(QString::number(distance)));
    }

    void keepsTheProfileOfAScaledJpeg() {
        const QImage large = wantedIn(QColorSpace::DisplayP3).scaled(3200, 100);
        const int distance = shownDistance(encoded(large, "jpeg", 95), wantedColour);
        QVERIFY2(distance <= 5, qPrintable(QString::number(distance)));
    }

    void keepsAProfileTooLargeForOneSegment() {
        const QByteArray profile = QColorSpace(QColorSpace::DisplayP3).iccProfile();
        QByteArray large = profile + QByteArray(150'000, '\0');
        const auto size = static_cast<quint32>(large.size());
        for (int byte = 0; byte < 4; ++byte)
            large[byte] = static_cast<char>(size >> (24 - 8 * byte));
        QImage plain = wantedIn(QColorSpace::DisplayP3);
        plain.setColorSpace({});
        const QByteArray jpeg = withJpegProfile(encoded(plain, "jpeg", 95), large);
        const int distance = shownDistance(jpeg, wantedColour);
        QVERIFY2(distance <= 5, qPrintable(QString::number(distance)));
    }

    void convertsGreyPngPicturesByTheirProfile() {
        const QImage half = filled(qRgb(128, 128, 128)).convertToFormat(QImage::Format_Grayscale8);
        QImage plain = half;
        plain.setColorSpace({});
        const QByteArray png = withPngProfile(encoded(plain, "png"), linearGreyProfile());
        const int distance = shownDistance(png, qRgb(188, 188, 188));
        QVERIFY2(distance <= 4, qPrintable(QString::number(distance)));
    }

    void keepsTheProfileOfAGreyJpeg() {
        QImage grey(QSize(64, 48), QImage::Format_Grayscale8);
        grey.fill(128);
        const QByteArray profile = linearGreyProfile();
        const auto paths = ReceiptImageConverter::convertToJPEGs(
            scratch_.file(u"a.jpg"_s, withJpegProfile(encoded(grey, "jpeg", 95), profile)), u"A"_s);
        QVERIFY(paths);
        QVERIFY(contentOf(paths->front()).contains(profile));
        QVERIFY(distanceInMiddle(QImage(paths->front()), qRgb(128, 128, 128)) <= 2);
    }

    void showsInksWithoutAProfileAsIdealOnes() {
        QVERIFY(shownDistance(cmykJpeg({0, 0, 0, 0}), qRgb(255, 255, 255)) <= 3);
        QVERIFY(shownDistance(cmykJpeg({0, 255, 255, 0}), qRgb(255, 0, 0)) <= 4);
        QVERIFY(shownDistance(cmykJpeg({0, 0, 0, 255}), qRgb(0, 0, 0)) <= 3);
        QVERIFY(shownDistance(cmykJpeg({255, 0, 0, 128}), qRgb(0, 127, 127)) <= 4);
    }

    void showsInksByTheirProfile() {
        const QByteArray profile = oddInksProfile();
        QVERIFY(!profile.isEmpty());
        const QByteArray cyan = withJpegProfile(cmykJpeg({255, 0, 0, 0}), profile);
        QVERIFY2(shownDistance(cyan, qRgb(0, 255, 255)) > 60, "the ink must not print as cyan");
        const QRgb green = qRgb(75, 132, 65); // Lab 50, -30, 30
        const int distance = shownDistance(cyan, green);
        QVERIFY2(distance <= 5, qPrintable(QString::number(distance)));
        QVERIFY(shownDistance(withJpegProfile(cmykJpeg({0, 255, 255, 0}), profile), qRgb(255, 255, 255)) <=
                4);
    }

    void takesABrokenProfileForNone() {
        const QByteArray jpeg = withJpegProfile(cmykJpeg({0, 255, 255, 0}), "no profile at all");
        QVERIFY(shownDistance(jpeg, qRgb(255, 0, 0)) <= 4);
        QImage plain = filled(wantedColour);
        plain.setColorSpace({});
        QVERIFY(shownDistance(withPngProfile(encoded(plain, "png"), "no profile at all"), wantedColour) <= 5);
    }

    void takesAProfileForOtherPicturesForNone() {
        QImage plain = filled(wantedColour);
        plain.setColorSpace({});
        QVERIFY(shownDistance(withPngProfile(encoded(plain, "png"), oddInksProfile()), wantedColour) <= 5);
        const QByteArray p3 = QColorSpace(QColorSpace::DisplayP3).iccProfile();
        QVERIFY(shownDistance(withJpegProfile(cmykJpeg({0, 255, 255, 0}), p3), qRgb(255, 0, 0)) <= 4);
    }
};

int converted_colours_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, ConvertedColoursTest>(argc, argv);
}
#include "converted_colours_test.moc"
