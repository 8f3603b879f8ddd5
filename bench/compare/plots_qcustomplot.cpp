// Draws the same spectra through their item and with QCustomPlot (adaptive sampling, its own default), in one run, and
// prints the times and their ratios. The exit status is 1 when the item is slower than the same pen there, or takes
// longer than it may.
#include "TSpectrumPage.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <qcustomplot.h>

namespace {

constexpr int cRepetitions = 15;
constexpr double cStackHeight = 0.01; // absorbance, between the rows of a stack

/// The least of the repetitions in milliseconds; a machine that others use only adds to a time.
double best(const std::function<void()> &prepare, const std::function<void()> &draw)
{
    double least = 1e9;
    for (int i = 0; i < cRepetitions; ++i) {
        prepare();
        QElapsedTimer timer;
        timer.start();
        draw();
        least = std::min(least, double(timer.nsecsElapsed()) / 1e6);
    }
    return least;
}

/// The same curves over each other, or one above the other where `rowHeight` is not 0.
class TOtherPlot
{
public:
    TOtherPlot(int curves, int points, double noise, double rowHeight)
    {
        fPlot.resize(TSpectrumPage::cWidth, TSpectrumPage::cHeight);
        const QVector<double> x = SeriesBuilder::evenSteps(4000.0, 400.0, points);
        for (int i = 0; i < curves; ++i) {
            QVector<double> y = SeriesBuilder::absorbance(x, noise, i);
            for (double &value : y)
                value += i * rowHeight;
            QCPGraph *graph = fPlot.addGraph();
            graph->setAdaptiveSampling(true);
            graph->setData(x, y); // sorts them: the library keeps keys ascending
        }
        fPlot.rescaleAxes();
        fPlot.xAxis->setRangeReversed(true);
    }

    void setPenWidth(double width)
    {
        for (int i = 0; i < fPlot.graphCount(); ++i)
            fPlot.graph(i)->setPen(QPen(Qt::blue, width));
    }
    /// Takes over the horizontal view of the item.
    void follow(const TRange &scale)
    {
        const TRange sorted = scale.sorted();
        fPlot.xAxis->setRange(sorted.a, sorted.b);
    }
    /// Into its buffer; that the buffer is then laid on the window is not counted.
    void draw() { fPlot.replot(QCustomPlot::rpQueuedRefresh); }

private:
    QCustomPlot fPlot;
};

struct TCase
{
    const char *name;
    int curves;
    int points;
    int mode;
    int xUnits;
    void (TSpectrumPage::*step)();
    double limit; // milliseconds
};

bool compare(const TCase &each)
{
    constexpr double cNoise = 0.004;
    TSpectrumPage page(each.curves, each.points, cNoise, each.mode, each.xUnits);
    page.draw();
    const auto step = [&page, &each] { (page.*each.step)(); };
    const double here = best(step, [&page] { page.draw(); });

    const double rowHeight = each.mode == stackedMode ? cStackHeight : 0.0;
    TOtherPlot other(each.curves, each.points, cNoise, rowHeight);
    double there[2] = {};
    const double widths[2] = {1.0, page.plot().properties().curvePen.widthF() * TSpectrumPage::cScale};
    for (int i = 0; i < 2; ++i) {
        other.setPenWidth(widths[i]);
        other.draw();
        there[i] = best(
            [&] {
                step();
                if (each.xUnits == cUnitWavenumber)
                    other.follow(page.plot().horzAxis().getScale());
            },
            [&other] { other.draw(); });
    }
    const bool isGood = here <= there[1] && here < each.limit;
    std::printf("%-44s %8.2f %8.0f %9.2f %6.1f %9.2f %6.1f%s\n", each.name, here, each.limit, there[1], there[1] / here,
                there[0], there[0] / here, isGood ? "" : "  !");
    return isGood;
}

/// What moves with the mouse, over the kept pixels; the other library has no such layer by itself.
bool pointing(const char *name, int curves, int mode)
{
    constexpr double cLimit = 10.0;
    TSpectrumPage page(curves, 2000, 0.004, mode);
    page.draw();
    page.drawPointed();
    const double here = best([] {}, [&page] { page.drawPointed(); });
    std::printf("%-44s %8.2f %8.0f%s\n", name, here, cLimit, here < cLimit ? "" : "  !");
    return here < cLimit;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    std::printf("QCustomPlot %s, Qt %s, best of %d in ms, %d x %d pixels\n", QCUSTOMPLOT_VERSION_STR, qVersion(),
                cRepetitions, TSpectrumPage::cWidth, TSpectrumPage::cHeight);
    std::printf("%-44s %8s %8s %9s %6s %9s %6s\n", "", "here", "limit", "same pen", "ratio", "there", "thin");
    const TCase cases[] = {
        {"1,000,000 points, zoom", 1, 1000000, overlayMode, cUnitWavenumber, &TSpectrumPage::zoom, 16.0},
        {"1,000,000 points, zoom, shown in nm", 1, 1000000, overlayMode, cUnitNanometers, &TSpectrumPage::zoom, 16.0},
        {"1,000,000 points, pan", 1, 1000000, overlayMode, cUnitWavenumber, &TSpectrumPage::pan, 8.0},
        {"1,000 curves of 2,000 over each other, zoom", 1000, 2000, overlayMode, cUnitWavenumber, &TSpectrumPage::zoom,
         150.0},
        {"500 curves of 2,000 in rows, zoom", 500, 2000, stackedMode, cUnitWavenumber, &TSpectrumPage::zoom, 150.0},
    };
    bool isGood = true;
    for (const TCase &each : cases)
        isGood = compare(each) && isGood;
    isGood = pointing("mouse over 1,000 curves over each other", 1000, overlayMode) && isGood;
    isGood = pointing("mouse over 500 curves in rows", 500, stackedMode) && isGood;
    return isGood ? 0 : 1;
}
