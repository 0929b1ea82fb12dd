#include "support/test_program.h"
#include "user_session.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <csignal>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

// The engines that run with the program's file, as the system lists them.
QList<pid_t> engines() {
    QList<pid_t> found;
    const QStringList processes = QDir(u"/proc"_s).entryList(QDir::Dirs);
    for (const QString &process : processes) {
        const QString file = QFile::symLinkTarget(u"/proc/"_s + process + u"/exe"_s);
        if (file == QStringLiteral(FENNICK_BIN_DIR "/fennick-engine")) {
            found.append(process.toInt());
        }
    }
    return found;
}

} // namespace

// The program with its own engine: nothing to start, nothing to choose a port for.
class OnDeviceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        session_.renew();
        session_.setPreference("geminiEndpoint", "on-device");
        others_ = engines();
    }
    void cleanup() { session_.program.kill(); }

    void receiptIsReadByTheEngineThatTheProgramStarts() {
        QVERIFY(session_.start());
        QVERIFY(own().isEmpty());
        session_.drop(u"IMG_2041.jpg"_s, sample());
        QVERIFY(session_.waitForRows(1, u"done"_s));
        const QJsonObject row = session_.rows().first();
        QCOMPARE(row.value(u"date").toString(), u"2024-05-13"_s);
        QCOMPARE(row.value(u"amount").toDouble(), 42.01);
        QCOMPARE(row.value(u"currency").toString(), u"USD"_s);
        QVERIFY(session_.server.requests().isEmpty());
        QCOMPARE(own().size(), 1);
        QVERIFY(session_.end());
        QVERIFY(waitUntil([this] { return own().isEmpty(); }));
    }

    void engineEndsAlsoWhenTheProgramIsKilled() {
        QVERIFY(session_.start());
        session_.drop(u"IMG_2041.jpg"_s, sample());
        QVERIFY(session_.waitFor([this] { return !own().isEmpty(); }));
        session_.program.kill();
        QVERIFY(waitUntil([this] { return own().isEmpty(); }));
    }

    void scanWhoseEngineCrashesFailsAndCanBeRetried() {
        QVERIFY(session_.start());
        session_.drop(u"IMG_2041.jpg"_s, sample());
        QVERIFY(session_.waitFor([this] { return !own().isEmpty(); }));
        ::kill(own().first(), SIGKILL);
        QVERIFY(session_.waitForRows(1, u"error"_s));
        QVERIFY(!session_.rows().first().value(u"error").toString().isEmpty());
        session_.drop(u"IMG_2042.jpg"_s, sample()); // with an engine started anew
        QVERIFY(session_.waitFor(
            [this] {
                const QList<QJsonObject> rows = session_.rows();
                return std::any_of(rows.begin(), rows.end(),
                                   [](const QJsonObject &row) { return row.value(u"status") == u"done"_s; });
            },
            60000));
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
        QVERIFY(QFile::copy(QStringLiteral(FENNICK_BIN_DIR "/fennick"), folder + u"/fennick"_s));
        QVERIFY(QFile::copy(QStringLiteral(RECORDING_ENGINE), folder + u"/fennick-engine"_s));
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
        return readFile(QStringLiteral(FENNICK_SOURCE_DIR "/samples/receipts/IMG_2041.jpg"));
    }

    QList<pid_t> own() const {
        QList<pid_t> own = engines();
        own.removeIf([this](pid_t process) { return others_.contains(process); });
        return own;
    }

    UserSession session_;
    QList<pid_t> others_; // another test's
};

int on_device_test(int argc, char **argv) {
    return runTest<QCoreApplication, OnDeviceTest>(argc, argv);
}
#include "on_device_test.moc"
