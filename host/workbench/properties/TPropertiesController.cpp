#include "TPropertiesController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WDocumentView.h"
#include "WPropertiesDialog.h"
#include "canvas/TCanvasSpectrum.h"
#include "plugin/IPluginPropertiesPages.h"
#include "properties/TPropertiesBag.h"
#include "services/TKelmoraHost.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

TPropertiesController::TPropertiesController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents,
                                             QWidget *window)
    : QObject(window)
    , fHost(host)
    , fActions(actions)
    , fSelection(documents)
    , fWindow(window)
{
    const auto noPlot = [this] { return fSelection.noPlot(); };
    actions.on(
        "itemProperties", [this] { showDialog(); }, noPlot);
    actions.on(
        "copyFormat", [this] { copyFormat(); }, noPlot);
    actions.on(
        "pasteFormat", [this] { pasteFormat(); },
        [this] {
            const QMimeData *data = QGuiApplication::clipboard()->mimeData();
            return data && data->hasFormat(cMimeType) ? fSelection.noPlot() : tr("No format was copied.");
        });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &actions, &TActionTable::scheduleUpdate);
    connect(&documents, &TDocumentController::viewAdded, this, [this](WDocumentView *view) {
        connect(&view->selection(), &TItemSelection::changed, this, &TPropertiesController::follow);
    });
    connect(&documents, &TDocumentController::pageShown, this, &TPropertiesController::follow);
    connect(&documents, &TDocumentController::contentChanged, this, &TPropertiesController::follow);
}

void TPropertiesController::showDialog()
{
    if (!fDialog)
        fDialog = new WPropertiesDialog(fHost, fActions, fWindow);
    fDialog->setItems(fSelection.items());
    fDialog->show();
    fDialog->raise();
    fDialog->activateWindow();
}

void TPropertiesController::follow()
{
    if (fDialog && fDialog->isVisible())
        fDialog->setItems(fSelection.items());
}

IPluginPropertiesPages *TPropertiesController::pagesOf(const TCanvasItem &item) const
{
    for (QObject *each : fHost.plugins()) {
        auto *plugin = qobject_cast<IPluginPropertiesPages *>(each);
        if (plugin && plugin->hasPropertiesPages(item))
            return plugin;
    }
    return nullptr;
}

QVariantMap TPropertiesController::formatOfFirst() const
{
    const TCanvasItem *item = fSelection.first();
    const IPluginPropertiesPages *plugin = item ? pagesOf(*item) : nullptr;
    return plugin ? plugin->formatOf(*item) : QVariantMap();
}

void TPropertiesController::copyFormat()
{
    const QVariantMap format = formatOfFirst();
    if (format.isEmpty())
        return;
    auto *data = new QMimeData;
    data->setData(cMimeType, TPropertiesBag::toJson(format).toUtf8());
    QGuiApplication::clipboard()->setMimeData(data);
}

void TPropertiesController::pasteFormat()
{
    TCanvasItem *item = fSelection.first();
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (!item || !data)
        return;
    const QString text = QString::fromUtf8(data->data(cMimeType));
    QVariantMap fields;
    for (const std::unique_ptr<TPropertiesBag> &kind : item->properties().bags()) {
        const std::unique_ptr<TPropertiesBag> known = kind->create();
        known->fillFrom(*item);
        fields.insert(TPropertiesBag::fromJson(text, known->values()));
    }
    if (IPluginPropertiesPages *plugin = pagesOf(*item))
        plugin->applyFormat(fSelection.items(), fields);
    else
        fSelection.setProperties(fields);
}
