#pragma once

#include "canvas/TCanvasItemList.h"
#include "commands/TCommand.h"

#include <QByteArray>
#include <QColor>
#include <QMap>
#include <QUuid>
#include <QVariantMap>
#include <QVector>

class IProgress;
class TCanvasYrexSpectrum;
class TDocument;
class TPage;

/// What of the items goes into stacks, where it is not all of them.
struct TYrexStackSelection
{
    QVector<QVector<int>> fSpectra; // by item, in the order of the stack; empty for all of all items
    bool fOnePerXUnits = false;     // an item for each x unit
};

/// Makes new stacked items of copies of spectra of items. It owns what it made while it is not done.
class TCmdYrexArrayedFromSelection : public TCommand
{
    Q_OBJECT

public:
    using TLinks = QMap<QByteArray, QList<QUuid>>; // by role

    /// Items of other types are passed over; without spectra the command is void. `stacked` shows the spectra in rows,
    /// else over each other; `angle` is the skew of rows in degrees. Without `forceNewPage` a single new item goes to
    /// the document's current page, or to `current` in its place. `progress` may be null.
    TCmdYrexArrayedFromSelection(const TCanvasItemList &items, TDocument *host, IProgress *progress, bool stacked,
                                 double angle, bool oneStackPerYUnit, bool forceNewPage, TPage *current = nullptr,
                                 const TYrexStackSelection &selection = TYrexStackSelection());
    ~TCmdYrexArrayedFromSelection() override;

    /// New items without a page, which the caller owns, with copies of all spectra. Spectra of several y units make an
    /// item for each unit, in the order in which the units appear; without `oneStackPerYUnit` one item, in which they
    /// are arbitrary and keep their values. Several x units make items in the same way where the selection says so.
    /// `links`, when not null, gets the links of the sources, without doubles; `sourceIds` the ids of the sources, a
    /// list for each new item.
    static QVector<TCanvasYrexSpectrum *>
    stackFromCanvasItemsList(const TCanvasItemList &items, IProgress *progress, bool oneStackPerYUnit, TLinks *links,
                             QVector<QList<QUuid>> *sourceIds,
                             const TYrexStackSelection &selection = TYrexStackSelection());

    const QVector<TCanvasYrexSpectrum *> &newItems() const { return fNewItems; }

    bool isVoid() const override { return TCommand::isVoid() || fNewItems.isEmpty(); }
    TScriptStep scriptStep() const override;
    void doCmd() override;
    void undoCmd() override;
    void doHistoryCommand() override;

private:
    void showNewItem(TCanvasYrexSpectrum *item, bool stacked);
    void tell(const TCanvasItemList &items, bool stacked, bool forceNewPage, TPage *current,
              const TYrexStackSelection &selection);
    void link(const TLinks &links);

    QVector<TCanvasYrexSpectrum *> fNewItems;
    QVector<TPage *> fPages;    // one per new item
    QVector<TPage *> fNewPages; // those that the command made
    TDocument *fHost;
    double fAngle;
    bool fOneStackPerYUnit;
    TScriptStep fStep;
    QVector<QVariantMap> fHistoryMaps;
};
