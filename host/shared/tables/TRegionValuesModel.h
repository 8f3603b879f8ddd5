#pragma once

#include "tables/TRegionValues.h"

#include <QAbstractTableModel>

/// The values of regions as a table: a row for each spectrum.
class TRegionValuesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColumn { cTitle, cX, cFirstRegion };

    using QAbstractTableModel::QAbstractTableModel;

    void setValues(const TRegionValues &values, const QString &xTitle);
    const TRegionValues &values() const { return fValues; }
    /// -1 for as many as the numbers need.
    void setDecimals(int decimals);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &place, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QVariant number(double value, int role) const;

    TRegionValues fValues;
    QString fXTitle;
    int fDecimals = -1;
};
