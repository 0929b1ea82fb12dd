#include "converter/converter_fixtures.h"
#include "converter/receipt_image_converter.h"
#include "support/test_program.h"

#include <QGuiApplication>
#include <QtEndian>

#include <sys/stat.h>

using namespace fennick;
using namespace fennick::testing;
using namespace Qt::StringLiterals;

namespace {

// `jpeg` claiming another size in its frame header.
QByteArray withClaimedSize(QByteArray jpeg, quint16 width, quint16 height) {
    const qsizetype frame = jpeg.indexOf("\xFF\xC0");
    qToBigEndian(height, jpeg.data() + frame + 5);
    qToBigEndian(width, jpeg.data() + frame + 7);
    return jpeg;
}

} // namespace

class RefusedImageTest : public QObject {
    Q_OBJECT

    ScratchFolder scratch_;

    QString failureOf(const QByteArray &content, const QString &name = u"a.jpg"_s) {
        return scratch_.failureOf(name, content);
    }

private Q_SLOTS:
    void refusesCutOffPictures_data() {
        QTest::addColumn<QByteArray>("content");
        const QImage picture = smoothPicture(QSize(400, 300));
        QTest::newRow("JPEG") << encoded(picture, "jpeg", 95);
        QTest::newRow("grey JPEG") << encoded(picture.convertToFormat(QImage::Format_Grayscale8), "jpeg", 95);
        QTest::newRow("PNG") << encoded(picture, "png");
        QTest::newRow("WebP") << encoded(picture, "webp", 90);
        QTest::newRow("lossless WebP") << encoded(picture, "webp", 100);
    }

    void refusesCutOffPictures() {
        QFETCH(QByteArray, content);
        for (const qsizetype percent : {1, 10, 50, 90})
            QCOMPARE(failureOf(content.left(content.size() * percent / 100)), cannotRender);
    }

    void refusesWhatIsNoPicture() {
        QCOMPARE(failureOf(""), cannotRender);
        QCOMPARE(failureOf("\xFF\xD8\xFF"), cannotRender);
        QCOMPARE(failureOf("Just some text, not a picture."), cannotRender);
        QCOMPARE(failureOf("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", u"a.png"_s),
                 cannotRender);
        QCOMPARE(failureOf(pdfWithPages({"/MediaBox [0 0 72 36]"}, "")), cannotRender);
    }

    void refusesPicturesWithoutPixels() {
        const QByteArray jpeg = encoded(fourCorners(QSize(150, 90)), "jpeg", 95);
        QCOMPARE(failureOf(withClaimedSize(jpeg, 0, 90)), cannotRender);
        QCOMPARE(failureOf(withClaimedSize(jpeg, 150, 0)), cannotRender);
    }

    void refusesHugePictures() {
        const QImage picture = fourCorners(QSize(150, 90));
        QCOMPARE(failureOf(withClaimedSize(encoded(picture, "jpeg", 95), 60'000, 60'000)), cannotRender);
        QByteArray header(13, '\0');
        qToBigEndian(quint32(60'000), header.data());
        qToBigEndian(quint32(60'000), header.data() + 4);
        header[8] = 8; // bits a sample
        header[9] = 2; // RGB
        constexpr qsizetype signatureSize = 8;
        const QByteArray png =
            encoded(picture, "png").left(signatureSize) + pngChunk("IHDR", header) + pngChunk("IEND", {});
        QCOMPARE(failureOf(png), cannotRender);
    }

    void refusesWholePicturesOfOverTwoHundredMegapixels() {
        QImage picture(QSize(15'000, 13'400), QImage::Format_Grayscale8);
        picture.fill(90);
        QCOMPARE(failureOf(encoded(picture, "jpeg", 20)), cannotRender);
        QCOMPARE(failureOf(encoded(picture, "png")), cannotRender);
    }

    void refusesPicturesThatTakeMoreMemoryThanThereIs() {
        QImage picture(QSize(14'900, 13'300), QImage::Format_Grayscale8); // 198 megapixels
        picture.fill(90);
        QCOMPARE(failureOf(encoded(picture, "png")), cannotRender);
    }

    void refusesWhatIsNotThereOrNoFile() {
        const auto missing = ReceiptImageConverter::convertToJPEGs(u"/nowhere/a.jpg"_s, u"A"_s);
        QVERIFY(!missing);
        QCOMPARE(missing.error().kind, ConverterError::Kind::renderFailed);
        const QString pipe = scratch_.path(u"pipe.jpg"_s);
        QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
        QVERIFY(!ReceiptImageConverter::convertToJPEGs(pipe, u"A"_s));
    }
};

int refused_image_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, RefusedImageTest>(argc, argv);
}
#include "refused_image_test.moc"
