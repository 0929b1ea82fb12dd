#include "documents/hostile_documents.h"
#include "documents/pdf_checker.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::test;

namespace {

constexpr qsizetype megabyte = 1024 * 1024;

QByteArray object(int number, const QByteArray &content) {
    return QByteArray::number(number) + " 0 obj\n" + content + "\nendobj\n";
}

// A page for each size, whose drawing instructions are so many blanks. The pages of one size share them.
QByteArray pdfDrawingBlanks(const QList<qsizetype> &sizes) {
    QByteArray kids;
    QByteArray objects;
    QList<qsizetype> known;
    for (const qsizetype size : sizes) {
        if (!known.contains(size)) {
            const QByteArray packed = qCompress(QByteArray(size, ' '), 9).sliced(4);
            const auto number = static_cast<int>(500 + known.size());
            objects += object(number, "<</Filter/FlateDecode/Length " + QByteArray::number(packed.size()) +
                                          ">>\nstream\n" + packed + "\nendstream");
            known.append(size);
        }
    }
    for (qsizetype page = 0; page < sizes.size(); ++page) {
        const QByteArray number = QByteArray::number(page + 3);
        kids += number + " 0 R ";
        objects +=
            object(number.toInt(), "<</Type/Page/Parent 2 0 R/MediaBox[0 0 99 99]/Contents " +
                                       QByteArray::number(500 + known.indexOf(sizes[page])) + " 0 R>>");
    }
    return "%PDF-1.7\n" + object(1, "<</Type/Catalog/Pages 2 0 R>>") +
           object(2, "<</Type/Pages/Kids[" + kids + "]/Count " + QByteArray::number(sizes.size()) + ">>") +
           objects + "trailer\n<</Root 1 0 R/Size 600>>\n%%EOF\n";
}

// A page with a grey picture of so many bytes, packed by two filters.
QByteArray pdfWithPackedPicture(qsizetype size) {
    const QByteArray once = qCompress(QByteArray(size, ' '), 9).sliced(4);
    const QByteArray packed = qCompress(once, 9).sliced(4);
    return "%PDF-1.7\n" + object(1, "<</Type/Catalog/Pages 2 0 R>>") +
           object(2, "<</Type/Pages/Kids[3 0 R]/Count 1>>") +
           object(3, "<</Type/Page/Parent 2 0 R/MediaBox[0 0 99 99]/Resources<</XObject<</I 4 0 R>>>>>>") +
           object(4, "<</Subtype/Image/Width 1024/Height 1024/BitsPerComponent "
                     "8/ColorSpace/DeviceGray/Filter[/FlateDecode/FlateDecode]/Length " +
                         QByteArray::number(packed.size()) + ">>\nstream\n" + packed + "\nendstream") +
           "trailer\n<</Root 1 0 R/Size 5>>\n%%EOF\n";
}

// The error, or nothing.
std::optional<DocumentError> problemOf(const QByteArray &bytes, const PdfUse &use = {}) {
    const auto pdf = checkedPdf(bytes, use);
    return pdf ? std::nullopt : std::optional(pdf.error());
}

} // namespace

class PdfCheckerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void acceptsAScanThatIsPackedTwice() {
        QCOMPARE(problemOf(pdfWithPackedPicture(30 * megabyte)), std::nullopt);
    }

    void refusesWhatUnpacksTooFar_data() {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray blanks(20 * megabyte, ' ');
        QTest::newRow("instructions") << pdfDrawing(blanks, 1);
        QTest::newRow("instructions packed twice") << pdfDrawing(blanks, 2);
        QTest::newRow("picture packed twice") << pdfWithPackedPicture(200 * megabyte);
        QTest::newRow("cross-references") << pdfWithCrossReferences(200 * megabyte);
        QTest::newRow("objects") << pdfWithObjectStream(200 * megabyte);
    }
    void refusesWhatUnpacksTooFar() {
        QFETCH(QByteArray, bytes);
        QCOMPARE(problemOf(bytes), DocumentError::pdfTooLarge);
    }

    void refusesPageTreesThatNobodyWrites() {
        QCOMPARE(problemOf(pdfWithTreeOf(3'000)), DocumentError::unreadablePdf);
        QCOMPARE(problemOf(pdfWithSharedChildren(20'000)), DocumentError::unreadablePdf);
    }

    void countsTheInstructionsOfFivePagesInARow() {
        const qsizetype half = 7 * megabyte;
        const qsizetype otherHalf = half + 1;
        QCOMPARE(problemOf(pdfDrawingBlanks({half, otherHalf})), DocumentError::pdfTooLarge);
        QCOMPARE(problemOf(pdfDrawingBlanks({half, 1, 1, 1, 1, otherHalf})), std::nullopt);
        QCOMPARE(problemOf(pdfDrawingBlanks({1, 1, 1, 1, 1, half, 1, otherHalf})),
                 DocumentError::pdfTooLarge);
    }

    void countsOnceWhatPagesShare() {
        QCOMPARE(problemOf(pdfDrawingBlanks(QList<qsizetype>(20, 7 * megabyte))), std::nullopt);
    }

    void looksNoFartherThanThePagesThatAreUsed() {
        const QByteArray bytes = pdfDrawingBlanks({1, 20 * megabyte});
        QCOMPARE(problemOf(bytes), DocumentError::pdfTooLarge);
        const auto pdf = checkedPdf(bytes, {.pageLimit = 1});
        QVERIFY(pdf);
        QCOMPARE(pdf->pages.size(), 1);
    }

    void tellsThePagesBoxes() {
        const auto pdf = checkedPdf(pdfDrawingBlanks({1, 1}), {});
        QVERIFY(pdf);
        QCOMPARE(pdf->pages.size(), 2);
        QCOMPARE(pdf->pages.back().mediaBox, QSizeF(99, 99));
        QVERIFY(!pdf->pages.back().hasFonts);
    }

    void cropsOnlyWhenAsked() {
        const QByteArray bytes =
            pdfWithPageBox("0 0 99 99").replace("/MediaBox", "/CropBox[10 10 20 20]/MediaBox");
        QVERIFY(checkedPdf(bytes, {})->bytes.contains("/CropBox [ 10 10 20 20 ]"));
        QVERIFY(!checkedPdf(bytes, {.wholeMediaBoxes = true})->bytes.contains("/CropBox [ 10 10 20 20 ]"));
    }
};

int pdf_checker_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<PdfCheckerTest>(argc, argv);
}
#include "pdf_checker_test.moc"
