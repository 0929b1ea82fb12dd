#include "extraction/unpacked_body.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick::GeminiClient;

Q_DECLARE_METATYPE(std::optional<UnpackingFailure>)

namespace {

constexpr qint64 wideLimit = 1024 * 1024;

// "gzip -9n" and zlib's own format of the text "receipt receipt receipt receipt\n".
const QByteArray receipts = "receipt receipt receipt receipt\n";
const QByteArray gzipReceipts =
    QByteArray::fromHex("1f8b08000000000002ff2b4a4d4ecd2c285128c24e730100ded1479220000000");

// What Qt calls compressing is zlib's format behind four bytes of length.
QByteArray zlibPacked(const QByteArray &bytes) {
    return qCompress(bytes).mid(4);
}

} // namespace

// The packings of a body that HTTP knows, whole and otherwise.
class UnpackedBodyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bodyIsUnpacked_data() {
        QTest::addColumn<QByteArray>("encoding");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("none") << QByteArray() << receipts;
        QTest::newRow("identity") << QByteArray("identity") << receipts;
        QTest::newRow("gzip") << QByteArray("gzip") << gzipReceipts;
        QTest::newRow("gzip's old name") << QByteArray("x-gzip") << gzipReceipts;
        QTest::newRow("in capitals") << QByteArray(" GZIP ") << gzipReceipts;
        QTest::newRow("deflate") << QByteArray("deflate") << zlibPacked(receipts);
    }
    void bodyIsUnpacked() {
        QFETCH(QByteArray, encoding);
        QFETCH(QByteArray, body);
        const UnpackedBody unpacked = unpackedBody(body, encoding, wideLimit);
        QCOMPARE(unpacked.bytes, receipts);
        QVERIFY(!unpacked.failure);
    }

    void failureKeepsWhatCameBefore() {
        QByteArray text;
        for (int line = 0; line < 5000; ++line) {
            text += QByteArray::number(line * line) + ' ';
        }
        const QByteArray packed = zlibPacked(text);
        const UnpackedBody cut = unpackedBody(packed.first(packed.size() / 2), "deflate", wideLimit);
        QCOMPARE(cut.failure, std::optional(UnpackingFailure::cut));
        QVERIFY(cut.bytes.size() > 1000);
        QVERIFY(text.startsWith(cut.bytes));
        const UnpackedBody large = unpackedBody(packed, "deflate", 1000);
        QCOMPARE(large.failure, std::optional(UnpackingFailure::tooLarge));
        QCOMPARE(large.bytes, text.first(1000));
    }

    void everyMissingEndIsNoticed() {
        for (qsizetype length = 0; length < gzipReceipts.size(); ++length) {
            const UnpackedBody unpacked = unpackedBody(gzipReceipts.first(length), "gzip", wideLimit);
            QVERIFY2(unpacked.failure == UnpackingFailure::cut, qPrintable(QString::number(length)));
        }
    }

    void damageIsNoticed_data() {
        QTest::addColumn<QByteArray>("encoding");
        QTest::addColumn<QByteArray>("body");
        QByteArray wrongSum = gzipReceipts;
        wrongSum[wrongSum.size() - 6] = static_cast<char>(~wrongSum[wrongSum.size() - 6]);
        QTest::newRow("checksum") << QByteArray("gzip") << wrongSum;
        QTest::newRow("plain text") << QByteArray("gzip") << receipts;
        QTest::newRow("unknown packing") << QByteArray("br") << receipts;
        QTest::newRow("packed twice") << QByteArray("gzip, gzip") << gzipReceipts;
    }
    void damageIsNoticed() {
        QFETCH(QByteArray, encoding);
        QFETCH(QByteArray, body);
        QCOMPARE(unpackedBody(body, encoding, wideLimit).failure, std::optional(UnpackingFailure::damaged));
    }

    void bombStopsAtTheLimit() {
        const QByteArray packed = zlibPacked(QByteArray(64 * wideLimit, ' '));
        const UnpackedBody unpacked = unpackedBody(packed, "deflate", wideLimit);
        QCOMPARE(unpacked.failure, std::optional(UnpackingFailure::tooLarge));
        QCOMPARE(unpacked.bytes.size(), wideLimit);
    }

    void plainBodyStopsAtTheLimit() {
        const UnpackedBody unpacked = unpackedBody(receipts, {}, 7);
        QCOMPARE(unpacked.bytes, QByteArray("receipt"));
        QCOMPARE(unpacked.failure, std::optional(UnpackingFailure::tooLarge));
    }
};

int unpacked_body_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, UnpackedBodyTest>(argc, argv);
}
#include "unpacked_body_test.moc"
