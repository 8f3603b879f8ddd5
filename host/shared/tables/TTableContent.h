#pragma once

#include "tables/TValueChart.h"

#include <QColor>
#include <QString>
#include <QStringList>
#include <QVector>

class QAbstractItemModel;
class TDataStream;
class TTableProperties;

/// What stands in a table or a chart on a page. Texts hold the signs of the typesetter.
struct TTableContent
{
    struct TColumn
    {
        QString fTitle;
        bool fIsNumber = false;
    };
    struct TRow
    {
        QStringList fCells; // as many as there are columns
        QColor fColor;      // of a sample before the first cell; invalid for none
    };

    static constexpr int cMaxRows = 200; // more than a page has room for

    /// The rows of a model in the order and with the columns that the properties name. Models that have no keys for
    /// their columns (TTableProxy::cKeyRole) are taken as a whole. What they write in the user's form of numbers
    /// becomes the same for all users.
    static TTableContent ofModel(QAbstractItemModel &model, const TTableProperties &properties);

    QString fTitle;
    QVector<TColumn> fColumns;
    QVector<TRow> fRows;
    int fLeftOut = 0; // rows beyond those
    bool fIsChart = false;
    TValueChart fChart;

    /// Text with tabs between the cells, without signs of the typesetter.
    QString plainText() const;
    QString html() const;
    void store(TDataStream &stream) const;
    void load(TDataStream &stream);
};
