#include "TItemState.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexSpectrumPropertiesBag.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "contexts/IDARegionsItem.h"
#include "stream/TDataStream.h"

#include <QCryptographicHash>
#include <algorithm>

namespace {

template <class T>
QByteArray storedBytes(const T &stored)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    stored.store(stream);
    return bytes;
}

QByteArray digest(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

QString listed(const QVector<int> &numbers)
{
    QStringList texts;
    for (const int number : numbers)
        texts.append(QString::number(number));
    return texts.join(' ');
}

QString shown(const QVariant &value)
{
    if (value.userType() == QMetaType::Double)
        return QString::number(value.toDouble(), 'g', 17);
    return value.toString();
}

QByteArray withoutId(QByteArray bytes, const QUuid &id, int number)
{
    return id.isNull()
               ? bytes
               : bytes.replace(id.toRfc4122(), QByteArray("id").append(QByteArray::number(number)).leftJustified(16));
}

/// Among the items of the document; -1 for one that is gone.
int placeOf(const TDocument &document, const QUuid &id)
{
    const TCanvasItemList items = document.items();
    const auto isIt = [&id](const ICanvasItem *item) { return item->uniqueId() == id; };
    const auto found = std::find_if(items.begin(), items.end(), isIt);
    return found == items.end() ? -1 : int(found - items.begin());
}

/// Ids are made anew at each run; what stands at the same place gets the same name.
QByteArray withoutIds(QByteArray bytes, TCanvasYrexSpectrum &item)
{
    constexpr int cFirstLinked = 1000;
    int number = 0;
    bytes = withoutId(bytes, item.uniqueId(), ++number);
    const auto *document = item.canvas() ? qobject_cast<const TDocument *>(item.canvas()->parent()) : nullptr;
    for (const QUuid &id : item.linkedIds())
        bytes = withoutId(bytes, id, cFirstLinked + (document ? placeOf(*document, id) : -1));
    for (const TDARegion &region : item.regionsItem()->daRegions())
        bytes = withoutId(bytes, region.id, ++number);
    for (int i = 0; i < item.stack().count(); ++i) {
        const TYrexSpectrum &spectrum = *item.stack().at(i);
        for (const TYrexDPLib::TYrexDPPeak *peak : spectrum.peaks())
            bytes = withoutId(bytes, peak->id, ++number);
        for (int k = 0; k < spectrum.integrals().count(); ++k)
            bytes = withoutId(bytes, spectrum.integrals().at(k)->id, ++number);
    }
    for (const TBasePlot *plot : item.plots())
        bytes = withoutId(bytes, plot->id(), ++number);
    return bytes;
}

TViewHistoryEntry withoutIds(const TViewHistoryEntry &view, const TCanvasYrexSpectrum &item)
{
    TViewHistoryEntry numbered;
    int number = 0;
    for (const TBasePlot *plot : item.plots())
        numbered.addPlotData(QUuid::createUuidV5(QUuid(), QString::number(++number)), view.getPlotData(plot->id()));
    return numbered;
}

} // namespace

TItemState::TItemState(TCanvasYrexSpectrum &item, bool withIds)
    : fBytes(withIds ? storedBytes(item) : withoutIds(storedBytes(item), item))
    , fIds(item.stack().ids())
{
    item.captureView(fView);
    if (!withIds)
        fView = withoutIds(fView, item);
    const IStackedItemCtx &stack = *item.stackedContext();
    fParts.append(QString("active spectrum %1").arg(stack.activeIndex()));
    fParts.append(QString("order %1, visible %2").arg(listed(stack.order()), listed(stack.visibleOrder())));
    fParts.append(QString("grouped %1").arg(item.stack().grouped()));
    for (int i = 0; i < stack.count(); ++i) {
        const T1DStackedPlotProperties &own = item.activeYrexPlot()->stackedProperties();
        fParts.append(QString("spectrum %1: deselected %2, colour %3, factor %4, offset %5, units %6 %7, content %8")
                          .arg(i)
                          .arg(item.stack().isDeselected(i))
                          .arg(stack.color(i).name(QColor::HexArgb))
                          .arg(stack.factor(i), 0, 'g', 17)
                          .arg(own.offset(item.stack().idOf(i)), 0, 'g', 17)
                          .arg(item.stack().at(i)->xUnits())
                          .arg(item.stack().at(i)->yUnits())
                          .arg(QString(digest(withIds ? storedBytes(*item.stack().at(i))
                                                      : withoutIds(storedBytes(*item.stack().at(i)), item)))));
    }
    TYrexSpectrumPropertiesBag bag;
    bag.fillFrom(item);
    const QVariantMap fields = bag.values();
    for (auto it = fields.constBegin(); it != fields.constEnd(); ++it)
        fParts.append(it.key() + ": " + shown(it.value()));
}

QString TItemState::difference(const TItemState &other) const
{
    QStringList lines;
    for (int i = 0; i < qMax(fParts.size(), other.fParts.size()); ++i) {
        if (fParts.value(i) != other.fParts.value(i))
            lines.append(QString("    %1\n    is %2").arg(fParts.value(i), other.fParts.value(i)));
    }
    if (fView != other.fView)
        lines.append("    another view");
    if (lines.isEmpty() && fIds == other.fIds && fBytes != other.fBytes) {
        int at = 0;
        while (at < qMin(fBytes.size(), other.fBytes.size()) && fBytes.at(at) == other.fBytes.at(at))
            ++at;
        lines.append(QString("    the stored bytes from %1 of %2 on").arg(at).arg(fBytes.size()));
    }
    return lines.join('\n');
}
