// list_benchmark: saving and loading the stored list, beside what the same bytes cost at least.

#include "made_up_receipts.h"
#include "model/data_folder.h"
#include "model/receipt_json.h"
#include "model/receipt_store.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <simdjson.h>

namespace {

using namespace fennick;
using namespace Qt::StringLiterals;

QString listFile() {
    return dataFolder() + u"/receipts.json"_s;
}

void write(const QByteArray &bytes) {
    QSaveFile file(listFile());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        qFatal("The list could not be written");
    }
}

// What one changed receipt costs the program: the whole list is written anew and synchronised.
void saveAfterOneChange(benchmark::State &state) {
    write(encodeReceipts(madeUpReceipts(state.range(0))));
    ReceiptStore store;
    Receipt changed = store.receipts().last();
    for ([[maybe_unused]] auto round : state) {
        changed.addedToPhotos = !changed.addedToPhotos;
        store.update(changed);
    }
    state.SetComplexityN(state.range(0));
}

void writeSameBytes(benchmark::State &state) {
    const QByteArray bytes = encodeReceipts(madeUpReceipts(state.range(0)));
    for ([[maybe_unused]] auto round : state) {
        write(bytes);
    }
    state.SetComplexityN(state.range(0));
}

void encode(benchmark::State &state) {
    const QList<Receipt> receipts = madeUpReceipts(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(encodeReceipts(receipts));
    }
    state.SetComplexityN(state.range(0));
}

QByteArray encodedByQt(const QList<Receipt> &receipts) {
    QJsonArray array;
    for (const Receipt &receipt : receipts) {
        array.append(QJsonObject{{u"addedToPhotos"_s, receipt.addedToPhotos},
                                 {u"amount"_s, receipt.amount.value_or(0)},
                                 {u"category"_s, receipt.category},
                                 {u"currency"_s, receipt.currency.value_or(QString())},
                                 {u"date"_s, receipt.date.value_or(QString())},
                                 {u"fileName"_s, receipt.fileName},
                                 {u"filePath"_s, receipt.filePath},
                                 {u"id"_s, receipt.id},
                                 {u"location"_s, receipt.location.value_or(QString())},
                                 {u"scannedAt"_s, receipt.scannedAt},
                                 {u"status"_s, rawValue(receipt.status)},
                                 {u"summary"_s, receipt.summary},
                                 {u"time"_s, receipt.time.value_or(QString())}});
    }
    return QJsonDocument(array).toJson();
}

void encodeByQt(benchmark::State &state) {
    const QList<Receipt> receipts = madeUpReceipts(state.range(0));
    if (decodeReceipts(encodedByQt(receipts)).value() != receipts) {
        state.SkipWithError("the two lists differ");
    }
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(encodedByQt(receipts));
    }
    state.SetComplexityN(state.range(0));
}

// From the file to a store that can be shown.
void load(benchmark::State &state) {
    write(encodeReceipts(madeUpReceipts(state.range(0))));
    for ([[maybe_unused]] auto round : state) {
        const ReceiptStore store;
        if (store.receipts().size() != state.range(0)) {
            state.SkipWithError("the list was not loaded");
        }
    }
    state.SetComplexityN(state.range(0));
}

// Everything looked at, nothing kept.
std::size_t walk(simdjson::dom::element element) {
    if (element.is_array()) {
        std::size_t size = 0;
        for (const simdjson::dom::element child : element.get_array()) {
            size += walk(child);
        }
        return size;
    }
    if (element.is_object()) {
        std::size_t size = 0;
        for (const auto [key, value] : element.get_object()) {
            size += key.size() + walk(value);
        }
        return size;
    }
    return element.is_string() ? std::string_view(element).size() : 1;
}

void walkSameBytes(benchmark::State &state) {
    write(encodeReceipts(madeUpReceipts(state.range(0))));
    simdjson::dom::parser parser;
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(walk(parser.load(listFile().toStdString())));
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(saveAfterOneChange)->RangeMultiplier(10)->Range(100, 10000)->UseRealTime()->Complexity();
BENCHMARK(writeSameBytes)->RangeMultiplier(10)->Range(100, 10000)->UseRealTime()->Complexity();
BENCHMARK(encode)->RangeMultiplier(10)->Range(100, 10000)->Complexity();
BENCHMARK(encodeByQt)->RangeMultiplier(10)->Range(100, 10000)->Complexity();
BENCHMARK(load)->RangeMultiplier(10)->Range(100, 10000)->Complexity();
BENCHMARK(walkSameBytes)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

} // namespace

int main(int argc, char *argv[]) {
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
