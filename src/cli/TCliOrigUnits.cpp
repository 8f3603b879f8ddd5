#include "TCliOrigUnits.h"

#include "TCmdYrexSetOrigUnits.h"
#include "TYrexUnits.h"
#include "commands/TCommandHistory.h"

namespace {

bool parseUnit(const QString &text, bool isX, int &code, QString &error)
{
    if (text.isEmpty())
        return true;
    int unit = cUnitArbitrary;
    const bool known = yrexUnitFromScriptName(text, unit);
    const bool fits = unit == cUnitArbitrary || yrexIsHorizontalUnit(unit) == isX;
    if (known && fits)
        code = unit;
    else
        error = QString("--orig-units: %1 is no unit of the %2 axis").arg(text, isX ? "x" : "y");
    return error.isEmpty();
}

} // namespace

bool TCliOrigUnits::parse(const QString &text, QString &error)
{
    const QStringList parts = text.split(':');
    if (parts.size() != 2 || (parts.at(0).isEmpty() && parts.at(1).isEmpty())) {
        error = QString("--orig-units: %1 is not X:Y").arg(text);
        return false;
    }
    return parseUnit(parts.at(0), true, fX, error) && parseUnit(parts.at(1), false, fY, error);
}

void TCliOrigUnits::apply(const TCanvasItemList &items, TCommandHistory &history) const
{
    if (items.isEmpty() || isEmpty())
        return;
    history.beginMerged();
    if (fX >= 0)
        history.push(new TCmdYrexSetOrigUnits(items, horzDir, fX, TCmdYrexSetOrigUnits::cAllSpectra));
    if (fY >= 0)
        history.push(new TCmdYrexSetOrigUnits(items, vertDir, fY, TCmdYrexSetOrigUnits::cAllSpectra));
    history.endMerged();
}
