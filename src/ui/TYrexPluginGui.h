#pragma once

#include "TYrexPlugin.h"
#include "plugin/IPluginAccessiblePlots.h"
#include "plugin/IPluginActions.h"
#include "plugin/IPluginItemZoom.h"
#include "plugin/IPluginPropertiesPages.h"
#include "plugin/IPluginTemplates.h"

#include <QPointer>
#include <QSet>
#include <QUuid>
#include <memory>

class TYrexActions;
class TCanvasSpectrum;
class TPlotHotArea;
class TYrexHighlightHandler;
class TYrexHotAreasHandler;
class TYrexMarkEditor;

/// What the host gets from the library: the module with its menus, docks and mouse modes on top.
class TYrexPluginGui : public TYrexPlugin,
                       public IPluginAccessiblePlots,
                       public IPluginActions,
                       public IPluginItemZoom,
                       public IPluginPropertiesPages,
                       public IPluginTemplates
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.dornveld.kelmora-qt.IPluginInfo/3.0")
    Q_INTERFACES(IPluginAccessiblePlots IPluginActions IPluginItemZoom IPluginPropertiesPages IPluginTemplates)

public:
    TYrexPluginGui();
    ~TYrexPluginGui() override;

    void registered(IPluginHost *host) override;
    /// The dialog of the options of stacks. Does not wait for the answer.
    void adjustStackedItems(const TCanvasItemList &items) override;

    TBaseTable *createTable(TTableProperties *properties, TCanvasItem *item) override;
    /// The table as "html" or "plainText"; empty for an item that has no such table.
    QString tableReport(TTableProperties *properties, TCanvasItem *item, const QString &format) override;

    QString markupResource() const override { return QStringLiteral(":/yrex/ui/YrexPlugin.mui"); }
    void registerFactories(IGuiHost &gui) override;
    bool isInvalid(const QString &invalidator) const override;
    bool hasAction(const QString &name) const override;
    bool executeAction(const QString &name) override;
    void updateActions(TUpdateItem &update) override;
    QString contextMenuName(const TMouseSpot &spot) const override;

    QString plotText(const TCanvasItem &item) const override;
    QVector<TAccessibleMark> plotMarks(const TCanvasItem &item) const override;

    bool showZoomDialog(const TCanvasItemList &items, TAxisDir axis) override;

    bool hasPropertiesPages(const TCanvasItem &item) const override;
    WPropertiesPages *createPropertiesPages(QWidget *parent) override;
    QVariantMap formatOf(const TCanvasItem &item) const override;
    bool applyFormat(const TCanvasItemList &items, const QVariantMap &fields) override;

    QString templateTitle() const override;
    bool isTemplate(const QString &path) const override;
    QStringList recentTemplates() const override;
    QString templateProblem() const override;
    void openTemplate(const QString &path) override;

signals:
    /// A peak is highlighted, by its place in the list of the active spectrum of the item with that id.
    void yrexPeakHighlighted(QUuid aSpecId, int aPeakIndex);
    /// The mouse is over the label of a peak.
    void yrexPeakLabelHighlighted(QUuid aSpecId, int aPeakIndex);
    /// The mouse is over an integral, or it is highlighted.
    void yrexIntegralHighlighted(QUuid aSpecId, QUuid aIntgId);

private slots:
    void onHotAreaMouseBtnReleased(const TPlotHotArea &aArea, TCanvasSpectrum *aItem);
    void onHotAreaHighlighted(const TPlotHotArea &aArea, TCanvasSpectrum *aItem);
    void onHotAreaFocusOut();
    /// The id is that of an item; its active spectrum is meant.
    void annotateYrexPeak(QUuid aSpecId, QUuid aPeakId);
    void highlightPeak(QUuid aSpecId, QUuid aPeakId);
    void highlightPeaks(QUuid aSpecId, QSet<QUuid> aPeakIds);
    void highlightIntegral(QUuid aSpecId, QUuid aIntgId);

private:
    void init(IPluginHost *host);
    void addHotAreas(IGuiHost &gui);
    void zoomTo(const QVector<QUuid> &ids, const QRectF &rect, int xUnit);
    void tellHighlights();
    QUuid itemWithoutMarks() const;
    void tellHiddenMarks() const;

    std::unique_ptr<TYrexHighlightHandler> fHighlights; // null before the host is known
    std::unique_ptr<TYrexMarkEditor> fMarks;            // null before the host is known
    QPointer<TYrexHotAreasHandler> fHotAreas;           // of the window
    std::unique_ptr<TYrexActions> fActions;             // null before the host is known
    QUuid fSeenItem;                                    // active when the actions were updated last
    QUuid fWithoutMarks;                                // the same item, when its marks did not show
};
