#include "support/test_program.h"
#include "text/money_locale.h"

#include <QCoreApplication>

using namespace fennick;
using namespace Qt::StringLiterals;
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
        QCOMPARE(moneyLocale().name(), u"en_US"_s);
        qputenv("LC_NUMERIC", "fr_CH.UTF-8");
        QCOMPARE(moneyLocale().name(), u"fr_CH"_s);
        qputenv("LC_MONETARY", "de_DE.UTF-8@euro");
        QCOMPARE(moneyLocale().name(), u"de_DE"_s);
        qputenv("LC_ALL", "sv_SE");
        QCOMPARE(moneyLocale().name(), u"sv_SE"_s);
    }

    void emptyVariableIsNone() {
        qputenv("LC_ALL", "");
        qputenv("LC_MONETARY", "");
        qputenv("LANG", "ja_JP.UTF-8");
        QCOMPARE(moneyLocale().name(), u"ja_JP"_s);
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
