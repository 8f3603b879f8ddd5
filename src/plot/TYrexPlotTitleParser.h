#pragma once

#include <QString>

class TCanvasYrexSpectrum;
class TYrexSpectrum;

/// Expands the placeholders of a title format: {Title}, {Comment}, {Date}, {Class}, {Number}, {Count}, {Units}, {File}
/// and any parameter by its programmatic name. What is unknown expands to nothing.
class TYrexPlotTitleParser
{
public:
    /// Index -1 stands for the whole item, which goes by its current spectrum.
    TYrexPlotTitleParser(const TCanvasYrexSpectrum &item, int index);

    /// Whether there is a spectrum to tell of.
    bool canRun() const { return fSpectrum != nullptr; }
    QString parse(const QString &format) const;

private:
    QString valueOf(const QString &name) const;
    bool isTypedTitle() const;
    int numberInFile() const;
    QString shownTitle() const;

    const TCanvasYrexSpectrum &fItem;
    const TYrexSpectrum *fSpectrum;
    int fIndex;
    bool fWholeItem;
};
