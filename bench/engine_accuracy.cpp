// engine_accuracy DIR [--verbose]: how well the on-device engine reads the pictures listed in DIR/truth.csv,
// which lie in DIR or in DIR/images. They go one after the other through the engine's own library, as its
// program would take them.
//
// A date is right when it is the same day; a total when it is the same to the cent; a merchant when
// upper-cased, with punctuation taken for a space, it is at least 80 % similar (1 - edit distance / longer
// length). "null" is a field the engine leaves open; the last column is the share of right ones among those
// given. Seconds are wall time per picture, memory is the peak of the whole process.

#include "answer_comparison.h"
#include "engine/service/receipt_reader.h"
#include "truth_table.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QStringList>

#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

struct Tally {
    const char *field;
    std::array<int, 3> counts = {};

    void add(Verdict verdict) { ++counts[static_cast<size_t>(verdict)]; }

    void print() const {
        const int right = counts[0];
        const int wrong = counts[1];
        const int absent = counts[2];
        const int all = std::max(1, right + wrong + absent);
        const int given = std::max(1, right + wrong);
        std::printf("%-9s %6d %6d %6d %9.1f %% %9.1f %%\n", field, right, wrong, absent, 100.0 * right / all,
                    100.0 * right / given);
    }
};

QByteArray pictureBytes(const QString &folder, const QString &name) {
    for (const QString &path : {folder + u'/' + name, folder + u"/images/"_s + name}) {
        if (QFile file(path); file.open(QIODevice::ReadOnly)) {
            return file.readAll();
        }
    }
    return {};
}

const char *sign(Verdict verdict) {
    constexpr std::array signs = {"right", "WRONG", "null"};
    return signs[static_cast<size_t>(verdict)];
}

void printRow(const Truth &truth, const ReceiptFields &fields, double seconds) {
    const QString date = fields.date ? fields.date->toString(Qt::ISODate) : u"-"_s;
    const QString total = fields.amount ? QString::number(*fields.amount, 'f', 2) : u"-"_s;
    std::printf("%s  %.2f s\n", qPrintable(truth.file), seconds);
    std::printf("  date     %-5s %s (%s)\n", sign(dateVerdict(fields, truth)), qPrintable(date),
                qPrintable(truth.date.toString(Qt::ISODate)));
    std::printf("  total    %-5s %s (%.2f)\n", sign(totalVerdict(fields, truth)), qPrintable(total),
                truth.total);
    std::printf("  merchant %-5s %s (%s)\n", sign(merchantVerdict(fields, truth)),
                qPrintable(fields.location.value_or(u"-"_s)), qPrintable(truth.merchant));
}

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void measure(const QString &folder, const QList<Truth> &truths, bool verbose) {
    Tally dates{"date"};
    Tally totals{"total"};
    Tally merchants{"merchant"};
    QList<double> seconds;
    for (const Truth &truth : truths) {
        const QByteArray bytes = pictureBytes(folder, truth.file);
        QElapsedTimer timer;
        timer.start();
        const ReceiptFields fields = readReceiptFile(bytes, QDate::currentDate()).value_or(ReceiptFields{});
        seconds.append(static_cast<double>(timer.elapsed()) / 1000);
        dates.add(dateVerdict(fields, truth));
        totals.add(totalVerdict(fields, truth));
        merchants.add(merchantVerdict(fields, truth));
        if (verbose) {
            printRow(truth, fields, seconds.last());
        }
    }
    std::printf("%-9s %6s %6s %6s %11s %11s\n", "", "right", "wrong", "null", "of all", "of given");
    for (const Tally *tally : {&dates, &totals, &merchants}) {
        tally->print();
    }
    std::ranges::sort(seconds);
    std::printf("pages %lld, median %.2f s, longest %.2f s, peak memory %.0f MB\n",
                static_cast<long long>(seconds.size()), seconds[seconds.size() / 2], seconds.last(),
                peakMegabytes());
}

} // namespace

int main(int argc, char *argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QStringList arguments = application.arguments().mid(1);
    const bool verbose = arguments.removeAll(u"--verbose"_s) > 0;
    if (arguments.size() != 1) {
        std::fprintf(stderr, "usage: engine_accuracy DIR [--verbose]\n");
        return 2;
    }
    const std::expected<QList<Truth>, QString> truths = truthTable(arguments.first());
    if (!truths || truths->isEmpty()) {
        std::fprintf(stderr, "engine_accuracy: %s\n", truths ? "no rows" : qPrintable(truths.error()));
        return 1;
    }
    measure(arguments.first(), *truths, verbose);
    return 0;
}
