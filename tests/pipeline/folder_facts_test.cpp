#include "pipeline/folder_facts.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class FolderFactsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlySmallOrdinaryFoldersAreTakenUnasked_data() {
        QTest::addColumn<bool>("isWide");
        QTest::addColumn<int>("files");
        QTest::addColumn<bool>("isCountComplete");
        QTest::addColumn<bool>("isAsked");
        QTest::newRow("empty") << false << 0 << true << false;
        QTest::newRow("25 files") << false << 25 << true << false;
        QTest::newRow("26 files") << false << 26 << true << true;
        QTest::newRow("perhaps more than the few that were counted") << false << 3 << false << true;
        QTest::newRow("more than are counted") << false << mostFilesCounted + 1 << false << true;
        QTest::newRow("an empty home") << true << 0 << true << true;
    }
    void onlySmallOrdinaryFoldersAreTakenUnasked() {
        QFETCH(bool, isWide);
        QFETCH(int, files);
        QFETCH(bool, isCountComplete);
        QTEST(needsConsent({isWide, files, isCountComplete}), "isAsked");
    }

    void placesAreMetByThemselvesAndFromAbove_data() {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<bool>("isMet");
        QTest::newRow("the place") << u"/home/me"_s << true;
        QTest::newRow("above it") << u"/home"_s << true;
        QTest::newRow("above all") << u"/"_s << true;
        QTest::newRow("below it") << u"/home/me/Receipts"_s << false;
        QTest::newRow("beside it") << u"/home/m"_s << false;
    }
    void placesAreMetByThemselvesAndFromAbove() {
        QFETCH(QString, folder);
        QTEST(isOrContains(folder, {u"/nowhere"_s, u"/home/me"_s}), "isMet");
    }
};

int folder_facts_test(int argc, char **argv) {
    return runTestWithoutApplication<FolderFactsTest>(argc, argv);
}
#include "folder_facts_test.moc"
