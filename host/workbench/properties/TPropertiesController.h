#pragma once

#include "TPlotSelection.h"

#include <QObject>

class IPluginPropertiesPages;
class TCanvasItem;
class TActionTable;
class TKelmoraHost;
class WPropertiesDialog;

/// The dialog of properties, and looks that go from plot to plot through the clipboard.
class TPropertiesController : public QObject
{
    Q_OBJECT

public:
    static constexpr char cMimeType[] = "application/x-kelmora-format";

    /// What is named here lives longer; `window` is the parent of the dialog.
    TPropertiesController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents, QWidget *window);

    void copyFormat();
    /// Gives all selected items the looks from the clipboard, as one step.
    void pasteFormat();

private:
    void showDialog();
    void follow();
    IPluginPropertiesPages *pagesOf(const TCanvasItem &item) const;
    QVariantMap formatOfFirst() const;

    TKelmoraHost &fHost;
    TActionTable &fActions;
    TPlotSelection fSelection;
    QWidget *fWindow;
    WPropertiesDialog *fDialog = nullptr; // of the window; null before it was asked for
};
