// Reading and writing text tables. The files are made in the folder that --dir=FOLDER names (and stay there, for
// comparisons with other readers) or in a temporary one.
#include "TASCIIYrexConverter.h"
#include "TAsciiTable.h"
#include "TCsvWriter.h"
#include "TPeakMemory.h"
#include "resampleMonotoneCubic.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <memory>

namespace {

constexpr int cLongRows = 1000000;
constexpr int cWideRows = 2000;
constexpr int cWideColumns = 500;

QString gFolder;

QByteArray tableText(int rows, int columns)
{
    QByteArray text;
    text.reserve(rows * (10 + 10 * columns));
    char number[32];
    quint32 noise = 12345;
    for (int row = 0; row < rows; ++row) {
        text.append(number, std::snprintf(number, sizeof number, "%.4f", 400.0 + row * 0.0036));
        for (int c = 1; c < columns; ++c) {
            noise = noise * 1664525u + 1013904223u;
            const double y = 0.5 + 0.4 * std::sin(row * 1e-3 + c) + (noise >> 8) * 1e-9;
            text.append(number, std::snprintf(number, sizeof number, ",%.6f", y));
        }
        text.append('\n');
    }
    return text;
}

/// The path of a table of that shape, made when it is not there.
QString tableFile(const QString &name, int rows, int columns)
{
    const QString path = QDir(gFolder).filePath(name);
    QFile file(path);
    if (!file.exists() && file.open(QIODevice::WriteOnly))
        file.write(tableText(rows, columns));
    return path;
}

QString longFile()
{
    return tableFile(QStringLiteral("long.csv"), cLongRows, 2);
}

QString wideFile()
{
    return tableFile(QStringLiteral("wide.csv"), cWideRows, cWideColumns);
}

void report(benchmark::State &state, qint64 bytes, double rows, qint64 peak)
{
    state.SetBytesProcessed(int64_t(state.iterations()) * bytes);
    state.counters["rows/s"] = benchmark::Counter(rows, benchmark::Counter::kIsIterationInvariantRate);
    state.counters["peak_MB"] = double(peak) / 1e6;
    state.counters["peak_per_file"] = double(peak) / double(bytes);
}

/// The whole way of a file into spectra with their parameters.
void readFile(benchmark::State &state, const QString &path, int rows)
{
    qint64 peak = 0;
    for (auto unused : state) {
        state.PauseTiming();
        std::unique_ptr<TASCIIYrexConverter> converter(new TASCIIYrexConverter);
        const TPeakMemory memory;
        state.ResumeTiming();
        if (converter->convert(path, nullptr) != 0)
            state.SkipWithError("not read");
        state.PauseTiming();
        peak = qMax(peak, memory.peak());
        converter.reset();
        state.ResumeTiming();
    }
    report(state, QFile(path).size(), rows, peak);
}

/// Only the text to columns.
void parse(benchmark::State &state, const QString &path, int rows)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    for (auto unused : state) {
        TAsciiTable table;
        benchmark::DoNotOptimize(readAsciiTable(bytes, &table));
    }
    report(state, bytes.size(), rows, 0);
}

void readLong(benchmark::State &state)
{
    readFile(state, longFile(), cLongRows);
}

void readWide(benchmark::State &state)
{
    readFile(state, wideFile(), cWideRows);
}

void parseLong(benchmark::State &state)
{
    parse(state, longFile(), cLongRows);
}

void parseWide(benchmark::State &state)
{
    parse(state, wideFile(), cWideRows);
}

void writeCsv(benchmark::State &state)
{
    const int n = int(state.range(0));
    QVector<TCsvSeries> series(4);
    for (TCsvSeries &one : series) {
        one.fVisible = {{0.0, double(n)}};
        for (int i = 0; i < n; ++i) {
            one.fX.append(i * 0.5);
            one.fY.append(std::sin(i * 1e-3));
        }
    }
    qint64 bytes = 0;
    for (auto unused : state) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        TCsvWriter::write(series, &buffer);
        bytes = buffer.size();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * bytes);
    state.SetItemsProcessed(state.iterations() * n);
}

void resample(benchmark::State &state)
{
    const int n = int(state.range(0));
    QVector<double> x(n), source(n);
    for (int i = 0; i < n; ++i) {
        x[i] = i + 0.3 * std::sin(double(i));
        source[i] = std::sin(i * 0.01);
    }
    for (auto unused : state) {
        QVector<double> y = source;
        benchmark::DoNotOptimize(resampleMonotoneCubic(x, y, TEvenGrid{x.first(), 0.5, 2 * n}));
    }
    state.SetItemsProcessed(state.iterations() * 2 * n);
    state.SetComplexityN(n);
}

BENCHMARK(readLong)->Unit(benchmark::kMillisecond);
BENCHMARK(readWide)->Unit(benchmark::kMillisecond);
BENCHMARK(parseLong)->Unit(benchmark::kMillisecond);
BENCHMARK(parseWide)->Unit(benchmark::kMillisecond);
BENCHMARK(writeCsv)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(resample)->RangeMultiplier(8)->Range(1 << 10, 1 << 19)->Complexity(benchmark::oN);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir temporary;
    gFolder = temporary.path();
    const QString option = QStringLiteral("--dir=");
    for (int i = 1; i < argc; ++i) {
        if (QString::fromLocal8Bit(argv[i]).startsWith(option)) {
            gFolder = QString::fromLocal8Bit(argv[i]).mid(option.size());
            for (int k = i; k + 1 < argc; ++k)
                argv[k] = argv[k + 1];
            --argc;
            break;
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
