#pragma once

#include "canvas/ICanvasItem.h"
#include "canvas/QtCanvasItem.h"
#include "canvas/TSecurePtr.h"
#include "canvas/TViewHistory.h"
#include "history/THistoryItem.h"
#include "properties/TItemProperties.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QRectF>
#include <QString>
#include <QVariantMap>
#include <QVector>

class IDARegionsItem;
class IStackedItemCtx;
class TBasePlot;
class TCanvasItemList;
class TCommand;
class TDataStream;

/// An item of a document.
class TCanvasItem : public QtCanvasItem, public ICanvasItem, public THistoryItem, public TSecurePtrData
{
public:
    enum TLayoutPolicy { cOwnRect = 0, cFollowsPage = 1 };
    enum TItemFlag : quint8 { cActive = 1, cSelected = 2, cLocked = 4 };

    static const QByteArray cCopyRole; // of the link from a copy to what it was made from

    TCanvasItem(int rtti, TPage *page, const QString &name);
    ~TCanvasItem() override;

    int rtti() const override { return fRtti; }
    QUuid uniqueId() const override { return fId; }
    /// For items that are read from a document or pasted.
    void setUniqueId(const QUuid &id) { fId = id; }
    bool isActive() const override { return fActive; }
    void setActive(bool active) { fActive = active; }
    bool isSelectedForEdit() const override { return fSelected && !fLocked; }
    void setSelected(bool selected) { fSelected = selected; }
    void setLocked(bool locked) { fLocked = locked; }
    bool isLocked() const { return fLocked; }
    QUuid historyId() const override { return fId; }
    QString historyName() const override { return title(false); }

    QString name() const { return fName; }
    /// The item's place on its page, in canvas units.
    QRectF rect() const { return fRect; }
    void setRect(const QRectF &rect);
    QRectF canvasRect() const override { return fRect; }
    int layoutPolicy() const { return fPolicy; }
    void setLayoutPolicy(int policy, bool update);
    QString subtypeText() const { return fSubtype; }
    void setSubtypeText(const QString &subtype) { fSubtype = subtype; }

    /// The item's own title, or with `plotTitle` that of its plot.
    virtual QString title(bool plotTitle) const;
    /// The text that a user edits as the title of one of the item's spectra, with its typesetting signs; null where
    /// there is none to edit.
    virtual QString titleToEdit(int) const { return QString(); }
    /// Sets such a title to a text, or back to what an earlier call gave; gives what it was before.
    virtual QVariant swapTitle(int, const QVariant &) { return QVariant(); }
    virtual QString type() const { return QString(); }
    virtual QString subtype() const { return fSubtype; }
    virtual QString descriptiveText() const { return QString(); }
    /// Writes and reads everything but the type number and the id, which stand before the item's block.
    virtual void store(TDataStream &stream) const = 0;
    virtual void load(TDataStream &stream) = 0;
    virtual void captureView(TViewHistoryEntry &) const {}
    virtual void restoreView(const TViewHistoryEntry &) {}
    virtual void appendRects(QVector<QRectF> &rects) const { rects.append(fRect); }
    /// A new plot of a type for this item, which takes it over; null for a type that it does not have.
    virtual TBasePlot *createPlot(int, const QUuid &) { return nullptr; }
    /// Tells the page that the item has to be drawn anew.
    virtual void update();

    /// An item of the document that this one is linked to was changed, or came to the document.
    virtual void linkedItemChanged(TCanvasItem *) {}
    /// Such an item was taken out of the document; it still is what it was.
    virtual void linkedItemLeaves(TCanvasItem *) {}
    bool isLinkedTo(const QUuid &id) const;

    QList<QByteArray> roles() const { return fLinks.keys(); }
    QList<QUuid> links(const QByteArray &role) const { return fLinks.value(role); }
    static void link(TCanvasItem *item, const QByteArray &role, const QUuid &id);
    bool answersTo(const QUuid &id) const override { return fId == id || links(cCopyRole).contains(id); }
    /// Links to items that were copied together with this one go to their copies.
    void followCopies(const QMap<QUuid, QUuid> &copies);
    /// The ids of all links, role by role.
    QList<QUuid> linkedIds() const;
    /// Links to those ids go to others, that to what it was made from included.
    void replaceLinks(const QMap<QUuid, QUuid> &others);
    /// The item's spectra as a stack; null for an item that is none. The item owns it.
    virtual IStackedItemCtx *stackedContext() { return nullptr; }
    /// The item as one that data analysis works on; null for an item that keeps no regions.
    virtual IDARegionsItem *regionsItem() { return nullptr; }
    /// Commands for items of this item's kind, as whoever draws it makes them; the caller owns them. Null for a kind
    /// that knows no such change.
    virtual TCommand *activeSpectrumCommand(const TCanvasItemList &, int /*index*/) const { return nullptr; }
    virtual TCommand *displayModeCommand(const TCanvasItemList &, int /*mode*/) const { return nullptr; }
    /// By canvas units, positive right and up.
    virtual TCommand *panCommand(const TCanvasItemList &, double /*dx*/, double /*dy*/) const { return nullptr; }

    TItemProperties &properties() { return fProperties; }
    const TItemProperties &properties() const { return fProperties; }
    /// Remembers the present view as one to come back to; within a gesture only the first of mergeable ones with the
    /// same text. Whether it was.
    bool pushView(const QString &text, bool mergeable);
    /// Forgets the view that was remembered last; nothing is applied.
    void popView() { fViewHistory.pop(); }
    /// Goes back to the view that was remembered last, or forth again; false at the end of the list.
    bool goToFormerView();
    bool goToLaterView();
    const TViewHistory &viewHistory() const { return fViewHistory; }

    /// Where the item came from: "Filename", "md5sum".
    QVariantMap &provenance() { return fProvenance; }
    const QVariantMap &provenance() const { return fProvenance; }

protected:
    void storeLinks(TDataStream &stream) const;
    void loadLinks(TDataStream &stream);
    void setName(const QString &name) { fName = name; }
    quint8 stateFlags() const;
    void setStateFlags(quint8 flags);

private:
    int fRtti;
    QUuid fId;
    QString fName;
    QRectF fRect;
    int fPolicy = cOwnRect;
    QString fSubtype;
    bool fActive = false;
    bool fSelected = false;
    bool fLocked = false;
    QMap<QByteArray, QList<QUuid>> fLinks;
    QVariantMap fProvenance;
    TItemProperties fProperties;
    TViewHistory fViewHistory;
};

/// The item behind an interface pointer; items have this one implementation.
inline TCanvasItem *canvasItem(ICanvasItem *item)
{
    return static_cast<TCanvasItem *>(item);
}
