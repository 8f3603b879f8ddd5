#include "TDropTarget.h"

#include "TDocumentController.h"
#include "TFileController.h"
#include "TItemSelection.h"
#include "TPageDrop.h"
#include "WDocumentView.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TDocument.h"
#include "consts/Consts.h"
#include "exchange/TScratchImport.h"
#include "plugin/IPluginTemplates.h"
#include "services/TKelmoraHost.h"
#include "ui/TDragAndDropHandler.h"
#include "widgets/GuiUtils.h"

#include <QDirIterator>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

TDropTarget::TDropTarget(QWidget *window, TKelmoraHost &host, TDocumentController &documents, TFileController &files)
    : QObject(window)
    , fWindow(window)
    , fHost(host)
    , fDocuments(documents)
    , fFiles(files)
    , fDrops(window, host, documents)
    , fLabel(new QLabel(window))
{
    fLabel->setObjectName("dropLabel");
    fLabel->setAutoFillBackground(true);
    fLabel->setFrameShape(QFrame::Box);
    fLabel->setMargin(4);
    fLabel->setAttribute(Qt::WA_TransparentForMouseEvents);
    fLabel->hide();
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

TDropTarget::~TDropTarget() = default;

QStringList TDropTarget::filesOf(const QMimeData &mime)
{
    QStringList files;
    for (const QUrl &url : mime.urls()) {
        const QString path = url.toLocalFile();
        if (QFileInfo(path).isFile())
            files.append(path);
        if (!QFileInfo(path).isDir())
            continue;
        QDirIterator walk(path, QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext() && files.size() <= cMaxFiles)
            files.append(walk.next());
    }
    files.sort();
    return files;
}

QString TDropTarget::labelFor(int files, bool asStack) const
{
    if (asStack && files > 1)
        return tr("Stack of %1 files").arg(files);
    const TPage *page = fDocuments.page();
    const bool isEmpty = page && page->items().isEmpty();
    const int pages = isEmpty ? files - 1 : files;
    if (pages == 0)
        return tr("Add to page");
    const QString more = pages == 1 ? tr("1 new page") : tr("%1 new pages").arg(pages);
    return isEmpty ? tr("Add to page, %1").arg(more) : more;
}

bool TDropTarget::isControlHeld(const QDropEvent &drop)
{
    return drop.keyboardModifiers() & Qt::ControlModifier;
}

bool TDropTarget::isItemDrag(const QMimeData *mime)
{
    return mime && mime->hasFormat(Consts::Common::cPageNavigatorDragId);
}

bool TDropTarget::accepts(const QMimeData *mime) const
{
    return mime && (mime->hasUrls() || isItemDrag(mime));
}

bool TDropTarget::isScript() const
{
    return fRunScript && fPaths.size() == 1 && fPaths.first().endsWith(QLatin1String(".js"), Qt::CaseInsensitive);
}

void TDropTarget::showLabel(const QPoint &place, const QString &text)
{
    fLabel->setText(text);
    fLabel->adjustSize();
    fLabel->move(place + QPoint(16, 16));
    fLabel->raise();
    fLabel->setVisible(!text.isEmpty());
}

bool TDropTarget::isOnPlot(const QPoint &windowPos) const
{
    QPoint place;
    return fDrops.viewPlace(windowPos, place) && fDocuments.view()->spotAt(place).plot;
}

IPluginTemplates *TDropTarget::templatesAt(const QPoint &windowPos) const
{
    if (fPaths.size() != 1 || !isOnPlot(windowPos))
        return nullptr;
    for (QObject *plugin : fHost.plugins()) {
        auto *templates = qobject_cast<IPluginTemplates *>(plugin);
        if (templates && templates->isTemplate(fPaths.first()))
            return templates;
    }
    return nullptr;
}

bool TDropTarget::dropTemplate(QDropEvent *drop)
{
    IPluginTemplates *templates = templatesAt(drop->pos());
    QPoint place;
    if (!templates || !fDrops.viewPlace(drop->pos(), place))
        return false;
    TItemSelection &selection = fDocuments.view()->selection();
    TCanvasItem *item = fDocuments.view()->spotAt(place).item;
    if (!selection.contains(item))
        selection.select(item);
    drop->acceptProposedAction();
    templates->openTemplate(fPaths.first());
    return true;
}

const QMimeData *TDropTarget::looseItems()
{
    if (fIsRead)
        return fLoose.get();
    fIsRead = true;
    if (fPaths.size() > cMaxFiles)
        return nullptr;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    TCanvasItemList items;
    bool isWhole = true;
    for (const QString &path : qAsConst(fPaths)) {
        isWhole = isWhole && !TDocument::isDocument(path);
        if (!isWhole)
            break;
        fScratch.push_back(std::make_unique<TScratchImport>(fHost.importDriver(), path));
        isWhole = fScratch.back()->isOk();
        items += fScratch.back()->result().fItems;
    }
    QGuiApplication::restoreOverrideCursor();
    if (isWhole && !items.isEmpty())
        fLoose = std::make_unique<TLooseItemsMime>(items);
    else
        fScratch.clear();
    return fLoose.get();
}

void TDropTarget::moveFiles(QDragMoveEvent *drag)
{
    if (isScript()) {
        showLabel(drag->pos(), tr("Run script"));
        drag->acceptProposedAction();
        return;
    }
    if (const IPluginTemplates *templates = templatesAt(drag->pos())) {
        showLabel(drag->pos(), templates->templateTitle());
        drag->acceptProposedAction();
        return;
    }
    const bool asStack = isControlHeld(*drag);
    const QMimeData *loose = !asStack && isOnPlot(drag->pos()) ? looseItems() : nullptr;
    if (!loose) {
        fDrops.reset();
        showLabel(drag->pos(), labelFor(qMax(1, fPaths.size()), asStack));
        drag->acceptProposedAction();
        return;
    }
    const bool taken = fDrops.move(drag, loose);
    showLabel(drag->pos(), fDrops.label());
    if (!taken)
        drag->ignore();
}

void TDropTarget::moveItems(QDragMoveEvent *drag)
{
    QPoint place;
    drag->ignore();
    if (fDrops.move(drag, drag->mimeData()) || fDrops.isRefused()) {
        showLabel(drag->pos(), fDrops.label());
        return;
    }
    const TPageDrop drop(fDocuments, *drag->mimeData(), isControlHeld(*drag));
    const bool isOnPaper = fDrops.viewPlace(drag->pos(), place) && !fDocuments.view()->spotAt(place).item;
    showLabel(drag->pos(), isOnPaper ? drop.label() : QString());
    if (!isOnPaper || drop.isEmpty())
        return;
    drag->setDropAction(isControlHeld(*drag) ? Qt::CopyAction : Qt::MoveAction);
    drag->accept();
}

void TDropTarget::dropItems(QDropEvent *drop)
{
    drop->ignore();
    if (fDrops.drop(drop, drop->mimeData()))
        return;
    QPoint place;
    if (!fDrops.viewPlace(drop->pos(), place) || fDocuments.view()->spotAt(place).item)
        return;
    const TPageDrop onPaper(fDocuments, *drop->mimeData(), isControlHeld(*drop));
    if (!onPaper.run(fDocuments.view()->spotAt(place).pagePos))
        return;
    drop->setDropAction(isControlHeld(*drop) ? Qt::CopyAction : Qt::MoveAction);
    drop->accept();
}

void TDropTarget::dropFiles(QDropEvent *drop)
{
    if (isScript()) {
        drop->acceptProposedAction();
        fRunScript(fPaths.first());
        return;
    }
    if (dropTemplate(drop))
        return;
    QStringList files = filesOf(*drop->mimeData());
    const bool isTaken = fLoose && fDrops.drop(drop, fLoose.get());
    if (isTaken)
        return;
    drop->acceptProposedAction();
    if (files.size() > cMaxFiles) {
        Utils::Gui::TMessage question;
        question.fIcon = QMessageBox::Question;
        question.fTitle = tr("Open");
        question.fText = tr("There are more than %1 files. Only the first %1 can be opened at once.").arg(cMaxFiles);
        question.fButtons = QMessageBox::Open | QMessageBox::Cancel;
        if (Utils::Gui::ask(fWindow, question) != QMessageBox::Open)
            return;
        files = files.mid(0, cMaxFiles);
    }
    if (isControlHeld(*drop))
        fFiles.openAsStack(files);
    else
        fFiles.open(files);
}

void TDropTarget::end()
{
    fLabel->hide();
    fDrops.reset();
    fPaths.clear();
    fLoose.reset();
    fScratch.clear();
    fIsRead = false;
}

bool TDropTarget::eventFilter(QObject *object, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter: {
        auto *drag = static_cast<QDragEnterEvent *>(event);
        if (!accepts(drag->mimeData()))
            return false;
        end();
        if (!isItemDrag(drag->mimeData()))
            fPaths = filesOf(*drag->mimeData());
        drag->acceptProposedAction();
        return true;
    }
    case QEvent::DragMove: {
        auto *drag = static_cast<QDragMoveEvent *>(event);
        if (isItemDrag(drag->mimeData()))
            moveItems(drag);
        else
            moveFiles(drag);
        return true;
    }
    case QEvent::DragLeave:
        end();
        return true;
    case QEvent::Drop: {
        auto *drop = static_cast<QDropEvent *>(event);
        fLabel->hide();
        if (isItemDrag(drop->mimeData()))
            dropItems(drop);
        else
            dropFiles(drop);
        end();
        return true;
    }
    default:
        return QObject::eventFilter(object, event);
    }
}
