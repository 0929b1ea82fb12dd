#include "pipeline_under_test.h"
#include "support/process_status.h"
#include "support/striped_pdf.h"
#include "support/test_program.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QImage>
#include <QSignalSpy>
#include <QThread>
#include <QTimer>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray picture(QSize size = {60, 80}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

const QString baseName = u"2024-05-01 Lunch - Dockside Deli $23.50"_s;

} // namespace

class PhotosDeliveryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_); }
    void cleanup() { pipeline_.reset(); }

    void finishedReceiptIsAddedToTheAlbumOfTheDay() {
        startWithPhotos(true);
        pipeline_->drop(u"a.png"_s, picture());
        QVERIFY(waitForDelivery());
        const QString day = QDate::currentDate().toString(Qt::ISODate);
        QCOMPARE(photos(), QStringList{u"Expenses "_s + day + u'/' + baseName + u".jpg"_s});
        QCOMPARE(readFile(surroundings_.home.photoLibrary() + u"/Expenses "_s + day + u"/.album"_s),
                 QByteArray("Expenses: " + day.toUtf8()));
        QVERIFY(ReceiptStore().receipts().first().addedToPhotos);
    }

    void asManyConversionsRunAsThereAreProcessors() {
        startWithPhotos(false);
        qsizetype most = 0;
        QTimer look;
        connect(&look, &QTimer::timeout, this, [&most] {
            const auto running = childrenNamed("convert_receipt", QCoreApplication::applicationPid()).size();
            most = std::max(most, running);
        });
        look.start(1);
        const QByteArray content = picture({3000, 3000});
        const qsizetype count = 4 * QThread::idealThreadCount();
        for (qsizetype index = 0; index < count; ++index) {
            pipeline_->drop(QString::number(index) + u".png"_s, content);
        }
        QVERIFY(waitUntil([&] { return photos().size() == count; }));
        QVERIFY(most > 0);
        QVERIFY2(most <= QThread::idealThreadCount(), qPrintable(QString::number(most)));
    }

    void twoReceiptsOfADayShareTheAlbum() {
        startWithPhotos(true);
        pipeline_->drop(u"a.png"_s, picture());
        pipeline_->drop(u"b.png"_s, picture());
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
        QVERIFY(waitUntil([&] { return photos().size() == 2; }));
        QCOMPARE(QDir(surroundings_.home.photoLibrary()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(),
                 1);
        QVERIFY(waitForDelivery());
    }

    void withoutGroupingThereIsNoAlbum() {
        startWithPhotos(false);
        pipeline_->drop(u"a.png"_s, picture());
        QVERIFY(waitForDelivery());
        QCOMPARE(photos(), QStringList{baseName + u".jpg"_s});
    }

    void everyPageOfAPdfIsAPicture() {
        startWithPhotos(false);
        pipeline_->drop(u"a.pdf"_s, stripedPdf(2));
        QVERIFY(waitForDelivery());
        QCOMPARE(photos(), (QStringList{baseName + u" (p1).jpg"_s, baseName + u" (p2).jpg"_s}));
    }

    void archivedWhileItsPicturesAreMadeIsStillDelivered() {
        startWithPhotos(false);
        connect(pipeline_->store.get(), &ReceiptStore::receiptsChanged, this, [this] {
            const auto &receipts = pipeline_->receipts();
            if (!receipts.isEmpty() && receipts.first().fileName.startsWith(baseName)) {
                QTimer::singleShot(
                    0, this, [this] { pipeline_->appState->archiveAndClear(ExportService::Format::csv); });
            }
        });
        pipeline_->drop(u"a.pdf"_s, stripedPdf(2));
        QVERIFY(waitUntil([this] { return photos().size() == 2; }));
        QVERIFY(pipeline_->receipts().isEmpty());
        QVERIFY(!pipeline_->appState->lastError());
        QVERIFY(waitUntil([&] { return QDir(surroundings_.home.temporaryImages()).isEmpty(); }));
    }

    void whatIsChangedWhilePicturesAreMadeStays() {
        startWithPhotos(false);
        connect(pipeline_->store.get(), &ReceiptStore::receiptsChanged, this, [this] {
            Receipt receipt = pipeline_->receipts().first();
            if (receipt.fileName.startsWith(baseName) && receipt.summary == u"Lunch."_s) {
                receipt.summary = u"corrected"_s;
                QTimer::singleShot(0, this, [this, receipt] { pipeline_->store->update(receipt); });
            }
        });
        pipeline_->drop(u"a.pdf"_s, stripedPdf(2));
        QVERIFY(waitForDelivery());
        QCOMPARE(pipeline_->receipts().first().summary, u"corrected"_s);
    }

    void linkInPlaceOfAFinishedReceiptIsNotDelivered() {
        pipeline_->start();
        pipeline_->settings->setGroupIntoAlbum(false);
        pipeline_->drop(u"a.png"_s, picture());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        const QString path = pipeline_->receipts().first().filePath;
        const QString secret = surroundings_.home.path(u"secret.png"_s);
        QVERIFY(QFile::rename(path, secret) && QFile::link(secret, path));
        pipeline_->settings->setAddToPhotos(true);
        pipeline_->appState->pushToPhotos(pipeline_->receipts().first());
        QVERIFY(waitUntil([this] { return pipeline_->appState->lastError().has_value(); }));
        QVERIFY2(pipeline_->appState->lastError()->contains(u"is a link"),
                 qPrintable(*pipeline_->appState->lastError()));
        QVERIFY(photos().isEmpty());
    }

    void temporaryImagesAreRemovedAfterwards() {
        startWithPhotos(true);
        pipeline_->drop(u"a.png"_s, picture());
        QVERIFY(waitForDelivery());
        QVERIFY(QDir(surroundings_.home.temporaryImages()).isEmpty());
    }

    void withThePreferenceOffNothingIsDelivered() {
        pipeline_->start();
        pipeline_->drop(u"a.png"_s, picture());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QSignalSpy changes(pipeline_->store.get(), &ReceiptStore::receiptsChanged);
        pipeline_->appState->pushToPhotos(pipeline_->receipts().first());
        letTimePass(300);
        QVERIFY(!QFileInfo::exists(surroundings_.home.photoLibrary()));
        QVERIFY(changes.isEmpty());
        QVERIFY(!pipeline_->receipts().first().addedToPhotos);
    }

    void deliveredReceiptIsNotDeliveredAgainByAScan() {
        startWithPhotos(false);
        pipeline_->drop(u"a.png"_s, picture());
        QVERIFY(waitForDelivery());
        pipeline_->appState->retry(pipeline_->receipts().first());
        QVERIFY(waitUntil([&] { return pipeline_->server.requests().size() == 2; }));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        letTimePass(300);
        QCOMPARE(photos().size(), 1);
    }

    void pushingTwiceAddsTheImagesTwice() {
        pipeline_->start();
        pipeline_->settings->setGroupIntoAlbum(false);
        pipeline_->drop(u"a.png"_s, picture());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        pipeline_->settings->setAddToPhotos(true);
        pipeline_->appState->pushToPhotos(pipeline_->receipts().first());
        QVERIFY(waitForDelivery());
        pipeline_->appState->pushToPhotos(pipeline_->receipts().first());
        QVERIFY(waitUntil([&] { return photos().size() == 2; }));
        QCOMPARE(photos(), (QStringList{baseName + u" (2).jpg"_s, baseName + u".jpg"_s}));
        QVERIFY(waitUntil([&] { return QDir(surroundings_.home.temporaryImages()).isEmpty(); }));
    }

    void failedPushIsToldAndChangesNothingElse() {
        pipeline_->start();
        pipeline_->drop(u"a.png"_s, picture());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QVERIFY(QFile::remove(pipeline_->receipts().first().filePath));
        pipeline_->settings->setAddToPhotos(true);
        pipeline_->appState->pushToPhotos(pipeline_->receipts().first());
        QVERIFY(waitUntil([this] { return pipeline_->appState->lastError().has_value(); }));
        QVERIFY(pipeline_->appState->lastError()->startsWith(u"Photos export failed: "));
        QCOMPARE(pipeline_->receipts().first().status, ReceiptStatus::done);
        QVERIFY(!pipeline_->receipts().first().error);
        QVERIFY(!pipeline_->receipts().first().addedToPhotos);
    }

    void failedConversionIsToldAndChangesNothingElse() {
        startWithPhotos(true);
        pipeline_->drop(u"a.pdf"_s, "no PDF at all");
        QVERIFY(waitUntil([&] { return pipeline_->appState->lastError().has_value(); }));
        QCOMPARE(pipeline_->appState->lastError(), u"Photos export failed: Could not open PDF"_s);
        QCOMPARE(pipeline_->receipts().first().status, ReceiptStatus::done);
        QVERIFY(!pipeline_->receipts().first().error);
        QVERIFY(!pipeline_->receipts().first().addedToPhotos);
    }

    void unreadableImageIsTold() {
        startWithPhotos(true);
        pipeline_->drop(u"a.jpg"_s, "no picture at all");
        QVERIFY(waitUntil([&] { return pipeline_->appState->lastError().has_value(); }));
        QCOMPARE(pipeline_->appState->lastError(), u"Photos export failed: Could not render page image"_s);
    }

    void deniedAccessIsToldAndTheImagesStay() {
        writeFile(surroundings_.home.permissionsFile(), "[General]\nphotos=denied\n");
        startWithPhotos(true);
        pipeline_->drop(u"a.png"_s, picture());
        QVERIFY(waitUntil([&] { return pipeline_->appState->lastError().has_value(); }));
        QCOMPARE(pipeline_->appState->lastError(),
                 u"Photos export failed: Photos access was not granted. Enable it in System Settings "
                 "▸ Privacy & Security ▸ Photos."_s);
        QVERIFY(!pipeline_->receipts().first().addedToPhotos);
        QDirIterator images(surroundings_.home.temporaryImages(), QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(images.hasNext());
    }

    void libraryThatRefusesIsToldInItsWords() {
        QFile::link(surroundings_.home.path(u"unmounted/disk"_s), surroundings_.home.photoLibrary());
        startWithPhotos(true);
        pipeline_->drop(u"a.png"_s, picture());
        QVERIFY(waitUntil([&] { return pipeline_->appState->lastError().has_value(); }));
        QVERIFY2(pipeline_->appState->lastError()->startsWith(
                     u"Photos export failed: Failed to add image to Photos: "),
                 qPrintable(*pipeline_->appState->lastError()));
        QFile::remove(surroundings_.home.photoLibrary());
    }

    void albumIsThatOfTheDayOfDelivery() {
        QCOMPARE(AppState::albumName(QDateTime(QDate(2025, 3, 3), QTime(23, 59))), u"Expenses: 2025-03-03"_s);
    }

private:
    void startWithPhotos(bool isGrouped) {
        pipeline_->start();
        pipeline_->settings->setAddToPhotos(true);
        pipeline_->settings->setGroupIntoAlbum(isGrouped);
    }

    bool waitForDelivery() {
        return waitUntil([this] {
            const auto &receipts = pipeline_->receipts();
            return !receipts.isEmpty() &&
                   std::all_of(receipts.begin(), receipts.end(),
                               [](const Receipt &receipt) { return receipt.addedToPhotos; });
        });
    }

    // The pictures in the library, by path below it.
    QStringList photos() const {
        const QDir library(surroundings_.home.photoLibrary());
        QStringList paths;
        QDirIterator files(library.path(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            paths.append(library.relativeFilePath(files.next()));
        }
        paths.sort();
        return paths;
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int photos_delivery_test(int argc, char **argv) {
    return runTest<QApplication, PhotosDeliveryTest>(argc, argv);
}
#include "photos_delivery_test.moc"
