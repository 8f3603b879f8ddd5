#pragma once

#include <QString>
#include <QVector>

class QIODevice;

/// The numbers of a text table as they stand there, by columns; lines that are no rows are left out.
class TAsciiColumns
{
public:
    /// Reads the text of a random-access device from its start: 0, or 52 when it holds no row, or 0x80000002 when the
    /// zeros of short lines would take more than the text can justify. The columns are complete on 0 and empty
    /// otherwise; problem then tells what was found.
    int read(QIODevice *device, QString *problem);

    /// All of one length, at least one of them after a good read.
    QVector<QVector<double>> &columns() { return fColumns; }

    /// Whether `columnCount` columns of `rowCount` values may be made from a text of that many bytes.
    static bool allowed(double rowCount, int columnCount, qint64 textSize);

private:
    struct TTableEnd;

    static TTableEnd findTableEnd(QIODevice *device);
    void prepare(const TTableEnd &tableEnd);
    int readRows(QIODevice *device, const TTableEnd &tableEnd);
    int readRow(class TAsciiLines *lines, const TTableEnd &tableEnd);
    void setRoom(int rows);
    void finish();

    QVector<QVector<double>> fColumns;
    QVector<double *> fCells; // the values of the columns
    int fRoom = 0;            // rows that the columns have room for
    int fRowCount = 0;
};
