#include "pipeline/folder_survey.h"
#include "pipeline/folder_threads.h"
#include "support/conditions.h"
#include "support/private_namespace.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMutex>

#include <memory>
#include <optional>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

bool canMountDeadNetwork = false;

constexpr std::chrono::milliseconds unhurried{patience}; // no machine is so busy

} // namespace

class FolderSurveyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<TemporaryHome>();
        personal_ = home_->path(u"people/me"_s);
        QDir().mkpath(personal_ + u"/Dokumente"_s);
        QDir().mkpath(personal_ + u"/Receipts"_s);
        QFile::link(personal_, home_->path(u"link"_s));
        qputenv("HOME", personal_.toLocal8Bit());
        writeFile(home_->path(u"config/user-dirs.dirs"_s), "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
        threads_ = std::make_unique<FolderThreads>();
    }
    void cleanup() { threads_->end(); }

    void personalFoldersAndThoseAboveThemAreWide_data() {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<bool>("isWide");
        QTest::newRow("home") << u"people/me"_s << true;
        QTest::newRow("home by a link") << u"link"_s << true;
        QTest::newRow("above the home") << u"people"_s << true;
        QTest::newRow("documents by their name here") << u"people/me/Dokumente"_s << true;
        QTest::newRow("below the home") << u"people/me/Receipts"_s << false;
    }
    void personalFoldersAndThoseAboveThemAreWide() {
        QFETCH(QString, folder);
        const FolderFacts facts = look(home_->path(folder));
        QTEST(facts.isWide, "isWide");
        QVERIFY(facts.isCountComplete);
    }

    void countsWhatTheFirstScanWouldRead() {
        const QString folder = personal_ + u"/Receipts"_s;
        for (const QString &name : {u"a.pdf"_s, u"B.PNG"_s, u"below/c.jpg"_s, u".hidden.pdf"_s,
                                    u".hidden/d.pdf"_s, u"notes.txt"_s, u"known.pdf"_s}) {
            writeFile(folder + u'/' + name, "x");
        }
        QDir().mkpath(folder + u"/folder.pdf"_s);
        QFile::link(folder + u"/a.pdf"_s, folder + u"/link.pdf"_s);
        QFile::link(folder + u"/below"_s, folder + u"/to-folder.pdf"_s);
        isUnread_ = [](const QString &path) {
            return !path.endsWith(u"/known.pdf");
        };
        const FolderFacts facts = look(folder);
        QCOMPARE(facts.unreadFiles, 4); // a, B, c and the link to a file, which gets a row
        QVERIFY(facts.isCountComplete);
    }

    void countEndsBeyondAThousand() {
        const QString folder = personal_ + u"/Receipts"_s;
        for (int number = 0; number < mostFilesCounted + 10; ++number) {
            writeFile(folder + u"/%1.pdf"_s.arg(number), "x");
        }
        const FolderFacts facts = look(folder);
        QCOMPARE(facts.unreadFiles, mostFilesCounted + 1);
        QVERIFY(!facts.isCountComplete);
    }

    void countThatIsCutOffSaysSo() {
        QMutex holding;
        holding.lock();
        isUnread_ = [&holding](const QString &) {
            const QMutexLocker wait(&holding);
            return true;
        };
        for (const QString &name : {u"/a.pdf"_s, u"/b.pdf"_s}) {
            writeFile(personal_ + u"/Receipts"_s + name, "x");
        }
        const FolderFacts facts = look(personal_ + u"/Receipts"_s, std::chrono::milliseconds(20));
        holding.unlock();
        QVERIFY(!facts.isCountComplete);
        QVERIFY(needsConsent(facts));
        threads_->end();
    }

    void networkThatIsGoneIsNotWaitedFor() {
        if (!canMountDeadNetwork) {
            QSKIP("Nothing can be mounted here.");
        }
        const DeadFileSystem dead(personal_ + u"/Receipts"_s);
        QVERIFY(dead.isMounted());
        const FolderFacts facts = look(personal_ + u"/Receipts"_s, std::chrono::milliseconds(20));
        QVERIFY(needsConsent(facts));
    }

private:
    FolderFacts look(const QString &folder, std::chrono::milliseconds limit = unhurried) {
        FolderSurvey survey(threads_.get(), isUnread_, limit);
        std::optional<FolderFacts> facts;
        connect(&survey, &FolderSurvey::finished, this,
                [&facts](const FolderFacts &found) { facts = found; });
        survey.start(folder);
        if (facts || !waitUntil([&facts] { return facts.has_value(); })) {
            qFatal("The survey ends too early or never.");
        }
        return *facts;
    }

    std::unique_ptr<TemporaryHome> home_;
    QString personal_;
    std::unique_ptr<FolderThreads> threads_;
    FolderSurvey::IsUnread isUnread_ = [](const QString &) {
        return true;
    };
};

int folder_survey_test(int argc, char **argv) {
    canMountDeadNetwork = enterPrivateNamespace().canMount;
    return runTest<QCoreApplication, FolderSurveyTest>(argc, argv);
}
#include "folder_survey_test.moc"
