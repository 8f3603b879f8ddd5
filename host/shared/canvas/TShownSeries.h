#pragma once

#include <QString>
#include <QVector>

/// The numbers of one curve as they are shown. Both arrays have the same length; x runs either way.
struct TShownSeries
{
    QString fTitle;
    QString fXUnit; // names of the shown units
    QString fYUnit;
    QVector<double> fX;
    QVector<double> fY;
};
