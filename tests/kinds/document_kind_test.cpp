#include "kinds/document_kind.h"
#include "support/test_program.h"

using namespace fennick;
using namespace Qt::StringLiterals;

using Kind = std::optional<DocumentKind>;

class DocumentKindTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nameTellsTheKindInAnyLetterCase() {
        QCOMPARE(kindOfName(u"/a/b.pdf"_s), Kind(DocumentKind::pdf));
        QCOMPARE(kindOfName(u"/a/b.JPG"_s), Kind(DocumentKind::jpeg));
        QCOMPARE(kindOfName(u"/a/b.jPeG"_s), Kind(DocumentKind::jpeg));
        QCOMPARE(kindOfName(u"/a/b.png"_s), Kind(DocumentKind::png));
        QCOMPARE(kindOfName(u"/a/b.webp"_s), Kind(DocumentKind::webp));
        QCOMPARE(kindOfName(u"/a/b.HEIC"_s), Kind(DocumentKind::heif));
    }

    void noOtherNameIsAReceipts() {
        for (const QString &name : {u"a.gif"_s, u"a.bmp"_s, u"a.heif"_s, u"a.tiff"_s, u"a.txt"_s, u"pdf"_s,
                                    u".pdf"_s, u"a.pdf."_s, u""_s, u"a.pdf/b"_s}) {
            QCOMPARE(kindOfName(name), Kind());
        }
    }

    void typeTellsTheKind() {
        QCOMPARE(kindOfMimeType(u"application/pdf"_s), Kind(DocumentKind::pdf));
        QCOMPARE(kindOfMimeType(u"image/heic"_s), Kind(DocumentKind::heif));
        QCOMPARE(kindOfMimeType(u"image/heif"_s), Kind(DocumentKind::heif));
        QCOMPARE(kindOfMimeType(u"image/gif"_s), Kind());
        QCOMPARE(kindOfMimeType(u"IMAGE/PNG"_s), Kind());
        QCOMPARE(kindOfMimeType(u""_s), Kind());
    }

    void everyKindWithANameHasTheTypeItIsSentAs() {
        QCOMPARE(mimeTypeOf(DocumentKind::pdf), u"application/pdf"_s);
        QCOMPARE(mimeTypeOf(DocumentKind::jpeg), u"image/jpeg"_s);
        QCOMPARE(mimeTypeOf(DocumentKind::png), u"image/png"_s);
        QCOMPARE(mimeTypeOf(DocumentKind::webp), u"image/webp"_s);
        QCOMPARE(mimeTypeOf(DocumentKind::heif), u"image/heic"_s);
        QVERIFY(mimeTypeOf(DocumentKind::gif).isEmpty());
        QVERIFY(mimeTypeOf(DocumentKind::bmp).isEmpty());
    }

    void contentTellsTheKind_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<Kind>("kind");
        const auto row = [](const char *name, QByteArray content, Kind kind) {
            QTest::newRow(name) << content << kind;
        };
        row("PDF", "%PDF-1.7\n", DocumentKind::pdf);
        row("PDF after other bytes", QByteArray(1019, 'x') + "%PDF-1.7", DocumentKind::pdf);
        row("PDF too late", QByteArray(1020, 'x') + "%PDF-1.7", {});
        row("JPEG", "\xFF\xD8\xFF\xE0", DocumentKind::jpeg);
        row("PNG", "\x89PNG\r\n\x1A\n", DocumentKind::png);
        row("PNG of another age", "\x89PNG\n\n\x1A\n", {});
        row("WebP", QByteArray("RIFF\x10\0\0\0WEBPVP8 ", 16), DocumentKind::webp);
        row("sound", QByteArray("RIFF\x10\0\0\0WAVEfmt ", 16), {});
        row("HEIC",
            QByteArray("\0\0\0\x18"
                       "ftypheic",
                       12),
            DocumentKind::heif);
        row("HEIF",
            QByteArray("\0\0\0\x18"
                       "ftypmif1",
                       12),
            DocumentKind::heif);
        row("film",
            QByteArray("\0\0\0\x18"
                       "ftypisom",
                       12),
            {});
        row("AVIF",
            QByteArray("\0\0\0\x18"
                       "ftypavif",
                       12),
            {});
        row("GIF", "GIF89a", DocumentKind::gif);
        row("BMP", "BM", DocumentKind::bmp);
        row("text", "Just some text", {});
        row("cut off", "\x89PNG", {});
        row("nothing", "", {});
    }
    void contentTellsTheKind() {
        QFETCH(QByteArray, content);
        QFETCH(Kind, kind);
        QCOMPARE(kindOfContent(content), kind);
    }
};

int document_kind_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<DocumentKindTest>(argc, argv);
}
#include "document_kind_test.moc"
