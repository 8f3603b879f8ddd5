#include "TCmdYrexSetClasses.h"

#include "TCanvasYrexSpectrum.h"
#include "commands/ScriptWords.h"
#include "history/THistoryCommand.h"

TCmdYrexSetClasses::TCmdYrexSetClasses(TCanvasYrexSpectrum *item, const QStringList &names, const TClasses &classes)
    : TYrexSpectrumCommand(tr("Set Stacked Classes"), {item})
    , fNames(names)
    , fClasses(classes)
{
    for (TStackedClassProperties &properties : fClasses)
        properties.baseColor = ScriptWords::plainColor(properties.baseColor);
}

QVariantMap TCmdYrexSetClasses::told(const TClasses &classes)
{
    QVariantMap map;
    for (auto it = classes.constBegin(); it != classes.constEnd(); ++it) {
        QVariantMap one{{"colors", ScriptWords::colorModes().word(it->colorMode)}};
        if (it->baseColor.isValid())
            one.insert("color", it->baseColor);
        if (it->name != it.key())
            one.insert("name", it->name);
        map.insert(it.key(), one);
    }
    return map;
}

TCmdYrexSetClasses::TClasses TCmdYrexSetClasses::fromTold(const QVariantMap &map)
{
    TClasses classes;
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        const QVariantMap one = it.value().toMap();
        TStackedClassProperties properties;
        properties.name = one.value("name", it.key()).toString();
        properties.baseColor = QColor(one.value("color").toString());
        ScriptWords::colorModes().value(one.value("colors").toString(), properties.colorMode);
        classes.insert(it.key(), properties);
    }
    return classes;
}

TScriptStep TCmdYrexSetClasses::scriptStep() const
{
    return TScriptStep("setClasses").on(items()).with("classNames", QVariant(fNames)).with("classes", told(fClasses));
}

void TCmdYrexSetClasses::doItem(TCanvasYrexSpectrum *item, int)
{
    IStackedItemCtx &stack = *item->stackedContext();
    fPlots.capture(item);
    fOldNames.clear();
    for (int i = 0; i < qMin(fNames.size(), stack.count()); ++i) {
        fOldNames.append(stack.className(i));
        item->stack().at(i)->setSpectrumClass(fNames.at(i));
    }
    stack.restoreClasses(fClasses);
    item->refreshAxes();
    item->update();
}

void TCmdYrexSetClasses::undoItem(TCanvasYrexSpectrum *item, int)
{
    for (int i = 0; i < qMin(fOldNames.size(), item->stack().count()); ++i)
        item->stackedContext()->setClassName(i, fOldNames.at(i));
    fPlots.restore(item);
    item->update();
}

THistoryCommand *TCmdYrexSetClasses::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    QVariantMap properties;
    for (auto it = fClasses.constBegin(); it != fClasses.constEnd(); ++it)
        properties.insert(it.key(), it->toVariantMap());
    entry->addParam(tr("Stacked Classes"), QVariantMap{{"Classes", fNames}, {"Properties", properties}},
                    fNames.join(", "));
    return entry;
}
