#include "converter/converter_fixtures.h"
#include "documents/hostile_documents.h"
#include "report_under_test.h"
#include "support/striped_pdf.h"
#include "support/test_program.h"

#include <QDir>
#include <QGuiApplication>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDFWriter.hh>

#include <sys/stat.h>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray written(QPDFWriter &writer) {
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    return QByteArray(reinterpret_cast<const char *>(buffer->getBuffer()),
                      static_cast<qsizetype>(buffer->getSize()));
}

QByteArray locked(const QByteArray &pdf) {
    QPDF document;
    document.processMemoryFile("plain", pdf.constData(), static_cast<std::size_t>(pdf.size()));
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setR6EncryptionParameters("user", "owner", true, true, true, true, true, true, qpdf_r3p_full,
                                     true);
    return written(writer);
}

QByteArray withoutPages() {
    QPDF document;
    document.emptyPDF();
    QPDFWriter writer(document);
    writer.setOutputMemory();
    return written(writer);
}

QByteArray nested(int levels) {
    return QByteArray("[").repeated(levels) + QByteArray("]").repeated(levels);
}

} // namespace

// What hostile and broken receipts do to a report: they get a page that says so, and nothing else of them
// comes in.
class ReportSafetyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { home_ = std::make_unique<TemporaryHome>(); }

    void receiptThatCannotBeOpenedGetsAPageThatSaysSo_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        const QString damaged = u"It is damaged."_s;
        const QString tooLarge = u"It is too large."_s;
        QTest::newRow("nothing") << QByteArray() << damaged;
        QTest::newRow("a text") << QByteArray("no receipt") << damaged;
        QTest::newRow("a PDF that is cut off") << stripedPdf(1).first(40) << damaged;
        QTest::newRow("a locked PDF") << locked(stripedPdf(1)) << u"It is locked."_s;
        QTest::newRow("a PDF without pages") << withoutPages() << u"It is empty."_s;
        QTest::newRow("a deep page tree") << pdfWithTreeOf(5000) << damaged;
        QTest::newRow("a page tree that loops")
            << testing::pdfOf({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[2 0 R]/Count 1>>"})
            << damaged;
        QTest::newRow("instructions packed over and over")
            << pdfDrawing(QByteArray("0 0 m 9 9 l S ").repeated(2'000'000), 2) << tooLarge;
        QTest::newRow("too many pages") << test::pdfWithPages(3000) << tooLarge;
        QTest::newRow("a JPEG that is cut off")
            << testing::encoded(testing::smoothPicture({300, 200}), "JPEG").chopped(400) << damaged;
        QTest::newRow("a PNG of too many pixels") << pngClaiming(100'000, 100'000) << tooLarge;
        QTest::newRow("arrays in arrays")
            << testing::pdfWithPages({"/MediaBox[0 0 9 9]/Resources<</Font<</F " + nested(300) + ">>>>"}, "n")
            << damaged;
    }
    void receiptThatCannotBeOpenedGetsAPageThatSaysSo() {
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        const QString good = file(u"good.pdf"_s, stripedPdf(1));
        expectNotice(file(u"bad.pdf"_s, content), good, reason);
    }

    void whatIsNoFileGetsAPageThatSaysSo() {
        const QString good = file(u"good.pdf"_s, stripedPdf(1));
        expectNotice(home_->path(u"gone.pdf"_s), good, u"No such file or directory"_s);

        const QString link = home_->path(u"link.pdf"_s);
        QVERIFY(QFile::link(good, link));
        expectNotice(link, good, u"It is a link."_s);

        const QString pipe = home_->path(u"pipe.pdf"_s);
        QCOMPARE(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
        expectNotice(pipe, good, u"It is not regular."_s);

        const QString folder = home_->path(u"folder.pdf"_s);
        QVERIFY(QDir().mkpath(folder));
        expectNotice(folder, good, u"Is a directory"_s);
    }

    void folderThatIsALinkIsNotFollowed() {
        const QString secret = file(u"elsewhere/secret.pdf"_s, stripedPdf(1));
        QVERIFY(QDir().mkpath(home_->path(u"watched"_s)));
        QVERIFY(QFile::link(home_->path(u"elsewhere"_s), home_->path(u"watched/inner"_s)));
        ReportDescription description = descriptionOf({home_->path(u"watched/inner/secret.pdf"_s)});
        description.folder = home_->path(u"watched"_s);
        const MadeReport report(description);
        QVERIFY(report.textOf(1).contains(u"This receipt could not be opened."));
    }

    void nothingThatActsComesIn() {
        const QByteArray action = "<</S/JavaScript/JS(app.alert\\(1\\))>>";
        const QByteArray pdf = testing::pdfOf(
            {"<</Type/Catalog/Pages 2 0 R/OpenAction " + action + "/AA<</WC " + action +
                 ">>/Names<</JavaScript<</Names[(x) " + action + "]>>/EmbeddedFiles<</Names[(y) 6 0 R]>>>>>>",
             "<</Type/Pages/Kids[3 0 R]/Count 1>>",
             "<</Type/Page/Parent 2 0 R/MediaBox[0 0 400 300]/AA<</O " + action +
                 ">>/Annots[5 0 R]/Contents 4 0 R/Resources<</XObject<</X 7 0 R>>/Properties<</P 6 0 R>>>>>>",
             testing::pdfStream("/X Do"),
             "<</Type/Annot/Subtype/Link/Rect[0 0 9 9]/A<</S/URI/URI(http://example.org/track)>>>>",
             "<</Type/Filespec/F(payload.exe)/EF<</F 4 0 R>>>>",
             "<</Type/XObject/Subtype/Form/BBox[0 0 9 9]/AA<</O " + action + ">>/PieceInfo<</Q " + action +
                 ">>/Length 1>>\nstream\nn\nendstream"});
        const QString path = file(u"active.pdf"_s, pdf);
        QVERIFY(pdf.contains("/JavaScript"));
        MadeReport report(descriptionOf({path}));
        QVERIFY(report.textOf(1).contains(u"No. 1"));
        QVERIFY(!report.textOf(1).contains(u"could not be opened"));
        for (const char *word :
             {"/JavaScript", "/JS", "/OpenAction", "/AA", "/URI", "payload", "/PieceInfo"}) {
            QVERIFY2(!report.bytes().contains(word), word);
        }
        QCOMPARE(report.bytes().count("/EmbeddedFile/"), 1); // the ledger
        QCOMPARE(report.complaints(), QByteArray());
    }

    void fontsMayHaveAnyNames() {
        const QByteArray font = "<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>";
        const QByteArray pdf = testing::pdfWithPages(
            {"/MediaBox[0 0 400 300]/Resources<</Font<</AA " + font + "/JS " + font + "/A#20B " + font +
             ">>>>"},
            "BT /AA 12 Tf 50 50 Td (first) Tj /JS 12 Tf (second) Tj /A#20B 12 Tf (third) Tj ET");
        const MadeReport report(descriptionOf({file(u"fonts.pdf"_s, pdf)}));
        QVERIFY(report.textOf(1).contains(u"firstsecondthird"));
    }

private:
    void expectNotice(const QString &bad, const QString &good, const QString &reason) {
        MadeReport report(descriptionOf({good, bad, good}));
        QVERIFY(report.isWritten());
        QCOMPARE(report.pages().size(), std::size_t{4});
        const QString text = report.textOf(2);
        QVERIFY2(text.contains(u"This receipt could not be opened."), qPrintable(text));
        QVERIFY2(text.contains(reason), qPrintable(text));
        QVERIFY(text.contains(u"No. 2 · Shop 2"));
        QCOMPARE(report.firstPageOf(2), 3);
        QCOMPARE(report.complaints(), QByteArray());
    }

    QString file(const QString &name, const QByteArray &content) const {
        const QString path = home_->path(name);
        writeFile(path, content);
        return path;
    }

    std::unique_ptr<TemporaryHome> home_;
};

int report_safety_test(int argc, char **argv) {
    return runTest<QGuiApplication, ReportSafetyTest>(argc, argv);
}
#include "report_safety_test.moc"
