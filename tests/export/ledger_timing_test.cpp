#include "export/export_service.h"
#include "export/ledger_fixtures.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

using namespace fennick;
using namespace fennick::test;
using ExportService::Format;

// The window stands still while a ledger is built and written.
class LedgerTimingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void hundredThousandReceiptsTakeLessThanASecond_data() {
        QTest::addColumn<Format>("format");
        QTest::newRow("csv") << Format::csv;
        QTest::newRow("html") << Format::html;
    }
    void hundredThousandReceiptsTakeLessThanASecond() {
        QFETCH(Format, format);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("ledger"));
        const QList<Receipt> receipts = manyReceipts(100000);
        QElapsedTimer elapsed;
        elapsed.start();
        QVERIFY(ExportService::writeLedger(receipts, format, path));
        const qint64 milliseconds = elapsed.elapsed();
        qInfo("%lld bytes in %lld ms", QFileInfo(path).size(), milliseconds);
        QVERIFY(milliseconds < 1000);
    }
};

QTEST_GUILESS_MAIN(LedgerTimingTest)
#include "ledger_timing_test.moc"
