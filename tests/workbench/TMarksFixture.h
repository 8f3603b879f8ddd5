#pragma once

#include "TWindowFixture.h"
#include "canvas/TDocument.h"
#include "plot/TPlotHotArea.h"

#include <QProcess>

/// A window with a spectrum of two bands at 600 and 1200 cm-1, both of them picked and integrated.
class TMarksFixture : public TWindowFixture
{
protected:
    void openMarks()
    {
        const QString source = fFolder.filePath("bands.dx");
        QFile file(source);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("##TITLE= bands\n##JCAMP-DX= 4.24\n##DATA TYPE= INFRARED SPECTRUM\n##XUNITS= 1/CM\n"
                   "##YUNITS= ABSORBANCE\n##XFACTOR= 1\n##YFACTOR= 0.0001\n##FIRSTX= 400\n##LASTX= 1400\n"
                   "##NPOINTS= 501\n##XYDATA= (X++(Y..Y))\n");
        for (int i = 0; i <= 500; ++i) {
            const double x = 400.0 + 2.0 * i;
            const auto band = [x](double at) { return 1.0 / (1.0 + std::pow((x - at) / 20.0, 2)); };
            file.write(QByteArray::number(x) + ' ' +
                       QByteArray::number(qRound(10000.0 * (band(600) + 0.5 * band(1200)))) + '\n');
        }
        file.write("##END=\n");
        file.close();
        const QString document = fFolder.filePath("bands.klm");
        QProcess process;
        process.start(ZARNU_PROGRAM, {"process", source, "--pick", "500:700:0.3", "--pick", "1100:1300:0.2",
                                      "--integrate", "540:660", "--integrate", "1150:1250", "-o", document});
        ASSERT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
        ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
        open(document);
        view()->selection().select(item());
        settle();
        fWindow->grab();
    }
    /// The middle of the areas of a type and subtype, from left to right, as places of the view. Found by a look at
    /// every pixel, so that an area that another one covers is not there.
    QVector<QPoint> areas(int type, int subType = -1)
    {
        fWindow->grab();
        QMap<QUuid, QRectF> found;
        const QRect room = view()->viewport()->rect();
        const QTransform toItem = view()->itemToView(*item()).inverted();
        for (int y = room.top(); y < room.bottom(); y += 2) {
            for (int x = room.left(); x < room.right(); x += 2) {
                const TPlotHotArea &area = plot()->hitTest(toItem.map(QPointF(x, y)));
                if (area.type() == type && (subType < 0 || area.subType() == subType))
                    found[area.id()] |= QRectF(x, y, 1, 1);
            }
        }
        QVector<QPoint> places;
        for (const QRectF &rect : found)
            places.append(rect.center().toPoint());
        std::sort(places.begin(), places.end(), [](const QPoint &l, const QPoint &r) { return l.x() < r.x(); });
        return places;
    }
    QVector<QPoint> peakLabels() { return areas(TPlotHotArea::peak); }
    QVector<QPoint> integralAreas(int subType) { return areas(TPlotHotArea::integral, subType); }
    QString readoutAt(const QPoint &place)
    {
        moveTo(place);
        return fWindow->findChild<WStatusReadout *>()->readout();
    }
    void click(const QPoint &place, Qt::KeyboardModifiers keys = {})
    {
        moveTo(place);
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, keys, place);
        settle();
    }
    QAction *action(const char *name)
    {
        fWindow->actionTable().updateStates();
        return fWindow->actionTable().action(name);
    }
    int steps() { return document()->history().stack()->index(); }

    static constexpr int cSegment = 0x001;
    static constexpr int cMiddle = 0x008;
    static constexpr int cLeft = 0x010;
    static constexpr int cRight = 0x020;
    static constexpr int cLabel = 0x100;
};
