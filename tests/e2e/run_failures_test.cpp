#include "support/striped_pdf.h"
#include "support/test_program.h"
#include "user_session.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTcpServer>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray addressNobodyListensAt() {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return "http://127.0.0.1:" + QByteArray::number(server.serverPort());
}

} // namespace

// Failures around the answer: before the request, on its way, and after it.
class RunFailuresTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { session_.renew(); }
    void cleanup() { QVERIFY(session_.end()); }

    void fileThatCannotBeRead() {
        QVERIFY(session_.start());
        QDir().mkpath(session_.path(u"folder.pdf"_s));
        QFile::setPermissions(session_.drop(u"locked.pdf"_s), {});
        QVERIFY(session_.waitForRows(2, u"error"_s));
        QCOMPARE(error(u"folder.pdf"_s), u"Failed to read file: Is a directory"_s);
        QCOMPARE(error(u"locked.pdf"_s), u"Failed to read file: Permission denied"_s);
        QVERIFY(session_.server.requests().isEmpty());
    }

    void addressThatMakesNoUrl_data() {
        QTest::addColumn<QByteArray>("preference");
        QTest::addColumn<QByteArray>("value");
        const QByteArray endpoint = "geminiEndpoint";
        QTest::newRow("insecure") << endpoint << QByteArray("http://192.0.2.1:80");
        QTest::newRow("insecure name") << endpoint << QByteArray("http://127.0.0.1.example:80");
        QTest::newRow("no web address") << endpoint << QByteArray("ftp://127.0.0.1");
        QTest::newRow("no scheme") << endpoint << QByteArray("127.0.0.1:80");
        QTest::newRow("no host") << endpoint << QByteArray("https://");
        QTest::newRow("empty") << endpoint << QByteArray("\"\"");
        QTest::newRow("model with a blank") << QByteArray("model") << QByteArray("gemini 2.5");
    }
    void addressThatMakesNoUrl() {
        QFETCH(QByteArray, preference);
        QFETCH(QByteArray, value);
        session_.setPreference(preference, value);
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"error"_s));
        QCOMPARE(error(u"a.pdf"_s), u"Gemini API error: 0 — Invalid endpoint URL"_s);
        QVERIFY(session_.server.requests().isEmpty());
    }

    void keyThatMakesNoUrl() {
        PrivateSession::storeKey("AIza with blanks");
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"error"_s));
        QCOMPARE(error(u"a.pdf"_s), u"Gemini API error: 0 — Invalid endpoint URL"_s);
        QVERIFY(!readFile(session_.home.receiptsFile()).contains("AIza"));
        QVERIFY(session_.server.requests().isEmpty());
    }

    void refusedConnection() {
        session_.setPreference("geminiEndpoint", addressNobodyListensAt());
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"error"_s));
        QCOMPARE(error(u"a.pdf"_s), u"Connection refused"_s);
    }

    void connectionThatFails_data() {
        QTest::addColumn<HttpReply::Fault>("fault");
        QTest::addColumn<QString>("text");
        QTest::newRow("no answer") << HttpReply::Fault::closeAtOnce << u"Connection closed"_s;
        QTest::newRow("half an answer") << HttpReply::Fault::cutBody << u"Connection closed"_s;
        QTest::newRow("no HTTP") << HttpReply::Fault::noHttp << u"Connection closed"_s;
    }
    void connectionThatFails() {
        QFETCH(HttpReply::Fault, fault);
        QFETCH(QString, text);
        session_.server.setScript([fault](const HttpRequest &) {
            HttpReply reply = answering(lunchAnswer);
            reply.fault = fault;
            return reply;
        });
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"error"_s));
        QCOMPARE(error(u"a.pdf"_s), text);
    }

    void noKey_data() {
        QTest::addColumn<bool>("isStored");
        QTest::newRow("no key") << false;
        QTest::newRow("empty key") << true;
    }
    void noKey() {
        QFETCH(bool, isStored);
        PrivateSession::clearKey();
        if (isStored) {
            PrivateSession::storeKey("");
        }
        session_.drop(u"existing.pdf"_s);
        QVERIFY(session_.start());
        session_.drop(u"new.jpg"_s);
        QVERIFY(session_.waitForRows(2, u"error"_s));
        QCOMPARE(error(u"existing.pdf"_s), missingKey);
        QCOMPARE(error(u"new.jpg"_s), missingKey);
        QVERIFY(session_.server.requests().isEmpty());
        QCOMPARE(session_.files().keys(), (QStringList{u"existing.pdf"_s, u"new.jpg"_s}));
    }

    void keyThatIsStoredLaterServesTheNextFile() {
        PrivateSession::clearKey();
        QVERIFY(session_.start());
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.waitForRows(1, u"error"_s));
        PrivateSession::storeKey("AIza-later-key");
        session_.drop(u"b.pdf"_s);
        QVERIFY(session_.waitFor([this] { return session_.row(lunchName).value(u"status") == u"done"_s; }));
        QVERIFY(session_.server.requests().first().target.endsWith("?key=AIza-later-key"));
        QCOMPARE(error(u"a.pdf"_s), missingKey);
    }

    void fileThatVanishesDuringItsScanKeepsItsRow() {
        session_.server.setScript([this](const HttpRequest &) {
            QFile::remove(session_.path(u"a.pdf"_s));
            return answering(lunchAnswer);
        });
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"done"_s));
        checkDoneButNotDelivered(u"a.pdf"_s);
    }

    void nameThatIsTooLongLeavesTheOldOne() {
        session_.server.setScript([](const HttpRequest &) {
            return answering("{\"location\": \"" + QByteArray(300, 'x') + "\"}");
        });
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"done"_s));
        letTimePass(300);
        checkDoneButNotDelivered(u"a.pdf"_s);
        QCOMPARE(session_.files(), (QMap<QString, QByteArray>{{u"a.pdf"_s, "a receipt"}}));
    }

    void deliveryThatFails_data() {
        QTest::addColumn<QByteArray>("permission");
        QTest::addColumn<bool>("isWritable");
        QTest::addColumn<bool>("isDocument");
        QTest::newRow("denied") << QByteArray("denied") << true << true;
        QTest::newRow("restricted") << QByteArray("authorized") << false << true;
        QTest::newRow("no document") << QByteArray("authorized") << true << false;
    }
    void deliveryThatFails() {
        QFETCH(QByteArray, permission);
        QFETCH(bool, isWritable);
        QFETCH(bool, isDocument);
        const QString pictures = session_.home.path(u"Pictures"_s);
        session_.setPreference("addToPhotos", "true");
        writeFile(session_.home.permissionsFile(), "[General]\nphotos=" + permission + '\n');
        QFile::setPermissions(pictures, isWritable ? QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                                                   : QFile::ReadOwner | QFile::ExeOwner);
        session_.drop(u"a.pdf"_s, isDocument ? stripedPdf(1) : QByteArray("no document"));
        QVERIFY(session_.start());
        QVERIFY(session_.waitForRows(1, u"done"_s));
        // Whatever delivery does is done when the next file is through.
        session_.drop(u"b.pdf"_s, isDocument ? stripedPdf(2) : QByteArray("no document either"));
        QVERIFY(session_.waitForRows(2, u"done"_s));
        letTimePass(1000);
        checkDoneButNotDelivered(lunchName);
        QVERIFY(QDir(pictures).isEmpty());
        QFile::setPermissions(pictures, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

private:
    QString error(const QString &fileName) const { return session_.row(fileName).value(u"error").toString(); }

    void checkDoneButNotDelivered(const QString &fileName) {
        const QJsonObject row = session_.row(fileName);
        QCOMPARE(row.value(u"status").toString(), u"done"_s);
        QCOMPARE(row.value(u"filePath").toString(), session_.path(fileName));
        QCOMPARE(row.value(u"addedToPhotos"), QJsonValue(false));
        QVERIFY(!row.contains(u"error"));
    }

    UserSession session_;
};

int run_failures_test(int argc, char **argv) {
    return runTest<QGuiApplication, RunFailuresTest>(argc, argv);
}
#include "run_failures_test.moc"
