#pragma once

#include "TCliInput.h"

#include <QList>
#include <QStringList>

class TCanvasYrexSpectrum;
class TYrexSpectrum;

/// The spectra of several files gathered into one stacked item of one document. The x units must agree with those of
/// the first file that could be read; a file that cannot be read or does not fit stands among the failed ones.
class TCliStack
{
public:
    TCliStack(const QStringList &files, const QString &format, const TCliEnvironment &environment);

    /// The stack as one input; without items when no file could be read.
    TCliInput &input() { return fInput; }
    QList<TCliInput> &failed() { return fFailed; }
    /// The files whose spectra are in the stack.
    const QStringList &taken() const { return fTaken; }

private:
    void take(TCliInput &read);
    bool fits(const TCliInput &read) const;
    void putTogether(const QString &format, const TCliEnvironment &environment);

    TCliInput fInput;
    QList<TCliInput> fFailed;
    QStringList fTaken;              // files
    QVariantMap fSums;               // their md5 by name
    QString fHorzUnit;               // of all spectra
    QList<TYrexSpectrum *> fSpectra; // until the item owns them
};
