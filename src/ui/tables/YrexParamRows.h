#pragma once

#include "YrexParamGroups.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>

class TCanvasYrexSpectrum;

/// A row of the table of parameters: a parameter, or a fact about where the spectra came from.
struct TYrexParamRow
{
    int fId = 0; // of the parameter; negative for facts
    YrexParamGroups::TGroup fGroup = YrexParamGroups::cOther;
    QString fName;
    int fType = 0; // TSpectrumParam::TParamType
    int fPrecision = 0;
    bool fIsLocked = false;
    bool fIsHidden = false; // by the recipe
    QStringList fTexts;     // one per spectrum
    int fDifferent = 0;     // how many different texts; counted once, since stacks are long

    bool isEmpty() const;
    /// Whether the spectra have it differently.
    bool differs() const { return fDifferent > 1; }
    void countDifferent();
};

/// Collects the parameters of spectra of an item.
namespace YrexParamRows {

/// Facts, behind the ids of parameters.
enum TFact { cFile = -1, cFileDate = -2, cChecksum = -3, cFormat = -4, cImported = -5 };

/// All rows of the spectra at these indices, in the order of the table. What one spectrum has and another has not is
/// empty there. `imported` is when the item came into its document; invalid where that is not known.
QVector<TYrexParamRow> of(const TCanvasYrexSpectrum &item, const QVector<int> &spectra, const QDateTime &imported);

} // namespace YrexParamRows
