#include "engine/command_line.h"
#include "support/test_program.h"

using namespace fennick;
using namespace Qt::StringLiterals;

class CommandLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesTheDefaultPort() { QCOMPARE(requestedPort({}).value_or(0), 47111); }

    void takesThePortGiven() {
        QCOMPARE(requestedPort({u"--port"_s, u"8080"_s}).value_or(1), 8080);
        QCOMPARE(requestedPort({u"--port"_s, u"0"_s}).value_or(1), 0);
    }

    void refusesEverythingElse_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("unknown") << QStringList{u"--verbose"_s};
        QTest::newRow("bare word") << QStringList{u"8080"_s};
        QTest::newRow("no number") << QStringList{u"--port"_s};
        QTest::newRow("a word") << QStringList{u"--port"_s, u"http"_s};
        QTest::newRow("too large") << QStringList{u"--port"_s, u"65536"_s};
        QTest::newRow("negative") << QStringList{u"--port"_s, u"-1"_s};
        QTest::newRow("too much") << QStringList{u"--port"_s, u"8080"_s, u"extra"_s};
    }
    void refusesEverythingElse() {
        QFETCH(QStringList, arguments);
        const std::expected<quint16, QString> port = requestedPort(arguments);
        QVERIFY(!port);
        QVERIFY(!port.error().isEmpty());
        QVERIFY(!port.error().contains(u'\n'));
    }
};

int command_line_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<CommandLineTest>(argc, argv);
}
#include "command_line_test.moc"
