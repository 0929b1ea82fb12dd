#include "reporting/report_contents.h"
#include "reporting/report_process.h"
#include "support/conditions.h"
#include "support/process_status.h"
#include "support/receipts.h"
#include "support/striped_pdf.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QDir>
#include <QGuiApplication>
#include <QLocale>
#include <QSignalSpy>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// The program that makes reports, and what becomes of the report when it fails.
class ReportProcessTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<TemporaryHome>();
        QVERIFY(QDir().mkpath(home_->path(u"reports"_s)));
    }

    void reportIsMade() {
        ReportProcess process(maker);
        const QSignalSpy progressed(&process, &ReportProcess::progressed);
        QCOMPARE(outcomeOf(process, threeReceipts()), QString());
        QVERIFY(readFile(report()).startsWith("%PDF-1.7"));
        QVERIFY(readFile(report()).endsWith("%%EOF\n"));
        QCOMPARE(progressed.last().first().toInt(), 3);
        QCOMPARE(names(), QStringList{u"report.pdf"_s});
    }

    void olderReportIsReplacedByAWholeOneOnly() {
        writeFile(report(), "older");
        ReportProcess failing(program("echo 'receipt 1'; kill -SEGV $$"));
        QVERIFY(!outcomeOf(failing, threeReceipts()).isEmpty());
        QCOMPARE(readFile(report()), QByteArray("older"));
        ReportProcess process(maker);
        QCOMPARE(outcomeOf(process, threeReceipts()), QString());
        QVERIFY(readFile(report()).startsWith("%PDF-1.7"));
    }

    void processThatFailsIsAnErrorInWordsAndLeavesNoFile_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("reason");
        const QString unexpected = u"The program that makes it ended unexpectedly."_s;
        QTest::newRow("crash at the start") << QByteArray("kill -SEGV $$") << unexpected;
        QTest::newRow("crash at a receipt")
            << QByteArray("echo 'receipt 1'; echo 'receipt 2'; kill -SEGV $$")
            << u"The program that makes it ended unexpectedly at this receipt: No. 2 · 2024-05-01 · "
               "Mario's Cafe · $23.50"_s;
        QTest::newRow("a receipt that is not there") << QByteArray("echo 'receipt 9'; exit 1") << unexpected;
        QTest::newRow("no report") << QByteArray("exit 0") << unexpected;
        QTest::newRow("a report cut off") << QByteArray("printf complete") << unexpected;
        QTest::newRow("crash at the end") << QByteArray("echo complete; kill -SEGV $$") << unexpected;
        QTest::newRow("failure at the end") << QByteArray("echo complete; exit 1") << unexpected;
        QTest::newRow("disk") << QByteArray("echo unwritten; exit 1")
                              << u"The file could not be written. Is the disk full?"_s;
    }
    void processThatFailsIsAnErrorInWordsAndLeavesNoFile() {
        QFETCH(QByteArray, script);
        QFETCH(QString, reason);
        ReportProcess process(program(script));
        QCOMPARE(outcomeOf(process, threeReceipts()), reason);
        QVERIFY(names().isEmpty());
    }

    void cancelEndsTheProcessAndLeavesNoFile() {
        ReportProcess process(program("echo 'receipt 1'; exec sleep infinity"));
        const QSignalSpy progressed(&process, &ReportProcess::progressed);
        const QSignalSpy saved(&process, &ReportProcess::saved);
        const QSignalSpy failed(&process, &ReportProcess::failed);
        process.start(threeReceipts(), report());
        QVERIFY(waitUntil([&] { return !progressed.isEmpty(); }));
        process.cancel();
        QVERIFY(names().isEmpty());
        QVERIFY(
            waitUntil([] { return childrenNamed("sleep", QCoreApplication::applicationPid()).isEmpty(); }));
        QVERIFY(saved.isEmpty());
        QVERIFY(failed.isEmpty());
    }

    void linkIsNotWrittenThrough() {
        const QString secret = home_->path(u"precious"_s);
        writeFile(secret, "precious");
        QVERIFY(QFile::link(secret, report()));
        ReportProcess process(maker);
        QCOMPARE(outcomeOf(process, threeReceipts()), u"There is a link of this name."_s);
        QCOMPARE(readFile(secret), QByteArray("precious"));
    }

    void impossiblePlaceIsNamed() {
        ReportProcess process(maker);
        QVERIFY(!outcomeOf(process, threeReceipts(), u"/proc/report.pdf"_s).isEmpty());
    }

    void missingProgramIsNamed() {
        ReportProcess process(u"/nowhere/make_report"_s);
        QVERIFY(outcomeOf(process, threeReceipts())
                    .startsWith(u"The program that makes it could not be started: "));
        QVERIFY(names().isEmpty());
    }

    void reportIsNoMoreOpenToOthersThanFilesOfTheUserAre() {
        ReportProcess process(maker);
        QCOMPARE(outcomeOf(process, threeReceipts()), QString());
        const QString other = home_->path(u"reports/other"_s);
        writeFile(other, "x");
        QCOMPARE(QFile::permissions(report()), QFile::permissions(other));
    }

private:
    static constexpr auto makerPath = FENNICK_BIN_DIR "/make_report";
    const QString maker = QString::fromUtf8(makerPath);

    QString report() const { return home_->path(u"reports/report.pdf"_s); }

    QStringList names() const {
        return QDir(home_->path(u"reports"_s)).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    ReportDescription threeReceipts() const {
        QList<Receipt> receipts;
        for (int number = 1; number <= 3; ++number) {
            const QString path = home_->path(u"%1.pdf"_s.arg(number));
            writeFile(path, stripedPdf(number));
            receipts.append(finishedReceipt(path));
        }
        return describeReport(receipts, u"Jane Doe"_s, {});
    }

    // Why there is no report; empty if there is one.
    QString outcomeOf(ReportProcess &process, const ReportDescription &description) const {
        return outcomeOf(process, description, report());
    }

    static QString outcomeOf(ReportProcess &process, const ReportDescription &description,
                             const QString &path) {
        const QSignalSpy saved(&process, &ReportProcess::saved);
        const QSignalSpy failed(&process, &ReportProcess::failed);
        process.start(description, path);
        waitUntil([&] { return saved.size() + failed.size() > 0; });
        return failed.isEmpty() ? QString() : failed.first().first().toString();
    }

    QString program(const QByteArray &script) const {
        const QString path = home_->path(u"maker"_s);
        writeFile(path, "#!/bin/sh\n" + script + '\n');
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }

    std::unique_ptr<TemporaryHome> home_;
};

int report_process_test(int argc, char **argv) {
    QLocale::setDefault(QLocale(u"en_US"_s));
    return runTest<QGuiApplication, ReportProcessTest>(argc, argv);
}
#include "report_process_test.moc"
