#pragma once

#include <QAbstractTableModel>
#include <functional>

class TYrexMultipointSession;

/// The control points of the baseline that is edited, in the order of x: number, x in the unit of the plot, height and
/// kind. A height that is typed makes the point a free one.
class TYrexBaselinePointsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColumn { cNumber, cX, cY, cKind, cColumns };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows these points; `unit` is that of x with its text. Null, not owned, for none.
    void setSession(TYrexMultipointSession *session, int unit, const QString &unitText);
    /// The points were changed.
    void refresh();
    static QStringList kindNames();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

signals:
    /// A cell changed the points; the one that was meant stands at `row` now.
    void edited(int row);

private:
    TYrexMultipointSession *fSession = nullptr;
    int fUnit = 0;
    QString fUnitText;
    int fRows = 0;
};
