#include "reporting/report_contents.h"
#include "reporting/report_process.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <sys/resource.h>

#include <cstdio>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

QList<Receipt> receiptsIn(const QString &folder, int count) {
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
    QList<Receipt> receipts;
    for (int index = 0; index < count && !files.isEmpty(); ++index) {
        Receipt receipt = freshReceipt(files.at(index % files.size()).absoluteFilePath());
        receipt.date = u"2024-05-%1"_s.arg(index % 28 + 1, 2, 10, QChar(u'0'));
        receipt.amount = 1.0 + index;
        receipt.currency = index % 3 == 0 ? u"EUR"_s : u"USD"_s;
        receipt.location = u"Shop %1"_s.arg(index + 1);
        receipt.category = index % 2 == 0 ? u"lunch"_s : u"taxi"_s;
        receipt.summary = u"Receipt %1 of many"_s.arg(index + 1);
        receipt.status = ReceiptStatus::done;
        receipts.append(receipt);
    }
    return receipts;
}

rusage childrensUse() {
    rusage use{};
    ::getrusage(RUSAGE_CHILDREN, &use);
    return use;
}

double secondsOf(const timeval &time) {
    constexpr double microsecondsInASecond = 1e6;
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / microsecondsInASecond;
}

} // namespace

// report_cost FOLDER COUNT REPORT: makes a report of so many receipts, which are the files of the folder over
// and over, and prints what it takes.
int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: report_cost FOLDER COUNT REPORT\n", stderr);
        return 2;
    }
    const QList<Receipt> receipts = receiptsIn(arguments[1], arguments[2].toInt());
    ReportProcess process(QCoreApplication::applicationDirPath() + u"/make_report"_s);
    QObject::connect(&process, &ReportProcess::saved, [] { QCoreApplication::exit(0); });
    QObject::connect(&process, &ReportProcess::failed, [](const QString &reason) {
        std::fprintf(stderr, "%s\n", qPrintable(reason));
        QCoreApplication::exit(1);
    });
    QElapsedTimer elapsed;
    elapsed.start();
    process.start(describeReport(receipts, u"Jane Doe"_s, {}), arguments[3]);
    const int result = QCoreApplication::exec();
    const rusage use = childrensUse();
    std::printf("| %lld receipts | %.1f s | %.1f s | %ld MB | %.1f MB |\n",
                static_cast<long long>(receipts.size()), static_cast<double>(elapsed.elapsed()) / 1000,
                secondsOf(use.ru_utime) + secondsOf(use.ru_stime), use.ru_maxrss / 1024,
                static_cast<double>(QFileInfo(arguments[3]).size()) / 1e6);
    return result;
}
