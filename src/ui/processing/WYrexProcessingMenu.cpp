// The menus of the dock, and its multipoint side.
#include "TCanvasYrexSpectrum.h"
#include "TYrexChainJson.h"
#include "TYrexChainRules.h"
#include "TYrexProcDefaults.h"
#include "WYrexActionPanels.h"
#include "WYrexProcessingWidget.h"
#include "YrexActionTables.h"
#include "YrexProcessingReport.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "widgets/WOpenSaveWidget.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

namespace {

constexpr char cReporter[] = "ZarnuProcessingActionsReporter";

} // namespace

void WYrexProcessingWidget::makeReportButton()
{
    auto *button = new QToolButton;
    button->setObjectName("reportButton");
    button->setText(QString(QChar(0x2261)));
    button->setToolTip(tr("Report of the actions"));
    button->setAccessibleName(button->toolTip());
    button->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(button);
    menu->addAction(QIcon(":/images/table.png"), tr("Report"), this, &WYrexProcessingWidget::onReport);
    menu->addAction(QIcon(":/images/report-copy.png"), tr("Copy report"), this, &WYrexProcessingWidget::onReportCopy);
    menu->addSeparator();
    menu->addAction(tr("Set-up..."), this, &WYrexProcessingWidget::onReportSetup);
    button->setMenu(menu);
    fOpenSave->addButton(button);
    IReportService *reports = host().gui() ? host().gui()->reports() : nullptr;
    if (!reports)
        return;
    // the service may outlive the dock
    reports->registerReporter(cReporter, [dock = QPointer<WYrexProcessingWidget>(this)] {
        return dock && dock->spectrumItem() ? yrexProcessingReport(*dock->spectrumItem()) : TReport();
    });
}

void WYrexProcessingWidget::onReport()
{
    host().gui()->reports()->show(cReporter);
}

void WYrexProcessingWidget::onReportCopy()
{
    host().gui()->reports()->copy(cReporter);
}

void WYrexProcessingWidget::onReportSetup()
{
    host().gui()->reports()->setup(cReporter);
}

void WYrexProcessingWidget::showMenu(const QPoint &place)
{
    auto *menu = new QMenu(fList);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [menu, this](const QString &text, bool isEnabled, const QKeySequence &key, auto run) {
        QAction *action = menu->addAction(text, this, run);
        action->setEnabled(isEnabled);
        action->setShortcut(key); // told only: the list takes it
    };
    const bool isOne = fPanels->current() != nullptr;
    add(tr("Remove"), fRemove->isEnabled(), QKeySequence(Qt::CTRL + Qt::Key_Delete), [this] { fRemove->click(); });
    add(tr("Duplicate"), fDuplicate->isEnabled(), {}, [this] { fDuplicate->click(); });
    add(tr("Move Up"), isOne && fRow > 0, QKeySequence(Qt::ALT + Qt::Key_Up), [this] { moveUpProcessingAction(); });
    add(tr("Move Down"), isOne && fRow < fParams.actionCount() - 1, QKeySequence(Qt::ALT + Qt::Key_Down),
        [this] { moveDownProcessingAction(); });
    menu->addSeparator();
    add(tr("Reset to Defaults"), isOne, {}, [this] { resetRow(fRow); });
    add(tr("Apply None"), fParams.isAnyApplied(), {}, [this] {
        TYrexProcParams idle = fParams;
        idle.setApplyNothing();
        applyChain(idle.actions());
    });
    menu->addSeparator();
    add(tr("Copy Chain as JSON"), true, {}, [this] { copyChain(); });
    add(tr("Paste Chain"), !QGuiApplication::clipboard()->text().isEmpty(), {}, [this] { pasteChain(); });
    menu->addSeparator();
    add(tr("Add First Integration Mode"), fParams.indexOfAction(cProcFirstIntegration) < 0, {},
        [this] { addFirstIntegration(); });
    menu->popup(fList->viewport()->mapToGlobal(place));
}

/// Whether the action takes part stays as it is.
void WYrexProcessingWidget::resetRow(int row)
{
    QVariantList chain = fParams.actions();
    QVariantMap map = TYrexProcDefaults::tableMap(fParams.actionId(row));
    map.insert(cKeyApply, fParams.isApplied(row));
    chain[row] = map;
    applyChain(chain);
}

void WYrexProcessingWidget::copyChain() const
{
    QGuiApplication::clipboard()->setText(QString::fromUtf8(TYrexChainJson::toJson(fParams.actions())));
}

void WYrexProcessingWidget::pasteChain()
{
    TYrexProcParams params = fParams;
    QString error;
    QStringList warnings;
    if (!TYrexChainJson::parse(QGuiApplication::clipboard()->text().toUtf8(), params, error, warnings)) {
        host().gui()->statusMessage(tr("The clipboard holds no chain: %1").arg(error));
        return;
    }
    for (const QString &warning : qAsConst(warnings))
        host().gui()->statusMessage(warning);
    applyChain(params.actions());
}

void WYrexProcessingWidget::addFirstIntegration()
{
    if (fParams.indexOfAction(cProcFirstIntegration) >= 0)
        return;
    QVariantList chain = fParams.actions();
    chain.append(TYrexProcDefaults::tableMap(cProcFirstIntegration));
    applyChain(chain);
    select(chain.size() - 1);
}

/// The multipoint action was switched on or off while its points are edited. Switched on, the other dock ends its
/// session with the one step that holds the chain and the baseline; else the session ends as its dock closes.
void WYrexProcessingWidget::endMultipoint(bool isApplied)
{
    WPluginDockWidget *dock = host().gui()->dock(cMultipointDock);
    if (isApplied && dock)
        QMetaObject::invokeMethod(dock, "on_action_Apply_triggered", Qt::DirectConnection);
    host().gui()->showDock(cMultipointDock, false);
    refresh();
}
