#pragma once

#include <QPoint>
#include <QString>

class QDragMoveEvent;
class QDropEvent;
class QMimeData;
class QPainter;
class QWidget;
class TDocumentController;
class TDragAndDropHandler;
class TKelmoraHost;

/// Items that are dragged over items of the page that is shown: the plug-ins' handlers are asked in turn, and the first
/// that has an answer keeps the drag.
class TItemDrops
{
public:
    /// Events are in coordinates of `window`.
    TItemDrops(QWidget *window, TKelmoraHost &host, TDocumentController &documents);

    /// Whether a handler takes the drag here; the event is accepted then. With `mime` in place of the event's own.
    bool move(QDragMoveEvent *event, const QMimeData *mime);
    /// Whether the drop was taken.
    bool drop(QDropEvent *event, const QMimeData *mime);
    void reset();
    /// What a drop would do, or why there can be none here; empty where no handler has an answer.
    QString label() const;
    bool isRefused() const;
    /// A place of the window as one of the view; false outside of it.
    bool viewPlace(const QPoint &windowPos, QPoint &viewPos) const;

private:
    void paint(QPainter &painter) const;

    QWidget *fWindow;
    TKelmoraHost &fHost;
    TDocumentController &fDocuments;
    TDragAndDropHandler *fHandler = nullptr; // of a plug-in
};
