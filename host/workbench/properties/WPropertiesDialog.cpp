#include "WPropertiesDialog.h"

#include "TActionTable.h"
#include "canvas/TCanvasItem.h"
#include "plugin/IPluginPropertiesPages.h"
#include "properties/WPropertiesPages.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>

namespace {

constexpr char cPageKey[] = "Kelmora/Properties/Page";
constexpr int cTitlesWidth = 110;
constexpr QSize cSize(880, 640);

} // namespace

WPropertiesDialog::WPropertiesDialog(TKelmoraHost &host, TActionTable &actions, QWidget *parent)
    : QDialog(parent)
    , fHost(host)
    , fTitles(new QListWidget(this))
    , fStack(new QStackedWidget(this))
    , fNothing(new QLabel(tr("Select a plot to see its properties."), this))
    , fHead(new QLabel(this))
{
    setObjectName("propertiesDialog");
    setWindowTitle(tr("Properties"));
    setModal(false);
    fTitles->setObjectName("pagesList");
    fTitles->setAccessibleName(tr("Pages"));
    fTitles->setFixedWidth(cTitlesWidth);
    fHead->setObjectName("itemsLabel");
    fNothing->setAlignment(Qt::AlignCenter);
    fStack->addWidget(fNothing);
    auto *layout = new QGridLayout(this);
    layout->addWidget(fHead, 0, 0, 1, 2);
    layout->addWidget(fTitles, 1, 0);
    layout->addWidget(fStack, 1, 1);
    fButtons = makeButtons(actions);
    layout->addWidget(fButtons, 2, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(1, 1);
    resize(cSize);
    connect(fTitles, &QListWidget::currentRowChanged, this, [this](int page) {
        if (page < 0 || !fPages)
            return;
        fPages->showPage(page);
        TDefaultsIni().setValue(cPageKey, page);
    });
    setItems({});
}

QPushButton *WPropertiesDialog::addButton(const QString &name, const QString &text, const QString &toolTip)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setAutoDefault(false); // Return in a field takes the field
    button->setToolTip(toolTip);
    return button;
}

QWidget *WPropertiesDialog::makeButtons(TActionTable &actions)
{
    auto *all = new QWidget(this);
    auto *rows = new QVBoxLayout(all);
    rows->setContentsMargins(0, 0, 0, 0);
    auto *upper = new QHBoxLayout;
    auto *lower = new QHBoxLayout;
    fLive = new QCheckBox(tr("&Live"), all);
    fLive->setObjectName("liveCheckBox");
    fLive->setChecked(true);
    fLive->setToolTip(tr("Each change shows in the plot at once."));
    fApply = addButton("applyButton", tr("&Apply"), tr("Gives the changes to the plots, as one step."));
    QPushButton *resetPage = addButton("resetPageButton", tr("&Reset Page"), tr("The built-in values of this page."));
    QPushButton *reset = addButton("resetAllButton", tr("Reset A&ll"),
                                   tr("The built-in values of all pages. With Shift the saved defaults go, too."));
    QPushButton *save = addButton("saveAsDefaultButton", tr("&Save as Default"),
                                  tr("New plots of this kind begin with these properties."));
    fPresets = addButton("presetsButton", tr("Prese&t"), tr("Sets of properties for a purpose."));
    fPresets->setMenu(new QMenu(fPresets));
    QPushButton *copy = addButton("copyButton", tr("&Copy"), tr("Copies the looks of the plot."));
    QPushButton *paste = addButton("pasteButton", tr("&Paste"), tr("Gives the plots the looks that were copied."));
    QPushButton *close = addButton("closeButton", tr("Close"), QString());
    for (QWidget *widget : QList<QWidget *>{fLive, fApply})
        upper->addWidget(widget);
    upper->addStretch();
    for (QWidget *widget : QList<QWidget *>{resetPage, reset, save})
        upper->addWidget(widget);
    for (QWidget *widget : QList<QWidget *>{fPresets, copy, paste})
        lower->addWidget(widget);
    lower->addStretch();
    lower->addWidget(close);
    rows->addLayout(upper);
    rows->addLayout(lower);
    connect(fLive, &QCheckBox::toggled, this, [this](bool live) {
        if (fPages)
            fPages->setLive(live);
        showPending();
    });
    connect(fApply, &QPushButton::clicked, this, [this] {
        if (fPages)
            fPages->apply();
    });
    connect(resetPage, &QPushButton::clicked, this, [this] {
        if (fPages)
            fPages->resetPage(fTitles->currentRow());
    });
    connect(reset, &QPushButton::clicked, this, &WPropertiesDialog::resetAll);
    connect(save, &QPushButton::clicked, this, [this] {
        if (fPages)
            fPages->saveAsDefault();
    });
    connect(copy, &QPushButton::clicked, actions.action("copyFormat"), &QAction::trigger);
    connect(paste, &QPushButton::clicked, actions.action("pasteFormat"), &QAction::trigger);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    return all;
}

void WPropertiesDialog::resetAll()
{
    if (!fPages)
        return;
    if (QApplication::keyboardModifiers() & Qt::ShiftModifier)
        fPages->removeDefaults();
    fPages->resetAll();
}

WPropertiesPages *WPropertiesDialog::pagesOf(IPluginPropertiesPages &plugin)
{
    if (!fAllPages.contains(&plugin)) {
        WPropertiesPages *pages = plugin.createPropertiesPages(fStack);
        fAllPages.insert(&plugin, pages);
        if (pages) {
            fStack->addWidget(pages);
            pages->setLive(fLive->isChecked());
            connect(pages, &WPropertiesPages::pendingChanged, this, &WPropertiesDialog::showPending);
        }
    }
    return fAllPages.value(&plugin);
}

void WPropertiesDialog::usePages(WPropertiesPages *pages)
{
    if (pages == fPages && pages)
        return;
    if (fPages)
        fPages->setItems({});
    fPages = pages;
    const QSignalBlocker blocker(fTitles);
    fTitles->clear();
    fStack->setCurrentWidget(pages ? static_cast<QWidget *>(pages) : fNothing);
    fTitles->setEnabled(pages);
    fButtons->setEnabled(true);
    for (QWidget *button : fButtons->findChildren<QWidget *>())
        button->setEnabled(pages || button->objectName() == QLatin1String("closeButton"));
    if (!pages)
        return;
    pages->setLive(fLive->isChecked());
    fTitles->addItems(pages->titles());
    const int page = qBound(0, TDefaultsIni().value(cPageKey, 0).toInt(), fTitles->count() - 1);
    fTitles->setCurrentRow(page);
    pages->showPage(page);
    fillPresets();
}

void WPropertiesDialog::fillPresets()
{
    QMenu *menu = fPresets->menu();
    menu->clear();
    const QStringList presets = fPages->presets();
    for (int i = 0; i < presets.size(); ++i)
        menu->addAction(presets.at(i), this, [this, i] {
            if (fPages)
                fPages->applyPreset(i);
        });
    fPresets->setVisible(!presets.isEmpty());
}

void WPropertiesDialog::showPending()
{
    fApply->setVisible(!fLive->isChecked());
    fApply->setEnabled(fPages && fPages->hasPending());
}

void WPropertiesDialog::setItems(const TCanvasItemList &items)
{
    IPluginPropertiesPages *plugin = nullptr;
    TCanvasItemList own;
    for (ICanvasItem *entry : items) {
        const TCanvasItem *item = canvasItem(entry);
        for (QObject *each : fHost.plugins()) {
            auto *its = qobject_cast<IPluginPropertiesPages *>(each);
            if (!its || !item || !its->hasPropertiesPages(*item) || (plugin && plugin != its))
                continue;
            plugin = its;
            own.append(entry);
        }
    }
    usePages(plugin ? pagesOf(*plugin) : nullptr);
    if (fPages)
        fPages->setItems(own);
    fHead->setVisible(own.size() > 1);
    fHead->setText(tr("Applies to %n items", "", own.size()));
    showPending();
}
