#pragma once

#include <QObject>
#include <QSet>
#include <QUuid>

class IPluginHost;
class TCanvasYrexSpectrum;

/// Which marks of which item are highlighted: peaks and integrals of its active spectrum. Mouse, tables and dialogs set
/// and read it here, the plot shows it. Marks of one item at a time; identifiers of marks that are gone do no harm.
class TYrexHighlightHandler : public QObject
{
    Q_OBJECT

public:
    /// The host is not owned and lives longer.
    explicit TYrexHighlightHandler(IPluginHost &host);

    /// The item whose marks are highlighted; null when none are, and when it is not in the document that is shown.
    TCanvasYrexSpectrum *item() const;
    const QSet<QUuid> &peaks() const { return fPeaks; }
    const QSet<QUuid> &integrals() const { return fIntegrals; }
    bool isEmpty() const { return fPeaks.isEmpty() && fIntegrals.isEmpty(); }

    /// Highlights these peaks of an item and nothing else. `itemId` is the item's unique id.
    void highlightPeaks(const QUuid &itemId, const QSet<QUuid> &peaks);
    /// Highlights these integrals of an item and nothing else.
    void highlightIntegrals(const QUuid &itemId, const QSet<QUuid> &integrals);
    /// Adds a mark to those that are highlighted, or takes it out; marks of another item go.
    void toggle(const QUuid &itemId, const QUuid &mark, bool isPeak);
    /// Whether anything was highlighted.
    bool clear();

signals:
    /// Other marks are highlighted than before.
    void changed();

private:
    void set(const QUuid &itemId, const QSet<QUuid> &peaks, const QSet<QUuid> &integrals);
    void show() const;

    IPluginHost &fHost;
    QUuid fItem;
    QSet<QUuid> fPeaks;
    QSet<QUuid> fIntegrals;
};
