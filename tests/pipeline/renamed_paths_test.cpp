#include "pipeline/renamed_paths.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

class RenamedPathsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void exclusionOfARenamedPathLastsFiveSeconds() {
        RenamedPaths renamed;
        const auto start = std::chrono::steady_clock::now();
        const QString path = u"/w/a.pdf"_s;
        renamed.insert(path, start);
        QVERIFY(renamed.contains(path, start + milliseconds(4999)));
        QVERIFY(!renamed.contains(path, start + milliseconds(5000)));
        QVERIFY(!renamed.contains(u"/w/A.pdf"_s, start));
        renamed.insert(path, start + milliseconds(3000)); // counts anew
        QVERIFY(renamed.contains(path, start + milliseconds(7999)));
    }
};

int renamed_paths_test(int argc, char **argv) {
    return runTestWithoutApplication<RenamedPathsTest>(argc, argv);
}
#include "renamed_paths_test.moc"
