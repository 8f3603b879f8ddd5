#include "TYrexPluginWrapper.h"

#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexArrayedFromSelection.h"
#include "TYrexPlugin.h"
#include "TYrexSpectrumWrapper.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "commands/TCmdCreateItem.h"
#include "history/THistoryCommand.h"
#include "script/ScriptUtils.h"
#include "script/TScriptRun.h"
#include "services/IPluginHost.h"
#include "settings/TDefaultsIni.h"

#include <QScriptContext>
#include <QSet>
#include <limits>
#include <numeric>

using namespace Utils::Script;

namespace {

constexpr double cNoAngle = 0.0; // where nothing is stored
constexpr quint32 cMostItems = 1000000;

/// A spectrum of an item is taken alone, an item with all its spectra. What is none of them is passed over.
void addTo(const QScriptValue &value, TCanvasItemList &items, TYrexStackSelection &selection)
{
    TCanvasYrexSpectrum *item = yrexItem(canvasItemFromScriptValue(value));
    if (!item)
        return;
    const auto *wrapper = qobject_cast<const TYrexSpectrumWrapper *>(value.toQObject());
    const bool isAlone = wrapper && wrapper->isOneOfStack();
    QVector<int> indices(isAlone ? 1 : item->stack().count());
    std::iota(indices.begin(), indices.end(), isAlone ? wrapper->ref().index() : 0);
    if (isAlone && !items.isEmpty() && items.last() == item) {
        selection.fSpectra.last() += indices; // a step names an item once
        return;
    }
    items.append(item);
    selection.fSpectra.append(indices);
}

/// By what the items differ: the names of their x units, or of their y units where the former are the same.
QStringList unitNames(const QVector<TCanvasYrexSpectrum *> &items)
{
    QStringList x, y;
    for (const TCanvasYrexSpectrum *item : items) {
        x.append(yrexUnitDisplayName(item->currentSpectrum()->xUnits()));
        y.append(yrexUnitDisplayName(item->currentSpectrum()->yUnits()));
    }
    return QSet<QString>(x.begin(), x.end()).size() > 1 ? x : y;
}

} // namespace

QScriptValue TYrexPluginWrapper::createArrayedItem()
{
    const int arguments = argumentCount();
    if (!isValid() || arguments < 1 || arguments > 2)
        return throwError(context(), cWrongCount);
    TCanvasItemList items;
    TYrexStackSelection selection;
    selection.fOnePerXUnits = true;
    const QScriptValue array = argument(0);
    const quint32 length = array.isArray() ? array.property("length").toUInt32() : 0;
    for (quint32 i = 0; i < length && length <= cMostItems; ++i)
        addTo(array.property(i), items, selection);
    if (items.isEmpty())
        return throwError(context(), cWrongType, tr("The argument must be an Zarnu Spectrum array"));
    if (arguments == 2 && !argument(1).isBool())
        return throwError(context(), cWrongType);
    const TDefaultsIni settings;
    const double angle = settings.value("Zarnu/Stack/Angle", cNoAngle).toDouble();
    const bool oneStackPerYUnit = settings.value("Zarnu/Stack/OneStackPerYUnit", true).toBool();
    const bool isStacked = arguments == 2 && argument(1).toBool();
    auto *command = new TCmdYrexArrayedFromSelection(items, TScriptRun::of(engine())->host().document(), fPlugin,
                                                     isStacked, angle, oneStackPerYUnit, false, nullptr, selection);
    if (command->isVoid()) {
        delete command;
        return engine()->undefinedValue();
    }
    if (!doScriptHistoryCommand(command, context(), 0)) // refused by the history, which deleted it
        return engine()->undefinedValue();
    if (command->newItems().size() > 1)
        scriptWarning(context(), tr("made %1 items: %2")
                                     .arg(command->newItems().size())
                                     .arg(unitNames(command->newItems()).join(QStringLiteral(", "))));
    return TScriptRun::of(engine())->wrap(command->newItems().first());
}

QScriptValue TYrexPluginWrapper::extractSpectrumFromArrayedItem()
{
    if (argumentCount() < 1 || argumentCount() > 2)
        return throwError(context(), cWrongCount);
    TCanvasYrexSpectrum *item = yrexItem(canvasItemFromScriptValue(argument(0)));
    if (!item || item->stack().count() < 2)
        return throwError(context(), cWrongType, tr("First argument must be an stacked Zarnu Spectrum"));
    int index = item->stack().current();
    if (argumentCount() == 2) {
        if (!argument(1).isNumber() || !(argument(1).toNumber() >= 0))
            return throwError(context(), cWrongType, tr("Second argument must be a positive integer"));
        const double place = argument(1).toNumber();
        if (place > std::numeric_limits<int>::max())
            return throwError(context(), cOutOfRange);
        index = int(place);
    }
    const TYrexSpectrum *spectrum = item->stack().at(index);
    if (!spectrum)
        return engine()->undefinedValue();
    auto *copy = new TCanvasYrexSpectrum({spectrum->clone().release()}, nullptr, fPlugin);
    TDocument *document = TScriptRun::of(engine())->host().document();
    auto *command = new TCmdCreateItem(TCmdCreateItem::cOther, {copy}, document, nullptr, item->provenance(), 0);
    command->setDescription(tr("Extract Spectrum"));
    if (!doScriptHistoryCommand(command, context(), 1))
        return engine()->undefinedValue();
    for (THistoryCommand *entry : command->historyCmdList())
        entry->addParam("context", contextToVariantList(context()), QString());
    return TScriptRun::of(engine())->wrap(copy);
}

QScriptValue TYrexPluginWrapper::activeSpectrum() const
{
    IPluginHost &host = TScriptRun::of(engine())->host();
    const TCanvasItemList &selected = host.itemList();
    ICanvasItem *item = selected.isRttiActive(TCanvasYrexSpectrum::cRtti);
    if (!item)
        item = selected.firstRtti(TCanvasYrexSpectrum::cRtti);
    if (!item && host.document())
        item = host.document()->items().firstRtti(TCanvasYrexSpectrum::cRtti);
    return TScriptRun::of(engine())->wrap(canvasItem(item));
}

QString TYrexPluginWrapper::toString() const
{
    return QStringLiteral("Zarnu");
}
