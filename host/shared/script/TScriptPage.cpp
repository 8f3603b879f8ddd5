#include "script/TScriptPage.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "commands/TCmdPages.h"
#include "script/ScriptUtils.h"
#include "script/TScriptRun.h"
#include "services/IPluginHost.h"
#include "services/IScriptHost.h"

using namespace Utils::Script;

namespace {

constexpr double cUnitsPerMm = 10.0;
constexpr double cLeastSide = 10.0; // mm
constexpr double cMostSide = 5000.0;

} // namespace

TScriptPage::TScriptPage(TScriptRun &run, TPage *page)
    : fRun(run)
    , fPage(page)
{
}

bool TScriptPage::isValid() const
{
    return fPage && fRun.host().document()->pages().contains(fPage);
}

QString TScriptPage::title() const
{
    return fPage ? fPage->title() : QString();
}

void TScriptPage::setTitle(const QString &title)
{
    if (!context() || engine()->hasUncaughtException()) // making the text may have thrown
        return;
    if (!isValid())
        throwError(context(), cInvalidObject);
    else
        doScriptHistoryCommand(TCmdPages::renamePage(fRun.host().document(), fPage, title), context(), 1);
}

QScriptValue TScriptPage::items() const
{
    return fRun.wrapAll(fPage, fPage ? fPage->items() : QList<TCanvasItem *>());
}

double TScriptPage::width() const
{
    return fPage ? fPage->size().width() / cUnitsPerMm : 0.0;
}

double TScriptPage::height() const
{
    return fPage ? fPage->size().height() / cUnitsPerMm : 0.0;
}

void TScriptPage::resize(double width, double height)
{
    const auto isSide = [](double side) { return side >= cLeastSide && side <= cMostSide; };
    if (!hasArguments(context(), {"width", "height"}))
        return;
    if (!isValid())
        throwError(context(), cInvalidObject);
    else if (!isSide(width) || !isSide(height))
        throwError(context(), cOutOfRange);
    else
        doScriptHistoryCommand(TCmdPages::resizePages(fRun.host().document(), {fPage},
                                                      QSizeF(width, height) * cUnitsPerMm, fPage->margins()),
                               context(), 1);
}

void TScriptPage::remove()
{
    if (!isValid())
        throwError(context(), cInvalidObject);
    else
        doScriptHistoryCommand(TCmdPages::deletePages(fRun.host().document(), {fPage}), context(), 1);
}

QScriptValue TScriptPage::toJSON() const
{
    QScriptValue object = fRun.engine().newObject();
    object.setProperty("title", title());
    object.setProperty("width", width());
    object.setProperty("height", height());
    object.setProperty("items", items());
    return object;
}
