#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QUuid>

class TCanvasItem;
class WDocumentView;

/// A view as screen readers know it: its children are the plots of the page, and theirs are the marks. What they say
/// comes from the plug-in whose plots they are.
class TViewAccessible : public QAccessibleWidget
{
public:
    explicit TViewAccessible(WDocumentView *view);
    ~TViewAccessible() override;

    /// From now on views have such interfaces; does so once however often it is called.
    static void install();

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QString text(QAccessible::Text kind) const override;

private:
    WDocumentView *view() const;
    /// Those with something to say, from the lowest one up.
    QVector<TCanvasItem *> plots() const;

    mutable QHash<QUuid, QAccessible::Id> fPlots; // made when they are asked for
};
