#pragma once

#include "contexts/TDARegion.h"

#include <QAbstractTableModel>
#include <QVector>

/// The regions of an item for editing. An edit goes to the signal and comes back with the item.
class TRegionsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColumn { cColor, cName, cKind, cFrom, cTo, cColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    /// With limits in the unit that is shown.
    void setRegions(const QVector<TDARegion> &shown);
    const QVector<TDARegion> &regions() const { return fRegions; }
    static QString kindName(int kind);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex &place) const override;
    QVariant data(const QModelIndex &place, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// False for an empty name, one that another region has, and what is no number.
    bool setData(const QModelIndex &place, const QVariant &value, int role = Qt::EditRole) override;

signals:
    /// A region is to be this one; `hasLimits` says that its limits, as they are shown, are new.
    void edited(int row, const TDARegion &region, bool hasLimits);

private:
    bool setName(TDARegion &region, const QString &name) const;

    QVector<TDARegion> fRegions;
};
