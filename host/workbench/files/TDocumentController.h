#pragma once

#include "canvas/TDocument.h"
#include "canvas/TPage.h"

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

class QTabWidget;
class TCanvasItem;
class TKelmoraHost;

class WDocumentView;

/// The open documents and their views: new, open, save, close. There is always one document.
class TDocumentController : public QObject
{
    Q_OBJECT

public:
    /// `tabs` shows the views; a parent of the dialogs. The host is told of the document that is shown.
    TDocumentController(TKelmoraHost &host, QTabWidget *tabs);
    ~TDocumentController() override;

    TDocument *document() const;
    WDocumentView *view() const;
    TPage *page() const;
    int count() const { return int(fDocuments.size()); }
    WDocumentView *viewAt(int index) const;
    QList<WDocumentView *> views() const;
    void show(int index);
    /// Shows a page of the document that is shown.
    void setPage(TPage *page);

    TDocument *newDocument();
    /// Opens a document file in a tab of its own; a document that nobody has touched gives its place. False, with
    /// the reason in words, when it cannot be read; nothing is changed then.
    bool open(const QString &path, QString *error);
    /// Shows a document that was made elsewhere in a tab of its own. An unmodified one with the same path gives its
    /// place, and so does one that nobody has touched.
    TDocument *take(std::unique_ptr<TDocument> document);
    /// False when the user cancelled or the file could not be written.
    bool save();
    bool saveAs();
    bool saveTo(const QString &path);
    /// Asks whether changes are to be saved. False when the user cancelled.
    bool close(int index);
    bool closeCurrent();
    /// Asks for every document; nothing is closed when the user cancels.
    bool mayCloseAll();
    /// Asked before the document that is shown is saved or closed; false when that is not to be.
    void setLeaveGuard(const std::function<bool()> &guard) { fLeaveGuard = guard; }
    /// File name without ending, or "Untitled".
    static QString titleOf(const TDocument &document);

signals:
    void viewAdded(WDocumentView *view);
    /// The document goes; the user has decided about its changes.
    void documentClosing(TDocument *document);
    void documentShown(TDocument *document);
    void pageShown(TPage *page);
    /// Something of the document that is shown was changed, or its name, or its state on the disk.
    void contentChanged();
    void saved(const QString &path);

private:
    struct TOpenDocument
    {
        std::unique_ptr<TDocument> fDocument;
        WDocumentView *fView = nullptr; // of the tabs
    };

    WDocumentView *add(std::unique_ptr<TDocument> document);
    void remove(int index);
    void shown(int index);
    void followPages(TDocument *document);
    bool mayClose(int index);
    bool isUntouched(int index) const;
    int indexOfSame(const TDocument &document) const;
    int indexOf(const TDocument *document) const;

    bool mayReplaceChanged(const QString &path);
    bool mayLeave() const { return !fLeaveGuard || fLeaveGuard(); }

    TKelmoraHost &fHost;
    QTabWidget *fTabs;
    std::function<bool()> fLeaveGuard;
    std::vector<TOpenDocument> fDocuments; // in the order of the tabs
};
