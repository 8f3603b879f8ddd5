#pragma once

#include "TYrexSpectrumList.h"
#include "canvas/TViewHistoryEntry.h"
#include "commands/TCommand.h"
#include "commands/TPlotSnapshot.h"

#include <QByteArray>

class T1DYrexPlot;
class TCanvasYrexSpectrum;

/// What the commands share that bring spectra into an item. The spectra belong to the item while the command is done
/// and to the command otherwise. Afterwards everything is in view, and the view from before is one to come back to.
class TYrexInsertionCommand : public TCommand
{
    Q_OBJECT

public:
    ~TYrexInsertionCommand() override;

    bool isVoid() const override { return TCommand::isVoid() || !fItem || fSpectra.isEmpty(); }
    /// The items of the document whose spectra these are copies of; a script step names them in place of the data.
    void setSources(const TCanvasItemList &items);
    void doCmd() final;
    void undoCmd() final;
    /// One entry on the item; `describe` adds what it tells.
    void doHistoryCommand() override;

protected:
    /// Takes the spectra over, also for a null item.
    TYrexInsertionCommand(const QString &description, TCanvasYrexSpectrum *item, const TYrexSpectrumList &spectra);

    TCanvasYrexSpectrum *item() const { return fItem; }
    const TYrexSpectrumList &spectra() const { return fSpectra; }
    T1DYrexPlot *plot() const;
    void setSnapshot(const QByteArray &snapshot) { fSnapshot = snapshot; }
    /// The spectra come from what the item holds now, since the undo of another command may have made them anew.
    void takeBack(int index, int place);
    /// Puts a spectrum in the place of the first one, which comes back to the command.
    void putBack(int index, TYrexSpectrum *former);

    /// Puts the spectra into the stack.
    virtual void insert() = 0;
    /// Takes them out, each through takeBack.
    virtual void remove() = 0;
    virtual void restoreSnapshot(const QByteArray &snapshot) = 0;
    /// A step on the item with the spectra, as data or as the items that they come from.
    TScriptStep insertionStep(const QString &name) const;
    virtual void describe(THistoryCommand &) const {}
    /// How a single spectrum is shown that has become one of several.
    virtual void beginStack() {}
    /// Colours for the `count` spectra that stand from `first` on now.
    void insertColors(int first, int count);

private:
    void rememberView(const TViewHistoryEntry &before);

    TCanvasYrexSpectrum *fItem; // not owned
    TYrexSpectrumList fSpectra;
    QVariantList fSources; // as steps tell items; empty: the spectra come from elsewhere
    QByteArray fSnapshot;
    TPlotSnapshot fPlots;
    TPlotSnapshot fNewPlots; // once done
    bool fWasDone = false;
    int fCurrent = -1;
    bool fPushed = false;
};
