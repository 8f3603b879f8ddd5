#pragma once

#include "TPageModel.h"
#include "canvas/TPage.h"
#include "widgets/WPluginDockWidget.h"

class QTreeView;
class TDocument;

/// The dock with a thumbnail of each page and, below it, the page's items. It tells what the user wants and changes
/// nothing itself.
class WPageNavigator : public WPluginDockWidget
{
    Q_OBJECT

public:
    explicit WPageNavigator(QWidget *parent = nullptr);

    void setDocument(TDocument *document);
    /// Marks a page as the one that is shown.
    void setPage(TPage *page);
    TPageModel &model() { return fModel; }
    QTreeView *view() const { return fView; }
    /// The selected pages in their order, also those of selected items; the current one when there are none.
    QList<TPage *> chosenPages() const;
    /// Lets the title of the page that is shown be typed.
    void renameCurrent();
    bool eventFilter(QObject *object, QEvent *event) override;

signals:
    void pageChosen(TPage *page);
    void itemChosen(TCanvasItem *item);
    void pageRenamed(TPage *page, const QString &title);
    void pagesMoved(const QList<TPage *> &pages, int place);
    void deletionWanted();
    void menuWanted(const QPoint &globalPlace);
    /// Escape was pressed.
    void focusReturned();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void makeView();
    void endDrag();
    void choose(const QModelIndex &index);
    void keepState();
    void restoreState();

    TPageModel fModel;
    QTreeView *fView;
    QList<const TPage *> fOpen;     // whose items are shown, while the model is reset
    QList<const TPage *> fSelected; // likewise
    QPointer<TPage> fShown;
    bool fIsQuiet = false;
    bool fIsPressed = false; // what is pressed may become a drag, which does not turn the page
    bool fIsChoiceDue = false;
};
