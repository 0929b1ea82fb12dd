// ledger_benchmark: building a ledger, beside a plain copy of the finished text.

#include "export/export_service.h"
#include "made_up_receipts.h"

#include <benchmark/benchmark.h>

namespace {

using namespace fennick;

void buildCsv(benchmark::State &state) {
    const QList<Receipt> receipts = madeUpReceipts(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(ExportService::buildCSV(receipts));
    }
    state.SetComplexityN(state.range(0));
}

void buildHtml(benchmark::State &state) {
    const QList<Receipt> receipts = madeUpReceipts(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(ExportService::buildHTML(receipts));
    }
    state.SetComplexityN(state.range(0));
}

void copy(benchmark::State &state, const QString &text) {
    for ([[maybe_unused]] auto round : state) {
        QString result(text.constData(), text.size());
        benchmark::DoNotOptimize(result);
        benchmark::ClobberMemory();
    }
    state.SetComplexityN(state.range(0));
}

void copyCsv(benchmark::State &state) {
    copy(state, ExportService::buildCSV(madeUpReceipts(state.range(0))));
}

void copyHtml(benchmark::State &state) {
    copy(state, ExportService::buildHTML(madeUpReceipts(state.range(0))));
}

BENCHMARK(buildCsv)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(copyCsv)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(buildHtml)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(copyHtml)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity();

} // namespace

BENCHMARK_MAIN();
