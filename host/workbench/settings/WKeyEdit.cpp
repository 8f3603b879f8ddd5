#include "WKeyEdit.h"

#include <QKeyEvent>

void WKeyEdit::keyPressEvent(QKeyEvent *event)
{
    QKeySequenceEdit::keyPressEvent(event);
    const QKeySequence keys = keySequence(); // empty while only Ctrl, Alt or Shift is held
    if (keys.isEmpty() || event->isAutoRepeat())
        return;
    const QKeySequence last(keys[uint(keys.count() - 1)]);
    setKeySequence(last);
    emit struck(last);
}
