#include "settings/window_memory.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class WindowMemoryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void trayIsExplainedOnceEver() {
        QVERIFY(!WindowMemory().isTrayExplained());
        WindowMemory().setTrayExplained();
        QVERIFY(WindowMemory().isTrayExplained());
        WindowMemory().remember("geometry", "columns");
        QVERIFY(WindowMemory().isTrayExplained());
        QCOMPARE(WindowMemory().geometry(), QByteArray("geometry"));
        QVERIFY(!QFileInfo::exists(home_.preferencesFile())); // it is no preference
    }

private:
    TemporaryHome home_;
};

int window_memory_test(int argc, char **argv) {
    return runTest<QCoreApplication, WindowMemoryTest>(argc, argv);
}
#include "window_memory_test.moc"
