#include "model/receipt_json.h"
#include "support/conditions.h"
#include "support/host_stalls.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "ui/receipts_table.h"
#include "ui/receipts_table_model.h"

#include <QElapsedTimer>
#include <QTest>
#include <QToolButton>

using namespace fennick;
using namespace fennick::test;

// A list of many years stays as quick as a new one.
class LongListTimingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // From the store's change until the row is painted with its buttons, without the time in which the store
    // writes the list to disk.
    void newReceiptShowsWithin50Milliseconds() {
        QList<Receipt> receipts;
        for (int index = 0; index < 50000; ++index) {
            receipts.append(finishedReceipt(QStringLiteral("/w/%1.pdf").arg(index)));
        }
        const TemporaryHome home;
        writeFile(home.receiptsFile(), encodeReceipts(receipts));
        ReceiptStore store;
        QCOMPARE(store.receipts().size(), 50000);
        ReceiptsTable table(&store);
        table.resize(900, 560);
        table.show();
        QVERIFY(waitUntil([&table] { return isShown(table, 0); }));

        qint64 longest = 0;
        const HostStalls stalls;
        for (int round = 0; round < 20; ++round) {
            QElapsedTimer elapsed;
            qint64 changing = 0;
            const auto begin =
                connect(&store, &ReceiptStore::receiptsAboutToChange, this, [&elapsed] { elapsed.start(); });
            const auto end = connect(&store, &ReceiptStore::receiptsChanged, this,
                                     [&] { changing = elapsed.nsecsElapsed() / 1000; });
            Receipt newest = finishedReceipt(QStringLiteral("/w/new %1.pdf").arg(round));
            newest.scannedAt = QStringLiteral("2999-01-01T00:00:%1Z").arg(round, 2, 10, QLatin1Char('0'));
            newest.status = round % 2 == 0 ? ReceiptStatus::done : ReceiptStatus::error;
            store.add(newest);
            disconnect(begin);
            disconnect(end);
            QCOMPARE(table.model()
                         ->index(0, ReceiptsTableModel::summaryColumn)
                         .data(ReceiptsTableModel::fileNameRole)
                         .toString(),
                     newest.fileName);
            elapsed.start();
            while (!isShown(table, 0)) {
                QVERIFY(!elapsed.hasExpired(10000));
                QCoreApplication::processEvents(QEventLoop::AllEvents);
            }
            table.viewport()->repaint();
            longest = std::max(longest, changing + elapsed.nsecsElapsed() / 1000);
        }
        qInfo("longest of 20: %.1f ms", static_cast<double>(longest) / 1000);
        QVERIFY(std::chrono::microseconds(longest) < std::chrono::milliseconds(50) + stalls.longest());
    }

private:
    static bool isShown(const ReceiptsTable &table, int row) {
        const QWidget *const buttons =
            table.indexWidget(table.model()->index(row, ReceiptsTableModel::actionsColumn));
        return buttons != nullptr && buttons->isVisible();
    }
};

QTEST_MAIN(LongListTimingTest)
#include "long_list_timing_test.moc"
