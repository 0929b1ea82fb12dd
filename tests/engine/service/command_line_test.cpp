#include "engine/service/command_line.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class CommandLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesTheDefaultPort() { QVERIFY(requestedPlace({}) == ListeningPlace{.port = 47111}); }

    void takesThePortGiven() {
        QVERIFY(requestedPlace({u"--port"_s, u"8080"_s}) == ListeningPlace{.port = 8080});
        QVERIFY(requestedPlace({u"--port"_s, u"0"_s}) == ListeningPlace{.port = 0});
    }

    void takesTheSocketGiven() {
        QVERIFY(requestedPlace({u"--socket"_s, u"17"_s}) == ListeningPlace{.socket = 17});
    }

    void refusesEverythingElse_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("unknown") << QStringList{u"--verbose"_s};
        QTest::newRow("bare word") << QStringList{u"8080"_s};
        QTest::newRow("no number") << QStringList{u"--port"_s};
        QTest::newRow("no number of a socket") << QStringList{u"--socket"_s};
        QTest::newRow("port and socket") << QStringList{u"--port"_s, u"1"_s, u"--socket"_s, u"3"_s};
        QTest::newRow("a word") << QStringList{u"--port"_s, u"http"_s};
        QTest::newRow("too large") << QStringList{u"--port"_s, u"65536"_s};
        QTest::newRow("negative") << QStringList{u"--port"_s, u"-1"_s};
        QTest::newRow("too much") << QStringList{u"--port"_s, u"8080"_s, u"extra"_s};
    }
    void refusesEverythingElse() {
        QFETCH(QStringList, arguments);
        const std::expected<ListeningPlace, QString> place = requestedPlace(arguments);
        QVERIFY(!place);
        QVERIFY(!place.error().isEmpty());
        QVERIFY(!place.error().contains(u'\n'));
    }
};

int command_line_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<CommandLineTest>(argc, argv);
}
#include "command_line_test.moc"
