#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QPixmap>
#include <QPointer>
#include <QSet>
#include <QSize>
#include <QTimer>
#include <functional>

class TCanvasItem;
class TDocument;
class TPage;

/// The pages of a document with their thumbnails, and below each page its items with a small curve. Pictures are drawn
/// one by one when there is time, those that are seen first.
class TPageModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    static constexpr int cDelay = 300; // ms from a change to the new thumbnail
    static constexpr QSize cSparkline{24, 16};
    using TIsSeen = std::function<bool(const TPage *)>;

    explicit TPageModel(QObject *parent = nullptr);

    void setDocument(TDocument *document);
    /// The page of a row, also of a row of one of its items.
    TPage *page(const QModelIndex &index) const;
    /// The item of a row; null for the row of a page.
    TCanvasItem *item(const QModelIndex &index) const;
    QModelIndex indexOf(const TPage *page) const;
    /// Size of a thumbnail in logical pixels, and pixels of the screen for one of them.
    void setThumbnailSize(const QSize &size, double devicePixelRatio);
    /// Tells which pages can be seen; without it all count as such.
    void setSeen(const TIsSeen &isSeen) { fIsSeen = isSeen; }
    /// Whether the thumbnail shows the page as it is.
    bool isFresh(const TPage *page) const { return fThumbnails.contains(page) && !fStale.contains(page); }
    /// Pages came, went or changed their order.
    void reload();

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Only tells that a title was typed; a command changes it.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    /// Over a plot spectra are copied.
    Qt::DropActions supportedDragActions() const override { return Qt::MoveAction | Qt::CopyAction; }
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    /// Only tells where pages were dropped.
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

signals:
    void renamed(TPage *page, const QString &title);
    /// The pages, in their order, are to stand before the page that is at `place` now.
    void moved(const QList<TPage *> &pages, int place);

private:
    void watchPages();
    void watch(TPage *page);
    void itemsChanged(TPage *page);
    void drawNext();
    QVariant pageData(const QModelIndex &index, int role) const;
    QVariant itemFacts(const QModelIndex &index, int role) const;

    QPointer<TDocument> fDocument;
    QSize fSize{140, 99};
    double fRatio = 1.0;
    QHash<const TPage *, QPixmap> fThumbnails;
    mutable QHash<const TCanvasItem *, QPixmap> fSparklines;
    QList<TPage *> fPages;                 // as the rows are told
    QHash<const TPage *, int> fItemCounts; // likewise
    QSet<const TPage *> fStale;
    TIsSeen fIsSeen;
    QTimer fTimer; // thumbnails follow a little later, so that a drag is not slowed down
};
