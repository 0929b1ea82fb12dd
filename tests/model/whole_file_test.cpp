#include "model/whole_file.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <memory>

using namespace fennick;
using test::readFile;
using test::writeFile;

class WholeFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        path_ = folder_->filePath(QStringLiteral("list.json"));
    }

    void missingFileIsEmptyAndIsMadePrivate() {
        WholeFile file(path_);
        QVERIFY(file.content().isEmpty());
        file.setDamaged(); // there is nothing to keep
        file.rewrite("new");
        QCOMPARE(names(), QStringList{QStringLiteral("list.json")});
        QCOMPARE(readFile(path_), "new");
        QCOMPARE(QFileInfo(path_).permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
    }

    void damagedFileIsNamedAfterTheMoment() {
        writeFile(path_, "damaged");
        WholeFile file(path_);
        file.setDamaged();
        file.rewrite("new");
        QCOMPARE(names().size(), 2);
        static const QRegularExpression name(
            QStringLiteral("^list\\.json\\.damaged-\\d{4}-\\d\\d-\\d\\dT\\d\\d-\\d\\d-\\d\\d$"));
        QVERIFY2(name.match(names().last()).hasMatch(), qPrintable(names().last()));
        QCOMPARE(readFile(folder_->filePath(names().last())), "damaged");
        QCOMPARE(readFile(path_), "new");
    }

    void secondDamageWithinASecondReplacesNothing() {
        for (const char *const content : {"first", "second"}) {
            writeFile(path_, content);
            WholeFile file(path_);
            file.setDamaged();
            file.rewrite("new");
        }
        QCOMPARE(names().size(), 3);
        QSet<QByteArray> kept;
        for (const QString &name : names().mid(1)) {
            kept.insert(readFile(folder_->filePath(name)));
        }
        QCOMPARE(kept, (QSet<QByteArray>{"first", "second"}));
    }

    void damagedFileThatCannotBeSetAsideIsNotOverwritten() {
        const QString longName = QString(240, u'n'); // leaves no room for the ending
        path_ = folder_->filePath(longName);
        writeFile(path_, "damaged");
        WholeFile file(path_);
        file.setDamaged();
        file.rewrite("new");
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
