#include "user_session.h"

#include <QDir>
#include <QTest>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

// Longer than debounce, stability wait and one batch of the watcher together.
constexpr int longEnoughToBeTakenIn = 1500;

const QByteArray accepted = "the one that is taken in";

} // namespace

// Files that are left alone without a word: no row, no request. Another file beside them is taken in, so the
// program was there to see them.
class UnlistedFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { session_.renew(); }
    void cleanup() { QVERIFY(session_.end()); }

    void otherKinds_data() { addTimes(); }
    void otherKinds() {
        lieThereOrArrive([this] {
            for (const QString &name : {u"notes.txt"_s, u"scan.tiff"_s, u"receipt"_s, u"a.pdf.zip"_s,
                                        u"pdf"_s, u".pdf"_s, u"a."_s, u"a.pdf "_s, u"a.pdf~"_s}) {
                session_.drop(name);
            }
        });
        checkOnlyAcceptedIsListed();
    }

    void emptyFiles_data() { addTimes(); }
    void emptyFiles() {
        lieThereOrArrive([this] {
            session_.drop(u"a.pdf"_s, "");
            session_.drop(u"b.jpg"_s, "");
        });
        checkOnlyAcceptedIsListed();
    }

    void archivedFiles_data() { addTimes(); }
    void archivedFiles() {
        session_.setPreference("archiveFolder", session_.path(u"Done"_s).toUtf8());
        lieThereOrArrive([this] {
            session_.drop(u"Receipt Archive/2025-03-03/a.pdf"_s);
            session_.drop(u"sub/Receipt Archive/b.pdf"_s);
            session_.drop(u"Done/c.pdf"_s);
            session_.drop(u"Done/deep/d.pdf"_s);
        });
        checkOnlyAcceptedIsListed();
    }

    void linksToNothing_data() { addTimes(); }
    void linksToNothing() {
        lieThereOrArrive(
            [this] { QFile::link(session_.path(u"nowhere.pdf"_s), session_.path(u"link.pdf"_s)); });
        checkOnlyAcceptedIsListed();
    }

    void ignoredFiles_data() { addTimes(); }
    void ignoredFiles() {
        const QByteArray path = session_.path(u"cleared.pdf"_s).toUtf8();
        writeFile(session_.home.ignoredFile(), "[\"" + QByteArray(path).replace("/", "\\/") + "\"]");
        lieThereOrArrive([this] { session_.drop(u"cleared.pdf"_s); });
        checkOnlyAcceptedIsListed();
        QCOMPARE(readFile(session_.home.ignoredFile()), "[\"" + QByteArray(path).replace("/", "\\/") + "\"]");
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
        QVERIFY(session_.waitForRows(1, u"done"_s));
        session_.drop(lunchName, "written to under its new name");
        checkOnlyAcceptedIsListed();
    }

private:
    static void addTimes() {
        QTest::addColumn<bool>("isThereAtTheStart");
        QTest::newRow("there at the start") << true;
        QTest::newRow("arriving later") << false;
    }

    // Puts the files there before or after the start, and the one that is taken in with them.
    template <typename Drop>
    void lieThereOrArrive(Drop drop) {
        QFETCH(bool, isThereAtTheStart);
        if (!isThereAtTheStart) {
            QVERIFY(session_.start());
        }
        drop();
        session_.drop(u"accepted.pdf"_s, accepted);
        if (isThereAtTheStart) {
            QVERIFY(session_.start());
        }
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

QTEST_GUILESS_MAIN(UnlistedFilesTest)
#include "unlisted_files_test.moc"
