#include "YrexPropertyTable.h"

#include "TYrexUnits.h"
#include "plot/T1DStackedPlotProperties.h"
#include "plot/TAxis.h"
#include "plot/TAxisTicks.h"
#include "plot/TBasePlotProperties.h"
#include "plot/TTitleProperties.h"

#include <QCoreApplication>
#include <QStringList>

#define TEXT(text) QT_TRANSLATE_NOOP("YrexProperties", text)

namespace {

using TControl = TYrexPropertyControl;
using TControls = QVector<TControl>;
using TRow = TYrexPropertyRow;
using TRows = QVector<TRow>;
using TChoices = QVector<QPair<int, const char *>>;

constexpr double cMillimetres = 0.1; // per canvas unit
constexpr double cPercent = 100.0;
constexpr double cMaxStep = 1e12;

TControl check(const QString &key, const char *text)
{
    TControl control;
    control.fKey = key;
    control.fText = text;
    return control;
}

TControl number(const QString &key, double lowest, double highest, double step, int decimals, const char *suffix = "")
{
    TControl control;
    control.fKind = TControl::number;
    control.fKey = key;
    control.fText = suffix;
    control.fLowest = lowest;
    control.fHighest = highest;
    control.fStep = step;
    control.fDecimals = decimals;
    return control;
}

TControl scaled(TControl control, double scale)
{
    control.fScale = scale;
    return control;
}

TControl withLowest(TControl control, const char *text)
{
    control.fLowestText = text;
    return control;
}

TControl needing(TControl control, const QString &key)
{
    control.fNeeds = key;
    return control;
}

TControl percent(const QString &key, double highest)
{
    TControl control = scaled(number(key, 0.0, highest, 1.0, 0, TEXT(" %")), cPercent);
    control.fKind = TControl::percent;
    return control;
}

TControl plain(TControl::TKind kind, const QString &key, const char *text = "")
{
    TControl control = check(key, text);
    control.fKind = kind;
    return control;
}

TControl choice(const QString &key, const TChoices &choices)
{
    TControl control = plain(TControl::choice, key);
    control.fChoices = choices;
    return control;
}

TControl color(const QString &key)
{
    return plain(TControl::color, key);
}

TControl width(const QString &key, double highest, double lowest = 0.5)
{
    return number(key, lowest, highest, 0.5, 1);
}

TControl style(const QString &key)
{
    return choice(key, {{Qt::SolidLine, TEXT("Solid")},
                        {Qt::DashLine, TEXT("Dashed")},
                        {Qt::DotLine, TEXT("Dotted")},
                        {Qt::DashDotLine, TEXT("Dash-dot")},
                        {Qt::DashDotDotLine, TEXT("Dash-dot-dot")}});
}

TControls pen(const QString &key)
{
    return {color(key + ".color"), width(key + ".width", 30.0), style(key + ".style")};
}

TControls font(const QString &key)
{
    return {plain(TControl::family, key + ".family"), number(key + ".size", 10.0, 100.0, 1.0, 1),
            check(key + ".bold", TEXT("Bold")), check(key + ".italic", TEXT("Italic"))};
}

TControl margin(const QString &key)
{
    return withLowest(scaled(number(key, -0.1, 50.0, 0.5, 1, TEXT(" mm")), cMillimetres), TEXT("auto"));
}

TControl decimals(const QString &key)
{
    return number(key, 0.0, 8.0, 1.0, 0);
}

TRow row(const char *label, const TControls &controls)
{
    return {label, {controls}, {}};
}

TRow heading(const char *label, const QVector<const char *> &heads = {})
{
    return {label, {}, heads};
}

/// A row with the same control for both axes.
template <typename TMake>
TRow perAxis(const char *label, TMake make)
{
    return {label, {{make(QStringLiteral("axes.horizontal."))}, {make(QStringLiteral("axes.vertical."))}}, {}};
}

TRows plotRows()
{
    return {
        row(TEXT("Background"), {color("plot.background")}),
        row(TEXT("Frame"),
            {choice("plot.frame",
                    {{noFrame, TEXT("None")}, {axesFrame, TEXT("Left and bottom")}, {boxFrame, TEXT("Box")}})}),
        heading(TEXT("Margins")),
        row(TEXT("Left"), {margin("plot.marginLeft")}),
        row(TEXT("Top"), {margin("plot.marginTop")}),
        row(TEXT("Right"), {margin("plot.marginRight")}),
        row(TEXT("Bottom"), {margin("plot.marginBottom")}),
        heading(TEXT("View")),
        row("", {check("plot.keepFitting", TEXT("Keep fitting height"))}),
        row("", {check("plot.legend", TEXT("Legend"))}),
    };
}

TRows titleRows()
{
    const auto offset = [](const QString &key) {
        return scaled(number(key, -50.0, 50.0, 0.5, 1, TEXT(" mm")), cMillimetres);
    };
    return {
        row("", {check("title.visible", TEXT("Show"))}),
        row(TEXT("Format"), {plain(TControl::titleFormat, "title.format")}),
        row(TEXT("Font"), font("title.font")),
        row(TEXT("Colour"), {color("title.color")}),
        row(TEXT("Position"), {choice("title.position", {{titleOnTop, TEXT("Top")},
                                                         {titleAtLeft, TEXT("Left")},
                                                         {titleAtRight, TEXT("Right")},
                                                         {titleInside, TEXT("Inside")}})}),
        row(TEXT("Alignment"), {choice("title.alignment", {{alignTitleLeft, TEXT("Left")},
                                                           {alignTitleCentre, TEXT("Centre")},
                                                           {alignTitleRight, TEXT("Right")}})}),
        row(TEXT("Offset right"), {offset("title.offsetX")}),
        row(TEXT("Offset down"), {offset("title.offsetY")}),
        row("", {check("title.stacked", TEXT("One title per spectrum in stacks"))}),
    };
}

TRows bothAxesRows()
{
    return {
        heading(TEXT("Both axes")),
        row(TEXT("Colour, line width"), {color("axes.color"), width("axes.lineWidth", 20.0)}),
        row(TEXT("Ticks"), {choice("axes.tickDirection",
                                   {{ticksOut, TEXT("Out")}, {ticksIn, TEXT("In")}, {ticksBoth, TEXT("Both")}})}),
        row(TEXT("Font of numbers"), font("axes.font")),
        row(TEXT("Font of titles"), font("axes.titleFont")),
        row(TEXT("Second axis on top"), {choice("axes.second", {{TBasePlotProperties::cNoSecondAxis, TEXT("None")},
                                                                {cUnitWavenumber, TEXT("cm\xE2\x81\xBB\xC2\xB9")},
                                                                {cUnitNanometers, TEXT("nm")},
                                                                {cUnitMicrometers, TEXT("\xC2\xB5m")}})}),
    };
}

TRows axesRows()
{
    const TChoices places = {{axisAtBottom, TEXT("Bottom")},
                             {axisAtTop, TEXT("Top")},
                             {axisAtLeft, TEXT("Left")},
                             {axisAtRight, TEXT("Right")}};
    const TChoices horizontal = {places.at(0), places.at(1)};
    const TChoices vertical = {places.at(2), places.at(3)};
    const TChoices forms = {{autoNumbers, TEXT("Automatic")},
                            {fixedNumbers, TEXT("Fixed decimals")},
                            {scientificNumbers, TEXT("Scientific")}};
    return TRows{
               heading("", {TEXT("Horizontal"), TEXT("Vertical")}),
               perAxis("", [](const QString &axis) { return check(axis + "visible", TEXT("Show")); }),
               perAxis("", [](const QString &axis) { return check(axis + "labelFromData", TEXT("Label from data")); }),
               perAxis(TEXT("Own label"),
                       [](const QString &axis) {
                           return needing(plain(TControl::text, axis + "label"), '!' + axis + "labelFromData");
                       }),
               {TEXT("Units"), {{plain(TControl::units, "horizontal")}, {plain(TControl::units, "vertical")}}, {}},
               {TEXT("Position"),
                {{choice("axes.horizontal.position", horizontal)}, {choice("axes.vertical.position", vertical)}},
                {}},
               {TEXT("Limits"),
                {{plain(TControl::trigger, "horzLimits", TEXT("Limits..."))},
                 {plain(TControl::trigger, "vertLimits", TEXT("Limits..."))}},
                {}},
               perAxis("", [](const QString &axis) { return check(axis + "reversed", TEXT("Reversed")); }),
               perAxis(TEXT("Tick step"),
                       [](const QString &axis) {
                           return withLowest(number(axis + "step", 0.0, cMaxStep, 1.0, 6), TEXT("auto"));
                       }),
               perAxis(TEXT("Minor ticks"),
                       [](const QString &axis) {
                           return withLowest(number(axis + "minorCount", -1.0, 9.0, 1.0, 0), TEXT("auto"));
                       }),
               perAxis(TEXT("Numbers"), [&forms](const QString &axis) { return choice(axis + "numberForm", forms); }),
               perAxis(TEXT("Decimals"), [](const QString &axis) { return decimals(axis + "decimals"); }),
           } +
           bothAxesRows();
}

TRows gridRows()
{
    return {
        heading("", {TEXT("Horizontal"), TEXT("Vertical")}),
        perAxis("", [](const QString &axis) { return check(axis + "majorGrid", TEXT("Major lines")); }),
        perAxis("", [](const QString &axis) { return check(axis + "minorGrid", TEXT("Minor lines")); }),
        perAxis(TEXT("Colour"), [](const QString &axis) { return color(axis + "gridColor"); }),
        perAxis(TEXT("Major width"), [](const QString &axis) { return width(axis + "majorGridWidth", 20.0, 0.1); }),
        perAxis(TEXT("Minor width"), [](const QString &axis) { return width(axis + "minorGridWidth", 20.0, 0.1); }),
        perAxis(TEXT("Style"), [](const QString &axis) { return style(axis + "gridStyle"); }),
    };
}

TRows curveRows()
{
    return {
        row(TEXT("Pen"), pen("curve.pen")),
        row(TEXT("Fill to baseline"), {percent("curve.fillAlpha", 100.0)}),
        row("", {check("curve.markers", TEXT("Dots, when under 200 points are in view"))}),
        row("", {check("curve.baseLine", TEXT("Baseline"))}),
    };
}

TRows peakRows()
{
    return {
        row("", {check("peaks.labels", TEXT("Labels")), check("peaks.ticks", TEXT("Ticks")),
                 check("peaks.inCurveColor", TEXT("Labels in curve colour"))}),
        row(TEXT("Font"), font("peaks.font")),
        row(TEXT("Pen"), pen("peaks.pen")),
        row(TEXT("Curve colour"), {color("peaks.curveColor")}),
        row(TEXT("Orientation"), {choice("peaks.orientation", {{0, TEXT("Vertical")}, {1, TEXT("Horizontal")}})}),
        row(TEXT("Position"), {choice("peaks.position", {{0, TEXT("Top")},
                                                         {1, TEXT("Bottom")},
                                                         {2, TEXT("Peak (Simple)")},
                                                         {3, TEXT("Peak (Crowded)")},
                                                         {4, TEXT("Peak Groups")}})}),
        row(TEXT("Units"),
            {choice(
                "peaks.units",
                {{0, TEXT("As axis")}, {1, TEXT("cm\xE2\x81\xBB\xC2\xB9")}, {2, TEXT("nm")}, {3, TEXT("\xC2\xB5m")}})}),
        row(TEXT("Decimals"), {decimals("peaks.decimals")}),
        row(TEXT("Content"),
            {check("peaks.showPosition", TEXT("Position")), check("peaks.showAnnotation", TEXT("Annotation"))}),
        row(TEXT("Margin"), {percent("peaks.margin", 50.0)}),
    };
}

TRows integralRows()
{
    return {
        row("", {check("integrals.visible", TEXT("Integrals")), check("integrals.curves", TEXT("Curves")),
                 check("integrals.labels", TEXT("Labels"))}),
        row("",
            {check("integrals.method", TEXT("Method symbol")), check("integrals.segments", TEXT("Range segments"))}),
        row(TEXT("Pen"), pen("integrals.pen")),
        row(TEXT("Label colour"), {color("integrals.labelColor")}),
        row(TEXT("Font"), font("integrals.font")),
        row(TEXT("Label position"),
            {choice("integrals.labelPosition", {{0, TEXT("On Segment")}, {1, TEXT("On Curve")}})}),
        row(TEXT("Label orientation"),
            {choice("integrals.labelOrientation", {{0, TEXT("Vertical")}, {1, TEXT("Horizontal")}})}),
        row(TEXT("Decimals"), {decimals("integrals.decimals")}),
        row(TEXT("Segment height"), {percent("integrals.rangeMargin", 100.0)}),
        row(TEXT("Curve top"), {percent("integrals.curveMargin", 100.0)}),
        row(TEXT("Curve height"), {percent("integrals.curveMaxHeight", 100.0)}),
    };
}

TRows stackRows()
{
    using S = T1DStackedPlotProperties;
    return {
        row(TEXT("Display mode"), {choice("stack.displayMode", {{activeOnlyMode, TEXT("Active Only")},
                                                                {stackedMode, TEXT("Stacked")},
                                                                {overlayMode, TEXT("Overlay")},
                                                                {hiddenLinesMode, TEXT("Stacked, Hidden Lines")},
                                                                {queuedMode, TEXT("Queued")},
                                                                {groupedMode, TEXT("Grouped")}})}),
        row(TEXT("Angle"), {number("stack.angle", 0.0, S::cMaxAngle, 5.0, 1, TEXT("\xC2\xB0"))}),
        row(TEXT("Spacing"), {number("stack.spacing", S::cMinSpacing, S::cMaxSpacing, 10.0, 0, TEXT(" %"))}),
        row(TEXT("Top margin"), {percent("stack.topMargin", 45.0)}),
        row(TEXT("Bottom margin"), {percent("stack.bottomMargin", 45.0)}),
        heading(TEXT("Colours")),
        row(TEXT("Setting"), {choice("stack.colorSetting", {{singleColorSetting, TEXT("Single Color")},
                                                            {gradientSetting, TEXT("Gradient")},
                                                            {hueSetting, TEXT("Hue Color")}})}),
        row(TEXT("Mode"), {choice("stack.colorMode", {{oneColor, TEXT("Base")},
                                                      {lightToDarkColors, TEXT("Light to dark")},
                                                      {sequentialColors, TEXT("Sequential")},
                                                      {paletteColors, TEXT("Palette")}})}),
        row(TEXT("Base colour"), {color("stack.baseColor")}),
        heading(TEXT("Classes")),
        row("", {plain(TControl::classes, "stack.classes")}),
        heading(TEXT("Active spectrum")),
        row(TEXT("Curve width factor"), {number("stack.activePenFactor", 1.0, 5.0, 0.1, 1)}),
        row("", {check("stack.fadesUnused", TEXT("Fade spectra that are not used"))}),
    };
}

} // namespace

const QVector<TYrexPropertyPage> &yrexPropertyPages()
{
    static const QVector<TYrexPropertyPage> cPages = {
        {TEXT("Plot"), plotRows()},          {TEXT("Title"), titleRows()}, {TEXT("Axes"), axesRows()},
        {TEXT("Grid"), gridRows()},          {TEXT("Curve"), curveRows()}, {TEXT("Peaks"), peakRows()},
        {TEXT("Integrals"), integralRows()}, {TEXT("Stack"), stackRows()}};
    return cPages;
}

QString yrexPropertyText(const char *text)
{
    return *text ? QCoreApplication::translate("YrexProperties", text) : QString();
}

QStringList yrexPropertyKeys(const TYrexPropertyPage &page)
{
    QStringList keys;
    for (const TYrexPropertyRow &each : page.fRows) {
        for (const QVector<TYrexPropertyControl> &cell : each.fCells) {
            for (const TYrexPropertyControl &control : cell) {
                if (control.fKind != TYrexPropertyControl::units && control.fKind != TYrexPropertyControl::trigger)
                    keys.append(control.fKey);
            }
        }
    }
    return keys;
}
