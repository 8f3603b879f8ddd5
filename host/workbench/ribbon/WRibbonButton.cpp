#include "WRibbonButton.h"

#include "TMenuWalk.h"

#include <QAction>
#include <QHelpEvent>
#include <QToolTip>

namespace {

constexpr int cLargeIcon = 32;
constexpr int cSmallIcon = 16;
constexpr ushort cGap = 0x2005; // a narrow space: styles leave next to nothing between icon and text
constexpr int cLongText = 9;    // letters from which a large button takes a second line

/// Breaks a text at the space nearest to its middle.
QString inTwoLines(QString text)
{
    if (text.size() <= cLongText)
        return text;
    int best = -1;
    for (int i = text.indexOf(' '); i >= 0; i = text.indexOf(' ', i + 1)) {
        if (best < 0 || qAbs(2 * i - text.size()) < qAbs(2 * best - text.size()))
            best = i;
    }
    if (best >= 0)
        text[best] = '\n';
    return text;
}

} // namespace

WRibbonButton::WRibbonButton(bool isLarge, QWidget *parent)
    : QToolButton(parent)
    , fIsLarge(isLarge)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard to the plot
    setToolButtonStyle(isLarge ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonTextBesideIcon);
    const int side = isLarge ? cLargeIcon : cSmallIcon;
    setIconSize(QSize(side, side));
    setSizePolicy(QSizePolicy::Preferred, isLarge ? QSizePolicy::Expanding : QSizePolicy::Fixed);
}

void WRibbonButton::setLabel(const QString &text)
{
    const QString plain = TMenuWalk::plainText(text);
    setAccessibleName(plain);
    setText(fIsLarge ? inTwoLines(plain) : QChar(cGap) + plain);
}

/// The button takes text and all from its action whenever that changes.
void WRibbonButton::actionEvent(QActionEvent *event)
{
    QToolButton::actionEvent(event);
    if (defaultAction())
        setLabel(defaultAction()->iconText());
}

QString WRibbonButton::fullToolTip() const
{
    const QAction *action = defaultAction();
    if (!action)
        return toolTip();
    QString text = "<b>" + TMenuWalk::plainText(action->text()).toHtmlEscaped() + "</b>";
    if (!action->shortcut().isEmpty())
        text += " &nbsp;" + action->shortcut().toString(QKeySequence::NativeText).toHtmlEscaped();
    if (!action->isEnabled() && !action->statusTip().isEmpty())
        text += "<br>" + action->statusTip().toHtmlEscaped();
    return text;
}

bool WRibbonButton::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QToolButton::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), fullToolTip(), this);
    return true;
}
