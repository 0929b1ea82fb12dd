#include "engine/recognition/pdf_reader.h"
#include "support/test_program.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QtConcurrent>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

constexpr PdfUse pageLimit{.pageLimit = 5};

// A4 pages, each with the given texts drawn in that order at (x, y) in points. A scaled painter places every
// letter by itself.
struct DrawnText {
    QPointF at;
    QString text;
};

QByteArray pdfWith(const QList<QList<DrawnText>> &pages, QRect rectangle = {}, bool letterByLetter = false) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageMargins({});
    QPainter painter(&writer);
    if (letterByLetter) {
        painter.scale(writer.resolution() / 72.0, writer.resolution() / 72.0);
    }
    const double unit = letterByLetter ? 1 : writer.resolution() / 72.0;
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(static_cast<int>(12 * unit));
    painter.setFont(font);
    for (qsizetype index = 0; index < pages.size(); ++index) {
        if (index > 0) {
            writer.newPage();
        }
        for (const DrawnText &drawn : pages[index])
            painter.drawText(drawn.at * unit, drawn.text);
        painter.fillRect(QRectF(rectangle.topLeft() * unit, rectangle.size() * unit), Qt::black);
    }
    painter.end();
    return buffer.data();
}

QByteArray written(QPDF &pdf) {
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.write();
    const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
    return QByteArray(reinterpret_cast<const char *>(buffer->getBuffer()),
                      static_cast<qsizetype>(buffer->getSize()));
}

QByteArray locked(const QByteArray &bytes, const char *userPassword) {
    QPDF pdf;
    pdf.processMemoryFile("document", bytes.constData(), static_cast<size_t>(bytes.size()));
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setR6EncryptionParameters(userPassword, "owner", true, true, true, true, true, true, qpdf_r3p_full,
                                     true);
    writer.write();
    const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
    return QByteArray(reinterpret_cast<const char *>(buffer->getBuffer()),
                      static_cast<qsizetype>(buffer->getSize()));
}

// Objects without a cross-reference table, as a damaged file has: readers rebuild it.
QByteArray pdfOfObjects(const QByteArray &objects) {
    return "%PDF-1.7\n1 0 obj\n<</Type/Catalog/Pages 2 0 R>>\nendobj\n" + objects +
           "\ntrailer\n<</Root 1 0 R/Size 9>>\n%%EOF\n";
}

const QList<DrawnText> someText = {
    {{50, 60}, u"Corner Shop, 12 High Street"_s}, {{50, 90}, u"Total"_s}, {{400, 90}, u"23.50"_s}};

} // namespace

class PdfReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsTheTextLayerByRows() {
        const auto pages = readPdf(pdfWith({someText}), pageLimit);
        QVERIFY(pages);
        QCOMPARE(pages->size(), 1);
        const QList<TextLine> lines = pages->first().lines;
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[0].text, u"Corner Shop, 12 High Street"_s);
        QCOMPARE(lines[1].text.simplified(), u"Total 23.50"_s);
        QVERIFY(pages->first().picture.isNull());
    }

    void readsTextPlacedLetterByLetter() {
        const auto pages = readPdf(pdfWith({someText}, {}, true), pageLimit);
        QVERIFY(pages);
        const QList<TextLine> lines = pages->first().lines;
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[0].text, u"Corner Shop, 12 High Street"_s);
        QCOMPARE(lines[1].text.simplified(), u"Total 23.50"_s);
    }

    void joinsColumnsDrawnOneAfterTheOther() {
        const QList<DrawnText> columns = {{{50, 60}, u"Sandwich"_s}, {{50, 90}, u"Lemonade"_s},
                                          {{50, 120}, u"Total"_s},   {{400, 60}, u"8.00"_s},
                                          {{400, 90}, u"3.00"_s},    {{400, 120}, u"11.00"_s}};
        const auto pages = readPdf(pdfWith({columns}), pageLimit);
        QVERIFY(pages);
        const QList<TextLine> lines = pages->first().lines;
        QCOMPARE(lines.size(), 3);
        QCOMPARE(lines[2].text.simplified(), u"Total 11.00"_s);
    }

    void drawsAPageWithoutText() {
        const auto pages = readPdf(pdfWith({{}}, QRect(100, 100, 50, 50)), pageLimit);
        QVERIFY(pages);
        const PdfPage page = pages->first();
        QVERIFY(page.lines.isEmpty());
        QVERIFY(page.picture.width() > 2400 && page.picture.height() > 3400);
        QCOMPARE(page.picture.pixelColor(10, 10), QColor(Qt::white));
        QVERIFY(page.picture.pixelColor(125 * 300 / 72, 125 * 300 / 72).lightness() < 20);
    }

    void readsNoMoreThanTheLimit() {
        const auto pages = readPdf(pdfWith(QList<QList<DrawnText>>(8, someText)), pageLimit);
        QVERIFY(pages);
        QCOMPARE(pages->size(), pageLimit.pageLimit);
        QCOMPARE(pages->last().lines.first().page, pageLimit.pageLimit - 1);
    }

    void opensWhatIsLockedWithoutAPassword() {
        const auto pages = readPdf(locked(pdfWith({someText}), ""), pageLimit);
        QVERIFY(pages);
        QCOMPARE(pages->first().lines.size(), 2);
    }

    void refusesWhatNeedsAPassword() {
        const auto pages = readPdf(locked(pdfWith({someText}), "secret"), pageLimit);
        QVERIFY(!pages);
        QCOMPARE(pages.error(), ReadError::lockedPdf);
    }

    void refusesADocumentWithoutPages() {
        QPDF empty;
        empty.emptyPDF();
        const auto pages = readPdf(written(empty), pageLimit);
        QVERIFY(!pages);
        QCOMPARE(pages.error(), ReadError::emptyPdf);
    }

    void refusesATreeOfPagesThatLoops() {
        const auto pages =
            readPdf(pdfOfObjects("2 0 obj\n<</Type/Pages/Kids[3 0 R]/Count 1>>\nendobj\n"
                                 "3 0 obj\n<</Type/Pages/Kids[2 0 R]/Count 1/Parent 2 0 R>>\nendobj"),
                    pageLimit);
        QVERIFY(!pages);
    }

    void refusesAPictureThatClaimsTooMuch() {
        const auto pages = readPdf(
            pdfOfObjects("2 0 obj\n<</Type/Pages/Kids[3 0 R]/Count 1>>\nendobj\n"
                         "3 0 obj\n<</Type/Page/Parent 2 0 R/MediaBox[0 0 99 99]/Contents 5 0 R"
                         "/Resources<</XObject<</I 4 0 R>>>>>>\nendobj\n"
                         "4 0 obj\n<</Type/XObject/Subtype/Image/Width 90000/Height 90000/BitsPerComponent 8"
                         "/ColorSpace/DeviceGray/Length 2>>\nstream\nab\nendstream\nendobj\n"
                         "5 0 obj\n<</Length 21>>\nstream\n99 0 0 99 0 0 cm /I Do\nendstream\nendobj"),
            pageLimit);
        QVERIFY(!pages);
        QCOMPARE(pages.error(), ReadError::imageTooLarge);
    }

    void drawsAGiantPageSmall() {
        const auto pages =
            readPdf(pdfOfObjects("2 0 obj\n<</Type/Pages/Kids[3 0 R]/Count 1>>\nendobj\n"
                                 "3 0 obj\n<</Type/Page/Parent 2 0 R/MediaBox[0 0 14400 14400]>>\nendobj"),
                    pageLimit);
        QVERIFY(pages);
        const QSize size = pages->first().picture.size();
        QVERIFY(!size.isEmpty() && static_cast<qint64>(size.width()) * size.height() <= 12'100'000);
    }

    void refusesWhatIsNoPdf_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("hello");
        QTest::newRow("header alone") << QByteArray("%PDF-1.7\n");
        QTest::newRow("a hundred bytes") << pdfWith({someText}).first(100);
        QTest::newRow("zeros") << QByteArray(5000, '\0');
    }
    void refusesWhatIsNoPdf() {
        QFETCH(QByteArray, bytes);
        const auto pages = readPdf(bytes, pageLimit);
        QVERIFY(!pages);
        QCOMPARE(pages.error(), ReadError::unreadablePdf);
    }

    void survivesEveryCut() {
        const QByteArray whole = pdfWith({someText});
        for (qsizetype length = 0; length < whole.size(); length += whole.size() / 40) {
            const auto pages = readPdf(whole.first(length), pageLimit);
            QVERIFY(!pages || pages->size() <= 1);
        }
    }

    void readsForSeveralThreads() {
        const QByteArray bytes = pdfWith({someText, someText});
        QList<int> runs(12);
        const QList<qsizetype> counts = QtConcurrent::blockingMapped<QList<qsizetype>>(runs, [&bytes](int) {
            const auto pages = readPdf(bytes, pageLimit);
            return pages ? pages->size() : 0;
        });
        QCOMPARE(counts, QList<qsizetype>(12, 2));
    }
};

int pdf_reader_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, PdfReaderTest>(argc, argv);
}
#include "pdf_reader_test.moc"
