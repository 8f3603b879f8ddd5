#include "SeriesBuilder.h"
#include "TTestPlot.h"
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

namespace {

constexpr int cWidth = 1600; // pixels
constexpr int cHeight = 1000;

void fill(TTestPlot &plot, int curves, int points, double noise)
{
    plot.x = SeriesBuilder::evenSteps(4000.0, 400.0, points);
    QVector<int> all;
    for (int i = 0; i < curves; ++i) {
        plot.ys.append(SeriesBuilder::absorbance(plot.x, noise, i));
        all.append(i);
    }
    plot.stackedProperties().generateColorsVector(TStackedClassProperties(), all);
    plot.setStackedDisplayMode(overlayMode);
    plot.fit();
}

void draw(TTestPlot &plot, QImage &image)
{
    QPainter painter(&image);
    painter.scale(0.6, 0.6);
    plot.draw(painter, QRectF(0.0, 0.0, cWidth / 0.6, cHeight / 0.6));
}

/// arguments: curves, points of each, noise in thousandths of an absorbance unit, whether the data change each time
void drawPlot(benchmark::State &state)
{
    TTestPlot plot;
    fill(plot, int(state.range(0)), int(state.range(1)), double(state.range(2)) / 1000.0);
    QImage image(cWidth, cHeight, QImage::Format_ARGB32_Premultiplied);
    draw(plot, image); // fonts are loaded once
    for (auto _ : state) {
        if (state.range(3)) {
            for (QVector<double> &y : plot.ys)
                y[0] += 1e-9;
        }
        draw(plot, image);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * state.range(1));
}
BENCHMARK(drawPlot)
    ->ArgNames({"curves", "points", "noise", "changed"})
    ->Args({1, 6000, 4, 0})
    ->Args({1, 6000, 4, 1})
    ->Args({1, 1000000, 4, 0})
    ->Args({1, 1000000, 4, 1})
    ->Args({1, 1000000, 400, 0})
    ->Args({1, 1000000, 400, 1})
    ->Args({50, 6000, 4, 0})
    ->Args({50, 6000, 4, 1})
    ->Args({1000, 2000, 1, 0})
    ->Args({1000, 2000, 1, 1})
    ->Unit(benchmark::kMillisecond);

/// A view of a hundredth of a million points that moves with every draw, as a pan does.
void panPlot(benchmark::State &state)
{
    TTestPlot plot;
    fill(plot, 1, 1000000, 0.004);
    plot.setScale(horzDir, 2000.0, 1964.0);
    QImage image(cWidth, cHeight, QImage::Format_ARGB32_Premultiplied);
    draw(plot, image);
    for (auto _ : state) {
        plot.panMove(horzDir, 1.0);
        draw(plot, image);
    }
}
BENCHMARK(panPlot)->Unit(benchmark::kMillisecond);

/// The frame of the plot without curves.
void drawEmptyPlot(benchmark::State &state)
{
    TTestPlot plot;
    fill(plot, 1, 2, 0.0);
    plot.ys.clear();
    QImage image(cWidth, cHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        draw(plot, image);
}
BENCHMARK(drawEmptyPlot)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
