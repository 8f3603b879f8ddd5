#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QPixmap>
#include <QPointer>
#include <QSet>
#include <QSize>
#include <QTimer>

class TDocument;
class TPage;

/// The pages of a document with their thumbnails.
class TPageModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit TPageModel(QObject *parent = nullptr);

    void setDocument(TDocument *document);
    TPage *page(const QModelIndex &index) const;
    QModelIndex indexOf(const TPage *page) const;
    /// Size of a thumbnail in logical pixels, and pixels of the screen for one of them.
    void setThumbnailSize(const QSize &size, double devicePixelRatio);
    /// Pages came, went or changed their order.
    void reload();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Only tells that a title was typed; a command changes it.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

signals:
    void renamed(TPage *page, const QString &title);

private:
    void watchPages();
    void pageChanged(TPage *page);
    void showChanged();

    QPointer<TDocument> fDocument;
    QSize fSize{150, 106};
    double fRatio = 1.0;
    mutable QHash<const TPage *, QPixmap> fThumbnails;
    QSet<const TPage *> fStale;
    QTimer fTimer; // thumbnails follow a little later, so that a drag is not slowed down
};
