#pragma once

#include "canvas/TCanvasItemList.h"

#include <QObject>

class QByteArray;
class TActionTable;
class TCmdPasteItems;
class TDocumentController;
class TFileController;

/// Cut, copy, paste and duplicate of items.
class TClipboardController : public QObject
{
    Q_OBJECT

public:
    TClipboardController(TActionTable &actions, TDocumentController &documents, TFileController &files,
                         QObject *parent);

    /// The selected items, else the whole page, in all forms.
    void copy();
    void copyNumbers();
    void cut();
    /// Items, else a table of numbers as a spectrum.
    void paste();
    void duplicate();

private:
    TCanvasItemList selected() const;
    /// The selected items, or all of the page without a selection.
    TCanvasItemList concerned() const;
    void pasteItems(const QByteArray &fragment, const QString &description);

    TDocumentController &fDocuments;
    TFileController &fFiles;
};
