#pragma once

#include "widgets/TBaseTableViewModel.h"

#include <QHash>

class TCanvasYrexSpectrum;

/// Integrals of the visible spectra of a stack: a row per spectrum, a column per region of the active one. In the
/// others the region counts that overlaps it most. All areas go over the normalization of the active spectrum, so that
/// they can be compared.
class TYrexIntegralsSpectraModel : public TBaseTableViewModel
{
    Q_OBJECT

public:
    enum TColumn { cTitle, cClass, cValue, cFirstRegion };

    using TBaseTableViewModel::TBaseTableViewModel;

    /// Null for none.
    void read(TCanvasYrexSpectrum *item);
    /// The last column is the ratio of these two regions, counted from 0; a negative number takes it away.
    void setRatio(int over, int under);
    /// "1581.0 .. 1620.0" of the regions.
    QStringList regionNames() const { return fNames; }
    /// The index of the spectrum in its stack.
    int spectrumOf(int row) const { return fRows.at(row).fSpectrum; }

protected:
    QString text(int row, int column) const override;
    QVariant number(int row, int column) const override;
    int autoDecimals(int row, int column) const override;

private:
    struct TRow
    {
        int fSpectrum = 0;
        QString fTitle;
        QString fClass;
        double fValue = 0.0;
        QVector<QVariant> fIntegrals;
    };

    bool hasRatio() const;
    QVector<TTableColumn> makeColumns() const;
    void put(const QVector<TRow> &rows, const QStringList &names);

    QVector<TRow> fRows;
    QStringList fNames;
    QVariantList fRowIds;
    int fOver = -1;
    int fUnder = -1;
};
