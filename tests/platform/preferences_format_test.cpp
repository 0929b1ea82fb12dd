#include "platform/preferences_format.h"
#include "support/test_program.h"

#include <QBuffer>
#include <QCoreApplication>

using namespace fennick;

namespace {

QSettings::SettingsMap read(const QByteArray &content) {
    QBuffer buffer;
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
    QSettings::SettingsMap map;
    readPreferences(buffer, map);
    return map;
}

QByteArray written(const QSettings::SettingsMap &map) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    writePreferences(buffer, map);
    return buffer.data();
}

QVariant readValue(const QByteArray &text) {
    return read("[General]\nkey=" + text + '\n').value(QStringLiteral("key"));
}

} // namespace

class PreferencesFormatTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlyBareTrueAndFalseAreBooleans() {
        QCOMPARE(readValue("true"), QVariant(true));
        QCOMPARE(readValue("false"), QVariant(false));
        QCOMPARE(readValue("\"true\""), QVariant(QStringLiteral("true")));
        QCOMPARE(readValue("TRUE"), QVariant(QStringLiteral("TRUE")));
        QCOMPARE(readValue("1"), QVariant(QStringLiteral("1")));
        QCOMPARE(readValue(""), QVariant(QString()));
    }

    void bareTextIsTakenAsItStands() {
        QCOMPARE(readValue("/home/a b/Receipts, 2024; x=y"),
                 QVariant(QStringLiteral("/home/a b/Receipts, 2024; x=y")));
        QCOMPARE(readValue("  /home/Müller  "), QVariant(QStringLiteral("/home/Müller")));
        QCOMPARE(readValue("http://127.0.0.1:47111"), QVariant(QStringLiteral("http://127.0.0.1:47111")));
    }

    void escapesOfQSettingsAreUnderstood() {
        QCOMPARE(readValue(R"(a\\b\"c\n\xe9z)"), QVariant(QStringLiteral("a\\b\"c\n\u00E9z")));
        QCOMPARE(readValue(R"("x, y")"), QVariant(QStringLiteral("x, y")));
    }

    void commentsBlankLinesAndOtherSectionsAreTold() {
        const auto map = read("; remark\n# remark\n\n[Window]\nwidth=9\r\n[General]\r\nmodel=m\r\n");
        QCOMPARE(map.size(), 2);
        QCOMPARE(map[QStringLiteral("Window/width")], QVariant(QStringLiteral("9")));
        QCOMPARE(map[QStringLiteral("model")], QVariant(QStringLiteral("m")));
    }

    void everyTextSurvivesARoundTrip_data() {
        QTest::addColumn<QString>("text");
        for (const char *const text :
             {"", "true", "false", " padded ", "/home/a,b;c=d/\"x\"\\y", "line\nbreak\ttab",
              "Caf\u00E9 \U0001F600", "[General]", "#x", ";x", "%x", "\"", "\\", "\\x41"}) {
            QTest::addRow("'%s'", text) << QString::fromUtf8(text);
        }
    }
    void everyTextSurvivesARoundTrip() {
        QFETCH(QString, text);
        const QSettings::SettingsMap map = {{QStringLiteral("key"), text},
                                            {QStringLiteral("Other/key"), text},
                                            {QStringLiteral("flag"), false}};
        QCOMPARE(read(written(map)), map);
    }

    void booleansAreWrittenBare() {
        QCOMPARE(written({{QStringLiteral("flag"), true}}), QByteArray("[General]\nflag=true\n"));
    }
};

int preferences_format_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, PreferencesFormatTest>(argc, argv);
}
#include "preferences_format_test.moc"
