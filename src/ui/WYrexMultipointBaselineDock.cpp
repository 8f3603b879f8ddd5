#include "WYrexMultipointBaselineDock.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexProcessing.h"
#include "TYrexBaselinePointsModel.h"
#include "TYrexUnits.h"
#include "YrexActionTables.h"
#include "canvas/TCanvasItemList.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "settings/TDefaultsIni.h"
#include "ui/IPlotView.h"
#include "ui/TPluginMouseModeHandler.h"
#include "widgets/GuiUtils.h"
#include "widgets/TDoubleSpinBox.h"
#include "widgets/TOwnKeys.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int cMargin = 8;
constexpr int cManyPoints = 5; // more of them are not cleared without asking
constexpr char cKindKey[] = "Zarnu/Zarnu Baseline Correction/Default Action";

/// The kind of a point is chosen from a list.
class TKindDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        auto *box = new QComboBox(parent);
        box->addItems(TYrexBaselinePointsModel::kindNames());
        connect(box, QOverload<int>::of(&QComboBox::activated), this, [this, box] {
            auto *self = const_cast<TKindDelegate *>(this);
            emit self->commitData(box);
            emit self->closeEditor(box);
        });
        return box;
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        static_cast<QComboBox *>(editor)->setCurrentIndex(index.data(Qt::EditRole).toInt() - 1);
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override
    {
        model->setData(index, static_cast<QComboBox *>(editor)->currentIndex() + 1);
    }
};

QString unitText(int unit)
{
    switch (unit) {
    case cUnitWavenumber:
    case cUnitRamanShift:
        return QStringLiteral("cm-1");
    case cUnitMicrometers:
        return QString::fromUtf8("\u00B5m");
    case cUnitNanometers:
        return QStringLiteral("nm");
    default:
        return QString();
    }
}

QToolButton *buttonOf(QAction *action)
{
    auto *button = new QToolButton;
    button->setDefaultAction(action);
    button->setObjectName(action->objectName() + "Button");
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

/// A choice of an exclusive group of actions.
QRadioButton *radioOf(QAction *action)
{
    auto *radio = new QRadioButton(action->text());
    radio->setObjectName(action->objectName() + "Button");
    radio->setToolTip(action->toolTip());
    radio->setChecked(action->isChecked());
    QObject::connect(radio, &QRadioButton::clicked, action, &QAction::trigger);
    QObject::connect(action, &QAction::toggled, radio, &QRadioButton::setChecked);
    return radio;
}

} // namespace

WYrexMultipointBaselineDock::WYrexMultipointBaselineDock(IPluginHost &host)
    : WPluginDockWidget(cMultipointDock, tr("Zarnu Multipoint Baseline"))
    , fHost(host)
    , fKinds(new QActionGroup(this))
    , fHeader(new QLabel)
    , fNothing(new QLabel(tr("Click on the plot where the baseline should pass.")))
    , fCount(new QLabel)
    , fAlgorithm(new QComboBox)
    , fWindow(new QSpinBox)
    , fLambda(new TDoubleSpinBox)
    , fPreview(new QCheckBox(tr("Preview corrected spectrum")))
    , fTable(new QTableView)
    , fModel(new TYrexBaselinePointsModel(this))
{
    makeKinds();
    makeActions();
    makeTable();
    makeWidgets();
    connectCurve();
    // the mode comes back when another one was left
    connect(fHost.gui()->mouseModes(), &TBaseMouseModeHandler::modeChanged, this, [this](const QUuid &mode) {
        if (!fSession || !mode.isNull())
            return;
        QTimer::singleShot(0, this, [this] {
            if (fSession && fHost.gui()->mouseMode().isNull())
                fHost.gui()->setMouseMode(YrexModes::baselinePointsModeID);
        });
    });
    showState();
}

WYrexMultipointBaselineDock::~WYrexMultipointBaselineDock() = default;

void WYrexMultipointBaselineDock::makeKinds()
{
    const auto add = [this](const char *name, const QString &text, const QString &toolTip, int kind) {
        auto *action = new QAction(text, fKinds);
        action->setObjectName(name);
        action->setToolTip(toolTip);
        action->setCheckable(true);
        action->setData(kind);
    };
    add("action_PickFree", tr("Free"), tr("The point stands where it is placed (Ctrl + click)."),
        TYrexMultipointSession::cFree);
    add("action_PickAverage", tr("Average"), tr("The point takes the level of the data around it (Shift + click)."),
        TYrexMultipointSession::cAverage);
    add("action_PickSmooth", tr("Smooth"), tr("The point takes the level of 15 points to either side."),
        TYrexMultipointSession::cSmooth);
    const QString stored = TDefaultsIni().value(cKindKey, QString()).toString();
    fKinds->actions().at(1)->setChecked(true);
    for (QAction *action : fKinds->actions()) {
        if (action->objectName() == stored)
            action->setChecked(true);
    }
    connect(fKinds, &QActionGroup::triggered, this,
            [](const QAction *action) { TDefaultsIni().setValue(cKindKey, action->objectName()); });
}

QAction *WYrexMultipointBaselineDock::makeAction(const char *name, const QString &text, const QString &toolTip,
                                                 const std::function<void()> &run)
{
    auto *action = new QAction(text, this);
    action->setObjectName(name);
    action->setToolTip(toolTip);
    connect(action, &QAction::triggered, this, run);
    return action;
}

void WYrexMultipointBaselineDock::makeActions()
{
    const auto edit = [this](const std::function<void()> &run) {
        return [this, run] {
            if (!fSession)
                return;
            run();
            showEdit();
        };
    };
    fAuto = makeAction("action_AutoPoints", tr("Automatic Points"), tr("Adds points where the spectrum is flat."),
                       edit([this] {
                           if (fSession->addAutomaticPoints() == 0)
                               fHost.gui()->statusMessage(tr("No further flat places were found."));
                       }));
    fBorder = makeAction("action_BorderPoints", tr("Border Points"), tr("Adds a point at either end of the spectrum."),
                         edit([this] { fSession->addBorderPoints(); }));
    fClear = makeAction("action_Clear", tr("Clear"), tr("Removes all points."), edit([this] { clearPoints(); }));
    fUndo = makeAction("action_Undo", tr("Undo"), tr("Takes the last change of the points back (Ctrl+Z)."),
                       [this] { undo(); });
    fRedo = makeAction("action_Redo", tr("Redo"), tr("Does it again (Ctrl+Shift+Z)."), [this] { redo(); });
    fCancel = makeAction("action_Cancel", tr("Cancel"), tr("Leaves the spectrum as it was."), [this] {
        cancelSession();
        hide();
    });
    fApply = makeAction("action_Apply", tr("Apply"), QString(), [this] { on_action_Apply_triggered(); });
    fApply->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return));
    fApply->setShortcutContext(Qt::WindowShortcut);
    QDockWidget::addAction(fApply);
}

void WYrexMultipointBaselineDock::makeTable()
{
    fTable->setObjectName("pointsTable");
    fTable->setAccessibleName(tr("Points of the baseline"));
    fTable->setModel(fModel);
    fTable->setItemDelegateForColumn(TYrexBaselinePointsModel::cKind, new TKindDelegate(fTable));
    fTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    fTable->setSelectionMode(QAbstractItemView::SingleSelection);
    fTable->verticalHeader()->hide();
    fTable->horizontalHeader()->setStretchLastSection(true);
    fTable->horizontalHeader()->setHighlightSections(false);
    fTable->setColumnWidth(TYrexBaselinePointsModel::cNumber, fontMetrics().horizontalAdvance("00000"));
    auto *keys = new TOwnKeys(fTable);
    keys->add(QKeySequence::Copy, [this] { copyPoints(); });
    keys->add(QKeySequence::Paste, [this] { pastePoints(); });
    keys->add(QKeySequence::Delete, [this] {
        if (fSession && selectedPoint() >= 0) {
            fSession->removePoint(selectedPoint());
            showEdit();
        }
    });
    connect(fTable->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (fHost.gui()->plotView())
            fHost.gui()->plotView()->updateOverlay();
    });
    connect(fModel, &TYrexBaselinePointsModel::edited, this, [this](int row) {
        showEdit();
        selectPoint(row);
    });
}

QLayout *WYrexMultipointBaselineDock::makeCurveRow()
{
    fAlgorithm->setObjectName("algorithmComboBox");
    fAlgorithm->addItems({tr("Linear Segments"), tr("Smooth Segments"), tr("Cubic Splines"), tr("Whittaker")});
    fAlgorithm->setToolTip(tr("How the curve runs from point to point."));
    fWindow->setObjectName("avgWindowSpinBox");
    fWindow->setRange(0, TYrexMultipointSession::cMaxWindow);
    fWindow->setToolTip(tr("Points to either side over which a point of the kind Average takes the level."));
    fLambda->setObjectName("lambdaSpinBox");
    fLambda->setRange(1, TYrexMultipointSession::cMaxLambda);
    fLambda->setDecimals(0);
    fLambda->setLogSteps(true);
    fLambda->setToolTip(tr("Stiffness of the Whittaker curve."));
    fPreview->setObjectName("previewCheckBox");
    fPreview->setToolTip(tr("Shows the data minus the curve; the points stay."));
    auto *grid = new QGridLayout;
    const auto label = [grid](const QString &text, QWidget *buddy, int row) {
        auto *one = new QLabel(text);
        one->setBuddy(buddy);
        grid->addWidget(one, row, 0);
        grid->addWidget(buddy, row, 1);
    };
    auto *kinds = new QWidget;
    auto *row = new QHBoxLayout(kinds);
    row->setContentsMargins(0, 0, 0, 0);
    for (QAction *action : fKinds->actions())
        row->addWidget(radioOf(action));
    row->addStretch(1);
    label(tr("Point"), kinds, 0);
    label(tr("&Curve"), fAlgorithm, 1);
    label(tr("A&veraging, points"), fWindow, 2);
    label(tr("&Lambda"), fLambda, 3);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout *WYrexMultipointBaselineDock::makeButtons()
{
    auto *row = new QHBoxLayout;
    row->addWidget(buttonOf(fUndo));
    row->addWidget(buttonOf(fRedo));
    row->addStretch(1);
    row->addWidget(buttonOf(fCancel));
    row->addWidget(buttonOf(fApply));
    return row;
}

void WYrexMultipointBaselineDock::makeWidgets()
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(cMargin, cMargin, cMargin, cMargin);
    fHeader->setObjectName("headerLabel");
    fHeader->setWordWrap(true);
    column->addWidget(fHeader);
    column->addLayout(makeCurveRow());
    auto *row = new QHBoxLayout;
    for (QAction *action : {fAuto, fBorder, fClear})
        row->addWidget(buttonOf(action));
    column->addLayout(row);
    column->addWidget(fPreview);
    fNothing->setAlignment(Qt::AlignCenter);
    fNothing->setWordWrap(true);
    fNothing->setEnabled(false); // the grey of disabled things
    column->addWidget(fNothing);
    column->addWidget(fTable, 1);
    fCount->setObjectName("countLabel");
    column->addWidget(fCount);
    column->addLayout(makeButtons());
    setWidget(page);
    page->setFocusProxy(fTable);
}

void WYrexMultipointBaselineDock::connectCurve()
{
    connect(fAlgorithm, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int algorithm) {
        if (fSession)
            fSession->setAlgorithm(algorithm);
        showEdit();
    });
    connect(fWindow, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int points) {
        if (fSession)
            fSession->setAvgWindow(points);
        showEdit();
    });
    connect(fLambda, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this](double lambda) {
        if (fSession)
            fSession->setLambda(qRound(lambda));
        showEdit();
    });
    connect(fPreview, &QCheckBox::toggled, this, [this](bool on) {
        setPreviewing(on);
        showEdit();
    });
}

/// The corrected data stand elsewhere: the plot follows them, and comes back to its scales.
void WYrexMultipointBaselineDock::setPreviewing(bool on)
{
    TCanvasYrexSpectrum *edited = editedItem();
    if (!edited || !fSession || fSession->isPreviewing() == on)
        return;
    fSession->setPreviewing(on);
    if (on) {
        fPlotBefore.capture(edited);
        edited->activeYrexPlot()->keepCurveInView();
    } else {
        fPlotBefore.restore(edited);
    }
}

TCanvasYrexSpectrum *WYrexMultipointBaselineDock::editedItem() const
{
    return fSession && fEdited ? yrexItem(fEdited.get()) : nullptr;
}

int WYrexMultipointBaselineDock::kind() const
{
    return fKinds->checkedAction()->data().toInt();
}

int WYrexMultipointBaselineDock::selectedPoint() const
{
    const QModelIndexList rows = fTable->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void WYrexMultipointBaselineDock::selectPoint(int index)
{
    if (index < 0 || index >= fModel->rowCount())
        fTable->clearSelection();
    else
        fTable->selectRow(index);
}

void WYrexMultipointBaselineDock::editPlace(int index)
{
    selectPoint(index);
    fTable->setFocus();
    fTable->edit(fModel->index(index, TYrexBaselinePointsModel::cX));
}

int WYrexMultipointBaselineDock::shownUnit() const
{
    const T1DYrexPlot *plot = editedItem() ? editedItem()->activeYrexPlot() : nullptr;
    return plot ? plot->xUnits() : int(cUnitArbitrary);
}

void WYrexMultipointBaselineDock::begin()
{
    TCanvasYrexSpectrum *edited = item() ? yrexItem(item()) : nullptr;
    if (!edited || !edited->activeYrexPlot() || !TYrexMultipointSession::canEdit(edited->currentSpectrum())) {
        QTimer::singleShot(0, this, &QWidget::hide); // not from within being shown
        return;
    }
    fEdited = TSecurePtr<TCanvasItem>(edited);
    fHistory = &fHost.history();
    const quint32 id = edited->stack().idOf(edited->stack().current());
    fSession = std::make_unique<TYrexMultipointSession>([this, id]() -> TYrexSpectrum * {
        TCanvasYrexSpectrum *of = fEdited ? yrexItem(fEdited.get()) : nullptr;
        return of ? of->stack().at(of->stack().indexOfId(id)) : nullptr;
    });
    fSession->begin();
    fHost.gui()->hideWarningBar(QCoreApplication::translate("TYrexActions", "No multipoint baseline yet."));
    fModel->setSession(fSession.get(), shownUnit(), unitText(shownUnit()));
    const QSignalBlocker noPreview(fPreview);
    fPreview->setChecked(false);
    fHost.gui()->setEditSession(this);
    if (fHost.gui()->mouseMode() != YrexModes::baselinePointsModeID)
        fHost.gui()->setMouseMode(YrexModes::baselinePointsModeID);
    edited->refreshAxes();
    showEdit();
    fHost.gui()->refreshTable(cProcessingDock); // its chain is closed meanwhile
}

void WYrexMultipointBaselineDock::redraw()
{
    if (TCanvasYrexSpectrum *edited = editedItem())
        edited->update();
    if (fHost.gui()->plotView())
        fHost.gui()->plotView()->updateOverlay();
}

void WYrexMultipointBaselineDock::showEdit()
{
    if (!fSession)
        return;
    const TYrexSpectrum *spectrum = fSession->spectrum();
    fChain = spectrum ? spectrum->procParams().actions() : QVariantList();
    fModel->refresh();
    showState();
    redraw();
}

void WYrexMultipointBaselineDock::showState()
{
    const bool isOn = fSession != nullptr;
    const int count = isOn ? fSession->points().size() : 0;
    if (isOn) {
        const TYrexMultipointSetup &setup = fSession->setup();
        const QSignalBlocker a(fAlgorithm), b(fWindow), c(fLambda);
        fAlgorithm->setCurrentIndex(setup.algorithm);
        if (fWindow->value() != setup.avgWindow)
            fWindow->setValue(setup.avgWindow);
        if (qRound(fLambda->value()) != setup.lambda)
            fLambda->setValue(setup.lambda);
    }
    fLambda->setEnabled(isOn && fAlgorithm->currentIndex() == TYrexMultipointSetup::cWhittaker);
    fUndo->setEnabled(canUndo());
    fRedo->setEnabled(canRedo());
    fClear->setEnabled(count > 0);
    fApply->setEnabled(isOn && fSession->missingPoints() == 0);
    const bool isStraight = fAlgorithm->currentIndex() == TYrexMultipointSetup::cCubicSplines && count == 2;
    fApply->setToolTip(!fApply->isEnabled() ? tr("A baseline needs two points.")
                       : isStraight         ? tr("With two points the spline is a straight line; three let it bend.")
                                            : tr("Takes the baseline away and closes the dock (Ctrl+Return)."));
    QString text = count == 1 ? tr("1 point") : tr("%1 points").arg(count);
    if (isOn && fSession->setup().autoPointCount >= 0)
        text = tr("%1, %2 automatic").arg(text).arg(fSession->setup().autoPointCount);
    fCount->setText(text);
    fNothing->setVisible(count == 0);
    showHeader();
    fHost.gui()->updateActions();
}

void WYrexMultipointBaselineDock::showHeader()
{
    const TCanvasYrexSpectrum *edited = editedItem();
    QString text;
    if (edited) {
        text = edited->spectrumTitle(edited->stack().current()).section('\n', 0, 0);
        const int selected = edited->stack().selectedIndices(false, true).size();
        if (selected > 1)
            text = tr("One baseline for %1 selected spectra.").arg(selected);
    }
    fHeader->setText(text);
    fHeader->setVisible(!text.isEmpty());
}

/// Whether the chain is still the one that the session shows.
bool WYrexMultipointBaselineDock::isOwnChain() const
{
    const TYrexSpectrum *spectrum = fSession->spectrum();
    return spectrum && spectrum->procParams().actions() == fChain;
}

void WYrexMultipointBaselineDock::refresh()
{
    if (!fSession || fIsEnding)
        return;
    if (!fEdited || !fSession->isAlive() || !isOwnChain()) {
        dropSession();
        return;
    }
    const TCanvasYrexSpectrum *edited = editedItem();
    const bool isOther = item() != fEdited.get() || edited->currentSpectrum() != fSession->spectrum();
    if (isOther) {
        // Not within the change of the selection, and only if it lasts.
        QTimer::singleShot(0, this, [this] {
            if (fSession && (item() != fEdited.get() || editedItem()->currentSpectrum() != fSession->spectrum()) &&
                askAndEnd(false))
                hide();
        });
        return;
    }
    fModel->setSession(fSession.get(), shownUnit(), unitText(shownUnit()));
    showState();
}

void WYrexMultipointBaselineDock::onPluginDestroyed()
{
    cancelSession();
    WPluginDockWidget::onPluginDestroyed();
}

void WYrexMultipointBaselineDock::undo()
{
    if (!fSession)
        return;
    fSession->undo();
    showEdit();
}

void WYrexMultipointBaselineDock::redo()
{
    if (!fSession)
        return;
    fSession->redo();
    showEdit();
}

bool WYrexMultipointBaselineDock::leave()
{
    if (!askAndEnd(true))
        return false;
    hide();
    return true;
}

bool WYrexMultipointBaselineDock::askAndEnd(bool mayStay)
{
    if (!fSession || fIsEnding)
        return true;
    if (!fEdited || !fSession->isAlive()) {
        dropSession();
        return true;
    }
    QMessageBox::StandardButton answer = QMessageBox::Discard;
    if (fSession->isChanged()) {
        Utils::Gui::TMessage question;
        question.fIcon = QMessageBox::Question;
        question.fTitle = windowTitle();
        question.fText = tr("The points of the baseline were changed.");
        question.fButtons = QMessageBox::Discard;
        if (fSession->missingPoints() == 0)
            question.fButtons |= QMessageBox::Apply;
        if (mayStay)
            question.fButtons |= QMessageBox::Cancel;
        question.fDefault = fSession->missingPoints() == 0 ? QMessageBox::Apply : QMessageBox::Discard;
        fIsEnding = true;
        answer = Utils::Gui::ask(fHost.gui()->mainWindow(), question);
        fIsEnding = false;
    }
    if (answer == QMessageBox::Cancel && mayStay)
        return false;
    if (answer == QMessageBox::Apply && fSession && fSession->isAlive())
        applySession();
    else
        cancelSession();
    return true;
}

void WYrexMultipointBaselineDock::applySession()
{
    TCanvasYrexSpectrum *edited = editedItem();
    if (!edited)
        return;
    fIsEnding = true;
    setPreviewing(false);
    const TYrexProcParams params = fSession->finish();
    sessionEnded();
    if (fHistory->gesture() != 0) // a run of edits elsewhere would be replaced by this step
        fHistory->endGesture();
    fHistory->push(new TCmdYrexProcessing(TCanvasItemList{edited}, params));
    fIsEnding = false;
    showState();
}

void WYrexMultipointBaselineDock::cancelSession()
{
    if (!fSession)
        return;
    TCanvasYrexSpectrum *edited = editedItem();
    if (edited && fSession->isAlive()) {
        setPreviewing(false);
        fSession->cancel();
    }
    sessionEnded();
    if (edited) {
        edited->refreshAxes();
        edited->update();
    }
}

/// The spectrum is gone, or others made it anew.
void WYrexMultipointBaselineDock::dropSession()
{
    sessionEnded();
    QTimer::singleShot(0, this, &QWidget::hide);
    fHost.gui()->statusMessage(tr("The editing of baseline points has ended: the spectrum was changed."));
}

void WYrexMultipointBaselineDock::sessionEnded()
{
    fModel->setSession(nullptr, 0, QString());
    fSession.reset();
    fEdited = TSecurePtr<TCanvasItem>();
    if (fHost.gui()->editSession() == this)
        fHost.gui()->setEditSession(nullptr);
    if (fHost.gui()->mouseMode() == YrexModes::baselinePointsModeID)
        fHost.gui()->setMouseMode(QUuid());
    showState();
    fHost.gui()->refreshTable(cProcessingDock);
}

void WYrexMultipointBaselineDock::on_action_Apply_triggered()
{
    if (!fSession || fIsEnding || fSession->missingPoints() > 0)
        return;
    applySession();
    hide();
    fHost.gui()->focusPlot();
}

void WYrexMultipointBaselineDock::clearPoints()
{
    if (fSession->points().size() > cManyPoints) {
        Utils::Gui::TMessage question;
        question.fIcon = QMessageBox::Question;
        question.fTitle = windowTitle();
        question.fText = tr("Remove all %1 points?").arg(fSession->points().size());
        question.fButtons = QMessageBox::Yes | QMessageBox::Cancel;
        question.fDefault = QMessageBox::Yes;
        if (Utils::Gui::ask(fHost.gui()->mainWindow(), question) != QMessageBox::Yes || !fSession)
            return;
    }
    fSession->clear();
}

void WYrexMultipointBaselineDock::copyPoints() const
{
    if (fSession)
        QApplication::clipboard()->setText(fSession->text(shownUnit()));
}

void WYrexMultipointBaselineDock::pastePoints()
{
    if (!fSession)
        return;
    const QVector<TYrexBaselinePoint> points = fSession->pointsOf(QApplication::clipboard()->text(), shownUnit());
    if (points.isEmpty()) {
        fHost.gui()->statusMessage(tr("The clipboard holds no points of this spectrum: x, y and kind parted by tabs."));
        return;
    }
    fSession->setPoints(points);
    showEdit();
}

void WYrexMultipointBaselineDock::showEvent(QShowEvent *event)
{
    WPluginDockWidget::showEvent(event);
    if (!fSession && !fIsEnding) {
        standInFront();
        begin();
    }
}

/// As a tab over the processing dock, where that is shown in the window.
void WYrexMultipointBaselineDock::standInFront()
{
    auto *window = qobject_cast<QMainWindow *>(fHost.gui()->mainWindow());
    WPluginDockWidget *processing = fHost.gui()->dock(cProcessingDock);
    if (!window || !processing || processing->isHidden() || processing->isFloating() || isFloating() ||
        window->tabifiedDockWidgets(processing).contains(this))
        return;
    window->tabifyDockWidget(processing, this);
    raise();
}

/// Hidden behind another tab or with the window it goes on.
void WYrexMultipointBaselineDock::hideEvent(QHideEvent *event)
{
    WPluginDockWidget::hideEvent(event);
    if (!isHidden() || !fSession || fIsEnding)
        return;
    if (!askAndEnd(true))
        QTimer::singleShot(0, this, &QWidget::show);
}

void WYrexMultipointBaselineDock::closeEvent(QCloseEvent *event)
{
    if (!askAndEnd(true)) {
        event->ignore();
        return;
    }
    WPluginDockWidget::closeEvent(event);
}

void WYrexMultipointBaselineDock::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        fHost.gui()->focusPlot();
    else if (event->matches(QKeySequence::Copy))
        copyPoints();
    else if (event->matches(QKeySequence::Paste))
        pastePoints();
    else
        WPluginDockWidget::keyPressEvent(event);
}
