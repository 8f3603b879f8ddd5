#pragma once

#include <QAbstractTableModel>
#include <QVariant>
#include <QVector>
#include <functional>

/// A column of a table on the screen.
struct TTableColumn
{
    enum TKind { cText, cNumber, cRadio };

    QString fKey; // by which its place, width and whether it is shown are remembered
    QString fTitle;
    QString fTip;
    TKind fKind = cText;
    bool fIsShown = true;    // until the user says otherwise
    bool fIsOptional = true; // the user may hide it
    int fLeastWidth = 0;     // px at first, for texts that are still to be typed
};

/// Rows of a table that docks and pages share. What is common stands here: columns with their keys, numbers with their
/// decimals, rows that are known by an id and keep it when they are read anew.
class TBaseTableViewModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int cAutoDecimals = -1;
    /// A column's radio button: whether it is on.
    static constexpr int cRadioRole = Qt::UserRole + 10;
    /// How many decimals more the longest number of the column has.
    static constexpr int cPadRole = Qt::UserRole + 11;

    explicit TBaseTableViewModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex &place, int role) const override;
    bool setData(const QModelIndex &place, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &place) const override;

    const QVector<TTableColumn> &columns() const { return fColumns; }
    /// The place of the column with that key; -1 without.
    int columnOf(const QString &key) const;
    /// What the row stands for; invalid for a row that there is not.
    QVariant rowId(int row) const { return fIds.value(row); }
    int rowOfId(const QVariant &id) const { return fIds.indexOf(id); }
    /// Of all numbers; cAutoDecimals for as many as they need.
    void setDecimals(int decimals);
    int decimals() const { return fDecimals; }

    /// As many decimals as show so many significant digits of the value, between 0 and 8.
    static int decimalsOfDigits(double value, int digits);
    /// As many decimals as tell points apart that lie so far from each other, and tenths of that; between 0 and 8.
    static int decimalsOfStep(double step);

signals:
    /// An edit could not be: the reason is to be shown at its place.
    void refused(const QModelIndex &place, const QString &reason);

protected:
    /// Takes other rows over: `swap` puts them in. Rows of the same ids in the same columns count as changed, so that
    /// selection and editors stay; any other set is a new table.
    void replaceRows(const QVector<TTableColumn> &columns, const QVariantList &ids, const std::function<void()> &swap);

    /// The text of a cell without number.
    virtual QString text(int row, int column) const = 0;
    /// The number of a cell; invalid for one that is empty.
    virtual QVariant number(int, int) const { return QVariant(); }
    virtual int autoDecimals(int, int) const { return 0; }
    virtual bool isRadioOn(int, int) const { return false; }
    virtual bool isEditable(int, int) const { return false; }
    virtual QString toolTip(int, int) const { return QString(); }
    /// Whether the texts of a column hold the signs of the typesetter.
    virtual bool isTypeset(int) const { return false; }
    /// A text that differs from the one shown was typed. False when nothing was done.
    virtual bool edit(int, int, const QString &) { return false; }

private:
    QString shownText(int row, int column) const;
    int decimalsAt(int row, int column) const;
    void measureColumns();

    QVector<TTableColumn> fColumns;
    QVector<int> fMaxDecimals; // by column
    QVariantList fIds;
    int fDecimals = cAutoDecimals;
};
