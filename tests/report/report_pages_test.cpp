#include "converter/converter_fixtures.h"
#include "report/margin_strip.h"
#include "report/png_stream.h"
#include "report_under_test.h"
#include "support/test_program.h"

#include <QBuffer>
#include <QGuiApplication>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace fennick::testing;
using namespace Qt::StringLiterals;

namespace {

bool isDark(const QImage &image, const QRect &place) {
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            if (qGray(image.pixel(x, y)) < 100) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

// That the receipts' own pages come into the report as they are.
class ReportPagesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { home_ = std::make_unique<TemporaryHome>(); }

    void jpegStandsInTheReportUnchanged() {
        const QByteArray jpeg = encoded(smoothPicture({300, 200}), "JPEG", 80);
        MadeReport report(descriptionOf({file(u"a.jpg"_s, jpeg)}));
        QVERIFY(report.bytes().contains(jpeg));
        QCOMPARE(report.complaints(), QByteArray());
    }

    void greyJpegIsShown() {
        const QImage grey = fourCorners({300, 200}).convertToFormat(QImage::Format_Grayscale8);
        const QByteArray jpeg = encoded(grey, "JPEG", 90);
        MadeReport report(descriptionOf({file(u"a.jpg"_s, jpeg)}));
        QVERIFY(report.bytes().contains(jpeg));
        QVERIFY(pictureOf(report).allGray());
    }

    void pngPixelsStandInTheReportUnchanged_data() {
        QTest::addColumn<QImage::Format>("format");
        QTest::newRow("colours") << QImage::Format_RGB888;
        QTest::newRow("palette") << QImage::Format_Indexed8;
        QTest::newRow("grey") << QImage::Format_Grayscale8;
        QTest::newRow("black and white") << QImage::Format_Mono;
    }
    void pngPixelsStandInTheReportUnchanged() {
        QFETCH(QImage::Format, format);
        const QByteArray png = encoded(fourCorners({200, 300}).convertToFormat(format), "PNG");
        const auto stream = pngStream(png);
        QVERIFY(stream);
        MadeReport report(descriptionOf({file(u"a.png"_s, png)}));
        QVERIFY(report.bytes().contains(stream->pixels));
        if (format != QImage::Format_Grayscale8 && format != QImage::Format_Mono) {
            QCOMPARE(cornersOf(pictureOf(report)), u"RGBY"_s);
        }
        QCOMPARE(report.complaints(), QByteArray());
    }

    void otherPicturesAreShown_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("transparent PNG")
            << encoded(fourCorners({200, 300}).convertToFormat(QImage::Format_ARGB32), "PNG");
        QTest::newRow("PNG of 16 bits")
            << encoded(fourCorners({200, 300}).convertToFormat(QImage::Format_RGBX64), "PNG");
        QTest::newRow("WebP") << encoded(fourCorners({200, 300}), "WEBP", 90);
        QTest::newRow("lossless WebP") << encoded(fourCorners({200, 300}), "WEBP", 100);
        QTest::newRow("BMP") << encoded(fourCorners({200, 300}), "BMP");
    }
    void otherPicturesAreShown() {
        QFETCH(QByteArray, content);
        MadeReport report(descriptionOf({file(u"a.png"_s, content)}));
        QCOMPARE(cornersOf(pictureOf(report)), u"RGBY"_s);
        QCOMPARE(report.complaints(), QByteArray());
    }

    void picturesStandUpright_data() {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QString>("corners");
        QTest::newRow("upright") << 1 << u"RGBY"_s;
        QTest::newRow("mirrored") << 2 << u"GRYB"_s;
        QTest::newRow("upside down") << 3 << u"YBGR"_s;
        QTest::newRow("mirrored upside down") << 4 << u"BYRG"_s;
        QTest::newRow("mirrored on its left side") << 5 << u"RBGY"_s;
        QTest::newRow("on its left side") << 6 << u"BRYG"_s;
        QTest::newRow("mirrored on its right side") << 7 << u"YGBR"_s;
        QTest::newRow("on its right side") << 8 << u"GYRB"_s;
    }
    void picturesStandUpright() {
        QFETCH(int, orientation);
        QFETCH(QString, corners);
        const QByteArray jpeg = encoded(fourCorners({400, 300}), "JPEG", 95);
        MadeReport report(descriptionOf({file(u"a.jpg"_s, withExifOrientation(jpeg, orientation, false))}));
        const QImage picture = pictureOf(report);
        QCOMPARE(cornersOf(picture), corners);
        QCOMPARE(picture.width() > picture.height(), orientation < 5);
    }

    void instructionsOfAPdfPageStayAsTheyAre() {
        const QByteArray content = "% as it was written\n" + fourCornersContent(0, 0, 400, 300);
        MadeReport report(
            descriptionOf({file(u"a.pdf"_s, pdfWithPages({"/MediaBox[0 0 400 300]"}, content))}));
        QVERIFY(report.bytes().contains(content));
        QCOMPARE(cornersOf(pictureOf(report)), u"RGBY"_s);
    }

    void turnedPagesHaveTheirMarginOnTop_data() {
        QTest::addColumn<int>("turns");
        QTest::addColumn<QString>("corners");
        QTest::newRow("upright") << 0 << u"RGBY"_s;
        QTest::newRow("a quarter") << 1 << u"BRYG"_s;
        QTest::newRow("upside down") << 2 << u"YBGR"_s;
        QTest::newRow("three quarters") << 3 << u"GYRB"_s;
        QTest::newRow("a quarter back") << -1 << u"GYRB"_s;
    }
    void turnedPagesHaveTheirMarginOnTop() {
        QFETCH(int, turns);
        QFETCH(QString, corners);
        const QByteArray attributes = "/MediaBox[100 50 500 350]/Rotate " + QByteArray::number(turns * 90);
        MadeReport report(descriptionOf(
            {file(u"a.pdf"_s, pdfWithPages({attributes}, fourCornersContent(100, 50, 400, 300)))}));
        QCOMPARE(cornersOf(pictureOf(report)), corners);
        QVERIFY(isDark(report.shown(1), marginOf(report.shown(1))));
    }

    void croppedPageShowsNoMoreThanBefore() {
        // Black all around the crop box.
        const QByteArray content = "0 g 0 0 1000 1000 re f " + fourCornersContent(200, 200, 400, 300);
        const QByteArray attributes = "/MediaBox[0 0 1000 1000]/CropBox[200 200 600 500]";
        MadeReport report(descriptionOf({file(u"a.pdf"_s, pdfWithPages({attributes}, content))}));
        const QImage page = report.shown(1);
        QCOMPARE(page.width(), 400);
        QCOMPARE(cornersOf(pictureOf(report)), u"RGBY"_s);
        QCOMPARE(qGray(page.pixel(page.width() - 3, 3)), 255);
    }

    void marginStandsWhateverThePageDoesToItsGraphicsState_data() {
        QTest::addColumn<QByteArray>("instructions");
        QTest::newRow("scaled and left so") << QByteArray("50 0 0 50 0 0 cm");
        QTest::newRow("saved and not restored") << QByteArray("q q 50 0 0 50 0 0 cm q");
        QTest::newRow("restored and not saved") << QByteArray("Q Q Q 50 0 0 50 0 0 cm");
        QTest::newRow("clipped away") << QByteArray("0 0 1 1 re W n");
    }
    void marginStandsWhateverThePageDoesToItsGraphicsState() {
        QFETCH(QByteArray, instructions);
        MadeReport report(
            descriptionOf({file(u"a.pdf"_s, pdfWithPages({"/MediaBox[0 0 400 300]"}, instructions))}));
        const MadeReport plain(
            descriptionOf({file(u"b.pdf"_s, pdfWithPages({"/MediaBox[0 0 400 300]"}, "n"))}));
        const QImage page = report.shown(1);
        QVERIFY(isDark(page, marginOf(page)));
        QCOMPARE(page.copy(marginOf(page)), plain.shown(1).copy(marginOf(page)));
    }

    void narrowPageHasASmallerLine() {
        ReportDescription description =
            descriptionOf({file(u"a.pdf"_s, pdfWithPages({"/MediaBox[0 0 120 300]"}, "n"))});
        description.rows[0].line = u"No. 1 · 2024-05-01 · A long name of a place · $1,234.00"_s;
        MadeReport report(description);
        QVERIFY(report.textOf(1).contains(u"$1,234.00"));
        QCOMPARE(report.shown(1).width(), 120);
    }

    void filledFormIsShownAsItWas() {
        const QByteArray appearance = "1 0 0 rg 0 0 100 100 re f";
        const QByteArray pdf = pdfOf(
            {"<</Type/Catalog/Pages 2 0 R/AcroForm<</Fields[5 0 R]>>>>",
             "<</Type/Pages/Kids[3 0 R]/Count 1>>",
             "<</Type/Page/Parent 2 0 R/MediaBox[0 0 400 300]/Annots[5 0 R]/Contents 4 0 R>>", pdfStream("n"),
             "<</Type/Annot/Subtype/Widget/FT/Tx/T(sum)/V(5)/Rect[0 200 100 300]/F 4/AP<</N 6 0 R>>>>",
             "<</Type/XObject/Subtype/Form/BBox[0 0 100 100]/Length " +
                 QByteArray::number(appearance.size()) + ">>\nstream\n" + appearance + "\nendstream"});
        MadeReport report(descriptionOf({file(u"a.pdf"_s, pdf)}));
        const QImage picture = pictureOf(report);
        QCOMPARE(picture.pixelColor(20, 20), QColor(Qt::red));
        QCOMPARE(picture.pixelColor(300, 20), QColor(Qt::white));
    }

private:
    // The margin of a page that is narrower than a sheet of A4.
    static QRect marginOf(const QImage &page) {
        return {0, 0, page.width(), static_cast<int>(stripSize.height()) - 1};
    }

    // The first receipt without its margin.
    static QImage pictureOf(const MadeReport &report) {
        const QImage page = report.shown(1);
        const int margin = static_cast<int>(stripSize.height());
        return page.copy(0, margin, page.width(), page.height() - margin);
    }

    QString file(const QString &name, const QByteArray &content) const {
        const QString path = home_->path(name);
        writeFile(path, content);
        return path;
    }

    std::unique_ptr<TemporaryHome> home_;
};

int report_pages_test(int argc, char **argv) {
    return runTest<QGuiApplication, ReportPagesTest>(argc, argv);
}
#include "report_pages_test.moc"
