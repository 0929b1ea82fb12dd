#include "pipeline/archive_places.h"
#include "pipeline/former_archives.h"
#include "pipeline_under_test.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// Archives in the watched folder stay unread after the archive setting has changed.
class FormerArchivesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_); }
    void cleanup() { pipeline_.reset(); }

    void datedFoldersOfFormerArchivesHoldArchives_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("isArchived");
        QTest::newRow("dated") << u"/w/old/2024-05-01/a.pdf"_s << true;
        QTest::newRow("below a dated one") << u"/w/old/2024-05-01/more/a.pdf"_s << true;
        QTest::newRow("beside the dated ones") << u"/w/old/a.pdf"_s << false;
        QTest::newRow("in another folder") << u"/w/old/2024-05-0x/a.pdf"_s << false;
        QTest::newRow("a file with a date as its name") << u"/w/old/2024-05-01"_s << false;
        QTest::newRow("another archive's") << u"/w/older/2024-05-01/a.pdf"_s << false;
        QTest::newRow("the present archive") << u"/w/now/a.pdf"_s << true;
        QTest::newRow("the usual archive") << u"/w/Receipt Archive/a.pdf"_s << true;
    }
    void datedFoldersOfFormerArchivesHoldArchives() {
        QFETCH(QString, path);
        const ArchivePlaces places{u"/w/now"_s, {u"/w/old"_s}};
        QTEST(places.contains(path), "isArchived");
    }

    void archiveIsNotReadAgainAfterTheSettingHasChanged() {
        pipeline_->start();
        pipeline_->settings->setArchiveFolderPath(pipeline_->path(u"first"_s));
        archiveOne();
        pipeline_->settings->setArchiveFolderPath(pipeline_->path(u"second"_s));
        archiveOne();
        pipeline_->settings->setArchiveFolderPath(std::nullopt);
        pipeline_->server.forgetRequests();

        pipeline_->start();
        pipeline_->drop(u"new.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        letTimePass(1500);
        QCOMPARE(pipeline_->receipts().size(), 1);
        QCOMPARE(pipeline_->sentDocuments().size(), 1);
    }

    void fileBesideFormerArchivesIsRead() {
        pipeline_->start();
        pipeline_->settings->setArchiveFolderPath(pipeline_->path(u"first"_s));
        pipeline_->settings->setArchiveFolderPath(std::nullopt);
        pipeline_->drop(u"first/new.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
    }

    void folderIsOnDiskBeforeTheSettingChanges() {
        pipeline_->start();
        pipeline_->settings->setArchiveFolderPath(u"/w/old/"_s);
        bool wasThere = false;
        connect(pipeline_->settings.get(), &SettingsStore::changed, this, [&] {
            wasThere = readFile(file()).contains("/w/old\"") &&
                       !readFile(surroundings_.home.preferencesFile()).contains("/w/new");
        });
        pipeline_->settings->setArchiveFolderPath(u"/w/new"_s);
        QVERIFY(wasThere);
    }

    void archiveIsRememberedWhileItsSettingStands() {
        pipeline_->start();
        pipeline_->settings->setArchiveFolderPath(pipeline_->path(u"first"_s));
        archiveOne();
        QVERIFY(readFile(file()).contains("/first\"")); // the file of the settings may be edited by hand
    }

    void fileIsPrivateAndHasAVersion() {
        pipeline_->start();
        pipeline_->settings->setArchiveFolderPath(u"/w/old"_s);
        pipeline_->settings->setArchiveFolderPath(std::nullopt);
        QVERIFY(readFile(file()).contains("\"version\": 1"));
        QCOMPARE(QFileInfo(file()).permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup),
                 QFile::Permissions());
    }

    void damagedFileIsSetAside_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("no JSON") << QByteArray("{\"version\": 1, \"fol");
        QTest::newRow("another version") << QByteArray(R"({"version": 2, "folders": ["/w/old"]})");
        QTest::newRow("no paths") << QByteArray(R"({"version": 1, "folders": [7]})");
        QTest::newRow("no list") << QByteArray(R"({"version": 1, "folders": "/w/old"})");
    }
    void damagedFileIsSetAside() {
        QFETCH(QByteArray, content);
        writeFile(file(), content);
        pipeline_->start();
        QCOMPARE(readFile(file()), content); // until there is something to write
        pipeline_->settings->setArchiveFolderPath(u"/w/new"_s);
        pipeline_->settings->setArchiveFolderPath(std::nullopt);
        QVERIFY(readFile(file()).contains("/w/new"));
        const QDir folder = QFileInfo(file()).dir();
        const QStringList aside = folder.entryList({u"archives.json.damaged-*"_s});
        QCOMPARE(aside.size(), 1);
        QCOMPARE(readFile(folder.filePath(aside.first())), content);
    }

    void folderThatCannotBeSavedIsTold() {
        pipeline_->start();
        pipeline_->settings->setArchiveFolderPath(u"/w/old"_s);
        QDir().mkpath(file()); // no file can take its place
        pipeline_->settings->setArchiveFolderPath(std::nullopt);
        QVERIFY(pipeline_->appState->lastError().value_or(QString()).startsWith(
            u"The former archive folder could not be remembered: "));
        QVERIFY(QDir().rmdir(file()));
        pipeline_->settings->setArchiveFolderPath(u"/w/old"_s);
        pipeline_->settings->setArchiveFolderPath(std::nullopt);
        QVERIFY(readFile(file()).contains("/w/old")); // as soon as that is possible
    }

private:
    QString file() const { return surroundings_.home.path(u"data/Fennick/archives.json"_s); }

    void archiveOne() {
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        pipeline_->appState->archiveAndClear(ExportService::Format::csv);
        QVERIFY(pipeline_->receipts().isEmpty());
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int former_archives_test(int argc, char **argv) {
    return runTest<QCoreApplication, FormerArchivesTest>(argc, argv);
}
#include "former_archives_test.moc"
