// engine_accuracy DIR [--verbose] [--keep FOLDER | --replay FOLDER]: how well the on-device engine reads the
// pictures listed in DIR/truth.csv, which lie in DIR or in DIR/images. They go one after the other through
// the engine's own library, as its program would take them. --keep writes what recognition saw into FOLDER;
// --replay takes it from there instead of recognising the pictures, to measure the rules alone: within
// seconds, but with what was seen by the rules that kept it.
//
// A date is right when it is the same day; a total when it is the same to the cent. A merchant's whole name
// is right when, upper-cased, with punctuation taken for a space, it is at least 80 % similar (1 - edit
// distance / longer length); a part of a name when the answer contains it, both reduced to letters and
// digits. "null" is a field that the engine leaves open; the last column is the share of right ones among
// those given. Seconds are wall time per picture, memory is the peak of the whole process. With --verbose
// each picture has lines of its own, and the countries and kinds of make_world_receipts have one each.

#include "answer_comparison.h"
#include "engine/recognition/document_reader.h"
#include "engine/service/receipt_reader.h"
#include "kept_readings.h"
#include "truth_table.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QStringList>

#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <map>

namespace {

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

struct Tally {
    const char *field;
    std::array<int, 4> counts = {};

    void add(Verdict verdict) { ++counts[static_cast<size_t>(verdict)]; }
    int all() const { return counts[0] + counts[1] + counts[2]; }
    bool isMeasured() const { return all() > 0; }

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

using Tallies = std::array<Tally, 5>;

Tallies noTallies() {
    return {Tally{"date"}, Tally{"total"}, Tally{"currency"}, Tally{"merchant"}, Tally{"category"}};
}

void addVerdicts(Tallies &tallies, const ReceiptFields &fields, const Truth &truth) {
    constexpr std::array verdicts = {&dateVerdict, &totalVerdict, &currencyVerdict, &merchantVerdict,
                                     &categoryVerdict};
    for (size_t field = 0; field < tallies.size(); ++field) {
        tallies[field].add(verdicts[field](fields, truth));
    }
}

// The country and the kind in names as make_world_receipts gives them: DE-faint-3.jpg.
QStringList groupsOf(const QString &file) {
    static const QRegularExpression pattern(u"^([A-Z]{2})-([a-z-]+)-[0-9]+\\.[a-z]+$"_s);
    return pattern.match(file).capturedTexts().mid(1);
}

void printGroups(const std::map<QString, Tallies> &groups) {
    std::printf("\n%-9s %6s", "right, %", "pages");
    for (const Tally &tally : noTallies()) {
        std::printf(" %9s", tally.field);
    }
    for (const auto &[group, tallies] : groups) {
        std::printf("\n%-9s %6d", qPrintable(group), tallies.front().all());
        for (const Tally &tally : tallies) {
            std::printf(" %9.0f", 100.0 * tally.counts[0] / std::max(1, tally.all()));
        }
    }
    std::printf("\n\n");
}

QByteArray pictureBytes(const QString &folder, const QString &name) {
    for (const QString &path : {folder + u'/' + name, folder + u"/images/"_s + name}) {
        if (QFile file(path); file.open(QIODevice::ReadOnly)) {
            return file.readAll();
        }
    }
    return {};
}

const char *sign(Verdict verdict) {
    constexpr std::array signs = {"right", "WRONG", "null", "-"};
    return signs[static_cast<size_t>(verdict)];
}

void printField(const char *name, Verdict verdict, const QString &given, const QString &truth) {
    if (verdict != Verdict::unknown) {
        std::printf("  %-8s %-5s %s (%s)\n", name, sign(verdict), qPrintable(given), qPrintable(truth));
    }
}

void printRow(const Truth &truth, const ReceiptFields &fields, double seconds) {
    const auto money = [](std::optional<double> amount) {
        return amount ? QString::number(*amount, 'f', 2) : u"-"_s;
    };
    std::printf("%s  %.2f s\n", qPrintable(truth.file), seconds);
    printField("date", dateVerdict(fields, truth), fields.date ? fields.date->toString(Qt::ISODate) : u"-"_s,
               truth.date.toString(Qt::ISODate));
    printField("total", totalVerdict(fields, truth), money(fields.amount), money(truth.total));
    printField("currency", currencyVerdict(fields, truth), fields.currency.value_or(u"-"_s), truth.currency);
    printField("merchant", merchantVerdict(fields, truth), fields.location.value_or(u"-"_s), truth.merchant);
    printField("category", categoryVerdict(fields, truth), fields.category, truth.categories.join(u' '));
}

struct Options {
    QString folder;
    bool isVerbose = false;
    QString keep;
    QString replay;
};

QList<ReadingFacts> factsOfAll(const QList<Reading> &readings) {
    QList<ReadingFacts> facts;
    std::ranges::transform(readings, std::back_inserter(facts), &factsOf);
    return facts;
}

ReceiptFields fieldsOf(const Truth &truth, const Options &options) {
    const QDate today = QDate::currentDate();
    if (!options.replay.isEmpty()) {
        const auto readings = keptReadings(options.replay + u'/' + truth.file + u".tsv"_s);
        return readings ? readReceipt(factsOfAll(*readings), today).value_or(ReceiptFields{})
                        : ReceiptFields{};
    }
    const QByteArray bytes = pictureBytes(options.folder, truth.file);
    if (options.keep.isEmpty()) {
        return readReceiptFile(bytes, today).value_or(ReceiptFields{});
    }
    const auto isEnough = [today](const QList<Reading> &readings) {
        const QList<ReadingFacts> facts = factsOfAll(readings);
        return isBeyondDoubt(facts, today) || showNothing(facts, today);
    };
    const auto readings = readDocument(bytes, isEnough);
    if (!readings || !keepReadings(options.keep + u'/' + truth.file + u".tsv"_s, *readings)) {
        return {};
    }
    return readReceipt(factsOfAll(*readings), today).value_or(ReceiptFields{});
}

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void measure(const QList<Truth> &truths, const Options &options) {
    Tallies tallies = noTallies();
    std::map<QString, Tallies> groups;
    QList<double> seconds;
    for (const Truth &truth : truths) {
        QElapsedTimer timer;
        timer.start();
        const ReceiptFields fields = fieldsOf(truth, options);
        seconds.append(static_cast<double>(timer.elapsed()) / 1000);
        addVerdicts(tallies, fields, truth);
        for (const QString &group : groupsOf(truth.file)) {
            addVerdicts(groups.try_emplace(group, noTallies()).first->second, fields, truth);
        }
        if (options.isVerbose) {
            printRow(truth, fields, seconds.last());
        }
    }
    if (options.isVerbose && !groups.empty()) {
        printGroups(groups);
    }
    std::printf("%-9s %6s %6s %6s %11s %11s\n", "", "right", "wrong", "null", "of all", "of given");
    for (const Tally &tally : tallies) {
        if (tally.isMeasured()) {
            tally.print();
        }
    }
    std::ranges::sort(seconds);
    std::printf("pages %lld, median %.2f s, longest %.2f s, peak memory %.0f MB\n",
                static_cast<long long>(seconds.size()), seconds[seconds.size() / 2], seconds.last(),
                peakMegabytes());
}

// The value that follows `option`, which is taken out of the arguments together with it.
QString takeValue(QStringList &arguments, const QString &option) {
    const qsizetype index = arguments.indexOf(option);
    if (index < 0 || index + 1 >= arguments.size()) {
        return {};
    }
    arguments.removeAt(index);
    return arguments.takeAt(index);
}

} // namespace

int main(int argc, char *argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QStringList arguments = application.arguments().mid(1);
    Options options;
    options.isVerbose = arguments.removeAll(u"--verbose"_s) > 0;
    options.keep = takeValue(arguments, u"--keep"_s);
    options.replay = takeValue(arguments, u"--replay"_s);
    if (arguments.size() != 1) {
        std::fprintf(stderr, "usage: engine_accuracy DIR [--verbose] [--keep FOLDER | --replay FOLDER]\n");
        return 2;
    }
    options.folder = arguments.first();
    const std::expected<QList<Truth>, QString> truths = truthTable(options.folder);
    if (!truths || truths->isEmpty()) {
        std::fprintf(stderr, "engine_accuracy: %s\n", truths ? "no rows" : qPrintable(truths.error()));
        return 1;
    }
    measure(*truths, options);
    return 0;
}
