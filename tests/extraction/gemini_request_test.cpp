#include "extraction/gemini_request.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace fennick;
using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

class GeminiRequestTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void mimeTypeFollowsTheExtension_data() {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QByteArray>("type");
        const auto add = [](const char *path, const char *type) {
            QTest::newRow(path) << QByteArray(path) << QByteArray(type);
        };
        add("/w/a.pdf", "application/pdf");
        add("/w/a.png", "image/png");
        add("/w/scan.JPG", "image/jpeg");
        add("/w/scan.jpeg", "image/jpeg");
        add("/w/a.HeiC", "image/heic");
        add("/w/a.webp", "image/webp");
        add("/w/scan.tiff", "application/octet-stream");
        add("/w.pdf/scan", "application/octet-stream");
    }
    void mimeTypeFollowsTheExtension() {
        QFETCH(QByteArray, path);
        QFETCH(QByteArray, type);
        QCOMPARE(GeminiClient::mimeType(QString::fromUtf8(path)), QString::fromUtf8(type));
    }

    void bodyIsTheDocumentedOneMemberByMember() {
        const QString path = home_.path(u"scan.JPG"_s);
        writeFile(path, "receipt \xFF bytes");
        const auto body = GeminiClient::requestBody(path);
        QVERIFY(body);
        QJsonObject expected =
            QJsonDocument::fromJson(
                readFile(QString::fromUtf8(FENNICK_SOURCE_DIR "/tests/data/request_body.json")))
                .object();
        QCOMPARE(QJsonDocument::fromJson(*body).object(), expected);
    }

    void temperatureIsAnIntegerAndTheBodyCompact() {
        const QString path = home_.path(u"a.pdf"_s);
        writeFile(path, "x");
        const auto body = GeminiClient::requestBody(path);
        QVERIFY(body->contains("\"temperature\":0}"));
        QVERIFY(!body->contains('\n'));
    }

    void instructionHas844Characters() {
        const QString path = home_.path(u"a.pdf"_s);
        writeFile(path, "x");
        const QJsonObject body = QJsonDocument::fromJson(*GeminiClient::requestBody(path)).object();
        const QString text = body[u"contents"][0][u"parts"][0][u"text"].toString();
        QCOMPARE(text.size(), 844);
        QCOMPARE(text.count(u'\n'), 11);
    }

    void everyFileSizeIsEncodedWhole_data() {
        QTest::addColumn<qsizetype>("size");
        constexpr qsizetype chunk = 3 * 64 * 1024;
        for (const qsizetype size : {qsizetype(0), qsizetype(1), qsizetype(2), qsizetype(3), chunk - 1, chunk,
                                     chunk + 1, 3 * chunk + 2}) {
            QTest::addRow("%lld bytes", static_cast<long long>(size)) << size;
        }
    }
    void everyFileSizeIsEncodedWhole() {
        QFETCH(qsizetype, size);
        QByteArray content(size, Qt::Uninitialized);
        for (qsizetype index = 0; index < size; ++index) {
            content[index] = static_cast<char>(index * 31 % 251);
        }
        const QString path = home_.path(u"a.pdf"_s);
        writeFile(path, content);
        const QJsonObject body = QJsonDocument::fromJson(*GeminiClient::requestBody(path)).object();
        const QString data = body[u"contents"][0][u"parts"][1][u"inlineData"][u"data"].toString();
        QCOMPARE(data, QString::fromLatin1(content.toBase64()));
    }

    // As after a read error in its middle: what was read before it is not the receipt.
    void fileShorterThanItsSizeIsAnError() {
        const QString file = u"/sys/devices/system/cpu/online"_s; // claims a page, has less
        if (!QFileInfo::exists(file) || QFileInfo(file).size() <= readFile(file).size()) {
            QSKIP("This system has no file that claims more than it holds");
        }
        QVERIFY(!GeminiClient::requestBody(file));
    }

    void fileThatCannotBeReadIsAnError() {
        const auto missing = GeminiClient::requestBody(home_.path(u"missing.pdf"_s));
        QVERIFY(!missing);
        QCOMPARE(missing.error().description(), u"No such file or directory"_s);
        QVERIFY(!GeminiClient::requestBody(home_.path(u"config"_s)));
    }

private:
    test::TemporaryHome home_;
};

int gemini_request_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, GeminiRequestTest>(argc, argv);
}
#include "gemini_request_test.moc"
