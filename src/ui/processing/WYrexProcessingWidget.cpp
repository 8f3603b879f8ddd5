#include "WYrexProcessingWidget.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexChainEditor.h"
#include "TYrexChainRules.h"
#include "WYrexActionPanels.h"
#include "WYrexMultipointPanel.h"
#include "YrexActionTables.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "settings/TDefaultsIni.h"
#include "widgets/GuiUtils.h"
#include "widgets/WOpenSaveWidget.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QDragEnterEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr int cSpacing = 4;
constexpr int cSmallButton = 32;
constexpr int cLeastPanelRows = 6;
constexpr int cLeastWidth = 328; // with the margins of the dock 340

/// The only local file of a drag, when it is a template.
QString templateOf(const QMimeData *mime)
{
    const QList<QUrl> urls = mime->urls();
    const QString path = urls.size() == 1 ? urls.first().toLocalFile() : QString();
    return path.endsWith(QLatin1String(".kzp"), Qt::CaseInsensitive) ? path : QString();
}

} // namespace

WYrexProcessingWidget::WYrexProcessingWidget(IPluginHost &host, QWidget *parent)
    : WYrexPluginDockWidget(host, cProcessingDock, tr("Zarnu Processing Actions"), parent)
    , fEditor(new TYrexChainEditor(host, this))
{
    setAcceptDrops(true);
    makeContent();
    connectContent();
    refresh();
}

void WYrexProcessingWidget::makeContent()
{
    auto *content = new QWidget(this);
    content->setWindowTitle(tr("Zarnu Dynamic Processing Template"));
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(cSpacing);
    fOpenSaveFrame = new QFrame(content);
    fOpenSaveFrame->setObjectName("fOpenSaveFrame");
    fOpenSave = new WOpenSaveWidget(tr("Open Processing"), tr("Save Processing"), tr("Kelmora Processing"), "kzp");
    fOpenSave->setRecentFiles(TDefaultsIni().value(cRecentProcessingKey, QStringList()).toStringList());
    auto *row = new QVBoxLayout(fOpenSaveFrame);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(fOpenSave);
    column->addWidget(fOpenSaveFrame);
    makeReportButton();
    column->addWidget(makeListGroup());
    fBaselineNote = new QLabel(tr("Baseline shown: other actions wait."), content);
    fBaselineNote->setObjectName("baselineNote");
    fBaselineNote->hide();
    column->addWidget(fBaselineNote);
    fPanels = new WYrexActionPanels;
    auto *scroll = new QScrollArea(content);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(fPanels);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setMinimumHeight(cLeastPanelRows * fontMetrics().height()); // in a low window the list gives way
    column->addWidget(scroll, 1);
    setContent(content);
    content->setFocusProxy(fList);
    content->setMinimumWidth(cLeastWidth);
}

QPushButton *WYrexProcessingWidget::makeButton(const char *name, const QString &text, const QString &toolTip,
                                               void (WYrexProcessingWidget::*slot)())
{
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

QWidget *WYrexProcessingWidget::makeListGroup()
{
    fGroup = new QGroupBox(tr("Proc. Actions"));
    fGroup->setObjectName("groupBox");
    fList = new WYrexChainList;
    fStackNote = new QLabel;
    fStackNote->setObjectName("stackNote");
    fStackNote->setEnabled(false);
    fRemove = makeButton("pushButtonRemoveAction", tr("Remove"), tr("Remove Action from Processing Template"),
                         &WYrexProcessingWidget::removeYrexProcessingAction);
    fDuplicate = makeButton("pushButtonDuplicateAction", tr("Duplicate"), tr("Duplicate Action in Processing Template"),
                            &WYrexProcessingWidget::duplicateYrexProcessingActions);
    fUp = makeButton("pushButtonUpAction", QString(QChar(0x2191)),
                     tr("Move Action Up in Processing Template (up-to-down)"),
                     &WYrexProcessingWidget::moveUpProcessingAction);
    fDown = makeButton("pushButtonDownAction", QString(QChar(0x2193)),
                       tr("Move Action Down in Processing Template (up-to-down)"),
                       &WYrexProcessingWidget::moveDownProcessingAction);
    for (QPushButton *button : {fUp, fDown})
        button->setFixedWidth(cSmallButton);
    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : {fRemove, fDuplicate, fUp, fDown})
        buttons->addWidget(button);
    buttons->insertStretch(2);
    auto *column = new QVBoxLayout(fGroup);
    column->addWidget(fList);
    column->addWidget(fStackNote);
    column->addLayout(buttons);
    return fGroup;
}

void WYrexProcessingWidget::connectContent()
{
    connect(fList, &QListWidget::itemSelectionChanged, this, &WYrexProcessingWidget::updateControls);
    connect(fList, &WYrexChainList::checkChanged, this, [this](int row) { updateItemChanged(fList->item(row)); });
    connect(fList, &WYrexChainList::moveWanted, this, &WYrexProcessingWidget::moveTo);
    connect(fList, &WYrexChainList::stepWanted, this, [this](int step) {
        if (fPanels->current())
            moveTo(fRow, fRow + step);
    });
    connect(fList, &WYrexChainList::removeWanted, fRemove, &QPushButton::click);
    connect(fList, &QWidget::customContextMenuRequested, this, &WYrexProcessingWidget::showMenu);
    connect(fPanels, &WYrexActionPanels::edited, this, &WYrexProcessingWidget::apply);
    connect(fPanels, &WYrexActionPanels::held, fEditor, &TYrexChainEditor::setHeld);
    connect(fPanels->multipoint(), &WYrexMultipointPanel::editWanted, this, &WYrexProcessingWidget::onMPBCNewBaseline);
    connect(fEditor, &TYrexChainEditor::done, this, &WYrexProcessingWidget::refresh);
    connect(fOpenSave, &WOpenSaveWidget::loadFile, this, &WYrexProcessingWidget::open);
    connect(fOpenSave, &WOpenSaveWidget::saveFile, this, &WYrexProcessingWidget::save);
    connect(fOpenSave, &WOpenSaveWidget::newRecentFile, this,
            [this] { TDefaultsIni().setValue(cRecentProcessingKey, fOpenSave->recentFiles()); });
}

void WYrexProcessingWidget::onPluginDestroyed()
{
    fEditor->disconnect(this);
    WYrexPluginDockWidget::onPluginDestroyed();
}

int WYrexProcessingWidget::itemCount() const
{
    return fEditor->items().size();
}

bool WYrexProcessingWidget::isManyShown() const
{
    return spectrumItem() && spectrumItem()->stack().visibleIndices().size() >= 2;
}

void WYrexProcessingWidget::selectionChanged()
{
    showHeader(itemCount());
    if (spectrum())
        fList->setChain(fParams.actions(), rowsOfList());
}

/// The item, its active spectrum or its chain may have changed.
void WYrexProcessingWidget::refresh()
{
    const TCanvasYrexSpectrum *shown = spectrumItem();
    showHeader(itemCount());
    if (!shown) {
        fEditor->flush();
        fShownItem = QUuid();
        fParams.setActions({});
        fill();
        updateControls();
        return;
    }
    const bool isOther = shown->uniqueId() != fShownItem || shown->stack().current() != fShownSpectrum;
    if (!isOther && fEditor->isBusy())
        return; // the controls are ahead of the item
    if (isOther) {
        fEditor->flush();
        fOpenSave->clearFileName();
        fPanels->panel(cProcAutoBaseline)->setSpectrum(nullptr); // what it shows of a search was of another one
    }
    fShownItem = shown->uniqueId();
    fShownSpectrum = shown->stack().current();
    fParams = shown->currentSpectrum()->procParams().params();
    fill();
    const int baseline = TYrexChainRules::shownBaseline(fParams.actions());
    if (baseline >= 0 && fRow != baseline)
        select(baseline);
    updateEnabled();
}

QVector<TYrexChainRow> WYrexProcessingWidget::rowsOfList() const
{
    const QVariantList &chain = fParams.actions();
    QVector<TYrexChainRow> rows(chain.size());
    const bool isMany = isManyShown();
    for (int row = 0; row < chain.size(); ++row) {
        rows[row].fIsHidden = !isMany && TYrexChainRules::needsStack(fParams.actionId(row));
        for (const TYrexSpectrum *each : spectrumItem()->spectra())
            rows[row].fTime += each->procParams().runTime(row);
    }
    for (ICanvasItem *entry : fEditor->items()) {
        const TYrexSpectrum *other = yrexItem(entry)->currentSpectrum();
        if (!other || other == spectrum())
            continue;
        for (const int row : TYrexChainRules::differingRows(chain, other->procParams().actions()))
            rows[row].fIsVarious = true;
    }
    return rows;
}

void WYrexProcessingWidget::fill()
{
    fList->setChain(fParams.actions(), spectrum() ? rowsOfList() : QVector<TYrexChainRow>());
    if (fRow >= fParams.actionCount())
        fRow = -1;
    const int hidden = fList->hiddenCount();
    fStackNote->setVisible(hidden > 0);
    fStackNote->setText(hidden == 1 ? tr("1 action needs a stack.") : tr("%1 actions need a stack.").arg(hidden));
    fList->setBoldRow(fRow);
    showPanel();
    updateButtons();
}

/// The controls of the row that is chosen, if it is the only one. Another chain may have another action there.
void WYrexProcessingWidget::showPanel()
{
    const QListWidgetItem *chosen = fList->item(fRow);
    const bool isOne = chosen && !chosen->isHidden() && fList->selectedRows().size() < 2;
    fPanels->showPanel(isOne ? fParams.actionId(fRow) : -1);
    fillPanel();
}

void WYrexProcessingWidget::fillPanel()
{
    if (WYrexActionPanel *panel = fPanels->current()) {
        panel->setSpectrum(spectrum());
        panel->load(fParams.action(fRow));
    }
    updateMultipointButton();
}

void WYrexProcessingWidget::updateControls()
{
    const QVector<int> rows = fList->selectedRows();
    if (!rows.isEmpty())
        fRow = rows.first();
    fOpenSave->clearFileName();
    fList->setBoldRow(fRow);
    showPanel();
    updateButtons();
}

void WYrexProcessingWidget::updateButtons()
{
    const QVector<int> rows = fList->selectedRows();
    fDuplicate->setEnabled(TYrexChainRules::canDuplicate(fParams.actions(), rows));
    fRemove->setEnabled(TYrexChainRules::canRemove(fParams.actions(), rows));
    fUp->setEnabled(fPanels->current() != nullptr);
    fDown->setEnabled(fPanels->current() != nullptr);
}

/// The session says so in the settings of the item.
bool WYrexProcessingWidget::isMultipointEdited() const
{
    return fParams.defaultMap(cProcMultipointBaseline).contains(cKeyMultipointSetup);
}

void WYrexProcessingWidget::updateMultipointButton()
{
    const int row = fParams.indexOfAction(cProcMultipointBaseline);
    QString hint;
    if (row >= 0 && fParams.isApplied(row))
        hint = TYrexProcParams::label(38);
    if (TYrexChainRules::shownBaseline(fParams.actions()) >= 0)
        hint = tr("Please uncheck 'Show Baseline'\nin Auto Baseline Correction");
    fPanels->multipoint()->setEditable(hint.isEmpty() && !isMultipointEdited(), hint);
}

void WYrexProcessingWidget::updateEnabled()
{
    const bool isBaselineShown = TYrexChainRules::shownBaseline(fParams.actions()) >= 0;
    fBaselineNote->setVisible(isBaselineShown);
    fGroup->setEnabled(!isBaselineShown && !isMultipointEdited());
    fOpenSaveFrame->setEnabled(!isBaselineShown && !isMultipointEdited());
    fPanels->setEnabled(!isMultipointEdited());
    updateMultipointButton();
}

void WYrexProcessingWidget::select(int row)
{
    const QSignalBlocker blocker(fList);
    fList->clearSelection();
    if (QListWidgetItem *item = fList->item(row)) {
        fRow = row;
        fList->setCurrentItem(item);
        item->setSelected(true);
    }
    updateControls();
}

void WYrexProcessingWidget::act_qlistwid(int action)
{
    const int row = fParams.indexOfAction(action);
    if (row >= 0)
        select(row);
}

void WYrexProcessingWidget::updateItemChanged(QListWidgetItem *item)
{
    const int row = fList->row(item);
    if (item->checkState() == Qt::Checked && row != fRow && fList->selectedRows().size() < 2)
        select(row);
    apply(nullptr);
}

void WYrexProcessingWidget::apply(QWidget *control)
{
    if (!spectrum() || fEditor->isRunning())
        return;
    QVariantList chain = fParams.actions();
    for (int row = 0; row < chain.size(); ++row) {
        QVariantMap map = chain.at(row).toMap();
        map.insert(cKeyApply, fList->isChecked(row));
        if (row == fRow && fPanels->current()) {
            fPanels->current()->store(map);
            if (map.value(cKeyOpId) == int(cProcAutoBaseline) && !map.contains(cKeyBaselineAutoLambda)) {
                QVariantMap defaults = fParams.defaultMap(cProcAutoBaseline);
                defaults.remove(cKeyBaselineAutoLambda);
                fParams.setDefaultMap(cProcAutoBaseline, defaults);
            }
            if (control && map.value(cKeyOpId) == int(cProcAutoBaseline) && map.value(cKeyBaselineShowOnly).toBool())
                map.insert(cKeyApply, true); // a baseline of an action that takes no part would not be seen
        }
        chain[row] = map;
    }
    if (fPanels->current() == fPanels->multipoint() && isMultipointEdited()) {
        endMultipoint(fList->isChecked(fRow));
        return;
    }
    if (isMultipointEdited()) {
        fill(); // the chain is that of the session, which no command may take over
        return;
    }
    refuseConversion(chain);
    fParams.setActions(chain);
    const bool isRun = qobject_cast<QAbstractSpinBox *>(control) || qobject_cast<QAbstractSlider *>(control);
    fEditor->edit(fParams, isRun ? control : nullptr);
    updateEnabled();
}

void WYrexProcessingWidget::applyChain(const QVariantList &chain)
{
    if (!spectrum())
        return;
    QVariantList usable = chain;
    if (!isManyShown())
        TYrexChainRules::switchOffStackActions(usable);
    refuseConversion(usable);
    fParams.setActions(usable);
    fill();
    fEditor->edit(fParams, nullptr);
    updateEnabled();
}

/// A conversion that is switched on needs a unit from which there is one.
void WYrexProcessingWidget::refuseConversion(QVariantList &chain)
{
    bool isRefused = false;
    for (QVariant &action : chain) {
        QVariantMap map = action.toMap();
        if (map.value(cKeyOpId) != int(cProcUnitConversion) || !map.value(cKeyApply).toBool() ||
            TYrexChainRules::isConvertible(spectrum()->origYUnits()))
            continue;
        map.insert(cKeyApply, false);
        action = map;
        isRefused = true;
    }
    if (isRefused)
        Utils::Gui::message(this, QMessageBox::Information, tr("Zarnu Units Conversion"),
                            tr("Undefined Y Units Conversion."),
                            tr("No unit conversion is defined for the current Y unit.\n\nIf your intention is to "
                               "change the originally assigned Y unit, you can do so by double clicking the 'Original "
                               "Y Units' parameter in the Parameters table."));
}

void WYrexProcessingWidget::removeYrexProcessingAction()
{
    QVariantList chain = fParams.actions();
    const QVector<int> rows = fList->selectedRows();
    if (!TYrexChainRules::canRemove(chain, rows))
        return;
    TYrexChainRules::remove(chain, rows);
    applyChain(chain);
    select(qMin(rows.first(), chain.size() - 1));
}

void WYrexProcessingWidget::duplicateYrexProcessingActions()
{
    QVariantList chain = fParams.actions();
    if (!TYrexChainRules::canDuplicate(chain, fList->selectedRows()))
        return;
    TYrexChainRules::duplicate(chain, fList->selectedRows());
    applyChain(chain);
    updateControls();
}

void WYrexProcessingWidget::moveTo(int from, int to)
{
    QVariantList chain = fParams.actions();
    if (!TYrexChainRules::move(chain, from, to))
        return;
    fRow = to;
    applyChain(chain);
    select(to);
}

void WYrexProcessingWidget::moveUpProcessingAction()
{
    moveTo(fRow, fRow - 1);
}

void WYrexProcessingWidget::moveDownProcessingAction()
{
    moveTo(fRow, fRow + 1);
}

void WYrexProcessingWidget::open(const QString &aFileName)
{
    if (aFileName.isEmpty() || !spectrum())
        return;
    if (!fOpenSaveFrame->isEnabled()) { // from elsewhere than the dock
        host().gui()->statusMessage(tr("No template can be opened while a baseline is shown or edited."));
        return;
    }
    TYrexProcParams params = fParams;
    const int result = params.readFile(aFileName);
    if (result != TYrexProcParams::cReadOk) {
        const QString texts[] = {QString(), tr("Unable to open the file."), tr("Dimension mismatch."),
                                 tr("Wrong file format.")};
        Utils::Gui::message(this, QMessageBox::Critical, tr("Error"), texts[result]);
        return;
    }
    fParams = params;
    applyChain(params.actions());
    fOpenSave->addRecentFile(aFileName);
}

void WYrexProcessingWidget::save(const QString &aFileName)
{
    QString error;
    if (!fParams.writeFile(aFileName, &error)) {
        Utils::Gui::message(this, QMessageBox::Critical, tr("Error"),
                            tr("%1 cannot be written: %2. Choose another folder.").arg(aFileName, error));
        return;
    }
    fOpenSave->addRecentFile(aFileName);
}

void WYrexProcessingWidget::onMPBCNewBaseline()
{
    IGuiHost *gui = host().gui();
    if (!gui->dock(cMultipointDock))
        return;
    gui->showDock(cMultipointDock, true);
    refresh();
}

void WYrexProcessingWidget::dragEnterEvent(QDragEnterEvent *event)
{
    if (spectrum() && !templateOf(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void WYrexProcessingWidget::dropEvent(QDropEvent *event)
{
    const QString path = templateOf(event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    open(path);
}
