#pragma once

#include "TPageModel.h"
#include "canvas/TPage.h"
#include "widgets/WPluginDockWidget.h"

class QListView;
class TDocument;

/// The dock with a thumbnail of each page; a click shows the page.
class WPageNavigator : public WPluginDockWidget
{
    Q_OBJECT

public:
    explicit WPageNavigator(QWidget *parent = nullptr);

    void setDocument(TDocument *document);
    /// Marks a page as the one that is shown.
    void setPage(TPage *page);
    TPageModel &model() { return fModel; }
    /// Lets the title of the page that is shown be typed.
    void renameCurrent();

signals:
    void pageChosen(TPage *page);
    void pageRenamed(TPage *page, const QString &title);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    TPageModel fModel;
    QListView *fList;
};
