#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// Lines of text in aligned columns.
class TTextTable
{
public:
    /// `indent` blanks stand before each line.
    explicit TTextTable(int indent = 0)
        : fIndent(indent)
    {
    }

    void addRow(const QStringList &cells) { fRows.append(cells); }
    /// Columns as wide as their widest cell, two blanks apart, no blanks at the ends of lines. Line ends within a cell
    /// become blanks.
    QString text() const;

private:
    int fIndent;
    QVector<QStringList> fRows;
};
