#include "support/test_program.h"
#include "user_session.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QSet>

using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int usualReceipts = 200;
constexpr int atOnce = 20;
constexpr int mostHandles = 100; // a scan has up to three while it is under way
constexpr int mostThreads = 50;

struct Usage {
    qint64 memory; // kibibytes that are in use
    qsizetype handles;
    qsizetype threads;
};

// Each receipt gets a name of its own.
QByteArray answer(int number) {
    QByteArray usual = lunchAnswer;
    return usual.replace("Dockside Deli", "Deli " + QByteArray::number(number));
}

} // namespace

// Many receipts through the whole program, one batch after the other. FENNICK_SOAK=20000 makes it that many
// and prints what the program uses meanwhile; it takes about an hour, so QTEST_FUNCTION_TIMEOUT has to be as
// long.
class SoakTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyReceiptIsOneRowAndOneFileAndNothingGrows() {
        const int count = qEnvironmentVariableIsSet("FENNICK_SOAK")
                              ? qEnvironmentVariableIntValue("FENNICK_SOAK")
                              : usualReceipts;
        session_.renew();
        session_.server.setScript([this](const HttpRequest &) { return answering(answer(++answered_)); });
        QVERIFY(session_.start());
        QElapsedTimer timer;
        timer.start();
        QList<Usage> usages;
        for (int dropped = 0; dropped < count;) {
            for (int file = 0; file < atOnce; ++file) {
                ++dropped;
                session_.drop(u"scan-%1.pdf"_s.arg(dropped), QByteArray::number(dropped));
            }
            QVERIFY(session_.waitFor([&] { return areFinished(dropped); }));
            session_.server.forgetRequests();
            if (dropped % (count / 10) == 0) {
                usages.append(usage());
                qInfo("%d receipts in %lld s: %lld KiB, %lld handles, %lld threads", dropped,
                      timer.elapsed() / 1000, usages.last().memory, qint64(usages.last().handles),
                      qint64(usages.last().threads));
            }
        }
        checkEnd(count);
        const Usage &last = usages.last();
        QVERIFY(last.handles <= mostHandles);
        QVERIFY(last.threads <= mostThreads);
        QVERIFY(session_.end());
    }

private:
    // Counts what stands in the list without reading it as JSON: that would take longer than the program's
    // work.
    bool areFinished(int count) const {
        return answered_ == count && renamedFiles().size() == count &&
               readFile(session_.home.receiptsFile()).count("\"fileName\": \"2024-05-01 ") == count;
    }

    QStringList renamedFiles() const {
        return QDir(session_.folder()).entryList({u"2024-05-01 Lunch - Deli *.pdf"_s}, QDir::Files);
    }

    void checkEnd(qsizetype count) const {
        QSet<QString> paths;
        for (const QJsonObject &row : session_.rows()) {
            QCOMPARE(row.value(u"status").toString(), u"done"_s);
            paths.insert(row.value(u"filePath").toString());
            QVERIFY(QFile::exists(row.value(u"filePath").toString()));
        }
        QCOMPARE(paths.size(), count);
        QCOMPARE(QDir(session_.folder()).entryList(QDir::Files | QDir::Hidden).size(), count);
    }

    Usage usage() const {
        const QString process = u"/proc/%1/"_s.arg(session_.program.processId());
        const QList<QByteArray> lines = readFile(process + u"status"_s).split('\n');
        qint64 memory = 0;
        for (const QByteArray &line : lines) {
            if (line.startsWith("RssAnon:")) {
                memory = line.mid(8).replace("kB", "").trimmed().toLongLong();
            }
        }
        return {
            memory,
            QDir(process + u"fd"_s).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size(),
            QDir(process + u"task"_s).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size()};
    }

    UserSession session_;
    int answered_ = 0;
};

int soak_test(int argc, char **argv) {
    return runTest<QGuiApplication, SoakTest>(argc, argv);
}
#include "soak_test.moc"
