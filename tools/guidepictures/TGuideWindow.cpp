#include "TGuideWindow.h"

#include "TActionTable.h"
#include "TDockController.h"
#include "TDocumentController.h"
#include "TFileController.h"
#include "TTheme.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "WUnitBar.h"
#include "builtin/TJCAMPPlugin.h"
#include "canvas/TCanvasSpectrum.h"
#include "plot/TBasePlot.h"
#include "plot/TPlotHotArea.h"
#include "settings/TDefaultsIni.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QMenu>
#include <QPainter>
#include <QStatusBar>
#include <QTimer>
#include <QtTest>
#include <algorithm>

namespace {

constexpr QSize cWindowSize(1280, 800);
constexpr int cStep = 2; // pixels between the places that are asked for marks

} // namespace

TGuideWindow::TGuideWindow()
{
    TDefaultsIni::setStore(TDefaultsIni::memory);
    TTheme::set(TTheme::cLight);
    qputenv("XDG_STATE_HOME", QFile::encodeName(fFolder.filePath("state"))); // autosaves
    fHost.addBuiltIn(new TJCAMPPlugin);
    fHost.start({YREX_PLUGIN_DIR});
    fWindow = std::make_unique<WMainWindow>(fHost);
    fWindow->resize(cWindowSize);
    fWindow->docks().setFirstLayout();
    fWindow->show();
    fWindow->activateWindow();
    settle();
}

TGuideWindow::~TGuideWindow()
{
    fWindow.reset(); // before the plug-ins
}

WDocumentView *TGuideWindow::view()
{
    return fWindow->documents().view();
}

TDocument *TGuideWindow::document()
{
    return fWindow->documents().document();
}

TCanvasSpectrum *TGuideWindow::item()
{
    const TPage *page = fWindow->documents().page();
    return page ? dynamic_cast<TCanvasSpectrum *>(page->items().value(0)) : nullptr;
}

TBasePlot *TGuideWindow::plot()
{
    return item()->activePlot();
}

QString TGuideWindow::sample(const QString &name)
{
    return "samples/" + name;
}

bool TGuideWindow::has(const QString &action)
{
    return fWindow->actionTable().isUsed(action);
}

void TGuideWindow::trigger(const QString &action)
{
    fWindow->actionTable().updateStates();
    QAction *found = fWindow->actionTable().action(action);
    if (!found || !found->isEnabled())
        missing(action + (found ? ": " + found->toolTip() : QString()));
    found->trigger();
    settle(100);
}

void TGuideWindow::open(const QString &sampleName)
{
    fWindow->files().open({sample(sampleName)});
    settle();
    fWindow->grab(); // the plot knows its places once it was drawn
}

void TGuideWindow::open(const QString &sampleName, const QString &xUnits, const QString &yUnits)
{
    open(sampleName);
    auto *bar = fWindow->findChild<WUnitBar *>();
    if (!bar)
        missing("unitBar");
    child<QComboBox>(bar, "xUnits")->setCurrentText(xUnits);
    child<QComboBox>(bar, "yUnits")->setCurrentText(yUnits);
    child<QAbstractButton>(bar, "set")->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    fWindow->grab();
}

QDockWidget *TGuideWindow::dock(const QString &name)
{
    return child<QDockWidget>(fWindow.get(), name);
}

QDockWidget *TGuideWindow::showDock(const QString &name)
{
    QDockWidget *shown = dock(name);
    shown->show();
    shown->raise();
    settle();
    fWindow->grab();
    return shown;
}

void TGuideWindow::hideDocks(const QStringList &names)
{
    for (const QString &name : names)
        dock(name)->hide();
    settle();
    fWindow->grab();
}

void TGuideWindow::press(QWidget *parent, const QString &text)
{
    for (QAbstractButton *button : parent->findChildren<QAbstractButton *>()) {
        if (QString(button->text()).remove('&') == text) {
            button->click();
            settle(100);
            return;
        }
    }
    missing(text);
}

QPoint TGuideWindow::inView(const QPointF &itemPlace)
{
    return view()->itemToView(*item()).map(itemPlace).toPoint();
}

QPoint TGuideWindow::at(double x, double share)
{
    double place = 0.0;
    plot()->plotter()->scale2Canvas(horzDir, x, place);
    const QRectF curves = plot()->plotter()->getPlotCurvesRect();
    return inView({place, curves.top() + share * curves.height()});
}

QPoint TGuideWindow::atValue(double x, double y)
{
    double across = 0.0;
    double down = 0.0;
    plot()->plotter()->scale2Canvas(horzDir, x, across);
    plot()->plotter()->scale2Canvas(vertDir, y, down);
    return inView({across, down});
}

QVector<QPoint> TGuideWindow::marks(int type, int subType)
{
    fWindow->grab();
    QMap<QUuid, QRectF> found;
    const QRect room = view()->viewport()->rect();
    const QTransform toItem = view()->itemToView(*item()).inverted();
    for (int y = room.top(); y < room.bottom(); y += cStep) {
        for (int x = room.left(); x < room.right(); x += cStep) {
            const TPlotHotArea &area = plot()->hitTest(toItem.map(QPointF(x, y)));
            if (area.type() == type && (subType < 0 || area.subType() == subType))
                found[area.id()] |= QRectF(x, y, 1, 1);
        }
    }
    QVector<QPoint> places;
    for (const QRectF &rect : found)
        places.append(rect.center().toPoint());
    std::sort(places.begin(), places.end(), [](const QPoint &l, const QPoint &r) { return l.x() < r.x(); });
    return places;
}

void TGuideWindow::moveTo(const QPoint &place, Qt::MouseButtons buttons)
{
    fMouse = place;
    QWidget *viewport = view()->viewport();
    QMouseEvent move(QEvent::MouseMove, place, viewport->mapToGlobal(place), Qt::NoButton, buttons, {});
    QCoreApplication::sendEvent(viewport, &move);
    settle(50);
}

void TGuideWindow::takeMouseAway()
{
    moveTo({2, 2}); // the desk beside the paper
    fMouse = QPoint();
}

void TGuideWindow::press(const QPoint &place, Qt::KeyboardModifiers modifiers)
{
    moveTo(place);
    QTest::mousePress(view()->viewport(), Qt::LeftButton, modifiers, place);
}

void TGuideWindow::release(const QPoint &place, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseRelease(view()->viewport(), Qt::LeftButton, modifiers, place);
    settle(100);
}

void TGuideWindow::drag(const QPoint &from, const QPoint &to)
{
    hold(from, to);
    release(to);
}

void TGuideWindow::hold(const QPoint &from, const QPoint &to)
{
    press(from);
    moveTo((from + to) / 2, Qt::LeftButton);
    moveTo(to, Qt::LeftButton);
    settle(200); // previews are drawn when the mouse rests
}

void TGuideWindow::click(const QPoint &place, Qt::KeyboardModifiers modifiers)
{
    press(place, modifiers);
    release(place, modifiers);
}

void TGuideWindow::key(int key, Qt::KeyboardModifiers modifiers)
{
    view()->setFocus();
    QTest::keyClick(view(), Qt::Key(key), modifiers);
    settle(100);
}

void TGuideWindow::zoomTo(double from, double to)
{
    drag(at(from, 0.5), at(to, 0.5));
    takeMouseAway();
    fWindow->grab();
}

QMenu *TGuideWindow::menuAt(const QPoint &place)
{
    moveTo(place);
    QTest::mouseClick(view()->viewport(), Qt::RightButton, {}, place);
    settle();
    QMenu *menu = view()->findChild<QMenu *>();
    if (!menu)
        missing("a context menu");
    return menu;
}

QImage TGuideWindow::inDialog(const std::function<void()> &start, const std::function<void(QDialog &)> &work)
{
    QImage picture;
    QTimer::singleShot(0, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            missing("a dialog");
        work(*dialog);
        settle();
        picture = part(dialog);
        dialog->reject();
    });
    start();
    settle(100);
    return picture;
}

void TGuideWindow::settle(int milliseconds)
{
    QTest::qWait(milliseconds);
}

QImage TGuideWindow::whole()
{
    fWindow->statusBar()->clearMessage(); // the hint stands behind it
    settle();
    QImage picture = fWindow->grab().toImage().convertToFormat(QImage::Format_RGB32);
    drawPointer(picture);
    return picture;
}

QImage TGuideWindow::part(QWidget *widget, int margin)
{
    if (widget->isWindow()) {
        settle(); // some controls fade in
        return widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    const QRect place(widget->mapTo(fWindow.get(), QPoint()), widget->size());
    return whole().copy(place.marginsAdded({margin, margin, margin, margin}) & fWindow->rect());
}

QImage TGuideWindow::part(const QList<QWidget *> &widgets)
{
    QRect all;
    for (QWidget *widget : widgets)
        all |= QRect(widget->mapTo(fWindow.get(), QPoint()), widget->size());
    return whole().copy(all & fWindow->rect());
}

QImage TGuideWindow::page()
{
    return part(view());
}

/// Pictures of a window have no mouse: the cursor of the mode, or an arrow.
void TGuideWindow::drawPointer(QImage &picture)
{
    if (fMouse.isNull())
        return;
    const QPoint place = view()->viewport()->mapTo(fWindow.get(), fMouse);
    const QCursor cursor = view()->viewport()->cursor();
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place);
    if (!cursor.pixmap().isNull()) {
        painter.drawPixmap(-cursor.hotSpot(), cursor.pixmap());
        return;
    }
    painter.setPen(QPen(Qt::white, 1.4));
    painter.setBrush(Qt::black);
    painter.drawPolygon(QPolygonF({{0, 0}, {0, 17}, {4, 13.4}, {6.6, 19.4}, {9.4, 18.2}, {6.8, 12.4}, {12, 12}}));
}

void TGuideWindow::missing(const QString &name)
{
    qFatal("missing: %s", qPrintable(name));
}
