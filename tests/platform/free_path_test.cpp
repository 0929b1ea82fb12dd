#include "platform/free_path.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// A new file never gets a name that something else has.
class FreePathTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void nameItselfIsFreeInAnEmptyFolder() {
        QCOMPARE(freePath(folder_->path(), u"a.pdf"_s), path(u"a.pdf"_s));
        QCOMPARE(freePath(folder_->path() + u'/', u"a"_s, u"pdf"_s), path(u"a.pdf"_s));
        QCOMPARE(freePath(folder_->path(), u"a"_s, QString()), path(u"a"_s));
    }

    void firstFreeNumberGoesBeforeTheExtension_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("second");
        QTest::addColumn<QString>("third");
        QTest::newRow("extension") << u"a.pdf"_s << u"a (2).pdf"_s << u"a (3).pdf"_s;
        QTest::newRow("none") << u"a"_s << u"a (2)"_s << u"a (3)"_s;
        QTest::newRow("hidden") << u".pdf"_s << u".pdf (2)"_s << u".pdf (3)"_s;
        QTest::newRow("dot at the end") << u"a."_s << u"a. (2)"_s << u"a. (3)"_s;
    }
    void firstFreeNumberGoesBeforeTheExtension() {
        QFETCH(QString, name);
        QFETCH(QString, second);
        QFETCH(QString, third);
        writeFile(path(name), "first");
        QCOMPARE(freePath(folder_->path(), name), path(second));
        writeFile(path(second), "second");
        QCOMPARE(freePath(folder_->path(), name), path(third));
    }

    void stemKeepsItsDots() {
        writeFile(path(u"a.b"_s), "taken");
        QCOMPARE(freePath(folder_->path(), u"a.b"_s, QString()), path(u"a.b (2)"_s));
    }

    void folderAndLinkWithoutTargetHoldTheirNames() {
        QVERIFY(QDir().mkdir(path(u"folder.pdf"_s)));
        QVERIFY(QFile::link(path(u"nowhere"_s), path(u"link.pdf"_s)));
        QCOMPARE(freePath(folder_->path(), u"folder.pdf"_s), path(u"folder (2).pdf"_s));
        QCOMPARE(freePath(folder_->path(), u"link.pdf"_s), path(u"link (2).pdf"_s));
    }

private:
    QString path(const QString &name) const { return folder_->path() + u'/' + name; }

    std::unique_ptr<QTemporaryDir> folder_;
};

int free_path_test(int argc, char **argv) {
    return runTestWithoutApplication<FreePathTest>(argc, argv);
}
#include "free_path_test.moc"
