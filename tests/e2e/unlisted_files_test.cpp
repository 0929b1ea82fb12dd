#include "support/test_program.h"
#include "user_session.h"

#include <QCoreApplication>
#include <QDir>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

// Longer than debounce, stability wait and one batch of the watcher together.
constexpr int longEnoughToBeTakenIn = 1500;

const QString early = u"early-"_s;
const QString late = u"late-"_s;
const QByteArray accepted = "the one that is taken in";

} // namespace

// Files that are left alone without a word: no row, no request. Another file beside them is taken in, so the
// program was there to see them.
class UnlistedFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { session_.renew(); }
    void cleanup() { QVERIFY(session_.end()); }

    void otherKinds() {
        lieThereAndArrive([this](const QString &when) {
            for (const QString &name : {u"notes.txt"_s, u"scan.tiff"_s, u"receipt"_s, u"a.pdf.zip"_s,
                                        u"pdf"_s, u"a."_s, u"a.pdf "_s, u"a.pdf~"_s}) {
                session_.drop(when + name);
            }
            session_.drop(u".pdf"_s);
        });
        checkOnlyAcceptedIsListed();
    }

    void emptyFiles() {
        lieThereAndArrive([this](const QString &when) {
            session_.drop(when + u"a.pdf"_s, "");
            session_.drop(when + u"b.jpg"_s, "");
        });
        checkOnlyAcceptedIsListed();
    }

    void archivedFiles() {
        session_.setPreference("archiveFolder", session_.path(u"Done"_s).toUtf8());
        lieThereAndArrive([this](const QString &when) {
            session_.drop(u"Receipt Archive/2025-03-03/"_s + when + u"a.pdf"_s);
            session_.drop(u"sub/Receipt Archive/"_s + when + u"b.pdf"_s);
            session_.drop(u"Done/"_s + when + u"c.pdf"_s);
            session_.drop(u"Done/deep/"_s + when + u"d.pdf"_s);
        });
        checkOnlyAcceptedIsListed();
    }

    void ignoredFiles() {
        QByteArray ignored = "[\"" + session_.path(early + u"cleared.pdf"_s).toUtf8() + "\",\"" +
                             session_.path(late + u"cleared.pdf"_s).toUtf8() + "\"]";
        ignored.replace("/", "\\/");
        writeFile(session_.home.ignoredFile(), ignored);
        lieThereAndArrive([this](const QString &when) { session_.drop(when + u"cleared.pdf"_s); });
        checkOnlyAcceptedIsListed();
        QCOMPARE(readFile(session_.home.ignoredFile()), ignored);
    }

    void hiddenFilesThatLieThere() {
        session_.drop(u".hidden.pdf"_s);
        session_.drop(u".folder/a.pdf"_s);
        session_.drop(u"sub/.folder/deep/b.pdf"_s);
        session_.drop(u"accepted.pdf"_s, accepted);
        QVERIFY(session_.start());
        checkOnlyAcceptedIsListed();
    }

    void folderNamedLikeAReceiptThatLiesThere() {
        QDir().mkpath(session_.path(u"folder.pdf"_s));
        session_.drop(u"accepted.pdf"_s, accepted);
        QVERIFY(session_.start());
        checkOnlyAcceptedIsListed();
    }

    void vanishedFiles() {
        QVERIFY(session_.start());
        QFile::remove(session_.drop(u"at-once.pdf"_s));
        const QString later = session_.drop(u"during-the-wait.pdf"_s);
        letTimePass(500);
        QFile::remove(later);
        session_.drop(u"accepted.pdf"_s, accepted);
        checkOnlyAcceptedIsListed();
    }

    void fileThatIsListedAlready() {
        QVERIFY(session_.start());
        session_.drop(u"accepted.pdf"_s, accepted);
        QVERIFY(session_.waitFor([this] { return !session_.row(lunchName).isEmpty(); }));
        session_.drop(lunchName, "written to under its new name");
        checkOnlyAcceptedIsListed();
    }

private:
    // Puts files there before the start and more after it, and then the one that is taken in.
    template <typename Drop>
    void lieThereAndArrive(Drop drop) {
        drop(early);
        QVERIFY(session_.start());
        drop(late);
        session_.drop(u"accepted.pdf"_s, accepted);
    }

    void checkOnlyAcceptedIsListed() {
        QVERIFY(session_.waitForRows(1, u"done"_s));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(session_.sentDocuments(), QList<QByteArray>{accepted});
        QCOMPARE(session_.rows().size(), 1);
        QCOMPARE(session_.rows().first().value(u"fileName").toString(), lunchName);
    }

    UserSession session_;
};

int unlisted_files_test(int argc, char **argv) {
    return runTest<QCoreApplication, UnlistedFilesTest>(argc, argv);
}
#include "unlisted_files_test.moc"
