#pragma once

#include "services/TKelmoraHost.h"

#include <QImage>
#include <QPoint>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <memory>

class QAction;
class QDialog;
class QDockWidget;
class QMenu;
class TBasePlot;
class TCanvasSpectrum;
class TDocument;
class WDocumentView;
class WMainWindow;

/// A window of the program that a scene drives with mouse and keys, as it is at the first start: 1280 x 800, settings
/// that are forgotten, light theme.
class TGuideWindow
{
public:
    TGuideWindow();
    ~TGuideWindow();

    WMainWindow &window() { return *fWindow; }
    WDocumentView *view();
    TDocument *document();
    /// The first item of the page that is shown; null for none.
    TCanvasSpectrum *item();
    TBasePlot *plot();
    /// A file of the project's samples, from the project's folder on.
    static QString sample(const QString &name);
    /// A path in a folder that goes with the window.
    QString scratch(const QString &name) const { return fFolder.filePath(name); }

    /// Whether the program has that action.
    bool has(const QString &action);
    void trigger(const QString &action);
    /// Opens a sample; the bar for units stays.
    void open(const QString &sampleName);
    /// Opens a sample and answers the bar for units.
    void open(const QString &sampleName, const QString &xUnits, const QString &yUnits);
    QDockWidget *dock(const QString &name);
    /// Opens a dock in front of those beside it.
    QDockWidget *showDock(const QString &name);
    void hideDocks(const QStringList &names);
    /// A child of a widget by name; the program ends with a message when there is none.
    template <class T>
    T *child(QWidget *parent, const QString &name)
    {
        T *found = parent->findChild<T *>(name);
        if (!found)
            missing(name);
        return found;
    }
    /// A tool button or button by its text.
    void press(QWidget *parent, const QString &text);

    /// A place of the view: shown x, and share of the height from the top.
    QPoint at(double x, double share);
    /// A place of the view: shown x and y.
    QPoint atValue(double x, double y);
    /// The middle of the marks of a type (TPlotHotArea) and subtype, from left to right; -1 is any subtype.
    QVector<QPoint> marks(int type, int subType = -1);
    /// Moves the mouse; it is seen in pictures from then on.
    void moveTo(const QPoint &place, Qt::MouseButtons buttons = Qt::NoButton);
    void takeMouseAway();
    void press(const QPoint &place, Qt::KeyboardModifiers modifiers = {});
    void release(const QPoint &place, Qt::KeyboardModifiers modifiers = {});
    void drag(const QPoint &from, const QPoint &to);
    /// Drags without letting go.
    void hold(const QPoint &from, const QPoint &to);
    void click(const QPoint &place, Qt::KeyboardModifiers modifiers = {});
    void key(int key, Qt::KeyboardModifiers modifiers = {});
    /// Zooms to a range of x by a drag over the whole height.
    void zoomTo(double from, double to);
    /// The menu that a right click opens.
    QMenu *menuAt(const QPoint &place);

    /// Runs `start`, which opens a modal dialog, does `work` in it and gives its picture.
    QImage inDialog(const std::function<void()> &start, const std::function<void(QDialog &)> &work);
    /// Waits until what is drawn later is drawn.
    static void settle(int milliseconds = 400);
    QImage whole();
    /// What a widget shows, with some of what stands around it.
    QImage part(QWidget *widget, int margin = 0);
    /// The window's part that these widgets take.
    QImage part(const QList<QWidget *> &widgets);
    QImage page();

private:
    [[noreturn]] static void missing(const QString &name);
    QPoint inView(const QPointF &itemPlace);
    void drawPointer(QImage &picture);

    QTemporaryDir fFolder;
    TKelmoraHost fHost;
    std::unique_ptr<WMainWindow> fWindow;
    QPoint fMouse; // of the view; null while it was not moved
};
