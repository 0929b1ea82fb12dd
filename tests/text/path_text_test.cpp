#include "support/test_program.h"
#include "text/path_text.h"

#include <QCoreApplication>

using namespace fennick;

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
        QCOMPARE(joinedPath(QStringLiteral("/w"), name), QStringLiteral("/w/") + name);
        QCOMPARE(joinedPath(QStringLiteral("/w/"), name), QStringLiteral("/w/") + name);
        QCOMPARE(joinedPath(QStringLiteral("/"), name), u'/' + name);
        QCOMPARE(lastPathComponent(joinedPath(QStringLiteral("/w"), name)), name);
        QCOMPARE(parentFolder(joinedPath(QStringLiteral("/w"), name)), QStringLiteral("/w"));
        QCOMPARE(parentFolder(u'/' + name), QStringLiteral("/"));
    }

    void lastComponentIsWhatFollowsTheLastSlash() {
        QCOMPARE(lastPathComponent(QStringLiteral("/a/b.pdf")), QStringLiteral("b.pdf"));
        QCOMPARE(lastPathComponent(QStringLiteral("b.pdf")), QStringLiteral("b.pdf"));
    }
};

int path_text_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, PathTextTest>(argc, argv);
}
#include "path_text_test.moc"
