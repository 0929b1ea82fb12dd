#include "support/test_program.h"
#include "text/path_text.h"

#include <QCoreApplication>

using namespace fennick;
using namespace Qt::StringLiterals;

class PathTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void splitsNamesAtTheLastDot_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("stem");
        QTest::addColumn<QString>("extension");
        const auto add = [](const char *path, const char *stem, const char *extension) {
            QTest::newRow(path) << QString::fromUtf8(path) << QString::fromUtf8(stem)
                                << QString::fromUtf8(extension);
        };
        add("/a/b/scan.pdf", "scan", "pdf");
        add("a.b.pdf", "a.b", "pdf");
        add("/a.b/scan", "scan", "");
        add("scan.", "scan.", "");
        add(".pdf", ".pdf", "");
        add(".hidden.PDF", ".hidden", "PDF");
        add("", "", "");
        add("/a/b/", "", "");
    }
    void splitsNamesAtTheLastDot() {
        QFETCH(QString, path);
        QTEST(nameWithoutExtension(path), "stem");
        QTEST(pathExtension(path), "extension");
    }

    void joinedNameStaysInItsFolder_data() {
        QTest::addColumn<QString>("name");
        for (const char *const name : {"a.pdf", ":a.pdf", "::.pdf", ":", "~", " "}) {
            QTest::newRow(name) << QString::fromUtf8(name);
        }
    }
    void joinedNameStaysInItsFolder() {
        QFETCH(QString, name);
        QCOMPARE(joinedPath(u"/w"_s, name), u"/w/"_s + name);
        QCOMPARE(joinedPath(u"/w/"_s, name), u"/w/"_s + name);
        QCOMPARE(joinedPath(u"/"_s, name), u'/' + name);
        QCOMPARE(lastPathComponent(joinedPath(u"/w"_s, name)), name);
        QCOMPARE(parentFolder(joinedPath(u"/w"_s, name)), u"/w"_s);
        QCOMPARE(parentFolder(u'/' + name), u"/"_s);
    }

    void lastComponentIsWhatFollowsTheLastSlash() {
        QCOMPARE(lastPathComponent(u"/a/b.pdf"_s), u"b.pdf"_s);
        QCOMPARE(lastPathComponent(u"b.pdf"_s), u"b.pdf"_s);
    }
};

int path_text_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, PathTextTest>(argc, argv);
}
#include "path_text_test.moc"
