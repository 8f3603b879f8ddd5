#pragma once

#include "canvas/TCanvasItem.h"
#include "canvas/TSecurePtr.h"

#include <QAccessible>
#include <QPointer>
#include <QVector>

class WDocumentView;

/// A plot of a page as screen readers know it. Its children are its marks.
class TPlotAccessible : public QAccessibleInterface
{
public:
    TPlotAccessible(WDocumentView *view, TCanvasItem *item);
    ~TPlotAccessible() override;

    bool isValid() const override;
    QObject *object() const override { return nullptr; }
    QWindow *window() const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Chart; }
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QAccessibleInterface *parent() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;

    /// What is said of a mark; empty for one that is not there (any more).
    QString markText(int index) const;
    /// Where it is on the screen.
    QRect markRect(int index) const;

private:
    QPointer<WDocumentView> fView;
    TSecurePtr<TCanvasItem> fItem;
    mutable QVector<QAccessible::Id> fMarks; // made when they are asked for
};
