#include "model/receipt_json.h"
#include "pipeline/undo/deed_record.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

RecordedDeed clearing() {
    RecordedDeed deed;
    deed.id = u"clearing"_s;
    deed.removed.rows = {{finishedReceipt(u"/w/a.pdf"_s), 1}, {finishedReceipt(u"/w/b \"2\".pdf"_s), 0}};
    deed.removed.rows.first().receipt.amount = 0.1 + 0.2; // every digit returns
    deed.removed.newlyIgnored = {u"/w/a.pdf"_s};
    return deed;
}

RecordedDeed archive() {
    RecordedDeed deed = clearing();
    deed.id = u"archive"_s;
    deed.kind = RecordedDeed::Kind::archive;
    deed.isBeingUndone = true;
    deed.ledgerPath = u"/archive/2024-05-01/receipts-2024-05-01.html"_s;
    deed.format = ExportService::Format::html;
    deed.files = {{deed.removed.rows.first().receipt.id, u"/w/a.pdf"_s, u"/archive/2024-05-01/a.pdf"_s}};
    return deed;
}

} // namespace

class RecordedDeedTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { home_ = std::make_unique<TemporaryHome>(); }

    void deedsReturnAsTheyWere() {
        const auto deeds = decodeDeeds(encodeDeeds({clearing(), archive()}));
        QVERIFY(deeds);
        QCOMPARE(deeds->size(), 2);
        QCOMPARE(deeds->first().kind, RecordedDeed::Kind::clear);
        QCOMPARE(deeds->first().removed.rows.first().receipt.amount, 0.1 + 0.2);
        QCOMPARE(deeds->first().removed.rows.first().rowsBelow, 1);
        QCOMPARE(deeds->first().removed.rows.last().receipt.filePath, u"/w/b \"2\".pdf"_s);
        QCOMPARE(deeds->first().removed.newlyIgnored, QStringList{u"/w/a.pdf"_s});
        QVERIFY(!deeds->first().isBeingUndone);
        const RecordedDeed &archived = deeds->last();
        QCOMPARE(archived.kind, RecordedDeed::Kind::archive);
        QVERIFY(archived.isBeingUndone);
        QCOMPARE(archived.ledgerPath, archive().ledgerPath);
        QCOMPARE(archived.format, ExportService::Format::html);
        QCOMPARE(archived.files.size(), 1);
        QCOMPARE(archived.files.first().receiptId, archived.removed.rows.first().receipt.id);
        QCOMPARE(archived.files.first().to, u"/archive/2024-05-01/a.pdf"_s);
    }

    void whatTheProgramDoesNotWriteIsRefused_data() {
        QTest::addColumn<QByteArray>("from");
        QTest::addColumn<QByteArray>("to");
        QTest::newRow("later version") << "\"version\":1"_ba << "\"version\":2"_ba;
        QTest::newRow("unknown kind") << "\"archive\",\"ledger\""_ba << "\"other\",\"ledger\""_ba;
        QTest::newRow("path with a detour") << "/archive/2024-05-01/a.pdf"_ba << "/archive/../etc/a.pdf"_ba;
        QTest::newRow("relative path") << "\"to\":\"/archive"_ba << "\"to\":\"archive"_ba;
        QTest::newRow("ledger with a detour")
            << "/archive/2024-05-01/receipts"_ba << "/archive/../etc/receipts"_ba;
        QTest::newRow("file of no receipt") << "\"receipt\":\""_ba << "\"receipt\":\"x"_ba;
        QTest::newRow("place below zero") << "[1,0]"_ba << "[-1,0]"_ba;
        QTest::newRow("place missing") << "[1,0]"_ba << "[1]"_ba;
        QTest::newRow("ignored paths of another type")
            << "\"newlyIgnored\":["_ba << "\"newlyIgnored\":[1,"_ba;
        QTest::newRow("no JSON") << "]}"_ba << ""_ba;
    }
    void whatTheProgramDoesNotWriteIsRefused() {
        QFETCH(QByteArray, from);
        QFETCH(QByteArray, to);
        QByteArray json = encodeDeeds({archive()});
        QVERIFY2(json.contains(from), json.constData());
        QVERIFY(!decodeDeeds(json.replace(from, to)));
    }

    void lastOfEachKindIsKeptPrivately() {
        RecordedDeed second = clearing();
        second.id = u"second"_s;
        DeedRecord record;
        record.insert(clearing());
        record.insert(archive());
        record.insert(second);
        const DeedRecord again;
        QCOMPARE(again.deeds().size(), 2);
        QCOMPARE(again.deeds().first().id, u"archive"_s);
        QCOMPARE(again.deeds().last().id, u"second"_s);
        QCOMPARE(QFileInfo(file()).permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
        record.replaceAll({second});
        QCOMPARE(DeedRecord().deeds().size(), 1);
    }

    void damagedRecordIsPutAside() {
        writeFile(file(), "{\"version\":1,\"deeds\":[{}]}");
        DeedRecord record;
        QVERIFY(record.deeds().isEmpty());
        record.insert(clearing());
        const QDir folder = QFileInfo(file()).dir();
        const QStringList aside = folder.entryList({u"undo.json.damaged-*"_s}, QDir::Files);
        QCOMPARE(aside.size(), 1);
        QCOMPARE(readFile(folder.filePath(aside.first())), "{\"version\":1,\"deeds\":[{}]}");
        QCOMPARE(DeedRecord().deeds().size(), 1);
    }

private:
    QString file() const { return home_->path(u"data/Fennick/undo.json"_s); }

    std::unique_ptr<TemporaryHome> home_;
};

int recorded_deed_test(int argc, char **argv) {
    return runTest<QCoreApplication, RecordedDeedTest>(argc, argv);
}
#include "recorded_deed_test.moc"
