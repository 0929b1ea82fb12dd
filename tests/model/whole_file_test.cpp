#include "model/whole_file.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>

using namespace fennick;
using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

namespace {

// The administrator may do anything; for as long as this lives the test is somebody else, who owns `folder`.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const QString &folder) {
        constexpr uid_t nobody = 65534;
        isAdministrator_ = ::geteuid() == 0;
        if (isAdministrator_) {
            const QByteArray path = QFile::encodeName(folder);
            if (::chown(path.constData(), nobody, nobody) != 0 || ::setresuid(nobody, nobody, 0) != 0) {
                qFatal("the test cannot become another user");
            }
        }
    }
    ~OrdinaryUser() {
        if (isAdministrator_ && ::setresuid(0, 0, 0) != 0) {
            qFatal("the test cannot become the administrator again");
        }
    }

private:
    bool isAdministrator_ = false;
};

} // namespace

class WholeFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        path_ = folder_->filePath(u"list.json"_s);
    }

    void missingFileIsEmptyAndIsMadePrivate() {
        WholeFile file(path_);
        QVERIFY(file.content().isEmpty());
        file.setDamaged(); // there is nothing to keep
        QVERIFY(file.rewrite("new"));
        QCOMPARE(names(), QStringList{u"list.json"_s});
        QCOMPARE(readFile(path_), "new");
        QCOMPARE(QFileInfo(path_).permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
    }

    void damagedFileIsNamedAfterTheMoment() {
        writeFile(path_, "damaged");
        WholeFile file(path_);
        file.setDamaged();
        QVERIFY(file.rewrite("new"));
        QCOMPARE(names().size(), 2);
        static const QRegularExpression name(
            u"^list\\.json\\.damaged-\\d{4}-\\d\\d-\\d\\dT\\d\\d-\\d\\d-\\d\\d$"_s);
        QVERIFY2(name.match(names().last()).hasMatch(), qPrintable(names().last()));
        QCOMPARE(readFile(folder_->filePath(names().last())), "damaged");
        QCOMPARE(readFile(path_), "new");
    }

    void furtherDamageWithinASecondReplacesNothing() {
        for (const char *const content : {"first", "second", "third", "fourth"}) {
            writeFile(path_, content);
            WholeFile file(path_);
            file.setDamaged();
            QVERIFY(file.rewrite("new"));
        }
        QCOMPARE(names().size(), 5);
        QSet<QByteArray> kept;
        for (const QString &name : names().mid(1)) {
            kept.insert(readFile(folder_->filePath(name)));
        }
        QCOMPARE(kept, (QSet<QByteArray>{"first", "second", "third", "fourth"}));
    }

    void fileWithoutWritePermissionIsReplaced() {
        writeFile(path_, "old");
        QVERIFY(QFile::setPermissions(path_, QFile::ReadOwner));
        const OrdinaryUser user(folder_->path());
        WholeFile file(path_);
        QVERIFY(file.rewrite("new"));
        QCOMPARE(readFile(path_), "new");
        QCOMPARE(names(), QStringList{u"list.json"_s});
    }

    void fileInAFolderThatMayNotBeWrittenStays() {
        writeFile(path_, "old");
        const OrdinaryUser user(folder_->path());
        QVERIFY(QFile::setPermissions(folder_->path(), QFile::ReadOwner | QFile::ExeOwner));
        const auto saved = WholeFile(path_).rewrite("new");
        QVERIFY(
            QFile::setPermissions(folder_->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QCOMPARE(saved.error().description(), u"Permission denied"_s);
        QCOMPARE(readFile(path_), "old");
    }

    void pipeIsNotWaitedFor() {
        QCOMPARE(::mkfifo(QFile::encodeName(path_).constData(), 0600), 0);
        QVERIFY(WholeFile(path_).content().isEmpty());
    }

    void targetOfALinkIsReplaced() {
        const QString target = folder_->filePath(u"target.json"_s);
        writeFile(target, "old");
        QVERIFY(QFile::link(target, path_));
        QCOMPARE(WholeFile(path_).content(), "old");
        QVERIFY(WholeFile(path_).rewrite("new"));
        QCOMPARE(readFile(target), "new");
        QVERIFY(QFileInfo(path_).isSymLink());
    }

    void damagedFileThatCannotBeSetAsideIsNotOverwritten() {
        const QString longName = QString(240, u'n'); // leaves no room for the ending
        path_ = folder_->filePath(longName);
        writeFile(path_, "damaged");
        WholeFile file(path_);
        file.setDamaged();
        QVERIFY(!file.rewrite("new"));
        QCOMPARE(names(), QStringList{longName});
        QCOMPARE(readFile(path_), "damaged");
    }

private:
    QStringList names() const { return QDir(folder_->path()).entryList(QDir::Files, QDir::Name); }

    std::unique_ptr<QTemporaryDir> folder_;
    QString path_;
};

int whole_file_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, WholeFileTest>(argc, argv);
}
#include "whole_file_test.moc"
