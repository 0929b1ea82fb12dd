#include "support/test_program.h"
#include "text/display_text.h"

#include <QCoreApplication>

using namespace fennick;
using namespace Qt::StringLiterals;

class DisplayTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void controlCharactersBecomeBlanks_data() {
        QTest::addColumn<QString>("text");
        for (const char16_t code :
             {u'\n', u'\r', u'\t', u'\0', u'\x1B', u'\x7F', u'\x85', u'\u2028', u'\u2029'}) {
            QTest::addRow("U+%04X", code) << u"a"_s + QChar(code) + u'b';
        }
    }
    void controlCharactersBecomeBlanks() {
        QFETCH(QString, text);
        QCOMPARE(displayText(text), u"a b"_s);
    }

    void disguisesBecomeVisible_data() {
        QTest::addColumn<QString>("text");
        for (const char16_t code : {u'\u202A', u'\u202B', u'\u202C', u'\u202D', u'\u202E', u'\u2066',
                                    u'\u2067', u'\u2068', u'\u2069'}) {
            QTest::addRow("U+%04X", code) << u"a"_s + QChar(code) + u'b';
        }
    }
    void disguisesBecomeVisible() {
        QFETCH(QString, text);
        QCOMPARE(displayText(text), u"a\uFFFDb"_s);
    }

    void everydayTextStays() {
        const QString text = u"Café “Zum Löwen” — 東京 מסעדה é 🍕 $23.50.pdf"_s;
        QCOMPARE(displayText(text), text);
    }
};

int display_text_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, DisplayTextTest>(argc, argv);
}
#include "display_text_test.moc"
