#pragma once

#include <QCoreApplication>
#include <QUuid>

class IGuiHost;
class TCanvasYrexSpectrum;
class TCommandHistory;

/// What the mouse does with the regions of data analysis. Each edit is one step of the history and leaves the others
/// as they are; places are given in the unit that the plot shows.
class TYrexDataAnalysisHandler
{
    Q_DECLARE_TR_FUNCTIONS(TYrexDataAnalysisHandler)

public:
    /// A limit of a region, as it is shown.
    struct TLimit
    {
        QUuid fId;
        bool fIsTo = false; // else the first one
        double fX = 0.0;    // shown
        double fOther = 0.0;

        bool isValid() const { return !fId.isNull(); }
    };

    explicit TYrexDataAnalysisHandler(IGuiHost &gui)
        : fGui(gui)
    {
    }

    /// Of the regions of a kind the limit nearest to a place, in item coordinates, within a reach; not valid for none.
    static TLimit limitAt(const TCanvasYrexSpectrum &item, int kind, double itemX, double reach);
    /// Of the regions of a kind the one that runs over a place; null for none. Of several the one drawn last.
    static QUuid regionAt(const TCanvasYrexSpectrum &item, int kind, double shownX);
    /// What a region of that kind would give for the active spectrum; false for nothing.
    static bool value(TCanvasYrexSpectrum &item, int kind, double fromX, double toX, double &value);
    /// "580.0 .. 620.0   24.70": limits with the digits that tell two pixels apart, and the value with four that count.
    static QString text(TCanvasYrexSpectrum &item, int kind, double fromX, double toX);

    /// A new region with the next name and colour. Its values are shown.
    void add(TCommandHistory &history, TCanvasYrexSpectrum &item, int kind, double fromX, double toX) const;
    /// A limit that passes the other one changes places with it.
    void moveLimit(TCommandHistory &history, TCanvasYrexSpectrum &item, const TLimit &limit, double toX) const;
    /// An empty name, and one that is in use, is refused.
    bool rename(TCommandHistory &history, TCanvasYrexSpectrum &item, const QUuid &id, const QString &name) const;
    /// Asks for the name of a region.
    void askForName(TCommandHistory &history, TCanvasYrexSpectrum &item, const QUuid &id) const;
    void remove(TCommandHistory &history, TCanvasYrexSpectrum &item, const QUuid &id) const;

private:
    IGuiHost &fGui;
};
