#include "pipeline/corrected_receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class CorrectedReceiptsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { home_ = std::make_unique<TemporaryHome>(); }

    void areRememberedAfterARestart() {
        CorrectedReceipts corrected;
        QVERIFY(!QFileInfo::exists(file()));
        corrected.insert(u"A"_s);
        corrected.insert(u"B"_s);
        corrected.remove(u"A"_s);
        const CorrectedReceipts next;
        QVERIFY(!next.contains(u"A"_s));
        QVERIFY(next.contains(u"B"_s));
    }

    void fileIsPrivateAndSaysItsVersion() {
        CorrectedReceipts().insert(u"A"_s);
        QCOMPARE(QFileInfo(file()).permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther),
                 0);
        QCOMPARE(readFile(file()), QByteArray(R"({"receipts":["A"],"version":1})"));
    }

    void whatIsNotUnderstoodIsSetAside_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("damaged") << QByteArray(R"({"receipts":["A")");
        QTest::newRow("of a later version") << QByteArray(R"({"receipts":{"A":["date"]},"version":2})");
    }
    void whatIsNotUnderstoodIsSetAside() {
        QFETCH(QByteArray, content);
        writeFile(file(), content);
        CorrectedReceipts corrected;
        QVERIFY(!corrected.contains(u"A"_s));
        QCOMPARE(readFile(file()), content); // until there is something to write
        corrected.insert(u"B"_s);
        QVERIFY(CorrectedReceipts().contains(u"B"_s));
        const QFileInfoList aside =
            QDir(QFileInfo(file()).path()).entryInfoList({u"corrected.json.damaged-*"_s});
        QCOMPARE(aside.size(), 1);
        QCOMPARE(readFile(aside.first().filePath()), content);
    }

private:
    QString file() const { return home_->path(u"data/Fennick/corrected.json"_s); }

    std::unique_ptr<TemporaryHome> home_;
};

int corrected_receipts_test(int argc, char **argv) {
    return runTest<QCoreApplication, CorrectedReceiptsTest>(argc, argv);
}
#include "corrected_receipts_test.moc"
