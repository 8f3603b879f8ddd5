#include "TAsciiTable.h"

#include "ReadBounds.h"
#include "TAsciiTokens.h"
#include "plugin/IConverter.h"
#include "resampleMonotoneCubic.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int cNumericLinesWanted = 10;
constexpr double cEvenBelow = 1.01; // bounds of the mean of an even axis over its middle
constexpr double cEvenAbove = 0.99;
constexpr qint64 cBytesPerColumn = 1024; // what a spectrum takes besides its values
constexpr int cGrowRows = 1 << 16;
constexpr qint64 cMostRows = (std::numeric_limits<int>::max() - 64) / qint64(sizeof(double)); // a QVector's

/// The columns of the file as they stand there, and the way to fill them row by row.
class TColumns
{
public:
    TColumns(int columnCount, int mostRows)
        : fColumns(columnCount)
        , fMostRows(mostRows)
    {
        for (QVector<double> &column : fColumns) {
            column.reserve(mostRows); // claims addresses, not memory: the pages come with the rows
            fCells.append(column.data());
        }
    }

    int rowCount() const { return fRowCount; }
    QVector<QVector<double>> &columns() { return fColumns; }
    void setCell(int column, double value) { fCells.at(column)[fRowCount] = value; }

    /// Makes room for one more row; the caller's last line is a row, so there is always one to come.
    void openRow()
    {
        if (fRowCount < fRoom)
            return;
        fRoom = std::min(fMostRows, fRoom + cGrowRows);
        for (QVector<double> &column : fColumns)
            column.resize(fRoom);
    }

    void closeRow() { ++fRowCount; }

    /// Gives back what no row came for.
    void finish()
    {
        for (QVector<double> &column : fColumns) {
            column.resize(fRowCount);
            column.squeeze();
        }
    }

private:
    QVector<QVector<double>> fColumns;
    QVector<double *> fCells; // of the columns, which never move
    int fMostRows;
    int fRoom = 0;
    int fRowCount = 0;
};

/// Walks the values of a cleaned line and hands the first columnCount of them to cell(column, value). The count of
/// values that the line adds to the table; 0 drops it, since its first value is missing or one of them is no number.
template <typename TCell>
int walkLine(const TAsciiLine &line, const TAsciiLayout &layout, int columnCount, TCell cell)
{
    TAsciiTokens tokens(line, layout.fMode);
    for (int column = 0; column < layout.fTokenCount; ++column) {
        double value = 0.0;
        bool isNumber = false;
        if (!tokens.next(&value, &isNumber))
            return column;
        if (!isNumber)
            return 0;
        if (column < columnCount)
            cell(column, value);
    }
    return layout.fTokenCount;
}

int valuesInLine(const TAsciiLine &line, const TAsciiLayout &layout)
{
    return walkLine(line, layout, 0, [](int, double) {});
}

/// The bound of the memory that a table may take: zeros and finer grids are not paid for by the text.
bool allowed(double rows, int columnCount, qint64 textSize)
{
    const double bytes = (rows * double(sizeof(double)) + double(cBytesPerColumn)) * columnCount;
    return rows <= double(cMostRows) && !exceedsReadBound(bytes, textSize);
}

/// What the lines from the back tell: the layout, how many columns count, and where the last line of the table ends.
struct TTableEnd
{
    TAsciiLayout fLayout;
    int fColumnCount = 0; // 0: there is no table
    const char *fEnd = nullptr;
};

TTableEnd findTableEnd(const QByteArray &bytes)
{
    TTableEnd result;
    bool layoutKnown = false;
    TAsciiLines lines(bytes);
    TAsciiLine line;
    while (lines.previous(&line)) {
        result.fEnd = line.fEnd;
        if (!TAsciiLines::clean(&line))
            continue;
        if (!layoutKnown) // the last line that may hold numbers rules, even if it then turns out not to
            result.fLayout = TAsciiLayout::ofLine(line);
        layoutKnown = true;
        result.fColumnCount = valuesInLine(line, result.fLayout);
        if (result.fColumnCount > 0)
            break;
    }
    return result;
}

qint64 countRows(const char *begin, const TTableEnd &tableEnd)
{
    TAsciiLines lines(begin, tableEnd.fEnd);
    TAsciiLine line;
    qint64 count = 0;
    while (lines.next(&line))
        count += TAsciiLines::clean(&line) && valuesInLine(line, tableEnd.fLayout) > 0;
    return count;
}

/// The most rows that the columns are prepared for; -1 when they would take too much.
qint64 mostRows(const QByteArray &bytes, const TTableEnd &tableEnd)
{
    const qint64 lineCount = TAsciiLines(bytes.constData(), tableEnd.fEnd).countLeft();
    if (allowed(double(lineCount), tableEnd.fColumnCount, bytes.size()))
        return lineCount;
    // many lines may hold no numbers, or end with "\r\n": only now is it worth to count exactly
    const qint64 rowCount = countRows(bytes.constData(), tableEnd);
    return allowed(double(rowCount), tableEnd.fColumnCount, bytes.size()) ? rowCount : -1;
}

int readColumns(const QByteArray &bytes, QVector<QVector<double>> *result, QString *problem)
{
    const TTableEnd tableEnd = findTableEnd(bytes);
    if (tableEnd.fColumnCount == 0) {
        *problem = QStringLiteral("expected lines of numbers, found none in %1 bytes").arg(bytes.size());
        return cConverterContentUnusable;
    }
    const qint64 rows = mostRows(bytes, tableEnd);
    if (rows < 0) {
        *problem = QStringLiteral("expected values for %1 columns, found short lines that %2 bytes do not pay for")
                       .arg(tableEnd.fColumnCount)
                       .arg(bytes.size());
        return cConverterOutOfMemory;
    }

    TColumns columns(tableEnd.fColumnCount, int(rows));
    TAsciiLines lines(bytes.constData(), tableEnd.fEnd);
    TAsciiLine line;
    while (lines.next(&line)) {
        if (!TAsciiLines::clean(&line))
            continue;
        columns.openRow();
        const int count = walkLine(line, tableEnd.fLayout, tableEnd.fColumnCount,
                                   [&columns](int column, double value) { columns.setCell(column, value); });
        if (count == 0)
            continue;
        for (int column = count; column < tableEnd.fColumnCount; ++column)
            columns.setCell(column, 0.0); // a dropped line may have left something here
        columns.closeRow();
    }
    columns.finish();
    result->swap(columns.columns());
    return cConverterOk;
}

bool runsDown(const QVector<double> &x)
{
    return x.size() > 1 && x.at(0) > x.at(1);
}

/// The first row that breaks the order, -1 when none does. An ascending x is compared row by row, a descending one only
/// with its first value.
int firstOutOfOrder(const QVector<double> &x)
{
    const bool descending = runsDown(x);
    for (int i = 2; i < x.size(); ++i) {
        if (descending ? x.at(i) > x.at(0) : x.at(i - 1) > x.at(i))
            return i;
    }
    return -1;
}

/// The first value that is not above the one before, -1 when all are. A NaN among several is such a value.
int firstRepeated(const QVector<double> &x)
{
    for (int i = 1; i < x.size(); ++i) {
        if (!(x.at(i - 1) < x.at(i)))
            return i;
    }
    return -1;
}

void sortByX(QVector<double> *x, QVector<double> *y)
{
    QVector<QPair<double, double>> points(x->size());
    for (int i = 0; i < points.size(); ++i)
        points[i] = {x->at(i), y->at(i)};
    std::sort(points.begin(), points.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    for (int i = 0; i < points.size(); ++i) {
        (*x)[i] = points.at(i).first;
        (*y)[i] = points.at(i).second;
    }
}

/// Turns a file around whose x runs down. The first y column follows its x values, the others only the direction.
void turnAround(QVector<QVector<double>> *columns)
{
    for (QVector<double> &column : *columns)
        std::reverse(column.begin(), column.end());
    QVector<double> &x = (*columns)[0];
    if (firstRepeated(x) >= 0) // it rises here and there
        sortByX(&x, &(*columns)[1]);
}

/// Brings the rows into ascending order of x; 52 when x has no order or repeats itself.
int orderRows(QVector<QVector<double>> *columns, QString *problem)
{
    QVector<double> &x = columns->first();
    const auto nan = std::find_if(x.cbegin(), x.cend(), [](double value) { return std::isnan(value); });
    int row = firstOutOfOrder(x);
    if (row < 0 && x.size() > 1 && nan != x.cend())
        row = int(nan - x.cbegin());
    if (row >= 0) {
        *problem = QStringLiteral("expected x in ascending or descending order, found %1 in row %2")
                       .arg(x.at(row))
                       .arg(row + 1);
        return cConverterContentUnusable;
    }
    if (runsDown(x))
        turnAround(columns);
    row = firstRepeated(x);
    if (row >= 0) {
        *problem = QStringLiteral("expected different x values, found %1 twice").arg(x.at(row));
        return cConverterContentUnusable;
    }
    return cConverterOk;
}

/// Whether the mean of the keys is off their middle. A quotient that is no number counts as even.
bool isIrregular(const QVector<double> &keys)
{
    double sum = 0.0;
    for (const double key : keys)
        sum += key;
    const double mean = keys.isEmpty() ? 0.0 : sum / keys.size();
    const double ratio = mean / ((keys.last() + keys.first()) * 0.5);
    return keys.size() > 1 && (ratio > cEvenBelow || ratio < cEvenAbove);
}

/// Puts the columns of an uneven axis onto the grid of its smallest step.
int makeEven(TAsciiTable *table, qint64 textSize, QString *problem)
{
    const QVector<double> &keys = table->fKeys;
    double step = std::numeric_limits<double>::infinity();
    for (int i = 1; i < keys.size(); ++i)
        step = std::min(step, std::fabs(keys.at(i) - keys.at(i - 1)));
    const double wanted = std::round((table->fLastX - table->fFirstX) / step);
    if (!allowed(wanted, table->fY.size(), textSize)) {
        *problem = QStringLiteral("expected a nearly even x axis, found a smallest step of %1 from %2 to %3")
                       .arg(step)
                       .arg(table->fFirstX)
                       .arg(table->fLastX);
        return cConverterOutOfMemory;
    }

    const int count = int(wanted);
    for (QVector<double> &y : table->fY) {
        resampleMonotoneCubic(keys, y, TEvenGrid{table->fFirstX, step, count}); // refuses where the grid is no finer
        y.resize(count);
        y.squeeze();
    }
    table->fPointCount = count;
    return cConverterOk;
}

bool holdsNumbersOnly(const TAsciiLine &line)
{
    if (!line.fPlain)
        return false;
    TAsciiLine rest = line;
    while (rest.fBegin < rest.fEnd && TAsciiTokens::isSeparator(*rest.fBegin))
        ++rest.fBegin;
    TAsciiTokens tokens(rest, TAsciiLayout::cBlanks);
    double value = 0.0;
    bool isNumber = false;
    bool any = false;
    while (tokens.next(&value, &isNumber)) {
        if (!isNumber)
            return false;
        any = true;
    }
    return any;
}

} // namespace

int readAsciiTable(QByteArray bytes, TAsciiTable *table, QString *problem)
{
    QString unread;
    QString *told = problem ? problem : &unread;
    const qint64 textSize = bytes.size();
    QVector<QVector<double>> columns;
    int code = readColumns(bytes, &columns, told);
    bytes = QByteArray();
    if (code != cConverterOk)
        return code;

    TAsciiTable read;
    const int rowCount = columns.first().size();
    read.fPointCount = rowCount;
    if (columns.size() == 1) {
        read.fFirstX = 1.0;
        read.fLastX = rowCount;
        read.fY.swap(columns);
        *table = read;
        return cConverterOk;
    }

    code = orderRows(&columns, told);
    if (code != cConverterOk)
        return code;
    read.fKeys = columns.takeFirst();
    read.fY.swap(columns);
    read.fFirstX = read.fKeys.first();
    read.fLastX = read.fKeys.last();
    read.fIrregular = isIrregular(read.fKeys);
    if (read.fIrregular)
        code = makeEven(&read, textSize, told);
    if (code == cConverterOk)
        *table = read;
    return code;
}

bool looksLikeAsciiTable(const QByteArray &head)
{
    TAsciiLines lines(head);
    TAsciiLine line;
    int numeric = 0;
    while (lines.next(&line) && lines.hadLineEnd()) {
        numeric += holdsNumbersOnly(line);
        if (numeric == cNumericLinesWanted)
            return true;
    }
    return false;
}
