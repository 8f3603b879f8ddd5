#include "TStackEdits.h"

#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdSpectraColors.h"
#include "contexts/IStackedItemCtx.h"
#include "params/TSpectrumParam.h"
#include "plugin/IPluginDAItems.h"
#include "plugin/IPluginGathering.h"
#include "plugin/IPluginItemParameters.h"
#include "plugin/IPluginStacking.h"
#include "services/TKelmoraHost.h"

QVariant TStackEdits::fact(TCanvasItem *item, int index, TFact fact) const
{
    const IPluginGathering::TFact asked = fact == cDate     ? IPluginGathering::cDate
                                          : fact == cPoints ? IPluginGathering::cPoints
                                          : fact == cFormat ? IPluginGathering::cFormat
                                                            : IPluginGathering::cTitle;
    for (QObject *plugin : fHost.plugins()) {
        const auto *gathering = qobject_cast<IPluginGathering *>(plugin);
        QVariant answer = gathering ? gathering->spectrumFact(item, index, asked) : QVariant();
        if (answer.isValid())
            return answer;
    }
    return QVariant();
}

TCommand *TStackEdits::activeCommand(TCanvasItem *item, int index)
{
    return item->activeSpectrumCommand(TCanvasItemList{item}, index);
}

TCommand *TStackEdits::titleCommand(TCanvasItem *item, int index, const QString &title)
{
    for (QObject *plugin : fHost.plugins()) {
        auto *editor = qobject_cast<IPluginItemParameters *>(plugin);
        if (TCommand *command =
                editor ? editor->editParamCommand(TCanvasItemList{item}, TSpectrumParam::cTitle, title, index)
                       : nullptr)
            return command;
    }
    return nullptr;
}

TCommand *TStackEdits::colorsCommand(TCanvasItem *item, const QVector<QColor> &colors)
{
    return new TCmdSpectraColors(TCanvasItemList{item}, colors);
}

TCommand *TStackEdits::valuesCommand(TCanvasItem *item, const QMap<int, double> &values)
{
    for (QObject *plugin : fHost.plugins()) {
        auto *stacking = qobject_cast<IPluginStacking *>(plugin);
        TCommand *command = stacking ? stacking->seriesValuesCommand(TCanvasItemList{item}, values) : nullptr;
        if (command)
            return command;
    }
    return nullptr;
}

TCommand *TStackEdits::splitByClassCommand(TCanvasItem *item)
{
    for (QObject *plugin : fHost.plugins()) {
        auto *stacking = qobject_cast<IPluginStacking *>(plugin);
        TCommand *command = stacking ? stacking->splitByClassCommand(item, fHost.document()) : nullptr;
        if (command)
            return command;
    }
    return nullptr;
}
