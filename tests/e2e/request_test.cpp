#include "support/test_program.h"
#include "user_session.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

// Every byte value, and a length that is no multiple of what base64 or a buffer takes at once.
QByteArray bytes(qsizetype size) {
    QByteArray bytes(size, '\0');
    for (qsizetype index = 0; index < size; ++index) {
        bytes[index] = static_cast<char>(index * 7 + index / 256);
    }
    return bytes;
}

// The body that the service is known to take, around another document.
QJsonObject expectedBody(const QString &mimeType, const QByteArray &document) {
    QJsonObject body = QJsonDocument::fromJson(
                           readFile(QString::fromUtf8(FENNICK_SOURCE_DIR "/tests/data/request_body.json")))
                           .object();
    QJsonArray contents = body.value(u"contents").toArray();
    QJsonObject content = contents[0].toObject();
    QJsonArray parts = content.value(u"parts").toArray();
    parts[1] =
        QJsonObject{{u"inlineData"_s, QJsonObject{{u"mimeType"_s, mimeType},
                                                  {u"data"_s, QString::fromLatin1(document.toBase64())}}}};
    content.insert(u"parts"_s, parts);
    contents[0] = content;
    body.insert(u"contents"_s, contents);
    return body;
}

} // namespace

class RequestTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session_.renew();
        session_.server.setScript([](const HttpRequest &) {
            return HttpReply{.status = 500, .body = {}, .headers = {}}; // the file keeps its name
        });
    }
    void cleanup() { QVERIFY(session_.end()); }

    void everyKindIsSentByItsTypeAndWhole() {
        const QMap<QString, QString> types = {
            {u"a.pdf"_s, u"application/pdf"_s}, {u"b.PDF"_s, u"application/pdf"_s},
            {u"c.png"_s, u"image/png"_s},       {u"d.PNG"_s, u"image/png"_s},
            {u"e.jpg"_s, u"image/jpeg"_s},      {u"f.JPG"_s, u"image/jpeg"_s},
            {u"g.jpeg"_s, u"image/jpeg"_s},     {u"h.Jpeg"_s, u"image/jpeg"_s},
            {u"i.heic"_s, u"image/heic"_s},     {u"j.HEIC"_s, u"image/heic"_s},
            {u"k.webp"_s, u"image/webp"_s},     {u"l.WebP"_s, u"image/webp"_s},
            {u"m.pdf.png"_s, u"image/png"_s},
        };
        QVERIFY(session_.start());
        QMap<QByteArray, QString> typeOfDocument;
        qsizetype size = 1000;
        for (auto type = types.begin(); type != types.end(); ++type) {
            const QByteArray document = bytes(++size); // all remainders by three
            session_.drop(type.key(), document);
            typeOfDocument[document] = type.value();
        }
        QVERIFY(session_.waitForRows(types.size(), u"error"_s));
        QCOMPARE(session_.server.requests().size(), types.size());
        for (const HttpRequest &request : session_.server.requests()) {
            const QByteArray document = inlineDocument(request);
            QVERIFY(typeOfDocument.contains(document));
            checkHead(request);
            QCOMPARE(QJsonDocument::fromJson(request.body).object(),
                     expectedBody(typeOfDocument.take(document), document));
            QVERIFY(request.body.contains("\"temperature\":0}") ||
                    request.body.contains("\"temperature\":0,"));
        }
    }

    void documentOfManyMegabytesIsSentWhole() {
        const QByteArray document = bytes(20'000'003);
        QVERIFY(session_.start());
        session_.drop(u"large.pdf"_s, document);
        QVERIFY(session_.waitForRows(1, u"error"_s));
        QCOMPARE(session_.sentDocuments(), QList<QByteArray>{document});
        checkHead(session_.server.requests().first());
    }

    void modelOfThePreferencesStandsInThePath() {
        session_.setPreference("model", "gemini-3.0-pro_preview");
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"error"_s));
        QCOMPARE(session_.server.requests().first().target,
                 "/v1beta/models/gemini-3.0-pro_preview:generateContent?key=" + UserSession::key);
    }

private:
    static void checkHead(const HttpRequest &request) {
        QCOMPARE(request.method, QByteArray("POST"));
        QCOMPARE(request.target, "/v1beta/models/gemini-2.5-flash:generateContent?key=" + UserSession::key);
        QCOMPARE(request.headers.value("content-type"), QByteArray("application/json"));
        QCOMPARE(request.headers.value("content-length"), QByteArray::number(request.body.size()));
        QVERIFY(request.headers.value("host").startsWith("127.0.0.1"));
    }

    UserSession session_;
};

int request_test(int argc, char **argv) {
    return runTest<QCoreApplication, RequestTest>(argc, argv);
}
#include "request_test.moc"
