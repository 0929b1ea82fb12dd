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
using namespace Qt::StringLiterals;
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
        disk_ = surroundings_->home.path(u"disk-%1"_s.arg(++number_));
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
        putOnDisk(u"data/Fennick"_s);
        ReceiptStore store;
        store.add(finishedReceipt(u"/w/first.pdf"_s));
        fill();
        Receipt large = finishedReceipt(u"/w/second.pdf"_s);
        large.summary = QString(20000, u'x');
        store.add(large);
        QCOMPARE(store.receipts().size(), 2);
        QCOMPARE(ReceiptStore().receipts().size(), 1); // the old file, intact
        store.clearAll();
        makeRoom();
        store.add(large);
        QCOMPARE(ReceiptStore().receipts().size(), 1);
        QCOMPARE(ReceiptStore().receipts().first().filePath, u"/w/second.pdf"_s);
        QVERIFY(ReceiptStore().hasFilePath(u"/w/second.pdf"_s));
    }

    void damagedListIsKeptOnAFullDisk() {
        putOnDisk(u"data/Fennick"_s);
        writeFile(surroundings_->home.receiptsFile(), "[{\"id\": ");
        fill();
        ReceiptStore store;
        Receipt large = finishedReceipt(u"/w/second.pdf"_s);
        large.summary = QString(20000, u'x');
        store.add(large);
        QByteArray kept;
        const QDir folder(surroundings_->home.path(u"data/Fennick"_s));
        for (const QString &name : folder.entryList({u"receipts.json*"_s}, QDir::Files)) {
            kept += readFile(folder.filePath(name)).left(8);
        }
        QVERIFY2(kept.contains("[{\"id\": "), kept.constData());
    }

    void ledgerThatCannotBeWrittenLeavesTheOlderOne() {
        const QString ledger = disk_ + u"/ledger.csv"_s;
        writeFile(ledger, "older");
        fill();
        const QList<Receipt> receipts(500, finishedReceipt(u"/w/a.pdf"_s));
        QVERIFY(!ExportService::writeLedger(receipts, Format::csv, ledger));
        QCOMPARE(readFile(ledger), "older");
        QCOMPARE(entries(disk_), (QStringList{u"filler"_s, u"ledger.csv"_s}));
    }

    void archiveOnAFullDiskMovesNothingHalfwayAndClears() {
        pipeline_->start();
        pipeline_->settings->setArchiveFolderPath(disk_);
        const QByteArray content(100000, 'r');
        const QString small = list(u"small.txt"_s, "s");
        const QString large = list(u"large.txt"_s, content);
        fill(8);
        pipeline_->appState->archiveAndClear(Format::csv);
        const QString archive = disk_ + u'/' + AppState::dateStamp();
        QVERIFY(pipeline_->receipts().isEmpty());
        QVERIFY(!QFileInfo::exists(archive + u"/large.txt"_s));
        QCOMPARE(readFile(large), content); // it stays, and is not taken in again
        QVERIFY(pipeline_->store->hasFilePath(large));
        QCOMPARE(readFile(archive + u"/small.txt"_s), "s");
        QVERIFY(!QFileInfo::exists(small));
        for (const QString &name : entries(archive)) {
            QVERIFY2(!name.startsWith(u'.'), qPrintable(name));
        }
    }

    void ledgerThatCannotBeWrittenKeepsNoFileFromBeingArchived() {
        pipeline_->start();
        pipeline_->settings->setArchiveFolderPath(disk_);
        Receipt receipt = finishedReceipt(disk_ + u"/a.txt"_s);
        receipt.summary = QString(20000, u'x');
        writeFile(receipt.filePath, "content");
        pipeline_->store->add(receipt);
        fill(8);
        pipeline_->appState->archiveAndClear(Format::csv);
        const QString archive = disk_ + u'/' + AppState::dateStamp();
        QCOMPARE(entries(archive), QStringList{u"a.txt"_s});
        QCOMPARE(readFile(archive + u"/a.txt"_s), "content");
        QVERIFY(pipeline_->receipts().isEmpty());
        QCOMPARE(pipeline_->appState->lastError(), std::nullopt);
    }

    void archiveFolderThatCannotBeMadeKeepsTheList() {
        pipeline_->start();
        const QString tiny = surroundings_->home.path(u"no-inodes"_s);
        QDir().mkpath(tiny);
        QVERIFY(mountFileSystemWithoutInodes(tiny));
        pipeline_->settings->setArchiveFolderPath(tiny);
        const QString path = list(u"a.txt"_s, "content");
        pipeline_->appState->archiveAndClear(Format::csv);
        QVERIFY(pipeline_->appState->lastError()->startsWith(u"Couldn't create archive folder: "));
        QCOMPARE(pipeline_->receipts().size(), 1);
        QCOMPARE(readFile(path), "content");
        unmount(tiny);
    }

    void fullTemporaryFolderFailsTheDelivery() {
        putOnDisk(u"tmp"_s);
        fill(4);
        deliver();
        QVERIFY2(pipeline_->appState->lastError()->startsWith(u"Photos export failed: "),
                 qPrintable(*pipeline_->appState->lastError()));
        QVERIFY(!QFileInfo::exists(surroundings_->home.photoLibrary()));
    }

    void fullPhotoLibraryFailsTheDeliveryAndHoldsNothing() {
        putOnDisk(u"Pictures"_s);
        fill(4);
        deliver();
        QVERIFY2(pipeline_->appState->lastError()->startsWith(
                     u"Photos export failed: Failed to add image to Photos: "),
                 qPrintable(*pipeline_->appState->lastError()));
        QCOMPARE(entries(surroundings_->home.photoLibrary()), QStringList());
    }

    void fileIsRenamedOnAFullDisk() {
        putOnDisk(u"watched-full"_s);
        const QString path = surroundings_->home.path(u"watched-full/scan.pdf"_s);
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
        const QString place = disk_ + u"/place"_s;
        QDir().mkpath(place);
        QDir().mkpath(QFileInfo(path).path());
        QVERIFY(QFile::link(place, path));
        linked_.append(path);
    }

    // Fills the disk but for `remaining` KiB.
    void fill(int remaining = 0) {
        QFile filler(disk_ + u"/filler"_s);
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray block(4096, 'f');
        while (filler.write(block) == block.size()) {
        }
        filler.resize(std::max<qint64>(0, filler.size() - remaining * 1024));
    }
    void makeRoom() { QVERIFY(QFile::remove(disk_ + u"/filler"_s)); }

    QString list(const QString &name, const QByteArray &content) {
        const QString path = pipeline_->path(name);
        writeFile(path, content);
        pipeline_->store->add(finishedReceipt(path));
        return path;
    }

    void deliver() {
        pipeline_->start();
        pipeline_->settings->setAddToPhotos(true);
        Receipt receipt = finishedReceipt(pipeline_->path(u"receipt.txt.pdf"_s));
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
