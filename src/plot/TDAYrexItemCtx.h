#pragma once

#include "contexts/IDAItemCtx.h"

class TCanvasYrexSpectrum;
class TYrexSpectrum;

/// A spectrum item as data analysis sees it.
class TDAYrexItemCtx : public IDAItemCtx
{
public:
    /// `item` is not owned; null gives the empty values.
    explicit TDAYrexItemCtx(TCanvasYrexSpectrum *item)
        : fItem(item)
    {
    }

    bool isArrayed() const override;
    bool hasSpectra() const override;
    QList<quint32> ids() const override;
    int indexOf(quint32 id) const override;
    bool date(int index, QDateTime &date) const override;
    bool hasArrayedData(bool &arrayed) const override;
    double arrayedValue(int index) const override;
    bool paramValue(int index, const QString &name, double &value) const override;
    bool regionValue(int index, const TDARegion &region, double from, double to, double &value) override;
    int count() const override;

    /// What the values of the series are, in the user's words; empty when nobody said so.
    QString arrayedLabel() const;
    void setArrayedLabel(const QString &label);

private:
    TYrexSpectrum *spectrum(int index) const;

    TCanvasYrexSpectrum *fItem;
};
