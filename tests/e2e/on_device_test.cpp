#include "support/process_status.h"
#include "support/test_program.h"
#include "user_session.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <csignal>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// The program with its own engine: nothing to start, nothing to choose a port for.
class OnDeviceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session_.renew();
        session_.setPreference("geminiEndpoint", "on-device");
    }
    void cleanup() { session_.program.kill(); }

    void receiptIsReadByTheEngineThatTheProgramStarts() {
        QVERIFY(session_.start());
        QVERIFY(engines().isEmpty());
        session_.drop(u"IMG_2041.jpg"_s, sample());
        QVERIFY(session_.waitForRows(1, u"done"_s));
        const QJsonObject row = session_.rows().first();
        QCOMPARE(row.value(u"date").toString(), u"2024-05-13"_s);
        QCOMPARE(row.value(u"amount").toDouble(), 42.01);
        QCOMPARE(row.value(u"currency").toString(), u"USD"_s);
        QVERIFY(session_.server.requests().isEmpty());
        const QList<qint64> started = engines();
        QCOMPARE(started.size(), 1);
        QVERIFY(session_.end());
        QVERIFY(waitUntil([&] { return !isRunning(started.first()); }));
    }

    void engineEndsAlsoWhenTheProgramIsKilled() {
        QVERIFY(session_.start());
        session_.drop(u"IMG_2041.jpg"_s, sample());
        QVERIFY(session_.waitFor([this] { return !engines().isEmpty(); }));
        const qint64 engine = engines().first();
        session_.program.kill();
        QVERIFY(waitUntil([&] { return !isRunning(engine); }));
    }

    void scanWhoseEngineCrashesFailsAndCanBeRetried() {
        QVERIFY(session_.start());
        session_.drop(u"IMG_2041.jpg"_s, sample());
        QVERIFY(session_.waitFor([this] { return !engines().isEmpty(); }));
        ::kill(static_cast<pid_t>(engines().first()), SIGKILL);
        QVERIFY(session_.waitForRows(1, u"error"_s));
        QVERIFY(!session_.rows().first().value(u"error").toString().isEmpty());
        session_.drop(u"IMG_2042.jpg"_s, sample()); // with an engine started anew
        QVERIFY(session_.waitFor(
            [this] {
                const QList<QJsonObject> rows = session_.rows();
                return std::any_of(rows.begin(), rows.end(),
                                   [](const QJsonObject &row) { return row.value(u"status") == u"done"_s; });
            },
            patience));
    }

    void receiptIsReadWithoutAKey() {
        PrivateSession::clearKey();
        QVERIFY(session_.start());
        session_.drop(u"IMG_2041.jpg"_s, sample());
        QVERIFY(session_.waitForRows(1, u"done"_s));
    }

    void storedKeyIsNotSentToTheEngine() {
        const QString folder = session_.home.path(u"program"_s);
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QFile::copy(QString::fromUtf8(FENNICK_BIN_DIR "/fennick"), folder + u"/fennick"_s));
        QVERIFY(QFile::copy(QString::fromUtf8(RECORDING_ENGINE), folder + u"/fennick-engine"_s));
        FennickProgram program(folder + u"/fennick"_s);
        program.start();
        QVERIFY(waitUntil([&] { return program.isWatching(session_.folder()); }));
        session_.drop(u"IMG_2041.jpg"_s, sample());
        QVERIFY(waitUntil([this] {
            const QList<QJsonObject> rows = session_.rows();
            return rows.size() == 1 && rows.first().value(u"error") == u"Gemini API error: 500"_s;
        }));
        const QByteArray sent = readFile(folder + u"/requests"_s);
        QVERIFY2(sent.startsWith("POST /v1beta/models/gemini-2.5-flash:generateContent?key=on-device HTTP"),
                 sent.left(200).constData());
        QVERIFY(!sent.contains(UserSession::key));
    }

private:
    static QByteArray sample() {
        return readFile(QString::fromUtf8(FENNICK_SOURCE_DIR "/samples/receipts/IMG_2041.jpg"));
    }

    // Those of this test's program: others may run beside it.
    QList<qint64> engines() const { return childrenNamed("fennick-engine", session_.program.processId()); }

    UserSession session_;
};

int on_device_test(int argc, char **argv) {
    return runTest<QCoreApplication, OnDeviceTest>(argc, argv);
}
#include "on_device_test.moc"
