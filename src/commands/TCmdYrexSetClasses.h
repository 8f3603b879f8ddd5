#pragma once

#include "TYrexSpectrumCommand.h"
#include "commands/TPlotSnapshot.h"
#include "plot/TStackedClassProperties.h"

#include <QMap>
#include <QStringList>

/// Gives each spectrum of a stack its class, and all classes their properties.
class TCmdYrexSetClasses : public TYrexSpectrumCommand
{
    Q_OBJECT

public:
    using TClasses = QMap<QString, TStackedClassProperties>;

    /// Names by the index of the spectrum; spectra beyond them keep theirs.
    TCmdYrexSetClasses(TCanvasYrexSpectrum *item, const QStringList &names, const TClasses &classes);

    /// The classes as an argument of a step: "color", "colors" and, where it is not the key, "name".
    static QVariantMap told(const TClasses &classes);
    static TClasses fromTold(const QVariantMap &map);

    TScriptStep scriptStep() const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    QStringList fNames;
    TClasses fClasses;
    QStringList fOldNames; // null for a class that was never set
    TPlotSnapshot fPlots;
};
