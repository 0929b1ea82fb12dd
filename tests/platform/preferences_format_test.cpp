#include "platform/preferences_format.h"
#include "support/test_program.h"

#include <QBuffer>
#include <QCoreApplication>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

QSettings::SettingsMap read(const QByteArray &content) {
    QBuffer buffer;
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
    QSettings::SettingsMap map;
    std::ignore = readPreferences(buffer, map);
    return map;
}

QByteArray written(const QSettings::SettingsMap &map) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    std::ignore = writePreferences(buffer, map);
    return buffer.data();
}

QVariant readValue(const QByteArray &text) {
    return read("[General]\nkey=" + text + '\n').value(u"key"_s);
}

} // namespace

class PreferencesFormatTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlyBareTrueAndFalseAreBooleans() {
        QCOMPARE(readValue("true"), QVariant(true));
        QCOMPARE(readValue("false"), QVariant(false));
        QCOMPARE(readValue("\"true\""), QVariant(u"true"_s));
        QCOMPARE(readValue("TRUE"), QVariant(u"TRUE"_s));
        QCOMPARE(readValue("1"), QVariant(u"1"_s));
        QCOMPARE(readValue(""), QVariant(QString()));
    }

    void bareTextIsTakenAsItStands() {
        QCOMPARE(readValue("/home/a b/Receipts, 2024; x=y"), QVariant(u"/home/a b/Receipts, 2024; x=y"_s));
        QCOMPARE(readValue("  /home/Müller  "), QVariant(u"/home/Müller"_s));
        QCOMPARE(readValue("http://127.0.0.1:47111"), QVariant(u"http://127.0.0.1:47111"_s));
    }

    void escapesOfQSettingsAreUnderstood() {
        QCOMPARE(readValue(R"(a\\b\"c\n\xe9z)"), QVariant(u"a\\b\"c\n\u00E9z"_s));
        QCOMPARE(readValue(R"("x, y")"), QVariant(u"x, y"_s));
    }

    void commentsBlankLinesAndOtherSectionsAreTold() {
        const auto map = read("; remark\n# remark\n\n[Window]\nwidth=9\r\n[General]\r\nmodel=m\r\n");
        QCOMPARE(map.size(), 2);
        QCOMPARE(map[u"Window/width"_s], QVariant(u"9"_s));
        QCOMPARE(map[u"model"_s], QVariant(u"m"_s));
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
        const QSettings::SettingsMap map = {{u"key"_s, text}, {u"Other/key"_s, text}, {u"flag"_s, false}};
        QCOMPARE(read(written(map)), map);
    }

    void booleansAreWrittenBare() {
        QCOMPARE(written({{u"flag"_s, true}}), QByteArray("[General]\nflag=true\n"));
    }
};

int preferences_format_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, PreferencesFormatTest>(argc, argv);
}
#include "preferences_format_test.moc"
