#pragma once

#include "params/TSpectrumParam.h"
#include "params/TSpectrumParamsTemplate.h"

#include <QAbstractTableModel>
#include <QVector>

class TYrexSpectrum;

/// The recipes of a file format's parameters as rows that are edited, with what each gives for one spectrum.
class TYrexParamTemplatesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColumn { cParameter, cExpression, cSource, cPrecision, cVisible, cPreview, cColumnCount };

    /// The format is that of the spectrum, which lives longer and has a parser.
    explicit TYrexParamTemplatesModel(const TYrexSpectrum &spectrum, QObject *parent = nullptr);

    TSpectrumParamsTemplate templates() const;
    /// Whether the rows are other ones than those in use.
    bool isChanged() const;
    /// Back to the recipes that the format began with.
    void reset();
    /// Adds a row behind that one, for a parameter that has none yet; gives its place, -1 when all have.
    int add(int row);
    void remove(int row);
    /// Moves a row up (-1) or down (1); gives its place then.
    int move(int row, int step);
    /// Names and ids of the parameters that a row may be for: its own, and those without a row.
    QVector<QPair<QString, int>> choices(int row) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex &place, int role) const override;
    /// The parameter is set by its id, visibility by its check.
    bool setData(const QModelIndex &place, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &place) const override;

private:
    void take(const TSpectrumParamsTemplate &entries);
    bool isKnown(int id) const;
    void preview();
    bool setEntry(TSpectrumParam &entry, int column, const QVariant &value) const;

    const TYrexSpectrum &fSpectrum;
    QVector<TSpectrumParam> fEntries;
    QVector<QString> fTexts; // what each gives
};
