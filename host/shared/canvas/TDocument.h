#pragma once

#include "commands/TCommandHistory.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QMap>
#include <QObject>
#include <QUuid>
#include <QVariantMap>
#include <functional>
#include <memory>

class TCanvasItem;
class TCanvasItemList;
class TDataStream;
class TPage;
struct TLoadReport;
struct TStoredHistoryEntry;

/// Pages, their items, and the history of what was done to them.
class TDocument : public QObject
{
    Q_OBJECT

public:
    using TItemFactory = std::function<TCanvasItem *(int rtti)>;

    explicit TDocument(QObject *parent = nullptr);
    ~TDocument() override;

    /// How items are made from their type numbers; without a factory, or where it gives null, they are kept as bytes.
    static void setItemFactory(const TItemFactory &factory);
    /// A new item of a type; null where none can be made. The caller owns it.
    static TCanvasItem *createItem(int rtti);
    /// Whether a file begins like a document.
    static bool isDocument(const QString &path);

    QUuid id() const { return fId; }
    QVariantMap &settings() { return fSettings; }
    const QList<TPage *> &pages() const { return fPages; }
    /// A new page behind the others.
    TPage *appendPage();
    /// Takes a page over.
    void insertPage(TPage *page, int index);
    /// Gives a page up without deleting it.
    void takePage(TPage *page);
    void movePage(TPage *page, int index);
    /// The page that new items go to; null for a document without pages.
    TPage *currentPage() const;
    void setCurrentPage(TPage *page);
    /// All items, page by page.
    TCanvasItemList items() const;
    TCanvasItem *item(const QUuid &id) const;

    TCommandHistory &history() { return fHistory; }
    const TCommandHistory &history() const { return fHistory; }
    /// The entries that came with the document.
    const QList<TStoredHistoryEntry> &storedHistory() const { return fStoredHistory; }
    /// The entries that came with the document, and behind them those of this session.
    QList<TStoredHistoryEntry> historyEntries() const;

    QString path() const { return fPath; }
    bool isModified() const;
    /// When the file at path() was written, as it was opened or saved last; invalid without a file.
    QDateTime fileTime() const { return fFileTime; }
    /// Says so of a document that did not come from that file itself.
    void setFileTime(const QDateTime &time) { fFileTime = time; }
    /// Whether another program wrote the file at path() since: to save would write over that. False when it is gone.
    bool isChangedOnDisk() const;

    /// Writes the document whole or not at all (TFileWriter), also over a file that changed on the disk.
    bool saveTo(const QString &path, QString *error = nullptr);
    void store(TDataStream &stream) const;
    /// Reads into this document, which must be empty. False, with the reason in the report, when it cannot be read.
    bool loadFrom(const QString &path, TLoadReport &report);
    /// Reads what an autosave kept of the document at `path`, which may be empty. The document is modified then: what
    /// it holds stands in no file of its own.
    bool restore(TDataStream &stream, const QString &path, TLoadReport &report);
    /// Reads what is whole in a damaged or cut file: damaged items are left out and named in the report. It becomes a
    /// new, modified document without a path. False when there is no whole item.
    bool recoverFrom(const QString &path, TLoadReport &report);
    /// A tolerant stream is read as recoverFrom does.
    bool load(TDataStream &stream, TLoadReport &report);

signals:
    void itemAdded(TCanvasItem *item);
    void itemRemoved(TCanvasItem *item);
    void modifiedChanged(bool modified);
    /// A step was done, undone, done again or took in another command.
    void historyChanged();
    /// Within an edit run a command took the place of its predecessor: the document changed, the undo stack did not.
    void stepReplaced();
    void currentPageChanged(TPage *page);
    /// Pages came, went or changed places.
    void pagesChanged();

private:
    void watch(TPage *page);
    /// What is linked to an item hears that it changed or leaves.
    void tellLinked(TCanvasItem *item, bool leaves);
    void storePage(TDataStream &stream, const TPage &page) const;
    void storeHistory(TDataStream &stream) const;
    bool loadPage(TDataStream &stream, TLoadReport &report);
    bool loadItem(TDataStream &stream, TPage &page, int itemNumber, TLoadReport &report);
    bool loadPages(TDataStream &stream, TLoadReport &report);
    bool loadBehindPages(TDataStream &stream, TLoadReport &report);
    void loadHistory(TDataStream &stream);
    bool fail(TDataStream &stream, TLoadReport &report, const QString &where) const;

    QUuid fId;
    quint32 fFormat;
    QString fWriter;
    QVariantMap fSettings;
    QList<TPage *> fPages; // owned
    TPage *fCurrentPage = nullptr;
    QByteArray fTail;
    QByteArray fHistoryTail;
    QList<TStoredHistoryEntry> fStoredHistory;
    QString fPath;
    QDateTime fFileTime;
    bool fModified = false;
    TCommandHistory fHistory; // last, so that its commands go while the pages still stand
};
