// request_benchmark: a file on its way into a request's body, beside a copy of the same bytes in memory.

#include "extraction/gemini_request.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

using namespace fennick;
using namespace Qt::StringLiterals;

constexpr std::int64_t megabyte = 1 << 20;

void buildBody(benchmark::State &state) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"scan.pdf"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(state.range(0) * megabyte)) {
        state.SkipWithError("the file could not be made");
    }
    file.close();
    for ([[maybe_unused]] auto round : state) {
        const auto body = GeminiClient::requestBody(path);
        if (!body) {
            state.SkipWithError("there is no body");
        }
    }
    state.SetComplexityN(state.range(0));
}

void copySameBytes(benchmark::State &state) {
    const QByteArray source(state.range(0) * megabyte, 'x');
    for ([[maybe_unused]] auto round : state) {
        QByteArray result(source.size(), Qt::Uninitialized);
        std::memcpy(result.data(), source.constData(), static_cast<std::size_t>(source.size()));
        benchmark::DoNotOptimize(result);
        benchmark::ClobberMemory();
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(buildBody)->Arg(1)->Arg(4)->Arg(20)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(copySameBytes)->Arg(1)->Arg(4)->Arg(20)->Unit(benchmark::kMillisecond)->Complexity();

} // namespace

BENCHMARK_MAIN();
