#include "platform/regular_file.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

using Kind = FileProblem::Kind;

// Files are opened once, and only if they are what they were taken for.
class RegularFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        writeFile(path("watched/receipt.pdf"), "a receipt");
        writeFile(path("secret/id_rsa"), "a key");
        writeFile(path("secret/receipt.pdf"), "a letter");
    }

    void wholeContentIsRead() {
        const OpenedFile file = openRegularFile(path("watched/receipt.pdf"));
        QVERIFY(file);
        QCOMPARE(readWhole(**file), QByteArray("a receipt"));
    }

    void linkIsNotFollowed_data() {
        QTest::addColumn<QString>("target");
        QTest::newRow("to a file") << path("secret/id_rsa");
        QTest::newRow("to nothing") << path("nowhere");
        QTest::newRow("to itself") << path("watched/x.pdf");
    }
    void linkIsNotFollowed() {
        QFETCH(QString, target);
        QVERIFY(QFile::link(target, path("watched/x.pdf")));
        QCOMPARE(fileStateAt(path("watched/x.pdf")).kind, FileKind::link);
        const OpenedFile file = openRegularFile(path("watched/x.pdf"));
        QCOMPARE(file.error().kind, Kind::link);
        QCOMPARE(file.error().description(),
                 u"The file is a link. Put the file itself into the folder to scan it."_s);
    }

    void linkInPlaceOfAFolderIsNotFollowed() {
        QVERIFY(QFile::link(path("secret"), path("watched/sub")));
        FileToRead wanted(path("watched/sub/receipt.pdf"));
        wanted.folder = path("watched");
        QCOMPARE(openRegularFile(wanted).error().kind, Kind::link);
        wanted.path = path("watched/receipt.pdf");
        QVERIFY(openRegularFile(wanted));
    }

    void watchedFolderItselfMayBeALink() {
        QVERIFY(QFile::link(path("watched"), path("linked")));
        FileToRead wanted(path("linked/receipt.pdf"));
        wanted.folder = path("linked");
        QVERIFY(openRegularFile(wanted));
    }

    void onlyRegularFilesAreOpened_data() {
        QTest::addColumn<QString>("name");
        for (const char *const name : {"watched", "pipe.pdf", "socket.pdf"}) {
            QTest::newRow(name) << QString::fromUtf8(name);
        }
    }
    void onlyRegularFilesAreOpened() {
        QFETCH(QString, name);
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.pdf")).constData(), 0600), 0);
        makeSocket(path("socket.pdf"));
        QVERIFY(!openRegularFile(folder_->filePath(name))); // and at once
    }

    void anotherFileOfTheSameNameIsNotTheOneThatWasSeen() {
        FileToRead wanted(path("watched/receipt.pdf"));
        wanted.identity = fileStateAt(wanted.path).identity;
        QVERIFY(openRegularFile(wanted));
        QVERIFY(QFile::rename(wanted.path, path("watched/first.pdf")));
        writeFile(wanted.path, "a receipt");
        QCOMPARE(openRegularFile(wanted).error().kind, Kind::replaced);
    }

    void giantsAreRefused() {
        const QString giant = path("giant.pdf");
        QVERIFY(QFile(giant).open(QIODevice::WriteOnly) && QFile::resize(giant, 100'000'000));
        QVERIFY(openRegularFile(giant));
        QVERIFY(!problemOf(fileStateAt(giant)));
        QVERIFY(QFile::resize(giant, 100'000'001));
        QCOMPARE(openRegularFile(giant).error().description(), u"The file is larger than 100 MB."_s);
        QCOMPARE(problemOf(fileStateAt(giant))->kind, Kind::tooLarge);
    }

    void fileThatShrinksOrGrowsWhileItIsReadIsNotWhole() {
        const OpenedFile shrinking = openRegularFile(path("watched/receipt.pdf"));
        QVERIFY(QFile::resize(path("watched/receipt.pdf"), 4));
        QCOMPARE(readExactly(**shrinking, 9).error().kind, Kind::replaced);
        const OpenedFile growing = openRegularFile(path("watched/receipt.pdf"));
        QVERIFY(readExactly(**growing, 4));
        QVERIFY(expectEnd(**growing));
        QVERIFY(QFile::resize(path("watched/receipt.pdf"), 5));
        QVERIFY(!expectEnd(**growing));
    }

private:
    QString path(const char *name) const { return folder_->filePath(QString::fromUtf8(name)); }

    static void makeSocket(const QString &path) {
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, QFile::encodeName(path).constData(), sizeof address.sun_path);
        QCOMPARE(::bind(socket, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
        ::close(socket);
    }

    std::unique_ptr<QTemporaryDir> folder_ = std::make_unique<QTemporaryDir>();
};

int regular_file_test(int argc, char **argv) {
    return runTest<QCoreApplication, RegularFileTest>(argc, argv);
}
#include "regular_file_test.moc"
