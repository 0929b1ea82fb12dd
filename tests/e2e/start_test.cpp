#include "support/halted_secret_store.h"
#include "support/test_program.h"
#include "user_session.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QProcess>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <csignal>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

// A D-Bus session that knows no services: nothing in it can start a secret store.
class BareBus {
public:
    explicit BareBus(const TemporaryHome &home) {
        const QString configuration = home.path(u"bare-bus.conf"_s);
        writeFile(configuration,
                  "<busconfig><type>session</type><listen>unix:tmpdir=" + home.path(u"tmp"_s).toUtf8() +
                      "</listen><policy context=\"default\"><allow send_destination=\"*\"/>"
                      "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>");
        process_.start(u"dbus-daemon"_s,
                       {u"--config-file="_s + configuration, u"--nofork"_s, u"--print-address=1"_s});
        process_.waitForReadyRead(patience);
        address_ = QString::fromUtf8(process_.readLine().trimmed());
    }
    ~BareBus() {
        process_.kill();
        process_.waitForFinished(patience);
    }
    QString address() const { return address_; }

private:
    QProcess process_;
    QString address_;
};

} // namespace

// What the program finds when it starts, and how starts and ends get along.
class StartTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { session_.renew(); }
    void cleanup() { QVERIFY(session_.end()); }

    void secondStartEndsAndLeavesTheFirstRunning() {
        QVERIFY(session_.start());
        FennickProgram second;
        second.start();
        QVERIFY2(second.endsWithSuccess(), second.takeOutput().constData());
        QVERIFY(session_.program.isRunning());
        session_.drop(u"a.pdf"_s);
        QVERIFY(waitForFinished(1));
        QCOMPARE(session_.server.requests().size(), 1);
    }

    void helpAndVersionNeedNoDisplay_data() {
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("answer");
        QTest::newRow("help") << u"--help"_s << u"^Usage: .*--version"_s;
        QTest::newRow("version") << u"--version"_s << u"^Fennick \\d+\\.\\d+\\.\\d+\n$"_s;
    }
    void helpAndVersionNeedNoDisplay() {
        QFETCH(QString, option);
        QFETCH(QString, answer);
        QVERIFY(session_.start()); // does not hear of it
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString &name : {u"QT_QPA_PLATFORM"_s, u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s}) {
            environment.remove(name);
        }
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(QString::fromUtf8(FENNICK_BIN_DIR "/fennick"), {option});
        QVERIFY(program.waitForFinished(patience));
        QCOMPARE(program.exitCode(), 0);
        const QString told = QString::fromUtf8(program.readAllStandardOutput());
        const QRegularExpression expected(answer, QRegularExpression::DotMatchesEverythingOption);
        QVERIFY2(expected.match(told).hasMatch(), qPrintable(told));
    }

    void ofManyStartsAtOnceOneStays() {
        {
            std::array<FennickProgram, 5> programs;
            for (FennickProgram &program : programs) {
                program.start();
            }
            QVERIFY(waitUntil([&] { return runningCount(programs) == 1; }));
            session_.drop(u"a.pdf"_s);
            QVERIFY(waitUntil([this] { return areFinished(1); }));
            QCOMPARE(runningCount(programs), 1);
            QCOMPARE(session_.server.requests().size(), 1);
        }
        QVERIFY(session_.start());
    }

    void nextStartAfterTheEndIsTheOneInstance() {
        QVERIFY(session_.start());
        QVERIFY(session_.program.terminate());
        QVERIFY(session_.start());
        session_.drop(u"a.pdf"_s);
        QVERIFY(waitForFinished(1));
    }

    void existingFilesAreTakenIn() {
        session_.drop(u"a.pdf"_s, "one");
        session_.drop(u"b.JPG"_s, "two");
        session_.drop(u"sub/folder/c.png"_s, "three");
        QVERIFY(session_.start());
        QVERIFY(waitForFinished(3));
        QList<QByteArray> sent = session_.sentDocuments();
        std::sort(sent.begin(), sent.end());
        QCOMPARE(sent, (QList<QByteArray>{"one", "three", "two"}));
    }

    void filesThatArriveWhileItStartsAreTakenIn() {
        session_.program.start();
        for (int number = 0; number < 40; ++number) {
            session_.drop(u"%1.pdf"_s.arg(number), QByteArray::number(number));
            letTimePass(5); // spread over the whole start
        }
        QVERIFY(waitForFinished(40));
        QCOMPARE(session_.server.requests().size(), 40);
    }

    void withoutAFolderItWaits() {
        session_.setPreference("watchFolder", "");
        session_.drop(u"a.pdf"_s);
        session_.program.start();
        letTimePass(2000);
        QVERIFY(session_.program.isRunning());
        QVERIFY(session_.rows().isEmpty());
        QVERIFY(session_.server.requests().isEmpty());
    }

    void missingFolderIsTakenInWhenItAppears() {
        const QString later = session_.path(u"not-yet"_s);
        session_.setPreference("watchFolder", later.toUtf8());
        session_.program.start();
        letTimePass(1000);
        QVERIFY(session_.program.isRunning());
        session_.drop(u"not-yet/a.pdf"_s);
        QVERIFY(waitForFinished(1));
        QCOMPARE(session_.rows().first().value(u"filePath").toString(), later + u'/' + lunchName);
    }

    void storedListSurvivesARestart() {
        session_.drop(u"a.pdf"_s, "a");
        session_.drop(u"b.pdf"_s, "b");
        QVERIFY(session_.start());
        QVERIFY(waitForFinished(2));
        const QByteArray list = readFile(session_.home.receiptsFile());
        QVERIFY(session_.program.terminate());
        session_.server.forgetRequests();
        QVERIFY(session_.start());
        letTimePass(1500);
        QCOMPARE(readFile(session_.home.receiptsFile()), list);
        QVERIFY(session_.server.requests().isEmpty());
        const QList<QJsonObject> before = session_.rows();
        session_.drop(u"c.pdf"_s, "c");
        QVERIFY(waitForFinished(3));
        const QList<QJsonObject> after = session_.rows();
        QVERIFY(std::all_of(before.begin(), before.end(),
                            [&after](const QJsonObject &row) { return after.contains(row); }));
        QCOMPARE(session_.sentDocuments(), QList<QByteArray>{"c"});
    }

    void damagedListStartsEmpty_data() {
        QTest::addColumn<QByteArray>("list");
        QTest::newRow("cut") << QByteArray("[\n  {\n    \"id\": \"X\", \"fileName");
        QTest::newRow("no list") << QByteArray("{}");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("bytes") << QByteArray::fromHex("00ff8041c3");
        QTest::newRow("an unknown status")
            << QByteArray(R"([{"id":"X","fileName":"a.pdf","filePath":"/a.pdf","category":"misc",)"
                          R"("summary":"","scannedAt":"2024-01-01T00:00:00Z","status":"waiting",)"
                          R"("addedToPhotos":false}])");
    }
    void damagedListStartsEmpty() {
        QFETCH(QByteArray, list);
        writeFile(session_.home.receiptsFile(), list);
        writeFile(session_.home.ignoredFile(), "[\"cut");
        QVERIFY(session_.start());
        QCOMPARE(readFile(session_.home.receiptsFile()), list);
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.waitFor([&] { return readFile(session_.home.receiptsFile()) != list; }));
        QVERIFY(waitForFinished(1));
    }

    void withoutASessionBusItWorksWithoutAKey_data() {
        QTest::addColumn<QString>("address");
        QTest::newRow("nobody there") << u"unix:path=/nonexistent/bus"_s;
        QTest::newRow("nonsense") << u"no address"_s;
        QTest::newRow("none") << QString();
    }
    void withoutASessionBusItWorksWithoutAKey() {
        QFETCH(QString, address);
        checkWorksWithoutAKey(address);
    }

    void secondProgramWithoutTheSessionLeavesTheListAlone() {
        session_.server.holdAnswers();
        QVERIFY(session_.start());
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.waitForRows(1, u"processing"_s));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nowhere"_s);
        FennickProgram second;
        second.start(environment);
        QByteArray output;
        QVERIFY(session_.waitFor([&] {
            output += second.takeOutput();
            return output.contains("Fennick is already running in another session of yours.");
        }));
        QCOMPARE(session_.rows().first().value(u"status").toString(), u"processing"_s);
        session_.server.letAnswersGo();
        QVERIFY(waitForFinished(1));
    }

    void killedProgramLeavesNoLock() {
        for (int start = 0; start < 3; ++start) {
            QVERIFY(session_.start());
            session_.program.kill();
        }
        QVERIFY(session_.start());
    }

    void leftBehindLockHoldsNobodyUp_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty, as after a power cut") << QByteArray();
        QTest::newRow("of a machine that had another name") << QByteArray("1\nfennick\nold-name\n\n\n");
        QTest::newRow("of a process whose number is in use again")
            << QByteArray::number(QCoreApplication::applicationPid()) + "\nfennick\n";
    }
    void leftBehindLockHoldsNobodyUp() {
        QFETCH(QByteArray, content);
        writeFile(session_.home.path(u"data/Fennick/lock"_s), content);
        QVERIFY(session_.start());
    }

    void withoutASecretStoreItWorksWithoutAKey() {
        const BareBus bus(session_.home);
        QVERIFY(!bus.address().isEmpty());
        checkWorksWithoutAKey(bus.address());
    }

    // As a store that waits for its user to answer a question.
    void silentSecretStoreHoldsUpNeitherWindowNorWatch() {
        const HaltedSecretStore halted;
        session_.program.start();
        QVERIFY(session_.waitFor([this] { return session_.program.isWatching(session_.folder()); }));
    }

    void slowSecretStoreIsWaitedFor() {
        {
            const HaltedSecretStore halted;
            QVERIFY(session_.start());
            session_.drop(u"a.pdf"_s);
            QVERIFY(session_.waitForRows(1, u"processing"_s));
        }
        QVERIFY(waitForFinished(1));
    }

    void silentSecretStoreDoesNotHoldUpTheEnd() {
        const HaltedSecretStore halted;
        QVERIFY(session_.start());
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.waitForRows(1, u"processing"_s));
        QVERIFY(session_.program.terminate()); // how soon is measured by bench/silent_store
        QVERIFY(session_.start());
    }

    void terminationEndsIt() {
        QVERIFY(session_.start());
        QVERIFY(session_.program.terminate());
        QVERIFY(session_.start());
    }

    void lockedSecretStoreIsNoKey() {
        // One of the last tests: the store stays locked. Nobody answers the question for its password here,
        // as on a desktop without a prompter.
        QProcess::execute(u"secret-tool"_s, {u"lock"_s});
        checkWorksWithoutAKey(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
    }

    // As a store that crashes while it is asked.
    void secretStoreThatDiesIsNoKey() {
        HaltedSecretStore halted;
        QVERIFY(session_.start());
        session_.drop(u"a.pdf"_s);
        QVERIFY(session_.waitForRows(1, u"processing"_s));
        halted.die();
        QVERIFY(session_.waitForRows(1, u"error"_s));
        QCOMPARE(session_.rows().first().value(u"error").toString(), missingKey);
    }

private:
    template <typename Programs>
    static int runningCount(const Programs &programs) {
        return static_cast<int>(std::count_if(programs.begin(), programs.end(),
                                              [](const auto &program) { return program.isRunning(); }));
    }

    // Whether the list holds `count` receipts, all finished and under their new names.
    bool areFinished(qsizetype count) const {
        const QList<QJsonObject> rows = session_.rows();
        return rows.size() == count && std::all_of(rows.begin(), rows.end(), [](const QJsonObject &row) {
                   return row.value(u"status").toString() == u"done" &&
                          row.value(u"fileName").toString().startsWith(u"2024-05-01 Lunch");
               });
    }

    bool waitForFinished(qsizetype count) const {
        return session_.waitFor([=, this] { return areFinished(count); });
    }

    void checkWorksWithoutAKey(const QString &busAddress) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DISPLAY"_s); // through which a bus might be found after all
        environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
        if (!busAddress.isEmpty()) {
            environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, busAddress);
        }
        session_.drop(u"existing.pdf"_s);
        session_.program.start(environment);
        QVERIFY(session_.waitFor([this] { return session_.program.isWatching(session_.folder()); }));
        session_.drop(u"new.jpg"_s);
        QVERIFY(session_.waitForRows(2, u"error"_s));
        for (const QString &name : {u"existing.pdf"_s, u"new.jpg"_s}) {
            QCOMPARE(session_.row(name).value(u"error").toString(), missingKey);
        }
        QVERIFY(session_.program.isRunning());
        QVERIFY(session_.server.requests().isEmpty());
    }

    UserSession session_;
};

int start_test(int argc, char **argv) {
    return runTest<QCoreApplication, StartTest>(argc, argv);
}
#include "start_test.moc"
