#include "desktop_test_case.h"
#include "network_server.h"
#include "support/conditions.h"
#include "support/process_status.h"
#include "support/test_program.h"
#include "tls_certificates.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

using namespace fennick::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Moment = NetworkFault::Moment;

Q_DECLARE_METATYPE(NetworkFault)

namespace {

constexpr int retryButton = 46;      // pixels from the left edge of a row's buttons
constexpr int buttonsFromStatus = 7; // columns
constexpr qint64 megabyte = 1024 * 1024;

NetworkFault goodAnswer() {
    return networkAnswer("200 OK", {}, geminiAnswer(lunchAnswer));
}

NetworkFault resetAt(Moment moment) {
    NetworkFault fault = goodAnswer();
    fault.reset = moment;
    if (moment == Moment::inAnswerBody) {
        fault.body.truncate(fault.body.size() / 2);
    }
    return fault;
}

NetworkFault withLength(qsizetype length) {
    NetworkFault fault = goodAnswer();
    fault.head.replace("Length: " + QByteArray::number(fault.body.size()),
                       "Length: " + QByteArray::number(length));
    return fault;
}

QByteArray gzipped(const QByteArray &bytes) {
    QProcess gzip;
    gzip.start(u"gzip"_s, {u"-1"_s, u"-c"_s});
    gzip.write(bytes);
    gzip.closeWriteChannel();
    gzip.waitForFinished(patience);
    return gzip.readAllStandardOutput();
}

NetworkFault gzipAnswer(const QByteArray &body) {
    return networkAnswer("200 OK", "Content-Encoding: gzip\r\n", body);
}

// Text that gzip does not get below a fortieth of its size.
QByteArray hardlyCompressible(qint64 size) {
    QByteArray text;
    quint32 state = 1;
    while (text.size() < size) {
        state = state * 1664525 + 1013904223;
        text += QByteArray(12, 'x') + QByteArray::number(state, 16);
    }
    return text;
}

NetworkFault gigabyte(const QByteArray &status) {
    NetworkFault fault = networkAnswer(status, {}, QByteArray(megabyte, ' '));
    fault.repetitions = 1024;
    fault.head.replace("Length: 1048576", "Length: 1073741824");
    return fault;
}

} // namespace

// What a network and the servers on it can do to a request over TLS. Whatever it is, the receipt's row says
// so and can be scanned again, and nobody but the service gets to see the key.
class NetworkFaultsTest : public DesktopTestCase {
    Q_OBJECT

protected:
    void prepare() override {
        trustOnly(certificates_.trustedFolder());
        good_ = certificates_.good();
        server_ = std::make_unique<NetworkServer>(good_);
        session().renew();
        session().setPreference("geminiEndpoint", server_->address());
        QVERIFY(session().start());
    }

    void putAway() override { server_.reset(); }

private Q_SLOTS:
    void init() {
        server_->setTls(good_);
        server_->setFault(goodAnswer());
        server_->forget();
    }

    void goodAnswerIsUnderstood_data() {
        QTest::addColumn<NetworkFault>("answer");
        QTest::newRow("plain") << goodAnswer();
        QTest::newRow("gzip") << gzipAnswer(gzipped(geminiAnswer(lunchAnswer)));
        NetworkFault slow = goodAnswer();
        slow.interval = 5ms;
        QTest::newRow("byte by byte") << slow;
        QTest::newRow("length that is none") << withLength(-5); // ends with the connection
    }
    void goodAnswerIsUnderstood() {
        QFETCH(NetworkFault, answer);
        server_->setFault(answer);
        session().drop(newFile());
        QVERIFY(waitForDone(++done_));
        QVERIFY(server_->received().contains("?key=" + UserSession::key));
    }

    void faultEndsInARowThatCanBeRetried_data() {
        QTest::addColumn<NetworkFault>("fault");
        QTest::addColumn<QString>("error");
        const QString closed = u"Connection closed"_s;
        const QString damaged = u"Decompression failed"_s;
        const QString noCandidates = u"Gemini API returned no candidates in response"_s;
        QTest::newRow("reset at accept") << resetAt(Moment::atAccept) << closed;
        QTest::newRow("reset in the handshake") << resetAt(Moment::inHandshake) << closed;
        QTest::newRow("reset after the request's head") << resetAt(Moment::afterRequestHead) << closed;
        QTest::newRow("reset in the request's body") << resetAt(Moment::inRequestBody) << closed;
        QTest::newRow("reset after the answer's head") << resetAt(Moment::afterAnswerHead) << closed;
        QTest::newRow("reset in the answer's body") << resetAt(Moment::inAnswerBody) << closed;
        NetworkFault slow = resetAt(Moment::inAnswerBody);
        slow.body.truncate(3);
        slow.interval = 1s;
        QTest::newRow("a byte a second, then reset") << slow << closed;
        QTest::newRow("longer than sent") << withLength(100000) << closed;
        QTest::newRow("shorter than sent") << withLength(20) << noCandidates;
        NetworkFault broken = gzipAnswer(gzipped(geminiAnswer(lunchAnswer)));
        broken.body[broken.body.size() / 2] = static_cast<char>(~broken.body[broken.body.size() / 2]);
        QTest::newRow("broken gzip") << broken << damaged;
        QTest::newRow("cut gzip") << gzipAnswer(gzipped(geminiAnswer(lunchAnswer)).chopped(30)) << closed;
        QTest::newRow("no gzip at all") << gzipAnswer(geminiAnswer(lunchAnswer)) << damaged;
        QTest::newRow("429") << networkAnswer("429 Slow", {}, "slow down")
                             << u"Gemini API error: 429 — slow down"_s;
        QTest::newRow("503 to be retried later")
            << networkAnswer("503 No", "Retry-After: 1\r\n", "busy") << u"Gemini API error: 503 — busy"_s;
    }
    void faultEndsInARowThatCanBeRetried() {
        QFETCH(NetworkFault, fault);
        QFETCH(QString, error);
        server_->setFault(fault);
        failAndRetry(error);
    }

    void refusedConnectionCanBeRetried() {
        const quint16 port = server_->serverPort();
        server_->close();
        const QString file = newFile();
        session().drop(file);
        QCOMPARE(errorOf(file), u"Connection refused"_s);
        QVERIFY(server_->listen(QHostAddress::LocalHost, port));
        retry(u"Connection refused"_s);
    }

    void certificateThatIsNotTrustedGetsNoRequest_data() {
        QTest::addColumn<QSslConfiguration>("certificate");
        QTest::addColumn<QString>("error");
        QTest::newRow("self-signed")
            << certificates_.selfSigned()
            << u"SSL handshake failed: The certificate is self-signed, and untrusted"_s;
        QTest::newRow("expired") << certificates_.expired()
                                 << u"SSL handshake failed: The certificate has expired"_s;
        QTest::newRow("for another host")
            << certificates_.forAnotherHost()
            << u"SSL handshake failed: The host name did not match any of the valid hosts for this certificate"_s;
    }
    void certificateThatIsNotTrustedGetsNoRequest() {
        QFETCH(QSslConfiguration, certificate);
        QFETCH(QString, error);
        server_->setTls(certificate);
        const QString file = newFile();
        session().drop(file);
        QCOMPARE(errorOf(file), error);
        QVERIFY(server_->received().isEmpty());
        server_->setTls(good_);
        retry(error);
    }

    void hundredRedirectsAreGivenUp() {
        server_->setFault(networkAnswer("307 Elsewhere", "Location: /again?key=\r\n", {}));
        failAndRetry(u"Gemini API error: 307"_s);
        QVERIFY2(server_->requests() < 100, qPrintable(QString::number(server_->requests())));
    }

    void redirectToAnotherHostIsNotFollowed_data() {
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QByteArray>("host");
        for (const QByteArray status : {"301", "302", "303", "307", "308"}) {
            QTest::addRow("%s, another port", status.constData())
                << status << QByteArray("https://127.0.0.1:");
        }
        QTest::newRow("another name") << QByteArray("307") << QByteArray("https://localhost:");
        QTest::newRow("without a scheme") << QByteArray("307") << QByteArray("//localhost:");
    }
    void redirectToAnotherHostIsNotFollowed() {
        QFETCH(QByteArray, status);
        QFETCH(QByteArray, host);
        NetworkServer other(good_);
        other.setFault(goodAnswer());
        server_->setFault(networkAnswer(
            status + " Elsewhere",
            "Location: " + host + QByteArray::number(other.serverPort()) + "/v1beta/x\r\n", {}));
        failAndRetry(u"Gemini API error: "_s + QString::fromLatin1(status));
        QCOMPARE(other.connections(), 0);
    }

    void hugeAnswerIsCut_data() {
        QTest::addColumn<NetworkFault>("answer");
        QTest::addColumn<QString>("error");
        const QString tooLarge = u"The answer is larger than 16 MB."_s;
        QTest::newRow("a gigabyte") << gigabyte("200 OK") << tooLarge;
        QTest::newRow("a gigabyte of an error")
            << gigabyte("500 No") << u"Gemini API error: 500 — "_s + QString(500, u' ');
        NetworkFault endless = gigabyte("200 OK");
        endless.head = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n";
        QTest::newRow("a gigabyte of unknown length") << endless << tooLarge;
        endless.head.chop(2); // the body becomes headers
        endless.body = ("X-Filler: " + QByteArray(1000, 'x') + "\r\n").repeated(1000);
        QTest::newRow("a gigabyte of headers") << endless << u"Connection closed"_s;
        QTest::newRow("a bomb of blanks") << gzipAnswer(gzipped(QByteArray(64 * megabyte, ' '))) << tooLarge;
        QTest::newRow("a bomb that packs badly")
            << gzipAnswer(gzipped(hardlyCompressible(48 * megabyte))) << tooLarge;
    }
    void hugeAnswerIsCut() {
        QFETCH(NetworkFault, answer);
        QFETCH(QString, error);
        server_->setFault(answer);
        const QString file = newFile();
        session().drop(file);
        const QString told = errorOf(file);
        qInfo("%lld MB sent, %s", server_->sentBytes() / megabyte, qPrintable(told));
        QCOMPARE(told, error);
        QVERIFY(server_->sentBytes() < 1000 * megabyte);
        server_->setFault(goodAnswer());
        retry(error);
    }

    void stormOfRefusalsIsWeathered_data() {
        QTest::addColumn<NetworkFault>("refusal");
        QTest::newRow("429") << networkAnswer("429 Slow", {}, {});
        QTest::newRow("429 to be retried later") << networkAnswer("429 Slow", "Retry-After: 3600\r\n", {});
        QTest::newRow("503") << networkAnswer("503 No", {}, {});
        QTest::newRow("503 to be retried at once") << networkAnswer("503 No", "Retry-After: 0\r\n", {});
    }
    void stormOfRefusalsIsWeathered() {
        QFETCH(NetworkFault, refusal);
        constexpr int count = 6; // rows that stay within the window
        server_->setFault(refusal);
        QStringList files;
        for (int number = 0; number < count; ++number) {
            files.append(newFile());
            session().drop(files.last());
        }
        const QString error = u"Gemini API error: "_s + QString::fromLatin1(refusal.head.mid(9, 3));
        for (const QString &file : files) {
            QCOMPARE(errorOf(file), error);
        }
        letTimePass(1500); // nothing is tried again by itself
        QCOMPARE(server_->requests(), count);
        server_->setFault(goodAnswer());
        for (int number = 0; number < count; ++number) {
            retry(error);
        }
        QCOMPARE(server_->requests(), 2 * count);
    }

    void slowAnswerKeepsNobodyElseWaiting() {
        NetworkFault slow = goodAnswer();
        slow.interval = 1s;
        server_->setFault(slow);
        const QString file = newFile();
        session().drop(file);
        QVERIFY(session().waitFor([this] { return server_->requests() == 1; }));
        server_->setFault(goodAnswer());
        session().drop(newFile());
        QVERIFY(waitForDone(++done_));
        QCOMPARE(session().row(file).value(u"status").toString(), u"processing"_s);
        QVERIFY(session().program.terminate());
        QVERIFY(session().start());
        QVERIFY(!errorOf(file).isEmpty()); // interrupted
        user().waitForWindow(mainTitle);
        retry(errorOf(file));
    }

    void keyStandsInNoFile() {
        QDirIterator files(session().home.path(QString()), QDir::Files | QDir::Hidden,
                           QDirIterator::Subdirectories);
        int count = 0;
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly)) { // a receipt may be being renamed
                QVERIFY2(!file.readAll().contains(UserSession::key), qPrintable(file.fileName()));
                ++count;
            }
        }
        QVERIFY(count > done_);
    }

    void keyStandsInNoOutput() { QVERIFY(session().end()); }

private:
    // A name that no file had yet.
    QString newFile() { return u"scan %1.pdf"_s.arg(++files_); }

    bool waitForDone(qsizetype count) const {
        return session().waitFor([&] {
            const QList<QJsonObject> rows = session().rows();
            return std::count_if(rows.begin(), rows.end(), [](const QJsonObject &row) {
                       return row.value(u"status").toString() == u"done"_s;
                   }) == count;
        });
    }

    // What the row of the file says once it has failed; empty if it does not.
    QString errorOf(const QString &file) const {
        session().waitFor([&] { return session().row(file).value(u"status").toString() == u"error"_s; },
                          patience);
        return session().row(file).value(u"error").toString();
    }

    void failAndRetry(const QString &error) {
        const QString file = newFile();
        session().drop(file, QByteArray(3 * megabyte, 'r')); // comes in several pieces
        QCOMPARE(errorOf(file), error);
        QVERIFY(QFileInfo::exists(session().path(file)));
        server_->setFault(goodAnswer());
        retry(error);
    }

    // Presses the button of the newest row that shows the error.
    void retry(const QString &error) {
        user().clickCell(mainTitle, error, buttonsFromStatus, retryButton);
        QVERIFY(waitForDone(++done_));
    }

    QTemporaryDir folder_;
    TlsCertificates certificates_{folder_.path()};
    QSslConfiguration good_;
    std::unique_ptr<NetworkServer> server_;
    int files_ = 0;
    int done_ = 0;
};

int network_faults_test(int argc, char **argv) {
    return runTest<QCoreApplication, NetworkFaultsTest>(argc, argv);
}
#include "network_faults_test.moc"
