#include "extraction/on_device_engine.h"
#include "support/conditions.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTcpSocket>
#include <QThread>
#include <QUrl>

#include <csignal>

using namespace fennick;
using namespace fennick::test;

namespace {

const QString program = QStringLiteral(FENNICK_BIN_DIR "/fennick-engine");

struct Attempt {
    bool isOver = false;
    OnDeviceEngine::Use use;
};

QCoro::Task<> await(OnDeviceEngine *engine, std::shared_ptr<Attempt> attempt) {
    attempt->use = co_await engine->use();
    attempt->isOver = true;
}

std::shared_ptr<Attempt> tryToUse(OnDeviceEngine &engine) {
    auto attempt = std::make_shared<Attempt>();
    await(&engine, attempt);
    return attempt;
}

bool succeeds(const std::shared_ptr<Attempt> &attempt) {
    return waitUntil([&attempt] { return attempt->isOver; }) && attempt->use != nullptr;
}

bool answers(const QString &address) {
    const QUrl url(address);
    QTcpSocket socket;
    socket.connectToHost(url.host(), static_cast<quint16>(url.port()));
    return socket.waitForConnected(patience);
}

QString script(const TemporaryHome &home, const QByteArray &lines) {
    const QString path = home.path(QStringLiteral("engine"));
    writeFile(path, "#!/bin/sh\n" + lines);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

} // namespace

// The engine as the program starts, keeps and ends it.
class OnDeviceEngineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void engineIsStartedWhenItIsNeededAndNotBefore() {
        OnDeviceEngine engine(program);
        QVERIFY(!engine.isRunning());
        const auto attempt = tryToUse(engine);
        QVERIFY(succeeds(attempt));
        QVERIFY(engine.address().startsWith(u"http://127.0.0.1:"));
        QVERIFY(answers(engine.address()));
    }

    void usesAtOneTimeShareOneEngine() {
        OnDeviceEngine engine(program);
        const auto first = tryToUse(engine);
        QVERIFY(succeeds(first));
        const qint64 process = engine.processId();
        first->use.reset();
        const auto second = tryToUse(engine);
        QVERIFY(succeeds(second));
        QCOMPARE(engine.processId(), process);
    }

    void idleEngineIsEndedAndStartedAnew() {
        OnDeviceEngine engine(program, std::chrono::milliseconds(50));
        auto attempt = tryToUse(engine);
        QVERIFY(succeeds(attempt));
        const QString address = engine.address();
        letTimePass(300); // in use: it stays
        QVERIFY(engine.isRunning());
        attempt->use.reset();
        QVERIFY(waitUntil([&engine] { return !engine.isRunning(); }));
        QVERIFY(waitUntil([&address] { return !answers(address); }));
        attempt = tryToUse(engine);
        QVERIFY(succeeds(attempt));
        QVERIFY(answers(engine.address()));
    }

    void engineThatIsEndingIsAwaitedAndStartedAnew() {
        OnDeviceEngine engine(program, std::chrono::milliseconds(0));
        for (int round = 0; round < 5; ++round) {
            const auto attempt = tryToUse(engine);
            QVERIFY(succeeds(attempt));
            QVERIFY(answers(engine.address()));
            attempt->use.reset();
            QCoreApplication::processEvents(); // the idle time is over
        }
    }

    void crashedEngineIsStartedAnew() {
        OnDeviceEngine engine(program);
        auto attempt = tryToUse(engine);
        QVERIFY(succeeds(attempt));
        const qint64 process = engine.processId();
        QCOMPARE(::kill(static_cast<pid_t>(process), SIGKILL), 0);
        QVERIFY(waitUntil([&engine] { return !engine.isRunning(); }));
        attempt = tryToUse(engine);
        QVERIFY(succeeds(attempt));
        QVERIFY(engine.processId() != process);
        QVERIFY(answers(engine.address()));
    }

    void engineEndsWithItsOwner() {
        QString address;
        {
            OnDeviceEngine engine(program);
            const auto attempt = tryToUse(engine);
            QVERIFY(succeeds(attempt));
            address = engine.address();
            attempt->use.reset();
        }
        QVERIFY(!answers(address));
    }

    void scansBeyondTheProcessorsWaitForTheirTurn() {
        OnDeviceEngine engine(program);
        const int most = std::max(1, QThread::idealThreadCount());
        QList<std::shared_ptr<Attempt>> attempts;
        for (int count = 0; count < most + 3; ++count) {
            attempts.append(tryToUse(engine));
        }
        const auto served = [&attempts] {
            return std::count_if(attempts.begin(), attempts.end(),
                                 [](const auto &attempt) { return attempt->isOver; });
        };
        QVERIFY(waitUntil([&] { return served() == most; }));
        letTimePass(100); // no other gets its turn
        QCOMPARE(served(), most);
        for (int count = 0; count < 3; ++count) {
            const auto done = std::find_if(attempts.begin(), attempts.end(),
                                           [](const auto &attempt) { return attempt->use != nullptr; });
            (*done)->use.reset();
            QVERIFY(waitUntil([&] { return served() == most + count + 1; }));
        }
    }

    void reasonIsToldWhenItCannotBeStarted_data() {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QString>("reason");
        QTest::newRow("it complains")
            << QByteArray("echo 'no language data' >&2; exit 1") << QStringLiteral("no language data");
        QTest::newRow("it says nothing")
            << QByteArray("exit 1") << QStringLiteral("it has ended unexpectedly");
    }
    void reasonIsToldWhenItCannotBeStarted() {
        QFETCH(QByteArray, lines);
        QFETCH(QString, reason);
        const TemporaryHome home;
        OnDeviceEngine engine(script(home, lines));
        const auto attempt = tryToUse(engine);
        QVERIFY(waitUntil([&attempt] { return attempt->isOver; }));
        QVERIFY(attempt->use == nullptr);
        QCOMPARE(engine.failure(), reason);
    }

    void missingEngineIsToldByItsPath() {
        OnDeviceEngine engine(QStringLiteral("/nowhere/fennick-engine"));
        const auto attempt = tryToUse(engine);
        QVERIFY(attempt->isOver);
        QVERIFY(attempt->use == nullptr);
        QCOMPARE(engine.failure(), QStringLiteral("/nowhere/fennick-engine is missing"));
    }

    void engineThatCouldNotBeStartedIsTriedAgain() {
        const TemporaryHome home;
        OnDeviceEngine engine(script(home, "exit 1"));
        const auto failed = tryToUse(engine);
        QVERIFY(waitUntil([&failed] { return failed->isOver; }));
        script(home, "exec '" + program.toUtf8() + "' \"$@\"");
        const auto attempt = tryToUse(engine);
        QVERIFY(succeeds(attempt));
    }
};

int on_device_engine_test(int argc, char **argv) {
    return runTest<QCoreApplication, OnDeviceEngineTest>(argc, argv);
}
#include "on_device_engine_test.moc"
