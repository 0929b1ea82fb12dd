// make_world_receipts DIR --seed N [--count N] [--kind KIND] [--countries AB,CD] [--held-out | --in-sight]:
// makes receipts after the customs of many countries, `count` (2) of each, and DIR/truth.csv with what they
// say, for engine_accuracy. The kinds are text-pdf, clean, faint, warped, page, photo and mixed (of all). A
// third of the countries is held out: nobody who works on the engine is to see theirs, and they are made with
// --held-out only.
//
// The same seed makes the same receipts of a country and, with the same fonts and libraries, the same bytes.

#include "world/customs.h"
#include "world/made_receipt.h"
#include "world/receipt_file.h"
#include "world/renderings.h"
#include "world/sheet_fitting.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QMap>
#include <QStringList>

#include <cstdio>

namespace {

using namespace fennick;
using namespace Qt::StringLiterals;

constexpr auto usage =
    "usage: make_world_receipts DIR --seed N [--count N] [--kind KIND] [--countries AB,CD]\n"
    "                               [--held-out | --in-sight]\n"
    "kinds: text-pdf clean faint warped page photo mixed\n";

struct Options {
    QString folder;
    QString seed;
    int count = 2;
    std::optional<Rendering> rendering; // nothing if mixed
    QStringList countries;              // all if empty
    bool isHeldOut = false;
};

// The value that follows `option`, which is taken out of the arguments together with it.
std::optional<QString> takeValue(QStringList &arguments, const QString &option) {
    const qsizetype index = arguments.indexOf(option);
    if (index < 0 || index + 1 >= arguments.size()) {
        return {};
    }
    arguments.removeAt(index);
    return arguments.takeAt(index);
}

std::optional<Options> optionsFrom(QStringList arguments) {
    Options options;
    const QString kind = takeValue(arguments, u"--kind"_s).value_or(u"mixed"_s);
    options.rendering = renderingNamed(kind);
    options.seed = takeValue(arguments, u"--seed"_s).value_or(QString());
    options.count = takeValue(arguments, u"--count"_s).value_or(u"2"_s).toInt();
    options.countries =
        takeValue(arguments, u"--countries"_s).value_or(QString()).split(u',', Qt::SkipEmptyParts);
    options.isHeldOut = arguments.removeAll(u"--held-out"_s) > 0;
    const bool isInSight = arguments.removeAll(u"--in-sight"_s) > 0;
    const bool isKindKnown = options.rendering || kind == u"mixed";
    if (arguments.size() != 1 || options.seed.isEmpty() || options.count < 1 || !isKindKnown ||
        (options.isHeldOut && isInSight)) {
        return {};
    }
    options.folder = arguments.first();
    return options;
}

Rendering mixedRendering(SeededRandom &random) {
    static const QList<Rendering> renderings = {Rendering::textPdf, Rendering::clean, Rendering::faint,
                                                Rendering::warped,  Rendering::page,  Rendering::photo};
    return renderings[random.below(static_cast<int>(renderings.size()))];
}

QByteArray truthLine(const Truth &truth) {
    const QStringList cells = {
        truth.file,     truth.date.toString(Qt::ISODate), QString::number(*truth.total, 'f', 3),
        truth.currency, truth.categories.join(u' '),      truth.merchant};
    return cells.join(u',').toUtf8() + '\n';
}

// Each receipt has seeds of its own: one for what it says, the other for what it looks like.
bool makeReceipt(const QList<Customs> &variants, int index, const Options &options, QFile &table) {
    const QString country = variants.first().country();
    const QByteArray seed = u"%1 %2 %3"_s.arg(options.seed, country, QString::number(index)).toUtf8();
    SeededRandom wording(seed + " wording");
    const Customs &customs = variants[wording.below(static_cast<int>(variants.size()))];
    MadeReceipt receipt = madeReceipt(customs, wording);
    SeededRandom look(seed + " look");
    const Rendering mixed = mixedRendering(look);
    const Rendering rendering = options.rendering.value_or(mixed);
    receipt.truth.file =
        u"%1-%2-%3.%4"_s.arg(country, nameOf(rendering), QString::number(index), extensionOf(rendering));
    const QString path = options.folder + u'/' + receipt.truth.file;
    const QByteArray line = truthLine(receipt.truth);
    return writeReceipt(path, fitted(receipt.sheet), rendering, look) && table.write(line) == line.size();
}

// The customs of the wanted countries; some have several.
std::expected<QMap<QString, QList<Customs>>, QString> wantedCountries(const Options &options) {
    QMap<QString, QList<Customs>> result;
    for (const QString &name : customsNames()) {
        const auto customs = Customs::read(name);
        if (!customs) {
            return std::unexpected(customs.error());
        }
        const bool isNamed = options.countries.isEmpty() || options.countries.contains(customs->country());
        if (isNamed && customs->isHeldOut() == options.isHeldOut) {
            result[customs->country()].append(*customs);
        }
    }
    return result;
}

bool makeAll(const QMap<QString, QList<Customs>> &wanted, const Options &options) {
    QFile table(options.folder + u"/truth.csv"_s);
    if (!QDir().mkpath(options.folder) || !table.open(QIODevice::WriteOnly)) {
        return false;
    }
    table.write("file,date,total,currency,categories,merchant\n");
    for (const QList<Customs> &variants : wanted) {
        for (int index = 1; index <= options.count; ++index) {
            if (!makeReceipt(variants, index, options, table)) {
                return false;
            }
        }
    }
    return table.flush();
}

} // namespace

int main(int argc, char *argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
    QHashSeed::setDeterministicGlobalSeed(); // the fonts of a PDF are written as they lie in a table
    const QGuiApplication application(argc, argv);
    const std::optional<Options> options = optionsFrom(QGuiApplication::arguments().mid(1));
    if (!options) {
        std::fputs(usage, stderr);
        return 2;
    }
    const auto wanted = wantedCountries(*options);
    if (!wanted) {
        std::fprintf(stderr, "make_world_receipts: %s\n", qPrintable(wanted.error()));
        return 1;
    }
    if (wanted->isEmpty()) {
        std::fprintf(stderr, "make_world_receipts: no such country\n");
        return 1;
    }
    if (!makeAll(*wanted, *options)) {
        std::fprintf(stderr, "make_world_receipts: a file could not be written\n");
        return 1;
    }
    return 0;
}
