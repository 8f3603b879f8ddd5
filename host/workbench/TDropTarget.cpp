#include "TDropTarget.h"

#include "TDocumentController.h"
#include "TFileController.h"
#include "canvas/TCanvasItem.h"
#include "widgets/GuiUtils.h"

#include <QDirIterator>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

TDropTarget::TDropTarget(QWidget *window, TDocumentController &documents, TFileController &files)
    : QObject(window)
    , fWindow(window)
    , fDocuments(documents)
    , fFiles(files)
    , fLabel(new QLabel(window))
{
    fLabel->setAutoFillBackground(true);
    fLabel->setFrameShape(QFrame::Box);
    fLabel->setMargin(4);
    fLabel->setAttribute(Qt::WA_TransparentForMouseEvents);
    fLabel->hide();
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

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

bool TDropTarget::wantsStack(const QDropEvent &drop)
{
    return drop.keyboardModifiers() & Qt::ControlModifier;
}

bool TDropTarget::accepts(const QMimeData *mime) const
{
    return mime && mime->hasUrls();
}

void TDropTarget::showLabel(const QPoint &place, bool asStack)
{
    fLabel->setText(labelFor(fCount, asStack));
    fLabel->adjustSize();
    fLabel->move(place + QPoint(16, 16));
    fLabel->raise();
    fLabel->show();
}

bool TDropTarget::eventFilter(QObject *object, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter: {
        auto *drag = static_cast<QDragEnterEvent *>(event);
        if (!accepts(drag->mimeData()))
            return false;
        fCount = qMax(1, filesOf(*drag->mimeData()).size());
        drag->acceptProposedAction();
        return true;
    }
    case QEvent::DragMove: {
        auto *drag = static_cast<QDragMoveEvent *>(event);
        showLabel(drag->pos(), wantsStack(*drag));
        drag->acceptProposedAction();
        return true;
    }
    case QEvent::DragLeave:
        fLabel->hide();
        return true;
    case QEvent::Drop: {
        auto *drop = static_cast<QDropEvent *>(event);
        fLabel->hide();
        QStringList files = filesOf(*drop->mimeData());
        drop->acceptProposedAction();
        if (files.size() > cMaxFiles) {
            Utils::Gui::TMessage question;
            question.fIcon = QMessageBox::Question;
            question.fTitle = tr("Open");
            question.fText =
                tr("There are more than %1 files. Only the first %1 can be opened at once.").arg(cMaxFiles);
            question.fButtons = QMessageBox::Open | QMessageBox::Cancel;
            if (Utils::Gui::ask(fWindow, question) != QMessageBox::Open)
                return true;
            files = files.mid(0, cMaxFiles);
        }
        if (wantsStack(*drop))
            fFiles.openAsStack(files);
        else
            fFiles.open(files);
        return true;
    }
    default:
        return QObject::eventFilter(object, event);
    }
}
