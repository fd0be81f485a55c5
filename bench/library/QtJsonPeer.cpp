// The same work with Qt's own JSON.

#include "bench/library/BenchedLibrary.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QJsonDocument>

namespace brinmoor::bench {
namespace {

QJsonDocument loadedByQt(std::int64_t count) {
    QFile file(QString::fromStdString(documentPath(count)));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll())
                                          : QJsonDocument();
}

void loadByQt(benchmark::State& state) {
    for (auto _ : state) {
        QJsonDocument tree = loadedByQt(state.range(0));
        if (tree.isNull())
            state.SkipWithError("not read");
        benchmark::DoNotOptimize(&tree);
        outsideTheClock(state, [&] { tree = QJsonDocument(); });
    }
}

/// From its own tree, which is made beforehand.
void serialiseByQt(benchmark::State& state) {
    const QJsonDocument tree = loadedByQt(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(tree.toJson(QJsonDocument::Indented));
}

constexpr auto unit = benchmark::kMillisecond;
BENCHMARK(loadByQt)->Arg(100'000)->Unit(unit);
BENCHMARK(serialiseByQt)->Arg(100'000)->Unit(unit);

} // namespace
} // namespace brinmoor::bench
