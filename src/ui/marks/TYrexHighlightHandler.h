#pragma once

#include <QObject>
#include <QSet>
#include <QUuid>

class IPluginHost;
class TCanvasYrexSpectrum;

/// Which marks of which item are highlighted: peaks and integrals of its active spectrum. Mouse, tables and dialogs set
/// and read it here, the plot shows it. Marks of one item at a time; identifiers of marks that are gone do no harm.
///
/// A mark under the mouse is highlighted as long as the mouse is there. It counts for actions while no others are
/// highlighted for good, so that what is not under the eye is never deleted with it.
class TYrexHighlightHandler : public QObject
{
    Q_OBJECT

public:
    /// The host is not owned and lives longer.
    explicit TYrexHighlightHandler(IPluginHost &host);

    /// The item whose marks are highlighted; null when none are, and when it is not in the document that is shown.
    TCanvasYrexSpectrum *item() const;
    const QSet<QUuid> &peaks() const { return inUse().fPeaks; }
    const QSet<QUuid> &integrals() const { return inUse().fIntegrals; }
    bool isEmpty() const { return inUse().isEmpty(); }
    /// Whether that mark of the item is highlighted for good.
    bool isKept(const QUuid &itemId, const QUuid &mark) const;

    /// Highlights these peaks of an item and nothing else. `itemId` is the item's unique id.
    void highlightPeaks(const QUuid &itemId, const QSet<QUuid> &peaks);
    /// Highlights these integrals of an item and nothing else.
    void highlightIntegrals(const QUuid &itemId, const QSet<QUuid> &integrals);
    /// Adds a mark to those that are highlighted, or takes it out; marks of another item go.
    void toggle(const QUuid &itemId, const QUuid &mark, bool isPeak);
    /// The mouse is over a mark.
    void hover(const QUuid &itemId, const QUuid &mark, bool isPeak);
    /// The mouse is over none.
    void clearHover();
    /// Whether anything was highlighted for good.
    bool clear();

signals:
    /// Other marks are highlighted than before. What is set while this is told is ignored: tables that follow do not
    /// keep what is only under the mouse.
    void changed();

private:
    struct TMarks
    {
        QUuid fItem;
        QSet<QUuid> fPeaks;
        QSet<QUuid> fIntegrals;

        bool isEmpty() const { return fPeaks.isEmpty() && fIntegrals.isEmpty(); }
        bool operator==(const TMarks &other) const;
    };

    const TMarks &inUse() const { return fKept.isEmpty() ? fHovered : fKept; }
    void set(const TMarks &kept, const TMarks &hovered);
    TCanvasYrexSpectrum *itemOf(const QUuid &id) const;
    void show(const QUuid &itemId) const;

    IPluginHost &fHost;
    TMarks fKept;
    TMarks fHovered;
    bool fIsTelling = false;
};
