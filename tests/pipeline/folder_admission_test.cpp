#include "pipeline_under_test.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// A folder that the user has chosen becomes the watched one.
class FolderAdmissionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        pipeline_->start();
        folder_ = surroundings_.home.path(u"chosen-%1"_s.arg(++number_));
        writeFile(folder_ + u"/old.pdf"_s, "old");
        writeFile(folder_ + u"/below/older.pdf"_s, "older");
    }
    void cleanup() { pipeline_.reset(); }

    void existingFilesAreReadIfWanted() {
        pipeline_->appState->admitFolder(folder_, ExistingFiles::read);
        QCOMPARE(pipeline_->settings->watchFolderPath(), folder_);
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
    }

    void onlyNewFilesAreReadIfWanted() {
        pipeline_->appState->admitFolder(folder_, ExistingFiles::ignored);
        QVERIFY(waitUntil([this] { return isTaken(); }));
        QVERIFY(pipeline_->store->hasFilePath(folder_ + u"/old.pdf"_s));
        writeFile(folder_ + u"/new.pdf"_s, "new");
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"new"});

        pipeline_->appState->startWatchingIfConfigured(); // looks at all that lies there once more
        letTimePass(1500);
        QCOMPARE(pipeline_->sentDocuments().size(), 1);
        QVERIFY(QFile::exists(folder_ + u"/below/older.pdf"_s));
    }

    void folderThatIsSpelledOtherwiseIsIgnoredByItsFiles() {
        pipeline_->appState->admitFolder(folder_ + u"/./"_s, ExistingFiles::ignored);
        QVERIFY(waitUntil([this] { return pipeline_->settings->watchFolderPath() == folder_ + u"/./"_s; }));
        letTimePass(1500);
        QVERIFY(pipeline_->receipts().isEmpty());
    }

    void ignoredPathsAreOnDiskBeforeTheFolderIsTaken() {
        bool wereThere = false;
        connect(pipeline_->settings.get(), &SettingsStore::changed, this, [this, &wereThere] {
            wereThere = readFile(surroundings_.home.ignoredFile()).contains("older.pdf") &&
                        !readFile(surroundings_.home.preferencesFile()).contains(folder_.toUtf8());
        });
        pipeline_->appState->admitFolder(folder_, ExistingFiles::ignored);
        QVERIFY(waitUntil([this] { return isTaken(); }));
        QVERIFY(wereThere);
    }

    void folderIsNotTakenWhenItsFilesCannotBeIgnored() {
        const auto former = pipeline_->settings->watchFolderPath();
        QDir().mkpath(surroundings_.home.ignoredFile()); // no file can take its place
        pipeline_->appState->admitFolder(folder_, ExistingFiles::ignored);
        QVERIFY(waitUntil([this] { return pipeline_->appState->lastError().has_value(); }));
        QVERIFY(pipeline_->appState->lastError()->startsWith(u"The folder is not watched, because"));
        QCOMPARE(pipeline_->settings->watchFolderPath(), former);
        QVERIFY(!pipeline_->store->hasFilePath(folder_ + u"/old.pdf"_s));
    }

    void laterChoiceReplacesOneThatIsStillListed() {
        const QString other = surroundings_.home.path(u"other-%1"_s.arg(number_));
        QDir().mkpath(other);
        pipeline_->appState->admitFolder(folder_, ExistingFiles::ignored);
        pipeline_->appState->admitFolder(other, ExistingFiles::read);
        letTimePass(500);
        QCOMPARE(pipeline_->settings->watchFolderPath(), other);
    }

    void surveyLeavesOutWhatIsKnownAndArchived() {
        pipeline_->settings->setArchiveFolderPath(folder_ + u"/archived"_s);
        writeFile(folder_ + u"/archived/a.pdf"_s, "x");
        writeFile(folder_ + u"/Receipt Archive/b.pdf"_s, "x");
        QVERIFY(pipeline_->store->ignore({folder_ + u"/old.pdf"_s}));
        const auto survey = pipeline_->appState->survey(folder_);
        int files = -1;
        connect(survey.get(), &FolderSurvey::finished, this,
                [&files](const FolderFacts &facts) { files = facts.unreadFiles; });
        QVERIFY(waitUntil([&files] { return files >= 0; }));
        QCOMPARE(files, 1);
    }

private:
    bool isTaken() const { return pipeline_->settings->watchFolderPath() == folder_; }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
    QString folder_;
    int number_ = 0;
};

int folder_admission_test(int argc, char **argv) {
    return runTest<QCoreApplication, FolderAdmissionTest>(argc, argv);
}
#include "folder_admission_test.moc"
