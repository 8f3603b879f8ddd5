#include "WCompareDialog.h"

#include "TPageThumbnail.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TPage.h"
#include "plugin/IPluginCompareItems.h"
#include "ui/TBaseCompareItems.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

constexpr QSize cPictureSize(600, 424);

} // namespace

WCompareDialog::WCompareDialog(IPluginCompareItems &plugin, const TCanvasItemList &items, QWidget *parent)
    : QDialog(parent)
    , fPlugin(plugin)
    , fItems(items)
    , fPicture(new QLabel(this))
    , fStacked(new QRadioButton(tr("&Stacked"), this))
    , fSuperimposed(new QRadioButton(tr("S&uperimposed"), this))
    , fHeights(new QCheckBox(tr("&Normalised heights"), this))
    , fTitles(new QCheckBox(tr("&Titles"), this))
{
    setObjectName("compareDialog");
    setWindowTitle(tr("Compare"));
    fPicture->setAccessibleName(tr("Preview"));
    fSuperimposed->setChecked(true);
    fTitles->setChecked(true);
    auto *row = new QHBoxLayout;
    const int available = plugin.availableFlags();
    const QList<QPair<QAbstractButton *, int>> choices{{fStacked, TBaseCompareItems::cStacked},
                                                       {fSuperimposed, TBaseCompareItems::cSuperimposed},
                                                       {fHeights, TBaseCompareItems::cNormalisedHeights},
                                                       {fTitles, TBaseCompareItems::cTitles}};
    for (const auto &choice : choices) {
        row->addWidget(choice.first);
        choice.first->setVisible(available & choice.second);
        connect(choice.first, &QAbstractButton::toggled, this, &WCompareDialog::refresh);
    }
    row->addStretch();
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Save)->setText(tr("&Keep"));
    buttons->button(QDialogButtonBox::Save)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->addWidget(fPicture);
    column->addLayout(row);
    column->addWidget(buttons);
    refresh();
    fSuperimposed->setFocus();
}

WCompareDialog::~WCompareDialog() = default;

int WCompareDialog::flags() const
{
    return (fStacked->isChecked() ? TBaseCompareItems::cStacked : TBaseCompareItems::cSuperimposed) |
           (fHeights->isChecked() ? TBaseCompareItems::cNormalisedHeights : 0) |
           (fTitles->isChecked() ? TBaseCompareItems::cTitles : 0);
}

void WCompareDialog::refresh()
{
    fPage = std::make_unique<TPage>();
    if (TCanvasItem *item = fPlugin.compare(fItems, flags())) {
        item->setRect(fPage->offeredRect(item));
        fPage->insertItem(item);
    }
    fPicture->setPixmap(pageThumbnail(*fPage, cPictureSize, devicePixelRatioF()));
}

TCanvasItem *WCompareDialog::takeItem()
{
    TCanvasItem *item = fPage->items().value(0);
    if (item)
        fPage->takeItem(item);
    return item;
}
