#include "TDecimalKeys.h"

#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QKeyEvent>

TDecimalKeys::TDecimalKeys(QObject *parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool TDecimalKeys::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    auto *box = qobject_cast<QDoubleSpinBox *>(object);
    if (!box && object->parent())
        box = qobject_cast<QDoubleSpinBox *>(object->parent()); // its line gets keys as well
    const auto *key = static_cast<QKeyEvent *>(event);
    const QString text = key->text();
    if (!box || (text != QLatin1String(".") && text != QLatin1String(",")))
        return false;
    const QString sign(box->locale().decimalPoint());
    if (text == sign)
        return false;
    QKeyEvent other(QEvent::KeyPress, sign == QLatin1String(",") ? Qt::Key_Comma : Qt::Key_Period, key->modifiers(),
                    sign);
    QCoreApplication::sendEvent(object, &other);
    return true;
}
