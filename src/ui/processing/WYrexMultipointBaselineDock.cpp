#include "WYrexMultipointBaselineDock.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdSetYrexSpectrumHorizontalUnits.h"
#include "TCmdYrexProcessing.h"
#include "TYrexBaselinePointsModel.h"
#include "TYrexCursorInfoHandler.h"
#include "TYrexUnits.h"
#include "WYrexBaselinePointDialog.h"
#include "WYrexMultipointForm.h"
#include "YrexActionTables.h"
#include "canvas/TCanvasItemList.h"
#include "commands/TCommandHistory.h"
#include "contexts/IStackedItemCtx.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "ui/IPlotView.h"
#include "ui/TPluginMouseModeHandler.h"
#include "widgets/GuiUtils.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMainWindow>
#include <QTimer>

namespace {

constexpr int cManyPoints = 5;   // more of them are not cleared without asking
constexpr int cMoreDecimals = 2; // behind those that tell two pixels apart

} // namespace

WYrexMultipointBaselineDock::WYrexMultipointBaselineDock(IPluginHost &host)
    : WPluginDockWidget(cMultipointDock, tr("Zarnu Multipoint Baseline"))
    , fHost(host)
    , fModel(new TYrexBaselinePointsModel(this))
    , fForm(new WYrexMultipointForm(fModel))
{
    setWidget(fForm);
    connectActions();
    connectForm();
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

void WYrexMultipointBaselineDock::connectActions()
{
    const auto on = [this](WYrexMultipointForm::TAction which, const std::function<void()> &run) {
        connect(fForm->action(which), &QAction::triggered, this, run);
    };
    const auto edit = [this](const std::function<void()> &run) {
        return [this, run] {
            if (!fSession)
                return;
            run();
            showEdit();
        };
    };
    on(WYrexMultipointForm::cAutoPoints, edit([this] {
           if (fSession->addAutomaticPoints() == 0)
               fHost.gui()->statusMessage(tr("No further flat places were found."));
       }));
    on(WYrexMultipointForm::cBorderPoints, edit([this] { fSession->addBorderPoints(); }));
    on(WYrexMultipointForm::cClear, edit([this] { clearPoints(); }));
    on(WYrexMultipointForm::cUndo, [this] { undo(); });
    on(WYrexMultipointForm::cRedo, [this] { redo(); });
    on(WYrexMultipointForm::cCancel, [this] {
        cancelSession();
        hide();
    });
    on(WYrexMultipointForm::cApply, [this] { on_action_Apply_triggered(); });
}

void WYrexMultipointBaselineDock::connectForm()
{
    const auto edit = [this](const std::function<void(int)> &run) {
        return [this, run](int value) {
            if (fSession)
                run(value);
            showEdit();
        };
    };
    connect(fForm, &WYrexMultipointForm::algorithmChosen, this,
            edit([this](int algorithm) { fSession->setAlgorithm(algorithm); }));
    connect(fForm, &WYrexMultipointForm::avgWindowChosen, this,
            edit([this](int points) { fSession->setAvgWindow(points); }));
    connect(fForm, &WYrexMultipointForm::lambdaChosen, this, edit([this](int lambda) { fSession->setLambda(lambda); }));
    connect(fForm, &WYrexMultipointForm::previewChosen, this, [this](bool on) {
        setPreviewing(on);
        showEdit();
    });
    connect(fForm, &WYrexMultipointForm::deleteWanted, this, [this] {
        if (fSession && selectedPoint() >= 0) {
            fSession->removePoint(selectedPoint());
            showEdit();
        }
    });
    connect(fForm, &WYrexMultipointForm::copyWanted, this, &WYrexMultipointBaselineDock::copyPoints);
    connect(fForm, &WYrexMultipointForm::pasteWanted, this, &WYrexMultipointBaselineDock::pastePoints);
    connect(fForm, &WYrexMultipointForm::pointSelected, this, [this] {
        if (fHost.gui()->plotView())
            fHost.gui()->plotView()->updateOverlay();
    });
    connect(fModel, &TYrexBaselinePointsModel::edited, this, [this](int row) {
        showEdit();
        selectPoint(row);
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
    return fForm->kind();
}

int WYrexMultipointBaselineDock::selectedPoint() const
{
    return fForm->selectedPoint();
}

void WYrexMultipointBaselineDock::selectPoint(int index)
{
    fForm->selectPoint(index);
}

void WYrexMultipointBaselineDock::editPlace(int index)
{
    TCanvasYrexSpectrum *edited = editedItem();
    if (!edited || index < 0 || index >= fSession->points().size())
        return;
    const T1DYrexPlot &plot = *edited->activeYrexPlot();
    const TYrexBaselinePoint point = fSession->points().at(index);
    const TRange limits(fSession->xOf(0.0, shownUnit()), fSession->xOf(fSession->stage().size() - 1.0, shownUnit()));
    auto *dialog = new WYrexBaselinePointDialog(QPointF(fSession->xOf(point.x, shownUnit()), point.y), limits,
                                                TYrexCursorInfoHandler::unitSign(shownUnit()),
                                                plot.viewDecimals(horzDir) + cMoreDecimals,
                                                plot.viewDecimals(vertDir) + cMoreDecimals, fHost.gui()->mainWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    const TYrexMultipointSession *of = fSession.get();
    connect(dialog, &QDialog::accepted, this, [this, dialog, index, of] {
        if (fSession && fSession.get() == of)
            placePoint(index, *dialog);
    });
    connect(dialog, &QDialog::finished, this, [this] { fHost.gui()->focusPlot(); });
    dialog->open();
}

/// As one step. A height that was typed makes the point a free one.
void WYrexMultipointBaselineDock::placePoint(int index, const WYrexBaselinePointDialog &wanted)
{
    if (index >= fSession->points().size() || (!wanted.isXChanged() && !wanted.isYChanged()))
        return;
    const TYrexBaselinePoint point = fSession->points().at(index);
    fSession->beginDrag();
    int row = index;
    if (wanted.isXChanged()) {
        fSession->removePoint(index);
        row = fSession->addPoint(fSession->positionOf(wanted.place().x(), shownUnit()), point.y, point.kind);
    }
    if (wanted.isYChanged()) {
        fSession->setKind(row, TYrexMultipointSession::cFree);
        fSession->movePoint(row, fSession->points().at(row).x, wanted.place().y());
    }
    fSession->endDrag();
    showEdit();
    selectPoint(row);
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
    fModel->setSession(fSession.get(), shownUnit(), TYrexCursorInfoHandler::unitSign(shownUnit()));
    fForm->setPreviewChecked(false);
    fHost.gui()->setEditSession(this);
    if (fHost.gui()->mouseMode() != YrexModes::baselinePointsModeID)
        fHost.gui()->setMouseMode(YrexModes::baselinePointsModeID);
    edited->refreshAxes();
    showEdit();
    refreshOthers();
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
    fForm->showSession(fSession.get());
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
    fForm->setHeader(text);
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
    if (isElsewhere()) {
        // Not within the change of the selection, and only if it lasts.
        QTimer::singleShot(0, this, [this] {
            if (!fSession || !isElsewhere())
                return;
            if (askAndEnd())
                hide();
            else
                goBack();
        });
        return;
    }
    fModel->setSession(fSession.get(), shownUnit(), TYrexCursorInfoHandler::unitSign(shownUnit()));
    showState();
}

/// Whether another item, or another spectrum of the item, became the active one.
bool WYrexMultipointBaselineDock::isElsewhere() const
{
    const TCanvasYrexSpectrum *edited = editedItem();
    return !edited || item() != fEdited.get() || edited->currentSpectrum() != fSession->spectrum();
}

void WYrexMultipointBaselineDock::goBack()
{
    TCanvasYrexSpectrum *edited = editedItem();
    if (!edited || !fSession->isAlive())
        return;
    const TYrexSpectrum *spectrum = fSession->spectrum();
    for (int i = 0; i < edited->stack().count(); ++i) {
        if (edited->stack().at(i) == spectrum && i != edited->stack().current())
            edited->stackedContext()->setActiveIndex(i);
    }
    fHost.gui()->showItem(edited);
    edited->update();
    fHost.gui()->focusPlot();
}

bool WYrexMultipointBaselineDock::allows(const TCommand &command) const
{
    return dynamic_cast<const TCmdSetYrexSpectrumHorizontalUnits *>(&command) != nullptr;
}

void WYrexMultipointBaselineDock::stepAside()
{
    if (!fSession || !fSession->isAlive())
        return;
    fPreviewsAgain = fSession->isPreviewing();
    setPreviewing(false);
    fSession->cancel();
}

void WYrexMultipointBaselineDock::comeBack()
{
    if (!fSession)
        return;
    fSession->comeBack();
    setPreviewing(fPreviewsAgain);
    showEdit();
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
    if (!askAndEnd())
        return false;
    hide();
    return true;
}

bool WYrexMultipointBaselineDock::askAndEnd()
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
        question.fButtons = QMessageBox::Discard | QMessageBox::Cancel;
        if (fSession->missingPoints() == 0)
            question.fButtons |= QMessageBox::Apply;
        question.fDefault = fSession->missingPoints() == 0 ? QMessageBox::Apply : QMessageBox::Discard;
        fIsEnding = true;
        answer = Utils::Gui::ask(fHost.gui()->mainWindow(), question);
        fIsEnding = false;
    }
    if (answer == QMessageBox::Cancel)
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
    refreshOthers();
}

/// Docks that are closed while points are edited.
void WYrexMultipointBaselineDock::refreshOthers()
{
    for (const char *name : {cProcessingDock, cIntegralsDock, cPeaksDock, cParametersDock})
        fHost.gui()->refreshTable(name);
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
    if (!askAndEnd())
        QTimer::singleShot(0, this, &QWidget::show);
}

void WYrexMultipointBaselineDock::closeEvent(QCloseEvent *event)
{
    if (!askAndEnd()) {
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
