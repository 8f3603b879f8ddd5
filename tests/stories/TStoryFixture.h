#pragma once

#include "../workbench/TWindowFixture.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexSpectrum.h"

#include <QJsonArray>
#include <functional>

class QAbstractItemView;
class QComboBox;
class QListWidget;
class QMenu;
class QSlider;

/// A user with a mouse and keys in front of the real window. With YREX_PICTURES set to a folder, pictures of the window
/// are left there to be looked at.
class TStoryFixture : public TWindowFixture
{
protected:
    TStoryFixture();
    ~TStoryFixture() override;

    /// Waits for something that comes of its own accord; false when it does not within some seconds.
    static bool waitFor(const std::function<bool()> &isTrue, int milliseconds = 10000);
    void look(const QString &name);
    static void save(QWidget *widget, const QString &name);

    // files
    static QString sample(const QString &name) { return QStringLiteral(YREX_SAMPLES) + '/' + name + ".csv"; }
    /// Drops files from a file manager on the middle of the window.
    void dropFiles(const QStringList &paths, Qt::KeyboardModifiers modifiers = {});
    /// Chooses in the bar that asks for units, and presses "Set".
    void setUnits(const QString &x, const QString &y);
    void openSample(const QString &name, const QString &x, const QString &y);
    static QByteArray fileBytes(const QString &path);
    /// What `zarnu info --json` tells of a file: an entry for each file, with its spectra.
    static QJsonArray info(const QString &path, const QStringList &options = {});
    /// The first spectrum of the document, saved by the user, as `zarnu info --json` tells of it.
    QJsonObject savedSpectrum();
    QStringList zarnu(const QStringList &arguments);

    // the hand
    void activate();
    void click(QWidget *widget, const QPoint &place = QPoint(-1, -1), Qt::KeyboardModifiers keys = {});
    void clickPlot(const QPoint &place, Qt::KeyboardModifiers keys = {});
    void doubleClickPlot(const QPoint &place);
    void key(int aKey, Qt::KeyboardModifiers modifiers = {});
    void press(const QPoint &place, Qt::KeyboardModifiers keys = {});
    void moveHeld(const QPoint &place, Qt::KeyboardModifiers keys = {});
    void release(const QPoint &place, Qt::KeyboardModifiers keys = {});
    void clickRibbon(const char *action);
    void openDock(const QString &name);
    /// Opens the menus of the bar, one after the other, and clicks on the last entry. Mnemonics are left out.
    void clickMenu(const QStringList &path);
    void clickEntry(QMenu *menu, const QString &text);
    /// An entry of the menu that a button opens.
    void clickButtonMenu(QWidget *button, QMenu *menu, const QString &text);
    /// Right click on a place of the plot; the menu that opens.
    QMenu *menuAt(const QPoint &place);
    static void choose(QComboBox *combo, const QString &text);
    static void type(QWidget *field, const QString &text, int end = Qt::Key_Tab);
    /// Drags the handle to a value.
    static void dragSlider(QSlider *slider, int value);
    static void clickRow(QAbstractItemView *view, const QModelIndex &index, Qt::KeyboardModifiers keys = {});
    /// Types into a cell of a table.
    void typeCell(QAbstractItemView *view, const QModelIndex &index, const QString &text);
    /// What a user does in the next modal dialogs, one for each that opens.
    void inDialogs(const QList<std::function<void(QWidget *)>> &steps);
    /// Types a path into the next file dialog and accepts.
    static void chooseFile(QWidget *dialog, const QString &path);
    template <class T>
    T *the(const char *name, QWidget *in = nullptr)
    {
        T *found = (in ? in : fWindow.get())->template findChild<T *>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    // the processing dock
    QListWidget *chainList();
    int chainRow(int action);
    void chooseAction(int action);
    /// Clicks on the check box of an action.
    void checkAction(int action);
    /// The entry of the active spectrum's chain; empty when there is none.
    QVariantMap chainAction(int action);
    bool isApplied(int action) { return chainAction(action).value("apply").toBool(); }

    // what stands
    TCanvasYrexSpectrum *specItem(int page = 0);
    /// That of the page in view.
    TCanvasYrexSpectrum *shownItem();
    TYrexSpectrum *spectrum() { return shownItem()->currentSpectrum(); }
    T1DYrexPlot *yrexPlot() { return shownItem()->activeYrexPlot(); }
    TBasePlot *plot() { return shownItem()->activePlot(); }
    static QByteArray bytesOf(const TCanvasItem *item);
    QUndoStack *undo() { return document()->history().stack(); }
    /// Ctrl+Z until so many steps are left.
    void undoTo(int steps);

    // what is seen
    QPoint onPlot(double x, double y);
    /// By value and share of the height from the top.
    QPoint onPlotX(double x, double height = 0.5);
    QRect curvesRect();
    /// Pixels of a colour within a rectangle of the view, as it is drawn now.
    int countColor(const QColor &color, const QRect &rect, int tolerance = 24);
    QRectF labelRect(const QUuid &peak);
    /// Pairs of peak labels that cover each other.
    int overlappingLabels();
    /// The texts of the item's picture, which comes from the draw call of the screen.
    QStringList drawnTexts();
    QString hint();
    bool isChecked(const char *action);
    QAction *action(const char *name);

    static constexpr int cDerivative = 0, cSmoothing = 3, cBaseline = 22, cPeakPicking = 26, cMultipoint = 35,
                         cNormalization = 39, cConversion = 50, cScatter = 64;
};
