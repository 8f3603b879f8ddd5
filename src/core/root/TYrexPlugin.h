#pragma once

#include "IYrexItemFactory.h"
#include "plugin/IPluginAdjustStackedItems.h"
#include "plugin/IPluginCommandLine.h"
#include "plugin/IPluginCompareItems.h"
#include "plugin/IPluginDAItems.h"
#include "plugin/IPluginGathering.h"
#include "plugin/IPluginItemParameters.h"
#include "plugin/IPluginSpectrumItemsContext.h"
#include "plugin/IPluginStackedItemsContext.h"
#include "plugin/IPluginStacking.h"
#include "plugin/IPluginUnits.h"
#include "plugin/IYrexPlugin.h"
#include "plugin/TBasePluginEx.h"

#include <memory>

class IDAPlugin;
class IDrawingTools;

/// The module: identity, converters, the item factory, stack settings. Everything of the plug-in is put together here.
class TYrexPlugin : public TBasePluginEx,
                    public IYrexPlugin,
                    public IPluginDAItems,
                    public IPluginItemParameters,
                    public IPluginSpectrumItemsContext,
                    public IPluginStackedItemsContext,
                    public IPluginAdjustStackedItems,
                    public IPluginCompareItems,
                    public IPluginCommandLine,
                    public IPluginUnits,
                    public IPluginGathering,
                    public IPluginStacking,
                    public IYrexItemFactory
{
    Q_OBJECT
    Q_INTERFACES(IYrexPlugin IPluginDAItems IPluginItemParameters IPluginSpectrumItemsContext IPluginStackedItemsContext
                     IPluginCompareItems IPluginCommandLine IPluginUnits IPluginGathering IPluginStacking)

public:
    TYrexPlugin();
    ~TYrexPlugin() override;

    void registered(IPluginHost *host) override;
    void enable() override;
    void disable() override;

    TCanvasItem *createItem(int rtti) override;
    ICanvasItem *createSpectrumItem(const TYrexSpectrumList &spectra, ICanvas *parent) override;
    void addSpectra(ICanvasItem *item, const TYrexSpectrumList &spectra) override;
    TPropertiesBag *createPropertiesBag(int rtti) override;
    TPropertiesBag *createMultiPropertiesBag(int rtti, int a, int b) override;
    void hostEvent(const QByteArray &name) override;

    TCanvasItem *stackItems(TPage *page, TCanvasItem *item, TCmdList *&commands, bool keep) override;
    QObject *tableSettings(TTableProperties *properties, TCanvasItem *item) override;
    QString tableReport(TTableProperties *properties, TCanvasItem *item, const QString &format) override;
    IDAItemCtx *daContext(TCanvasItem *item) override;
    TCommand *editArrayedDataCommand(const TCanvasItemList &items, const QVariantMap &map) override;
    TCommand *editParamCommand(const TCanvasItemList &items, int id, const QString &value, int index = -1) override;
    TCommand *editTemplatesCommand(const TCanvasItemList &items, const TSpectrumParamsTemplate &templates) override;
    const QObject *paramsDescriptor() const override;
    QVariantMap paramsAsMap(TCanvasItem *item) const override;
    TSpectrumParamsTemplate paramsTemplate(TCanvasItem *item) const override;
    ISpectrumItemCtx *spectrumContext(TCanvasItem *item) override;
    IStackedItemCtx *stackedContext(TCanvasItem *item) override;
    void adjustStackedItems(const TCanvasItemList &items) override;
    int availableFlags() const override;
    TCanvasItem *compare(const TCanvasItemList &items, int flags) override;

    QList<TConsoleCommand> commands() const override;
    bool hasUnknownUnits(TCanvasItem *item) const override;
    QList<TUnitChoice> unitChoices(TAxisDir axis) const override;
    TUnitPair guessUnits(TCanvasItem *item, const QString &fileName) const override;
    QList<TCommand *> setUnitsCommands(const TCanvasItemList &items, const TUnitPair &units) const override;
    QString horzUnitOf(TCanvasItem *item) const override;
    TCanvasItem *gather(const TCanvasItemList &items) const override;
    QVariant spectrumFact(TCanvasItem *item, int index, TFact fact) const override;
    void nameSource(TCanvasItem *item, const QString &name) const override;
    TCommand *stackCommand(const TCanvasItemList &items, TDocument *document, bool stacked) override;
    TCommand *insertCommand(TCanvasItem *item, const TCanvasItemList &from) override;
    TCommand *splitByClassCommand(TCanvasItem *item, TDocument *document) override;
    TCommand *seriesValuesCommand(const TCanvasItemList &items, const QMap<int, double> &values) override;
    TDragAndDropHandler *dragAndDropHandler() override { return fDragAndDrop.get(); }

    int run(const QString &name, const QStringList &arguments, IConsole &console) override;

    /// Skew angle of new stacks, in degrees.
    double stackAngle() const { return fStackAngle; }
    bool oneStackPerYUnit() const { return fOneStackPerYUnit; }
    /// For the stacks to come, here and in later sessions.
    void setStackSettings(double angle, bool oneStackPerYUnit);

protected:
    void registerConverters() override;
    QString logCategory() const override { return QStringLiteral("YREX"); }

private:
    IDrawingTools *fDrawingTools = nullptr; // of other plug-ins; not owned, null without them
    IDAPlugin *fDAPlugin = nullptr;
    double fStackAngle;
    bool fOneStackPerYUnit;
    std::unique_ptr<TDragAndDropHandler> fDragAndDrop;
};

/// The first plug-in object of this process; a later one does not replace it.
TYrexPlugin *yrexPluginInstance();
