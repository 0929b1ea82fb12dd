#include "support/test_program.h"
#include "text/money_locale.h"

#include <QCoreApplication>

using namespace fennick;
using test::runTest;

class MoneyLocaleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        for (const char *variable : {"LC_ALL", "LC_MONETARY", "LC_NUMERIC", "LANG"}) {
            qunsetenv(variable);
        }
    }

    void isTheFirstThatTheEnvironmentSets() {
        qputenv("LANG", "en_US.UTF-8");
        QCOMPARE(moneyLocale().name(), QStringLiteral("en_US"));
        qputenv("LC_NUMERIC", "fr_CH.UTF-8");
        QCOMPARE(moneyLocale().name(), QStringLiteral("fr_CH"));
        qputenv("LC_MONETARY", "de_DE.UTF-8@euro");
        QCOMPARE(moneyLocale().name(), QStringLiteral("de_DE"));
        qputenv("LC_ALL", "sv_SE");
        QCOMPARE(moneyLocale().name(), QStringLiteral("sv_SE"));
    }

    void emptyVariableIsNone() {
        qputenv("LC_ALL", "");
        qputenv("LC_MONETARY", "");
        qputenv("LANG", "ja_JP.UTF-8");
        QCOMPARE(moneyLocale().name(), QStringLiteral("ja_JP"));
    }

    void cIsC() {
        qputenv("LANG", "de_DE.UTF-8");
        qputenv("LC_ALL", "C.UTF-8");
        QCOMPARE(moneyLocale().language(), QLocale::C);
    }

    void somethingIsTakenWhereNothingIsSet() { QCOMPARE(moneyLocale(), QLocale::system()); }
};

int money_locale_test(int argc, char **argv) {
    return runTest<QCoreApplication, MoneyLocaleTest>(argc, argv);
}
#include "money_locale_test.moc"
