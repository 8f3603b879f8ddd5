#pragma once

#include "TYrexPlugin.h"
#include "plugin/IPluginActions.h"
#include "plugin/IPluginPropertiesPages.h"

#include <memory>

class TYrexActions;
class TYrexHighlightHandler;

/// What the host gets from the library: the module with its menus, docks and mouse modes on top.
class TYrexPluginGui : public TYrexPlugin, public IPluginActions, public IPluginPropertiesPages
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.dornveld.kelmora-qt.IPluginInfo/3.0")
    Q_INTERFACES(IPluginActions IPluginPropertiesPages)

public:
    TYrexPluginGui();
    ~TYrexPluginGui() override;

    void registered(IPluginHost *host) override;
    /// The dialog of the options of stacks. Does not wait for the answer.
    void adjustStackedItems(const TCanvasItemList &items) override;

    QString markupResource() const override { return QStringLiteral(":/yrex/ui/YrexPlugin.mui"); }
    void registerFactories(IGuiHost &gui) override;
    bool isInvalid(const QString &invalidator) const override;
    bool hasAction(const QString &name) const override;
    bool executeAction(const QString &name) override;
    void updateActions(TUpdateItem &update) override;
    QString contextMenuName(const TMouseSpot &spot) const override;

    bool hasPropertiesPages(const TCanvasItem &item) const override;
    WPropertiesPages *createPropertiesPages(QWidget *parent) override;
    QVariantMap formatOf(const TCanvasItem &item) const override;

private:
    void init(IPluginHost *host);

    std::unique_ptr<TYrexHighlightHandler> fHighlights; // null before the host is known
    std::unique_ptr<TYrexActions> fActions;             // null before the host is known
};
