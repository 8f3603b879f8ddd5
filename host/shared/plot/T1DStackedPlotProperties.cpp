#include "plot/T1DStackedPlotProperties.h"
#include "plot/ColorUtils.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include <cmath>

namespace {

constexpr double cMaxMargin = 0.45;
constexpr double cMaxPenFactor = 5.0;
constexpr int cColorSize = 11; // bytes of a colour on the stream
constexpr int cEntrySize = 12; // bytes of an id and its number

/// NaN leaves the value as it was.
void setHeld(double &value, double lowest, double wanted, double highest)
{
    if (!std::isnan(wanted))
        value = qBound(lowest, wanted, highest);
}

void setEntry(QMap<quint32, double> &map, quint32 id, double value, double neutral)
{
    if (!std::isfinite(value))
        return;
    if (value == neutral)
        map.remove(id);
    else
        map.insert(id, value);
}

void storeEntries(TDataStream &stream, const QMap<quint32, double> &map)
{
    stream << qint32(map.size());
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        stream << it.key() << it.value();
}

void loadEntries(TDataStream &stream, QMap<quint32, double> &map, double neutral)
{
    const int count = stream.readCount(cEntrySize);
    for (int i = 0; i < count && stream.isGood(); ++i) {
        quint32 id = 0;
        double value = neutral;
        stream >> id >> value;
        setEntry(map, id, value, neutral);
    }
}

QVector<QColor> paletteFrom(const QColor &base, int count)
{
    QVector<QColor> colors;
    const int place = Utils::Color::paletteIndex(base);
    for (int i = 0; i < count; ++i)
        colors.append(place < 0 && i == 0 ? base : Utils::Color::paletteColor(place < 0 ? i - 1 : place + i));
    return colors;
}

} // namespace

T1DStackedPlotProperties::T1DStackedPlotProperties()
    : fBaseColor(Utils::Color::paletteColor(0))
{
}

void T1DStackedPlotProperties::setDisplayMode(int mode)
{
    if (mode >= activeOnlyMode && mode <= groupedMode)
        fDisplayMode = mode == noStackMode ? int(activeOnlyMode) : mode; // nothing draws the former
}

bool T1DStackedPlotProperties::isStackedMode() const
{
    return fDisplayMode == stackedMode || fDisplayMode == bitmapMode || fDisplayMode == hiddenLinesMode;
}

void T1DStackedPlotProperties::setAngle(double angle)
{
    setHeld(fAngle, 0.0, angle, cMaxAngle);
}

void T1DStackedPlotProperties::setTopMargin(double margin)
{
    setHeld(fTopMargin, 0.0, margin, cMaxMargin);
}

void T1DStackedPlotProperties::setBottomMargin(double margin)
{
    setHeld(fBottomMargin, 0.0, margin, cMaxMargin);
}

void T1DStackedPlotProperties::setSpacing(double percent)
{
    setHeld(fSpacing, cMinSpacing, percent, cMaxSpacing);
}

void T1DStackedPlotProperties::setActivePenWidthFactor(double factor)
{
    setHeld(fActivePenWidthFactor, 1.0, factor, cMaxPenFactor);
}

void T1DStackedPlotProperties::setColorSetting(int setting)
{
    fColorSetting = qBound(int(singleColorSetting), setting, int(hueSetting));
}

void T1DStackedPlotProperties::setColorMode(int mode)
{
    fColorMode = qBound(int(oneColor), mode, int(paletteColors));
}

void T1DStackedPlotProperties::generateColorsVector(const TStackedClassProperties &properties,
                                                    const QVector<int> &plotIndices)
{
    QVector<int> places;
    for (const int index : plotIndices) {
        if (index >= 0)
            places.append(index);
    }
    if (places.isEmpty())
        return;
    const QColor base = properties.baseColor.isValid() ? properties.baseColor : fBaseColor;
    QVector<QColor> made;
    switch (properties.colorMode) {
    case lightToDarkColors:
        made = Utils::Color::lightnessRamp(base, places.size());
        break;
    case sequentialColors:
        made = Utils::Color::sequential(places.size());
        break;
    case paletteColors:
        made = paletteFrom(base, places.size());
        break;
    default:
        made = QVector<QColor>(places.size(), base);
    }
    const int size = *std::max_element(places.cbegin(), places.cend()) + 1;
    if (fColors.size() < size)
        fColors.resize(size);
    for (int i = 0; i < places.size(); ++i)
        fColors[places.at(i)] = made.at(i);
}

void T1DStackedPlotProperties::insertClass(const TStackedClassProperties &properties)
{
    if (!properties.name.isEmpty())
        fStackedClasses.insert(properties.name, properties);
}

void T1DStackedPlotProperties::removeOldStackedClasses(const QStringList &used)
{
    for (auto it = fStackedClasses.begin(); it != fStackedClasses.end();)
        it = used.contains(it.key()) ? std::next(it) : fStackedClasses.erase(it);
}

void T1DStackedPlotProperties::setFactor(quint32 id, double factor)
{
    setEntry(fFactors, id, factor, 1.0);
}

void T1DStackedPlotProperties::setOffset(quint32 id, double offset)
{
    setEntry(fOffsets, id, offset, 0.0);
}

void T1DStackedPlotProperties::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << qint32(fDisplayMode) << fAngle << fTopMargin << fBottomMargin << fSpacing << fActivePenWidthFactor
           << quint8(fFadesUnused) << qint32(fColorSetting) << qint32(fColorMode) << fBaseColor << fFlags;
    stream << qint32(fColors.size());
    for (const QColor &color : fColors)
        stream << color;
    stream << qint32(fStackedClasses.size());
    for (const TStackedClassProperties &properties : fStackedClasses)
        properties.store(stream);
    storeEntries(stream, fFactors);
    storeEntries(stream, fOffsets);
    block.endStore();
}

void T1DStackedPlotProperties::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        T1DStackedPlotProperties read;
        if (read.loadFields(stream))
            *this = read;
    }
    block.skipData();
}

bool T1DStackedPlotProperties::loadFields(TDataStream &stream)
{
    qint32 mode = activeOnlyMode;
    qint32 setting = hueSetting;
    qint32 colors = paletteColors;
    quint8 fades = 1;
    double angle = 0.0;
    double top = 0.0;
    double bottom = 0.0;
    double spacing = 100.0;
    double penFactor = fActivePenWidthFactor;
    stream >> mode >> angle >> top >> bottom >> spacing >> penFactor >> fades >> setting >> colors;
    Utils::Stream::read(stream, fBaseColor);
    stream >> fFlags;
    setDisplayMode(mode);
    setAngle(angle);
    setTopMargin(top);
    setBottomMargin(bottom);
    setSpacing(spacing);
    setActivePenWidthFactor(penFactor);
    fFadesUnused = fades != 0;
    setColorSetting(setting);
    setColorMode(colors);

    fColors.resize(stream.readCount(cColorSize));
    for (QColor &color : fColors) {
        if (!Utils::Stream::read(stream, color))
            return false;
    }
    const int classes = stream.readCount(TDataStreamAdaptor::cHeaderSize);
    for (int i = 0; i < classes && stream.isGood(); ++i) {
        TStackedClassProperties properties;
        properties.load(stream);
        insertClass(properties);
    }
    loadEntries(stream, fFactors, 1.0);
    loadEntries(stream, fOffsets, 0.0);
    return stream.isGood();
}

bool T1DStackedPlotProperties::operator==(const T1DStackedPlotProperties &other) const
{
    return fDisplayMode == other.fDisplayMode && fAngle == other.fAngle && fTopMargin == other.fTopMargin &&
           fBottomMargin == other.fBottomMargin && fSpacing == other.fSpacing &&
           fActivePenWidthFactor == other.fActivePenWidthFactor && fFadesUnused == other.fFadesUnused &&
           fColorSetting == other.fColorSetting && fColorMode == other.fColorMode && fBaseColor == other.fBaseColor &&
           fFlags == other.fFlags && fColors == other.fColors && fStackedClasses == other.fStackedClasses &&
           fFactors == other.fFactors && fOffsets == other.fOffsets;
}
