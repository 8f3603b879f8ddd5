#include "TYrexStackedItemCtx.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "plot/TTypesetter.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <algorithm>
#include <memory>

namespace {

constexpr int cSeriesValueId = 13;
constexpr int cClassId = 1015;

void storeIds(TDataStream &stream, const QList<quint32> &ids)
{
    stream << qint32(ids.size());
    for (const quint32 id : ids)
        stream << id;
}

} // namespace

TYrexStack &TYrexStackedItemCtx::stack() const
{
    static TYrexStack cEmpty;
    return fItem ? fItem->stack() : cEmpty;
}

T1DYrexPlot *TYrexStackedItemCtx::plot() const
{
    return fItem ? fItem->activeYrexPlot() : nullptr;
}

T1DStackedPlotProperties *TYrexStackedItemCtx::properties() const
{
    T1DYrexPlot *active = plot();
    return active ? &active->stackedProperties() : nullptr;
}

int TYrexStackedItemCtx::activeIndex() const
{
    return stack().current();
}

void TYrexStackedItemCtx::setActiveIndex(int index)
{
    stack().setCurrent(index);
}

int TYrexStackedItemCtx::idOf(int index) const
{
    return stack().contains(index) ? int(stack().idOf(index)) : -1;
}

int TYrexStackedItemCtx::count() const
{
    return stack().count();
}

void TYrexStackedItemCtx::setSelected(const QVector<int> &indices)
{
    for (int i = 0; i < stack().count(); ++i)
        stack().setDeselected(i, !indices.contains(i));
}

bool TYrexStackedItemCtx::take(int index, QByteArray &bytes)
{
    const std::unique_ptr<TYrexSpectrum> taken(spectrum(index));
    if (!taken)
        return false;
    const quint32 id = stack().idOf(index);
    bytes.clear();
    {
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        TDataStreamAdaptor block(stream);
        block.startStore();
        taken->store(stream);
    }
    stack().removeAt(index);
    if (T1DStackedPlotProperties *own = properties()) {
        QVector<QColor> rest = own->colors();
        if (index < rest.size())
            rest.remove(index);
        own->setColors(rest);
        own->setFactor(id, 1.0); // the largest id is issued again, and must not find what was set for another spectrum
        own->setOffset(id, 0.0);
    }
    return true;
}

bool TYrexStackedItemCtx::insert(int index, const QByteArray &bytes)
{
    if (!fItem || !fItem->dataObj())
        return false;
    auto read = std::make_unique<TYrexSpectrum>();
    TDataStream stream(bytes);
    TDataStreamAdaptor block(stream); // tells cut bytes from a record of an older program with fewer fields
    if (!block.hasData())
        return false;
    read->load(stream);
    if (!stream.isGood())
        return false;
    const int place = qBound(0, index, stack().count());
    const int active = stack().current();
    const int anchor = stack().anchor();
    stack().insertAt(place, {read.release()});
    if (active >= 0)
        stack().setCurrent(active >= place ? active + 1 : active);
    stack().setAnchor(anchor >= place ? anchor + 1 : anchor);
    if (T1DStackedPlotProperties *own = properties()) {
        QVector<QColor> all = own->colors();
        if (place < all.size())
            all.insert(place, QColor());
        own->setColors(all);
        if (!own->hasOwnColors())
            fItem->updateStackedColors();
    }
    return true;
}

QList<quint32> TYrexStackedItemCtx::ids(bool visibleOnly, bool withSelected) const
{
    QList<quint32> list;
    for (int i = 0; i < stack().count(); ++i) {
        if (!(visibleOnly && stack().isHidden(i)) && !(withSelected && stack().isDeselected(i)))
            list.append(stack().idOf(i));
    }
    return list;
}

bool TYrexStackedItemCtx::isVisible(int index) const
{
    return stack().contains(index) && !stack().isHidden(index);
}

bool TYrexStackedItemCtx::allVisible() const
{
    return fItem && stack().hidden().isEmpty();
}

bool TYrexStackedItemCtx::selectionEmpty() const
{
    return fItem && stack().selectedIndices(false, false).isEmpty();
}

int TYrexStackedItemCtx::anchor() const
{
    return stack().anchor();
}

void TYrexStackedItemCtx::storeOrder(TDataStream &stream) const
{
    storeIds(stream, stack().order());
    storeIds(stream, stack().hidden());
}

void TYrexStackedItemCtx::makeCurrent(int index)
{
    stack().setCurrent(index);
}

void TYrexStackedItemCtx::setVisible(int index, bool visible)
{
    stack().setHidden(index, !visible);
}

void TYrexStackedItemCtx::setVisibleRange(int from, int to, bool visible)
{
    const int last = qMin(qMax(from, to), stack().count() - 1);
    for (int i = qMax(0, qMin(from, to)); i <= last; ++i)
        stack().setHidden(i, !visible);
}

int TYrexStackedItemCtx::pointedIndex(const QPoint &windowPoint) const
{
    const T1DYrexPlot *active = plot();
    if (!active || stack().count() < 2 || !(active->isStacked() || active->isQueued()))
        return -1;
    const auto *plotter = dynamic_cast<const T1DStackedBasePlotter *>(active->plotter());
    return plotter ? plotter->indexOfPointedStackedCurve(fItem->canvasWnd2Item(windowPoint)) : -1;
}

int TYrexStackedItemCtx::indexOfRow(int row) const
{
    if (stack().grouped() != 1)
        return visibleOrder().value(row, -1);
    const auto groups = stack().classGroups(false);
    if (row < 0 || row >= groups.size())
        return -1;
    const QList<TYrexSpectrum *> &members = groups.at(row).second;
    if (members.contains(stack().currentSpectrum()))
        return stack().current();
    return stack().items().indexOf(members.value(0));
}

int TYrexStackedItemCtx::rowOf(int index) const
{
    return stack().displayPositionOf(index);
}

bool TYrexStackedItemCtx::isHidden(int index) const
{
    return stack().isHidden(index);
}

void TYrexStackedItemCtx::move(const QVector<int> &indices)
{
    QList<quint32> wanted;
    for (const int index : indices) {
        if (stack().contains(index))
            wanted.append(stack().idOf(index));
    }
    for (const quint32 id : stack().order()) {
        if (!wanted.contains(id))
            wanted.append(id);
    }
    stack().setOrder(wanted);
    if (fItem)
        fItem->update();
}

QVector<int> TYrexStackedItemCtx::visibleOrder() const
{
    QVector<int> indices;
    for (const int index : order()) {
        if (!stack().isHidden(index))
            indices.append(index);
    }
    return indices;
}

QVector<int> TYrexStackedItemCtx::order() const
{
    QHash<quint32, int> indexOfId;
    for (int i = 0; i < stack().count(); ++i)
        indexOfId.insert(stack().idOf(i), i);
    QVector<int> indices;
    for (const quint32 id : stack().order())
        indices.append(indexOfId.value(id));
    return indices;
}

QColor TYrexStackedItemCtx::color(int index) const
{
    const T1DStackedPlotProperties *own = properties();
    return own && stack().contains(index) ? own->arrayedColor(index) : QColor();
}

QString TYrexStackedItemCtx::title(int index) const
{
    return stack().contains(index) ? TTypesetter::plainText(fItem->spectrumTitle(index)) : QString();
}

double TYrexStackedItemCtx::arrayedValue(int index) const
{
    const TYrexSpectrum *asked = spectrum(index);
    if (!asked)
        return 0.0;
    bool isNumber = false;
    const double value = asked->paramText(cSeriesValueId, 1).toDouble(&isNumber);
    return isNumber ? value : asked->seriesValue();
}

double TYrexStackedItemCtx::factor(int index) const
{
    const T1DStackedPlotProperties *own = properties();
    return own && stack().contains(index) ? own->factor(stack().idOf(index)) : 1.0;
}

double TYrexStackedItemCtx::relativeFactor(int index) const
{
    const double active = factor(stack().current());
    return stack().contains(index) && active != 0.0 ? factor(index) / active : 1.0;
}

QString TYrexStackedItemCtx::offsetText(int index, int decimals) const
{
    const T1DStackedPlotProperties *own = properties();
    if (!own || !stack().contains(index))
        return QString();
    const double active = stack().contains(stack().current()) ? own->offset(stack().idOf(stack().current())) : 0.0;
    return QString::number(own->offset(stack().idOf(index)) - active, 'f', decimals);
}

QString TYrexStackedItemCtx::className(int index) const
{
    const TYrexSpectrum *asked = spectrum(index);
    return asked ? asked->paramText(cClassId, 1) : QString();
}

void TYrexStackedItemCtx::setClassName(int index, const QString &name)
{
    TYrexSpectrum *named = spectrum(index);
    if (!named)
        return;
    if (name.isNull())
        named->resetSpectrumClass();
    else
        named->setSpectrumClass(name);
}

QVector<QColor> TYrexStackedItemCtx::colors() const
{
    QVector<QColor> all;
    for (int i = 0; i < stack().count(); ++i)
        all.append(color(i));
    return all;
}

void TYrexStackedItemCtx::restoreClasses(const QMap<QString, TStackedClassProperties> &classes)
{
    if (!properties())
        return;
    setClasses(classes);
    fItem->updateStackedColors();
}

int TYrexStackedItemCtx::colorMode() const
{
    return properties() ? properties()->colorMode() : 0;
}

TStackedClassProperties TYrexStackedItemCtx::classProperties(int index) const
{
    const TYrexSpectrum *asked = spectrum(index);
    const QString name = asked ? asked->spectrumClass() : QString();
    TStackedClassProperties plain;
    plain.name = name;
    return properties() ? properties()->stackedClasses().value(name, plain) : plain;
}

void TYrexStackedItemCtx::setClass(int index, const TStackedClassProperties &classProperties)
{
    if (!spectrum(index))
        return;
    setClassName(index, classProperties.name.isNull() ? QStringLiteral("") : classProperties.name);
    if (classProperties.name.isEmpty() || !properties())
        return;
    properties()->insertClass(classProperties);
    fItem->updateStackedColors();
}

QMap<QString, TStackedClassProperties> TYrexStackedItemCtx::classes() const
{
    return properties() ? properties()->stackedClasses() : QMap<QString, TStackedClassProperties>();
}

void TYrexStackedItemCtx::setClasses(const QMap<QString, TStackedClassProperties> &classes)
{
    if (properties())
        properties()->setStackedClasses(classes);
}

void TYrexStackedItemCtx::generateColors(const TStackedClassProperties &classProperties, const QVector<int> &indices)
{
    if (stack().count() < 2 || !properties())
        return;
    QVector<int> known;
    for (const int index : indices) {
        if (stack().contains(index))
            known.append(index);
    }
    properties()->generateColorsVector(classProperties, known);
    fItem->update();
}

void TYrexStackedItemCtx::regenerate(int colorSetting)
{
    T1DStackedPlotProperties *own = properties();
    if (!own)
        return;
    const int kept = own->colorSetting();
    own->setColorSetting(colorSetting);
    fItem->updateStackedColors();
    own->setColorSetting(kept);
}

QStringList TYrexStackedItemCtx::classNames() const
{
    QStringList names;
    for (const TYrexSpectrum *each : stack().items())
        names.append(each->spectrumClass());
    names.removeDuplicates();
    names.sort();
    return names;
}

void TYrexStackedItemCtx::setAllColors(const QVector<QColor> &colors)
{
    if (!properties() || colors.size() < stack().count())
        return;
    properties()->setColors(colors);
    properties()->setOwnColors(true);
}

void TYrexStackedItemCtx::dropClasses()
{
    if (properties())
        properties()->removeOldStackedClasses(classNames());
}

int TYrexStackedItemCtx::colorSetting() const
{
    return properties() ? properties()->colorSetting() : int(hueSetting);
}

void TYrexStackedItemCtx::setColorSetting(int setting)
{
    if (properties())
        properties()->setColorSetting(setting);
}

void TYrexStackedItemCtx::update()
{
    if (!fItem)
        return;
    refit();
    fItem->update();
}

int TYrexStackedItemCtx::displayMode() const
{
    return properties() ? properties()->displayMode() : 0;
}

void TYrexStackedItemCtx::setDisplayMode(int mode)
{
    if (!fItem)
        return;
    stack().setGrouped(mode);
    if (plot())
        plot()->setStackedDisplayMode(mode);
}

void TYrexStackedItemCtx::refit()
{
    const int mode = displayMode();
    if (mode != stackedMode && mode != queuedMode && mode != groupedMode)
        return;
    plot()->fitStackAxis(); // the number of rows may have changed
    plot()->setStackedScaleToFull(vertDir);
}

double TYrexStackedItemCtx::zoomShare(int direction) const
{
    if (direction != 1 || !plot())
        return 0.0;
    const TAxis &axis = plot()->horzAxis();
    return std::min(axis.getScale().span(), axis.getFullScale().span());
}
