#pragma once

#include <QString>
#include <QStringList>
#include <QVariantMap>

class TDataStream;

/// What a table on a page shows of the item that it is linked to, and how.
class TTableProperties
{
public:
    static const QString cType;       // of all tables that are made
    static const QString cFormerType; // of older ones, which are the same
    static constexpr int cAutoDecimals = -1;

    /// `table` tells which of the item's tables it is.
    explicit TTableProperties(const QString &table = QString());

    QString type() const;
    /// One of the two types.
    bool isKnown() const;
    QString table() const;
    /// Keys of the columns in their order; empty for all.
    QStringList columns() const;
    void setColumns(const QStringList &keys);
    /// Key of the column by which the rows are sorted; empty for the order of the item.
    QString sortKey() const;
    bool isDescending() const;
    void setSort(const QString &key, bool descending);
    /// Rows stay of which any cell holds the text.
    QString filter() const;
    void setFilter(const QString &text);
    /// Of all numbers; cAutoDecimals for as many as they need.
    int decimals() const;
    void setDecimals(int decimals);
    /// Of the letters in canvas units, 10 to 100.
    int fontSize() const;
    void setFontSize(int size);
    /// What only this kind of table knows.
    QVariant option(const QString &key) const;
    void setOption(const QString &key, const QVariant &value);

    /// All fields, as they are stored.
    const QVariantMap &fields() const { return fFields; }
    /// Fields that are not known here go through unchanged.
    void store(TDataStream &stream) const;
    void load(TDataStream &stream);

private:
    QVariantMap fFields;
};
