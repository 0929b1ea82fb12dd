#include "converter/pages_ahead.h"
#include "support/test_program.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

#include <csignal>
#include <stdexcept>

using namespace fennick;

class PagesAheadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyPageIsWrittenOnceByAnotherProcess() {
        const QTemporaryDir folder;
        const pid_t caller = ::getpid();
        const std::vector<bool> written = writePagesAhead(
            7, 2, [&](int page) { return ::getpid() != caller && isMade(folder.filePath(name(page))); });
        QCOMPARE(written, std::vector<bool>(7, true));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 7);
    }

    void pageThatFailsAndThoseAfterItAreLeft_data() {
        QTest::addColumn<int>("signalNumber");
        QTest::newRow("refused") << 0;
        QTest::newRow("exception") << -1;
        QTest::newRow("killed") << SIGKILL;
    }
    void pageThatFailsAndThoseAfterItAreLeft() {
        QFETCH(int, signalNumber);
        const std::vector<bool> written = writePagesAhead(8, 2, [&](int page) {
            if (page != 3) {
                return true;
            }
            if (signalNumber < 0) {
                throw std::runtime_error("no memory");
            }
            return signalNumber != 0 && ::raise(signalNumber) == 0;
        });
        QCOMPARE(written, (std::vector<bool>{true, true, true, false, true, false, true, false}));
    }

    void moreProcessesThanPagesDoNoHarm() {
        QCOMPARE(writePagesAhead(1, 4, [](int) { return true; }), std::vector<bool>{true});
    }

private:
    static QString name(int page) { return QString::number(page); }

    static bool isMade(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::NewOnly);
    }
};

int pages_ahead_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<PagesAheadTest>(argc, argv);
}
#include "pages_ahead_test.moc"
