#pragma once

#include "canvas/TCanvasItemList.h"

#include <QDialog>
#include <QHash>

class IPluginPropertiesPages;
class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;
class QStackedWidget;
class TActionTable;
class TKelmoraHost;
class WPropertiesPages;

/// The properties of the selected items, on pages that their plug-in gives. It stays open and follows the selection.
class WPropertiesDialog : public QDialog
{
    Q_OBJECT

public:
    /// What is named here lives longer.
    WPropertiesDialog(TKelmoraHost &host, TActionTable &actions, QWidget *parent);

    /// Turns to these items, of which those of the first one's kind count. Called anew when they were changed.
    void setItems(const TCanvasItemList &items);

private:
    WPropertiesPages *pagesOf(IPluginPropertiesPages &plugin);
    void usePages(WPropertiesPages *pages);
    QWidget *makeButtons(TActionTable &actions);
    QPushButton *addButton(const QString &name, const QString &text, const QString &toolTip);
    void resetAll();
    void fillPresets();
    void showPending();

    TKelmoraHost &fHost;
    QListWidget *fTitles;
    QStackedWidget *fStack;
    QLabel *fNothing;
    QLabel *fHead;
    QWidget *fButtons = nullptr;
    QCheckBox *fLive = nullptr;
    QPushButton *fApply = nullptr;
    QPushButton *fPresets = nullptr;
    WPropertiesPages *fPages = nullptr; // in use
    QHash<IPluginPropertiesPages *, WPropertiesPages *> fAllPages;
};
