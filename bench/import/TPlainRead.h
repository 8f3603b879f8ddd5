#pragma once

#include "TPeakMemory.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>

/// The folder of the files that the benchmarks read; it is set before they run.
inline QString &benchFolder()
{
    static QString folder;
    return folder;
}

/// The path of a file in the folder of the benchmarks, made when it is not there.
inline QString benchFile(const QString &name, const std::function<QByteArray()> &make)
{
    const QString path = QDir(benchFolder()).filePath(name);
    QFile file(path);
    if (!file.exists() && file.open(QIODevice::WriteOnly))
        file.write(make());
    return path;
}

inline void setFileBytes(benchmark::State &state, const QString &path)
{
    state.SetBytesProcessed(int64_t(state.iterations()) * QFile(path).size());
}

/// What no reader can beat: the file into memory, all at once.
inline void plainRead(benchmark::State &state, const QString &path)
{
    for (auto unused : state) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || file.readAll().size() != file.size())
            state.SkipWithError("not read");
    }
    setFileBytes(state, path);
}

/// Times `work` on a new converter each; making and deleting converter and spectra do not count.
template <typename TConverter>
void timeConverter(benchmark::State &state, const QString &path, const std::function<int(TConverter &)> &work)
{
    qint64 peak = 0;
    for (auto unused : state) {
        state.PauseTiming();
        auto converter = std::make_unique<TConverter>();
        const TPeakMemory memory;
        state.ResumeTiming();
        if (work(*converter) != 0)
            state.SkipWithError("not read");
        state.PauseTiming();
        peak = qMax(peak, memory.peak());
        converter.reset();
        state.ResumeTiming();
    }
    setFileBytes(state, path);
    state.counters["peak_per_file"] = double(peak) / double(QFile(path).size());
}

/// The file into spectra, without their parameters.
template <typename TConverter>
void readSpectra(benchmark::State &state, const QString &path)
{
    class TReader : public TConverter
    {
    public:
        using TConverter::readFile;
    };
    timeConverter<TReader>(state, path, [&path](TReader &reader) { return reader.readFile(path); });
}

/// The file into spectra with their parameters.
template <typename TConverter>
void convertSpectra(benchmark::State &state, const QString &path)
{
    timeConverter<TConverter>(state, path, [&path](TConverter &reader) { return reader.convert(path, nullptr); });
}
