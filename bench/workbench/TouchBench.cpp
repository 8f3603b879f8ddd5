// What a user waits for when a control of the processing dock is touched: from the new value to the drawn window, with
// a spectrum of 10,000 points, docks and ribbon open.
#include "TFileController.h"
#include "WMainWindow.h"
#include "builtin/TJCAMPPlugin.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QFile>
#include <QListWidget>
#include <QSpinBox>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>

namespace {

constexpr int cPoints = 10000;
constexpr QSize cWindow(1400, 900);

enum TAction { cSmoothing = 3, cDerivative = 0, cBaseline = 22, cNormalization = 39 };

/// Bands on a bent baseline, with noise.
void writeSpectrum(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    quint32 noise = 1;
    for (int i = 0; i < cPoints; ++i) {
        noise = noise * 1664525u + 1013904223u;
        double y = 0.2 + 0.3 * std::sin(i / 3000.0) + (noise >> 8) / 16777216.0 * 4e-3;
        for (const int centre : {1500, 3500, 5500, 8250})
            y += 0.8 / (1.0 + std::pow((i - centre) / 60.0, 2));
        file.write(QByteArray::number(4000.0 - 0.36 * i, 'f', 2) + ',' + QByteArray::number(y, 'g', 9) + '\n');
    }
}

/// Until nothing waits, repaints included.
void settle()
{
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents))
        continue;
}

/// A window with one spectrum.
class TTouch
{
public:
    TTouch()
    {
        TDefaultsIni::setStore(TDefaultsIni::memory);
        fHost.addBuiltIn(new TJCAMPPlugin);
        fHost.start({YREX_PLUGIN_DIR});
        fWindow = std::make_unique<WMainWindow>(fHost);
        fWindow->resize(cWindow);
        fWindow->show();
        writeSpectrum(fFolder.filePath("a.csv"));
        fWindow->files().open({fFolder.filePath("a.csv")});
        settle();
    }
    /// Switches an action on and chooses it.
    void choose(int action)
    {
        auto *list = find<QListWidget>("listWidgetProcessingActions");
        for (int row = 0; row < list->count(); ++row) {
            if (list->item(row)->type() == action) {
                list->setCurrentRow(row);
                list->item(row)->setCheckState(Qt::Checked);
            }
        }
        settle();
    }
    template <typename T>
    T *find(const char *name)
    {
        return fWindow->findChild<QDockWidget *>("yrexProcessingWidget")->findChild<T *>(name);
    }

private:
    QTemporaryDir fFolder;
    TKelmoraHost fHost;
    std::unique_ptr<WMainWindow> fWindow;
};

void touchBaseline(benchmark::State &state)
{
    TTouch touch;
    touch.choose(cBaseline);
    touch.find<QComboBox>("yrexalsbaselinealgorithmComboBox")->setCurrentIndex(int(state.range(0)));
    auto *factor = touch.find<QDoubleSpinBox>("yrexalsbaselinelog10lambdaDoubleSpinBox");
    factor->setValue(6.0);
    settle();
    bool isUp = false;
    for (auto _ : state) {
        isUp = !isUp;
        factor->setValue(isUp ? 6.1 : 6.0);
        settle();
    }
}
BENCHMARK(touchBaseline)
    ->ArgName("row")
    ->Arg(0)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

void touchSmoothing(benchmark::State &state)
{
    TTouch touch;
    touch.choose(cSmoothing);
    auto *window = touch.find<QSpinBox>("sgsmoothingkerlenSpinBox");
    bool isUp = false;
    for (auto _ : state) {
        isUp = !isUp;
        window->setValue(isUp ? 21 : 19);
        settle();
    }
}
BENCHMARK(touchSmoothing)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void touchDerivative(benchmark::State &state)
{
    TTouch touch;
    touch.choose(cDerivative);
    auto *window = touch.find<QSpinBox>("derivativesgkerlenSpinBox");
    bool isUp = false;
    for (auto _ : state) {
        isUp = !isUp;
        window->setValue(isUp ? 21 : 19);
        settle();
    }
}
BENCHMARK(touchDerivative)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void touchNormalization(benchmark::State &state)
{
    TTouch touch;
    touch.choose(cNormalization);
    auto *value = touch.find<QDoubleSpinBox>("yrexnormalizationvalueDoubleSpinBox");
    bool isUp = false;
    for (auto _ : state) {
        isUp = !isUp;
        value->setValue(isUp ? 2.0 : 1.0);
        settle();
    }
}
BENCHMARK(touchNormalization)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
