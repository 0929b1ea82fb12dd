#include "platform/file_operations.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <memory>

using namespace fennick;
using namespace fennick::test;

class FileOperationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        elsewhere_ = std::make_unique<QTemporaryDir>(QStringLiteral("/dev/shm/fennick-test-XXXXXX"));
        writeFile(path("source.pdf"), "source");
    }

    void fileIsMoved_data() { addPlaces(); }
    void fileIsMoved() {
        QFETCH(bool, isElsewhere);
        const QString target = place(isElsewhere) + QStringLiteral("/target.pdf");
        QVERIFY(FileOperations::moveWithoutReplacing(path("source.pdf"), target));
        QCOMPARE(readFile(target), "source");
        QVERIFY(!QFile::exists(path("source.pdf")));
        QCOMPARE(entries(place(isElsewhere)), QStringList{QStringLiteral("target.pdf")});
    }

    void nothingIsReplaced_data() { addPlaces(); }
    void nothingIsReplaced() {
        QFETCH(bool, isElsewhere);
        const QString target = place(isElsewhere) + QStringLiteral("/target.pdf");
        writeFile(target, "other");
        QVERIFY(!FileOperations::moveWithoutReplacing(path("source.pdf"), target));
        QVERIFY(!FileOperations::copyDurably(path("source.pdf"), target));
        QCOMPARE(readFile(target), "other");
        QCOMPARE(readFile(path("source.pdf")), "source");
        QVERIFY(entries(place(isElsewhere)).filter(QStringLiteral(".moving-")).isEmpty());
    }

    void nameWithANullCharacterIsNoOtherName_data() { addPlaces(); }
    void nameWithANullCharacterIsNoOtherName() {
        QFETCH(bool, isElsewhere);
        writeFile(place(isElsewhere) + QStringLiteral("/target"), "other");
        const QString target =
            place(isElsewhere) + QStringLiteral("/target") + QChar(QChar::Null) + QStringLiteral(".pdf");
        QVERIFY(!FileOperations::moveWithoutReplacing(path("source.pdf"), target));
        QVERIFY(!FileOperations::copyDurably(path("source.pdf"), target));
        QCOMPARE(readFile(place(isElsewhere) + QStringLiteral("/target")), "other");
        QCOMPARE(readFile(path("source.pdf")), "source");
    }

    void partsOfMovesAreRemovedAndNothingElse() {
        for (const char *const name : {".moving-0123", ".other", "moving-1"}) {
            writeFile(path(name), "x");
        }
        FileOperations::removePartsOfMoves(folder_->path());
        QCOMPARE(entries(folder_->path()), (QStringList{QStringLiteral(".other"), QStringLiteral("moving-1"),
                                                        QStringLiteral("source.pdf")}));
    }

private:
    static void addPlaces() {
        QTest::addColumn<bool>("isElsewhere");
        QTest::newRow("in the same file system") << false;
        QTest::newRow("on another file system") << true;
    }

    QString path(const char *name) const { return folder_->filePath(QString::fromUtf8(name)); }
    QString place(bool isElsewhere) const {
        const QString below = folder_->filePath(QStringLiteral("below"));
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
