#pragma once

#include "canvas/TCanvasItemList.h"

#include <QList>
#include <QObject>
#include <functional>

class QWidget;
class TActionTable;
class TCommand;
class TDocumentController;
class TKelmoraHost;
class TPage;

/// New stacks from items and pages, comparison, and spectra pasted into an item.
class TStackMaker : public QObject
{
    Q_OBJECT

public:
    using TChosenPages = std::function<QList<TPage *>()>;

    /// `chosen` tells which pages are selected in the dock of the pages.
    TStackMaker(TActionTable &actions, TKelmoraHost &host, TDocumentController &documents, const TChosenPages &chosen,
                QWidget *window);

    /// A new item, on a page of its own, with copies of all spectra.
    void stack(const TCanvasItemList &items, bool stacked);
    /// Shows the items in one plot, which is kept only if the user says so. Does not wait for the answer.
    void compare(const TCanvasItemList &items);
    void pasteSpectra();
    /// The items of pages that hold spectra.
    static TCanvasItemList spectraOf(const QList<TPage *> &pages);
    /// Why items cannot become a stack; empty when they can.
    static QString whyNot(const TCanvasItemList &items);

signals:
    /// A text for the status bar.
    void told(const QString &text);

private:
    /// Two or more selected items, else those of two or more chosen pages.
    TCanvasItemList concerned() const;
    QString whyNoPaste() const;
    void showOptions();
    void place(TCommand *command);

    TKelmoraHost &fHost;
    TDocumentController &fDocuments;
    TChosenPages fChosen;
    QWidget *fWindow;
};
