#include "TYrexSpectrumPropertyFields.h"

#include "T1DYrexPlot.h"
#include "TYrexUnits.h"

#include <cmath>
#include <limits>

namespace {

using TFields = QVector<TYrexSpectrumPropertyField>;

constexpr double cMaxStackMargin = 0.45; // of the height, as the properties hold it
constexpr double cMaxMargin = 500.0;     // canvas units, 50 mm
constexpr double cMaxFontSize = 100.0;
constexpr double cMinFontSize = 10.0;
constexpr double cMaxCurveWidth = 30.0;
constexpr double cMinLineWidth = 0.5;
constexpr double cMaxLineWidth = 20.0;
constexpr double cMaxStep = 1e12;
constexpr int cMaxDecimals = 8;
constexpr int cMaxMinorTicks = 9;
constexpr int cMaxPosition = 4;

bool isNumberWithin(const QVariant &value, double lowest, double highest)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber && number >= lowest && number <= highest; // false for NaN
}

/// `access` answers a reference to the property.
template <typename TAccess>
TYrexSpectrumPropertyField number(const QString &key, double lowest, double highest, TAccess access)
{
    return {key, [access](T1DYrexPlot &plot) { return QVariant(double(access(plot))); },
            [access, lowest, highest](T1DYrexPlot &plot, const QVariant &value) {
                if (isNumberWithin(value, lowest, highest))
                    access(plot) = value.toDouble();
            }};
}

template <typename TAccess>
TYrexSpectrumPropertyField integer(const QString &key, int lowest, int highest, TAccess access)
{
    return {key, [access](T1DYrexPlot &plot) { return QVariant(int(access(plot))); },
            [access, lowest, highest](T1DYrexPlot &plot, const QVariant &value) {
                if (isNumberWithin(value, lowest, highest))
                    access(plot) = value.toInt();
            }};
}

template <typename TAccess>
TYrexSpectrumPropertyField flag(const QString &key, TAccess access)
{
    return {key, [access](T1DYrexPlot &plot) { return QVariant(bool(access(plot))); },
            [access](T1DYrexPlot &plot, const QVariant &value) { access(plot) = value.toBool(); }};
}

/// A bit of a flag word, the others of which stay.
template <typename TAccess>
TYrexSpectrumPropertyField bit(const QString &key, quint32 mask, TAccess access)
{
    return {key, [access, mask](T1DYrexPlot &plot) { return QVariant((quint32(access(plot)) & mask) != 0); },
            [access, mask](T1DYrexPlot &plot, const QVariant &value) {
                auto &word = access(plot);
                using TWord = typename std::remove_reference<decltype(word)>::type;
                word = TWord(value.toBool() ? quint32(word) | mask : quint32(word) & ~mask);
            }};
}

template <typename TAccess>
TYrexSpectrumPropertyField color(const QString &key, TAccess access)
{
    return {key, [access](T1DYrexPlot &plot) { return QVariant(QColor(access(plot))); },
            [access](T1DYrexPlot &plot, const QVariant &value) {
                if (value.canConvert<QColor>())
                    access(plot) = value.value<QColor>();
            }};
}

template <typename TAccess>
TYrexSpectrumPropertyField text(const QString &key, TAccess access)
{
    return {key, [access](T1DYrexPlot &plot) { return QVariant(QString(access(plot))); },
            [access](T1DYrexPlot &plot, const QVariant &value) { access(plot) = value.toString(); }};
}

/// A property with functions of its own; values go through within the limits.
template <typename TRead, typename TWrite>
TYrexSpectrumPropertyField own(const QString &key, double lowest, double highest, TRead read, TWrite write)
{
    return {key, [read](T1DYrexPlot &plot) { return QVariant(read(plot)); },
            [write, lowest, highest](T1DYrexPlot &plot, const QVariant &value) {
                if (isNumberWithin(value, lowest, highest))
                    write(plot, value);
            }};
}

template <typename TAccess>
TFields pen(const QString &key, TAccess access)
{
    return {{key + ".color", [access](T1DYrexPlot &plot) { return QVariant(access(plot).color()); },
             [access](T1DYrexPlot &plot, const QVariant &value) {
                 if (value.canConvert<QColor>())
                     access(plot).setColor(value.value<QColor>());
             }},
            own(
                key + ".width", cMinLineWidth, cMaxCurveWidth,
                [access](T1DYrexPlot &plot) { return access(plot).widthF(); },
                [access](T1DYrexPlot &plot, const QVariant &value) { access(plot).setWidthF(value.toDouble()); }),
            own(
                key + ".style", Qt::SolidLine, Qt::DashDotDotLine,
                [access](T1DYrexPlot &plot) { return int(access(plot).style()); },
                [access](T1DYrexPlot &plot, const QVariant &value) {
                    access(plot).setStyle(Qt::PenStyle(value.toInt()));
                })};
}

template <typename TAccess>
TFields font(const QString &key, TAccess access)
{
    return {{key + ".family", [access](T1DYrexPlot &plot) { return QVariant(access(plot).family()); },
             [access](T1DYrexPlot &plot, const QVariant &value) { access(plot).setFamily(value.toString()); }},
            own(
                key + ".size", cMinFontSize, cMaxFontSize,
                [access](T1DYrexPlot &plot) { return access(plot).pointSizeF(); },
                [access](T1DYrexPlot &plot, const QVariant &value) { access(plot).setPointSizeF(value.toDouble()); }),
            {key + ".bold", [access](T1DYrexPlot &plot) { return QVariant(access(plot).bold()); },
             [access](T1DYrexPlot &plot, const QVariant &value) { access(plot).setBold(value.toBool()); }},
            {key + ".italic", [access](T1DYrexPlot &plot) { return QVariant(access(plot).italic()); },
             [access](T1DYrexPlot &plot, const QVariant &value) { access(plot).setItalic(value.toBool()); }}};
}

TFields plotFields()
{
    using P = T1DYrexPlot;
    return {color("plot.background", [](P &p) -> QColor & { return p.properties().background; }),
            integer("plot.frame", noFrame, boxFrame, [](P &p) -> int & { return p.properties().frame; }),
            number("plot.marginLeft", -1.0, cMaxMargin, [](P &p) -> double & { return p.properties().marginLeft; }),
            number("plot.marginTop", -1.0, cMaxMargin, [](P &p) -> double & { return p.properties().marginTop; }),
            number("plot.marginRight", -1.0, cMaxMargin, [](P &p) -> double & { return p.properties().marginRight; }),
            number("plot.marginBottom", -1.0, cMaxMargin, [](P &p) -> double & { return p.properties().marginBottom; }),
            flag("plot.keepFitting", [](P &p) -> bool & { return p.properties().keepFitting; }),
            flag("plot.legend", [](P &p) -> bool & { return p.properties().showLegend; })};
}

TFields titleFields()
{
    using P = T1DYrexPlot;
    return TFields{flag("title.visible", [](P &p) -> bool & { return p.titleProperties().visible; }),
                   text("title.format", [](P &p) -> QString & { return p.titleProperties().format; }),
                   color("title.color", [](P &p) -> QColor & { return p.titleProperties().color; }),
                   integer("title.position", titleOnTop, titleInside,
                           [](P &p) -> int & { return p.titleProperties().position; }),
                   integer("title.alignment", alignTitleLeft, alignTitleRight,
                           [](P &p) -> int & { return p.titleProperties().alignment; }),
                   number("title.offsetX", -cMaxMargin, cMaxMargin,
                          [](P &p) -> double & { return p.titleProperties().offset.rx(); }),
                   number("title.offsetY", -cMaxMargin, cMaxMargin,
                          [](P &p) -> double & { return p.titleProperties().offset.ry(); }),
                   flag("title.stacked", [](P &p) -> bool & { return p.titleProperties().stacked; })} +
           font("title.font", [](P &p) -> QFont & { return p.titleProperties().font; });
}

TFields axisFields(TAxisDir dir)
{
    using P = T1DYrexPlot;
    const QString key = dir == horzDir ? QStringLiteral("axes.horizontal.") : QStringLiteral("axes.vertical.");
    const auto properties = [dir](P &p) -> TAxisProperties & {
        return dir == horzDir ? p.properties().horzAxis : p.properties().vertAxis;
    };
    return {{key + "visible", [dir](P &p) { return QVariant(p.axis(dir).isVisible()); },
             [dir](P &p, const QVariant &value) { p.setAxisVisible(dir, value.toBool()); }},
            {key + "labelFromData", [dir](P &p) { return QVariant((p.axisLabelFlags() & dir) != 0); },
             [dir](P &p, const QVariant &value) {
                 p.setAxisLabelFlags(value.toBool() ? p.axisLabelFlags() | dir : p.axisLabelFlags() & ~dir);
                 if (value.toBool())
                     p.setAxisLabels(dir, p.axis(dir).label());
             }},
            {key + "label", [dir](P &p) { return QVariant(p.axis(dir).label()); },
             [dir](P &p, const QVariant &value) { p.setAxisLabels(dir, value.toString()); }},
            own(
                key + "position", axisAtBottom, cMaxPosition, [dir](P &p) { return p.axis(dir).posPolicy(); },
                [dir](P &p, const QVariant &value) { p.setAxisPosPolicy(dir, value.toInt()); }),
            {key + "reversed", [properties](P &p) { return QVariant(properties(p).reversed); },
             [dir](P &p, const QVariant &value) { p.setReversed(dir, value.toBool()); }},
            number(key + "step", 0.0, cMaxStep, [properties](P &p) -> double & { return properties(p).ticks.step; }),
            integer(key + "minorCount", -1, cMaxMinorTicks,
                    [properties](P &p) -> int & { return properties(p).ticks.minorCount; }),
            integer(key + "numberForm", autoNumbers, scientificNumbers,
                    [properties](P &p) -> int & { return properties(p).ticks.numberForm; }),
            integer(key + "decimals", 0, cMaxDecimals,
                    [properties](P &p) -> int & { return properties(p).ticks.decimals; }),
            flag(key + "majorGrid", [properties](P &p) -> bool & { return properties(p).majorGrid; }),
            flag(key + "minorGrid", [properties](P &p) -> bool & { return properties(p).minorGrid; }),
            color(key + "gridColor", [properties](P &p) -> QColor & { return properties(p).gridColor; }),
            number(key + "majorGridWidth", 0.1, cMaxLineWidth,
                   [properties](P &p) -> double & { return properties(p).majorGridWidth; }),
            number(key + "minorGridWidth", 0.1, cMaxLineWidth,
                   [properties](P &p) -> double & { return properties(p).minorGridWidth; }),
            own(
                key + "gridStyle", Qt::SolidLine, Qt::DashDotDotLine,
                [properties](P &p) { return int(properties(p).gridStyle); },
                [properties](P &p, const QVariant &value) { properties(p).gridStyle = Qt::PenStyle(value.toInt()); })};
}

TFields axesFields()
{
    using P = T1DYrexPlot;
    return TFields{color("axes.color", [](P &p) -> QColor & { return p.properties().axesColor; }),
                   number("axes.lineWidth", cMinLineWidth, cMaxLineWidth,
                          [](P &p) -> double & { return p.properties().axesLineWidth; }),
                   integer("axes.tickDirection", ticksOut, ticksBoth,
                           [](P &p) -> int & { return p.properties().tickDirection; }),
                   integer("axes.second", TBasePlotProperties::cNoSecondAxis, cUnitNanometers,
                           [](P &p) -> int & { return p.properties().secondAxis; })} +
           font("axes.font", [](P &p) -> QFont & { return p.properties().axesFont; }) +
           font("axes.titleFont", [](P &p) -> QFont & { return p.properties().axesTitleFont; }) + axisFields(horzDir) +
           axisFields(vertDir);
}

TFields curveFields()
{
    using P = T1DYrexPlot;
    return pen("curve.pen", [](P &p) -> QPen & { return p.properties().curvePen; }) +
           TFields{number("curve.fillAlpha", 0.0, 1.0, [](P &p) -> double & { return p.properties().fillAlpha; }),
                   flag("curve.markers", [](P &p) -> bool & { return p.properties().showMarkers; }),
                   flag("curve.baseLine", [](P &p) -> bool & { return p.properties().isBaseLineShown; }),
                   color("spare.color", [](P &p) -> QColor & { return p.spareColor(); }),
                   integer("spare.kind", 0, std::numeric_limits<qint32>::max(),
                           [](P &p) -> qint32 & { return p.spareKind(); })};
}

TFields peakFields()
{
    using P = T1DYrexPlot;
    using TPeaks = TYrexPeakPlotProperties;
    const auto flags = [](P &p) -> quint32 & { return p.peakProperties().flags; };
    const auto content = [](P &p) -> qint32 & { return p.peakProperties().content; };
    return TFields{
               bit("peaks.labels", TPeaks::cShowLabels, flags),
               bit("peaks.ticks", TPeaks::cShowTicks, flags),
               bit("peaks.inCurveColor", TPeaks::cInCurveColor, flags),
               color("peaks.curveColor", [](P &p) -> QColor & { return p.peakProperties().curveColor; }),
               color("peaks.otherColor", [](P &p) -> QColor & { return p.peakProperties().otherColor; }),
               integer("peaks.orientation", 0, 1, [](P &p) -> qint32 & { return p.peakProperties().orientation; }),
               integer("peaks.position", 0, 4, [](P &p) -> qint32 & { return p.peakProperties().position; }),
               integer("peaks.units", 0, 50, [](P &p) -> qint32 & { return p.peakProperties().units; }),
               integer("peaks.decimals", 0, cMaxDecimals, [](P &p) -> qint32 & { return p.peakProperties().decimals; }),
               bit("peaks.showPosition", TPeaks::cPosition, content),
               bit("peaks.showAnnotation", TPeaks::cAnnotation, content),
               number("peaks.margin", 0.0, 0.5, [](P &p) -> double & { return p.peakProperties().margin; })} +
           font("peaks.font", [](P &p) -> QFont & { return p.peakProperties().font; }) +
           pen("peaks.pen", [](P &p) -> QPen & { return p.peakProperties().pen; });
}

TFields integralFields()
{
    using P = T1DYrexPlot;
    using TIntegrals = TYrexIntegralPlotProperties;
    const auto flags = [](P &p) -> quint32 & { return p.integralProperties().flags; };
    return TFields{bit("integrals.visible", TIntegrals::cShowIntegrals, flags),
                   bit("integrals.curves", TIntegrals::cShowCurve, flags),
                   bit("integrals.labels", TIntegrals::cShowLabels, flags),
                   bit("integrals.method", TIntegrals::cShowMethod, flags),
                   bit("integrals.segments", TIntegrals::cShowSegment, flags),
                   color("integrals.labelColor", [](P &p) -> QColor & { return p.integralProperties().labelColor; }),
                   integer("integrals.labelPosition", 0, 1,
                           [](P &p) -> qint32 & { return p.integralProperties().labelPosition; }),
                   integer("integrals.labelOrientation", 0, 1,
                           [](P &p) -> qint32 & { return p.integralProperties().labelOrientation; }),
                   integer("integrals.decimals", 0, cMaxDecimals,
                           [](P &p) -> qint32 & { return p.integralProperties().decimals; }),
                   number("integrals.rangeMargin", 0.0, 1.0,
                          [](P &p) -> double & { return p.integralProperties().rangeMargin; }),
                   number("integrals.curveMargin", 0.0, 1.0,
                          [](P &p) -> double & { return p.integralProperties().curveMargin; }),
                   number("integrals.curveMaxHeight", 0.0, 1.0,
                          [](P &p) -> double & { return p.integralProperties().curveMaxHeight; })} +
           pen("integrals.pen", [](P &p) -> QPen & { return p.integralProperties().pen; }) +
           font("integrals.font", [](P &p) -> QFont & { return p.integralProperties().font; });
}

/// A number of the stacked properties by its getter and setter.
template <typename TValue>
TYrexSpectrumPropertyField stackNumber(const QString &key, double lowest, double highest,
                                       TValue (T1DStackedPlotProperties::*get)() const,
                                       void (T1DStackedPlotProperties::*set)(TValue))
{
    return own(
        key, lowest, highest, [get](T1DYrexPlot &plot) { return (plot.stackedProperties().*get)(); },
        [set](T1DYrexPlot &plot, const QVariant &value) { (plot.stackedProperties().*set)(value.value<TValue>()); });
}

/// The classes by their names: "color" as text, "mode" and "line" as numbers.
QVariant readClasses(T1DYrexPlot &plot)
{
    QVariantMap classes;
    for (const TStackedClassProperties &one : plot.stackedProperties().stackedClasses())
        classes.insert(one.name, QVariantMap{{"color", one.baseColor.isValid() ? one.baseColor.name() : QString()},
                                             {"mode", one.colorMode},
                                             {"line", one.lineStyle}});
    return classes;
}

/// Classes that are not named stay as they are.
void writeClasses(T1DYrexPlot &plot, const QVariant &value)
{
    const QVariantMap classes = value.toMap();
    for (auto it = classes.constBegin(); it != classes.constEnd(); ++it) {
        const QVariantMap fields = it.value().toMap();
        TStackedClassProperties one = plot.stackedProperties().stackedClasses().value(it.key());
        one.name = it.key();
        if (fields.contains("color"))
            one.baseColor = QColor(fields.value("color").toString());
        one.colorMode = qBound(int(oneColor), fields.value("mode", one.colorMode).toInt(), int(paletteColors));
        one.lineStyle =
            qBound(int(Qt::SolidLine), fields.value("line", one.lineStyle).toInt(), int(Qt::DashDotDotLine));
        plot.stackedProperties().insertClass(one);
    }
}

TFields stackFields()
{
    using P = T1DYrexPlot;
    using S = T1DStackedPlotProperties;
    return {stackNumber("stack.displayMode", activeOnlyMode, groupedMode, &S::displayMode, &S::setDisplayMode),
            stackNumber("stack.angle", 0.0, S::cMaxAngle, &S::angle, &S::setAngle),
            stackNumber("stack.spacing", S::cMinSpacing, S::cMaxSpacing, &S::spacing, &S::setSpacing),
            stackNumber("stack.topMargin", 0.0, cMaxStackMargin, &S::topMargin, &S::setTopMargin),
            stackNumber("stack.bottomMargin", 0.0, cMaxStackMargin, &S::bottomMargin, &S::setBottomMargin),
            stackNumber("stack.colorSetting", singleColorSetting, hueSetting, &S::colorSetting, &S::setColorSetting),
            stackNumber("stack.colorMode", oneColor, paletteColors, &S::colorMode, &S::setColorMode),
            {"stack.baseColor", [](P &p) { return QVariant(p.stackedProperties().baseColor()); },
             [](P &p, const QVariant &value) {
                 if (value.canConvert<QColor>())
                     p.stackedProperties().setBaseColor(value.value<QColor>());
             }},
            stackNumber("stack.activePenFactor", 1.0, 5.0, &S::activePenWidthFactor, &S::setActivePenWidthFactor),
            {"stack.fadesUnused", [](P &p) { return QVariant(p.stackedProperties().fadesUnused()); },
             [](P &p, const QVariant &value) { p.stackedProperties().setFadesUnused(value.toBool()); }},
            {"stack.classes", readClasses, writeClasses}};
}

} // namespace

const QVector<TYrexSpectrumPropertyField> &yrexSpectrumPropertyFields()
{
    static const TFields cFields =
        plotFields() + titleFields() + axesFields() + curveFields() + peakFields() + integralFields() + stackFields();
    return cFields;
}
