#include "extraction/gemini_client.h"
#include "extraction/on_device_engine.h"
#include "platform/child_process.h"
#include "platform/listening_socket.h"
#include "support/conditions.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTcpSocket>
#include <QThread>
#include <QUrl>

#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString program = QString::fromUtf8(FENNICK_BIN_DIR "/fennick-engine");

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

// That a connection is taken does not count: the socket is Fennick's and listens without an engine as well.
bool answers(const QString &address, int milliseconds = patience) {
    const QUrl url(address);
    QTcpSocket socket;
    socket.connectToHost(url.host(), static_cast<quint16>(url.port()));
    socket.write("GET / HTTP/1.1\r\n\r\n");
    return socket.waitForConnected(milliseconds) && socket.waitForReadyRead(milliseconds);
}

// Whether a program that sets great store by the port of this address can have it.
bool canBeTaken(const QString &address) {
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    const int yes = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEPORT, &yes, sizeof yes);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    place.sin_port = htons(static_cast<quint16>(QUrl(address).port()));
    const bool isTaken =
        ::bind(socket, reinterpret_cast<sockaddr *>(&place), sizeof place) == 0 && ::listen(socket, 1) == 0;
    ::close(socket);
    return isTaken;
}

struct Scan {
    bool isOver = false;
    QString failure;
};

QCoro::Task<> scan(OnDeviceEngine *engine, QString path, std::shared_ptr<Scan> scan) {
    const auto use = co_await engine->use();
    const auto result = co_await GeminiClient::scan(path, OnDeviceEngine::key, u"m"_s, engine->address(),
                                                    engine->engineEnd());
    scan->failure = result ? QString() : errorDescription(result.error());
    scan->isOver = true;
}

QString script(const TemporaryHome &home, const QByteArray &lines) {
    const QString path = home.path(u"engine"_s);
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

    void engineEndsWhenItsStandardInputCloses() {
        const auto socket = ListeningSocket::open();
        QVERIFY(socket);
        QProcess process;
        endWithThisProgram(process, {}, (*socket)->descriptor());
        process.start(program, {u"--socket"_s, QString::number((*socket)->descriptor())});
        QVERIFY(process.waitForReadyRead(patience));
        process.closeWriteChannel();
        QVERIFY(process.waitForFinished(patience));
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
        QVERIFY(!answers(address, 300));
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

    void portCannotBeTakenWhenTheEngineHasEnded() {
        OnDeviceEngine engine(program);
        const auto attempt = tryToUse(engine);
        QVERIFY(succeeds(attempt));
        const QString address = engine.address();
        QVERIFY(!canBeTaken(address));
        QCOMPARE(::kill(static_cast<pid_t>(engine.processId()), SIGKILL), 0);
        QVERIFY(waitUntil([&engine] { return !engine.isRunning(); }));
        QVERIFY(!canBeTaken(address));
        const auto next = tryToUse(engine);
        QVERIFY(succeeds(next));
        QCOMPARE(engine.address(), address);
        QVERIFY(answers(address));
    }

    void openRequestsFailWhenTheEngineEnds() {
        const TemporaryHome home;
        const QString path = home.path(u"receipt.pdf"_s);
        writeFile(path, "a receipt");
        OnDeviceEngine engine(script(home, "echo 'Listening on it'; exec sleep 1000"));
        const auto attempt = std::make_shared<Scan>();
        scan(&engine, path, attempt);
        QVERIFY(waitUntil([&engine] { return engine.isRunning(); }));
        letTimePass(300); // the request is under way, and nobody answers it
        QVERIFY(!attempt->isOver);
        QCOMPARE(::kill(static_cast<pid_t>(engine.processId()), SIGKILL), 0);
        QVERIFY(waitUntil([&attempt] { return attempt->isOver; }));
        QCOMPARE(attempt->failure, u"The service has ended unexpectedly."_s);
    }

    void engineThatDoesNotEndIsKilled() {
        const TemporaryHome home;
        OnDeviceEngine engine(
            script(home, "trap '' TERM; echo 'Listening on it'; while true; do sleep 0.1; done"),
            std::chrono::milliseconds(0));
        const auto attempt = tryToUse(engine);
        QVERIFY(succeeds(attempt));
        const auto process = static_cast<pid_t>(engine.processId());
        attempt->use.reset();
        QVERIFY(waitUntil([process] { return ::kill(process, 0) != 0; }));
        QVERIFY(succeeds(tryToUse(engine)));
    }

    void enginesOwnChildrenDoNotGetItsSockets() {
        OnDeviceEngine engine(program);
        const auto attempt = tryToUse(engine);
        QVERIFY(succeeds(attempt));
        const QString process = u"/proc/%1/"_s.arg(engine.processId());
        const QStringList files =
            QDir(process + u"fd"_s).entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
        int sockets = 0;
        for (const QString &file : files) {
            if (!QFile::symLinkTarget(process + u"fd/"_s + file).contains(u"socket:")) {
                continue;
            }
            ++sockets;
            const QByteArray about = readFile(process + u"fdinfo/"_s + file);
            const qsizetype flags = about.indexOf("flags:\t") + 7;
            const int value = about.mid(flags, about.indexOf('\n', flags) - flags).toInt(nullptr, 8);
            QVERIFY2(value & O_CLOEXEC, about.constData());
        }
        QVERIFY(sockets >= 1);
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
        QVERIFY(!answers(address, 300));
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
            << QByteArray("echo 'no language data' >&2; exit 1") << u"no language data"_s;
        QTest::newRow("it says nothing") << QByteArray("exit 1") << u"it has ended unexpectedly"_s;
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
        OnDeviceEngine engine(u"/nowhere/fennick-engine"_s);
        const auto attempt = tryToUse(engine);
        QVERIFY(attempt->isOver);
        QVERIFY(attempt->use == nullptr);
        QCOMPARE(engine.failure(), u"/nowhere/fennick-engine is missing"_s);
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
