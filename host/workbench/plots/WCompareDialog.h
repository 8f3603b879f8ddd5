#pragma once

#include "canvas/TCanvasItemList.h"

#include <QDialog>
#include <memory>

class IPluginCompareItems;
class QCheckBox;
class QLabel;
class QRadioButton;
class TCanvasItem;
class TPage;

/// Shows items in one plot and lets the user choose how. The plot stands in no document unless it is kept.
class WCompareDialog : public QDialog
{
    Q_OBJECT

public:
    WCompareDialog(IPluginCompareItems &plugin, const TCanvasItemList &items, QWidget *parent = nullptr);
    ~WCompareDialog() override;

    /// As TBaseCompareItems has them.
    int flags() const;
    /// Gives up what is shown; null for items that cannot be compared.
    TCanvasItem *takeItem();

private:
    void refresh();

    IPluginCompareItems &fPlugin;
    TCanvasItemList fItems;
    std::unique_ptr<TPage> fPage; // of the temporary item
    QLabel *fPicture;
    QRadioButton *fStacked;
    QRadioButton *fSuperimposed;
    QCheckBox *fHeights;
    QCheckBox *fTitles;
};
