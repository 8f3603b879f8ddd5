#pragma once

#include <QKeySequenceEdit>

/// Takes one stroke and tells of it at once, where QKeySequenceEdit waits whether more follow.
class WKeyEdit : public QKeySequenceEdit
{
    Q_OBJECT

public:
    using QKeySequenceEdit::QKeySequenceEdit;

signals:
    void struck(const QKeySequence &key);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
