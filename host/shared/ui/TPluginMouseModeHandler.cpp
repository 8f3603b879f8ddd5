#include "ui/TPluginMouseModeHandler.h"

#include "ui/TBaseHotAreasHandler.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace {

constexpr int cIdLength = 16;

} // namespace

bool handToAct(TMMAct &act, QEvent *event, const TMouseSpot &spot)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return act.mousePress(static_cast<QMouseEvent *>(event), spot);
    case QEvent::MouseMove:
        return act.mouseMove(static_cast<QMouseEvent *>(event), spot);
    case QEvent::MouseButtonRelease:
        return act.mouseRelease(static_cast<QMouseEvent *>(event), spot);
    case QEvent::MouseButtonDblClick:
        return act.mouseDoubleClick(static_cast<QMouseEvent *>(event), spot);
    case QEvent::KeyPress:
        return act.keyPress(static_cast<QKeyEvent *>(event));
    case QEvent::KeyRelease:
        return act.keyRelease(static_cast<QKeyEvent *>(event));
    case QEvent::Wheel:
        return act.wheel(static_cast<QWheelEvent *>(event), spot);
    default:
        return false;
    }
}

TPluginMouseModeHandler::TPluginMouseModeHandler(QObject *parent)
    : TBaseMouseModeHandler(parent)
{
}

TPluginMouseModeHandler::~TPluginMouseModeHandler() = default;

void TPluginMouseModeHandler::append(TMMAct *act)
{
    fActs.emplace_back(act);
    act->setView(fView);
}

void TPluginMouseModeHandler::appendHotAreas(TBaseHotAreasHandler *handler)
{
    handler->setParent(this);
    handler->setView(fView);
    fHotAreas.append(handler);
}

QList<QUuid> TPluginMouseModeHandler::modes() const
{
    QList<QUuid> ids;
    for (const auto &act : fActs)
        ids.append(act->id());
    return ids;
}

QUuid TPluginMouseModeHandler::mode() const
{
    return fCurrent ? fCurrent->id() : QUuid();
}

void TPluginMouseModeHandler::setMode(const QUuid &mode, const QByteArray &argument)
{
    TMMAct *next = nullptr;
    for (const auto &act : fActs) {
        if (act->id() == mode && !(act.get() == fCurrent && argument == fArgument))
            next = act.get();
    }
    if (!next && !fCurrent)
        return;
    if (fCurrent)
        fCurrent->leave();
    fCurrent = next;
    fArgument = next ? argument : QByteArray();
    if (fCurrent)
        fCurrent->enter(fArgument);
    for (TBaseHotAreasHandler *handler : qAsConst(fHotAreas))
        handler->setMode(this->mode());
    if (fView)
        fView->updateOverlay();
    emit modeChanged(this->mode());
}

void TPluginMouseModeHandler::setView(IPlotView *view)
{
    if (view == fView)
        return;
    if (fCurrent)
        fCurrent->cancelGesture();
    for (TBaseHotAreasHandler *handler : qAsConst(fHotAreas)) {
        handler->cancelGesture();
        handler->leaveView();
        handler->setView(view);
    }
    fView = view;
    for (const auto &act : fActs)
        act->setView(view);
}

bool TPluginMouseModeHandler::event(QEvent *event, const TMouseSpot &spot)
{
    return fCurrent && fView && handToAct(*fCurrent, event, spot);
}

bool TPluginMouseModeHandler::escape()
{
    if (!fCurrent)
        return false;
    if (!fCurrent->cancelGesture())
        setMode(QUuid());
    return true;
}

QByteArray TPluginMouseModeHandler::saveState() const
{
    return fCurrent ? mode().toRfc4122() + fArgument : QByteArray();
}

void TPluginMouseModeHandler::restoreState(const QByteArray &state)
{
    const QUuid wanted = QUuid::fromRfc4122(state.left(cIdLength));
    const QByteArray argument = state.mid(cIdLength);
    if (wanted != mode() || argument != fArgument)
        setMode(wanted, argument);
}
