#include "pipeline/folder_presence.h"
#include "pipeline_under_test.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// Whether the watched folder is there.
class FolderPresenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void absenceIsToldOnceUntilTheFolderIsBack() {
        FolderPresence presence;
        const QSignalSpy changed(&presence, &FolderPresence::changed);
        presence.set(true);
        QCOMPARE(changed.size(), 0);
        presence.set(false);
        QVERIFY(!presence.isMissing()); // it may be back at once
        QVERIFY(waitUntil([&] { return changed.size() == 1; }));
        QVERIFY(presence.isMissing());
        presence.set(false);
        presence.set(true);
        QCOMPARE(changed.size(), 2);
        QVERIFY(!presence.isMissing());
    }

    void folderThatIsReplacedWasNotMissing() {
        FolderPresence presence;
        const QSignalSpy changed(&presence, &FolderPresence::changed);
        presence.set(false);
        presence.set(true);
        letTimePass(1200);
        QCOMPARE(changed.size(), 0);
    }

    void watchedFolderThatVanishesAndComesBackIsTold() {
        PipelineUnderTest pipeline(surroundings_);
        pipeline.start();
        QSignalSpy changed(pipeline.appState.get(), &AppState::watchedFolderMissingChanged);
        const QString folder = QFileInfo(pipeline.path(u"a"_s)).path();
        QVERIFY(QDir().rename(folder, folder + u"-away"_s));
        QVERIFY(waitUntil([&] { return changed.size() == 1; }));
        QCOMPARE(changed.takeFirst().first().toBool(), true);
        QVERIFY(QDir().rename(folder + u"-away"_s, folder));
        QVERIFY(waitUntil([&] { return changed.size() == 1; }));
        QCOMPARE(changed.takeFirst().first().toBool(), false);
    }

    void folderThatIsMissingAtTheStartIsTold() {
        PipelineUnderTest pipeline(surroundings_);
        QVERIFY(QDir(QFileInfo(pipeline.path(u"a"_s)).path()).removeRecursively());
        pipeline.start();
        bool isMissing = false;
        connect(pipeline.appState.get(), &AppState::watchedFolderMissingChanged, this,
                [&isMissing](bool missing) { isMissing = missing; });
        QVERIFY(waitUntil([&isMissing] { return isMissing; }));
    }

private:
    Surroundings surroundings_;
};

int folder_presence_test(int argc, char **argv) {
    return runTest<QCoreApplication, FolderPresenceTest>(argc, argv);
}
#include "folder_presence_test.moc"
