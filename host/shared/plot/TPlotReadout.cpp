#include "plot/TPlotReadout.h"

#include <QCoreApplication>

QString TPlotReadout::text() const
{
    if (!fMark.isEmpty())
        return fMark;
    if (!fIsValid)
        return QString();
    QString text = "x " + fX;
    if (!fSecondX.isEmpty())
        text += QString(" (%1)").arg(fSecondX);
    text += "  y " + fY;
    if (!fTitle.isEmpty())
        text += "  " + fTitle;
    if (fCount > 1 && fIndex >= 0)
        text += "  " + QCoreApplication::translate("TPlotReadout", "#%1 of %2").arg(fIndex + 1).arg(fCount);
    return text;
}
