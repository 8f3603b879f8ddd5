#pragma once

#include "TItemDrops.h"

#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

class QDragMoveEvent;
class QDropEvent;
class QLabel;
class QMimeData;
class QWidget;
class IPluginTemplates;
class TDocumentController;
class TFileController;
class TLooseItemsMime;
class TScratchImport;

/// Takes files, and pages and items of the document, that are dropped on the window. A label at the cursor says
/// beforehand where they will go.
class TDropTarget : public QObject
{
    Q_OBJECT

public:
    static constexpr int cMaxFiles = 1000;

    TDropTarget(QWidget *window, TKelmoraHost &host, TDocumentController &documents, TFileController &files);
    ~TDropTarget() override;

    /// Says what runs a script that is dropped.
    void setScripts(const std::function<void(const QString &)> &run) { fRunScript = run; }
    bool eventFilter(QObject *object, QEvent *event) override;
    /// The files of a drag; folders are walked, up to cMaxFiles and one more.
    static QStringList filesOf(const QMimeData &mime);
    /// What a drop of so many files would do; Ctrl held makes a stack of them.
    QString labelFor(int files, bool asStack = false) const;

private:
    bool accepts(const QMimeData *mime) const;
    bool isScript() const;
    static bool isItemDrag(const QMimeData *mime);
    static bool isControlHeld(const QDropEvent &drop);
    void showLabel(const QPoint &place, const QString &text);
    void moveFiles(QDragMoveEvent *drag);
    void moveItems(QDragMoveEvent *drag);
    void dropFiles(QDropEvent *drop);
    void dropItems(QDropEvent *drop);
    /// Whose template the drag is, when it is one alone and over a plot; null otherwise.
    IPluginTemplates *templatesAt(const QPoint &windowPos) const;
    /// Opens the dragged template for the item there, or for all selected ones when that is one of them.
    bool dropTemplate(QDropEvent *drop);
    bool isOnPlot(const QPoint &windowPos) const;
    /// The spectra of the dragged files, which are read when they are over a plot for the first time; null where one of
    /// them is a document or cannot be read.
    const QMimeData *looseItems();
    void end();

    QWidget *fWindow;
    TKelmoraHost &fHost;
    TDocumentController &fDocuments;
    TFileController &fFiles;
    std::function<void(const QString &)> fRunScript;
    TItemDrops fDrops;
    QLabel *fLabel;
    QStringList fPaths; // of the drag under way
    bool fIsRead = false;
    std::vector<std::unique_ptr<TScratchImport>> fScratch;
    std::unique_ptr<TLooseItemsMime> fLoose;
};
