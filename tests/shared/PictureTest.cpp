#include "SeriesBuilder.h"
#include "TTestPlot.h"
#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <gtest/gtest.h>

namespace {

constexpr double cWidth = 1600.0; // canvas units: 160 mm
constexpr double cHeight = 1000.0;

void setUp(TTestPlot &plot, int curves)
{
    plot.x = SeriesBuilder::evenSteps(4000.0, 400.0, 3601);
    for (int i = 0; i < curves; ++i)
        plot.ys.append(SeriesBuilder::absorbance(plot.x, 0.004, i));
    plot.text = QStringLiteral("Ethyl acetoacetate, film on ZnSe, 4 cm^-1, 64 scans");
    plot.setAxisLabel(horzDir, QStringLiteral("Wavenumber [cm^-1]"));
    plot.setAxisLabel(vertDir, QStringLiteral("Absorbance"));
    QVector<int> all;
    for (int i = 0; i < curves; ++i) {
        all.append(i);
        plot.titles.append(QStringLiteral("Sample %1").arg(i + 1));
    }
    plot.stackedProperties().generateColorsVector(TStackedClassProperties(), all);
    plot.fit();
}

QImage rendered(TTestPlot &plot, int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(width / cWidth, height / cHeight);
    plot.draw(painter, QRectF(0.0, 0.0, cWidth, cHeight));
    return image;
}

/// With YREX_PICTURES set to a folder, pictures are left there to be looked at.
void keep(TTestPlot &plot, const QString &name)
{
    const QString folder = qEnvironmentVariable("YREX_PICTURES");
    if (folder.isEmpty())
        return;
    rendered(plot, 1600, 1000).save(folder + "/" + name + ".png");
    QSvgGenerator svg;
    svg.setFileName(folder + "/" + name + ".svg");
    svg.setViewBox(QRectF(0.0, 0.0, cWidth, cHeight));
    svg.setSize(QSize(600, 375));
    QPainter painter(&svg);
    plot.draw(painter, QRectF(0.0, 0.0, cWidth, cHeight));
    painter.end();
    QPdfWriter pdf(folder + "/" + name + ".pdf");
    pdf.setResolution(1200);
    pdf.setPageSize(QPageSize(QSizeF(cWidth / 10, cHeight / 10), QPageSize::Millimeter));
    pdf.setPageMargins(QMarginsF());
    painter.begin(&pdf);
    painter.scale(pdf.width() / cWidth, pdf.height() / cHeight);
    plot.draw(painter, QRectF(0.0, 0.0, cWidth, cHeight));
    painter.end();
}

} // namespace

TEST(Picture, single)
{
    TTestPlot plot;
    setUp(plot, 1);
    keep(plot, "single");
}

TEST(Picture, overlay)
{
    TTestPlot plot;
    setUp(plot, 5);
    plot.setStackedDisplayMode(overlayMode);
    keep(plot, "overlay");
}
