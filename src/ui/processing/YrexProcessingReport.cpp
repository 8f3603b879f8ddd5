#include "YrexProcessingReport.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexChainRules.h"
#include "TYrexProcDefaults.h"
#include "TYrexUnits.h"
#include "exchange/TPictureOrigin.h"

#include <QCoreApplication>

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("YrexProcessingReport", source);
}

QString number(double value)
{
    return TYrexChainRules::valueText(QString(), value);
}

QString units(int x, int y)
{
    return QString("%1, %2").arg(yrexUnitDisplayName(x), yrexUnitDisplayName(y));
}

TReport::TRows headOf(const TCanvasYrexSpectrum &item)
{
    const TYrexSpectrum &spectrum = *item.currentSpectrum();
    const TPictureOrigin origin = TPictureOrigin::of(item);
    TReport::TRows rows;
    const auto add = [&rows](const QString &label, const QString &value) {
        if (!value.isEmpty())
            rows.append({label, value});
    };
    add(text("Item"), item.title(true).section('\n', 0, 0).trimmed());
    add(text("Spectrum"), spectrum.title());
    add(text("File"), origin.source());
    add(text("md5"), origin.checksum());
    add(text("Date"), spectrum.acquisitionDate().toString(Qt::ISODate));
    add(text("Points"), QString::number(spectrum.pointCount()));
    add(text("X range"), text("%1 to %2").arg(number(spectrum.firstX()), number(spectrum.lastX())));
    add(text("Original units"), units(spectrum.origXUnits(), spectrum.origYUnits()));
    add(text("Shown units"), units(spectrum.xUnits(), spectrum.yUnits()));
    add(text("Program"), origin.fProgram);
    return rows;
}

TReport::TRows multipointRows(const TYrexMultipointSetup &setup, const QVariantMap &map)
{
    static const char *const cCurves[] = {QT_TRANSLATE_NOOP("YrexProcessingReport", "Linear Segments"),
                                          QT_TRANSLATE_NOOP("YrexProcessingReport", "Smooth Segments"),
                                          QT_TRANSLATE_NOOP("YrexProcessingReport", "Cubic Splines"),
                                          QT_TRANSLATE_NOOP("YrexProcessingReport", "Whittaker")};
    const int curve = qBound(0, int(setup.algorithm), 3);
    TReport::TRows rows{{text("Curve"), text(cCurves[curve])},
                        {text("Averaging, points"), QString::number(setup.avgWindow)},
                        {text("Number of points"), QString::number(setup.points.size())}};
    const QString baseline = TYrexChainRules::valueText(cKeyMultipointBaseline, map.value(cKeyMultipointBaseline));
    if (!baseline.isEmpty())
        rows.append({text("Baseline"), baseline});
    return rows;
}

} // namespace

TReport yrexProcessingReport(const TCanvasYrexSpectrum &item)
{
    TReport report;
    report.fTitle = text("Zarnu Processing Actions");
    if (!item.currentSpectrum())
        return report;
    report.fHead = headOf(item);
    const TYrexProcParams &params = item.currentSpectrum()->procParams().params();
    for (int row = 0; row < params.actionCount(); ++row) {
        if (!params.isApplied(row))
            continue;
        const QVariantMap map = params.action(row);
        const int id = params.actionId(row);
        TReport::TSection section{TYrexProcParams::label(id), {}};
        if (id == cProcMultipointBaseline) {
            section.fRows = multipointRows(params.multipoint(), map);
        } else {
            for (const TYrexProcKey &key : TYrexProcDefaults::keysOf(id, true)) {
                if (map.contains(key.fKey))
                    section.fRows.append({TYrexChainRules::keyLabel(key.fKey, map),
                                          TYrexChainRules::valueText(key.fKey, map.value(key.fKey))});
            }
        }
        report.fSections.append(section);
    }
    if (report.fSections.isEmpty())
        report.fFoot = text("None Applied");
    return report;
}
