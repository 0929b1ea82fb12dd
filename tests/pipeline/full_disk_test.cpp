#include "pipeline/app_state.h"
#include "pipeline_under_test.h"
#include "support/conditions.h"
#include "support/private_namespace.h"
#include "support/receipts.h"
#include "support/striped_pdf.h"
#include "support/test_program.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

using namespace fennick;
using namespace fennick::test;
using Format = ExportService::Format;

namespace {

bool canMount = false;

constexpr int kibibytes = 256;

} // namespace

// Every write of the program onto a file system that is really full.
class FullDiskTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (!canMount) {
            QSKIP("Nothing can be mounted here.");
        }
        surroundings_ = std::make_unique<Surroundings>();
    }
    void cleanupTestCase() { surroundings_.reset(); }

    void init() {
        disk_ = surroundings_->home.path(QStringLiteral("disk-%1").arg(++number_));
        QDir().mkpath(disk_);
        QVERIFY(mountSmallFileSystem(disk_, kibibytes));
        pipeline_ = std::make_unique<PipelineUnderTest>(*surroundings_);
    }
    void cleanup() {
        pipeline_.reset();
        for (const QString &folder : std::as_const(linked_)) {
            QFile::remove(folder);
            QDir().mkpath(folder);
        }
        linked_.clear();
        unmount(disk_);
    }

    void listThatCannotBeSavedStaysAsItWasAndIsSavedWhenThereIsRoom() {
        putOnDisk(QStringLiteral("data/Fennick"));
        ReceiptStore store;
        store.add(finishedReceipt(QStringLiteral("/w/first.pdf")));
        fill();
        Receipt large = finishedReceipt(QStringLiteral("/w/second.pdf"));
        large.summary = QString(20000, u'x');
        store.add(large);
        QCOMPARE(store.receipts().size(), 2);
        QCOMPARE(ReceiptStore().receipts().size(), 1); // the old file, intact
        store.clearAll();
        makeRoom();
        store.add(large);
        QCOMPARE(ReceiptStore().receipts().size(), 1);
        QCOMPARE(ReceiptStore().receipts().first().filePath, QStringLiteral("/w/second.pdf"));
        QVERIFY(ReceiptStore().hasFilePath(QStringLiteral("/w/second.pdf")));
    }

    void damagedListIsKeptOnAFullDisk() {
        putOnDisk(QStringLiteral("data/Fennick"));
        writeFile(surroundings_->home.receiptsFile(), "[{\"id\": ");
        fill();
        ReceiptStore store;
        Receipt large = finishedReceipt(QStringLiteral("/w/second.pdf"));
        large.summary = QString(20000, u'x');
        store.add(large);
        QByteArray kept;
        const QDir folder(surroundings_->home.path(QStringLiteral("data/Fennick")));
        for (const QString &name : folder.entryList({QStringLiteral("receipts.json*")}, QDir::Files)) {
            kept += readFile(folder.filePath(name)).left(8);
        }
        QVERIFY2(kept.contains("[{\"id\": "), kept.constData());
    }

    void ledgerThatCannotBeWrittenLeavesTheOlderOne() {
        const QString ledger = disk_ + QStringLiteral("/ledger.csv");
        writeFile(ledger, "older");
        fill();
        const QList<Receipt> receipts(500, finishedReceipt(QStringLiteral("/w/a.pdf")));
        QVERIFY(!ExportService::writeLedger(receipts, Format::csv, ledger));
        QCOMPARE(readFile(ledger), "older");
        QCOMPARE(entries(disk_), (QStringList{QStringLiteral("filler"), QStringLiteral("ledger.csv")}));
    }

    void archiveOnAFullDiskMovesNothingHalfwayAndClears() {
        pipeline_->start();
        pipeline_->settings->setArchiveFolderPath(disk_);
        const QByteArray content(100000, 'r');
        const QString small = list(QStringLiteral("small.txt"), "s");
        const QString large = list(QStringLiteral("large.txt"), content);
        fill(8);
        pipeline_->appState->archiveAndClear(Format::csv);
        const QString archive = disk_ + u'/' + AppState::dateStamp();
        QVERIFY(pipeline_->receipts().isEmpty());
        QVERIFY(!QFileInfo::exists(archive + QStringLiteral("/large.txt")));
        QCOMPARE(readFile(large), content); // it stays, and is not taken in again
        QVERIFY(pipeline_->store->hasFilePath(large));
        QCOMPARE(readFile(archive + QStringLiteral("/small.txt")), "s");
        QVERIFY(!QFileInfo::exists(small));
        for (const QString &name : entries(archive)) {
            QVERIFY2(!name.startsWith(u'.'), qPrintable(name));
        }
    }

    void ledgerThatCannotBeWrittenKeepsNoFileFromBeingArchived() {
        pipeline_->start();
        pipeline_->settings->setArchiveFolderPath(disk_);
        Receipt receipt = finishedReceipt(disk_ + QStringLiteral("/a.txt"));
        receipt.summary = QString(20000, u'x');
        writeFile(receipt.filePath, "content");
        pipeline_->store->add(receipt);
        fill(8);
        pipeline_->appState->archiveAndClear(Format::csv);
        const QString archive = disk_ + u'/' + AppState::dateStamp();
        QCOMPARE(entries(archive), QStringList{QStringLiteral("a.txt")});
        QCOMPARE(readFile(archive + QStringLiteral("/a.txt")), "content");
        QVERIFY(pipeline_->receipts().isEmpty());
        QCOMPARE(pipeline_->appState->lastError(), std::nullopt);
    }

    void archiveFolderThatCannotBeMadeKeepsTheList() {
        pipeline_->start();
        const QString tiny = surroundings_->home.path(QStringLiteral("no-inodes"));
        QDir().mkpath(tiny);
        QVERIFY(mountFileSystemWithoutInodes(tiny));
        pipeline_->settings->setArchiveFolderPath(tiny);
        const QString path = list(QStringLiteral("a.txt"), "content");
        pipeline_->appState->archiveAndClear(Format::csv);
        QVERIFY(pipeline_->appState->lastError()->startsWith(u"Couldn't create archive folder: "));
        QCOMPARE(pipeline_->receipts().size(), 1);
        QCOMPARE(readFile(path), "content");
        unmount(tiny);
    }

    void fullTemporaryFolderFailsTheDelivery() {
        putOnDisk(QStringLiteral("tmp"));
        fill(4);
        deliver();
        QVERIFY2(pipeline_->appState->lastError()->startsWith(u"Photos export failed: "),
                 qPrintable(*pipeline_->appState->lastError()));
        QVERIFY(!QFileInfo::exists(surroundings_->home.photoLibrary()));
    }

    void fullPhotoLibraryFailsTheDeliveryAndHoldsNothing() {
        putOnDisk(QStringLiteral("Pictures"));
        fill(4);
        deliver();
        QVERIFY2(pipeline_->appState->lastError()->startsWith(
                     u"Photos export failed: Failed to add image to Photos: "),
                 qPrintable(*pipeline_->appState->lastError()));
        QCOMPARE(entries(surroundings_->home.photoLibrary()), QStringList());
    }

    void fileIsRenamedOnAFullDisk() {
        putOnDisk(QStringLiteral("watched-full"));
        const QString path = surroundings_->home.path(QStringLiteral("watched-full/scan.pdf"));
        writeFile(path, "a receipt");
        fill();
        pipeline_->start();
        pipeline_->settings->setWatchFolderPath(QFileInfo(path).path());
        pipeline_->appState->startWatching(QFileInfo(path).path());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        waitUntil([&] { return readFile(pipeline_->receipts().first().filePath) == "a receipt"; });
        QCOMPARE(readFile(pipeline_->receipts().first().filePath), "a receipt");
    }

private:
    // Lets the folder of the test's home lie on the small disk.
    void putOnDisk(const QString &folder) {
        const QString path = surroundings_->home.path(folder);
        QDir(path).removeRecursively();
        const QString place = disk_ + QStringLiteral("/place");
        QDir().mkpath(place);
        QDir().mkpath(QFileInfo(path).path());
        QVERIFY(QFile::link(place, path));
        linked_.append(path);
    }

    // Fills the disk but for `remaining` KiB.
    void fill(int remaining = 0) {
        QFile filler(disk_ + QStringLiteral("/filler"));
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray block(4096, 'f');
        while (filler.write(block) == block.size()) {
        }
        filler.resize(std::max<qint64>(0, filler.size() - remaining * 1024));
    }
    void makeRoom() { QVERIFY(QFile::remove(disk_ + QStringLiteral("/filler"))); }

    QString list(const QString &name, const QByteArray &content) {
        const QString path = pipeline_->path(name);
        writeFile(path, content);
        pipeline_->store->add(finishedReceipt(path));
        return path;
    }

    void deliver() {
        pipeline_->start();
        pipeline_->settings->setAddToPhotos(true);
        Receipt receipt = finishedReceipt(pipeline_->path(QStringLiteral("receipt.txt.pdf")));
        pipeline_->store->add(receipt);
        writeFile(receipt.filePath, stripedPdf(2));
        pipeline_->appState->pushToPhotos(receipt);
        QVERIFY(waitUntil([&] { return pipeline_->appState->lastError().has_value(); }));
        QVERIFY(!pipeline_->receipts().first().addedToPhotos);
    }

    static QStringList entries(const QString &folder) {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    std::unique_ptr<Surroundings> surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
    QString disk_;
    QStringList linked_;
    int number_ = 0;
};

int full_disk_test(int argc, char **argv) {
    canMount = enterPrivateNamespace().canMount;
    return runTest<QApplication, FullDiskTest>(argc, argv);
}
#include "full_disk_test.moc"
