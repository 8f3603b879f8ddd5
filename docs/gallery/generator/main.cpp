// Draws the pictures of docs/gallery and its index: gallery FOLDER.

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TGallerySpectra.h"
#include "TYrexPeakPicking.h"
#include "plot/ColorUtils.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QTextStream>
#include <algorithm>
#include <functional>

namespace {

using namespace GallerySpectra;

constexpr int cWidth = 1000; // pixels
constexpr int cHeight = 625;
constexpr double cCanvasWidth = 1700.0; // canvas units: the width of a printed page between its margins
constexpr int cSmallest = 0;            // of the qualities of PNG files
constexpr int cLargestFile = 60000;     // bytes
constexpr int cMostColors = 256;
constexpr int cFewestColors = 32;

struct TPicture
{
    QString name;
    QString caption;
    std::function<TYrexSpectrumList()> spectra;
    std::function<void(TCanvasYrexSpectrum &, T1DYrexPlot &)> setUp;
};

TYrexSpectrumList one()
{
    return {film(0, "Polymer film")};
}

TYrexSpectrumList several(int count)
{
    TYrexSpectrumList spectra;
    for (int i = 0; i < count; ++i)
        spectra.append(film(i, QString("Film %1").arg(i + 1)));
    return spectra;
}

TYrexSpectrumList classes()
{
    TYrexSpectrumList spectra;
    for (int i = 0; i < 6; ++i)
        spectra.append(film(i, QString("Film %1").arg(i + 1), 0.0, i % 2 == 0 ? "aged" : i < 3 ? "fresh" : "stored"));
    return spectra;
}

TYrexSpectrumList dilutions()
{
    TYrexSpectrumList spectra;
    for (int i = 1; i <= 5; ++i)
        spectra.append(dye(0.2 * i, QString("%1 mg/L").arg(2 * i)));
    return spectra;
}

void pick(TCanvasYrexSpectrum &item, double level)
{
    TYrexSpectrum &spectrum = *item.currentSpectrum();
    TYrexPeakPicking::pickInRange(spectrum, 0, spectrum.pointCount() - 1, level);
    for (TYrexDPLib::TYrexDPPeak *peak : spectrum.peaks())
        peak->annotation = QString();
}

void integrate(TCanvasYrexSpectrum &item, const QVector<QPair<double, double>> &regions)
{
    TYrexSpectrum &spectrum = *item.currentSpectrum();
    const double perX = (spectrum.pointCount() - 1) / (spectrum.lastX() - spectrum.firstX());
    for (const auto &region : regions)
        spectrum.integrals().appendCalculated(TYrexIntegrationRegion((region.first - spectrum.firstX()) * perX,
                                                                     (region.second - spectrum.firstX()) * perX,
                                                                     TYrexIntegrationRegion::cManual),
                                              spectrum, spectrum.yUnits());
}

const QVector<QPair<double, double>> cRegions = {{3120, 2990}, {2960, 2815}, {1520, 1470},
                                                 {1470, 1425}, {780, 735},   {720, 675}};

QVector<TPicture> modes()
{
    const auto inMode = [](int mode) {
        return [mode](TCanvasYrexSpectrum &, T1DYrexPlot &plot) {
            plot.setStackedDisplayMode(mode);
            plot.resetView();
        };
    };
    return {
        {"active", "Active only: the current spectrum of three.", [] { return several(3); }, inMode(activeOnlyMode)},
        {"overlay", "Overlay with a legend; the current spectrum is drawn last and wider.", [] { return several(5); },
         [](TCanvasYrexSpectrum &, T1DYrexPlot &plot) { plot.properties().showLegend = true; }},
        {"stacked", "Stacked, with the titles at the right ends.", [] { return several(6); }, inMode(stackedMode)},
        {"hidden-lines", "Stacked with hidden lines, skewed by 25 degrees.", [] { return several(8); },
         [](TCanvasYrexSpectrum &, T1DYrexPlot &plot) {
             plot.setStackedDisplayMode(hiddenLinesMode);
             plot.stackedProperties().setAngle(25.0);
             plot.resetView();
         }},
        {"queued", "Queued: side by side.", [] { return several(4); }, inMode(queuedMode)},
        {"grouped", "Grouped: a row per class.", classes,
         [](TCanvasYrexSpectrum &item, T1DYrexPlot &plot) {
             item.stack().setGrouped(1);
             plot.setStackedDisplayMode(groupedMode);
             plot.resetView();
         }},
        {"stack-50", "A stack of 50 with hidden lines; every nth has its title.", [] { return several(50); },
         [](TCanvasYrexSpectrum &, T1DYrexPlot &plot) {
             plot.setStackedDisplayMode(hiddenLinesMode);
             plot.stackedProperties().setSpacing(40.0);
             plot.stackedProperties().setTopMargin(0.12);
             plot.setScale(horzDir, 1800, 400);
         }},
        {"overlay-50", "An overlay of 50 in sequential colours; the legend is a bar.", [] { return several(50); },
         [](TCanvasYrexSpectrum &, T1DYrexPlot &plot) {
             plot.properties().showLegend = true;
             plot.setScale(horzDir, 1800, 400);
         }},
    };
}

QVector<TPicture> peaks()
{
    const char *const cNames[] = {"top", "bottom", "simple", "crowded", "groups"};
    QVector<TPicture> pictures;
    for (int position = 0; position < 5; ++position) {
        for (const int orientation : {0, 1}) {
            const QString way = orientation == 0 ? "vertical" : "horizontal";
            pictures.append({QString("peaks-%1-%2").arg(cNames[position], way),
                             QString("Peak labels, position \"%1\", %2.").arg(cNames[position], way), one,
                             [position, orientation](TCanvasYrexSpectrum &item, T1DYrexPlot &plot) {
                                 pick(item, 0.15);
                                 plot.peakProperties().position = position;
                                 plot.peakProperties().orientation = orientation;
                                 plot.peakProperties().decimals = orientation == 0 ? 1 : 0;
                             }});
        }
    }
    pictures.append({"peaks-annotated", "Annotated peaks, zoomed; annotations are typeset.", one,
                     [](TCanvasYrexSpectrum &item, T1DYrexPlot &plot) {
                         pick(item, 0.4);
                         for (TYrexDPLib::TYrexDPPeak *peak : item.currentSpectrum()->peaks())
                             peak->annotation = peak->intensity > 0.8 ? "δ(CH_2)" : "ν(C=C)";
                         plot.peakProperties().decimals = 0;
                         plot.setScale(horzDir, 1800, 600);
                         plot.fitToHeight();
                     }});
    pictures.append({"peaks-transmittance", "Minima of a transmittance spectrum, labelled at the bottom.",
                     [] { return TYrexSpectrumList{transmitting("Polymer film")}; },
                     [](TCanvasYrexSpectrum &item, T1DYrexPlot &plot) {
                         pick(item, 60.0);
                         plot.peakProperties().position = 1;
                         plot.peakProperties().decimals = 0;
                     }});
    return pictures;
}

QVector<TPicture> integrals()
{
    return {
        {"integrals-segment", "Integrals with labels at their segments.", one,
         [](TCanvasYrexSpectrum &item, T1DYrexPlot &) { integrate(item, cRegions); }},
        {"integrals-segment-horizontal", "The same with horizontal labels, zoomed.", one,
         [](TCanvasYrexSpectrum &item, T1DYrexPlot &plot) {
             integrate(item, cRegions);
             plot.integralProperties().labelOrientation = 1;
             plot.setScale(horzDir, 1650, 600);
             plot.fitToHeight();
         }},
        {"integrals-curve", "Integrals with labels at their curves.", one,
         [](TCanvasYrexSpectrum &item, T1DYrexPlot &plot) {
             integrate(item, {{3120, 2815}, {1640, 1425}, {1100, 1000}, {780, 675}});
             plot.integralProperties().labelPosition = 1;
             plot.integralProperties().labelOrientation = 1;
         }},
        {"hidden-ranges", "Hidden ranges: cut marks on the axis, arrowheads where an integral is cut.", one,
         [](TCanvasYrexSpectrum &item, T1DYrexPlot &plot) {
             integrate(item, {{3120, 2800}, {1520, 1400}, {1100, 640}});
             pick(item, 0.3);
             plot.peakProperties().decimals = 0;
             plot.hideRange(horzDir, TRange(2750, 1700));
             plot.hideRange(horzDir, TRange(1000, 800));
         }},
    };
}

QVector<TPicture> looks()
{
    return {
        {"baseline", "Baseline preview with its control points; filled ones stay where they were put.",
         [] { return TYrexSpectrumList{raman("Fluorescent sample")}; },
         [](TCanvasYrexSpectrum &item, T1DYrexPlot &) {
             TYrexSpectrum &spectrum = *item.currentSpectrum();
             const int count = spectrum.pointCount();
             spectrum.allocPreview(count);
             const auto curve = [](double x) { return 900.0 * std::exp(-std::pow((x - 1400.0) / 1300.0, 2)) + 120.0; };
             for (int i = 0; i < count; ++i)
                 spectrum.preview()[i] = curve(200.0 + 2.0 * i);
             QVector<TYrexBaselinePoint> &points = spectrum.procParams().multipoint().points;
             for (int i = 20; i < count; i += 207) {
                 TYrexBaselinePoint point;
                 point.x = i;
                 point.y = curve(200.0 + 2.0 * i);
                 point.kind = points.size() % 3 == 0 ? 1 : 2;
                 points.append(point);
             }
         }},
        {"second-axis", "Wavelengths above wavenumbers.", one,
         [](TCanvasYrexSpectrum &, T1DYrexPlot &plot) { plot.properties().secondAxis = cUnitMicrometers; }},
        {"second-axis-nm", "Wavenumbers above wavelengths, sequential colours of an ordered series.", dilutions,
         [](TCanvasYrexSpectrum &item, T1DYrexPlot &plot) {
             plot.properties().secondAxis = cUnitWavenumber;
             plot.properties().showLegend = true;
             plot.stackedProperties().setColorMode(sequentialColors);
             item.updateStackedColors();
         }},
        {"dark", "Dark paper: the same stored colours, mapped while drawing.", [] { return several(5); },
         [](TCanvasYrexSpectrum &item, T1DYrexPlot &plot) {
             pick(item, 0.5);
             integrate(item, {{3120, 2815}, {1640, 1425}});
             plot.peakProperties().decimals = 0;
             plot.properties().showLegend = true;
             plot.setState(TBasePlot::cDarkPaper, true);
         }},
        {"black-and-white", "For print without colours: dashes tell the curves apart.", [] { return several(4); },
         [](TCanvasYrexSpectrum &, T1DYrexPlot &plot) {
             plot.properties().showLegend = true;
             plot.setState(TBasePlot::cBlackAndWhite, true);
             plot.setScale(horzDir, 1700, 600);
         }},
        {"journal", "As journals ask for: black, a box, ticks inside.", one,
         [](TCanvasYrexSpectrum &item, T1DYrexPlot &plot) {
             pick(item, 0.35);
             plot.peakProperties().decimals = 0;
             plot.peakProperties().pen.setColor(Qt::black);
             plot.properties().curvePen.setColor(Qt::black);
             plot.properties().frame = boxFrame;
             plot.properties().tickDirection = ticksIn;
             plot.titleProperties().visible = false;
         }},
        {"thousand", "Of 1200 spectra 1000 are drawn, and the plot says so.",
         [] {
             TYrexSpectrumList spectra;
             for (int i = 0; i < 1200; ++i)
                 spectra.append(dye(0.2 + 0.0008 * i, QString("%1").arg(i + 1)));
             return spectra;
         },
         [](TCanvasYrexSpectrum &, T1DYrexPlot &) {}},
    };
}

/// The picture with its most frequent colours, finer steps taken together; every other colour becomes the nearest
/// of them.
QImage withPalette(const QImage &image, int colorCount)
{
    constexpr QRgb cCoarse = 0xFFF8F8F8;
    QHash<QRgb, int> counts;
    QHash<QRgb, QRgb> shown; // of the coarse colour, the first of its fine ones
    const auto at = [&](int x, int y) {
        return reinterpret_cast<const QRgb *>(image.constScanLine(y))[x] | 0xFF000000;
    };
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ++counts[at(x, y) & cCoarse];
            shown.insert(at(x, y) & cCoarse, shown.value(at(x, y) & cCoarse, at(x, y)));
        }
    }
    QList<QRgb> order = counts.keys();
    std::sort(order.begin(), order.end(), [&](QRgb l, QRgb r) {
        return counts.value(l) != counts.value(r) ? counts.value(l) > counts.value(r) : l < r;
    });
    QVector<QRgb> palette;
    for (const QRgb color : order.mid(0, colorCount))
        palette.append(shown.value(color));
    QImage result(image.size(), QImage::Format_Indexed8);
    result.setColorTable(palette);
    QHash<QRgb, uchar> nearest;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb color = at(x, y);
            if (!nearest.contains(color)) {
                const auto distance = [color](QRgb other) {
                    const int red = qRed(color) - qRed(other);
                    const int green = qGreen(color) - qGreen(other);
                    const int blue = qBlue(color) - qBlue(other);
                    return red * red + green * green + blue * blue;
                };
                const auto best = std::min_element(palette.cbegin(), palette.cend(),
                                                   [&](QRgb l, QRgb r) { return distance(l) < distance(r); });
                nearest.insert(color, uchar(best - palette.cbegin()));
            }
            result.scanLine(y)[x] = nearest.value(color);
        }
    }
    return result;
}

void draw(const TPicture &picture, const QString &folder)
{
    TCanvasYrexSpectrum item(picture.spectra(), nullptr, nullptr);
    T1DYrexPlot *plot = item.activeYrexPlot();
    plot->setState(TBasePlot::cKeepHotAreas, true);
    picture.setUp(item, *plot);
    const double scale = cWidth / cCanvasWidth;
    item.setRect(QRectF(0.0, 0.0, cCanvasWidth, cHeight / scale));
    QImage image(cWidth, cHeight, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    item.paint(painter);
    painter.end();
    const QString fileName = folder + '/' + picture.name + ".png";
    for (int colors = cMostColors; colors >= cFewestColors; colors /= 2) {
        withPalette(image, colors).save(fileName, "PNG", cSmallest);
        if (QFileInfo(fileName).size() <= cLargestFile)
            break;
    }
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".");
    const QString wanted = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
    QFile index(folder + "/README.md");
    if (wanted.isEmpty() && !index.open(QIODevice::WriteOnly | QIODevice::Text))
        return 1;
    QTextStream text(&index);
    text.setCodec("UTF-8");
    if (index.isOpen())
        text << "# Gallery\n\nWhat the plot draws, made by `scripts/gallery.sh` from spectra of its own.\n";
    const QVector<QPair<QString, QVector<TPicture>>> chapters = {
        {"Display modes", modes()}, {"Peaks", peaks()}, {"Integrals", integrals()}, {"Looks", looks()}};
    for (const auto &chapter : chapters) {
        if (index.isOpen())
            text << "\n## " << chapter.first << "\n";
        for (const TPicture &picture : chapter.second) {
            if (!wanted.isEmpty() && !picture.name.startsWith(wanted))
                continue;
            draw(picture, folder);
            if (index.isOpen())
                text << "\n" << picture.caption << "\n\n![" << picture.caption << "](" << picture.name << ".png)\n";
        }
    }
    return 0;
}
