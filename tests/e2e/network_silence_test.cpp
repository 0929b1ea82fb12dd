#include "network_server.h"
#include "support/test_program.h"
#include "tls_certificates.h"
#include "user_session.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

using namespace fennick::test;
using namespace Qt::StringLiterals;
using Moment = NetworkFault::Moment;

// Servers that fall silent with the connection open, each at another moment, all within the same minute.
class NetworkSilenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySilenceEndsAfterAMinute() {
        const QTemporaryDir folder;
        const TlsCertificates certificates(folder.path());
        trustOnly(certificates.trustedFolder());
        NetworkServer server(certificates.good());
        UserSession session;
        session.renew();
        session.setPreference("geminiEndpoint", server.address());
        QVERIFY(session.start());
        QElapsedTimer elapsed;
        elapsed.start();
        int count = 0;
        for (const Moment moment : {Moment::inHandshake, Moment::afterRequestHead, Moment::inRequestBody,
                                    Moment::afterAnswerHead, Moment::inAnswerBody}) {
            NetworkFault fault = networkAnswer("200 OK", {}, geminiAnswer(lunchAnswer));
            fault.silence = moment;
            fault.body.chop(moment == Moment::inAnswerBody ? 10 : 0);
            server.setFault(fault);
            session.drop(u"%1.pdf"_s.arg(++count), QByteArray(3 * 1024 * 1024, 'r'));
            QVERIFY(session.waitFor([&] { return server.connections() == count; }));
        }
        QVERIFY(session.waitForRows(count, u"processing"_s));
        QVERIFY(session.waitForRows(count, u"error"_s));
        QVERIFY(elapsed.elapsed() >= 59000);
        for (const QJsonObject &row : session.rows()) {
            QCOMPARE(row.value(u"error").toString(), u"The request timed out."_s);
        }
        server.setFault(networkAnswer("200 OK", {}, geminiAnswer(lunchAnswer)));
        session.drop(u"next.pdf"_s);
        QVERIFY(session.waitFor([&] { return session.row(lunchName).value(u"status") == u"done"_s; }));
        QVERIFY(session.end());
    }
};

int network_silence_test(int argc, char **argv) {
    return runTest<QCoreApplication, NetworkSilenceTest>(argc, argv);
}
#include "network_silence_test.moc"
