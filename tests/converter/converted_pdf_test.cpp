#include "converter/converter_fixtures.h"
#include "converter/receipt_image_converter.h"
#include "support/test_program.h"

#include <QGuiApplication>

// The library wants to be told that its own pointer class of old is not used.
#define POINTERHOLDER_TRANSITION 4
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include <sys/stat.h>

using namespace fennick;
using namespace fennick::testing;
using namespace Qt::StringLiterals;

namespace {

const QString cannotOpen = u"Could not open PDF"_s;

QByteArray encrypted(const QByteArray &pdf, const char *userPassword) {
    QPDF document;
    document.processMemoryFile("test", pdf.constData(), static_cast<size_t>(pdf.size()));
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setR6EncryptionParameters(userPassword, "owner", true, true, true, true, true, true, qpdf_r3p_full,
                                     true);
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    return QByteArray(reinterpret_cast<const char *>(buffer->getBuffer()),
                      static_cast<qsizetype>(buffer->getSize()));
}

} // namespace

class ConvertedPdfTest : public QObject {
    Q_OBJECT

    ScratchFolder scratch_;
    const QByteArray corners_ = fourCornersContent(0, 0, 72, 36);

    QImage page(const QByteArray &attributes, const QByteArray &content, const QByteArray &inherited = {}) {
        return scratch_.converted(u"page.pdf"_s, pdfWithPages({attributes}, content, inherited));
    }

    QString failureOf(const QByteArray &content) { return scratch_.failureOf(u"page.pdf"_s, content); }

private Q_SLOTS:
    void rendersAtTwoHundredDotsPerInch_data() {
        QTest::addColumn<QByteArray>("mediaBox");
        QTest::addColumn<QSize>("size");
        QTest::newRow("A4") << QByteArray("[0 0 595 842]") << QSize(1653, 2339);
        QTest::newRow("Letter") << QByteArray("[0 0 612 792]") << QSize(1700, 2200);
        QTest::newRow("half up") << QByteArray("[0 0 72.18 72.17]") << QSize(201, 200);
        QTest::newRow("at least one pixel") << QByteArray("[0 0 0.1 36]") << QSize(1, 100);
        QTest::newRow("corners exchanged") << QByteArray("[72 36 0 0]") << QSize(200, 100);
    }

    void rendersAtTwoHundredDotsPerInch() {
        QFETCH(QByteArray, mediaBox);
        QTEST(page("/MediaBox " + mediaBox, corners_).size(), "size");
    }

    void paintsOnWhite() {
        const QImage image = page("/MediaBox [0 0 72 36]", corners_);
        QCOMPARE(cornersOf(image), u"RGBY"_s);
        QVERIFY(distanceInMiddle(image, qRgb(255, 255, 255)) <= 2);
    }

    void showsTheWholeMediaBoxWhateverTheCropBoxSays() {
        QCOMPARE(cornersOf(page("/MediaBox [0 0 72 36] /CropBox [20 10 40 20]", corners_)), u"RGBY"_s);
    }

    void ignoresAnInheritedCropBox() {
        const QImage image = page("/MediaBox [0 0 72 36]", corners_, "/CropBox [20 10 40 20]");
        QCOMPARE(image.size(), QSize(200, 100));
        QCOMPARE(cornersOf(image), u"RGBY"_s);
    }

    void drawsABoxWithAnotherOriginFully() {
        const QImage right = page("/MediaBox [100 50 172 86]", fourCornersContent(100, 50, 72, 36));
        QCOMPARE(right.size(), QSize(200, 100));
        QCOMPARE(cornersOf(right), u"RGBY"_s);
        const QImage left = page("/MediaBox [-90 -40 -18 -4]", fourCornersContent(-90, -40, 72, 36));
        QCOMPARE(left.size(), QSize(200, 100));
        QCOMPARE(cornersOf(left), u"RGBY"_s);
    }

    void takesAnInheritedMediaBox() {
        const QImage image = page("", corners_, "/MediaBox [0 0 72 36]");
        QCOMPARE(image.size(), QSize(200, 100));
        QCOMPARE(cornersOf(image), u"RGBY"_s);
    }

    void takesLetterPaperForAMissingOrEmptyMediaBox() {
        QCOMPARE(page("", corners_).size(), QSize(1700, 2200));
        QCOMPARE(page("/MediaBox [0 0 0 0]", corners_).size(), QSize(1700, 2200));
        QCOMPARE(page("/MediaBox [0 0 /A 9]", corners_).size(), QSize(1700, 2200));
    }

    void turnsPagesUpright_data() {
        QTest::addColumn<QByteArray>("rotation");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("corners");
        QTest::newRow("90") << QByteArray("90") << QSize(100, 200) << u"BRYG"_s;
        QTest::newRow("180") << QByteArray("180") << QSize(200, 100) << u"YBGR"_s;
        QTest::newRow("270") << QByteArray("270") << QSize(100, 200) << u"GYRB"_s;
        QTest::newRow("-90") << QByteArray("-90") << QSize(100, 200) << u"GYRB"_s;
        QTest::newRow("90.0") << QByteArray("90.0") << QSize(100, 200) << u"BRYG"_s;
        QTest::newRow("450") << QByteArray("450") << QSize(100, 200) << u"BRYG"_s;
    }

    void turnsPagesUpright() {
        QFETCH(QByteArray, rotation);
        const QImage own = page("/MediaBox [0 0 72 36] /Rotate " + rotation, corners_);
        QTEST(own.size(), "size");
        QTEST(cornersOf(own), "corners");
        const QImage inherited = page("/MediaBox [0 0 72 36]", corners_, "/Rotate " + rotation);
        QTEST(inherited.size(), "size");
        QTEST(cornersOf(inherited), "corners");
    }

    void ignoresTheUserUnit() {
        QCOMPARE(page("/MediaBox [0 0 72 36] /UserUnit 2", corners_).size(), QSize(200, 100));
    }

    void blendsTransparentInkWithWhite() {
        const QImage image =
            page("/MediaBox [0 0 72 36] /Resources << /ExtGState << /Half << /ca 0.5 >> >> >>",
                 "/Half gs 1 0 0 rg 0 0 72 36 re f");
        QVERIFY(distanceInMiddle(image, qRgb(255, 128, 128)) <= 4);
    }

    void drawsAnnotations() {
        const QByteArray appearance =
            "<< /Type /XObject /Subtype /Form /BBox [0 0 72 36] /Length 23 >>\nstream\n"
            "0 0 1 rg 0 0 72 36 re f\nendstream";
        const QImage image = scratch_.converted(
            u"stamped.pdf"_s,
            pdfOf({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
                   "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 72 36] /Annots [4 0 R] >>",
                   "<< /Type /Annot /Subtype /Stamp /Rect [0 0 72 36] /F 4 /AP << /N 5 0 R >> >>",
                   appearance}));
        QVERIFY(!image.isNull());
        QVERIFY(distanceInMiddle(image, qRgb(0, 0, 255)) <= 4);
    }

    void rendersEachPageFromItsOwnBoxes() {
        const auto paths = ReceiptImageConverter::convertToJPEGs(
            scratch_.file(u"two.pdf"_s,
                          pdfWithPages({"/MediaBox [0 0 72 36]", "/MediaBox [0 0 36 72]"}, corners_)),
            u"Out"_s);
        QVERIFY(paths);
        QCOMPARE(paths->size(), 2);
        QCOMPARE(QImage(paths->at(0)).size(), QSize(200, 100));
        QCOMPARE(QImage(paths->at(1)).size(), QSize(100, 200));
    }

    void opensFilesEncryptedWithoutAUserPassword() {
        const QByteArray pdf = pdfWithPages({"/MediaBox [0 0 72 36]"}, corners_);
        QCOMPARE(cornersOf(scratch_.converted(u"page.pdf"_s, encrypted(pdf, ""))), u"RGBY"_s);
    }

    void cannotOpenFilesThatNeedAPassword() {
        const QByteArray pdf = pdfWithPages({"/MediaBox [0 0 72 36]"}, corners_);
        QCOMPARE(failureOf(encrypted(pdf, "secret")), cannotOpen);
    }

    void cannotOpenWhatIsNoPdf() {
        QCOMPARE(failureOf(""), cannotOpen);
        QCOMPARE(failureOf("Just some text, not a document."), cannotOpen);
        QCOMPARE(failureOf(encoded(fourCorners(QSize(50, 50)), "png")), cannotOpen);
        QCOMPARE(failureOf("%PDF-1.7\n"), cannotOpen);
    }

    void cannotOpenWhatIsNotThereOrNoFile() {
        const auto missing = ReceiptImageConverter::convertToJPEGs(u"/nowhere/a.pdf"_s, u"A"_s);
        QVERIFY(!missing);
        QCOMPARE(missing.error().kind, ConverterError::Kind::pdfLoad);

        const QString folder = scratch_.path(u"folder.pdf"_s);
        QCOMPARE(::mkdir(qPrintable(folder), 0700), 0);
        QVERIFY(!ReceiptImageConverter::convertToJPEGs(folder, u"A"_s));

        const QString pipe = scratch_.path(u"pipe.pdf"_s);
        QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
        QVERIFY(!ReceiptImageConverter::convertToJPEGs(pipe, u"A"_s));
    }

    void mendsADamagedCrossReferenceTable() {
        QByteArray pdf = pdfWithPages({"/MediaBox [0 0 72 36]"}, corners_);
        pdf.replace("startxref\n", "startxref\n9");
        QCOMPARE(cornersOf(scratch_.converted(u"page.pdf"_s, pdf)), u"RGBY"_s);
    }

    void cannotRenderADocumentWithoutPages() {
        QCOMPARE(
            failureOf(pdfOf({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [] /Count 0 >>"})),
            cannotRender);
    }

    void refusesAPageTreeWithALoop() {
        QCOMPARE(
            failureOf(pdfOf({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
                             "<< /Type /Pages /Parent 2 0 R /Kids [2 0 R] /Count 1 >>"})),
            cannotOpen);
    }

    void survivesAPageTreeOfHostileDepth() {
        constexpr int depth = 50'000;
        QList<QByteArray> objects{"<< /Type /Catalog /Pages 2 0 R >>"};
        for (int level = 0; level < depth; ++level)
            objects.append("<< /Type /Pages /Kids [" + QByteArray::number(level + 3) + " 0 R] /Count 1 >>");
        objects.append("<< /Type /Page /MediaBox [0 0 72 36] >>");
        QCOMPARE(failureOf(pdfOf(objects)), cannotOpen);
    }

    void refusesAHugePage() {
        QCOMPARE(failureOf(pdfWithPages({"/MediaBox [0 0 14400 14400]"}, corners_)), cannotRender);
        QCOMPARE(failureOf(pdfWithPages({"/MediaBox [0 0 999999999999 999999999999]"}, corners_)),
                 cannotRender);
    }

    void cannotEncodeAPageLongerThanJpegAllows() {
        QCOMPARE(failureOf(pdfWithPages({"/MediaBox [0 0 3 25000]"}, corners_)), u"Could not encode JPEG"_s);
    }
};

int converted_pdf_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, ConvertedPdfTest>(argc, argv);
}
#include "converted_pdf_test.moc"
