#pragma once

#include "canvas/TCanvasItemList.h"

#include <QAbstractTableModel>
#include <QPixmap>
#include <QVector>

class TCanvasYrexSpectrum;

/// The spectrum items that one can choose from: name with a small picture of the curve, points, units.
class TYrexSpectrumListTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColumn { cName, cPoints, cHorzUnit, cVertUnit, cColumnCount };
    static constexpr int cSparkWidth = 96; // logical pixels
    static constexpr int cSparkHeight = 24;

    /// Items of other types are left out. The items are not owned and have to live as long.
    explicit TYrexSpectrumListTableModel(const TCanvasItemList &items, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    const QVector<TCanvasYrexSpectrum *> &spectrumItems() const { return fItems; }
    /// The item of a row; null out of range.
    TCanvasYrexSpectrum *itemAt(int row) const { return fItems.value(row); }
    /// The comment of the current spectrum and the item's title, whichever there are.
    static QString nameOf(const TCanvasYrexSpectrum *item);

private:
    static QPixmap sparkline(const TCanvasYrexSpectrum &item);

    QVector<TCanvasYrexSpectrum *> fItems;
    mutable QVector<QPixmap> fSparks; // made when they are first shown
};
