#include "TDocumentController.h"

#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TDocument.h"
#include "canvas/TLoadReport.h"
#include "canvas/TPage.h"
#include "consts/Consts.h"
#include "log/TLogger.h"
#include "plugin/IPluginEvent.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"
#include "utils/FSUtils.h"
#include "widgets/GuiUtils.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QTabWidget>
#include <algorithm>

namespace {

constexpr char cSaveFolder[] = "Kelmora/Folders/Save";
constexpr char cEnding[] = ".klm";

void tellPlugins(const TKelmoraHost &host, const char *event)
{
    for (QObject *plugin : host.plugins()) {
        if (auto *listener = qobject_cast<IPluginEvent *>(plugin))
            listener->hostEvent(event);
    }
}

} // namespace

TDocumentController::TDocumentController(TKelmoraHost &host, QTabWidget *tabs)
    : QObject(tabs)
    , fHost(host)
    , fTabs(tabs)
{
    fTabs->setDocumentMode(true);
    fTabs->setTabBarAutoHide(true);
    fTabs->setTabsClosable(true);
    connect(fTabs, &QTabWidget::currentChanged, this, &TDocumentController::shown);
    connect(fTabs, &QTabWidget::tabCloseRequested, this, &TDocumentController::close);
}

TDocumentController::~TDocumentController()
{
    blockSignals(true); // the window that listens is going, too
    fTabs->disconnect(this);
    fHost.setActiveDocument(nullptr);
    for (TOpenDocument &entry : fDocuments)
        entry.fView->blockSignals(true); // the tabs resize those that are left
    while (!fDocuments.empty()) {
        const TOpenDocument entry = std::move(fDocuments.back());
        fDocuments.pop_back();
        delete entry.fView; // views go before what they show
    }
}

QString TDocumentController::titleOf(const TDocument &document)
{
    return document.path().isEmpty() ? tr("Untitled") : QFileInfo(document.path()).completeBaseName();
}

WDocumentView *TDocumentController::viewAt(int index) const
{
    return index >= 0 && index < count() ? fDocuments[size_t(index)].fView : nullptr;
}

QList<WDocumentView *> TDocumentController::views() const
{
    QList<WDocumentView *> views;
    for (const TOpenDocument &entry : fDocuments)
        views.append(entry.fView);
    return views;
}

WDocumentView *TDocumentController::view() const
{
    return viewAt(fTabs->currentIndex());
}

TDocument *TDocumentController::document() const
{
    return view() ? view()->document() : nullptr;
}

TPage *TDocumentController::page() const
{
    return view() ? view()->page() : nullptr;
}

int TDocumentController::indexOf(const TDocument *document) const
{
    const auto found = std::find_if(fDocuments.begin(), fDocuments.end(),
                                    [&](const TOpenDocument &entry) { return entry.fDocument.get() == document; });
    return found == fDocuments.end() ? -1 : int(found - fDocuments.begin());
}

void TDocumentController::show(int index)
{
    fTabs->setCurrentIndex(index);
}

WDocumentView *TDocumentController::add(std::unique_ptr<TDocument> owned)
{
    TDocument *document = owned.get();
    if (document->pages().isEmpty())
        document->appendPage();
    auto *view = new WDocumentView(document);
    fDocuments.push_back({std::move(owned), view});
    connect(document->history().stack(), &QUndoStack::indexChanged, this, &TDocumentController::contentChanged);
    connect(document, &TDocument::modifiedChanged, this, &TDocumentController::contentChanged);
    connect(document, &TDocument::stepReplaced, this, &TDocumentController::contentChanged);
    connect(document, &TDocument::pagesChanged, this, [this, document] { followPages(document); });
    connect(document, &TDocument::currentPageChanged, this, [this, document] { followPages(document); });
    emit viewAdded(view);
    const int index = fTabs->addTab(view, titleOf(*document));
    fTabs->setCurrentIndex(index);
    if (fDocuments.size() == 1)
        shown(index); // the first tab was shown before the view was known
    return view;
}

/// The page that a view shows may have gone, and a new one is to be seen.
void TDocumentController::followPages(TDocument *document)
{
    WDocumentView *view = viewAt(indexOf(document));
    if (!view)
        return;
    const bool isGone = !document->pages().contains(view->page());
    const bool isOther = isGone || document->currentPage() != view->page();
    if (isOther)
        view->setPage(document->currentPage());
    if (view != this->view())
        return;
    if (isOther)
        tellPlugins(fHost, Consts::Events::cPageChanged);
    emit pageShown(view->page());
}

void TDocumentController::shown(int index)
{
    WDocumentView *view = viewAt(index);
    fHost.setActiveDocument(view ? view->document() : nullptr);
    if (!view)
        return;
    emit documentShown(view->document());
    emit pageShown(view->page());
    emit contentChanged();
}

void TDocumentController::setPage(TPage *page)
{
    WDocumentView *shownView = view();
    if (!shownView || !page || shownView->page() == page || !document()->pages().contains(page))
        return;
    document()->setCurrentPage(page);
}

TDocument *TDocumentController::newDocument()
{
    return add(std::make_unique<TDocument>())->document();
}

bool TDocumentController::isUntouched(int index) const
{
    const WDocumentView *one = viewAt(index);
    if (!one)
        return false;
    TDocument *document = one->document();
    return document->path().isEmpty() && !document->isModified() && document->items().isEmpty() &&
           document->history().stack()->count() == 0;
}

bool TDocumentController::open(const QString &path, QString *error)
{
    const QString whole = QFileInfo(path).absoluteFilePath();
    for (int i = 0; i < count(); ++i) {
        if (viewAt(i)->document()->path() == whole) {
            show(i);
            return true;
        }
    }
    auto document = std::make_unique<TDocument>();
    TLoadReport report;
    if (!document->loadFrom(whole, report)) {
        if (error)
            *error = report.fError;
        return false;
    }
    for (const QString &warning : qAsConst(report.fWarnings))
        TLogger::printToLogger("Kelmora", QString("%1: %2").arg(path, warning));
    take(std::move(document));
    return true;
}

int TDocumentController::indexOfSame(const TDocument &document) const
{
    for (int i = 0; i < count(); ++i) {
        const TDocument *other = viewAt(i)->document();
        const bool isSame = !document.path().isEmpty() && other->path() == document.path() && !other->isModified();
        if (isSame || (count() == 1 && isUntouched(i)))
            return i;
    }
    return -1;
}

TDocument *TDocumentController::take(std::unique_ptr<TDocument> document)
{
    const int replaced = indexOfSame(*document);
    TDocument *taken = add(std::move(document))->document();
    if (replaced >= 0)
        remove(replaced);
    tellPlugins(fHost, Consts::Events::cDocLoaded);
    return taken;
}

bool TDocumentController::save()
{
    TDocument *shownDocument = document();
    if (!shownDocument)
        return false;
    return shownDocument->path().isEmpty() ? saveAs() : saveTo(shownDocument->path());
}

bool TDocumentController::saveAs()
{
    TDocument *shownDocument = document();
    if (!shownDocument)
        return false;
    const QString folder = TDefaultsIni().value(cSaveFolder, QDir::homePath()).toString();
    const QString start = shownDocument->path().isEmpty() ? QDir(folder).filePath(titleOf(*shownDocument) + cEnding)
                                                          : shownDocument->path();
    QString path =
        QFileDialog::getSaveFileName(fTabs->window(), tr("Save Document"), start, tr("Kelmora Documents") + " (*.klm)");
    if (path.isEmpty())
        return false;
    if (QFileInfo(path).suffix().isEmpty())
        path += cEnding;
    TDefaultsIni().setValue(cSaveFolder, QFileInfo(path).absolutePath());
    return saveTo(path);
}

/// Asks before a file is written over that another program changed since the document was opened.
bool TDocumentController::mayReplaceChanged(const QString &path)
{
    const TDocument *shown = document();
    if (!shown || !shown->isChangedOnDisk() || Utils::FS::fileKey(path) != Utils::FS::fileKey(shown->path()))
        return true;
    Utils::Gui::TMessage message;
    message.fIcon = QMessageBox::Warning;
    message.fTitle = tr("Save Document");
    message.fText = tr("%1 was changed on the disk by another program since it was opened or saved here. Saving "
                       "replaces these changes; File > Save As with another name keeps both.")
                        .arg(QDir::toNativeSeparators(path));
    message.fButtons = QMessageBox::Save | QMessageBox::Cancel;
    message.fDefault = QMessageBox::Cancel;
    return Utils::Gui::ask(fTabs->window(), message) == QMessageBox::Save;
}

bool TDocumentController::saveTo(const QString &path)
{
    TDocument *shownDocument = document();
    QString error;
    if (!mayLeave() || !mayReplaceChanged(path))
        return false;
    if (!shownDocument || !shownDocument->saveTo(QFileInfo(path).absoluteFilePath(), &error)) {
        Utils::Gui::message(
            fTabs->window(), QMessageBox::Critical, tr("Save Document"),
            tr("%1 could not be written: %2. Nothing on the disk was changed. Save the document under another "
               "name or in another folder.")
                .arg(QDir::toNativeSeparators(path), error));
        return false;
    }
    fTabs->setTabText(fTabs->currentIndex(), titleOf(*shownDocument));
    tellPlugins(fHost, Consts::Events::cDocSaved);
    emit saved(path);
    emit contentChanged();
    return true;
}

bool TDocumentController::mayClose(int index)
{
    const WDocumentView *one = viewAt(index);
    if (one == view() && !mayLeave())
        return false;
    if (!one || !one->document()->isModified())
        return true;
    show(index); // so that the user sees what the question is about
    Utils::Gui::TMessage question;
    question.fIcon = QMessageBox::Question;
    question.fTitle = tr("Close Document");
    question.fText = tr("%1 has changes that are not saved.").arg(titleOf(*one->document()));
    question.fButtons = QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    question.fDefault = QMessageBox::Save;
    const QMessageBox::StandardButton answer = Utils::Gui::ask(fTabs->window(), question);
    if (answer == QMessageBox::Save)
        return save();
    return answer == QMessageBox::Discard;
}

void TDocumentController::remove(int index)
{
    WDocumentView *view = viewAt(index);
    if (!view)
        return;
    emit documentClosing(view->document());
    TOpenDocument entry = std::move(fDocuments[size_t(index)]);
    fDocuments.erase(fDocuments.begin() + index);
    fTabs->removeTab(index);
    delete view;
    tellPlugins(fHost, Consts::Events::cDocClosed);
}

bool TDocumentController::close(int index)
{
    if (!mayClose(index))
        return false;
    if (count() == 1)
        newDocument();
    remove(index);
    return true;
}

bool TDocumentController::closeCurrent()
{
    return close(fTabs->currentIndex());
}

bool TDocumentController::mayCloseAll()
{
    for (int i = 0; i < count(); ++i) {
        if (!mayClose(i))
            return false;
    }
    return true;
}
