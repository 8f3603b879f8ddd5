#include "TPlainLabels.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>

TPlainLabels::TPlainLabels(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool TPlainLabels::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Polish)
        return false;
    auto *label = qobject_cast<QLabel *>(watched);
    // tool tips are labels, too, and see to it themselves (Utils::Gui::dataTip)
    if (label && label->textFormat() == Qt::AutoText && !label->inherits("QTipLabel"))
        label->setTextFormat(Qt::PlainText);
    return false;
}
