#pragma once

#include "TYrexIntegrationRegion.h"
#include "canvas/TSecurePtr.h"
#include "widgets/TBaseTableViewModel.h"

#include <QSet>

class IPluginHost;
class TCanvasItem;
class TCanvasYrexSpectrum;
class TCommand;

/// The integrals of an item's active spectrum, in the horizontal unit of its plot and in the order of its axis.
class TYrexIntegralsTableModel : public TBaseTableViewModel
{
    Q_OBJECT

public:
    enum TColumn { cNumber, cFrom, cTo, cIntegral, cArea, cReference, cMode, cCentre, cShare, cColumnCount };

    /// The host is not owned and lives longer.
    explicit TYrexIntegralsTableModel(IPluginHost &host, QObject *parent = nullptr);

    /// Reads the integrals of an item; null for none.
    void read(TCanvasYrexSpectrum *item);
    TCanvasYrexSpectrum *item() const;
    /// The value by which areas become integrals.
    double normValue() const { return fNormValue; }
    /// The sum of the integrals that are shown.
    double total() const;
    /// Makes the integral of that row 1. False for one without area.
    bool makeReference(int row);

    QSet<QUuid> idsOf(const QVector<int> &rows) const;
    QVariantList rowIdsOf(const QSet<QUuid> &integrals) const;
    /// Places in the spectrum's list.
    QVector<int> placesOf(const QVector<int> &rows) const;
    /// In the horizontal unit of the plot, in the order of its axis.
    double from(int row) const { return fRows.at(row).fFrom; }
    double to(int row) const { return fRows.at(row).fTo; }

protected:
    QString text(int row, int column) const override;
    QVariant number(int row, int column) const override;
    int autoDecimals(int row, int column) const override;
    bool isRadioOn(int row, int column) const override;
    bool isEditable(int row, int column) const override;
    QString toolTip(int row, int column) const override;
    bool edit(int row, int column, const QString &text) override;

private:
    struct TRow
    {
        TYrexIntegrationRegion fRegion; // its bounds are x values
        int fPlace = 0;                 // in the spectrum's list
        int fNumber = 0;
        int fPoints = 0;
        double fFrom = 0.0;
        double fTo = 0.0;
        bool fIsFromFirst = true; // `fFrom` is the region's first bound
    };

    QVector<TTableColumn> makeColumns(int xUnit) const;
    QVector<TRow> rowsOf(const TCanvasYrexSpectrum &item, int xUnit) const;
    double integral(const TRow &row) const;
    bool moveBound(int row, int column, double x);
    bool push(TCommand *command) const;

    IPluginHost &fHost;
    TSecurePtr<TCanvasItem> fItem;
    QVector<TRow> fRows;
    double fNormValue = 1.0;
    double fStep = 0.0;
    int fXUnit = 0;
    int fYUnit = 0;
};
