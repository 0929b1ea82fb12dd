#include "platform/file_operations.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "text/path_text.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/stat.h>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class FileOperationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        elsewhere_ = std::make_unique<QTemporaryDir>(u"/dev/shm/fennick-test-XXXXXX"_s);
        writeFile(path("source.pdf"), "source");
    }

    void fileIsMoved_data() { addPlaces(); }
    void fileIsMoved() {
        QFETCH(bool, isElsewhere);
        const QString target = place(isElsewhere) + u"/target.pdf"_s;
        QVERIFY(FileOperations::moveWithoutReplacing(path("source.pdf"), target));
        QCOMPARE(readFile(target), "source");
        QVERIFY(!QFile::exists(path("source.pdf")));
        QCOMPARE(entries(place(isElsewhere)), QStringList{u"target.pdf"_s});
    }

    void nothingIsReplaced_data() { addPlaces(); }
    void nothingIsReplaced() {
        QFETCH(bool, isElsewhere);
        const QString target = place(isElsewhere) + u"/target.pdf"_s;
        writeFile(target, "other");
        QVERIFY(!FileOperations::moveWithoutReplacing(path("source.pdf"), target));
        QVERIFY(!FileOperations::copyDurably(path("source.pdf"), target));
        QCOMPARE(readFile(target), "other");
        QCOMPARE(readFile(path("source.pdf")), "source");
        QVERIFY(entries(place(isElsewhere)).filter(u".moving-"_s).isEmpty());
    }

    void nameWithANullCharacterIsNoOtherName_data() { addPlaces(); }
    void nameWithANullCharacterIsNoOtherName() {
        QFETCH(bool, isElsewhere);
        writeFile(place(isElsewhere) + u"/target"_s, "other");
        const QString target = place(isElsewhere) + u"/target"_s + QChar(QChar::Null) + u".pdf"_s;
        QVERIFY(!FileOperations::moveWithoutReplacing(path("source.pdf"), target));
        QVERIFY(!FileOperations::copyDurably(path("source.pdf"), target));
        QCOMPARE(readFile(place(isElsewhere) + u"/target"_s), "other");
        QCOMPARE(readFile(path("source.pdf")), "source");
    }

    void partsOfMovesAreRemovedWhileTheirSourcesAreThere() {
        for (const QString &name : {partOf("source.pdf"), u".moving-0123"_s, u".other"_s, u"moving-1"_s}) {
            writeFile(folder_->filePath(name), "x");
        }
        FileOperations::finishInterruptedMoves(folder_->path(), {path("source.pdf"), path("other.pdf")});
        QCOMPARE(entries(folder_->path()),
                 (QStringList{u".moving-0123"_s, u".other"_s, u"moving-1"_s, u"source.pdf"_s}));
    }

    void partThatIsTheOnlyCopyGetsItsName() {
        const QString archive = place(false);
        writeFile(joinedPath(archive, partOf("gone.pdf")), "the only copy");
        writeFile(joinedPath(archive, u"gone.pdf"_s), "another");
        FileOperations::finishInterruptedMoves(archive, {path("source.pdf"), path("gone.pdf")});
        QCOMPARE(entries(archive), (QStringList{u"gone (2).pdf"_s, u"gone.pdf"_s}));
        QCOMPARE(readFile(joinedPath(archive, u"gone (2).pdf"_s)), "the only copy");
    }

    void timeOfTheLastChangeIsKept_data() { addPlaces(); }
    void timeOfTheLastChangeIsKept() {
        QFETCH(bool, isElsewhere);
        const QDateTime moment(QDate(2020, 2, 29), QTime(12, 30, 15));
        {
            QFile file(path("source.pdf"));
            QVERIFY(file.open(QIODevice::ReadWrite) &&
                    file.setFileTime(moment, QFileDevice::FileModificationTime));
        }
        const QString target = place(isElsewhere) + u"/target.pdf"_s;
        QVERIFY(FileOperations::moveWithoutReplacing(path("source.pdf"), target));
        QCOMPARE(QFileInfo(target).lastModified(), moment);
    }

    void linkIsMovedAsALink_data() { addPlaces(); }
    void linkIsMovedAsALink() {
        QFETCH(bool, isElsewhere);
        const QString target = place(isElsewhere) + u"/target.pdf"_s;
        QVERIFY(QFile::link(path("source.pdf"), path("link.pdf")));
        QVERIFY(FileOperations::moveWithoutReplacing(path("link.pdf"), target));
        QCOMPARE(QFileInfo(target).symLinkTarget(), path("source.pdf"));
        QVERIFY(!QFileInfo(path("link.pdf")).isSymLink());
        QCOMPARE(readFile(path("source.pdf")), "source");
    }

    void folderIsMovedWithAllThatIsInIt_data() { addPlaces(); }
    void folderIsMovedWithAllThatIsInIt() {
        QFETCH(bool, isElsewhere);
        const QString target = place(isElsewhere) + u"/folder.pdf"_s;
        writeFile(path("folder.pdf/a.txt"), "a");
        writeFile(path("folder.pdf/.hidden/b.txt"), "b");
        QVERIFY(QFile::link(u"a.txt"_s, path("folder.pdf/link")));
        QVERIFY(FileOperations::moveWithoutReplacing(path("folder.pdf"), target));
        QCOMPARE(readFile(target + u"/a.txt"_s), "a");
        QCOMPARE(readFile(target + u"/.hidden/b.txt"_s), "b");
        QVERIFY(QFileInfo(target + u"/link"_s).isSymLink());
        QVERIFY(!QFileInfo::exists(path("folder.pdf")));
    }

    void folderThatCannotBeCopiedWholeStays() {
        writeFile(path("folder.pdf/a.txt"), "a");
        QCOMPARE(::mkfifo(QFile::encodeName(path("folder.pdf/pipe")).constData(), 0600), 0);
        const QString target = elsewhere_->filePath(u"folder.pdf"_s);
        QVERIFY(!FileOperations::moveWithoutReplacing(path("folder.pdf"), target));
        QCOMPARE(readFile(path("folder.pdf/a.txt")), "a");
        QVERIFY(QDir(elsewhere_->path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    void sourceBehindALinkIsNotMoved_data() { addPlaces(); }
    void sourceBehindALinkIsNotMoved() {
        QFETCH(bool, isElsewhere);
        writeFile(path("documents/thesis.pdf"), "my thesis");
        QDir().mkpath(path("watched"));
        QVERIFY(QFile::link(path("documents"), path("watched/sub")));
        QVERIFY(!FileOperations::moveWithoutReplacing(path("watched/sub/thesis.pdf"),
                                                      place(isElsewhere) + u"/x.pdf"_s, path("watched")));
        QCOMPARE(readFile(path("documents/thesis.pdf")), "my thesis");
    }

    void onlyRegularFilesAreCopied() {
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.pdf")).constData(), 0600), 0);
        QVERIFY(QFile::link(path("source.pdf"), path("link.pdf")));
        for (const char *const name : {"pipe.pdf", "link.pdf", "missing.pdf"}) {
            QVERIFY(!FileOperations::copyDurably(path(name), path("copy.pdf")));
            QVERIFY(!QFileInfo::exists(path("copy.pdf")));
        }
    }

    void foldersAreMadeWithThoseAboveThem() {
        const QString deep = path("one/two/three");
        QVERIFY(FileOperations::makeFolder(deep));
        QVERIFY(FileOperations::makeFolder(deep + u'/'));
        QVERIFY(QFileInfo(deep).isDir());
        QCOMPARE(FileOperations::makeFolder(path("source.pdf/below")).error().description(),
                 u"Not a directory"_s);
        QVERIFY(!FileOperations::makeFolder(path("source.pdf")));
    }

private:
    static void addPlaces() {
        QTest::addColumn<bool>("isElsewhere");
        QTest::newRow("in the same file system") << false;
        QTest::newRow("on another file system") << true;
    }

    // As a move that was cut off calls its copy.
    QString partOf(const char *source) const {
        const QByteArray hash =
            QCryptographicHash::hash(path(source).toUtf8(), QCryptographicHash::Sha1).toHex();
        return u".moving-"_s + QString::fromLatin1(hash) + u"-1"_s;
    }

    QString path(const char *name) const { return folder_->filePath(QString::fromUtf8(name)); }
    QString place(bool isElsewhere) const {
        const QString below = folder_->filePath(u"below"_s);
        QDir().mkpath(below);
        return isElsewhere ? elsewhere_->path() : below;
    }

    static QStringList entries(const QString &folder) {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<QTemporaryDir> elsewhere_;
};

int file_operations_test(int argc, char **argv) {
    return runTest<QCoreApplication, FileOperationsTest>(argc, argv);
}
#include "file_operations_test.moc"
