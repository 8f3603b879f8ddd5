#pragma once

#include "TYrexParamsCommand.h"
#include "params/TSpectrumParamsTemplate.h"

/// Changes the recipe by which parameters of a file format are read, and reads those of the items' selected spectra
/// anew. What users and readers set stays.
class TCmdYrexEditParameterTemplates : public TYrexParamsCommand
{
    Q_OBJECT

public:
    /// The format is that of the main item's current spectrum, and only spectra of it are reached; a format without
    /// parser does nothing. Later imports follow the new recipe, until the command is undone.
    TCmdYrexEditParameterTemplates(const TCanvasItemList &items, const TSpectrumParamsTemplate &templates);
    /// The recipe of a format that need not be that of the items.
    TCmdYrexEditParameterTemplates(const TCanvasItemList &items, const TSpectrumParamsTemplate &templates, int format);

    TScriptStep scriptStep() const override;
    void doCmd() override;
    void undoCmd() override;
    void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    void takeFormat(int format);

    TSpectrumParamsTemplate fTemplates;
    TSpectrumParamsTemplate fOldTemplates;
    int fFormat;
};
