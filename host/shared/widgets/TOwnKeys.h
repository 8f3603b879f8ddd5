#pragma once

#include <QKeySequence>
#include <QObject>
#include <QVector>
#include <functional>

class QKeyEvent;
class QWidget;

/// Keys that a widget keeps for itself while it has the focus, although the window has shortcuts on them: a copy in a
/// table copies its rows. An editor inside the widget has the focus of its own and keeps its keys.
class TOwnKeys : public QObject
{
public:
    using TRun = std::function<void()>;

    /// Goes with the widget.
    explicit TOwnKeys(QWidget *widget);

    void add(const QKeySequence &keys, const TRun &run);
    /// All keys of a standard action.
    void add(QKeySequence::StandardKey key, const TRun &run);
    /// Keys that the widget takes itself once they get there.
    void keep(const QKeySequence &keys) { add(keys, TRun()); }

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    struct TKey
    {
        QKeySequence fKeys;
        TRun fRun;
    };

    const TKey *keyOf(const QKeyEvent &event) const;

    QWidget *fWidget;
    QVector<TKey> fKeys;
};
